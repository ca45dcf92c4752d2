// How a parameter takes a row of the descriptor, and how the row is read.
#include "contract/records.h"
#include "descriptor/parameter_kind.h"
#include "descriptor/row_collection.h"
#include "parameters/parameter.h"
#include "platform/automation/conversions.h"
#include "platform/automation/record.h"

namespace ov {

bool Parameter::Config(IDispatch* parent, const Variant& desc) {
    const Ref<ParameterOwner> owner = facet<ParameterOwner>(parent);
    if (!owner) return false;
    const Ref<Collection> row = RowOf(*owner, desc);
    return row && TakeRow(owner, row);
}

bool Parameter::TakeRow(const Ref<ParameterOwner>& owner, const Ref<Collection>& row) {
    const Ref<IBase_GuiParameter> alive = KeptAlive();

    if (IsAlone() && row != mData) Ring();  // which keeps the row that goes
    mData = row;
    mFacts = {};
    mTrace.Enter(owner->Record(), Identity());  // while the group that it leaves still holds the former record
    mGroup = owner;
    mTrace.ForgetRow();
    mTrace.NoteReconfiguration();
    mGroupEvents = facet<IBase_CallbackParameter>(owner).get();
    mDBindex = ToLong(Cell(RowCell::Idx));
    mTrace.TakeRow(mDBindex);
    if (mLoadState == LoadState::NeverConfigured)
        mId = Cell(RowCell::ParameterId);  // log lines of all that follows name it
    ReadType();
    mMinScript = CellText(RowCell::Min);
    mMaxScript = CellText(RowCell::Max);
    mFacts.hasNoRule = IsBlankCell(RowCell::Consistency);
    mFacts.hasNoAction = IsBlankCell(RowCell::ActionOnChange);
    ReadDisplayFormat();
    FetchUnit(owner->Module().get());
    ReadList();
    if (mLoadState == LoadState::NeverConfigured) ConfigureFirst();
    if (mLoadState == LoadState::Written) {
        KeepWrittenValue();
    } else {
        SetMyValueToDefault();
        SaveValue();
    }
    mTrace.NoteReconfiguration();  // scripts that ran meanwhile may have read what was half done
    if (mLoadState != LoadState::NeverConfigured) {
        Notify(kReconfigured);
    } else {
        mLoadState = LoadState::HoldsDefault;
    }
    return true;
}

void Parameter::ConfigureFirst() {
    const bool goesAway = ToBoolean(CellOr(RowCell::RemoveOnDependency, false));
    const Text rule = CellText(RowCell::Dependency);
    if (mRing) {
        mRing->Add(mDBindex, rule, goesAway, mData.get());
    } else {
        mSoleRow = SoleRow::Waiting;
        mSoleRule = rule;
        mGoesAway = goesAway;
    }
    mKind = KindToBit(ToLong(Cell(RowCell::Kind)));
    mConfigState = eParameterConfigState::eParameterValid;
    mConsistent = true;
    mUnknown = true;
}

Ref<Collection> Parameter::RowOf(ParameterOwner& parent, const Variant& desc) {
    if (const auto* position = RecordOf<tBaseDescriptorDB>(desc)) {
        if (!position->rs) return nullptr;
        const bool held = mGroup == &parent && ToLong(FieldValue(*position->rs, u"idx")) == mDBindex;
        return held ? nullptr : RowToCollection(*position->rs);
    }
    return desc.IsObject() ? Ref<Collection>(dynamic_cast<Collection*>(desc.AsObject())) : nullptr;
}

void Parameter::FetchUnit(ModuleServices* module) {
    if (!module) return;
    Traces::Leave(Unrepeatable::Change);
    mLanguage = module->GetLanguage();
    mUnitScript = module->GetTranslatedText(ToLong(CellOr(RowCell::Unit, 0)));
}

void Parameter::RefreshUnitForLanguage() {
    const Ref<ModuleServices> module = Module();
    if (module && module->GetLanguage() != mLanguage) FetchUnit(module.get());
}

void Parameter::Unload() {
    const Ref<IBase_GuiParameter> alive = KeptAlive();
    if (mHosts) mHosts->callbacks.Clear();
    // The row goes empty and not only away: the ring shares it.
    if (const Ref<Collection> row = std::exchange(mData, nullptr)) row->Clear();
    mTrace.Leave();
    mGroup = nullptr;
    mGroupEvents = nullptr;
    if (mHosts) mHosts->tag = Variant();
}

Parameter::~Parameter() {
    if (mRing) mRing->Serve(nullptr);
    mTrace.Leave();
}

Parameter* Parameter::Of(IBase_Internal& internal) noexcept {
    auto* own = static_cast<Parameter*>(internal.QueryInterface(kOwn));
    if (own) internal.Release();  // its caller holds it
    return own;
}

ParamDependency& Parameter::Ring() {
    if (!mRing) {
        mRing = MakeObject<ParamDependency>();
        if (mSoleRow != SoleRow::None) {
            const Ref<Collection> row = mData ? mData : MakeObject<Collection>();
            mRing->Add(mDBindex, mSoleRule, mGoesAway, row.get());
            if (mSoleRow == SoleRow::Current) mRing->MoveFirst();
            mSoleRule = Text();
        }
        mRing->Serve(&mTrace);
    }
    return *mRing;
}

void Parameter::BeginRing() {
    if (mRing) return mRing->MoveFirst();
    mTrace.NoteToDo();
    if (mSoleRow != SoleRow::None) mSoleRow = SoleRow::Current;
}

Ref<Collection> Parameter::Row() const {
    if (!mData) Raise(ErrorNumber::ObjectVariableNotSet);
    return mData;
}

Ref<ParameterOwner> Parameter::Owner() const {
    if (!mGroup) Raise(ErrorNumber::ObjectVariableNotSet);
    return mGroup;
}

Ref<ModuleServices> Parameter::Module() const {
    return mGroup ? mGroup->Module() : nullptr;
}

Variant Parameter::Cell(std::u16string_view column) const {
    return Row()->Get(column);
}

Variant Parameter::Cell(RowCell cell) const {
    const Variant* found = FindCell(*Row(), cell);
    if (!found) Raise(ErrorNumber::InvalidProcedureCall);
    return *found;
}

Variant Parameter::CellOr(RowCell cell, const Variant& fallback) const {
    const Variant* found = FindCell(*Row(), cell);
    return found ? NullToDefault(*found, fallback) : fallback;
}

Variant Parameter::CellOr(std::u16string_view column, const Variant& fallback) const {
    const Ref<Collection> row = Row();
    const Variant* cell = row->Find(column);
    return cell ? NullToDefault(*cell, fallback) : fallback;
}

bool Parameter::IsBlankCell(RowCell column) const {
    const Variant* cell = FindCell(*mData, column);
    return !cell || cell->IsNull() || (cell->IsString() && cell->AsText().empty());
}

bool Parameter::IsFixedCell(RowCell column) const {
    const Variant* cell = mData ? FindCell(*mData, column) : nullptr;
    if (!cell || cell->IsObject()) return false;
    return !cell->IsString() || (mGroup && mGroup->IsLiteral(cell->AsText()));
}

Text Parameter::CellText(std::u16string_view column) const {
    return ToInvariantText(CellOr(column, Text()));
}

Text Parameter::CellText(RowCell cell) const {
    const Variant* found = FindCell(*Row(), cell);
    return !found || found->IsNull() ? Text() : found->IsString() ? found->AsText() : ToInvariantText(*found);
}

Variant Parameter::EvaluatedCell(RuleColumn rule, VarType type) {
    const Ref<Collection> row = Row();
    const Ref<ParameterOwner> owner = Owner();
    // Short cut: most rows have no text here, and only a text can be a rule.
    if (const Variant* cell = FindCell(*row, CellOf(rule)); cell && !cell->IsString()) return *cell;
    const std::u16string_view column = ColumnName(rule);
    const std::uint32_t before = row->Changes();
    Recording recording(mTrace, rule);
    Variant value = recording.Keep(owner->GetParameterDescAsScript(column, *row, mId, type));
    if (row->Changes() != before) mTrace.NoteChange();  // a static script has given way to its result
    return value;
}

}  // namespace ov
