#include "record/recording.h"

#include <algorithm>
#include <span>
#include <vector>

#include "support/diagnostics.h"

namespace ov {

namespace {

// Reads of all recordings under way, the innermost one's last.
std::vector<std::uint32_t>& Reads() {
    static std::vector<std::uint32_t> reads;
    return reads;
}

// How far back a repeated read is looked for. A further one costs its place and nothing else.
constexpr std::ptrdiff_t kRemembered = 16;
constexpr std::size_t kMostReads = 0xFFFF;

}  // namespace

Recording::Recording(RuleTrace& trace, RuleColumn column) noexcept : Recording() {
    if (trace.mRecord) {
        mTrace = &trace;
        mRecord = trace.mRecord;
    }
    mColumn = column;
    mRow = trace.mRow;
}

Recording::Recording(RuleTrace& trace, std::uint8_t alternative, std::int32_t row) noexcept
    : Recording(trace, RuleColumn::Dependency) {
    mAlternative = alternative;
    mRow = row;
}

Recording::Recording() noexcept
    : mRecord(sCurrent ? sCurrent->mRecord : nullptr),
      mOuter(sCurrent),
      mFirst(Reads().size()),
      mTraces(Traces::Count()),
      mEvaluations(GlobalDiagnostics().debugCountEval) {
    sCurrent = this;
}

Recording::~Recording() {
    sCurrent = mOuter;
    if (mTrace && mTrace->mRecord && GlobalDiagnostics().debugCountEval != mEvaluations) {
        try {
            Commit();
        } catch (...) {
            Traces::Leave(Unrepeatable::Object);  // out of memory: nobody would tell the rule of a change
        }
    }
    // What a rule made of another one's result it has read as well. Of what ran because of an effect it has not.
    bool belongsToOuter = mOuter && mTrace && Traces::Count() == mOuter->mTraces;
    if (belongsToOuter && mRecord != mOuter->mRecord && Reads().size() != mFirst) {
        Traces::Leave(Unrepeatable::Object);
        belongsToOuter = false;
    }
    if (!belongsToOuter) Reads().resize(mFirst);
}

void Recording::NoteRead(const RuleRecord& record, std::uint32_t input) {
    ++sReadsNoted;
    if (!sCurrent->mRecord) return;
    if (&record != sCurrent->mRecord) return Traces::Leave(Unrepeatable::Object);
    std::vector<std::uint32_t>& reads = Reads();
    const auto first = reads.begin() + static_cast<std::ptrdiff_t>(sCurrent->mFirst);
    const auto recent = reads.end() - std::min(kRemembered, reads.end() - first);
    if (std::find(recent, reads.end(), input) != reads.end()) return;
    if (static_cast<std::size_t>(reads.end() - first) < kMostReads) {
        reads.push_back(input);
    } else {
        Traces::Leave(Unrepeatable::Object);
    }
}

void Recording::Commit() {
    RuleTrace& trace = *mTrace;
    RuleRecord& record = *trace.mRecord;
    if (!trace.mNotes) {
        trace.mNotes = record.NewNotes(trace.mParameter);
        record.NotesOf(trace.mNotes).work = trace.Work();
        record.NotesOf(trace.mNotes).position = trace.mPosition;
    }
    if (RuleCounts* const counts = record.Counts()) counts->NoteRun({mRow, mColumn}, mResult, mHasFailed);
    RuleNote& note = NoteOf(record.NotesOf(trace.mNotes));
    note.result = std::move(mResult);
    note.why = Traces::Count() == mTraces ? Unrepeatable::No : Traces::Last();
    const std::vector<std::uint32_t>& reads = Reads();
    record.Subscribe(trace.mNotes, note, std::span(reads).subspan(mFirst));
}

RuleNote& Recording::NoteOf(RuleNotes& notes) const {
    for (RuleNote& note : notes.notes) {
        if (note.column == mColumn && note.alternative == mAlternative) return note;
    }
    RuleNote& note = notes.notes.emplace_back();
    note.column = mColumn;
    note.alternative = mAlternative;
    return note;
}

}  // namespace ov
