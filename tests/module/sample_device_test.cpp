// The sample descriptor on the whole tree: every parameter of every type loads, holds a value that passes, and settles.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "contract/group.h"
#include "contract/internal.h"
#include "module/module.h"
#include "platform/automation/conversions.h"
#include "support/elements.h"
#include "support/test_database.h"

namespace ov {
namespace {

using testing::ForEach;

template <class Visit>
void ForEachParameter(Module& module, Visit visit) {
    ForEach(module.Spec()->channels(), [&](IDispatch* channel) {
        ForEach(facet<IBase_SpecChannel>(channel)->groups(), [&](IDispatch* group) {
            ForEach(facet<IBase_SpecGroup>(group)->parameters(), [&](IDispatch* parameter) {
                visit(*facet<IBase_GuiParameter>(parameter), *facet<IBase_SpecParameter>(parameter));
            });
        });
    });
}

// Number and shown value of all parameters, behind a mark of those in force that do not pass.
std::string Shown(Module& module, int& count, std::string& failing) {
    std::string shown;
    ForEachParameter(module, [&](IBase_GuiParameter& gui, IBase_SpecParameter& spec) {
        const std::string line = ToText(gui.id()).ToUtf8() + "=" + gui.get_value().ToUtf8() + "\n";
        shown += line;
        ++count;
        if (spec.valid() && !gui.consistent({})) failing += line;
    });
    return shown;
}

TEST(SampleDevice, EveryParameterLoadsPassesAndSettles) {
    std::ifstream sql(OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql");
    const testing::TestDatabase database({std::istreambuf_iterator<char>(sql), {}});
    for (const auto& [type, least] :
         {std::pair{u"TT200 HART", 150}, {u"TT200 PROFINET", 150}, {u"TT200 HART SIL", 100}}) {
        SCOPED_TRACE(Text(type).ToUtf8());
        const Ref<Module> module = MakeObject<Module>();
        module->SetSourcePath(database.Path());
        ASSERT_TRUE(module->Load(type, {}, {}));
        int count = 0;
        std::string failing;
        const std::string first = Shown(*module, count, failing);
        EXPECT_EQ(failing, "");
        EXPECT_GE(count, least);
        module->Spec()->UpdateDependencies();
        module->Spec()->CheckConsistency();
        EXPECT_EQ(Shown(*module, count, failing), first) << "a further sweep changes nothing";
        EXPECT_EQ(failing, "");
        // Each value can be written as it is shown, and each list has the value that is held.
        ForEachParameter(*module, [&](IBase_GuiParameter& gui, IBase_SpecParameter& spec) {
            if (!spec.valid()) return;
            if (gui.editType() == eEditType::enumeration) {
                EXPECT_TRUE(gui.consistent(gui.get_value())) << ToText(gui.id()).ToUtf8();
            }
        });
        module->Unload();
    }
}

}  // namespace
}  // namespace ov
