/// @file
/// What the tests of values share.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "platform/automation/conversions.h"
#include "platform/automation/dispatch.h"
#include "platform/automation/errors.h"
#include "platform/locale/locale.h"

namespace ov {

/// Type and value in one text, such as "Integer -1", so that one comparison checks both.
inline std::string Describe(const Variant& value) {
    const auto numbered = [&](std::string type) { return type.append(" ").append(ToInvariantText(value).ToUtf8()); };
    switch (value.Type()) {
        case VarType::Empty:
            return "Empty";
        case VarType::Null:
            return "Null";
        case VarType::Missing:
            return "Missing";
        case VarType::Boolean:
            return value.AsBoolean() ? "True" : "False";
        case VarType::Byte:
            return numbered("Byte");
        case VarType::Integer:
            return numbered("Integer");
        case VarType::Long:
            return numbered("Long");
        case VarType::Single:
            return numbered("Single");
        case VarType::Double:
            return numbered("Double");
        case VarType::Currency:
            return numbered("Currency");
        case VarType::Decimal:
            return numbered("Decimal");
        case VarType::Date:
            return std::string("Date ").append(ToInvariantText(value.AsDate().days).ToUtf8());
        case VarType::String:
            return std::string("String ").append(value.AsText().ToUtf8());
        default:
            return "other";
    }
}

/// Cases of the form "text -> result; text -> result", every blank counting: @p describe must make the result of the
/// text. A text without a result must give "none".
template <class Function>
void ExpectEach(std::string_view cases, Function&& describe) {
    for (std::size_t at = 0; at <= cases.size();) {
        const std::size_t end = std::min(cases.find("; ", at), cases.size());
        const std::string_view line = cases.substr(at, end - at);
        const std::size_t arrow = std::min(line.find(" -> "), line.size());
        const std::string_view expected = arrow == line.size() ? "none" : line.substr(arrow + 4);
        EXPECT_EQ(describe(Text::FromUtf8(line.substr(0, arrow))), expected) << line;
        at = end + 2;
    }
}

/// A value in short form: E Empty, N Null, $ and a text, or the letter of a type and a number with ".": Y Byte, B
/// Boolean, I Integer, L Long, S Single, D Double, C Currency, T Date, M Decimal. So "I-1", "$abc".
inline Variant Value(std::string_view form) {
    const Text text = Text::FromUtf8(form.substr(1));
    const double number = ValPrefix(text);
    switch (form.front()) {
        case 'E':
            return {};
        case 'N':
            return Variant::Null();
        case '$':
            return text;
        case 'Y':
            return static_cast<std::uint8_t>(number);
        case 'B':
            return number != 0;
        case 'I':
            return static_cast<std::int16_t>(number);
        case 'L':
            return static_cast<std::int32_t>(number);
        case 'S':
            return static_cast<float>(number);
        case 'D':
            return number;
        case 'T':
            return Date{number};
        case 'C':
            return ToCurrency(Decimal::Parse(text).value());
        default:
            return Decimal::Parse(text).value();
    }
}

/// Cases for ExpectEach whose texts are two values in short form: "I1, $a -> result".
template <class Function>
void ExpectPairs(std::string_view cases, Function&& describe) {
    ExpectEach(cases, [&](const Text& text) {
        const std::string forms = text.ToUtf8();
        const std::size_t comma = std::min(forms.find(", "), forms.size() - 1);
        return describe(Value(std::string_view(forms).substr(0, comma)),
                        Value(std::string_view(forms).substr(comma + 2)));
    });
}

/// The number of the RuntimeError that @p action raises, or 0.
template <class Action>
std::int32_t ErrorOf(Action&& action) {
    try {
        std::forward<Action>(action)();
        return 0;
    } catch (const RuntimeError& error) {
        return error.number();
    }
}

/// The description of a result, or of the error that was raised instead of it: "error 13".
template <class Action>
std::string Outcome(Action&& action) {
    try {
        return Describe(Variant(std::forward<Action>(action)()));
    } catch (const RuntimeError& error) {
        return std::string("error ").append(std::to_string(error.number()));
    }
}

/// Cases as ExpectPairs has them, with the results of an operator or its errors.
inline void ExpectResults(Variant (*operation)(const Variant&, const Variant&), std::string_view cases) {
    ExpectPairs(cases, [&](const Variant& a, const Variant& b) { return Outcome([&] { return operation(a, b); }); });
}

/// Sets a locale for one scope; American English follows it.
class ScopedLocale {
public:
    explicit ScopedLocale(const char* name) { EXPECT_TRUE(SetCurrentLocale(name)) << name; }
    ~ScopedLocale() { SetCurrentLocale("en-US"); }
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;
};

/// An object with a default value, or with none.
class ValueObject final : public IDispatch {
public:
    static Ref<ValueObject> Of(Variant value) { return Ref<ValueObject>(new ValueObject(std::move(value), true)); }
    static Ref<ValueObject> WithoutDefault() { return Ref<ValueObject>(new ValueObject({}, false)); }
    void SetValue(Variant value) { mValue = std::move(value); }
    static inline int alive = 0;

    void* QueryInterface(const Guid&) noexcept override { return nullptr; }
    std::uint32_t AddRef() noexcept override { return ++mReferences; }
    std::uint32_t Release() noexcept override {
        const std::uint32_t left = --mReferences;
        if (left == 0) delete this;
        return left;
    }
    std::uint32_t GetTypeInfoCount() const noexcept override { return 0; }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    DispId GetIDsOfNames(std::u16string_view) override { return kDispIdUnknown; }
    Variant Invoke(DispId id, CallKind kind, Arguments&) override {
        if (!mHasDefault || id != kDispIdValue || !Overlap(kind, CallKind::Get)) Raise(ErrorNumber::NoSuchMember);
        return mValue;
    }
    Text ClassName() const override { return u"ValueObject"; }

private:
    ValueObject(Variant value, bool hasDefault) : mValue(std::move(value)), mHasDefault(hasDefault) { ++alive; }
    ~ValueObject() { --alive; }

    std::uint32_t mReferences = 0;
    Variant mValue;
    bool mHasDefault;
};

}  // namespace ov
