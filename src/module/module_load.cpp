// Loading and unloading: the path, the database, the row of the type, the tree's beginning and end.
#include "module/module.h"
#include "module/station.h"
#include "module/unload_pointer.h"

#include "descriptor/database_cache.h"
#include "descriptor/named_file.h"
#include "descriptor/row_collection.h"
#include "descriptor/shared_descriptor.h"
#include "platform/automation/conversions.h"
#include "platform/automation/operators.h"
#include "platform/system/file_system.h"
#include "platform/system/folders.h"
#include "support/diagnostics.h"
#include "tree/channel.h"

namespace ov {

/// Hears the environment for its module, which it holds during an event alone: a host may keep the environment longer
/// than the module, and a listener may let the module go.
class Module::EnvironmentSink final : public Object<EnvironmentSink, Facet<CBase_EnvironmentEvents>> {
public:
    static constexpr const char* kClassName = "EnvironmentSink";

    explicit EnvironmentSink(Module& module) : mModule(&module) {}
    void Changed(const Text& key, const Variant& value) override {
        if (const Ref<Module> module = mModule) module->mEnvironment_Changed(key, value);
    }
    /// The module ends.
    void Forget() noexcept { mModule = nullptr; }

private:
    Module* mModule;
};

namespace {

/// Sets a flag for as long as it lives.
class Underway {
public:
    explicit Underway(bool& flag) noexcept : mFlag(flag) { mFlag = true; }
    ~Underway() { mFlag = false; }
    Underway(const Underway&) = delete;
    Underway& operator=(const Underway&) = delete;

private:
    bool& mFlag;
};

std::int32_t PrimaryLanguage(std::int32_t languageId) {
    return languageId & 0x3FF;
}

}  // namespace

Module::Module() {
    // The switches come first: a new environment tells whether debugging is on.
    if (!GlobalDiagnostics().initialised) InitDebug(DebugMode::FromRegistry);
    mEnvironment = MakeObject<ov::Environment>();
    BeginRecord();
    mEnvironmentSink = MakeObject<EnvironmentSink>(*this);
    mEnvironmentCookie = mEnvironment->Advise(mEnvironmentSink->Dispatch());
}

Module::~Module() {
    mEnvironmentSink->Forget();
    mEnvironment->Unadvise(mEnvironmentCookie);
}

bool Module::SetSourcePath(const Text& sourcepath) {
    if (sourcepath == mSourcePath) return true;
    const Ref<Module> alive = this;
    if (!mModuleType.empty()) DropTree();
    mDB = nullptr;
    mSourcePath = sourcepath;
    mDBVersion = Text();
    mModelVersionIndex = 0;
    return true;
}

void Module::OpenDatabaseOfSourcePath() {
    if (mDB || mSourcePath.empty()) return;
    if (mSourcePath[0] == u'.') mSourcePath = LibraryFolder() + u"\\" + mSourcePath;
    mDB = DatabaseCache(mSourcePath);
}

Text Module::GetDllPath() {
    if (mDllPathCache.empty()) {
        const Text own = LibraryFolder();
        const Text bin = own + u"\\..\\bin";
        mDllPathCache = file_system::FolderExists(bin) ? bin : own;
    }
    return mDllPathCache;
}

Text Module::GetDBPath() {
    Text folder = file_system::GetParentFolderName(mSourcePath);
    const std::u16string_view view = folder.view();
    if (view.ends_with(u"\\.") || view.ends_with(u"/.")) folder = view.substr(0, view.size() - 2);
    return folder;
}

Variant Module::GetDBVersion() {
    if (!mDBVersion.empty()) return mDBVersion;
    if (mSourcePath.empty()) return u"-";
    try {
        mDBVersion = u"-";
        OpenDatabaseOfSourcePath();
        if (!mDB) return mDBVersion;
        const Text engine = u" (MS JET: " + mDB->Version() + u")";
        mDBVersion = u"-" + engine;
        const Ref<Recordset> properties = GetRecordset(u"DatabaseProperties");
        properties->let_Index(u"PrimaryKey");
        properties->Seek(u"=", std::array{Variant(u"Version")});
        mDBVersion = ToText(Concatenate(FieldValue(*properties, u"Value"), engine));
        properties->Seek(u"=", std::array{Variant(u"ModelVersionIndex")});
        if (properties->NoMatch()) return mDBVersion;
        try {
            mModelVersionIndex = ToLong(FieldValue(*properties, u"Value"));
        } catch (const RuntimeError& error) {
            mModelVersionIndex = 0;
            EndWithLog(u"GetDBVersion(): ERROR when retrieving 'ModelVersionIndex': ", error.description());
        }
    } catch (const RuntimeError&) {
        // What was found so far is the answer.
    }
    return mDBVersion;
}

std::int32_t Module::GetModelVersionIndex() {
    if (mDBVersion.empty()) GetDBVersion();
    return mModelVersionIndex;
}

Ref<Recordset> Module::GetRecordset(const Text& table) {
    if (!mDB) Raise(ErrorNumber::ObjectVariableNotSet);
    Ref<Recordset> recordset = RecordSetCache(mDB.get(), table);
    if (!recordset) Raise(ErrorNumber::ObjectVariableNotSet);
    return recordset;
}

bool Module::SetLanguage(std::int32_t languageId) {
    const std::int32_t language = PrimaryLanguage(languageId);
    if (mModuleTypeIdx < 1) {
        mLanguage = language;
        return true;
    }
    const bool supported = std::ranges::any_of(mFdtInfo.supportedLanguages, [language](const Text& entry) {
        return PrimaryLanguage(ToLong(entry)) == language;
    });
    if (!supported) return false;
    mLanguage = language;
    const Ref<Module> alive = this;
    mRecord->ForgetAll();
    try {
        mModuleCallbacks.Tell([this](IBase_CallbackModule& listener) { listener.OnLanguageChanged(this); });
        if (const Ref<Station> station = mStation) station->OnLanguageChanged(this);
    } catch (const RuntimeError&) {
        EndWithLog(u"SetLanguage(" + Text::FromInteger(languageId) + u"): ERROR: ONCALLBACKFAILED: ",
                   u"Aufruf der 'OnLanguageChanged' callbacks schiefgegangen!");
    }
    return true;
}

bool Module::Load(const Text& moduletype, const std::optional<Text>& moduleid, const std::optional<Text>& modulename) {
    const Ref<Module> alive = this;
    GlobalDiagnostics().debugCountEval = 0;
    ++GlobalDiagnostics().countBegun;
    mLoadFailure = Text();
    OpenDatabaseOfSourcePath();
    if (!mDB) {
        EndWithLog(u"Load(): ERROR: Could not load database ", mSourcePath);
        return false;
    }
    // Who asked for channels before there was a type has made an empty tree, which is not the new type's either.
    if (!mModuleType.empty() || mSpecChannels) DropTree();
    const Ref<Recordset> types = OpenModuleTypes();
    if (!types) return false;
    bool loaded = false;
    try {
        loaded = TakeType(*types, moduletype, moduleid.value_or(Text()), modulename.value_or(Text()));
    } catch (const RuntimeError& error) {
        mLoadFailure = error.description();
    }
    // The line of a type that is unknown ends behind the blank.
    if (!loaded) EndWithLog(u"Load(): ERROR when loading type: ", mLoadFailure);
    return loaded;
}

Ref<Recordset> Module::OpenModuleTypes() {
    try {
        if (!mDB) Raise(ErrorNumber::ObjectVariableNotSet);  // taken away while the former tree went
        return mDB->OpenRecordset(u"ModuleTypes", RecordsetType::dbOpenTable);
    } catch (const RuntimeError& error) {
        mLoadFailure = error.description();
        EndWithLog(u"Load(): ERROR: Could not open Recordset 'ModuleTypes': ", mLoadFailure);
        return nullptr;
    }
}

// Answers false if there is no such type; a type that is not enabled is as absent.
bool Module::TakeType(Recordset& types, const Text& moduletype, const Text& moduleid, const Text& modulename) {
    const bool hasEnable = FieldExists(types, u"enable");
    while (!types.Eof()) {
        const bool enabled = !hasEnable || EqualValues(FieldValue(types, u"enable"), Variant(true));
        if (enabled && EqualValues(FieldValue(types, u"moduletype"), Variant(moduletype))) break;
        types.MoveNext();
    }
    if (types.Eof()) return false;

    mDesc = RowToCollection(types);
    types.Close();
    mId = moduleid;
    mName = modulename;
    mNameTextIdx = mName.empty() ? ToLong(NullToDefault(mDesc->Get(u"defaultName"), Variant(0))) : 0;
    mMainValuePath = ToText(NullToDefault(mDesc->Get(u"mainValue"), Variant(u"")));
    mImage = ToText(NullToDefault(mDesc->Get(u"ModuleImage"), Variant(u"")));
    if (!mImage.empty()) mImage = PermittedFile(file_system::BuildPath(GetDBPath(), mImage), GetDBPath());
    return LoadModuleType();
}

void Module::DropTree() {
    // What is told of its end may load this module again.
    while (mSpecChannels) {
        TearDownChannels();
    }
    mModuleTypeIdx = 0;
    mModuleType = Text();
    mName = Text();
    mId = Text();
}

// Ends the channels, each with all that is below it, and then the lists. Until then the lists stay in sight: the end of
// a listener or of a script's object may ask for them, and must not build another tree of the type that goes.
void Module::TearDownChannels() {
    mMainValue = nullptr;
    const Ref<TypedList<IBase_SpecChannel>> channels = mSpecChannels;
    if (!channels) return;
    for (const Ref<Channel>& channel : std::exchange(mMadeChannels, {})) {
        channel->Unload();
    }
    channels->Clear();
    mMainValue = nullptr;
    if (mSpecChannels != channels) return;  // loaded again meanwhile
    mSpecChannels = nullptr;
    mGuiChannels = nullptr;
    BeginRecord();
}

void Module::BeginRecord() {
    mRecord = std::make_shared<RuleRecord>();
    mEnvironment->KeepRecord(mRecord);
}

bool Module::LoadChannels() {
    if (mSpecChannels) return true;
    Traces::Leave(Unrepeatable::Load);
    try {
        ReadChannels();
        return true;
    } catch (const RuntimeError& error) {
        // What was built so far stays, and the next call counts it as loaded: a failed load does not retry.
        EndWithLog(u"LoadChannels(): Error: ", error.description());
        return false;
    }
}

void Module::ReadChannels() {
    mSpecChannels = MakeObject<TypedList<IBase_SpecChannel>>();
    mGuiChannels = MakeObject<TypedList<IBase_GuiChannel>>();
    mGuiChannels->SetUnderlying(mSpecChannels->Underlying());
    mSpecChannels->KeepRecord(mRecord);
    mGuiChannels->KeepRecord(mRecord);
    if (!mDB) Raise(ErrorNumber::ObjectVariableNotSet);
    // The key is the number of the type, not its name.
    const std::shared_ptr<const RowSet> rows = SharedDescriptor::Of(*mDB).Rows(
        u"SELECT * FROM Channels WHERE ModuleType = " + Text::FromInteger(mModuleTypeIdx) + u" ORDER BY [order]");
    for (const Ref<const ov::Row>& row : rows->rows) {
        const Ref<Channel> channel = MakeObject<Channel>();
        channel->Config(this, row);
        mMadeChannels.push_back(channel);
        mSpecChannels->Enter(channel.get(), ToText(channel->Id()));
    }
}

void Module::Unload() {
    // A listener may unload the module that it is told of, or let go of what unloads it.
    if ((!mDB && !mStation) || mUnloading) return;
    const Ref<Module> alive = this;
    const Underway unloading(mUnloading);
    EndWithLog(u"Unload(): gDebugCountEval = ", Text::FromInteger(GlobalDiagnostics().debugCountEval));
    mModuleCallbacks.Tell([this](IBase_CallbackModule& listener) {
        try {
            listener.OnUnload(this);
        } catch (const RuntimeError&) {
            // A listener that fails does not keep the module.
        }
    });
    if (const Ref<Station> station = mStation) station->OnUnload(this);
    mParameterCallbacks.Clear();
    mModuleCallbacks.Clear();
    mImExport = nullptr;
    mEnumCache.Clear();
    mTexts = nullptr;
    mFiles = nullptr;
    mFileNames.clear();
    TearDownChannels();
    mParameterCallbacks.Clear();  // who registered while the tree went is not kept
    mModuleCallbacks.Clear();
    mStation = nullptr;
    mDB = nullptr;  // the database itself stays open for the next module
    DropTree();
    if (mDesc) mDesc->Clear();
}

Ref<CBase_Unload> Module::GetUnloadPointer() {
    return MakeObject<UnloadPointer>(static_cast<CBase_Module*>(this));
}

void Module::EndWithLog(std::u16string_view message, const Text& detail) {
    if (DebugOutput()) LogEntry(Dispatch(), Text(message), detail);
}

}  // namespace ov
