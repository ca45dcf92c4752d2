/// @file
/// Short cuts of the machine for what loops and rules do most: whole numbers, Doubles and Booleans. Each answers false
/// where the operands are anything else, or the result leaves its type; operators.h does it then, by all the rules.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>

#include "platform/automation/variant.h"

namespace ov::vbscript::fast {

/// True for Empty, Null, numbers of the common types and dates: what can be overwritten.
[[gnu::always_inline]] inline bool IsSimple(const Variant& value) noexcept {
    return value.Type() < VarType::String;
}
/// @pre @p to is simple, or a Boolean
template <class T>
[[gnu::always_inline]] inline void Put(Variant& to, T value) noexcept {
    new (&to) Variant(value);
}

/// True for Integer and Long.
[[gnu::always_inline]] inline bool IsWhole(VarType type) noexcept {
    static_assert(static_cast<unsigned>(VarType::Integer) == 2 && static_cast<unsigned>(VarType::Long) == 3);
    return (static_cast<unsigned>(type) | 1) == 3;
}
/// @pre the value is whole; an Integer is held as the Long of the same number
[[gnu::always_inline]] inline std::int32_t Whole(const Variant& value) noexcept {
    return value.AsLong();
}
/// The value of a whole number or a Double.
[[gnu::always_inline]] inline bool Number(const Variant& value, double& number) noexcept {
    if (value.Type() == VarType::Double) {
        number = value.AsDouble();
        return true;
    }
    if (!IsWhole(value.Type())) return false;
    number = Whole(value);
    return true;
}

/// True for a Boolean, and for whatever is simple.
[[gnu::always_inline]] inline bool TakesBoolean(const Variant& to) noexcept {
    return IsSimple(to) || to.Type() == VarType::Boolean;
}

/// Copies what is simple, or a Boolean.
[[gnu::always_inline]] inline bool Copy(const Variant& from, Variant& to) noexcept {
    if (!(IsSimple(from) && IsSimple(to)) && !(TakesBoolean(from) && TakesBoolean(to))) [[unlikely]]
        return false;
    // In two words: see Variant.
    const auto* const source = reinterpret_cast<const char*>(&from);
    std::uint64_t head, bits;
    std::memcpy(&head, source, sizeof head);
    std::memcpy(&bits, source + sizeof head, sizeof bits);
    auto* const target = reinterpret_cast<char*>(&to);
    std::memcpy(target, &head, sizeof head);
    std::memcpy(target + sizeof head, &bits, sizeof bits);
    return true;
}

struct Add {
    static bool Long(std::int32_t a, std::int32_t b, std::int32_t& r) noexcept {
        return !__builtin_add_overflow(a, b, &r);
    }
    static double Double(double a, double b) noexcept { return a + b; }
};
struct Subtract {
    static bool Long(std::int32_t a, std::int32_t b, std::int32_t& r) noexcept {
        return !__builtin_sub_overflow(a, b, &r);
    }
    static double Double(double a, double b) noexcept { return a - b; }
};
struct Multiply {
    static bool Long(std::int32_t a, std::int32_t b, std::int32_t& r) noexcept {
        return !__builtin_mul_overflow(a, b, &r);
    }
    static double Double(double a, double b) noexcept { return a * b; }
};

/// +, - and *.
template <class Operation>
[[gnu::always_inline]] inline bool Arithmetic(const Variant& a, const Variant& b, Variant& to) noexcept {
    if (!IsSimple(to)) return false;
    if (IsWhole(a.Type()) && IsWhole(b.Type())) [[likely]] {
        std::int32_t result;
        if (!Operation::Long(Whole(a), Whole(b), result)) return false;
        const bool isLong = a.Type() == VarType::Long || b.Type() == VarType::Long;
        if (isLong || result != static_cast<std::int16_t>(result)) {
            Put(to, result);
        } else {
            Put(to, static_cast<std::int16_t>(result));
        }
        return true;
    }
    double x, y;
    if (!Number(a, x) || !Number(b, y)) return false;
    const double result = Operation::Double(x, y);
    if (!std::isfinite(result)) return false;
    Put(to, result);
    return true;
}

[[gnu::always_inline]] inline bool Divide(const Variant& a, const Variant& b, Variant& to) noexcept {
    double x, y;
    if (!IsSimple(to) || !Number(a, x) || !Number(b, y) || y == 0) return false;
    const double result = x / y;
    if (!std::isfinite(result)) return false;
    Put(to, result);
    return true;
}

/// \ and Mod.
template <bool kRemainder>
[[gnu::always_inline]] inline bool WholeDivision(const Variant& a, const Variant& b, Variant& to) noexcept {
    if (!IsSimple(to) || !IsWhole(a.Type()) || !IsWhole(b.Type())) return false;
    const std::int32_t divisor = Whole(b);
    if (divisor == 0 || divisor == -1) return false;
    const std::int32_t result = kRemainder ? Whole(a) % divisor : Whole(a) / divisor;
    if (a.Type() == VarType::Long || b.Type() == VarType::Long) {
        Put(to, result);
    } else {
        Put(to, static_cast<std::int16_t>(result));
    }
    return true;
}

[[gnu::always_inline]] inline bool Negate(const Variant& a, Variant& to) noexcept {
    if (!IsSimple(to)) return false;
    if (a.Type() == VarType::Double) {
        Put(to, -a.AsDouble());
        return true;
    }
    if (a.Type() != VarType::Integer || a.AsInteger() == INT16_MIN) return false;
    Put(to, static_cast<std::int16_t>(-a.AsInteger()));
    return true;
}

struct Equal {
    template <class T>
    static bool Holds(T a, T b) noexcept {
        return a == b;
    }
};
struct NotEqual {
    template <class T>
    static bool Holds(T a, T b) noexcept {
        return a != b;
    }
};
struct Less {
    template <class T>
    static bool Holds(T a, T b) noexcept {
        return a < b;
    }
};
struct LessEqual {
    template <class T>
    static bool Holds(T a, T b) noexcept {
        return a <= b;
    }
};
struct Greater {
    template <class T>
    static bool Holds(T a, T b) noexcept {
        return a > b;
    }
};
struct GreaterEqual {
    template <class T>
    static bool Holds(T a, T b) noexcept {
        return a >= b;
    }
};

/// Compares; the answer is in @p holds.
template <class Comparison>
[[gnu::always_inline]] inline bool Holds(const Variant& a, const Variant& b, bool& holds) noexcept {
    if (IsWhole(a.Type()) && IsWhole(b.Type())) [[likely]] {
        holds = Comparison::Holds(Whole(a), Whole(b));
        return true;
    }
    double x, y;
    if (!Number(a, x) || !Number(b, y) || std::isunordered(x, y)) return false;
    holds = Comparison::Holds(x, y);
    return true;
}

template <class Comparison>
[[gnu::always_inline]] inline bool Compare(const Variant& a, const Variant& b, Variant& to) noexcept {
    bool holds;
    if (!TakesBoolean(to) || !Holds<Comparison>(a, b, holds)) return false;
    Put(to, holds);
    return true;
}

struct And {
    static std::int32_t Bits(std::int32_t a, std::int32_t b) noexcept { return a & b; }
};
struct Or {
    static std::int32_t Bits(std::int32_t a, std::int32_t b) noexcept { return a | b; }
};

/// And and Or of Booleans.
template <class Operation>
[[gnu::always_inline]] inline bool Logic(const Variant& a, const Variant& b, Variant& to) noexcept {
    if (a.Type() != VarType::Boolean || b.Type() != VarType::Boolean || !TakesBoolean(to)) return false;
    Put(to, Operation::Bits(a.AsBoolean(), b.AsBoolean()) != 0);
    return true;
}

/// One step of a For loop over numbers of type @p T, behind which the loop goes on.
template <class T>
[[gnu::always_inline]] inline bool StepBy(Variant& variable, T value, T limit, T step) noexcept {
    T next;
    if (__builtin_add_overflow(value, step, &next) || (step >= 0 ? next > limit : next < limit)) return false;
    Put(variable, next);
    return true;
}

/// One step of a For loop over whole numbers, behind which the loop goes on. False, with nothing changed, for any
/// other. @p step has the type of @p limit.
[[gnu::always_inline]] inline bool ForNext(Variant& variable, const Variant& limit, const Variant& step) noexcept {
    if (variable.Type() != limit.Type()) return false;
    if (limit.Type() == VarType::Long) [[likely]] {
        return StepBy(variable, variable.AsLong(), limit.AsLong(), step.AsLong());
    }
    if (limit.Type() == VarType::Integer) {
        return StepBy(variable, variable.AsInteger(), limit.AsInteger(), step.AsInteger());
    }
    return false;
}

}  // namespace ov::vbscript::fast
