#include "platform/automation/listener.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/automation/callback_list.h"
#include "platform/automation/enumeration.h"
#include "platform/automation/events.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"
#include "platform/automation/variant_testing.h"

namespace ov {
namespace {

class ITick : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{00000000-0000-0000-0000-0000000000C1}");
    static constexpr const char* kName = "_ITick";
    static const InterfaceInfo& Members();
    virtual void Tick(std::int32_t n) = 0;
    virtual bool Stop(Variant& why) = 0;
};

const InterfaceInfo& ITick::Members() {
    static constexpr std::array kMembers = {member<&ITick::Tick>("Tick"), member<&ITick::Stop>("Stop")};
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

class LateTick final : public LateListener<ITick> {
public:
    using LateListener::LateListener;
    void Tick(std::int32_t n) override { Send(0, n); }
    bool Stop(Variant& why) override {
        std::array<Variant, 1> values{why};
        const bool stop = ToBoolean(SendAll(1, values));
        why = values[0];
        return stop;
    }
};

/// A listener by slot.
class Ticker final : public Object<Ticker, Facet<ITick>> {
public:
    static constexpr const char* kClassName = "Ticker";
    explicit Ticker(std::function<void(std::int32_t)> onTick, std::function<void()> onEnd = {})
        : mOnTick(std::move(onTick)), mOnEnd(std::move(onEnd)) {}
    ~Ticker() {
        if (mOnEnd) mOnEnd();
    }
    void Tick(std::int32_t n) override { mOnTick(n); }
    bool Stop(Variant&) override { return false; }

private:
    std::function<void(std::int32_t)> mOnTick;
    std::function<void()> mOnEnd;
};

/// A late-bound object, such as a script's, that has one member of a given name.
class IAnything : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{00000000-0000-0000-0000-0000000000C2}");
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(kIid, "_IAnything", {});
        return info;
    }
};

class LateBound final : public Object<LateBound, Facet<IAnything>> {
public:
    static constexpr const char* kClassName = "LateBound";
    explicit LateBound(std::u16string_view name) : mName(name) {}
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    std::uint32_t GetTypeInfoCount() const noexcept override { return 0; }
    DispId GetIDsOfNames(std::u16string_view name) override { return EqualNoCase(name, mName) ? 17 : kDispIdUnknown; }
    Variant Invoke(DispId id, CallKind, Arguments& arguments) override {
        if (id != 17) Raise(ErrorNumber::NoSuchMember);
        if (arguments.values.empty()) Raise(ErrorNumber::Overflow);
        heard += Describe(arguments.values[0]) + ";";
        arguments.values[0] = Variant(u"written");
        arguments.MarkWritten(0);
        return Variant(true);
    }
    std::string heard;

private:
    Text mName;
};

}  // namespace

template <>
struct LateListenerOf<ITick> {
    static Ref<ITick> Adapt(IDispatch* target) { return Ref<ITick>::Adopt(new LateTick(target)); }
};

namespace {

TEST(ListenerTest, PrefersTheObjectsOwnFacet) {
    const Ref<Ticker> ticker = MakeObject<Ticker>([](std::int32_t) {});
    EXPECT_EQ(CastListener<ITick>(ticker->Dispatch()), static_cast<ITick*>(ticker.get()));
    EXPECT_FALSE(CastListener<ITick>(MakeObject<LateBound>(u"Tack")->Dispatch()));
    EXPECT_FALSE(CastListener<ITick>(nullptr));
    // An interface without an adapter takes only its own.
    EXPECT_FALSE(CastListener<IEnumVariant>(MakeObject<LateBound>(u"Next")->Dispatch()));
}

TEST(ListenerTest, SendsToALateBoundObjectWhatItHas) {
    const std::size_t before = LivingObjects::Count();
    {
        Ref<LateBound> late = MakeObject<LateBound>(u"tick");
        const Ref<ITick> listener = CastListener<ITick>(late->Dispatch());
        ASSERT_TRUE(listener);
        listener->Tick(3);
        Variant why(u"why");
        EXPECT_FALSE(listener->Stop(why));
        EXPECT_EQ(Describe(why), "String why");
        EXPECT_EQ(late->heard, "Long 3;");

        const Ref<LateBound> stopper = MakeObject<LateBound>(u"STOP");
        EXPECT_TRUE(CastListener<ITick>(stopper->Dispatch())->Stop(why));
        EXPECT_EQ(Describe(why), "String written");
    }
    EXPECT_EQ(LivingObjects::Count(), before);
}

TEST(ListenerTest, AdapterIsItsObject) {
    Ref<LateBound> late = MakeObject<LateBound>(u"Tick");
    const Ref<ITick> listener = CastListener<ITick>(late->Dispatch());
    const Ref<ITick> again = CastListener<ITick>(late->Dispatch());
    EXPECT_TRUE(SameObject(listener.get(), late->Dispatch()));
    EXPECT_TRUE(SameObject(listener.get(), again.get()));
    EXPECT_EQ(facet<ITick>(listener), listener);
    EXPECT_EQ(facet<IAnything>(listener), static_cast<IAnything*>(late.get()));
    EXPECT_EQ(listener->ClassName(), u"LateBound");
    EXPECT_EQ(listener->GetTypeInfo(), nullptr);
    EXPECT_EQ(ErrorOf([&] { CallByName(listener.get(), u"Tick", CallKind::Call); }), 6);  // its errors come through
    late = nullptr;                                                                       // the adapter holds it
    listener->Tick(1);
}

/// What each listener heard, in order: "a1 b1".
struct Hearing {
    std::string heard;
    Ref<Ticker> Listener(char name, const std::function<void()>& then = {}, std::function<void()> onEnd = {}) {
        return MakeObject<Ticker>(
            [this, name, then](std::int32_t n) {
                heard.append(1, name).append(std::to_string(n)).append(" ");
                if (then) then();
            },
            std::move(onEnd));
    }
    std::string Take() { return std::exchange(heard, {}); }
};

TEST(EventSinksTest, RaiseTellsThoseOfItsBeginning) {
    Hearing hearing;
    EventSinks<ITick> sinks;
    std::int32_t first = 0;
    const auto raise = [&sinks](std::int32_t n) { sinks.RaiseEvent([n](ITick& sink) { sink.Tick(n); }); };
    first = sinks.Advise(hearing
                             .Listener('a',
                                       [&] {
                                           sinks.Unadvise(first);
                                           sinks.Advise(hearing.Listener('c')->Dispatch());
                                       })
                             ->Dispatch());
    const std::int32_t second = sinks.Advise(hearing.Listener('b')->Dispatch());
    EXPECT_NE(first, 0);
    EXPECT_NE(first, second);
    raise(1);
    EXPECT_EQ(hearing.Take(), "a1 b1 ");
    raise(2);
    EXPECT_EQ(hearing.Take(), "b2 c2 ");
    sinks.Unadvise(first);
    sinks.Unadvise(12345);
    raise(3);
    EXPECT_EQ(hearing.Take(), "b3 c3 ");
    EXPECT_EQ(ErrorOf([&] { sinks.Advise(MakeObject<LateBound>(u"Tack")->Dispatch()); }), 430);
    EXPECT_EQ(ErrorOf([&] { sinks.Advise(nullptr); }), 430);
}

TEST(EventSinksTest, ASinkMayLeaveAnyWay) {
    Hearing hearing;
    EventSinks<ITick> sinks;
    // The end of a sink takes an earlier one off.
    const std::int32_t other = sinks.Advise(hearing.Listener('b', [] { Raise(ErrorNumber::Overflow); })->Dispatch());
    const std::int32_t first = sinks.Advise(hearing.Listener('a', {}, [&] { sinks.Unadvise(other); })->Dispatch());
    sinks.Advise(hearing.Listener('c')->Dispatch());
    EXPECT_EQ(ErrorOf([&] { sinks.RaiseEvent([](ITick& sink) { sink.Tick(1); }); }), 6);
    EXPECT_EQ(hearing.Take(), "b1 ");  // an error ends the round
    sinks.Unadvise(first);
    sinks.RaiseEvent([](ITick& sink) { sink.Tick(2); });
    EXPECT_EQ(hearing.Take(), "c2 ");
}

TEST(CallbackListTest, ChangesWhileItTells) {
    Hearing hearing;
    CallbackList<ITick> list;
    const auto tell = [&list](std::int32_t n) { list.Tell([n](ITick& listener) { listener.Tick(n); }); };
    const Ref<Ticker> c = hearing.Listener('c');
    const Ref<Ticker> d = hearing.Listener('d');
    bool nested = false;
    list.Add(hearing.Listener('a', [&] {
        list.Remove(c->Dispatch());
        if (!std::exchange(nested, true)) tell(9);
        list.Add(d);
    }));
    list.Add(c);
    list.Add(hearing.Listener('b'));
    list.Add(c);
    tell(1);
    EXPECT_EQ(hearing.Take(), "a1 a9 b9 d9 b1 d1 d1 ");
    EXPECT_EQ(ErrorOf([&] { list.Tell([](ITick&) { Raise(ErrorNumber::Overflow); }); }), 6);
    list.Remove(d->Dispatch());
    list.Tell([&](ITick& listener) {
        listener.Tick(2);
        list.Clear();
    });
    EXPECT_EQ(hearing.Take(), "a2 ");
    EXPECT_TRUE(list.IsEmpty());
}

TEST(CallbackListTest, KnowsALateBoundListenerAgain) {
    const std::size_t before = LivingObjects::Count();
    {
        CallbackList<ITick> list;
        const Ref<LateBound> late = MakeObject<LateBound>(u"Tick");
        list.Add(CastListener<ITick>(late->Dispatch()));
        list.Add(CastListener<ITick>(late->Dispatch()));
        list.Tell([](ITick& listener) { listener.Tick(4); });
        EXPECT_EQ(late->heard, "Long 4;Long 4;");
        list.Remove(CastListener<ITick>(late->Dispatch()).get());
        EXPECT_TRUE(list.IsEmpty());
        // A listener whose end changes the list.
        list.Add(MakeObject<Ticker>([](std::int32_t) {}, [&] { list.Add(CastListener<ITick>(late->Dispatch())); }));
        list.Clear();
        EXPECT_FALSE(list.IsEmpty());
    }
    EXPECT_EQ(LivingObjects::Count(), before);
}

}  // namespace
}  // namespace ov
