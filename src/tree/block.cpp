#include "tree/block.h"

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
    const Collection& row = group.Row();
    for (const char16_t* column : {u"block1", u"block2", u"block3"}) {
        if (!EqualValues(row.Get(column), Variant(mIdx))) continue;
        const Variant& position = row.Get(Text(column) + u"order");
        mSortList.InsertKeyAscending(position.IsNull() ? Variant(0) : position)->data =
            Variant(static_cast<IBase_GuiGroup*>(&group));
        mGroupsValid = false;
        return;
    }
    if (DebugOutput()) LogEntry(Dispatch(), u"AddGroup: ERROR: Block ist nicht in der Gruppe eingetragen!");
}

const Ref<TypedList<IBase_GuiGroup>>& Block::SortedGroups() {
    if (!mGroupsValid) {
        mGroups->Clear();
        for (CLinkedListElement* element = mSortList.first(); element; element = element->after()) {
            const auto group = facet<IBase_GuiGroup>(element->data.AsObject());
            mGroups->Add(group.get(), ToText(group->id()));
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
    // By the sort list, which also knows a group that another one of the same id has replaced in the collections: it
    // holds this block, and nobody else ends that ring. The list holds its groups to the block's own end.
    for (CLinkedListElement* element = mSortList.first(); element; element = element->after()) {
        if (auto* own = dynamic_cast<Group*>(element->data.AsObject())) own->Unload();
    }
    mGroups->Clear();
    mGroupsValid = true;
    mChannel = nullptr;
}

}  // namespace ov
