/// @file
/// Events: a source interface whose operations an object calls on whoever attached itself.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/automation/errors.h"
#include "platform/automation/listener.h"
#include "platform/automation/object.h"

namespace ov {

/// The facet of an object that has events.
class IEventSource : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{B7F0D9A4-5C1B-4F0E-8E5D-2A9C31D7E604}");
    static constexpr const char* kName = "IEventSource";
    static const InterfaceInfo& Members();

    /// The events, as operations of the source interface.
    virtual const InterfaceInfo& Events() const = 0;
    /// Attaches @p sink, an object with the source interface or with some of its operations by name.
    /// @returns a number to take it off again; never 0.
    /// @throws RuntimeError 430 if it has none of the operations.
    virtual std::int32_t Advise(IDispatch* sink) = 0;
    /// Takes a sink off; an unknown number does nothing.
    virtual void Unadvise(std::int32_t cookie) = 0;
};

/// The sinks of one source interface @p I, in the order in which they were attached.
template <class I>
class EventSinks {
public:
    std::int32_t Advise(IDispatch* sink) {
        Ref<I> found = CastListener<I>(sink);
        if (!found) ov::Raise(ErrorNumber::ClassDoesNotSupportAutomation);
        mSinks.push_back({++mLastCookie, std::move(found)});
        return mLastCookie;
    }
    void Unadvise(std::int32_t cookie) {
        const auto at = std::ranges::find(mSinks, cookie, &Sink::cookie);
        if (at == mSinks.end()) return;
        const Ref<I> ended = std::move(at->sink);  // its end may run any code, so the list is in order before it
        mSinks.erase(at);
    }
    /// Calls @p raise with each sink that was attached when the event began.
    template <class Function>
    void RaiseEvent(Function raise) const {
        const std::vector<Sink> now = mSinks;
        for (const Sink& sink : now) {
            raise(*sink.sink);
        }
    }

private:
    struct Sink {
        std::int32_t cookie;
        Ref<I> sink;
    };
    std::vector<Sink> mSinks;
    std::int32_t mLastCookie = 0;
};

}  // namespace ov
