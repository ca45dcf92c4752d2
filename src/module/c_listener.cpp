#include "module/c_listener.h"

#include <array>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "module/c_values.h"
#include "platform/automation/errors.h"
#include "platform/automation/object.h"

namespace ov {

namespace {

std::optional<RuntimeError> gRaised;

/// The facet of a listener; what it answers to is the host's affair.
class ICListener : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{6F0B6C54-2D5A-4E0E-9C77-90A6C1D3B815}");
    static constexpr const char* kName = "_Listener";
    static const InterfaceInfo& Members() {
        static const InterfaceInfo info(kIid, kName, {});
        return info;
    }
};

/// Values lent to a listener: freed at the end of the call, together with what the listener put in their place.
class LentValues {
public:
    explicit LentValues(std::span<const Variant> values) : mOwn(values.size()), mLent(values.size()) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            try {
                ToC(values[i], mOwn[i]);
            } catch (...) {
                Clear();
                throw;
            }
            mLent[i] = mOwn[i];
            mLent[i].owned = 0;
        }
    }
    ~LentValues() { Clear(); }
    LentValues(const LentValues&) = delete;
    LentValues& operator=(const LentValues&) = delete;

    std::vector<ov_value>& Lent() { return mLent; }
    ov_value& Result() { return mResult; }

private:
    void Clear() noexcept {
        for (ov_value& value : mLent) {
            ClearC(value);
        }
        for (ov_value& value : mOwn) {
            ClearC(value);
        }
        ClearC(mResult);
    }

    std::vector<ov_value> mOwn;
    std::vector<ov_value> mLent;
    ov_value mResult{};
};

class CListener final : public Object<CListener, Facet<ICListener>> {
public:
    static constexpr const char* kClassName = "Listener";
    using Key = std::pair<const ov_listener_entry*, void*>;

    CListener(std::span<const ov_listener_entry> entries, void* context, void (*release)(void*))
        : mEntries(entries), mContext(context), mRelease(release) {
        Living().emplace(Key{entries.data(), context}, this);
    }
    void OnFinalRelease() noexcept {
        Living().erase({mEntries.data(), mContext});
        if (mRelease) std::exchange(mRelease, nullptr)(mContext);
    }

    static std::map<Key, CListener*>& Living() {
        static auto* const living = new std::map<Key, CListener*>;  // for listeners that end while the process does
        return *living;
    }

    std::uint32_t GetTypeInfoCount() const noexcept override { return 0; }
    const InterfaceInfo* GetTypeInfo() const noexcept override { return nullptr; }
    DispId GetIDsOfNames(std::u16string_view name) override {
        for (std::size_t i = 0; i < mEntries.size(); ++i) {
            if (EqualNoCase(name, Text::FromUtf8(mEntries[i].name))) return static_cast<DispId>(i) + 1;
        }
        return kDispIdUnknown;
    }
    Variant Invoke(DispId id, CallKind, Arguments& arguments) override {
        if (id < 1 || static_cast<std::size_t>(id) > mEntries.size()) Raise(ErrorNumber::NoSuchMember);
        const Ref<IDispatch> alive = Dispatch();
        LentValues values(arguments.values);
        gRaised.reset();
        const std::int32_t status = mEntries[static_cast<std::size_t>(id) - 1].call(
            mContext, values.Lent().data(), values.Lent().size(), &values.Result());
        if (status != 0) Fail(status);
        for (std::size_t i = 0; i < arguments.values.size(); ++i) {
            if (!values.Lent()[i].written) continue;
            arguments.values[i] = FromC(values.Lent()[i]);
            arguments.MarkWritten(i);
        }
        return FromC(values.Result());
    }

private:
    [[noreturn]] static void Fail(std::int32_t status) {
        const std::optional<RuntimeError> raised = std::exchange(gRaised, std::nullopt);
        if (raised && raised->number() == status) throw *raised;
        throw RuntimeError(status, Text(), ErrorText(status));
    }

    std::span<const ov_listener_entry> mEntries;
    void* mContext;
    void (*mRelease)(void*);
};

}  // namespace

Ref<IDispatch> MakeCListener(std::span<const ov_listener_entry> entries, void* context, void (*release)(void*)) {
    for (const ov_listener_entry& entry : entries) {
        if (!entry.name || !entry.call) Raise(ErrorNumber::InvalidProcedureCall);
    }
    const auto found = CListener::Living().find({entries.data(), context});
    if (found != CListener::Living().end()) return found->second->Dispatch();
    return MakeObject<CListener>(entries, context, release)->Dispatch();
}

std::int32_t RaiseFromListener(std::int32_t number, const char* source, const char* description) {
    if (number == 0) number = static_cast<std::int32_t>(ErrorNumber::InternalError);
    gRaised.emplace(number, source ? Text::FromUtf8(source) : Text(),
                    description ? Text::FromUtf8(description) : ErrorText(number));
    return number;
}

}  // namespace ov
