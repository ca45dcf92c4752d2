/// @file
/// The block: a heading under which a user interface shows some groups of a channel in an order of their own. It owns
/// no parameters and no rules. What holds for all interfaces stands in forward.h.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "contract/forward.h"
#include "platform/automation/dispatch.h"

namespace ov {

/// The block for user interfaces. The state questions and commands go to its groups and load what those load.
class IBase_GuiBlock : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{BFD87A2E-3BA0-4266-954F-08D88173E00F}");
    static constexpr const char* kName = "_IBase_GuiBlock";
    static const InterfaceInfo& Members();

    virtual Text name() = 0;                                                  ///< "" once unloaded
    virtual bool consistent(std::optional<eParameterKind> kind = {}) = 0;     ///< True unless a group says False
    virtual bool modified(std::optional<eParameterKind> kind = {}) = 0;       ///< True if a group is modified
    virtual void ClearModified(std::optional<eParameterKind> kind = {}) = 0;  ///< takes the values for unmodified
    virtual bool unknown(std::optional<eParameterKind> kind = {}) = 0;        ///< True if a group has unknown values
    virtual void SetUnknown(std::optional<eParameterKind> kind = {}) = 0;     ///< marks the values as unknown
    virtual void LockDataset(std::optional<eParameterKind> kind = {}) = 0;    ///< makes uneditable
    virtual void UnlockDataset(std::optional<eParameterKind> kind = {}) = 0;  ///< ends LockDataset
    virtual Variant id() = 0;                                                 ///< the key in `blocks`
    virtual Ref<IBase_GuiChannel> channel() = 0;                              ///< Nothing once unloaded
    /// The groups by their position in this block; those of one position in the order of the channel. Never Nothing.
    virtual Ref<CBase_GuiGroupCollection> groups() = 0;
    /// Registers a listener for the events of all parameters of the block's groups. One on a block and one on its
    /// channel each hear an event once, however many blocks hold the group.
    /// @throws RuntimeError 13 for an object that has none of these events
    virtual void RegisterCallback(IDispatch* cb) = 0;
    virtual void UnregisterCallback(IDispatch* cb) = 0;                      ///< takes off every entry of @p cb
    virtual void ClearUnknown(std::optional<eParameterKind> kind = {}) = 0;  ///< marks the values as known
    virtual void ResetValue(std::optional<eParameterKind> kind = {}) = 0;    ///< sets default values
};

}  // namespace ov
