#include "platform/automation/dispatch.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/automation/enumeration.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

enum class Colour : std::int32_t { red = 1, blue = 2 };

/// One operation for each way of passing something.
class ICalls : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{00000000-0000-0000-0000-0000000000B1}");
    static constexpr const char* kName = "_ICalls";
    static const InterfaceInfo& Members();

    virtual Text Join(const Text& a, std::optional<std::int32_t> n, std::optional<Colour> colour) = 0;
    virtual void Exchange(Variant& a, Variant& b) = 0;
    virtual bool Count(std::int32_t& counter, std::int32_t by) = 0;
    virtual Text Plugin(Text* args) = 0;
    virtual bool Fill(ByteArray& image, std::int32_t from) = 0;
    virtual std::int32_t Pick(const Variant& first, std::span<const Variant> rest) = 0;
    virtual Ref<ICalls> Self() = 0;
    virtual Ref<ICalls> Nobody() = 0;
    virtual Array Table() = 0;
    virtual Variant get_Item(const Text& key) = 0;
    virtual void let_Item(const Text& key, const Variant& value) = 0;
    virtual Variant get_Only() = 0;
    virtual void set_Taken(ICalls* object) = 0;
    virtual Variant Same(const Variant& value) = 0;
};

const InterfaceInfo& ICalls::Members() {
    static constexpr std::array kMembers = {
        member<&ICalls::Join>("Join"),
        member<&ICalls::Exchange>("Exchange"),
        member<&ICalls::Count>("Count"),
        member<&ICalls::Plugin>("Plugin"),
        member<&ICalls::Fill>("Fill"),
        member<&ICalls::Pick>("Pick"),
        member<&ICalls::Self>("Self"),
        member<&ICalls::Nobody>("Nobody"),
        member<&ICalls::Table>("Table"),
        get_member<&ICalls::get_Item>("Item").AsDefault(),
        let_member<&ICalls::let_Item>("Item").AsDefault(),
        get_member<&ICalls::get_Only>("Only"),
        set_member<&ICalls::set_Taken>("Taken"),
        member<&ICalls::Same>("Same"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

class Calls final : public Object<Calls, Facet<ICalls>> {
public:
    static constexpr const char* kClassName = "Calls";

    Text Join(const Text& a, std::optional<std::int32_t> n, std::optional<Colour> colour) override {
        return a + u"/" + (n ? Text::FromInteger(*n) : u"-") + u"/" +
               (colour ? Text::FromInteger(static_cast<std::int32_t>(*colour)) : u"-");
    }
    void Exchange(Variant& a, Variant& b) override { std::swap(a, b); }
    bool Count(std::int32_t& counter, std::int32_t by) override {
        counter += by;
        return by != 0;
    }
    Text Plugin(Text* args) override {
        if (args && *args != u"keep") *args += u"!";
        return args ? u"with" : u"without";
    }
    bool Fill(ByteArray& image, std::int32_t from) override {
        for (std::uint8_t& byte : image.bytes) {
            byte = static_cast<std::uint8_t>(from++);
        }
        mLower = image.lower;
        return !image.bytes.empty();
    }
    std::int32_t Pick(const Variant& first, std::span<const Variant> rest) override {
        return (first.IsMissing() ? 1000 : 0) + static_cast<std::int32_t>(rest.size()) * 100 +
               static_cast<std::int32_t>(std::ranges::count_if(rest, &Variant::IsMissing));
    }
    Ref<ICalls> Self() override { return Ref<ICalls>(this); }
    Ref<ICalls> Nobody() override { return nullptr; }
    Array Table() override { return Array::OfVariants({u"one", Variant(Array::OfVariants({u"deep"}))}, 1); }
    Variant get_Item(const Text& key) override { return key == u"self" ? Variant(Self()) : Variant(key + u"?"); }
    void let_Item(const Text& key, const Variant& value) override { mLast = key + u"=" + ToText(value); }
    Variant get_Only() override { return mLast; }
    void set_Taken(ICalls* object) override { mLast = object ? u"object" : u"nothing"; }
    Variant Same(const Variant& value) override { return value; }

    std::int32_t mLower = 0;

private:
    Text mLast;
};

class DispatchTest : public ::testing::Test {
protected:
    Ref<Calls> mCalls = MakeObject<Calls>();
    std::uint32_t mWritten = 0;

    template <std::size_t N>
    Variant Call(std::u16string_view name, std::array<Variant, N>& values, CallKind kind = CallKind::Call) {
        const DispId id = name.empty() ? kDispIdValue : mCalls->GetIDsOfNames(name);
        Arguments arguments{values};
        Variant result = mCalls->Dispatch()->Invoke(id, kind, arguments);
        mWritten = arguments.written;
        return result;
    }
    /// The result of a call with these arguments, or its error.
    std::string Try(std::u16string_view name, std::vector<Variant> values, CallKind kind = CallKind::Call) {
        return Outcome([&] { return CallByName(mCalls->Dispatch(), name, kind, values); });
    }
};

constexpr std::int32_t kOne = 1;

TEST_F(DispatchTest, FindsNamesInAnyCase) {
    const DispId join = mCalls->GetIDsOfNames(u"Join");
    EXPECT_GT(join, 0);
    for (const char16_t* name : {u"join", u"JOIN", u"jOiN"}) {
        EXPECT_EQ(mCalls->GetIDsOfNames(name), join);
    }
    for (const char16_t* name : {u"", u"Joi", u"Joins", u"Jo\u0131n", u"Jöin", u"Nothing of the sort"}) {
        EXPECT_EQ(mCalls->GetIDsOfNames(name), kDispIdUnknown);
    }
    EXPECT_EQ(mCalls->GetIDsOfNames(u"item"), mCalls->GetIDsOfNames(u"Item"));
    EXPECT_EQ(ErrorOf([&] { CallByName(nullptr, u"Join", CallKind::Call); }), 91);
}

TEST_F(DispatchTest, ConvertsArguments) {
    const Variant missing = Variant::Missing();
    EXPECT_EQ(Try(u"Join", {Variant(2.5)}), "String 2.5/-/-");
    EXPECT_EQ(Try(u"Join", {u"a", Variant(2.5), u"2"}), "String a/2/2");
    EXPECT_EQ(Try(u"Join", {u"a", missing, Variant(kOne)}), "String a/-/1");
    EXPECT_EQ(Try(u"Join", {Variant(), Variant()}), "String /0/-");
    EXPECT_EQ(Try(u"Exchange", {u"a", u"b"}), "Empty");
    EXPECT_EQ(Try(u"Count", {Variant(kOne), Variant(true)}), "True");
    EXPECT_EQ(Try(u"Same", {missing}), "Missing");
}

TEST_F(DispatchTest, RefusesWrongCalls) {
    const Variant missing = Variant::Missing();
    const Variant self(mCalls->Dispatch());
    const struct {
        const char16_t* name;
        std::vector<Variant> values;
        CallKind kind;
        const char* outcome;
    } cases[] = {
        {u"Unheard", {}, CallKind::Call, "error 438"},
        {u"Join", {}, CallKind::Call, "error 450"},
        {u"Join", {u"a", Variant(kOne), Variant(kOne), Variant(kOne)}, CallKind::Call, "error 450"},
        {u"Join", {missing}, CallKind::Call, "error 449"},
        {u"Join", {Variant::Null()}, CallKind::Call, "error 94"},
        {u"Join", {u"a", u"word"}, CallKind::Call, "error 13"},
        {u"Join", {u"a", Variant(1e10)}, CallKind::Call, "error 6"},
        {u"Join", {u"a"}, CallKind::Let, "error 438"},
        {u"Item", {u"k"}, CallKind::Let, "error 450"},
        {u"Only", {u"k"}, CallKind::Let, "error 438"},
        {u"Taken", {}, CallKind::Get, "error 438"},
        {u"Taken", {Variant(kOne)}, CallKind::Set, "error 13"},
        {u"Taken", {Variant()}, CallKind::Set, "error 424"},
        {u"Taken", {missing}, CallKind::Set, "error 449"},
        {u"Taken", {self}, CallKind::Let, "error 438"},
        {u"Taken", {Variant(EnumerateItems({}))}, CallKind::Set, "error 13"},
        {u"Taken", {self}, CallKind::Set, "Empty"},
        {u"Taken", {Variant::Nothing()}, CallKind::Set, "Empty"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Try(each.name, each.values, each.kind), each.outcome) << Text(each.name).ToUtf8();
    }
    Arguments none;
    for (const DispId id :
         {DispId{-1}, DispId{-2}, kDispIdNewEnum, DispId{99}, DispId{0x7FFFFFFF}, DispId{INT32_MIN}}) {
        EXPECT_EQ(ErrorOf([&] { mCalls->Dispatch()->Invoke(id, CallKind::Call, none); }), 438);
    }
    EXPECT_EQ(ErrorOf([&] { Enumerate(mCalls->Dispatch()); }), 451);
    EXPECT_EQ(ErrorOf([] { Enumerate(nullptr); }), 91);
}

TEST_F(DispatchTest, SetsWithoutASetThroughTheLet) {
    EXPECT_EQ(Try(u"Item", {u"k", Variant(kOne)}, CallKind::Set), "Empty");
    EXPECT_EQ(Try(u"Only", {}), "String k=1");
    EXPECT_EQ(Try(u"Item", {u"k", Variant(mCalls->Dispatch())}, CallKind::Set), "error 450");  // a default with a key
}

TEST_F(DispatchTest, ChainsDefaultMembers) {
    std::array<Variant, 1> key{u"k"};
    EXPECT_EQ(Describe(Call(u"", key)), "String k?");
    std::array<Variant, 2> let{u"k", u"v"};
    Call(u"", let, CallKind::Let);
    EXPECT_EQ(Try(u"Only", {}), "String k=v");
    // Arguments behind an operation that takes none go on to its result.
    EXPECT_EQ(Try(u"Self", {u"k"}), "String k?");
    EXPECT_EQ(Try(u"Self", {u"k", u"l"}), "error 450");
    EXPECT_EQ(Try(u"Nobody", {u"k"}), "error 91");
    EXPECT_EQ(Try(u"Only", {u"k"}), "error 450");
    EXPECT_EQ(Try(u"Table", {Variant(1.4)}), "String one");
    EXPECT_EQ(Try(u"Table", {Variant(std::int32_t{0})}), "error 9");
    EXPECT_EQ(Try(u"Table", {Variant(kOne), Variant(kOne)}), "error 9");
    EXPECT_EQ(Try(u"Table", {u"first"}), "error 13");
}

TEST_F(DispatchTest, CollectsFurtherArguments) {
    EXPECT_EQ(Try(u"Pick", {}), "error 450");
    EXPECT_EQ(Try(u"Pick", {u"a"}), "Long 0");
    EXPECT_EQ(Try(u"Pick", {Variant::Missing(), Variant(), Variant::Missing(), Variant::Null()}), "Long 1301");
    EXPECT_EQ(Try(u"Pick", std::vector<Variant>(301)), "Long 30000");
}

TEST_F(DispatchTest, TellsWhichArgumentsWereWritten) {
    std::array<Variant, 2> pair{u"a", u"b"};
    Call(u"Exchange", pair);
    EXPECT_EQ(mWritten, 0b11u);
    EXPECT_EQ(Describe(pair[0]), "String b");

    std::array<Variant, 2> counter{u"41", Variant(kOne)};
    Call(u"Count", counter);
    EXPECT_EQ(mWritten, 0b01u);
    EXPECT_EQ(Describe(counter[0]), "Long 42");
    counter = {u"41", Variant(std::int32_t{0})};
    Call(u"Count", counter);
    EXPECT_EQ(mWritten, 0u);
    EXPECT_EQ(Describe(counter[0]), "String 41");  // untouched, type and all

    std::array<Variant, 0> none;
    EXPECT_EQ(Describe(Call(u"Plugin", none)), "String without");
    std::array<Variant, 1> args{Variant::Missing()};
    EXPECT_EQ(Describe(Call(u"Plugin", args)), "String without");
    EXPECT_EQ(mWritten, 0u);
    args = {u"x"};
    EXPECT_EQ(Describe(Call(u"Plugin", args)), "String with");
    EXPECT_EQ(Describe(args[0]), "String x!");
    EXPECT_EQ(mWritten, 1u);
    args = {u"keep"};
    Call(u"Plugin", args);
    EXPECT_EQ(mWritten, 0u);

    Arguments arguments;
    arguments.MarkWritten(31);
    arguments.MarkWritten(32);
    EXPECT_EQ(arguments.written, 0x80000000u);
}

TEST_F(DispatchTest, WritesBytesBackIntoTheArrayTheyCameFrom) {
    const auto fill = [&](Variant image, const char* done) {
        std::array<Variant, 2> values{std::move(image), Variant(std::int32_t{254})};
        EXPECT_EQ(Outcome([&] { return Call(u"Fill", values); }), done);
        return values[0];
    };
    Array numbers = Array::OfVariants({Variant(kOne), Variant(2.0), u"3"}, 5);
    numbers.MarkFixed();
    const Array filled = fill(numbers, "True").AsArray();
    EXPECT_EQ(mWritten, 1u);
    EXPECT_EQ(mCalls->mLower, 5);
    EXPECT_EQ(filled.ElementType(), VarType::Empty);
    EXPECT_EQ(std::pair(filled.LowerBound(1), filled.size()), std::pair(5, std::size_t{3}));
    EXPECT_TRUE(filled.IsFixed());
    EXPECT_EQ(Describe(filled.At(2)), "Byte 0");
    EXPECT_EQ(Describe(numbers.At(2)), "String 3");  // the caller's array until it takes the new one

    const Array longs = fill(Array::Of(VarType::Long, {Variant(kOne)}, 1), "True").AsArray();
    EXPECT_EQ(longs.ElementType(), VarType::Long);
    EXPECT_EQ(Describe(longs.At(0)), "Long 254");
    const Array bytes = fill(Array::OfBytes({1, 2}, -1), "True").AsArray();
    EXPECT_EQ(std::vector(bytes.Bytes().begin(), bytes.Bytes().end()), (std::vector<std::uint8_t>{254, 255}));
    EXPECT_EQ(bytes.LowerBound(1), -1);

    // What was never allocated stays so.
    EXPECT_TRUE(fill(Variant(), "False").IsEmpty());
    EXPECT_FALSE(fill(Variant(Array()), "False").AsArray().IsAllocated());
    fill(Variant(u"0102"), "error 13");
    fill(Array::OfVariants({Variant(std::int32_t{256})}), "error 6");
    fill(Array::OfVariants({u"x"}), "error 13");
    const std::array<ArrayBound, 2> square{ArrayBound{0, 2}, ArrayBound{0, 2}};
    EXPECT_EQ(fill(Array(VarType::Byte, square), "False").AsArray().Rank(), 2u);  // no bytes, and left alone
}

}  // namespace
}  // namespace ov
