#include "tree/block.h"

#include <algorithm>

#include "descriptor/row_collection.h"
#include "platform/automation/operators.h"
#include "support/diagnostics.h"
#include "tree/channel.h"
#include "tree/group.h"
#include "tree/row_values.h"

namespace ov {

void Block::Config(Channel* channel, Recordset& row) {
    mChannel = channel;
    mId = FieldValue(row, u"BlockId");
    mIdx = ToLong(FieldValue(row, u"idx"));
    mNameId = LongOr(FieldValue(row, u"name"), 0);
}

void Block::AddGroup(Group& group) {
    const Collection& row = *group.Row();
    for (const char16_t* column : {u"block1", u"block2", u"block3"}) {
        if (!EqualValues(row.Get(column), Variant(mIdx))) continue;
        const Variant& position = row.Get(Text(column) + u"order");
        mPlaces.push_back({position.IsNull() ? Variant(0) : position, &group});
        mGroupsValid = false;
        return;
    }
    if (DebugOutput()) LogEntry(Dispatch(), u"AddGroup: ERROR: Block ist nicht in der Gruppe eingetragen!");
}

const Ref<TypedList<IBase_GuiGroup>>& Block::SortedGroups() {
    if (!mGroupsValid) {
        mGroups->Clear();
        std::ranges::stable_sort(mPlaces, [](const Place& a, const Place& b) {
            const auto order = Compare(a.position, b.position);
            return order && std::is_lt(*order);
        });
        for (const Place& place : mPlaces) {
            mGroups->Add(place.group.get(), ToText(place.group->id()));
        }
        mGroupsValid = true;
    }
    return mGroups;
}

Text Block::name() {
    ModuleServices* services = mChannel ? mChannel->Services() : nullptr;
    return services ? services->GetTranslatedText(mNameId) : Text();
}

Ref<IBase_GuiChannel> Block::channel() {
    return mChannel;
}

void Block::Unload() noexcept {
    if (!mChannel) return;
    mCallbacks.Clear();
    // By the places, which also know a group that another one of the same id has replaced in the collections: it holds
    // this block, and nobody else ends that ring. They hold their groups to the block's own end.
    const std::vector<Place> places = mPlaces;
    for (const Place& place : places) {
        if (auto* own = dynamic_cast<Group*>(place.group.get())) own->Unload();
    }
    mGroups->Clear();
    mGroupsValid = true;
    mChannel = nullptr;
}

}  // namespace ov
