#include "platform/automation/dictionary.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/automation/collection.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

class DictionaryTest : public ::testing::Test {
protected:
    Ref<Dictionary> mDictionary = MakeObject<Dictionary>();

    /// Keys and items in order: "a=1 b=2".
    std::string All() {
        std::string all;
        const Array keys = mDictionary->Keys();
        const Array items = mDictionary->Items();
        for (std::size_t i = 0; i < keys.size(); ++i) {
            all += (i ? " " : "") + ToText(keys.At(i)).ToUtf8() + "=" + ToText(items.At(i)).ToUtf8();
        }
        return all;
    }
};

Variant Number(int n) {
    return Variant(std::int32_t{n});
}

TEST_F(DictionaryTest, KeepsTheOrderOfItsKeys) {
    mDictionary->Add(u"b", Number(1));
    mDictionary->Add(u"a", Number(2));
    EXPECT_EQ(ErrorOf([&] { mDictionary->Add(u"b", Number(3)); }), 457);
    mDictionary->let_Item(u"b", Number(4));
    mDictionary->let_Item(u"c", Number(5));
    EXPECT_EQ(All(), "b=4 a=2 c=5");
    mDictionary->Remove(u"b");
    EXPECT_EQ(ErrorOf([&] { mDictionary->Remove(u"b"); }), 32811);
    mDictionary->let_Item(u"b", Number(6));
    EXPECT_EQ(All(), "a=2 c=5 b=6");
    // Asking for a key makes it.
    EXPECT_TRUE(mDictionary->get_Item(u"new").IsEmpty());
    EXPECT_TRUE(mDictionary->Exists(u"new"));
    EXPECT_FALSE(mDictionary->Exists(u"other"));
    EXPECT_EQ(mDictionary->Count(), 4);
    EXPECT_EQ(mDictionary->Keys().LowerBound(1), 0);
    const Ref<IEnumVariant> keys = mDictionary->NewEnum();
    mDictionary->RemoveAll();
    Variant key;
    EXPECT_TRUE(keys->Next(key));  // walks the keys of its beginning
    EXPECT_EQ(Describe(key), "String a");
    EXPECT_EQ(mDictionary->Count(), 0);
    EXPECT_EQ(mDictionary->Items().size(), 0u);
}

TEST_F(DictionaryTest, TellsKeysByKindAndValue) {
    const Ref<Collection> object = MakeObject<Collection>();
    const std::vector<Variant> different = {u"1",
                                            Number(1),
                                            u"",
                                            Variant(),
                                            Variant::Null(),
                                            Number(0),
                                            Variant(1.5),
                                            Variant(object->Dispatch()),
                                            Variant(MakeObject<Collection>()->Dispatch()),
                                            Variant::Nothing(),
                                            Variant(ErrorCode{5}),
                                            Variant(ErrorCode{6}),
                                            u"A",
                                            u"a"};
    for (std::size_t i = 0; i < different.size(); ++i) {
        EXPECT_EQ(ErrorOf([&] { mDictionary->Add(different[i], Number(static_cast<int>(i))); }), 0) << i;
    }
    const std::pair<Variant, int> same[] = {{Variant(std::uint8_t{1}), 1},
                                            {Variant(1.0), 1},
                                            {Variant(Currency{10000}), 1},
                                            {Variant(Decimal(false, 0, 10, 1)), 1},
                                            {Variant(Date{1}), 1},
                                            {Variant(false), 5},
                                            {Variant(-0.0), 5},
                                            {Variant(1.5f), 6},
                                            {Variant(facet<IUnknown>(object).get() ? object->Dispatch() : nullptr), 7},
                                            {Variant(ErrorCode{6}), 11}};
    for (const auto& [key, index] : same) {
        EXPECT_TRUE(mDictionary->Exists(key)) << Describe(key);
        EXPECT_EQ(Describe(mDictionary->get_Item(key)), "Long " + std::to_string(index));
    }
    EXPECT_EQ(mDictionary->Count(), static_cast<std::int32_t>(different.size()));
    EXPECT_EQ(ErrorOf([&] { mDictionary->Exists(Variant(Array())); }), 13);
    EXPECT_EQ(ErrorOf([&] { mDictionary->get_Item(Variant(Array())); }), 13);
}

TEST_F(DictionaryTest, RenamesAKeyInItsPlace) {
    for (const char16_t* key : {u"a", u"b", u"c"}) {
        mDictionary->Add(key, key);
    }
    mDictionary->let_Key(u"b", Number(2));
    EXPECT_EQ(All(), "a=a 2=b c=c");
    EXPECT_FALSE(mDictionary->Exists(u"b"));
    EXPECT_EQ(Describe(*mDictionary->Find(Variant(2.0))), "String b");
    EXPECT_EQ(ErrorOf([&] { mDictionary->let_Key(u"b", u"d"); }), 32811);
    EXPECT_EQ(ErrorOf([&] { mDictionary->let_Key(u"a", u"c"); }), 457);
    EXPECT_EQ(ErrorOf([&] { mDictionary->let_Key(u"a", Variant(Array())); }), 13);
    EXPECT_EQ(All(), "a=a 2=b c=c");
}

TEST_F(DictionaryTest, ComparesTextsByItsMode) {
    EXPECT_EQ(mDictionary->get_CompareMode(), 0);
    mDictionary->let_CompareMode(1);
    mDictionary->Add(u"Ä", Number(1));
    EXPECT_EQ(ErrorOf([&] { mDictionary->Add(u"ä", Number(2)); }), 457);
    EXPECT_EQ(Describe(mDictionary->get_Item(u"ä")), "Long 1");
    EXPECT_EQ(ErrorOf([&] { mDictionary->let_CompareMode(0); }), 5);
    mDictionary->RemoveAll();
    mDictionary->let_CompareMode(0);
    for (const std::int32_t mode : {-1, 2}) {
        EXPECT_EQ(ErrorOf([&] { mDictionary->let_CompareMode(mode); }), 5);
    }
}

TEST_F(DictionaryTest, IsReachedByName) {
    IDispatch* object = mDictionary->Dispatch();
    const auto call = [object](std::u16string_view name, CallKind kind, std::vector<Variant> values) {
        const DispId id = name.empty() ? kDispIdValue : object->GetIDsOfNames(name);
        Arguments arguments{values};
        return Outcome([&] { return object->Invoke(id, kind, arguments); });
    };
    EXPECT_EQ(call(u"", CallKind::Let, {u"k", Number(1)}), "Empty");
    EXPECT_EQ(call(u"", CallKind::Call, {u"k"}), "Long 1");
    // Let takes an object's default value, Set the object itself.
    EXPECT_EQ(call(u"item", CallKind::Let, {u"k", Variant(ValueObject::Of(u"value"))}), "Empty");
    EXPECT_EQ(call(u"item", CallKind::Get, {u"k"}), "String value");
    EXPECT_EQ(call(u"item", CallKind::Let, {u"k", Variant(ValueObject::WithoutDefault())}), "error 438");
    EXPECT_EQ(call(u"item", CallKind::Set, {u"k", Variant(ValueObject::Of(u"value"))}), "Empty");
    EXPECT_TRUE(mDictionary->Find(u"k")->IsObject());
    EXPECT_EQ(call(u"key", CallKind::Let, {u"k", u"l"}), "Empty");
    EXPECT_EQ(call(u"key", CallKind::Get, {u"k"}), "error 438");
    EXPECT_EQ(call(u"keys", CallKind::Call, {Number(0)}), "String l");
    EXPECT_EQ(call(u"keys", CallKind::Call, {Number(1)}), "error 9");
    EXPECT_EQ(call(u"exists", CallKind::Call, {u"L"}), "False");
    EXPECT_EQ(call(u"comparemode", CallKind::Let, {Number(1)}), "error 5");
    EXPECT_EQ(call(u"count", CallKind::Let, {Number(1)}), "error 438");
    EXPECT_EQ(object->ClassName(), u"Dictionary");
    mDictionary->RemoveAll();
    EXPECT_EQ(ValueObject::alive, 0);
}

}  // namespace
}  // namespace ov
