#include "platform/automation/collection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>

#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

Variant Number(int n) {
    return Variant(std::int32_t{n});
}

/// The items in order as one text, "1 2 x".
std::string Items(const Ref<Collection>& collection) {
    std::string all;
    Collection::Walk walk(collection);
    while (const Variant* item = walk.Next()) {
        all.append(all.empty() ? "" : " ").append(ToText(*item).ToUtf8());
    }
    return all;
}

/// A collection of the items 1 to @p count under the keys "k1" and so on.
Ref<Collection> Numbered(int count) {
    Ref<Collection> collection = MakeObject<Collection>();
    for (int n = 1; n <= count; ++n) {
        collection->TryAdd(u"k" + Text::FromInteger(n), Number(n));
    }
    return collection;
}

/// A row with these columns and the values 1, 2 and so on.
Ref<Collection> Row(std::vector<Text> names) {
    auto values = std::make_unique<Variant[]>(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        values[i] = Number(static_cast<int>(i) + 1);
    }
    return MakeObject<Collection>(std::make_shared<ColumnNames>(std::move(names)), std::move(values));
}

TEST(CollectionTest, FindsByKeyAndByPosition) {
    const Ref<Collection> collection = MakeObject<Collection>();
    collection->Add(u"first", u"Größe", {}, {});
    collection->Add(u"second", {}, {}, {});
    collection->Add(Variant::Null(), u"", {}, {});
    EXPECT_EQ(collection->Count(), 3);
    EXPECT_EQ(Describe(collection->Item(u"GRÖßE")), "String first");
    EXPECT_EQ(Describe(collection->Item(u"")), "Null");
    EXPECT_EQ(Describe(collection->Item(Number(2))), "String second");
    EXPECT_EQ(Describe(collection->Item(Variant(1.5))), "String second");  // half to even
    EXPECT_EQ(Describe(collection->Item(Variant(ValueObject::Of(u"größe")))), "String first");
    const std::pair<Variant, std::int32_t> wrong[] = {{u"1", 5},       {Number(0), 9}, {Number(4), 9},
                                                      {Number(-1), 9}, {Variant(), 9}, {Variant::Null(), 94}};
    for (const auto& [index, number] : wrong) {
        EXPECT_EQ(ErrorOf([&, at = index] { collection->Item(at); }), number) << Describe(index);
        EXPECT_EQ(ErrorOf([&, at = index] { collection->Remove(at); }), number) << Describe(index);
    }
    EXPECT_EQ(ErrorOf([&] { collection->Get(u"x"); }), 5);
    EXPECT_EQ(ErrorOf([] { MakeObject<Collection>()->Item(Number(1)); }), 9);
    EXPECT_EQ(collection->At(1).first, u"");
    EXPECT_EQ(collection->At(0).first, u"Größe");
}

TEST(CollectionTest, AddsAtAPlace) {
    const Ref<Collection> collection = Numbered(3);
    collection->Add(Number(10), u"ten", Variant(u"K1"), {});
    collection->Add(Number(20), {}, {}, Number(1));
    collection->Add(Number(30), {}, {}, Variant(u"k3"));
    collection->Add(Number(40), {}, Number(6), {});
    EXPECT_EQ(Items(collection), "10 20 1 2 3 40 30");
    EXPECT_EQ(Describe(collection->Item(u"TEN")), "Long 10");
    EXPECT_EQ(ErrorOf([&] { collection->Add(Number(0), u"K2", {}, {}); }), 457);
    EXPECT_EQ(ErrorOf([&] { collection->Add(Number(0), {}, Variant(u"none"), {}); }), 5);
    EXPECT_EQ(ErrorOf([&] { collection->Add(Number(0), {}, {}, Number(8)); }), 9);
    EXPECT_EQ(ErrorOf([&] { collection->Add(Number(0), {}, Number(1), Number(1)); }), 5);
    EXPECT_FALSE(collection->TryAdd(u"K2", Number(0)));
    EXPECT_EQ(Items(collection), "10 20 1 2 3 40 30");
}

TEST(CollectionTest, ReplacingMovesToTheEnd) {
    const Ref<Collection> collection = Numbered(4);
    for (const char16_t* key : {u"K2", u"k1", u"K2"}) {
        EXPECT_TRUE(collection->RemoveKey(key));
        EXPECT_FALSE(collection->RemoveKey(key));
        EXPECT_TRUE(collection->TryAdd(key, Variant(key)));
    }
    EXPECT_EQ(Items(collection), "3 4 k1 K2");
    collection->Remove(Number(1));
    EXPECT_EQ(Describe(collection->Item(Number(1))), "Long 4");
    collection->Clear();
    EXPECT_EQ(collection->Count(), 0);
    EXPECT_FALSE(collection->Find(u"k1"));
    collection->Append(Number(1));
    EXPECT_EQ(Items(collection), "1");
}

TEST(CollectionTest, IsReachedByName) {
    const Ref<Collection> collection = Numbered(2);
    IDispatch* object = collection->Dispatch();
    const auto call = [object](std::u16string_view name, std::vector<Variant> values) {
        return Outcome([&] { return CallByName(object, name, CallKind::Call, values); });
    };
    EXPECT_EQ(call(u"count", {}), "Long 2");
    EXPECT_EQ(call(u"add", {u"x", u"K", Variant::Missing(), Number(1)}), "Empty");
    EXPECT_EQ(call(u"add", {u"x", u"k"}), "error 457");
    EXPECT_EQ(call(u"item", {Number(2)}), "String x");
    std::vector<Variant> key{u"k2"};
    Arguments arguments{key};
    EXPECT_EQ(Describe(object->Invoke(kDispIdValue, CallKind::Get, arguments)), "Long 2");
    EXPECT_EQ(call(u"remove", {u"k1"}), "Empty");
    EXPECT_EQ(call(u"remove", {u"k1"}), "error 5");
    const Ref<IEnumVariant> items = Enumerate(object);
    Variant item;
    EXPECT_TRUE(items->Next(item));
    EXPECT_EQ(Describe(item), "String x");
    EXPECT_TRUE(items->Next(item));
    EXPECT_FALSE(items->Next(item));
    EXPECT_EQ(Describe(item), "Long 2");  // the end leaves it alone
    items->Reset();
    EXPECT_TRUE(items->Next(item));
    EXPECT_EQ(object->ClassName(), u"Collection");
}

/// What an enumeration meets while @p step changes the collection after each item.
template <class Step>
std::string Meet(const Ref<Collection>& collection, Step step) {
    std::string met;
    const Ref<IEnumVariant> items = collection->NewEnum();
    Variant item;
    for (int limit = 0; limit < 30 && items->Next(item); ++limit) {
        met.append(met.empty() ? "" : " ").append(ToText(item).ToUtf8());
        step(item);
    }
    return met;
}

TEST(CollectionTest, EnumerationStandsChanges) {
    Ref<Collection> c = Numbered(5);
    const auto key = [](const Variant& item) { return u"k" + ToText(item); };
    EXPECT_EQ(Meet(c, [&](const Variant& item) { c->RemoveKey(key(item)); }), "1 2 3 4 5");
    EXPECT_EQ(c->Count(), 0);

    c = Numbered(6);  // the next one goes, and the read by position closes the gap
    EXPECT_EQ(Meet(c,
                   [&](const Variant& item) {
                       c->RemoveKey(u"k" + Text::FromInteger(ToLong(item) + 1));
                       c->Item(Number(c->Count()));
                   }),
              "1 3 5");
    c = Numbered(4);  // one behind goes
    EXPECT_EQ(Meet(c,
                   [&](const Variant& item) {
                       if (ToLong(item) == 3) c->RemoveKey(u"k2");
                       c->Item(Number(1));
                   }),
              "1 2 3 4");
    c = Numbered(3);  // each one is replaced behind the walk's back
    EXPECT_EQ(Meet(c,
                   [&](const Variant& item) {
                       if (ToLong(item) > 3) return;
                       c->RemoveKey(key(item));
                       c->TryAdd(key(item), Number(ToLong(item) + 10));
                   }),
              "1 2 3 11 12 13");
    c = Numbered(3);  // added in front is passed over, added right behind is met
    EXPECT_EQ(Meet(c,
                   [&](const Variant& item) {
                       c->Add(Number(0), {}, Number(1), {});
                       if (ToLong(item) == 2) c->Add(Number(9), {}, {}, Variant(u"k2"));
                   }),
              "1 2 9 3");
    EXPECT_EQ(Items(c), "0 0 0 0 1 2 9 3");
    c = Numbered(3);
    EXPECT_EQ(Meet(c, [&](const Variant&) { c->Clear(); }), "1");
}

TEST(CollectionTest, RowBecomesItsOwnWhenItChanges) {
    const auto names = std::make_shared<ColumnNames>(std::vector<Text>{u"idx", u"Name", u"unit"});
    const auto row = [&](int n) {
        auto values = std::make_unique<Variant[]>(3);
        for (int i = 0; i < 3; ++i) {
            values[static_cast<std::size_t>(i)] = Number(n * 10 + i);
        }
        return MakeObject<Collection>(names, std::move(values));
    };
    const Ref<Collection> changed = row(1);
    const Ref<Collection> kept = row(2);
    EXPECT_EQ(Describe(changed->Item(u"NAME")), "Long 11");
    EXPECT_EQ(Describe(changed->Item(Number(3))), "Long 12");
    EXPECT_EQ(changed->At(1).first, u"Name");
    EXPECT_EQ(ErrorOf([&] { changed->Item(u"none"); }), 5);
    EXPECT_FALSE(changed->TryAdd(u"UNIT", Number(0)));
    EXPECT_FALSE(changed->RemoveKey(u"none"));
    // A rule in a cell is replaced by its result: the cell moves to the end.
    EXPECT_TRUE(changed->RemoveKey(u"name"));
    EXPECT_TRUE(changed->TryAdd(u"name", u"new"));
    EXPECT_EQ(Items(changed), "10 12 new");
    EXPECT_EQ(Describe(changed->Item(u"Name")), "String new");
    EXPECT_EQ(Items(kept), "20 21 22");
    kept->Add(Number(5), u"extra", Variant(u"IDX"), {});
    EXPECT_EQ(Items(kept), "5 20 21 22");
    kept->Clear();
    EXPECT_EQ(kept->Count(), 0);
    EXPECT_FALSE(kept->Find(u"idx"));
    EXPECT_EQ(names->size(), 3u);
}

TEST(CollectionTest, RowIsWalkedWhileItChanges) {
    const Ref<Collection> row = Row({u"a", u"b", u"c", u"d"});
    EXPECT_EQ(Meet(row,
                   [&](const Variant& item) {
                       if (ToLong(item) != 2) return;
                       row->RemoveKey(u"a");
                       row->RemoveKey(u"c");
                       row->Item(Number(1));
                       row->TryAdd(u"e", Number(5));
                   }),
              "1 2 4 5");
    EXPECT_EQ(Items(row), "2 4 5");
}

TEST(CollectionTest, RowMayHaveOneNameTwice) {
    const Ref<Collection> row = Row({u"a", u"B", u"A", u"b"});
    EXPECT_EQ(Describe(row->Item(u"b")), "Long 2");
    row->Append(Number(9));
    EXPECT_EQ(Items(row), "1 2 3 4 9");
    EXPECT_EQ(Describe(row->Item(u"A")), "Long 1");
    EXPECT_EQ(Describe(row->Item(Number(4))), "Long 4");
    EXPECT_TRUE(row->RemoveKey(u"a"));
    EXPECT_FALSE(row->Find(u"a"));
    EXPECT_FALSE(ColumnNames({}).Find(u""));
}

/// An object whose end adds an item to a collection.
class Adder final : public Object<Adder, Facet<IEnumVariant>> {
public:
    static constexpr const char* kClassName = "Adder";
    explicit Adder(Collection* target) : mTarget(target) {}
    ~Adder() { mTarget->TryAdd(u"late", Number(mTarget->Count())); }
    bool Next(Variant&) override { return false; }
    void Reset() override {}

private:
    Collection* mTarget;
};

TEST(CollectionTest, IsInOrderBeforeARemovedItemEnds) {
    const std::size_t before = LivingObjects::Count();
    {
        const Ref<Collection> collection = Numbered(2);
        const auto add = [&] {
            collection->TryAdd(u"adder", Variant(MakeObject<Adder>(collection.get())->Dispatch()));
        };
        add();
        collection->RemoveKey(u"adder");
        EXPECT_EQ(Items(collection), "1 2 2");
        collection->RemoveKey(u"late");
        add();
        collection->Remove(Number(3));
        EXPECT_EQ(Items(collection), "1 2 2");
        collection->RemoveKey(u"late");
        add();
        collection->Clear();
        EXPECT_EQ(Items(collection), "0");
    }
    EXPECT_EQ(LivingObjects::Count(), before);
}

/// The table against a plain list, through random changes with walks under way.
class OrderedTableTest : public ::testing::TestWithParam<unsigned> {
protected:
    struct Entry {
        int value = 0;
        std::uint32_t hash = 0;
        bool keyed = false;
    };
    struct Walker {
        std::size_t cursor = 0;
        std::size_t place = 0;  // in the model
    };

    // Few keys with few hashes, so that they collide.
    static std::uint32_t Hash(int value) { return static_cast<std::uint32_t>(value % 7) * 0x10001u; }
    Entry* Find(int value) {
        return mTable.Find(Hash(value), [value](const Entry& entry) { return entry.value == value; });
    }
    int Below(std::size_t bound) { return std::uniform_int_distribution<int>(0, static_cast<int>(bound) - 1)(mRandom); }

    void Insert(std::size_t at, Entry entry, bool before) {
        if (at == mModel.size()) {
            mTable.Append(entry);
        } else if (before) {
            mTable.InsertBefore(&mTable.At(at), entry);
        } else {
            mTable.InsertBehind(&mTable.At(at++), entry);
        }
        mModel.insert(mModel.begin() + static_cast<std::ptrdiff_t>(at), entry);
        for (Walker& walker : mWalkers) {
            if (walker.place > at) ++walker.place;
        }
    }
    void Erase(std::size_t at, Entry* entry) {
        EXPECT_EQ(mTable.Remove(entry).value, mModel[at].value);
        mModel.erase(mModel.begin() + static_cast<std::ptrdiff_t>(at));
        for (Walker& walker : mWalkers) {
            if (walker.place > at) --walker.place;
        }
    }
    void Step(Walker& walker) {
        const Entry* entry = mTable.Next(walker.cursor);
        ASSERT_EQ(entry != nullptr, walker.place < mModel.size());
        if (!entry) return;
        ASSERT_EQ(entry->value, mModel[walker.place++].value);
    }
    void Change() {
        const int action = Below(12);
        const int value = Below(60);
        const auto known =
            std::ranges::find_if(mModel, [value](const Entry& e) { return e.keyed && e.value == value; });
        Entry* const found = Find(value);
        ASSERT_EQ(found != nullptr, known != mModel.end());
        if (action < 4) {
            const std::size_t at = action < 2 ? mModel.size() : static_cast<std::size_t>(Below(mModel.size() + 1));
            Insert(at, {value, Hash(value), !found && Below(4) != 0}, action == 3);
        } else if (action < 6 && found) {
            Erase(static_cast<std::size_t>(known - mModel.begin()), found);
        } else if (action == 6 && !mModel.empty()) {
            const auto at = static_cast<std::size_t>(Below(mModel.size()));
            Erase(at, &mTable.At(at));
        } else if (action == 7 && !mModel.empty()) {
            Erase(0, &mTable.At(0));
        } else if (action == 8 && !mModel.empty()) {
            const auto at = static_cast<std::size_t>(Below(mModel.size()));
            ASSERT_EQ(mTable.At(at).value, mModel[at].value);
        } else if (action == 9 && Below(200) == 0) {
            ASSERT_EQ(mTable.TakeAll().empty(), mModel.empty());
            mModel.clear();
            for (Walker& walker : mWalkers) {
                walker.place = 0;
            }
        } else {
            Step(mWalkers[static_cast<std::size_t>(Below(mWalkers.size()))]);
        }
        ASSERT_EQ(mTable.size(), mModel.size());
    }

    std::mt19937 mRandom{GetParam()};
    OrderedTable<Entry> mTable;
    std::vector<Entry> mModel;
    std::array<Walker, 3> mWalkers;
};

TEST_P(OrderedTableTest, AgreesWithAPlainList) {
    for (Walker& walker : mWalkers) {
        mTable.Watch(walker.cursor);
    }
    for (int i = 0; i < 4000; ++i) {
        Change();
        if (HasFatalFailure()) FAIL() << "change " << i;
        if (i % 500 == 0) mWalkers[0].cursor = mWalkers[0].place = 0;
    }
    Walker fresh;
    for (std::size_t i = 0; i <= mModel.size(); ++i) {
        Step(fresh);
    }
    mTable.Unwatch(mWalkers[1].cursor);
    mWalkers[1].cursor = 12345;
    mTable.Append({});
    EXPECT_EQ(mWalkers[1].cursor, 12345u);
}

INSTANTIATE_TEST_SUITE_P(Seeds, OrderedTableTest, ::testing::Values(1u, 2u, 3u, 4u, 5u));

}  // namespace
}  // namespace ov
