// The catalogue of module types, and the device type record of the loaded one.
#include "module/module.h"

#include <array>

#include "descriptor/named_file.h"
#include "descriptor/row_collection.h"
#include "platform/automation/conversions.h"
#include "platform/automation/operators.h"
#include "platform/locale/locale.h"
#include "support/diagnostics.h"

namespace ov {

namespace {

constexpr std::int32_t kAnyDeviceType = -1;
constexpr std::u16string_view kCollectAll = u"{}";
constexpr std::size_t kMostLanguages = 100;
constexpr std::size_t kMostBusCategories = 20;

Text TextOf(const Collection& row, std::u16string_view column) {
    return ToText(NullToDefault(row.Get(column), Variant(u"")));
}

std::int32_t NumberOf(const Collection& row, std::u16string_view column) {
    return ToLong(NullToDefault(row.Get(column), Variant(0)));
}

Text TextOf(Recordset& rs, std::u16string_view column) {
    return ToText(NullToDefault(FieldValue(rs, column), Variant(u"")));
}

Text CommunicationTypeEntry(Recordset& busCategories) {
    return ToText(NullToDefault(FieldValue(busCategories, u"CommunicationTypeEntry"), Variant(u"required")));
}

// A private recordset on the key of a table.
Ref<Recordset> OpenByKey(Database& db, const Text& table) {
    Ref<Recordset> rs = db.OpenRecordset(table, RecordsetType::dbOpenTable);
    rs->let_Index(u"PrimaryKey");
    return rs;
}

Ref<Recordset> OpenBusCategories(Database& db, std::int32_t moduleIdx) {
    return db.OpenRecordset(u"SELECT * FROM [BusCategories] WHERE [module] = " + Text::FromInteger(moduleIdx));
}

void Seek(Recordset& rs, const Variant& key) {
    rs.Seek(u"=", std::array{key});
}

eFdtClassificationId ClassificationOf(const Variant& column) {
    if (column.IsNull()) return eFdtClassificationId::fdt_dtmSpecific;
    const Text text = ToText(column);
    const std::size_t first = text.view().find_first_not_of(u" \t");
    const bool number = first != std::u16string_view::npos && text[first] >= u'0' && text[first] <= u'9';
    return number ? static_cast<eFdtClassificationId>(ToLong(ValPrefix(text))) : eFdtClassificationId::fdt_dtmSpecific;
}

bool IsLong(const Text& text) {
    try {
        ToLong(text);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool IsEnabled(Recordset& types, bool hasEnable) {
    return !hasEnable || EqualValues(FieldValue(types, u"enable"), Variant(true));
}

}  // namespace

Ref<ICollection> Module::Types() {
    OpenDatabaseOfSourcePath();
    if (!mDB) return nullptr;
    Ref<Collection> names;
    try {
        const Ref<Recordset> types = mDB->OpenRecordset(u"ModuleTypes", RecordsetType::dbOpenTable);
        names = MakeObject<Collection>();
        const bool hasEnable = FieldExists(*types, u"enable");
        for (; !types->Eof(); types->MoveNext()) {
            if (IsEnabled(*types, hasEnable)) names->Append(FieldValue(*types, u"moduletype"));
        }
        types->Close();
    } catch (const RuntimeError&) {
        // The names found so far are the answer.
    }
    return names;
}

Variant Module::GetModuleType(std::optional<std::int32_t> deviceTypeId, Text* subDeviceType) {
    return GetModuleType2(deviceTypeId, subDeviceType, Text());
}

bool Module::IsLoadedType(std::int32_t deviceTypeId, const Text& subDeviceType) const {
    return subDeviceType == mFdtInfo.subDeviceType &&
           (deviceTypeId == kAnyDeviceType || deviceTypeId == mFdtInfo.deviceTypeId) && !mModuleType.empty() &&
           (mDB || mFdtInfo.deviceTypeId != 0);
}

Variant Module::GetModuleType2(std::optional<std::int32_t> deviceTypeId, Text* subDeviceType,
                               const std::optional<Text>& requiredBusCategory) {
    if (mSourcePath.empty()) return Variant();
    const std::int32_t device = deviceTypeId.value_or(kAnyDeviceType);
    Text sub = subDeviceType ? *subDeviceType : Text();
    const Text category = requiredBusCategory.value_or(Text());
    if (sub.empty() && device == kAnyDeviceType) return mModuleType;
    if (IsLoadedType(device, sub)) {
        const std::u16string wanted = ToUpperCase(category);
        const bool fits =
            category.empty() || std::ranges::any_of(mFdtInfo.busCategories, [&](const auto& entry) {
                return entry.CommunicationTypeEntry == u"required" && ToUpperCase(entry.busCategory) == wanted;
            });
        if (fits) return mModuleType;
    }
    OpenDatabaseOfSourcePath();
    const bool collectAll = sub.view().ends_with(kCollectAll);
    if (collectAll) {
        // The caller sees the mark gone from its own variable.
        sub = sub.view().substr(0, sub.size() - kCollectAll.size());
        if (subDeviceType) *subDeviceType = sub;
    }
    return ScanModuleTypes(device, sub, collectAll, category);
}

Variant Module::ScanModuleTypes(std::int32_t deviceTypeId, const Text& subDeviceType, bool collectAll,
                                const Text& requiredBusCategory) {
    Ref<Recordset> types;
    Variant found;
    try {
        if (!mDB) Raise(ErrorNumber::ObjectVariableNotSet);
        types = mDB->OpenRecordset(u"ModuleTypes", RecordsetType::dbOpenTable);
        const bool hasEnable = FieldExists(*types, u"enable");
        for (; !types->Eof(); types->MoveNext()) {
            const bool candidate = IsEnabled(*types, hasEnable) &&
                                   (deviceTypeId == kAnyDeviceType ||
                                    EqualValues(FieldValue(*types, u"FDTdeviceTypeId"), Variant(deviceTypeId))) &&
                                   EqualValues(FieldValue(*types, u"FDTsubDeviceType"), Variant(subDeviceType)) &&
                                   (requiredBusCategory.empty() ||
                                    HasRequiredBusCategory(requiredBusCategory, ToLong(FieldValue(*types, u"idx"))));
            if (!candidate) continue;
            const Text name = TextOf(*types, u"moduletype");
            found = found.IsEmpty() ? Variant(name) : Variant(found.AsText() + kCollectAll + name);
            if (!collectAll) break;
        }
        if (found.IsEmpty()) LogEntry(u"GetModuleType2()", u"didn't find any type!");
    } catch (const RuntimeError& error) {
        if (!types) return Variant();
        LogEntry(u"GetModuleType2()", u"finish: close.. (in ONERROR2): ", error.description());
    }
    types->Close();
    return found;
}

bool Module::HasRequiredBusCategory(const Text& category, std::int32_t moduleIdx) {
    const Ref<Recordset> entries = OpenBusCategories(*mDB, moduleIdx);
    if (entries->RecordCount() < 1) return false;
    const Ref<Recordset> categories = OpenByKey(*mDB, u"BusCategoryTypes");
    const std::u16string wanted = ToUpperCase(category);
    bool required = false;
    for (; !required && !entries->Eof(); entries->MoveNext()) {
        const Variant key = FieldValue(*entries, u"busCategory");
        if (key.IsNull() || CommunicationTypeEntry(*entries) != u"required") continue;
        Seek(*categories, key);
        required = ToUpperCase(TextOf(*categories, u"Category")) == wanted;
    }
    categories->Close();
    entries->Close();
    return required;
}

bool Module::LoadModuleType() {
    try {
        mModuleType = ToText(mDesc->Get(u"moduletype"));
        mModuleTypeIdx = ToLong(mDesc->Get(u"IDX"));
        mRecord->CountIn(CountsForTree(mSourcePath, mModuleType));
        mFdtInfo.deviceTypeId = NumberOf(*mDesc, u"FDTdeviceTypeId");
        mFdtInfo.subDeviceType = TextOf(*mDesc, u"FDTsubDeviceType");
        mFdtInfo.classificationId = ClassificationOf(mDesc->Get(u"FDTclassificationId"));
        mFdtInfo.deviceIcon = TextOf(*mDesc, u"FDTdeviceIcon");
        mFdtInfo.manufacturerId = NumberOf(*mDesc, u"FDTmanufacturerId");
        ReadDeviceTypeInformation();
        ReadVersion();
        ReadBusCategories();
        ReadSupportedLanguages();
        if (mLanguage != TranslationTable::kBaseLanguage && !SetLanguage(mLanguage)) {
            mLanguage = TranslationTable::kBaseLanguage;
        }
        return true;
    } catch (const RuntimeError& error) {
        // The line bears the name of another routine, as it always did.
        mLoadFailure = error.description();
        EndWithLog(u"LoadChannels(): Error: ", mLoadFailure);
        return false;
    }
}

void Module::ReadDeviceTypeInformation() {
    constexpr std::u16string_view kFile = u"file:\\\\";
    const Ref<Database> database = mDB;
    const std::int32_t type = mModuleTypeIdx;
    Text information = ResolveStaticScript(TextOf(*mDesc, u"fdtDeviceTypeInformation"));
    // A script runs any code: what it has taken the database or the type from is no load any more.
    if (mDB != database || mModuleTypeIdx != type) Raise(ErrorNumber::ObjectVariableNotSet);
    if (information.view().starts_with(kFile)) {
        Text path = information.view().substr(kFile.size());
        if (path.view().starts_with(u'.')) {
            const Text own = database->Name();
            path = Concatenate(own.view().substr(0, own.view().find_last_of(u"\\/") + 1), path);
        }
        information = LoadStringFromFile(path, GetDBPath());
    }
    mFdtInfo.deviceTypeInformation = information;
}

void Module::ReadVersion() {
    const std::int32_t version = ToLong(mDesc->Get(u"FDTversion"));
    const Ref<Recordset> versions = OpenByKey(*mDB, u"Versions");
    Seek(*versions, Variant(version));
    mFdtInfo.version.date = TextOf(*versions, u"date");
    mFdtInfo.version.descriptor = TextOf(*versions, u"descriptor");
    const Variant name = FieldValue(*versions, u"name");
    mFdtInfo.version.name = name.IsNull() ? u"Orvane Dtm '" + Text::FromInteger(mFdtInfo.deviceTypeId) + u"'/'" +
                                                mFdtInfo.subDeviceType + u"'"
                                          : ToText(name);
    mFdtInfo.version.vendor = TextOf(*versions, u"vendor");
    mFdtInfo.version.version = TextOf(*versions, u"version");
    versions->Close();
}

void Module::ReadBusCategories() {
    mFdtInfo.busCategories.clear();
    const Ref<Recordset> entries = OpenBusCategories(*mDB, mModuleTypeIdx);
    if (entries->RecordCount() < 1) return;
    const Ref<Recordset> categories = OpenByKey(*mDB, u"BusCategoryTypes");
    for (; !entries->Eof(); entries->MoveNext()) {
        const Variant key = FieldValue(*entries, u"busCategory");
        if (key.IsNull()) continue;
        if (mFdtInfo.busCategories.size() == kMostBusCategories) Raise(ErrorNumber::SubscriptOutOfRange);
        Seek(*categories, key);
        tBaseBusCategory category;
        category.busCategory = TextOf(*categories, u"Category");
        category.busCategoryName =
            ToText(NullToDefault(FieldValue(*categories, u"CategoryName"), Variant(category.busCategory)));
        category.CommunicationTypeEntry = CommunicationTypeEntry(*entries);
        mFdtInfo.busCategories.push_back(std::move(category));
    }
    // Rows that are all unusable leave one empty record, unlike no rows at all.
    if (mFdtInfo.busCategories.empty()) mFdtInfo.busCategories.emplace_back();
    categories->Close();
    entries->Close();
}

void Module::ReadSupportedLanguages() {
    mFdtInfo.supportedLanguages.clear();
    const Ref<Recordset> languages = OpenByKey(*mDB, u"SupportedLanguages");
    for (languages->MoveFirst(); !languages->Eof(); languages->MoveNext()) {
        if (mFdtInfo.supportedLanguages.size() == kMostLanguages) Raise(ErrorNumber::SubscriptOutOfRange);
        const Text digits = TextOf(*languages, u"LangId");
        const Text literal = u"&H" + digits;
        if (IsLong(literal)) {
            mFdtInfo.supportedLanguages.push_back(literal);
        } else {
            EndWithLog(u"LoadModuleType(): LangId ", digits + u"entspricht nicht einem Hex-String!");
        }
    }
    languages->Close();
    if (mFdtInfo.supportedLanguages.empty()) Raise(ErrorNumber::SubscriptOutOfRange);
}

}  // namespace ov
