/// @file
/// The object Err.
#pragma once

#include <optional>

#include "platform/automation/errors.h"
#include "platform/automation/object.h"

namespace ov::vbscript {

/// What scripts see of the last error that On Error Resume Next passed over.
class IErr : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{6F1A1C0E-52B7-4B0B-9D0B-7A53C1E08A44}");
    static constexpr const char* kName = "IErr";
    static const InterfaceInfo& Members();

    /// The default member; 0 for none.
    virtual std::int32_t get_Number() = 0;
    virtual void let_Number(std::int32_t number) = 0;
    virtual Text get_Description() = 0;
    virtual void let_Description(const Text& description) = 0;
    virtual Text get_Source() = 0;
    virtual void let_Source(const Text& source) = 0;
    virtual Text get_HelpFile() = 0;
    virtual void let_HelpFile(const Text& file) = 0;
    virtual std::int32_t get_HelpContext() = 0;
    virtual void let_HelpContext(std::int32_t context) = 0;
    /// What is left out is what the object holds. @throws RuntimeError @p number; 5 for 0 and for more than 65535
    virtual void Raise(std::int32_t number, const std::optional<Text>& source, const std::optional<Text>& description,
                       const std::optional<Text>& helpFile, const std::optional<std::int32_t>& helpContext) = 0;
    virtual void Clear() = 0;
};

class ErrObject final : public Object<ErrObject, Facet<IErr>> {
public:
    static constexpr const char* kClassName = "ErrObject";

    std::int32_t get_Number() override { return mNumber; }
    void let_Number(std::int32_t number) override { mNumber = number; }
    Text get_Description() override { return mDescription; }
    void let_Description(const Text& description) override { mDescription = description; }
    Text get_Source() override { return mSource; }
    void let_Source(const Text& source) override { mSource = source; }
    Text get_HelpFile() override { return mHelpFile; }
    void let_HelpFile(const Text& file) override { mHelpFile = file; }
    std::int32_t get_HelpContext() override { return mHelpContext; }
    void let_HelpContext(std::int32_t context) override { mHelpContext = context; }
    void Raise(std::int32_t number, const std::optional<Text>& source, const std::optional<Text>& description,
               const std::optional<Text>& helpFile, const std::optional<std::int32_t>& helpContext) override;
    void Clear() override;

    /// What Raise throws.
    RuntimeError Raised(std::int32_t number, const std::optional<Text>& source, const std::optional<Text>& description,
                        const std::optional<Text>& helpFile, const std::optional<std::int32_t>& helpContext);

    /// Takes over an error that was passed over.
    void Note(const RuntimeError& error);

private:
    std::int32_t mNumber = 0;
    std::int32_t mHelpContext = 0;
    bool mHelpIsRaised = false;  // the help members belong to the error that is on its way
    Text mDescription;
    Text mSource;
    Text mHelpFile;
};

}  // namespace ov::vbscript
