#include "platform/store/store.h"

#include <array>

#include "platform/automation/member.h"
#include "platform/automation/object.h"

namespace ov {

const InterfaceInfo& Field::Members() {
    static constexpr std::array kMembers = {
        get_member<&Field::Value>("Value").AsDefault(),
        get_member<&Field::Name>("Name"),
        get_member<&Field::Required>("Required"),
        get_member<&Field::Properties>("Properties"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

namespace {

class RecordsetFields final : public Object<RecordsetFields, Facet<FieldList>> {
public:
    static constexpr const char* kClassName = "Fields";

    explicit RecordsetFields(Recordset* recordset) : mRecordset(recordset) {}

    std::int32_t Count() override { return mRecordset->FieldCount(); }
    Ref<Field> Item(const Variant& item) override { return mRecordset->Fields(item); }
    Ref<IEnumVariant> NewEnum() override {
        std::vector<Variant> fields;
        for (std::int32_t i = 0; i < Count(); ++i) {
            fields.emplace_back(Item(i));
        }
        return EnumerateItems(std::move(fields));
    }

private:
    Ref<Recordset> mRecordset;
};

}  // namespace

const InterfaceInfo& FieldList::Members() {
    static constexpr std::array kMembers = {
        get_member<&FieldList::Count>("Count"),
        get_member<&FieldList::Item>("Item").AsDefault(),
        member<&FieldList::NewEnum>("NewEnum"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

Variant Recordset::FieldOrFields(const std::optional<Variant>& item) {
    if (item) return Fields(*item);
    return MakeObject<RecordsetFields>(this);
}

const InterfaceInfo& Recordset::Members() {
    static constexpr std::array kMembers = {
        get_member<&Recordset::get_Index>("Index"),
        let_member<&Recordset::let_Index>("Index"),
        member<&Recordset::Seek>("Seek"),
        get_member<&Recordset::NoMatch>("NoMatch"),
        member<&Recordset::MoveFirst>("MoveFirst"),
        member<&Recordset::MoveNext>("MoveNext"),
        get_member<&Recordset::Eof>("EOF"),
        get_member<&Recordset::RecordCount>("RecordCount"),
        member<&Recordset::Close>("Close"),
        member<&Recordset::Clone>("Clone"),
        get_member<&Recordset::FieldOrFields>("Fields").AsDefault(),
        get_member<&Recordset::FieldCount>("FieldCount"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& Database::Members() {
    static constexpr std::array kMembers = {
        get_member<&Database::Name>("Name"),
        get_member<&Database::Version>("Version"),
        member<&Database::OpenRecordset>("OpenRecordset"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& Workspace::Members() {
    static constexpr std::array kMembers = {
        get_member<&Workspace::Name>("Name"),
        member<&Workspace::OpenDatabase>("OpenDatabase"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

}  // namespace ov
