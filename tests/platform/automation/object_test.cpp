#include "platform/automation/object.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>

#include "platform/automation/enumeration.h"
#include "platform/automation/member.h"
#include "platform/automation/record_field.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

/// Two interfaces that both have a `value`, of different types.
class INumberView : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{00000000-0000-0000-0000-0000000000A1}");
    static constexpr const char* kName = "_INumberView";
    static const InterfaceInfo& Members();
    virtual std::int32_t get_value() = 0;
    virtual void let_value(std::int32_t value) = 0;
};
class ITextView : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{00000000-0000-0000-0000-0000000000A2}");
    static constexpr const char* kName = "_ITextView";
    static const InterfaceInfo& Members();
    virtual Text get_value() = 0;
    virtual Text name() = 0;
};

const InterfaceInfo& INumberView::Members() {
    static constexpr std::array kMembers = {get_member<&INumberView::get_value>("value"),
                                            let_member<&INumberView::let_value>("value")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}
const InterfaceInfo& ITextView::Members() {
    static constexpr std::array kMembers = {get_member<&ITextView::get_value>("value"),
                                            member<&ITextView::name>("name")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

class NumberFacet : public Facet<INumberView> {
public:
    std::int32_t get_value() final { return Number(); }

protected:
    ~NumberFacet() = default;
    virtual std::int32_t Number() = 0;
};
class TextFacet : public Facet<ITextView> {
public:
    Text get_value() final { return ValueText(); }

protected:
    ~TextFacet() = default;
    virtual Text ValueText() = 0;
};

class Sample final : public Object<Sample, NumberFacet, FacetGroup<TextFacet, Facet<IEnumVariant>>> {
public:
    static constexpr const char* kClassName = "Sample";

    std::function<void(Sample*)> onFinalRelease;
    std::function<void(Sample*)> onEnd;

    ~Sample() {
        if (onEnd) onEnd(this);
    }
    std::int32_t Number() override { return mValue; }
    void let_value(std::int32_t value) override { mValue = value; }
    Text ValueText() override { return Text::FromInteger(mValue) + u" text"; }
    Text name() override { return u"sample"; }
    bool Next(Variant&) override { return false; }
    void Reset() override {}
    void OnFinalRelease() noexcept {
        if (onFinalRelease) onFinalRelease(this);
    }

private:
    std::int32_t mValue = 0;
};

Variant Read(IDispatch* object, std::u16string_view name) {
    return CallByName(object, name, CallKind::Get);
}

TEST(ObjectTest, ShowsEachFacetAsItIs) {
    const Ref<Sample> sample = MakeObject<Sample>();
    const Ref<INumberView> number = facet<INumberView>(sample->Dispatch());
    const Ref<ITextView> text = facet<ITextView>(number);
    ASSERT_TRUE(number && text);
    number->let_value(7);
    EXPECT_EQ(number->get_value(), 7);
    EXPECT_EQ(text->get_value(), u"7 text");
    // By name each facet has its own members, and the first facet is the object's face.
    EXPECT_EQ(Describe(Read(number.get(), u"value")), "Long 7");
    EXPECT_EQ(Describe(Read(text.get(), u"value")), "String 7 text");
    EXPECT_EQ(Describe(Read(facet<IDispatch>(text).get(), u"value")), "Long 7");
    EXPECT_EQ(ErrorOf([&] { Read(number.get(), u"name"); }), 438);
    EXPECT_EQ(text->GetTypeInfo(), &ITextView::Members());
    EXPECT_EQ(text->GetTypeInfoCount(), 1u);
    EXPECT_EQ(text->ClassName(), u"Sample");
}

TEST(ObjectTest, HasOneIdentity) {
    const Ref<Sample> sample = MakeObject<Sample>();
    const Ref<Sample> other = MakeObject<Sample>();
    const Ref<INumberView> number = facet<INumberView>(sample->Dispatch());
    const Ref<ITextView> text = facet<ITextView>(number);
    EXPECT_EQ(facet<IUnknown>(number), facet<IUnknown>(text));
    EXPECT_EQ(facet<INumberView>(facet<IUnknown>(text)), number);
    EXPECT_EQ(facet<IUnknown>(facet<IEnumVariant>(number)), facet<IUnknown>(text));  // the second one of a group
    EXPECT_TRUE(SameObject(number.get(), text.get()));
    EXPECT_FALSE(SameObject(number.get(), other->Dispatch()));
    EXPECT_FALSE(SameObject(number.get(), nullptr));
    EXPECT_TRUE(SameObject(nullptr, nullptr));
    // An unknown facet adds no reference; a known one adds one.
    EXPECT_EQ(sample->QueryInterface(Guid::Parse("{00000000-0000-0000-0000-0000000000FF}")), nullptr);
    EXPECT_EQ(sample->AddRef(), 4u);
    EXPECT_EQ(sample->Release(), 3u);
    EXPECT_FALSE(facet<ITextView>(static_cast<IDispatch*>(nullptr)));
}

TEST(ObjectTest, EndsWithItsLastReference) {
    const std::size_t before = LivingObjects::Count();
    int ended = 0;
    {
        Ref<Sample> sample = MakeObject<Sample>();
        sample->onEnd = [&](Sample*) { ++ended; };
        Variant holder(facet<ITextView>(sample->Dispatch()));
        EXPECT_EQ(LivingObjects::Count(), before + 1);
        sample = nullptr;
        EXPECT_EQ(ended, 0);
        holder = Variant();
        EXPECT_EQ(ended, 1);
    }
    EXPECT_EQ(LivingObjects::Count(), before);
}

TEST(ObjectTest, LivesOnIfItsFinalReleaseKeepsIt) {
    const std::size_t before = LivingObjects::Count();
    Ref<Sample> kept;
    int finals = 0;
    int ended = 0;
    Ref<Sample> sample = MakeObject<Sample>();
    sample->onEnd = [&](Sample*) { ++ended; };
    sample->onFinalRelease = [&](Sample* self) {
        const Ref<ITextView> passing = facet<ITextView>(self->Dispatch());  // a call meanwhile is no second end
        if (++finals == 1) kept = Ref<Sample>(self);
    };
    sample = nullptr;
    ASSERT_TRUE(kept);
    EXPECT_EQ(std::pair(finals, ended), std::pair(1, 0));
    EXPECT_EQ(kept->name(), u"sample");
    kept = nullptr;
    EXPECT_EQ(std::pair(finals, ended), std::pair(2, 1));
    EXPECT_EQ(LivingObjects::Count(), before);
}

TEST(ObjectTest, MayTakeReferencesToItselfWhileItEnds) {
    int ended = 0;
    Ref<Sample> sample = MakeObject<Sample>();
    sample->onEnd = [&](Sample* self) {
        ++ended;
        const Ref<ITextView> passing = facet<ITextView>(self->Dispatch());
    };
    sample = nullptr;
    EXPECT_EQ(ended, 1);
}

TEST(RefTest, CountsEachHolderOnce) {
    Ref<Sample> a = MakeObject<Sample>();
    const auto count = [&] {
        a->AddRef();
        return a->Release();
    };
    Ref<INumberView> view = a;  // to a base
    Ref<Sample> b = a;
    EXPECT_EQ(count(), 3u);
    Ref<Sample> c = std::move(b);
    EXPECT_FALSE(b);  // NOLINT: what a move leaves behind is told
    Ref<Sample>& self = c;
    c = self;
    EXPECT_EQ(c, a);
    EXPECT_EQ(count(), 3u);
    view = nullptr;
    Sample* raw = c.Detach();
    EXPECT_EQ(count(), 2u);
    c = Ref<Sample>::Adopt(raw);
    c = nullptr;
    EXPECT_EQ(count(), 1u);
}

struct Part {
    static constexpr const char* kRecordName = "tPart";
    static const InterfaceInfo& Fields();
    Text label;
};
struct Whole {
    static constexpr const char* kRecordName = "tWhole";
    static const InterfaceInfo& Fields();
    std::int32_t number = 0;
    Part part;
    std::vector<Part> parts;
    std::vector<Text> words;
    Ref<INumberView> object;
};

const InterfaceInfo& Part::Fields() {
    static constexpr std::array kFields = {field<&Part::label>("label")};
    static const InterfaceInfo info(Guid{}, kRecordName, kFields);
    return info;
}
const InterfaceInfo& Whole::Fields() {
    static constexpr std::array kFields = {field<&Whole::number>("number"), field<&Whole::part>("part"),
                                           field<&Whole::parts>("parts"), field<&Whole::words>("words"),
                                           field<&Whole::object>("object")};
    static const InterfaceInfo info(Guid{}, kRecordName, kFields);
    return info;
}

TEST(RecordTest, IsAnObjectWithItsFields) {
    const std::size_t before = LivingObjects::Count();
    {
        Whole whole{5, {u"inner"}, {{u"a"}, {u"b"}}, {u"x"}, MakeObject<Sample>()};
        const Variant boxed = BoxRecord(whole);
        whole.number = 6;  // the box holds a copy
        IDispatch* object = boxed.AsObject();
        EXPECT_EQ(object->ClassName(), u"tWhole");
        EXPECT_EQ(Describe(Read(object, u"NUMBER")), "Long 5");
        EXPECT_EQ(Describe(Read(Read(object, u"part").AsObject(), u"label")), "String inner");
        EXPECT_EQ(Describe(Read(Read(object, u"object").AsObject(), u"value")), "Long 0");

        const Array words = Read(object, u"words").AsArray();
        EXPECT_EQ(std::pair(words.LowerBound(1), words.UpperBound(1)), std::pair(1, 1));
        EXPECT_EQ(words.ElementType(), VarType::String);
        std::array<Variant, 1> index{Variant(std::int32_t{2})};
        const Variant second = CallByName(object, u"parts", CallKind::Get, index);
        EXPECT_EQ(RecordOf<Part>(second)->label, u"b");

        std::array<Variant, 1> value{Variant(std::int32_t{1})};
        EXPECT_EQ(ErrorOf([&] { CallByName(object, u"number", CallKind::Let, value); }), 438);
        EXPECT_EQ(RecordOf<Whole>(boxed)->number, 5);
        EXPECT_EQ(Marshal<Whole>::From(boxed).words, std::vector<Text>{u"x"});
    }
    EXPECT_EQ(LivingObjects::Count(), before);
}

TEST(RecordTest, IsToldFromOtherValues) {
    const Variant boxed = BoxRecord(Whole{});
    EXPECT_TRUE(Read(boxed.AsObject(), u"parts").IsEmpty());
    EXPECT_TRUE(Read(boxed.AsObject(), u"object").IsNothing());
    for (const Variant& other : {boxed, Variant::Nothing(), Variant(), Variant(MakeObject<Sample>()->Dispatch())}) {
        EXPECT_EQ(RecordOf<Part>(other), nullptr);
        EXPECT_EQ(ErrorOf([&] { Marshal<Part>::From(other); }), 13);
    }
}

}  // namespace
}  // namespace ov
