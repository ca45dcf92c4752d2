#include "platform/script/vbscript/err_object.h"

#include <array>

#include "platform/automation/member.h"
#include "platform/automation/memory_account.h"

namespace ov::vbscript {

namespace {

constexpr std::u16string_view kSource = u"Microsoft VBScript runtime error";
constexpr std::int32_t kMaxNumber = 0xFFFF;

}  // namespace

const InterfaceInfo& IErr::Members() {
    static constexpr std::array kMembers = {
        get_member<&IErr::get_Number>("Number").AsDefault(),
        let_member<&IErr::let_Number>("Number"),
        get_member<&IErr::get_Description>("Description"),
        let_member<&IErr::let_Description>("Description"),
        get_member<&IErr::get_Source>("Source"),
        let_member<&IErr::let_Source>("Source"),
        get_member<&IErr::get_HelpFile>("HelpFile"),
        let_member<&IErr::let_HelpFile>("HelpFile"),
        get_member<&IErr::get_HelpContext>("HelpContext"),
        let_member<&IErr::let_HelpContext>("HelpContext"),
        member<&IErr::Raise>("Raise"),
        member<&IErr::Clear>("Clear"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

void ErrObject::Raise(std::int32_t number, const std::optional<Text>& source, const std::optional<Text>& description,
                      const std::optional<Text>& helpFile, const std::optional<std::int32_t>& helpContext) {
    throw Raised(number, source, description, helpFile, helpContext);
}

RuntimeError ErrObject::Raised(std::int32_t number, const std::optional<Text>& source,
                               const std::optional<Text>& description, const std::optional<Text>& helpFile,
                               const std::optional<std::int32_t>& helpContext) {
    if (number == 0 || number > kMaxNumber) return RuntimeError(ErrorNumber::InvalidProcedureCall);
    // What is left out is what the object holds and nobody has cleared.
    const RuntimeError error(number, source ? *source : mSource,
                             description            ? *description
                             : mDescription.empty() ? ErrorText(number)
                                                    : mDescription);
    if (helpFile) mHelpFile = *helpFile;
    if (helpContext) mHelpContext = *helpContext;
    mHelpIsRaised = true;
    return error;
}

void ErrObject::Clear() {
    mNumber = mHelpContext = 0;
    mDescription = mSource = mHelpFile = Text();
    mHelpIsRaised = false;
}

void ErrObject::Note(const RuntimeError& error) {
    const MemoryAccount::Exemption exemption;
    mNumber = error.number();
    mDescription = error.description();
    static const Text source(kSource);
    mSource = error.source().empty() ? source : error.source();
    if (!std::exchange(mHelpIsRaised, false)) {
        mHelpFile = Text();
        mHelpContext = 0;
    }
}

}  // namespace ov::vbscript
