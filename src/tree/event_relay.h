/// @file
/// How the nodes of the tree pass on the events of parameters.
#pragma once

#include <cstddef>

#include "contract/callbacks.h"
#include "platform/automation/callback_list.h"
#include "platform/automation/errors.h"
#include "platform/automation/object.h"

namespace ov {

/// One of the four events.
using ParameterEvent = void (IBase_CallbackParameter::*)(IBase_GuiParameter*);

/// A node that hears the four events: each of them comes to `PassOn`.
class EventRelay : public Facet<IBase_CallbackParameter> {
public:
    void OnParameterReconfigured(IBase_GuiParameter* p) final {
        PassOn(&IBase_CallbackParameter::OnParameterReconfigured, p);
    }
    void OnParameterStateChanged(IBase_GuiParameter* p) final {
        PassOn(&IBase_CallbackParameter::OnParameterStateChanged, p);
    }
    void OnParameterValueChanged(IBase_GuiParameter* p) final {
        PassOn(&IBase_CallbackParameter::OnParameterValueChanged, p);
    }
    void OnParameterConfigStateChanged(IBase_GuiParameter* p) final {
        PassOn(&IBase_CallbackParameter::OnParameterConfigStateChanged, p);
    }

protected:
    virtual void PassOn(ParameterEvent event, IBase_GuiParameter* p) = 0;
};

/// Tells all listeners in their order. What one of them raises ends the round.
/// @throws RuntimeError 28 where that never ends: any node may be registered as a listener, so nodes can form a ring
inline void TellAll(CallbackList<IBase_CallbackParameter>& listeners, ParameterEvent event, IBase_GuiParameter* p) {
    constexpr std::size_t kMostRounds = 300;  // inside each other: one more for each listener that writes, or is a node
    static std::size_t rounds = 0;
    if (rounds >= kMostRounds) Raise(ErrorNumber::OutOfStackSpace);
    struct Round {
        Round() noexcept { ++rounds; }
        ~Round() { --rounds; }
    };
    const Round round;
    listeners.Tell([&](IBase_CallbackParameter& listener) { (listener.*event)(p); });
}

/// Registers @p cb for the events. @throws RuntimeError 13 if it is no listener for them
inline void AddListener(CallbackList<IBase_CallbackParameter>& listeners, IDispatch* cb) {
    Ref<IBase_CallbackParameter> listener = CastListener<IBase_CallbackParameter>(cb);
    if (!listener) Raise(ErrorNumber::TypeMismatch);
    listeners.Add(std::move(listener));
}

}  // namespace ov
