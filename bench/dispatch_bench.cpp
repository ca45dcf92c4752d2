// Calls by name beside calls by slot.
#include "contract/environment.h"
#include "figures.h"
#include "module/c_values.h"
#include "module/environment.h"

namespace ov::bench {

namespace {

constexpr int kCalls = 1000;

class Callee {
public:
    Callee() {
        mEnvironment->let_VariableNoEvent(mKey, Variant(std::int32_t{5}));
        benchmark::DoNotOptimize(mSlots);
        benchmark::DoNotOptimize(mNames);
    }
    ~Callee() { ReleaseHandle(mHandle); }
    Callee(const Callee&) = delete;
    Callee& operator=(const Callee&) = delete;

    Variant BySlot() { return mSlots->get_Variable(mKey); }
    Variant ByName() { return ByNumber(mNames->GetIDsOfNames(u"Variable")); }
    Variant ByNumber(DispId id) {
        Variant argument(mKey);
        Arguments arguments{{&argument, 1}};
        return mNames->Invoke(id, CallKind::Get, arguments);
    }
    std::int32_t FromC() {
        ov_value key{};
        key.type = OV_STRING;
        key.text = {"USER_NAME", 9};
        ov_value result{};
        ov_call(mHandle, "Variable", OV_GET, &key, 1, &result);
        return result.long_integer;
    }
    DispId Number() { return mNames->GetIDsOfNames(u"Variable"); }

private:
    Ref<Environment> mEnvironment = MakeObject<Environment>();
    CBase_Environment* mSlots = mEnvironment.get();
    IDispatch* mNames = mEnvironment->Dispatch();
    ov_object* mHandle = MakeHandle(mNames);
    Text mKey = u"USER_NAME";
};

template <class Call>
auto Repeated(Call call) {
    return [call] {
        std::int32_t sum = 0;
        for (int i = 0; i < kCalls; ++i) {
            Variant result = call();
            benchmark::DoNotOptimize(result);
            sum += result.AsLong();
        }
        return sum;
    };
}

// ENV.Variable("USER_NAME") with name look-up and call, as a call site does that sees an object for the first time.
void CallByName(benchmark::State& state) {
    Callee callee;
    Compare(state, 10, Repeated([&] { return callee.ByName(); }), Repeated([&] { return callee.BySlot(); }));
    state.SetItemsProcessed(state.iterations() * kCalls);
}
BENCHMARK(CallByName)->UseManualTime();

// The same once the call site knows the member's number.
void CallByNumber(benchmark::State& state) {
    Callee callee;
    const DispId id = callee.Number();
    Compare(state, {}, Repeated([&, id] { return callee.ByNumber(id); }), Repeated([&] { return callee.BySlot(); }));
    state.SetItemsProcessed(state.iterations() * kCalls);
}
BENCHMARK(CallByNumber)->UseManualTime();

// The same call by ov_model.h: texts from UTF-8, a handle that is checked, values with tags.
void CallFromC(benchmark::State& state) {
    Callee callee;
    const auto fromC = [&] {
        std::int32_t sum = 0;
        for (int i = 0; i < kCalls; ++i) {
            sum += callee.FromC();
        }
        return sum;
    };
    Compare(state, 10, fromC, Repeated([&] { return callee.ByName(); }));
    state.SetItemsProcessed(state.iterations() * kCalls);
}
BENCHMARK(CallFromC)->UseManualTime();

}  // namespace

}  // namespace ov::bench
