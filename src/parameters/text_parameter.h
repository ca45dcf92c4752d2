/// @file
/// Parameters whose value is a text, with limits on its length.
#pragma once

#include "parameters/typed_parameter.h"

namespace ov {

/// A text value. The columns `Min` and `Max` limit the number of its characters.
class TextParameter : public TypedParameter<Text> {
public:
    Variant Min() override { return mMinSize; }
    Variant Max() override { return mMaxSize; }

protected:
    TextParameter() = default;
    ~TextParameter() = default;

    void ReadType() override;
    void ReadDisplayFormat() override {}
    Limits CurrentLimits() const override { return {mMinSize, mMaxSize}; }
    void CheckLimits(bool& passes) override;
    bool IsInRange(const Text& value) override;
    /// What is no text is no number either, so there is no NaN.
    Content ConvertFromEngine(const Variant& value) override;
    Content ContentOfDefault(const Variant& value) override { return {Accepted(ValueType<Text>::From(value))}; }
    /// As many blanks as the column `Min` says.
    Text DefaultFromLimits() override;
    Text ParseText(const Text& text, Purpose) override { return text; }
    /// In double quotes; those within the value stay as they are.
    Text RuleText(const Text& value) override { return u"\"" + value + u"\""; }

    std::int32_t mMinSize = 0;
    std::int32_t mMaxSize = 0;

private:
    bool IsShort(const Text& value) const noexcept { return static_cast<std::int64_t>(value.size()) < mMinSize; }
    bool IsLong(const Text& value) const noexcept { return static_cast<std::int64_t>(value.size()) > mMaxSize; }
};

}  // namespace ov
