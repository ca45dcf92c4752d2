/// @file
/// A parameter by itself: its row, a group and a module that answer from tables, and what it tells.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "contract/callbacks.h"
#include "contract/internal.h"
#include "contract/module.h"
#include "contract/parameter.h"
#include "contract/station.h"
#include "parameters/parameter_owner.h"
#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "support/diagnostics.h"
#include "support/scoped_settings.h"

namespace ov::testing {

/// What happened, in order: "A:Value" is the event OnParameterValueChanged at the listener A.
using Events = std::vector<std::string>;
using Cells = std::vector<std::pair<Text, Variant>>;

/// A module that has texts, a language and perhaps a database.
class FakeModule final : public Object<FakeModule, Facet<ModuleServices>, Facet<IBase_GuiModule>> {
public:
    static constexpr const char* kClassName = "FakeModule";

    Text GetTranslatedText(std::int32_t index) override {
        return index == 0 ? Text() : texts.contains(index) ? texts[index] : u"text " + Text::FromInteger(index);
    }
    Text GetTranslatedFile(std::int32_t index) override {
        return index == 0 ? Text() : u"file " + Text::FromInteger(index);
    }
    std::int32_t GetLanguage() override { return language; }
    std::int32_t GetModelVersionIndex() override { return generation; }
    std::int32_t GetModuleTypeIdx() override { return 2; }
    Text GetSourcePath() override { return u"/devices/device.db"; }
    Ref<Database> GetDB() override { return db; }
    Ref<CBase_Environment> Environment() override { return environment; }
    std::shared_ptr<CEnumCacheItem> EnumCacheGet(const Text& key) override { return enums.Get(key); }
    void EnumCacheSet(const Text& key, const std::shared_ptr<CEnumCacheItem>& item) override {
        if (!enums.Get(key)) enums.Set(key, item);
    }

    bool authentification() override { return asksForLogin; }
    Text name() override { return {}; }
    bool consistent(std::optional<eParameterKind>) override { return true; }
    Text image() override { return {}; }
    bool modified(std::optional<eParameterKind>) override { return false; }
    Variant id() override { return {}; }
    void ClearModified(std::optional<eParameterKind>) override {}
    bool unknown(std::optional<eParameterKind>) override { return false; }
    void SetUnknown(std::optional<eParameterKind>) override {}
    void LockDataset(std::optional<eParameterKind>) override {}
    void UnlockDataset(std::optional<eParameterKind>) override {}
    Ref<CBase_GuiChannelCollection> channels() override { return nullptr; }
    Ref<IBase_GuiStation> station() override { return nullptr; }
    Ref<IBase_GuiParameter> mainValue() override { return nullptr; }
    Text deviceHelpFile() override { return {}; }
    Text description() override { return {}; }
    void RegisterCallback(IDispatch*) override {}
    void UnregisterCallback(IDispatch*) override {}
    Ref<IBase_SpecModule> Spec() override { return nullptr; }
    Ref<CBase_Module> Base() override { return nullptr; }
    void ClearUnknown(std::optional<eParameterKind>) override {}
    void ResetValue(std::optional<eParameterKind>) override {}

    std::map<std::int32_t, Text> texts;
    std::int32_t language = 7;
    std::int32_t generation = 1;
    bool asksForLogin = true;
    Ref<Database> db;
    Ref<CBase_Environment> environment;
    EnumCache enums;
};

/// A listener that records events and may react to them.
class Recorder final : public Object<Recorder, Facet<IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "Recorder";
    using Reaction = std::function<void(const std::string& event)>;

    Recorder(std::string name, Events& events, Reaction reaction = {})
        : mName(std::move(name)), mEvents(events), mReaction(std::move(reaction)) {}
    void OnParameterReconfigured(IBase_GuiParameter*) override { Record("Reconfigured"); }
    void OnParameterStateChanged(IBase_GuiParameter*) override { Record("State"); }
    void OnParameterValueChanged(IBase_GuiParameter*) override { Record("Value"); }
    void OnParameterConfigStateChanged(IBase_GuiParameter*) override { Record("ConfigState"); }

private:
    void Record(const std::string& event) {
        mEvents.push_back(mName + ":" + event);
        if (mReaction) mReaction(event);
    }
    std::string mName;
    Events& mEvents;
    Reaction mReaction;
};

/// A group whose scripts are functions by their text; one that is not there fails.
class FakeGroup final : public Object<FakeGroup, Facet<ParameterOwner>, Facet<IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "FakeGroup";

    explicit FakeGroup(Events& log) : events(log) {}

    bool IsLiteral(const Text& text) override { return module->generation >= 1 && !IsScript(text); }
    Ref<ModuleServices> Module() override { return module; }
    Variant GetParameterDescAsScript(const Text& field, Collection& data, const Variant& id, VarType type) override {
        const Variant cell = data.Get(field);
        if (!cell.IsString()) return cell;
        Text text = cell.AsText();
        if (module->generation < 1) {
            if (type == VarType::Empty) return EvaluateRawScript(text, false, false);
            if (type == VarType::String) {
                GetStringValueFromScript(text, id);
                return text;
            }
            return type == VarType::Long ? Variant(GetLongFromScript(text, id)) : GetDoubleFromScript(text, id);
        }
        if (!IsScript(text)) return type == VarType::Double && text != u"QNAN" ? Variant(ValPrefix(text)) : text;
        const Variant result = EvaluateScriptOrLiteral(text, false);
        if (text[0] == u'#') {
            data.RemoveKey(field);
            data.TryAdd(field, result);
        }
        return result;
    }
    std::int32_t GetLongFromScript(const Text& text, const Variant&) override { return Read(text, ToLong); }
    Variant GetDecimalFromScript(const Text& text, const Variant&) override { return Read(text, ToDecimal); }
    double GetDoubleFromScript(const Text& text, const Variant&) override { return Read(text, ToDouble); }
    void GetStringValueFromScript(Text& text, const Variant&) override {
        if (IsScript(text)) text = ToText(EvaluateScriptOrLiteral(text, false));
    }
    void ForgetStaticScript(Text& text, const Text& replacement) override {
        const bool live = module->generation >= 1 ? text.view().starts_with(u"!:")
                                                  : text.view().find(u"(\"") != std::u16string_view::npos;
        if (!live) text = replacement;
    }
    Variant EvaluateRawScript(const Text& text, bool, bool) override {
        evaluated.push_back(text.ToUtf8());
        const auto script = scripts.find(text.ToUtf8());
        return script != scripts.end() ? script->second() : Variant();
    }
    Variant EvaluateScriptOrLiteral(const Text& text, bool silent) override {
        return IsScript(text) ? EvaluateRawScript(text.view().substr(2), silent, false) : Variant(text);
    }
    void ExecuteScript(const Text& statement) override { events.push_back("run " + statement.ToUtf8()); }
    void UpdateDependencies() override {
        events.push_back("dependencies");
        if (onUpdate) onUpdate();
    }

    void OnParameterReconfigured(IBase_GuiParameter*) override { events.push_back("group:Reconfigured"); }
    void OnParameterStateChanged(IBase_GuiParameter*) override { events.push_back("group:State"); }
    void OnParameterValueChanged(IBase_GuiParameter*) override { events.push_back("group:Value"); }
    void OnParameterConfigStateChanged(IBase_GuiParameter*) override { events.push_back("group:ConfigState"); }

    Ref<FakeModule> module = MakeObject<FakeModule>();
    std::map<std::string, std::function<Variant()>> scripts;
    Events evaluated;
    Events& events;
    std::function<void()> onUpdate;

private:
    static bool IsScript(const Text& text) { return text.view().starts_with(u"#:") || text.view().starts_with(u"!:"); }
    template <class T>
    T Read(const Text& text, T (*convert)(const Variant&)) {
        try {
            return convert(EvaluateScriptOrLiteral(text, false));
        } catch (const RuntimeError&) {
            if (module->generation >= 1) return T{};
        }
        return convert(EvaluateRawScript(text, false, false));
    }
};

/// The three parts of a test case that "|" divides.
inline std::array<Text, 3> Fields(const Text& line) {
    const std::size_t first = line.view().find(u'|'), second = line.view().find(u'|', first + 1);
    return {line.view().substr(0, first), line.view().substr(first + 1, second - first - 1),
            line.view().substr(second + 1)};
}

/// A row of table Parameters: idx 1, ParameterId "7", kind 2, editable; the other columns Null unless @p cells say
/// more.
inline Ref<Collection> MakeRow(const Cells& cells = {}) {
    std::vector<Text> names;
    for (const char16_t* name : {u"idx",
                                 u"ParameterId",
                                 u"Type",
                                 u"subtype",
                                 u"name",
                                 u"description",
                                 u"kind",
                                 u"direction",
                                 u"unit",
                                 u"Min",
                                 u"Max",
                                 u"DefaultValue",
                                 u"realGain",
                                 u"realOffset",
                                 u"displayFormat",
                                 u"consistency",
                                 u"actionOnChange",
                                 u"dependency",
                                 u"removeOnDependency",
                                 u"editable",
                                 u"expertOnly",
                                 u"authentification",
                                 u"html",
                                 u"trendvariable",
                                 u"EditPlugin",
                                 u"editPluginArguments"}) {
        names.emplace_back(name);
    }
    const auto columns = std::make_shared<const ColumnNames>(std::move(names));
    auto values = std::make_unique<Variant[]>(columns->size());
    std::fill_n(values.get(), columns->size(), Variant::Null());
    Cells all = {{u"idx", 1}, {u"ParameterId", u"7"}, {u"kind", 2}, {u"editable", true}};
    all.insert(all.end(), cells.begin(), cells.end());
    for (const auto& [name, value] : all) {
        values[columns->Find(name).value()] = value;
    }
    return MakeObject<Collection>(columns, std::move(values));
}

/// One parameter in a FakeGroup, with the listener A.
class ParameterTest : public ::testing::Test {
protected:
    ~ParameterTest() override { GlobalDiagnostics() = mFormer; }

    /// Takes @p parameter for the one of the test, configured with a row of @p cells, and forgets the events.
    void Take(Ref<IBase_Internal> parameter, const Cells& cells = {}) {
        internal = std::move(parameter);
        gui = facet<IBase_GuiParameter>(internal);
        spec = facet<IBase_SpecParameter>(internal);
        storage = facet<IBase_SpecParameterStorage>(internal);
        gui->RegisterCallback(MakeObject<Recorder>("A", events).get());
        EXPECT_TRUE(Configure(cells));
        events.clear();
    }
    bool Configure(const Cells& cells = {}) { return internal->Config(group->Dispatch(), Variant(MakeRow(cells))); }
    /// The events of @p action, in one text.
    template <class Action>
    std::string Told(Action action) {
        events.clear();
        action();
        std::string told;
        for (const std::string& event : events) {
            told += (told.empty() ? "" : " ") + event;
        }
        return told;
    }
    std::string Told(const char16_t* written) {
        return Told([&] { gui->let_value(written); });
    }
    /// What @p action logs with the parameter as source, less the lines' beginning.
    template <class Action>
    std::string Logged(Action action) {
        GlobalDiagnostics() = {.debugToOutput = true, .initialised = true};
        ::testing::internal::CaptureStderr();
        action();
        std::string lines = ::testing::internal::GetCapturedStderr();
        GlobalDiagnostics() = {.initialised = true};
        for (std::size_t at = 0; at < lines.size(); at = lines.find('\n', at) + 1) {
            lines.erase(at, lines.find(": ", at) + 2 - at);
        }
        return lines;
    }
    std::string Shown() { return gui->get_value().ToUtf8(); }
    /// "number|shown" behind a user's write of @p text; "no" stands for a number that was refused.
    std::string NumberWritten(const Text& text) {
        spec->let_value(u"none");
        gui->let_value(text);
        const bool accepted = gui->error() == u"0";
        if (!accepted) spec->let_value(0);
        EXPECT_EQ(gui->FormatValue(spec->get_value()).ToUtf8(), Shown());
        return (accepted ? ToInvariantText(spec->get_value()).ToUtf8() : "no") + "|" + Shown();
    }

    Diagnostics mFormer = std::exchange(GlobalDiagnostics(), {.initialised = true});
    ScopedLocale english{"en-US"};
    Events events;
    Ref<FakeGroup> group = MakeObject<FakeGroup>(events);
    Ref<IBase_Internal> internal;
    Ref<IBase_GuiParameter> gui;
    Ref<IBase_SpecParameter> spec;
    Ref<IBase_SpecParameterStorage> storage;
};

}  // namespace ov::testing
