/// @file
/// A display heading of a channel: a named and ordered gathering of groups.
#pragma once

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/default_interfaces.h"
#include "contract/group.h"
#include "contract/parameter.h"
#include "platform/automation/callback_list.h"
#include "platform/store/store.h"
#include "tree/linked_list.h"
#include "tree/typed_collection.h"

namespace ov {

class Channel;
class Group;

/// CBase_Block. Owns no parameters and no rules. What its groups tell goes to its own listeners and no further: the
/// way up runs through the channel alone.
class Block final : public Object<Block, Facet<CBase_Block>, Facet<IBase_CallbackParameter>, Facet<IBase_GuiBlock>> {
public:
    static constexpr const char* kClassName = "CBase_Block";

    void OnFinalRelease() noexcept { Unload(); }

    /// Takes the current row of table `Blocks`. @throws RuntimeError 3021 for a number that the table lacks
    void Config(Channel* channel, Recordset& row);
    /// Puts a group in its place among those of the block; one that does not name the block is left out with a line
    /// in the log.
    void AddGroup(Group& group);
    const Variant& Id() const noexcept { return mId; }
    std::int32_t Idx() const noexcept { return mIdx; }
    /// Tears its groups down and lets the channel go; harmless the second time.
    void Unload() noexcept;

    // IBase_GuiBlock
    Text name() override;
    bool consistent(std::optional<eParameterKind> kind) override;
    bool modified(std::optional<eParameterKind> kind) override;
    void ClearModified(std::optional<eParameterKind> kind) override;
    bool unknown(std::optional<eParameterKind> kind) override;
    void SetUnknown(std::optional<eParameterKind> kind) override;
    void LockDataset(std::optional<eParameterKind> kind) override;
    void UnlockDataset(std::optional<eParameterKind> kind) override;
    Variant id() override { return mId; }
    Ref<IBase_GuiChannel> channel() override;
    Ref<CBase_GuiGroupCollection> groups() override { return SortedGroups(); }
    void RegisterCallback(IDispatch* cb) override;
    void UnregisterCallback(IDispatch* cb) override { mCallbacks.Remove(cb); }
    void ClearUnknown(std::optional<eParameterKind> kind) override;
    void ResetValue(std::optional<eParameterKind> kind) override;

    // IBase_CallbackParameter
    void OnParameterReconfigured(IBase_GuiParameter* p) override;
    void OnParameterStateChanged(IBase_GuiParameter* p) override;
    void OnParameterValueChanged(IBase_GuiParameter* p) override;
    void OnParameterConfigStateChanged(IBase_GuiParameter* p) override;

private:
    const Ref<TypedList<IBase_GuiGroup>>& SortedGroups();

    Ref<TypedList<IBase_GuiGroup>> mGroups = MakeObject<TypedList<IBase_GuiGroup>>();
    Ref<Channel> mChannel;
    CallbackList<IBase_CallbackParameter> mCallbacks;
    CLinkedList mSortList;
    bool mGroupsValid = true;
    std::int32_t mNameId = 0;
    Variant mId;
    std::int32_t mIdx = 0;
};

}  // namespace ov
