/// @file
/// A place of the machine that holds a value or stands for a variable elsewhere.
#pragma once

#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

#include "platform/automation/variant.h"

namespace ov::vbscript {

struct Global;

/// A value, or an alias: of a variable, or of a global name whose meaning is looked at with each use. Which of them it
/// is, is told by the type, which a Variant and a Link both begin with.
///
/// Aliases never chain: a variable is never an alias itself.
union Slot {
public:
    struct Link {
        VarType type;
        union {
            Variant* variable;
            Global* global;
        };
    };

    Slot() noexcept : value() {}
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;
    ~Slot() { value.~Variant(); }  // an alias has nothing that needs an end, and a Variant knows that by its type

    /// Stands for a variable elsewhere.
    static constexpr VarType kAlias = static_cast<VarType>(0x4000);
    /// Stands for a global name that is not, or not yet known to be, a variable.
    static constexpr VarType kName = static_cast<VarType>(0x4001);

    VarType Type() const noexcept { return link.type; }
    bool IsValue() const noexcept { return static_cast<unsigned>(Type()) < static_cast<unsigned>(kAlias); }
    bool IsAlias() const noexcept { return Type() == kAlias; }
    bool IsName() const noexcept { return Type() == kName; }
    /// True if the content needs no release, so that it can be overwritten.
    bool IsPlain() const noexcept {
        return Type() != VarType::String && Type() != VarType::Object && Type() != VarType::Array;
    }
    /// True for Empty, Null, numbers of the common types and dates: an even quicker test than IsPlain.
    bool IsSimple() const noexcept { return Type() < VarType::String; }

    /// @pre the content is plain
    template <class T>
    void Put(T plain) noexcept {
        new (&value) Variant(plain);
    }
    /// @pre the content is plain
    void PutEmpty() noexcept { std::memset(static_cast<void*>(&value), 0, sizeof value); }  // as Variant() is
    /// @pre the content is plain
    void PutAlias(Variant& variable) noexcept { PutLink(kAlias, &variable); }
    /// @pre the content is plain
    void PutName(Global& global) noexcept { PutLink(kName, &global); }
    /// Ends the content.
    void Clear() noexcept {
        if (!IsPlain()) return End();
        PutEmpty();
    }
    /// Takes over @p from, whatever was here before.
    void Take(Variant&& from) noexcept {
        if (!IsValue()) PutEmpty();
        value = std::move(from);
    }

    Variant value;
    Link link;

private:
    // In two words, as a Variant is written.
    void PutLink(VarType type, const void* target) noexcept {
        const auto head = static_cast<std::uint64_t>(type);
        std::memcpy(static_cast<void*>(&link), &head, sizeof head);
        std::memcpy(reinterpret_cast<char*>(&link) + sizeof head, &target, sizeof target);
    }
    [[gnu::noinline]] void End() noexcept { value = Variant(); }
};

static_assert(std::is_standard_layout_v<Variant>);  // so that the type can be read whatever is in a Slot
static_assert(sizeof(Slot) == sizeof(Variant));

}  // namespace ov::vbscript
