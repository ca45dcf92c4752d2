/// @file
/// Writes to parameters as users do them, and the events that they set off.
#pragma once

#include <string>
#include <vector>

#include "contract/callbacks.h"
#include "ovmodel/parameter_path.h"

namespace ovmodel {

/// Keeps each event in order, as a row for a table: path, event, value and state at that moment.
class EventRecorder final : public ov::Object<EventRecorder, ov::Facet<ov::IBase_CallbackParameter>> {
public:
    static constexpr const char* kClassName = "EventRecorder";

    void OnParameterReconfigured(ov::IBase_GuiParameter* p) override { Tell(*p, "reconfigured"); }
    void OnParameterStateChanged(ov::IBase_GuiParameter* p) override { Tell(*p, "state"); }
    void OnParameterValueChanged(ov::IBase_GuiParameter* p) override { Tell(*p, "value"); }
    void OnParameterConfigStateChanged(ov::IBase_GuiParameter* p) override { Tell(*p, "config state"); }

    std::vector<std::vector<std::string>> rows;

private:
    void Tell(ov::IBase_GuiParameter& parameter, const char* event) {
        rows.push_back({PathOf(parameter), event, ShownValue(parameter), StateOf(parameter)});
    }
};

/// One write, and the text to write.
struct UserWrite {
    ov::Ref<ov::IBase_GuiParameter> parameter;
    ov::Text text;
};

/// @param argument CHANNEL/GROUP/PARAMETER=TEXT. @throws Failure for another form, and for ids that there are not
UserWrite FindWrite(ov::Module& module, const std::string& argument);

/// What a write has made of its parameter, and all that it has set off.
struct WriteResult {
    std::string path, before, after;
    std::vector<std::vector<std::string>> events;
};

/// Writes as an editor lets a user write. @param recorder listens to the module
/// @throws Failure with the reason for which the parameter does not take the text
WriteResult WriteAsUser(const UserWrite& write, EventRecorder& recorder);

}  // namespace ovmodel
