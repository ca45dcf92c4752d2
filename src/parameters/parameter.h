/// @file
/// What the eight parameter classes have in common.
///
/// | layer                           | adds                                                                       |
/// |---------------------------------|----------------------------------------------------------------------------|
/// | `Parameter`                     | row, group, marks, listeners, texts, actions; the order of a configuration |
/// |                                 | and of a check                                                             |
/// | `TypedParameter<T>`             | the value as a T; both ways of writing it; default, reset, comparison      |
/// | `ScaledParameter<T>`            | numbers: gain and offset, limits, the text for files                       |
/// | `IntegerParameter<T>`           | whole numbers: width and sign, display forms                               |
/// | `ListedNumber`                  | a Long without width of its own, with limits that a list may give          |
/// | `TextParameter`                 | texts: limits of their length                                              |
/// | `ListParameter<T, Base>`        | a value of a list; on `ListedNumber` or `TextParameter`                    |
/// | `EnumerationParameter<T, Base>` | the list comes through the module's cache; states, icons, fallback texts   |
/// | a final class                   | what is its own; the transfers with a device image by `ImageTransfers`     |
///
/// Rules, listeners and the dependency sweep run any code, which may write this parameter, unload its tree or let go of
/// it. So an operation that runs them holds the parameter while it lasts, and asks for row and group anew after each.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <variant>

#include "contract/callbacks.h"
#include "contract/explain.h"
#include "contract/group.h"
#include "contract/internal.h"
#include "contract/parameter.h"
#include "parameters/device_image.h"
#include "parameters/param_dependency.h"
#include "parameters/parameter_owner.h"
#include "parameters/row_form.h"
#include "parameters/value_type.h"
#include "platform/automation/callback_list.h"
#include "platform/automation/errors.h"
#include "record/recording.h"

namespace ov {

/// `value` and `group` have one name and two types in the parameter's faces; these facets part them.
class GuiParameterFacet : public Facet<IBase_GuiParameter> {
public:
    Text get_value() final { return ShownValue(); }
    void let_value(const Text& value) final { WriteByUser(value); }
    Ref<IBase_GuiGroup> group() final { return GuiGroup(); }

protected:
    virtual Text ShownValue() = 0;
    virtual void WriteByUser(const Text& text) = 0;
    virtual Ref<IBase_GuiGroup> GuiGroup() = 0;
};

/// The same for the engine. Set acts as let.
class SpecParameterFacet : public Facet<IBase_SpecParameter> {
public:
    Variant get_value() final { return EngineValue(); }
    void let_value(const Variant& value) final { WriteByEngine(value); }
    void set_value(const Variant& value) final { WriteByEngine(value); }
    void set_realvalue(const Variant& value) final { let_realvalue(value); }
    void set_tag(const Variant& value) final { let_tag(value); }
    Ref<IBase_SpecGroup> group() final { return SpecGroup(); }

protected:
    virtual Variant EngineValue() = 0;
    virtual void WriteByEngine(const Variant& value) = 0;
    virtual Ref<IBase_SpecGroup> SpecGroup() = 0;
};

/// The part of a parameter that knows nothing of the value's type.
class Parameter : public FacetGroup<GuiParameterFacet, SpecParameterFacet, Facet<IBase_SpecParameterStorage>,
                                    Facet<IBase_Internal>, Facet<IExplain_Parameter>> {
    using Facets = FacetGroup<GuiParameterFacet, SpecParameterFacet, Facet<IBase_SpecParameterStorage>,
                              Facet<IBase_Internal>, Facet<IExplain_Parameter>>;
    static constexpr Guid kOwn = Guid::Parse("{0F6C2C4E-7B8D-4B0E-9B55-6D2F6C1F4A0B}");  // no facet: who it is

public:
    // IBase_GuiParameter; `id`, `configState` and `scriptAccess` serve the other faces too.
    eEditType editType() override { return eEditType::standard; }
    Ref<ICollection> editValues() override { return nullptr; }
    eParameterConfigState configState() override { return mConfigState; }
    void ClearModified() override;
    bool unknown() override { return mUnknown; }
    void SetUnknown() override { SetUnknownTo(true); }
    void ClearUnknown() override { SetUnknownTo(false); }
    void LockDataset() override { SetDatasetLocked(true); }
    void UnlockDataset() override { SetDatasetLocked(false); }
    Text name() override { return TranslatedText(u"name"); }
    bool editable() override;
    Text description() override { return TranslatedText(u"description"); }
    Text unit() override;
    Text EditPlugin(Text* args) override;
    bool expertOnly() override;
    eParameterAuthentification authentification() override;
    bool trendVariable() override;
    Text html() override;
    Text error() override;
    Variant id() override { return mId; }
    void RegisterCallback(IBase_CallbackParameter* cb) override;
    void UnregisterCallback(IBase_CallbackParameter* cb) override;
    Ref<IBase_SpecParameter> Spec() override { return this; }

    // IBase_SpecParameter
    Variant get_tag() override { return mHosts ? mHosts->tag : Variant(); }
    void let_tag(const Variant& value) override { HostsThings().tag = value; }
    Variant desc(const Text& fieldname, std::optional<bool> asScript) override;
    eParameterKind kind() override { return mKind; }
    bool valid() override { return mConfigState == eParameterConfigState::eParameterValid; }
    eParameterDirection direction() override;
    Ref<IBase_SpecParameter> Clone() override { return nullptr; }
    Ref<IBase_GuiParameter> Gui() override { return this; }
    bool scriptAccess() override { return mScriptAccess; }

    // IBase_Internal
    eParameterConfigState get_configState() override { return mConfigState; }
    void let_configState(eParameterConfigState value) override;
    bool get_scriptAccess() override { return mScriptAccess; }
    void let_scriptAccess(bool value) override;
    bool CheckConsistency() override;
    bool Config(IDispatch* parent, const Variant& desc) override;
    std::int32_t DBindex() override { return mDBindex; }
    Ref<CBase_ParamDependency> dependencies() override { return &Ring(); }
    void Unload() override;
    Variant CheckNeedForReConfig() override { return false; }

    // IExplain_Parameter
    Text path() override;
    Text writtenBy() override;
    Ref<ICollection> rules() override;
    Ref<ICollection> readers() override;
    Text refusal() override;
    Text refusedBy() override;
    Ref<ICollection> remedies() override;
    /// The text of the row in force in a column that may hold a rule; "" for none.
    Text RuleText(RuleColumn column);
    /// The module, or Nothing where the chain up to it is not whole.
    Ref<ModuleServices> ServingModule() const { return Module(); }

    /// The place in the record of the tree.
    RuleTrace& Trace() noexcept { return mTrace; }
    /// The parameter that @p internal is, if it is one of our classes, or nullptr; quicker than a cast.
    static Parameter* Of(IBase_Internal& internal) noexcept;
    void* FindFacet(const Guid& iid) noexcept { return iid == kOwn ? this : Facets::FindFacet(iid); }

    /// Takes @p row as `Config` does.
    bool TakeRow(const Ref<ParameterOwner>& owner, const Ref<Collection>& row);
    /// The ring of alternative rows. Most parameters have one row, and need no ring until somebody asks for it.
    ParamDependency& Ring();
    /// Whether there is the one row alone, and no ring.
    bool IsAlone() const noexcept { return !mRing && mSoleRow != SoleRow::None; }
    /// All rows are there: the first one is current.
    void BeginRing();
    /// The current entry of the ring of a parameter that is alone.
    struct SoleEntry {
        const Text& rule;
        std::int32_t index;
        bool goesAway;
        const Ref<Collection>& row;  ///< Nothing once the tree has ended
    };
    /// @pre IsAlone()
    SoleEntry CurrentRow() noexcept {
        mSoleRow = SoleRow::Current;
        return {mSoleRule, mDBindex, mGoesAway, mData};
    }
    /// The number of the current row, from 1 on; 0 before the first look at it.
    std::uint8_t Alternative() noexcept {
        return mRing ? mRing->Place() : mSoleRow == SoleRow::Current ? std::uint8_t{1} : std::uint8_t{0};
    }
    /// What an import that failed leaves.
    virtual void TakeImportFault() { WriteState(eParameterValueExt::eParamValueExtErrorSettingValue); }

protected:
    Parameter() = default;
    ~Parameter();

    /// How far a parameter has come; decides whether a repeated configuration may put the default in.
    enum class LoadState : std::uint8_t { NeverConfigured, HoldsDefault, Written };
    /// Who wrote the value.
    enum class Writer : std::uint8_t { Default, User, Engine, Rule };
    /// What a text is made or read for, as log lines name it.
    enum class Purpose : std::uint8_t { Show, Write, Test, Format };

    // What a class adds to the configuration, in this order.
    virtual void ReadType() = 0;           ///< `subtype` and the limits that follow from it
    virtual void ReadDisplayFormat() = 0;  ///< `displayFormat`
    virtual void ReadList() {}             ///< the list of a class that has one
    virtual void SetMyValueToDefault() = 0;
    virtual void KeepWrittenValue() {}  ///< instead of the default, where the value was written

    /// Gain and offset between the display view and the device view.
    struct Scale {
        double gain = 1;
        double offset = 0;
        friend bool operator==(const Scale&, const Scale&) = default;
    };
    /// Limits in the class's own type.
    struct Limits {
        std::variant<std::int32_t, double, Decimal> min, max;
        friend bool operator==(const Limits&, const Limits&) = default;
    };
    /// What a check tells of where it is not at the end as it was at the begin.
    struct Terms {
        Scale scale;
        Limits limits;
        Text unit;
    };

    // What a class adds to the check, in this order.
    virtual Scale CurrentScale() const { return {}; }
    virtual void RefreshScale() {}
    virtual Limits CurrentLimits() const = 0;
    virtual void CheckLimits(bool& passes) = 0;  ///< settles the limits
    virtual bool StateMayPass() { return mValueExt == eParameterValueExt::eParamValueExtNormalValue; }
    /// Whether the rule is asked; by what was tested before it.
    virtual bool IsRuleDue(bool passes) const { return passes; }
    virtual bool PassesRule() = 0;  ///< the column `consistency` for the value held
    virtual void CheckFurther(bool& /*passes*/, const Terms& /*former*/) {}

    virtual void SaveValue() = 0;  ///< takes the value for unmodified
    virtual Text DisplayedValue() = 0;
    virtual Text ValueText() = 0;  ///< the value in messages
    /// Unit texts follow the module's language at their next read.
    virtual void RefreshUnitForLanguage();

    Text ShownValue() override;
    Ref<IBase_GuiGroup> GuiGroup() override { return facet<IBase_GuiGroup>(mGroup); }
    Ref<IBase_SpecGroup> SpecGroup() override { return facet<IBase_SpecGroup>(mGroup); }

    /// What the configuration knows of the row. It holds while the row is as it was read.
    struct RowFacts {
        bool hasNoRule = false;      ///< column `consistency`
        bool hasNoAction = false;    ///< column `actionOnChange`
        bool hasFixedScale = false;  ///< gain and offset are numbers, and in force
    };
    bool Knows(bool RowFacts::*fact) const noexcept { return mFacts.*fact && mData && mData->IsRow(); }
    /// Whether a reader makes the same of the cell every time, without a word.
    bool IsFixedCell(RowCell cell) const;

    // Row and group. Held by the caller while it works with them, since any script may unload the tree.
    Ref<Collection> Row() const;                     ///< @throws RuntimeError 91 without a row
    Ref<ParameterOwner> Owner() const;               ///< @throws RuntimeError 91 once unloaded
    Ref<ModuleServices> Module() const;              ///< Nothing if the chain up to it is not whole
    Variant Cell(std::u16string_view column) const;  ///< @throws RuntimeError 5 for a missing column
    Variant Cell(RowCell cell) const;                ///< @throws the same
    /// @p fallback for Null, and for a column that the table lacks.
    Variant CellOr(std::u16string_view column, const Variant& fallback) const;
    Variant CellOr(RowCell cell, const Variant& fallback) const;
    /// The cell as text, numbers with "."; "" for Null.
    Text CellText(std::u16string_view column) const;
    Text CellText(RowCell cell) const;
    /// A cell that may be a rule, evaluated.
    Variant EvaluatedCell(RuleColumn column, VarType type);

    // Events. An event goes to the listeners in their order, then to the group; the first error ends the round.
    using Event = void (IBase_CallbackParameter::*)(IBase_GuiParameter*);
    static constexpr Event kReconfigured = &IBase_CallbackParameter::OnParameterReconfigured;
    static constexpr Event kStateChanged = &IBase_CallbackParameter::OnParameterStateChanged;
    static constexpr Event kValueChanged = &IBase_CallbackParameter::OnParameterValueChanged;
    static constexpr Event kConfigStateChanged = &IBase_CallbackParameter::OnParameterConfigStateChanged;
    void Notify(Event event);

    /// Keeps the parameter alive for the scope of an operation that runs foreign code.
    [[nodiscard]] Ref<IBase_GuiParameter> KeptAlive() { return this; }
    /// A write counts from the first configuration on.
    void MarkWritten() noexcept {
        if (mLoadState == LoadState::HoldsDefault) mLoadState = LoadState::Written;
    }
    /// `Property_valueExt`: the engine's way to say a state without a number.
    void WriteState(eParameterValueExt state);
    /// Makes @p passes False and adds @p reason to mErrorText.
    void Refuse(bool& passes, const Text& reason, std::optional<RuleColumn> by = {});
    /// Evaluates @p script, the text of the limit @p column, into @p limit unless it is settled, and answers whether
    /// there is a limit to be tested. An empty @p settledMark leaves the limit of the type in force where the column
    /// says nothing. A rule may let the parameter take another row: then its answer is of no use, and the new row's
    /// limit stands.
    template <class Limit>
    bool SettleLimit(RuleColumn column, Text& script, Limit& limit, const Text& settledMark);
    /// The text becomes @p replacement unless it is a live script.
    static void ForgetStatic(ParameterOwner& owner, Text& text, const Text& replacement);
    /// The rule of the column `consistency`; "" if there is none.
    Text ConsistencyRule() const;
    /// Evaluates a rule; a failure is logged and counts as False.
    bool EvaluateRule(const Text& script);
    /// Runs the action that the descriptor has for a value, which is given by its text.
    void RunActionOnChange();

    // Log lines have the parameter as source.
    void Log(const Text& message);
    void LogWithId(const Text& message);  ///< behind "(ParamId ID) "
    void LogFailedImport(const DeviceImage& image, const RuntimeError& failure);

private:
    Ref<Collection> RowOf(ParameterOwner& parent, const Variant& desc);
    void ConfigureFirst();
    void FetchUnit(ModuleServices* module);
    bool HaveMoved(const Terms& former) const;
    Text TranslatedText(const char16_t* column) const;
    bool IsBlankCell(RowCell cell) const;
    Text CurrentUnit();
    Ref<Collection> LoadActionTable(const Text& key);
    /// What the log tells of an action table that cannot be read.
    virtual Text ActionFault(const RuntimeError& failure) const;
    void ReadActions(const Text& key, Collection& actions);
    void SetUnknownTo(bool unknown);
    void SetDatasetLocked(bool locked);
    IDispatch* Identity() { return static_cast<IBase_GuiParameter*>(this); }

    /// What hosts have left here.
    struct HostThings {
        Variant tag;
        CallbackList<IBase_CallbackParameter> callbacks;
    };
    HostThings& HostsThings();

    std::unique_ptr<HostThings> mHosts;  // made when a host leaves something
    eParameterKind mKind{};
    eParameterConfigState mConfigState = eParameterConfigState::eParameterValid;

protected:
    Ref<Collection> mData;
    Ref<ParameterOwner> mGroup;
    RuleTrace mTrace;                                 // left before the group is let go, which keeps the record
    IBase_CallbackParameter* mGroupEvents = nullptr;  // of mGroup, which keeps it
    Variant mId;
    Text mMinScript, mMaxScript;  // "" or the mark of the class once the limit is settled
    Text mUnit, mUnitScript;
    Text mErrorText;  // why the last check or edit failed
    std::int32_t mDBindex = 0;
    std::int32_t mLanguage = 0;  // of mUnitScript
    // Last, so that they lie beside the value: the transfer of an image touches no more.
    eParameterValueExt mSavedValueExt = eParameterValueExt::eParamValueExtNormalValue;
    eParameterValueExt mValueExt = eParameterValueExt::eParamValueExtNormalValue;
    LoadState mLoadState = LoadState::NeverConfigured;
    bool mConsistent = false;
    bool mUnknown = false;
    Writer mWriter = Writer::Default;
    std::optional<RuleColumn> mRefusedBy;  // the first limit or rule that mErrorText tells of
    RowFacts mFacts;

private:
    /// Of a parameter without ring.
    enum class SoleRow : std::uint8_t { None, Waiting, Current };

    bool mScriptAccess = false;
    bool mDatasetLocked = false;
    SoleRow mSoleRow = SoleRow::None;
    bool mGoesAway = false;  // column `removeOnDependency` of the sole row
    Text mSoleRule;          // column `dependency`
    Ref<ParamDependency> mRing;
};

template <class Limit>
bool Parameter::SettleLimit(RuleColumn column, Text& script, Limit& limit, const Text& settledMark) {
    if (!script.empty() && script != settledMark) {
        const Ref<ParameterOwner> owner = Owner();
        const Ref<Collection> row = mData;
        const Text text = script;  // a configuration that the rule causes must not change it meanwhile
        const Limit value = [&] {
            Recording recording(mTrace, column);
            return recording.Keep(ValueType<Limit>::FromScript(*owner, text, mId));
        }();
        if (mData == row) {
            limit = value;
            ForgetStatic(*owner, script, settledMark);
        }
    }
    return settledMark.empty() || !script.empty();
}

}  // namespace ov
