#include "ovmodel/host/event_sink.h"

#include "platform/automation/errors.h"
#include "platform/automation/object.h"

namespace ovmodel {

namespace {

using ov::Text;

/// The facet of a sink: its members are those of the source interface.
class IEventSink : public ov::IDispatch {
public:
    static constexpr ov::Guid kIid = ov::Guid::Parse("{3C1B5A90-7E54-4E0B-8A0F-5B1D2C3E4F05}");
    static constexpr const char* kName = "_EventSink";
    static const ov::InterfaceInfo& Members() {
        static const ov::InterfaceInfo info(kIid, kName, {});
        return info;
    }
};

class EventSink final : public ov::Object<EventSink, ov::Facet<IEventSink>> {
public:
    static constexpr const char* kClassName = "EventSink";

    EventSink(ov::ScriptControl& control, Text prefix, const ov::InterfaceInfo& events)
        : mControl(control), mPrefix(std::move(prefix)), mEvents(events) {}

    ov::DispId GetIDsOfNames(std::u16string_view name) override { return mEvents.Find(name); }
    ov::Variant Invoke(ov::DispId id, ov::CallKind, ov::Arguments& arguments) override {
        for (const ov::Member& event : mEvents.Members()) {
            const Text name = Text::FromAscii(event.name);
            if (mEvents.Find(name) != id) continue;
            const Text procedure = mPrefix + name;
            return mControl.HasProcedure(procedure) ? mControl.CallProcedure(procedure, arguments) : ov::Variant();
        }
        ov::Raise(ov::ErrorNumber::NoSuchMember);
    }

private:
    ov::ScriptControl& mControl;
    Text mPrefix;
    const ov::InterfaceInfo& mEvents;
};

}  // namespace

ov::Ref<ov::IDispatch> MakeEventSink(ov::ScriptControl& control, const Text& prefix, const ov::InterfaceInfo& events) {
    return ov::MakeObject<EventSink>(control, prefix, events)->Dispatch();
}

}  // namespace ovmodel
