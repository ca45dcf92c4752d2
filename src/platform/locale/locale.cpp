#include "platform/locale/locale.h"

#include <map>

#include "platform/locale/locale_facts.h"
#include "platform/locale/locale_name.h"

namespace ov {

namespace {

struct ProcessLocale {
    std::string name = EnvironmentLocaleName();  // as ICU has it
    const Locale* facts = nullptr;               // null until somebody asks
    // Facts of all locales that were ever current: references to them are out, and a script may change to and fro.
    std::map<std::string, Locale> gathered;
};

ProcessLocale& State() {
    static ProcessLocale state;
    return state;
}

bool Set(const std::optional<std::string>& name) {
    if (!name) return false;
    ProcessLocale& state = State();
    if (state.name == *name) return true;
    state.name = *name;
    state.facts = nullptr;
    return true;
}

}  // namespace

const Locale& CurrentLocale() noexcept {
    ProcessLocale& state = State();
    if (!state.facts) {
        const auto known = state.gathered.find(state.name);
        state.facts = known != state.gathered.end()
                          ? &known->second
                          : &state.gathered.emplace(state.name, GatherLocale(state.name)).first->second;
    }
    return *state.facts;
}

bool SetCurrentLocale(std::string_view name) {
    return Set(ResolveLocaleName(name));
}

bool SetCurrentLocale(std::uint32_t lcid) {
    return Set(ResolveLocaleId(lcid));
}

}  // namespace ov
