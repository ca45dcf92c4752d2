/// @file
/// What a built-in function of the Basic family is: the rule language and the queries of descriptors share them.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/automation/variant.h"

namespace ov::vbscript {

/// What a built-in function needs of the engine that calls it.
class BuiltinContext {
public:
    /// Leads an object that may outlive the engine to its context, and to nullptr once that is gone.
    using Link = std::shared_ptr<BuiltinContext*>;

    BuiltinContext() = default;
    BuiltinContext(const BuiltinContext&) = delete;
    BuiltinContext& operator=(const BuiltinContext&) = delete;
    virtual ~BuiltinContext() {
        if (mLink) *mLink = nullptr;
    }
    /// Ends the script with a run-time error once its time is over. Functions that can run long call it every some
    /// thousand steps.
    virtual void CheckTime() = 0;
    /// State of the random numbers: 24 bits. A new engine begins with kFirstRandomSeed.
    virtual std::uint32_t& RandomSeed() = 0;
    /// Calls a procedure that a script passed by GetRef (RegExp.Replace).
    virtual Variant CallFunction(const Variant& function, std::span<Variant> arguments) = 0;

    const Link& LinkHere() {
        if (!mLink) mLink = std::make_shared<BuiltinContext*>(this);
        return mLink;
    }

private:
    Link mLink;
};

inline constexpr std::uint32_t kFirstRandomSeed = 0x50000;

/// One built-in function. Arguments are values of the call's own, which the function may change; the ones that were
/// left out at the end are not there, ones left out in between are Missing. An object argument stands for its default
/// value where a value is wanted; the functions see to that themselves.
struct Builtin {
    /// As `most`: any number of arguments.
    static constexpr std::uint8_t kAnyNumber = 255;

    std::u16string_view name;
    std::uint8_t fewest;
    std::uint8_t most;
    Variant (*call)(BuiltinContext& context, std::span<Variant> arguments);

    constexpr bool Takes(std::size_t count) const noexcept {
        return count >= fewest && (count <= most || most == kAnyNumber);
    }
};

/// Name of a value's type as TypeName gives it: "Integer", "Variant()", "Nothing", or the name of an object's class.
Text TypeNameOf(const Variant& value);

}  // namespace ov::vbscript
