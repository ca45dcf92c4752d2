/// @file
/// The root of a device's tree: loading, language, paths, texts, and the module's faces.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "contract/station.h"
#include "descriptor/enum_cache.h"
#include "descriptor/module_services.h"
#include "descriptor/translation_table.h"
#include "module/environment.h"
#include "platform/store/store.h"
#include "tree/event_relay.h"
#include "tree/kind_folds.h"
#include "tree/typed_collection.h"

namespace ov {

class Channel;
class Station;

/// `channels` and `station` have one name and two types in the module's faces; these facets part them.
class GuiModuleFacet : public DatasetFolds<IBase_GuiModule, IBase_GuiChannel> {
public:
    Ref<CBase_GuiChannelCollection> channels() final { return GuiChannels(); }
    Ref<IBase_GuiStation> station() final { return facet<IBase_GuiStation>(OwnStation()); }

protected:
    virtual Ref<CBase_GuiChannelCollection> GuiChannels() = 0;
    virtual Ref<IUnknown> OwnStation() = 0;
};
class SpecModuleFacet : public Facet<IBase_SpecModule> {
public:
    Ref<CBase_SpecChannelCollection> channels() final { return SpecChannels(); }
    Ref<IBase_SpecStation> station() final { return facet<IBase_SpecStation>(OwnStation()); }

protected:
    virtual Ref<CBase_SpecChannelCollection> SpecChannels() = 0;
    virtual Ref<IUnknown> OwnStation() = 0;
};

/// CBase_Module. Holds the open database, the row of its type, the caches of texts, and the channels once they are
/// asked for. The tree below holds the module strongly; only Unload ends that ring.
///
/// Listeners, the host's service and rules run any code, which may unload this module, load it again or let go of it.
/// So an operation that runs them holds the module while it lasts, and keeps nothing of the tree in mind across them.
class Module final
    : public Object<Module, Facet<CBase_Module>, SpecModuleFacet, EventRelay, GuiModuleFacet, Facet<ModuleServices>> {
public:
    static constexpr const char* kClassName = "CBase_Module";

    Module();
    ~Module();
    void OnFinalRelease() noexcept { Unload(); }

    // CBase_Module
    Ref<Database> get_mDB() override { return mDB; }
    void set_mDB(Database* value) override {
        mDB = value;
        mRecord->ForgetAll();
    }
    Text GetDllPath() override;
    Variant GetDBVersion() override;
    Ref<IBase_GuiModule> Gui() override { return this; }
    Ref<IBase_SpecModule> Spec() override { return this; }
    Ref<CBase_Unload> GetUnloadPointer() override;
    Variant GetModuleType(std::optional<std::int32_t> deviceTypeId, Text* subDeviceType) override;
    bool SetLanguage(std::int32_t languageId) override;
    std::int32_t GetLanguage() override { return mLanguage; }
    bool SetSourcePath(const Text& sourcepath) override;
    Text GetSourcePath() override { return mSourcePath; }
    Ref<ICollection> Types() override;
    bool Load(const Text& moduletype, const std::optional<Text>& moduleid,
              const std::optional<Text>& modulename) override;
    void Unload() override;
    Variant GetModuleType2(std::optional<std::int32_t> deviceTypeId, Text* subDeviceType,
                           const std::optional<Text>& requiredBusCategory) override;
    Text GetDBPath() override;
    std::int32_t GetModelVersionIndex() override;
    void RegisterModuleCallbackOnly(IDispatch* cb) override;
    Text GetIndexedFile(std::int32_t index) override;

    // IBase_GuiModule
    Text name() override;
    Text image() override { return mImage; }
    Variant id() override { return mId; }
    Ref<IBase_GuiParameter> mainValue() override;
    Text deviceHelpFile() override;
    Text description() override;
    bool authentification() override;
    void RegisterCallback(IDispatch* cb) override;
    void UnregisterCallback(IDispatch* cb) override;
    Ref<CBase_Module> Base() override { return this; }

    // IBase_SpecModule
    Ref<IBase_SpecModule> Clone() override;
    bool Compare(IBase_SpecModule* other, std::optional<eParameterKind> kind) override;
    void CheckConsistency() override;
    void UpdateDependencies() override;
    void RegisterImExport(ISpec_ImExport* cb) override { mImExport = cb; }
    bool Import(Variant& importdata, Variant& sourceId) override;
    bool Export(Variant& exportdata, Variant& sourceId) override;
    Ref<IDispatch> desc() override;
    tBaseFdtDeviceTypeInfo fdtDeviceTypeInformation() override { return mFdtInfo; }
    Ref<CBase_Environment> Environment() override { return mEnvironment; }
    Text ParameterKindToString(eParameterKind kind) override;
    Ref<IBase_SpecModule> CloneType() override;
    bool scriptAccess() override { return mScriptAccess; }

    // ModuleServices
    Text GetTranslatedText(std::int32_t index) override;
    Text GetTranslatedFile(std::int32_t index) override;
    std::int32_t GetModuleTypeIdx() override { return mModuleTypeIdx; }
    std::shared_ptr<RuleRecord> Record() override { return mRecord; }
    Collection* Row() override;
    Ref<Database> GetDB() override { return mDB; }
    std::shared_ptr<CEnumCacheItem> EnumCacheGet(const Text& key) override { return mEnumCache.Get(key); }
    void EnumCacheSet(const Text& key, const std::shared_ptr<CEnumCacheItem>& item) override;

    // What stations use.
    /// Makes @p station hear the module's events and answer `station`. Nothing calls it: a station does not tell its
    /// modules of itself, so what goes from a module to its station stands ready and is silent.
    void SetStation(Station* station);
    /// Marks the module as reached by a script of another one, so that its updates are swept by the station. Nothing
    /// calls it: scripts end at their module.
    void SetScriptAccess(bool access) noexcept { mScriptAccess = access; }
    /// One pass over all channels. @returns true if a parameter that scripts have read was reconfigured
    bool UpdateDependenciesChannels();
    void CheckConsistencyAll();

    // What the tree uses.
    /// A text that may be a static script, resolved by the first channel; a literal as it stands.
    Text ResolveStaticScript(const Text& text);
    /// The shared table recordset of `RecordSetCache`. @throws RuntimeError 91 without a database
    Ref<Recordset> GetRecordset(const Text& table);

    // For tools that talk to people.
    /// Why the last Load failed, in the words of the log; "" for a type that is unknown or not enabled.
    const Text& LoadFailure() const noexcept { return mLoadFailure; }
    /// The languages that the table of texts has columns for, by their decimal ids, in the order of the columns.
    std::vector<std::int32_t> TextLanguages();
    /// True if the table of texts has this number.
    bool HasText(std::int32_t index);

private:
    class EnvironmentSink;

    Ref<CBase_GuiChannelCollection> GuiChannels() override;
    Ref<CBase_SpecChannelCollection> SpecChannels() override;
    Ref<IUnknown> OwnStation() override;

    /// The words of @p table in the module's language, into @p words as far as they can be read. @throws RuntimeError
    /// of a table that cannot be read whole
    void ReadWords(const Text& table, const Text& keyColumn, Recordset& rows,
                   std::shared_ptr<const TranslationTable>& words);

    // Loading
    void OpenDatabaseOfSourcePath();
    Ref<Recordset> OpenModuleTypes();
    bool TakeType(Recordset& types, const Text& moduletype, const Text& moduleid, const Text& modulename);
    bool LoadModuleType();
    void ReadDeviceTypeInformation();
    void ReadVersion();
    void ReadBusCategories();
    void ReadSupportedLanguages();
    void DropTree();
    void BeginRecord();
    bool LoadChannels();
    void ReadChannels();
    void TearDownChannels();
    Ref<Channel> FirstChannel();
    void EndWithLog(std::u16string_view message, const Text& detail);

    // Catalogue
    bool IsLoadedType(std::int32_t deviceTypeId, const Text& subDeviceType) const;
    bool HasRequiredBusCategory(const Text& category, std::int32_t moduleIdx);
    Variant ScanModuleTypes(std::int32_t deviceTypeId, const Text& subDeviceType, bool collectAll,
                            const Text& requiredBusCategory);

    void mEnvironment_Changed(const Text& key, const Variant& value);
    void CloneTypeInto(Module& clone);
    static void CopyValues(TypedList<IBase_SpecChannel>& channels, Module& clone);
    static void CopyValues(CBase_SpecParameterCollection& own, CBase_SpecParameterCollection& clone);
    bool LoadChildren() override { return LoadChannels(); }
    Ref<TypedList<IBase_GuiChannel>> LoadedChildren() override { return mGuiChannels; }
    void PassOn(ParameterEvent event, IBase_GuiParameter* p) override;

    std::shared_ptr<RuleRecord> mRecord;  // of the tree that stands, or of the next one
    Ref<Database> mDB;
    Ref<TypedList<IBase_SpecChannel>> mSpecChannels;  // Nothing until the tree is built
    Ref<TypedList<IBase_GuiChannel>> mGuiChannels;    // a view of the same list
    // All channels that were made: hosts may clear the lists, and a channel of the same id takes another one's place.
    std::vector<Ref<Channel>> mMadeChannels;
    Ref<Station> mStation;  // Nothing in every host: see SetStation
    CallbackList<IBase_CallbackParameter> mParameterCallbacks;
    CallbackList<IBase_CallbackModule> mModuleCallbacks;
    Ref<ISpec_ImExport> mImExport;
    Text mId;
    Text mImage;
    std::int32_t mNameTextIdx = 0;  // 0 when the host gave a name
    Text mName;
    std::int32_t mLanguage = TranslationTable::kBaseLanguage;
    Text mModuleType;
    std::int32_t mModuleTypeIdx = 0;
    Text mSourcePath;
    Text mMainValuePath;
    Ref<IBase_GuiParameter> mMainValue;
    tBaseFdtDeviceTypeInfo mFdtInfo;
    bool mScriptAccess = false;
    bool mUnloading = false;
    Ref<Collection> mDesc;
    Text mDBVersion;  // empty until asked for
    std::int32_t mModelVersionIndex = 0;
    EnumCache mEnumCache;
    // Those of the database, or what could be read of a table that cannot be shared.
    std::shared_ptr<const TranslationTable> mTexts, mFiles;
    std::unordered_map<std::int32_t, Text> mFileNames;  // that scripts of mFiles gave
    std::int32_t mTextsLanguage = 0, mFilesLanguage = 0;
    Ref<ov::Environment> mEnvironment;
    Ref<EnvironmentSink> mEnvironmentSink;
    std::int32_t mEnvironmentCookie = 0;
    Text mDllPathCache;
    Text mLoadFailure;
};

}  // namespace ov
