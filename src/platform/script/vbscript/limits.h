/// @file
/// What a script may take of the process.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ov::vbscript {

// Source texts.
inline constexpr std::size_t kMaxSourceLength = std::size_t{16} * 1024 * 1024;    ///< characters
inline constexpr std::size_t kMaxCompileMemory = std::size_t{256} * 1024 * 1024;  ///< bytes of a text's words and tree
inline constexpr std::size_t kMaxNameLength = 255;                                ///< characters
inline constexpr int kMaxNesting = 200;  ///< brackets, member chains and blocks inside each other
inline constexpr std::size_t kMaxParameters = 255;
inline constexpr std::size_t kMaxArguments = 16384;  ///< of one call, such as Array(...)
inline constexpr std::size_t kMaxIndexes = 255;      ///< of one assignment

// Running scripts.
inline constexpr std::size_t kMaxCallDepth = 10'000;         ///< procedures that called each other
inline constexpr std::size_t kStackSlots = 512 * 1024;       ///< variables and values of all of them
inline constexpr std::size_t kMaxNativeStack = 1024 * 1024;  ///< bytes of the thread's stack that nested runs may take
inline constexpr int kMaxNestedRuns = 200;                   ///< runs inside each other, by way of an object
inline constexpr std::size_t kMaxMemory = std::size_t{256} * 1024 * 1024;  ///< bytes of growth in one outermost call

// The cache of compiled texts.
inline constexpr std::size_t kMaxCachedUnits = 65536;
inline constexpr std::size_t kMaxCachedBytes = std::size_t{64} * 1024 * 1024;

}  // namespace ov::vbscript
