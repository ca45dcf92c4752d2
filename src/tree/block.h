/// @file
/// A display heading of a channel: a named and ordered gathering of groups.
#pragma once

#include <vector>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/default_interfaces.h"
#include "contract/group.h"
#include "contract/parameter.h"
#include "platform/store/store.h"
#include "tree/event_relay.h"
#include "tree/kind_folds.h"
#include "tree/typed_collection.h"

namespace ov {

class Channel;
class Group;

/// CBase_Block. Owns no parameters and no rules. What its groups tell goes to its own listeners and no further: the
/// way up runs through the channel alone.
class Block final : public Object<Block, Facet<CBase_Block>, EventRelay, DatasetFolds<IBase_GuiBlock, IBase_GuiGroup>> {
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
    Variant id() override { return mId; }
    Ref<IBase_GuiChannel> channel() override;
    Ref<CBase_GuiGroupCollection> groups() override { return SortedGroups(); }
    void RegisterCallback(IDispatch* cb) override { AddListener(mCallbacks, cb); }
    void UnregisterCallback(IDispatch* cb) override { mCallbacks.Remove(cb); }

private:
    bool LoadChildren() override { return true; }
    Ref<TypedList<IBase_GuiGroup>> LoadedChildren() override { return SortedGroups(); }
    void PassOn(ParameterEvent event, IBase_GuiParameter* p) override { TellAll(mCallbacks, event, p); }
    const Ref<TypedList<IBase_GuiGroup>>& SortedGroups();

    Ref<TypedList<IBase_GuiGroup>> mGroups = MakeObject<TypedList<IBase_GuiGroup>>();
    Ref<Channel> mChannel;
    CallbackList<IBase_CallbackParameter> mCallbacks;
    struct Place {
        Variant position;
        Ref<IBase_GuiGroup> group;
    };
    std::vector<Place> mPlaces;  // by position once mGroupsValid; groups of one position as they were added
    bool mGroupsValid = true;
    std::int32_t mNameId = 0;
    Variant mId;
    std::int32_t mIdx = 0;
};

}  // namespace ov
