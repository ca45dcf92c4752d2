/// @file
/// Maps whose keys are texts that compare without regard to case.
#pragma once

#include <unordered_map>

#include "platform/automation/text.h"

namespace ov {

struct HashTextNoCase {
    std::size_t operator()(const Text& key) const noexcept { return HashNoCase(key); }
};
struct EqualTextNoCase {
    bool operator()(const Text& a, const Text& b) const noexcept { return EqualNoCase(a, b); }
};

/// Values by text without regard to case, in no order.
template <class Value>
using TextMap = std::unordered_map<Text, Value, HashTextNoCase, EqualTextNoCase>;

}  // namespace ov
