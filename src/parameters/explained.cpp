#include "parameters/explained.h"

#include <algorithm>
#include <array>
#include <vector>

#include "contract/channel.h"
#include "contract/group.h"
#include "contract/module.h"
#include "parameters/parameter.h"
#include "platform/automation/conversions.h"
#include "platform/automation/object.h"

namespace ov {

namespace {

constexpr std::size_t kMostTries = 200;  // listed values that are tried for a remedy

Text WordsFor(Unrepeatable why) {
    static constexpr std::array<std::u16string_view, 11> kWords = {
        u"",
        u"asks for the time",
        u"draws a random number",
        u"asks for the locale",
        u"runs beside variables or code of other scripts",
        u"uses an object of the host",
        u"fails, or has a line for the log",
        u"changes something",
        u"loads a part of the device",
        u"writes a parameter or a variable",
        u"uses a named script of the group",
    };
    return kWords[static_cast<std::size_t>(why)];
}

/// What was read, as it is now, or as it would help.
class ExplainedRead final : public Object<ExplainedRead, Facet<IExplain_Read>> {
public:
    static constexpr const char* kClassName = "Explain_Read";

    explicit ExplainedRead(Ref<IBase_GuiParameter> parameter)
        : mParameter(std::move(parameter)),
          mPath(PathOf(*mParameter)),
          mValue(mParameter->Spec()->get_value()),
          mShown(mParameter->get_value()) {}
    ExplainedRead(const Text& variable, const Variant& value)
        : mPath(u"ENV.Variable(\"" + variable + u"\")"), mValue(value), mShown(ToTextOrNothing(value)) {}
    /// A value that helps: @p parameter is of a copy of the device, @p original of the device itself.
    ExplainedRead(IBase_GuiParameter& parameter, Ref<IBase_GuiParameter> original) : ExplainedRead(&parameter) {
        mParameter = std::move(original);
    }

    Text path() override { return mPath; }
    Text name() override { return mParameter ? mParameter->name() : Text(); }
    Variant value() override { return mValue; }
    Text shown() override { return mShown; }
    Ref<IBase_GuiParameter> parameter() override { return mParameter; }

private:
    static Text ToTextOrNothing(const Variant& value) {
        try {
            return ToText(value);
        } catch (const RuntimeError&) {
            return Text();
        }
    }

    Ref<IBase_GuiParameter> mParameter;
    Text mPath;
    Variant mValue;
    Text mShown;
};

/// What is known of a rule at the moment of asking.
class ExplainedRule final : public Object<ExplainedRule, Facet<IExplain_Rule>> {
public:
    static constexpr const char* kClassName = "Explain_Rule";

    struct Facts {
        Text path, text;
        RuleColumn column{};
        std::int32_t row = 0;
        bool isInForce = false;
    };
    ExplainedRule(Facts facts, const RuleNote* note, Ref<ICollection> reads)
        : mFacts(std::move(facts)), mReads(std::move(reads)) {
        if (!note) return;
        mHasRun = true;
        mResult = note->result;
        mWhy = note->why;
    }

    Text path() override { return mFacts.path; }
    Text column() override { return ColumnName(mFacts.column); }
    std::int32_t row() override { return mFacts.row; }
    Text text() override { return mFacts.text; }
    bool isInForce() override { return mFacts.isInForce; }
    bool hasRun() override { return mHasRun; }
    Variant result() override { return mResult; }
    Text volatility() override { return WordsFor(mWhy); }
    Ref<ICollection> reads() override { return mReads; }

private:
    Facts mFacts;
    bool mHasRun = false;
    Variant mResult;
    Unrepeatable mWhy{};
    Ref<ICollection> mReads;
};

template <class Explained>
void Append(Collection& list, const Ref<Explained>& explained) {
    list.Append(Variant(static_cast<IDispatch*>(explained->Dispatch())));
}

Ref<ICollection> ReadsOf(RuleRecord& record, const RuleNote* note, ModuleServices* module) {
    const Ref<Collection> reads = MakeObject<Collection>();
    for (const RuleNote::Read& read : note ? note->Reads() : std::span<const RuleNote::Read>()) {
        const RuleRecord::Input& input = record.InputOf(read.input);
        if (const Ref<IBase_GuiParameter> parameter = facet<IBase_GuiParameter>(input.parameter)) {
            Append(*reads, MakeObject<ExplainedRead>(parameter));
        } else if (!input.variable.empty() && module) {
            Append(*reads,
                   MakeObject<ExplainedRead>(input.variable, module->Environment()->get_Variable(input.variable)));
        }
    }
    return reads;
}

const RuleNote* NoteFor(const RuleTrace& trace, RuleColumn column, std::uint8_t alternative) {
    const RuleNotes* notes = trace.Notes();
    if (!notes) return nullptr;
    const auto found = std::ranges::find_if(
        notes->notes, [&](const RuleNote& note) { return note.column == column && note.alternative == alternative; });
    return found == notes->notes.end() ? nullptr : &*found;
}

bool LooksLikeRule(const Text& text) {
    return text.view().starts_with(u"#:") || text.view().starts_with(u"!:");
}

/// Makes the objects for the rules of one parameter.
class Explainer {
public:
    explicit Explainer(Parameter& parameter)
        : mParameter(parameter), mPath(PathOf(parameter)), mModule(parameter.ServingModule()) {}

    Ref<ExplainedRule> Alternative(std::uint8_t place) {
        const ParamDependency::Entry& entry = mParameter.Ring().EntryAt(place);
        const bool isInForce = entry.idx == mParameter.DBindex() && mParameter.valid();
        return Rule({mPath, entry.dep, RuleColumn::Dependency, entry.idx, isInForce}, place);
    }
    Ref<ExplainedRule> OfRow(RuleColumn column) {
        return Rule({mPath, mParameter.RuleText(column), column, mParameter.DBindex(), mParameter.valid()}, 0);
    }

private:
    Ref<ExplainedRule> Rule(ExplainedRule::Facts facts, std::uint8_t alternative) {
        const RuleNote* note = NoteFor(mParameter.Trace(), facts.column, alternative);
        const Ref<ICollection> reads = note ? ReadsOf(*mParameter.Trace().Record(), note, mModule.get())
                                            : Ref<ICollection>(MakeObject<Collection>());
        return MakeObject<ExplainedRule>(std::move(facts), note, reads);
    }

    Parameter& mParameter;
    Text mPath;
    Ref<ModuleServices> mModule;
};

constexpr std::array kColumnsOfRow = {RuleColumn::RealGain,      RuleColumn::RealOffset,  RuleColumn::Min,
                                      RuleColumn::Max,           RuleColumn::Consistency, RuleColumn::Unit,
                                      RuleColumn::DisplayFormat, RuleColumn::DefaultValue};

Parameter* OwnParameter(IDispatch* object) {
    return dynamic_cast<Parameter*>(facet<IBase_GuiParameter>(object).get());
}

/// Every parameter that the rules of @p parameter read and that has a list, each once.
std::vector<Ref<IBase_GuiParameter>> ListsRead(Parameter& parameter) {
    std::vector<Ref<IBase_GuiParameter>> lists;
    const RuleNotes* const notes = parameter.Trace().Notes();
    for (const RuleNote& note : notes ? std::span<const RuleNote>(notes->notes) : std::span<const RuleNote>()) {
        if (note.column != RuleColumn::Dependency) continue;
        for (const RuleNote::Read& read : note.Reads()) {
            const auto list = facet<IBase_GuiParameter>(parameter.Trace().Record()->InputOf(read.input).parameter);
            if (list && list->editValues() && std::ranges::find(lists, list) == lists.end()) lists.push_back(list);
        }
    }
    return lists;
}

Ref<IBase_GuiParameter> TwinOf(IBase_GuiParameter& original, IBase_SpecModule& copy) {
    const Ref<IBase_GuiGroup> group = original.group();
    const Ref<IBase_GuiChannel> channel = group ? group->channel() : nullptr;
    const auto channels = channel ? copy.channels() : nullptr;
    const auto twinChannel = channels ? channels->get_Item(ToText(channel->id())) : nullptr;
    const auto groups = twinChannel ? twinChannel->groups() : nullptr;
    const auto twinGroup = groups ? groups->get_Item(ToText(group->id())) : nullptr;
    const auto parameters = twinGroup ? twinGroup->parameters() : nullptr;
    const auto twin = parameters ? parameters->get_Item(ToText(original.id())) : nullptr;
    return twin ? twin->Gui() : nullptr;
}

bool IsInForce(IBase_GuiParameter& parameter) {
    return parameter.configState() == eParameterConfigState::eParameterValid;
}

/// Tries the listed values of @p list, one after the other, in a copy of the device.
void TryList(const Ref<IBase_GuiParameter>& list, IBase_GuiParameter& wanted, IBase_SpecModule& copy,
             std::size_t& tries, Collection& remedies) {
    const Ref<IBase_GuiParameter> twin = TwinOf(*list, copy);
    if (!twin) return;
    const Text former = twin->get_value();
    const Ref<IEnumVariant> values = list->editValues()->NewEnum();
    for (Variant value; tries < kMostTries && values->Next(value);) {
        const Text text = ToText(value);
        if (text == former) continue;
        ++tries;
        twin->let_value(text);
        if (IsInForce(wanted)) Append(remedies, MakeObject<ExplainedRead>(*twin, list));
    }
    twin->let_value(former);
}

}  // namespace

Text PathOf(IBase_GuiParameter& parameter) {
    const Ref<IBase_GuiGroup> group = parameter.group();
    const Ref<IBase_GuiChannel> channel = group ? group->channel() : nullptr;
    if (!channel) return Text();
    return ToText(channel->id()) + u"/" + ToText(group->id()) + u"/" + ToText(parameter.id());
}

Ref<ICollection> ExplainRules(Parameter& parameter) {
    const Ref<Collection> rules = MakeObject<Collection>();
    Explainer explainer(parameter);
    for (std::size_t place = 1; place <= parameter.Ring().Size(); ++place) {
        if (parameter.Ring().EntryAt(place).dep.empty()) continue;
        Append(*rules, explainer.Alternative(static_cast<std::uint8_t>(place)));
    }
    for (const RuleColumn column : kColumnsOfRow) {
        if (NoteFor(parameter.Trace(), column, 0) || LooksLikeRule(parameter.RuleText(column))) {
            Append(*rules, explainer.OfRow(column));
        }
    }
    return rules;
}

Ref<ICollection> ExplainReaders(Parameter& parameter) {
    const Ref<Collection> readers = MakeObject<Collection>();
    const std::uint32_t input = parameter.Trace().InputNumber();
    if (!input) return readers;
    parameter.Trace().Record()->ForEachNotes([&](const RuleNotes& notes) {
        Parameter* const reader = notes.parameter ? OwnParameter(notes.parameter) : nullptr;
        if (!reader) return;
        Explainer explainer(*reader);
        for (const RuleNote& note : notes.notes) {
            if (std::ranges::find(note.Reads(), input, &RuleNote::Read::input) == note.Reads().end()) continue;
            Append(*readers, note.alternative ? explainer.Alternative(note.alternative) : explainer.OfRow(note.column));
        }
    });
    return readers;
}

Ref<ICollection> ExplainRemedies(Parameter& parameter) {
    const Ref<Collection> remedies = MakeObject<Collection>();
    if (parameter.valid()) return remedies;
    const std::vector<Ref<IBase_GuiParameter>> lists = ListsRead(parameter);
    const Ref<IBase_SpecModule> module = facet<IBase_SpecModule>(parameter.ServingModule());
    const Ref<IBase_SpecModule> copy = module && !lists.empty() ? module->Clone() : nullptr;
    const Ref<CBase_Module> base = facet<CBase_Module>(copy);
    if (!base) return remedies;
    struct End {
        CBase_Module& module;
        ~End() { module.Unload(); }
    } const end{*base};
    const Ref<IBase_GuiParameter> wanted = TwinOf(parameter, *copy);
    std::size_t tries = 0;
    for (const Ref<IBase_GuiParameter>& list : lists) {
        if (wanted && !IsInForce(*wanted)) TryList(list, *wanted, *copy, tries, *remedies);
    }
    return remedies;
}

}  // namespace ov
