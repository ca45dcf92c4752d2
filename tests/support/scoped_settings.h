/// @file
/// Settings of the process that a test changes and gives back.
#pragma once

#include <stdlib.h>

#include <optional>
#include <string>

#include "platform/locale/locale.h"

namespace ov::testing {

/// Sets an environment variable, or removes it.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const std::optional<std::string>& value) : mName(name) {
        if (const char* former = getenv(name)) mFormer = former;
        Set(value);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;
    ~ScopedVariable() { Set(mFormer); }

private:
    void Set(const std::optional<std::string>& value) const {
        value ? setenv(mName.c_str(), value->c_str(), 1) : unsetenv(mName.c_str());
    }

    std::string mName;
    std::optional<std::string> mFormer;
};

/// Sets the process's locale.
class ScopedLocale {
public:
    explicit ScopedLocale(std::string_view name) : mFormer(CurrentLocale().name) { mKnown = SetCurrentLocale(name); }
    ScopedLocale(const ScopedLocale&) = delete;
    ScopedLocale& operator=(const ScopedLocale&) = delete;
    ~ScopedLocale() { SetCurrentLocale(std::string_view(mFormer)); }

    bool known() const { return mKnown; }

private:
    std::string mFormer;
    bool mKnown = false;
};

}  // namespace ov::testing
