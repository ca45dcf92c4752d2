/// @file
/// Short cuts of the machine for what loops and rules do most: whole numbers, Doubles and Booleans. Each answers false
/// where the operands are anything else, or the result leaves its type; operators.h does it then, by all the rules.
#pragma once

#include <cmath>
#include <cstdint>

#include "platform/script/vbscript/slot.h"

namespace ov::vbscript::fast {

inline bool IsWhole(VarType type) noexcept {
    return type == VarType::Integer || type == VarType::Long;
}
inline std::int32_t Whole(const Slot& slot) noexcept {
    return slot.Type() == VarType::Integer ? slot.value.AsInteger() : slot.value.AsLong();
}
/// The value of a whole number or a Double.
inline bool Number(const Slot& slot, double& number) noexcept {
    if (slot.Type() == VarType::Double) {
        number = slot.value.AsDouble();
        return true;
    }
    if (!IsWhole(slot.Type())) return false;
    number = Whole(slot);
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
inline bool Arithmetic(const Slot& a, const Slot& b, Slot& to) noexcept {
    if (!to.IsSimple()) return false;
    const VarType left = a.Type();
    const VarType right = b.Type();
    if (IsWhole(left) && IsWhole(right)) {
        std::int32_t result;
        if (!Operation::Long(Whole(a), Whole(b), result)) return false;
        if (left == VarType::Long || right == VarType::Long || result != static_cast<std::int16_t>(result)) {
            to.Put(result);
        } else {
            to.Put(static_cast<std::int16_t>(result));
        }
        return true;
    }
    double x, y;
    if (!Number(a, x) || !Number(b, y)) return false;
    const double result = Operation::Double(x, y);
    if (!std::isfinite(result)) return false;
    to.Put(result);
    return true;
}

inline bool Divide(const Slot& a, const Slot& b, Slot& to) noexcept {
    double x, y;
    if (!to.IsSimple() || !Number(a, x) || !Number(b, y) || y == 0) return false;
    const double result = x / y;
    if (!std::isfinite(result)) return false;
    to.Put(result);
    return true;
}

/// \ and Mod.
template <bool kRemainder>
inline bool WholeDivision(const Slot& a, const Slot& b, Slot& to) noexcept {
    if (!to.IsSimple() || !IsWhole(a.Type()) || !IsWhole(b.Type())) return false;
    const std::int32_t divisor = Whole(b);
    if (divisor == 0 || divisor == -1) return false;
    const std::int32_t result = kRemainder ? Whole(a) % divisor : Whole(a) / divisor;
    if (a.Type() == VarType::Long || b.Type() == VarType::Long) {
        to.Put(result);
    } else {
        to.Put(static_cast<std::int16_t>(result));
    }
    return true;
}

inline bool Negate(const Slot& a, Slot& to) noexcept {
    if (!to.IsSimple()) return false;
    if (a.Type() == VarType::Double) {
        to.Put(-a.value.AsDouble());
        return true;
    }
    if (a.Type() != VarType::Integer || a.value.AsInteger() == INT16_MIN) return false;
    to.Put(static_cast<std::int16_t>(-a.value.AsInteger()));
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
inline bool Compare(const Slot& a, const Slot& b, bool& holds) noexcept {
    if (IsWhole(a.Type()) && IsWhole(b.Type())) {
        holds = Comparison::Holds(Whole(a), Whole(b));
        return true;
    }
    double x, y;
    if (!Number(a, x) || !Number(b, y) || std::isnan(x) || std::isnan(y)) return false;
    holds = Comparison::Holds(x, y);
    return true;
}

struct And {
    static std::int32_t Bits(std::int32_t a, std::int32_t b) noexcept { return a & b; }
};
struct Or {
    static std::int32_t Bits(std::int32_t a, std::int32_t b) noexcept { return a | b; }
};

/// True for a slot that a Boolean can be put into.
inline bool TakesBoolean(const Slot& to) noexcept {
    return to.IsSimple() || to.Type() == VarType::Boolean;
}

/// And and Or of Booleans.
template <class Operation>
inline bool Logic(const Slot& a, const Slot& b, Slot& to) noexcept {
    if (a.Type() != VarType::Boolean || b.Type() != VarType::Boolean || !TakesBoolean(to)) return false;
    to.Put(Operation::Bits(a.value.AsBoolean(), b.value.AsBoolean()) != 0);
    return true;
}

/// One step of a For loop over whole numbers: variable, and behind @p control its limit and its step.
inline bool ForNext(Slot& variable, const Slot* control, bool& again) noexcept {
    const VarType type = variable.Type();
    if (!IsWhole(type) || control[0].Type() != type || control[1].Type() != type) return false;
    const std::int32_t step = Whole(control[1]);
    std::int32_t next;
    if (__builtin_add_overflow(Whole(variable), step, &next)) return false;
    if (type == VarType::Long) {
        variable.Put(next);
    } else {
        if (next != static_cast<std::int16_t>(next)) return false;
        variable.Put(static_cast<std::int16_t>(next));
    }
    again = step >= 0 ? next <= Whole(control[0]) : next >= Whole(control[0]);
    return true;
}

}  // namespace ov::vbscript::fast
