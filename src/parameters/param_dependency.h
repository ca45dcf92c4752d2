/// @file
/// The alternative rows of one parameter.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "contract/internal.h"
#include "platform/automation/collection.h"
#include "platform/automation/object.h"
#include "record/rule_trace.h"

namespace ov {

/// CBase_ParamDependency: a ring of rows with a cursor. Which row is in force is its owner's affair.
class ParamDependency final : public Object<ParamDependency, Facet<CBase_ParamDependency>> {
public:
    static constexpr const char* kClassName = "CBase_ParamDependency";
    /// Most rows that a ring takes.
    static constexpr std::size_t kCapacity = 20;

    std::int32_t get_idx() override { return Current().idx; }
    Text get_dep() override { return Current().dep; }
    Text get_removeOnDep() override { return Current().removeOnDep ? u"True" : u"False"; }
    Ref<ICollection> get_desc() override;
    void MoveFirst() override;
    void MoveNext() override;
    void Add(std::int32_t idxx, const Text& depp, bool removeOnDepp, ICollection* descc) override;

    struct Entry {
        Ref<ICollection> desc;
        Text dep;
        std::int32_t idx;
        bool removeOnDep;
    };
    std::size_t Size() const noexcept { return mEntries.size(); }
    /// An entry by its number, from 1 on.
    const Entry& EntryAt(std::size_t place) const noexcept { return mEntries[place - 1]; }
    /// The number of the current entry, from 1 on; 0 before the first move.
    std::uint8_t Place() const noexcept { return static_cast<std::uint8_t>(mCursor); }

    /// Tells the trace of a parameter what hosts do to its ring; Nothing once the parameter has gone.
    void Serve(RuleTrace* trace) noexcept { mTrace = trace; }

    /// While it lives, a ring tells nobody: what uses it is the sweep, which knows what it does.
    class Unwatched {
    public:
        explicit Unwatched(CBase_ParamDependency& ring) noexcept : mRing(dynamic_cast<ParamDependency*>(&ring)) {
            if (mRing) mTrace = std::exchange(mRing->mTrace, nullptr);
        }
        ~Unwatched() {
            if (mRing) mRing->mTrace = mTrace;
        }
        Unwatched(const Unwatched&) = delete;
        Unwatched& operator=(const Unwatched&) = delete;

    private:
        ParamDependency* mRing;
        RuleTrace* mTrace = nullptr;
    };

private:
    const Entry& Current();
    void Step() noexcept;

    std::vector<Entry> mEntries;
    RuleTrace* mTrace = nullptr;
    std::size_t mCursor = 0;  // from 1 on; 0 before the first move, while the ring takes rows
};

}  // namespace ov
