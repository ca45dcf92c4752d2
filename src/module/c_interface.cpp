// The functions of ov_model.h. Each is a frame around what the library does anyway: it checks what C lets through and
// turns exceptions into numbers.
#include "module/ov_model.h"

#include <string>
#include <utility>
#include <vector>

#include "contract/classes.h"
#include "module/c_listener.h"
#include "module/c_values.h"
#include "module/class_factory.h"
#include "module/interface_names.h"
#include "platform/automation/enumeration.h"
#include "platform/automation/errors.h"
#include "platform/automation/interface_info.h"
#include "platform/locale/locale.h"

namespace {

using namespace ov;

struct LastError {
    std::int32_t number = 0;
    std::string source;
    std::string description;
};
LastError& Last() {
    static auto* const last = new LastError;  // for calls while the process ends
    return *last;
}

std::int32_t Remember(const RuntimeError& error) noexcept {
    const std::int32_t number =
        error.number() == 0 ? static_cast<std::int32_t>(ErrorNumber::InternalError) : error.number();
    try {
        Last() = {number, error.source().ToUtf8(), error.what()};
    } catch (...) {
        Last().number = number;
    }
    return number;
}

template <class Work>
std::int32_t Guarded(Work work) noexcept {
    try {
        work();
        return 0;
    } catch (...) {
        return Remember(CurrentError());
    }
}

/// @throws RuntimeError 5 for a null pointer
template <class T>
T& Needed(T* pointer) {
    if (!pointer) Raise(ErrorNumber::InvalidProcedureCall);
    return *pointer;
}

CallKind KindOf(std::int32_t kind) {
    switch (kind) {
        case OV_METHOD:
        case OV_GET:
        case OV_CALL:
        case OV_LET:
        case OV_SET:
            return static_cast<CallKind>(kind);
        default:
            Raise(ErrorNumber::InvalidProcedureCall);
    }
}

const ClassDescription* ClassOf(const char* name) {
    const Text given = Text::FromUtf8(&Needed(name));
    const Text library = Text::FromAscii(kTypeLibraryName) + u".";
    const std::u16string_view rest = given;
    return EqualNoCase(rest.substr(0, library.size()), library) ? FindClass(rest.substr(library.size()))
                                                                : FindClass(rest);
}

// Puts what the member wrote into the caller's values. They are all made before the first is replaced, so that a
// failure leaves the caller's as they were.
void WriteBack(const Arguments& call, ov_value* arguments) {
    std::vector<std::pair<std::size_t, ov_value>> written;
    try {
        for (std::size_t i = 0; i < call.values.size() && i < 32; ++i) {
            if ((call.written >> i & 1u) == 0) continue;
            ToC(call.values[i], written.emplace_back(i, ov_value{}).second);
        }
    } catch (...) {
        for (auto& [index, value] : written) {
            ClearC(value);
        }
        throw;
    }
    for (auto& [index, value] : written) {
        value.written = 1;
        ClearC(arguments[index]);
        arguments[index] = value;
    }
}

void Call(ov_object* object, const char* name, std::int32_t kind, ov_value* arguments, std::size_t count,
          ov_value* result) {
    const Ref<IDispatch> target = ObjectNeeded(object);  // the call may release the handle
    const CallKind callKind = KindOf(kind);
    if (count > 0) Needed(arguments);
    std::vector<Variant> values;
    for (std::size_t i = 0; i < count; ++i) {
        values.push_back(FromC(arguments[i]));
        arguments[i].written = 0;
    }
    const DispId id = name ? target->GetIDsOfNames(Text::FromUtf8(name)) : kDispIdValue;
    if (id == kDispIdUnknown) RaiseAbout(ErrorNumber::NoSuchMember, Text::FromUtf8(name));
    ov::Arguments call{values};
    const Variant answer = target->Invoke(id, callKind, call);
    if (call.written != 0) WriteBack(call, arguments);
    if (result) ToC(answer, *result);
}

Ref<IDispatch> FacetOf(ov_object* object, const char* name) {
    IDispatch* target = ObjectNeeded(object);
    const Text given = Text::FromUtf8(&Needed(name));
    const Guid* iid = FindInterface(given);
    Ref<IDispatch> found = iid ? Ref<IDispatch>::Adopt(static_cast<IDispatch*>(target->QueryInterface(*iid))) : nullptr;
    if (!found) {
        throw RuntimeError(ErrorNumber::ClassDoesNotSupportAutomation,
                           target->ClassName() + u" has no interface '" + given + u"'");
    }
    return found;
}

const InterfaceInfo* InterfaceOf(ov_object* object) {
    return ObjectNeeded(object)->GetTypeInfo();
}

}  // namespace

const char* ov_version(void) {
    return OV_MODEL_VERSION;
}

std::int32_t ov_set_locale(const char* name) {
    return Guarded([&] {
        if (!SetCurrentLocale(std::string_view(&Needed(name)))) Raise(ErrorNumber::InvalidProcedureCall);
    });
}

std::int32_t ov_create(const char* class_name, ov_object** object) {
    if (object) *object = nullptr;
    return Guarded([&] {
        Needed(object);
        const ClassDescription* description = ClassOf(class_name);
        const Ref<IDispatch> made = description ? MakeObjectOfClass(*description) : nullptr;
        if (!made) RaiseAbout(ErrorNumber::CannotCreateObject, Text::FromUtf8(class_name));
        *object = MakeHandle(made.get());
    });
}

std::int32_t ov_call(ov_object* object, const char* name, std::int32_t kind, ov_value* arguments, std::size_t count,
                     ov_value* result) {
    if (result) *result = {};
    return Guarded([&] { Call(object, name, kind, arguments, count, result); });
}

std::int32_t ov_facet(ov_object* object, const char* interface_name, ov_object** facet) {
    if (facet) *facet = nullptr;
    return Guarded([&] { Needed(facet) = MakeHandle(FacetOf(object, interface_name).get()); });
}

std::int32_t ov_identity(ov_object* object, const void** identity) {
    if (identity) *identity = nullptr;
    return Guarded([&] { Needed(identity) = ov::facet<IUnknown>(ObjectOf(object)).get(); });
}

std::int32_t ov_class_name(ov_object* object, ov_value* name) {
    if (name) *name = {};
    return Guarded([&] { ToC(ObjectNeeded(object)->ClassName(), Needed(name)); });
}

std::int32_t ov_interface_name(ov_object* object, const char** name) {
    if (name) *name = nullptr;
    return Guarded([&] {
        const InterfaceInfo* info = InterfaceOf(object);
        Needed(name) = info ? info->Name() : nullptr;
    });
}

std::int32_t ov_member(ov_object* object, std::size_t index, ov_member_info* info) {
    if (info) *info = {};
    return Guarded([&] {
        const InterfaceInfo* members = InterfaceOf(object);
        Needed(info);
        if (!members || index >= members->Members().size()) Raise(ErrorNumber::SubscriptOutOfRange);
        const Member& member = members->Members()[index];
        *info = {member.name, static_cast<std::int32_t>(member.kind), member.required,
                 member.total == Member::kAnyNumber ? -1 : std::int32_t{member.total}, member.isDefault ? 1 : 0};
    });
}

std::int32_t ov_enumerate(ov_object* collection, ov_object** enumerator) {
    if (enumerator) *enumerator = nullptr;
    return Guarded([&] { Needed(enumerator) = MakeHandle(Enumerate(ObjectNeeded(collection)).get()); });
}

std::int32_t ov_next(ov_object* enumerator, ov_value* item, std::int32_t* found) {
    if (item) *item = {};
    if (found) *found = 0;
    return Guarded([&] {
        const Ref<IEnumVariant> walk = facet<IEnumVariant>(ObjectNeeded(enumerator));
        if (!walk) Raise(ErrorNumber::NotACollection);
        Needed(item);
        Needed(found);
        Variant next;
        if (!walk->Next(next)) return;
        ToC(next, *item);
        *found = 1;
    });
}

std::int32_t ov_make_listener(const ov_listener_entry* entries, std::size_t count, void* context,
                              void (*release)(void* context), ov_object** listener) {
    if (listener) *listener = nullptr;
    return Guarded([&] {
        Needed(listener) = MakeHandle(MakeCListener({&Needed(entries), count}, context, release).get());
    });
}

std::int32_t ov_raise(std::int32_t number, const char* source, const char* description) {
    std::int32_t raised = number;
    const std::int32_t failure = Guarded([&] { raised = RaiseFromListener(number, source, description); });
    return failure == 0 ? raised : failure;
}

std::int32_t ov_retain(ov_object* object) {
    return Guarded([&] { RetainHandle(object); });
}

std::int32_t ov_release(ov_object* object) {
    return Guarded([&] { ReleaseHandle(object); });
}

void ov_clear(ov_value* value) {
    if (value) ClearC(*value);
}

std::int32_t ov_copy(const ov_value* from, ov_value* to) {
    return Guarded([&] {
        const Variant value = FromC(Needed(from));
        ToC(value, Needed(to));
    });
}

void ov_last_error(ov_error* error) {
    if (error) *error = {Last().number, Last().source.c_str(), Last().description.c_str()};
}
