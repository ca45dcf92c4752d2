/// @file
/// The children of a node as sweeps walk them: those that have something to do, in the order of the list.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/automation/collection.h"
#include "record/recording.h"
#include "record/rule_record.h"
#include "support/diagnostics.h"

namespace ov {

/// Whether sweeps run what they leave out all the same, and end the process where it does anything. For tests.
struct SweepVerification {
    static inline bool isOn = false;
};

/// Numbers the elements of a list for the record, anew whenever the list has changed, and walks the ones to do. The
/// elements are @p Element as `facet` finds it; others in the list are passed over.
template <class Element>
class SweptList {
public:
    /// Called for each element with its place.
    using Place = void (*)(Element& element, Workload& work, std::size_t position);

    SweptList(std::shared_ptr<RuleRecord> record, Place place)
        : mRecord(std::move(record)), mPlace(place), mWork(&mRecord->NewWorkload()) {}

    Workload& Work() const noexcept { return *mWork; }
    /// The list has grown while it loads: a sweep over the lists above comes here.
    void NoteGrowth() noexcept {
        mWork->pass.Touch();
        mWork->check.Touch();
    }

    /// Calls visit(element, position) for each element of @p list whose step in @p set is to do. The list may change
    /// meanwhile: then all elements behind the place reached are visited, as a walk through the list would.
    /// Counts what is left out as evaluated. @throws what @p visit raises; what lies behind it stays to do
    template <class Visit>
    void Sweep(Ref<Collection> swept, WorkSet Workload::*set, Visit visit) {
        const std::shared_ptr<RuleRecord> record = mRecord;  // a visit may end the tree
        const Ref<Collection> list = std::move(swept);       // and let the list go
        if (ValueOnTrial::IsUnderWay()) record->ForgetAll();
        Settle(*list);
        const std::uint32_t changes = mChanges;
        Collection::Walk rest(list);
        {
            WorkSet::Walk steps(mWork->*set);
            Account account{steps};
            std::size_t met = 0;
            while (!GlobalDiagnostics().fullSweep) {
                const std::optional<std::size_t> position = steps.Next();
                if (SweepVerification::isOn) VerifyDone(mWork->*set, met, position.value_or(mMembers.size()), visit);
                mRecord->NoteLeftOut(position.value_or(mMembers.size()) - met);
                if (!position) return;
                met = *position + 1;
                rest.MoveTo(mMembers[*position].behind);
                const Ref<Element> element = mMembers[*position].element;
                visit(*element, *position);
                account.Settle();
                if (list->Changes() != changes) break;
                Renew();
            }
        }
        while (const Variant* item = rest.Next()) {
            if (const Ref<Element> element = facet<Element>(item->AsObject())) visit(*element, kNowhere);
        }
    }

    /// Where an element stands that is visited because its list has changed.
    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

private:
    struct Member {
        Element* element;    // the list holds it as long as it has not changed
        std::size_t behind;  // the place of a walk that has met it
    };
    // Counts what was left out as evaluated, but for what came before a load that began the count anew.
    struct Account {
        const WorkSet::Walk& steps;
        std::uint64_t forgotten = 0;
        std::uint32_t countBegun = GlobalDiagnostics().countBegun;

        void Settle() {
            if (countBegun == GlobalDiagnostics().countBegun) return;
            countBegun = GlobalDiagnostics().countBegun;
            forgotten = steps.Spared();
        }
        ~Account() {
            Settle();
            GlobalDiagnostics().debugCountEval += static_cast<std::int32_t>(steps.Spared() - forgotten);
        }
    };

    // Runs the steps that a sweep has left out: they must leave no trace.
    template <class Visit>
    void VerifyDone(WorkSet& steps, std::size_t from, std::size_t to, Visit visit) {
        for (std::size_t position = from; position < to; ++position) {
            const std::int32_t evaluations = GlobalDiagnostics().debugCountEval;
            const std::uint64_t traces = Traces::Count(), spared = steps.Evaluations();
            visit(*mMembers[position].element, position);
            if (Traces::Count() == traces && !steps.IsToDo(position) && steps.Evaluations() == spared) {
                GlobalDiagnostics().debugCountEval = evaluations;
                continue;
            }
            std::fprintf(stderr,
                         "sweep: step %zu was taken for done, but left %d traces, the last one %d, and counted %d\n",
                         position, static_cast<int>(Traces::Count() - traces), static_cast<int>(Traces::Last()),
                         static_cast<int>(steps.Evaluations()) - static_cast<int>(spared));
            std::abort();
        }
    }

    // Sees to it that the numbers are those of the list, and the work that of the record.
    void Settle(Collection& list) {
        if (mWork->epoch != 0 && list.Changes() == mChanges) return Renew();
        mChanges = list.Changes();
        mMembers.clear();
        Collection::Walk walk(&list);
        while (const Variant* item = walk.Next()) {
            if (const Ref<Element> element = facet<Element>(item->AsObject())) {
                mMembers.push_back({element.get(), walk.Place()});
            }
        }
        mWork->epoch = mRecord->Epoch();
        ++mWork->numbering;
        mWork->Reset(mMembers.size());
        for (std::size_t position = 0; position < mMembers.size(); ++position) {
            mPlace(*mMembers[position].element, *mWork, position);
        }
    }
    void Renew() {
        if (mWork->epoch == mRecord->Epoch()) return;
        mWork->epoch = mRecord->Epoch();
        mWork->Reset(mMembers.size());
    }

    std::shared_ptr<RuleRecord> mRecord;
    Place mPlace;
    Workload* mWork;  // of the record
    std::vector<Member> mMembers;
    std::uint32_t mChanges = 0;
};

}  // namespace ov
