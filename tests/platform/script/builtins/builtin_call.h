/// @file
/// Calls of built-in functions from tables: a name, arguments, and the result as text.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/automation/conversions.h"
#include "platform/automation/errors.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"
#include "platform/script/vbscript/builtins.h"

namespace ov::vbscript::testing {

/// An engine's side as far as the functions need it. Time ends at the check number `timeLimit`, if that is not 0.
class TestContext final : public BuiltinContext {
public:
    void CheckTime() override {
        if (++checks == timeLimit) throw RuntimeError(99, Text(), u"time is over");
    }
    std::uint32_t& RandomSeed() override { return mSeed; }
    /// Shows what it was called with.
    Variant CallFunction(const Variant&, std::span<Variant> arguments) override {
        Text shown = u"<";
        for (const Variant& argument : arguments) {
            if (shown.size() > 1) shown += u',';
            shown += argument.IsEmpty() ? Text(u"-") : ToText(argument);
        }
        return shown + u">";
    }

    int checks = 0;
    int timeLimit = 0;

private:
    std::uint32_t mSeed = kFirstRandomSeed;
};

/// An object whose default member is a value.
class IHolder : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{7B1C9E54-3A52-4E0B-9C77-0D5E6A4F1B20}");
    static constexpr const char* kName = "IHolder";
    static const InterfaceInfo& Members() {
        static constexpr std::array kMembers = {get_member<&IHolder::Value>("Value").AsDefault()};
        static const InterfaceInfo info(kIid, kName, kMembers);
        return info;
    }
    virtual Variant Value() = 0;
};

class Holder final : public Object<Holder, Facet<IHolder>> {
public:
    static constexpr const char* kClassName = "Holder";
    explicit Holder(Variant value) : mValue(std::move(value)) {}
    Variant Value() override { return mValue; }

private:
    Variant mValue;
};

inline Variant Held(Variant value) {
    return MakeObject<Holder>(std::move(value));
}

inline std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

/// Type and value: "Long 5", "String abc", "Date 2024-02-29 12:00:00", "Null", "[Integer 1, String a]".
inline std::string Describe(const Variant& value) {
    if (value.IsArray()) {
        std::string all;
        for (std::size_t i = 0; i < value.AsArray().size(); ++i) {
            all += (i > 0 ? ", " : "") + Describe(value.AsArray().At(i));
        }
        return "[" + all + "]";
    }
    const std::string type = TypeNameOf(value).ToUtf8();
    if (value.Type() == VarType::Date) {
        const CalendarTime t = ToCalendar(value.AsDate());
        return type + " " + std::to_string(t.year) + "-" + TwoDigits(t.month) + "-" + TwoDigits(t.day) + " " +
               TwoDigits(t.hour) + ":" + TwoDigits(t.minute) + ":" + TwoDigits(t.second);
    }
    if (value.IsEmpty() || value.IsNull() || value.IsObject() || value.IsMissing()) return type;
    return type + " " + ToInvariantText(value).ToUtf8();
}

/// The result of a call described, or "error" and its number.
inline std::string Call(BuiltinContext& context, std::u16string_view name, std::vector<Variant> arguments) {
    const Builtin* builtin = FindBuiltin(name);
    if (!builtin) return "no such function";
    const bool counted = arguments.size() >= builtin->fewest &&
                         (arguments.size() <= builtin->most || builtin->most == Builtin::kAnyNumber);
    if (!counted) return "wrong number of arguments";
    try {
        return Describe(builtin->call(context, arguments));
    } catch (const RuntimeError& error) {
        return "error " + std::to_string(error.number());
    }
}

inline std::string Call(std::u16string_view name, std::vector<Variant> arguments) {
    TestContext context;
    return Call(context, name, std::move(arguments));
}

struct CallCase {
    const char16_t* name;
    std::vector<Variant> arguments;
    const char* result;
};

inline void CheckCalls(const std::vector<CallCase>& cases) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const CallCase& c = cases[i];
        EXPECT_EQ(Call(c.name, c.arguments), c.result) << "case " << i << ": " << Text(c.name).ToUtf8();
    }
}

/// Shorter in tables than the type's constructor.
inline Variant Int(int value) {
    return static_cast<std::int16_t>(value);
}
inline Variant Byte(int value) {
    return static_cast<std::uint8_t>(value);
}
inline Variant Day(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    return FromCalendar(year, month, day, hour, minute, second);
}
inline const Variant kNull = Variant::Null();
inline const Variant kMissing = Variant::Missing();

}  // namespace ov::vbscript::testing
