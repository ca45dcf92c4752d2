#include "descriptor/shared_descriptor.h"

#include "descriptor/row_collection.h"

namespace ov {

SharedDescriptor& SharedDescriptor::Of(Database& db) {
    std::unique_ptr<DatabaseAnnex>& annex = db.Annex();
    // Asked first: what is read below is of this revision, or of a later one that the next call finds out.
    const std::int64_t revision = db.Revision();
    auto* shared = dynamic_cast<SharedDescriptor*>(annex.get());
    if (!shared || shared->mRevision != revision) {
        annex.reset(new SharedDescriptor(db));
        shared = static_cast<SharedDescriptor*>(annex.get());
        shared->mRevision = revision;
    }
    return *shared;
}

std::shared_ptr<const RowSet> SharedDescriptor::Rows(const Text& query) {
    if (const auto known = mRows.find(query); known != mRows.end()) return known->second;
    const Ref<Recordset> rs =
        mDatabase.OpenRecordset(query, RecordsetType::dbOpenDynaset, RecordsetOptions::dbReadOnly);
    auto set = std::make_shared<RowSet>();
    set->columns = rs->Columns();
    for (; !rs->Eof(); rs->MoveNext()) {
        set->rows.emplace_back(CurrentRow(*rs));
    }
    rs->Close();
    mRows.emplace(query, set);
    return set;
}

}  // namespace ov
