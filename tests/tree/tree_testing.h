/// @file
/// A module with a small tree, its rows in the words of the database, and what it tells and logs.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "contract/block.h"
#include "contract/callbacks.h"
#include "contract/channel.h"
#include "contract/environment.h"
#include "contract/group.h"
#include "contract/internal.h"
#include "contract/parameter.h"
#include "contract/scripting.h"
#include "module/module.h"
#include "platform/automation/conversions.h"
#include "support/diagnostics.h"
#include "support/small_descriptor.h"
#include "support/test_database.h"

namespace ov::testing {

/// The type A gets the channels 1 (groups 1 and 2, in the blocks 10 and 20) and 2 (group 1), as yet without parameters.
/// Their group types are 1, 2 and 3.
inline const std::string kTree = kSmallDescriptor + R"(
INSERT INTO Channels VALUES (1, 1, 1, 1, 1), (1, 2, 2, 2, 2);
CREATE TABLE ChannelTypes (ChannelType LONG PRIMARY KEY, mainValue TEXT);
INSERT INTO ChannelTypes VALUES (1, 'G("1").P("1")'), (2, '');
CREATE TABLE [Groups] (
    ChannelType LONG, GroupType LONG, groupId LONG, name LONG, block1 LONG, block1order DOUBLE, block2 LONG,
    block2order DOUBLE, block3 LONG, block3order DOUBLE, EditPlugin TEXT, editPluginArguments TEXT);
INSERT INTO [Groups] VALUES (1, 1, 1, 1, 5, 2, NULL, NULL, NULL, NULL, 'ed', 'args'),
    (1, 2, 2, NULL, 5, 1, 6, NULL, NULL, NULL, '', 'not read'), (2, 3, 1, 2, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);
CREATE TABLE Blocks (idx LONG PRIMARY KEY, BlockId LONG, name LONG);
INSERT INTO Blocks VALUES (5, 10, 1), (6, 20, NULL);
CREATE TABLE GroupScripts (GroupType LONG, ScriptId TEXT, script TEXT);
CREATE TABLE Parameters (
    idx INTEGER PRIMARY KEY, GroupType LONG, [order] LONG, ParameterId LONG, enable TEXT, Type TEXT, subtype TEXT,
    name LONG, description LONG, kind LONG, direction LONG, unit LONG, Min TEXT, Max TEXT, DefaultValue TEXT,
    realGain TEXT, realOffset TEXT, displayFormat TEXT, consistency TEXT, actionOnChange TEXT, dependency TEXT,
    removeOnDependency YESNO, editable YESNO, expertOnly YESNO, authentification LONG, html LONG, trendvariable YESNO,
    EditPlugin TEXT, editPluginArguments TEXT);
)";

/// An integer parameter @p id of group type @p group, one further row if the id stands already. @p more is a list of
/// columns and SQL values, as in "DefaultValue=5;Max='!:P(""2"")'".
inline std::string Row(int group, int id, const std::string& more = "") {
    std::string columns = "GroupType, [order], ParameterId, kind, Type, editable";
    std::string values =
        std::to_string(group) + ", " + std::to_string(id) + ", " + std::to_string(id) + ", 2, 'INT', -1";
    std::string updates;
    for (std::size_t at = 0; at < more.size();) {
        const std::size_t end = std::min(more.find(';', at), more.size());
        updates += (updates.empty() ? "" : ", ") + more.substr(at, end - at);
        at = end + 1;
    }
    std::string sql = "INSERT INTO Parameters (" + columns + ") VALUES (" + values + ");";
    if (!updates.empty()) sql += "UPDATE Parameters SET " + updates + " WHERE idx = (SELECT MAX(idx) FROM Parameters);";
    return sql;
}

/// What happened, in order.
using Events = std::vector<std::string>;

/// A listener that records events as "PLACE:ID.Event" and may react to them.
class Witness final : public Object<Witness, Facet<IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "Witness";
    using Reaction = std::function<void(IBase_GuiParameter* p, const std::string& event)>;

    Witness(std::string place, Events& events, Reaction reaction = {})
        : mPlace(std::move(place)), mEvents(events), mReaction(std::move(reaction)) {}
    void OnParameterReconfigured(IBase_GuiParameter* p) override { Record(p, "Reconfigured"); }
    void OnParameterStateChanged(IBase_GuiParameter* p) override { Record(p, "State"); }
    void OnParameterValueChanged(IBase_GuiParameter* p) override { Record(p, "Value"); }
    void OnParameterConfigStateChanged(IBase_GuiParameter* p) override { Record(p, "ConfigState"); }

    Ref<IDispatch> held;  ///< whatever the listener keeps

private:
    void Record(IBase_GuiParameter* p, const std::string& event) {
        mEvents.push_back(mPlace + ":" + ToText(p->id()).ToUtf8() + "." + event);
        if (mReaction) mReaction(p, event);
    }
    std::string mPlace;
    Events& mEvents;
    Reaction mReaction;
};

/// A loaded module; whatever a test does with it, no object outlives it.
class TreeTest : public ::testing::Test {
protected:
    ~TreeTest() override {
        if (module) module->Unload();
        module = nullptr;
        EXPECT_EQ(LivingObjects::Count(), mLiving);
        GlobalDiagnostics() = mFormer;
    }

    /// Loads type A of the tree with the rows that @p sql adds, of the generation 1 or 0. In generation 1 that loads
    /// the groups of channel 1, which resolves a text of the type.
    void Load(const std::string& sql = "", int generation = 1) {
        if (module) module->Unload();
        mDatabase = std::make_unique<TestDatabase>(kTree + sql + ";UPDATE DatabaseProperties SET Value = " +
                                                   std::to_string(generation) + " WHERE Name = 'ModelVersionIndex'");
        module = MakeObject<Module>();
        module->SetSourcePath(mDatabase->Path());
        ASSERT_TRUE(module->Load(u"A", {}, {}));
    }
    Ref<IBase_SpecChannel> Channel(const Text& id = u"1") {
        const auto channels = module->Spec()->channels();
        return channels ? channels->get_Item(id) : nullptr;
    }
    Ref<IBase_SpecGroup> Group(const Text& id = u"1") { return Channel()->groups()->get_Item(id); }
    Ref<IBase_GuiParameter> Parameter(const Text& id, const Text& group = u"1") {
        return facet<IBase_GuiParameter>(Group(group)->parameters()->get_Item(id));
    }
    template <class Collection>
    std::string Ids(const Ref<Collection>& collection) {
        if (!collection) return "none";
        std::string ids;
        const Ref<IEnumVariant> walk = collection->NewEnum();
        for (Variant item; walk->Next(item);) {
            Arguments none;
            IDispatch* element = item.AsObject();
            ids += ToText(element->Invoke(element->GetIDsOfNames(u"id"), CallKind::Get, none)).ToUtf8() + " ";
        }
        return ids;
    }
    /// What @p script gives on the engine of group 1 in channel 1, as text.
    std::string Eval(const Text& script) {
        const Variant result = Group()->EvaluateScript(script);
        if (result.IsObject()) return result.AsObject() ? "object" : "Nothing";
        return result.IsEmpty() ? "Empty" : result.IsNull() ? "Null" : ToText(result).ToUtf8();
    }
    /// What @p action logs, each line without the source; the timing log too if that is asked for.
    template <class Action>
    std::string Logged(Action action, bool timing = false) {
        GlobalDiagnostics().debugToOutput = true;
        GlobalDiagnostics().timing = timing;
        ::testing::internal::CaptureStderr();
        action();
        std::string lines = ::testing::internal::GetCapturedStderr();
        GlobalDiagnostics() = {.initialised = true};
        for (std::size_t at = 0; at < lines.size(); at = lines.find('\n', at) + 1) {
            lines.erase(at, lines.find(": ", at) + 2 - at);
        }
        return lines;
    }

    std::size_t mLiving = LivingObjects::Count();
    Diagnostics mFormer = std::exchange(GlobalDiagnostics(), {.initialised = true});
    std::unique_ptr<TestDatabase> mDatabase;
    Ref<Module> module;
};

}  // namespace ov::testing
