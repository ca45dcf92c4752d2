#include "record/rule_record.h"

#include <algorithm>

#include "platform/locale/locale.h"

namespace ov {

std::uint32_t RuleRecord::NewInput(IDispatch* parameter) {
    mInputs.emplace_back().parameter = parameter;
    return static_cast<std::uint32_t>(mInputs.size());
}

std::uint32_t RuleRecord::NewNotes(IDispatch* parameter) {
    mNotes.emplace_back().parameter = parameter;
    return static_cast<std::uint32_t>(mNotes.size());
}

std::uint32_t RuleRecord::VariableInput(const Text& key) {
    const auto known = mVariables.find(key);
    if (known != mVariables.end()) return known->second;
    const std::uint32_t input = NewInput(nullptr);
    InputOf(input).variable = key;
    mVariables.emplace(key, input);
    return input;
}

void RuleRecord::Raise(std::uint32_t input) noexcept {
    Input& changed = InputOf(input);
    ++changed.stamp;
    for (const std::uint32_t reader : changed.readers) {
        const RuleNotes& notes = NotesOf(reader);
        if (notes.work) notes.work->SetToDo(notes.position);
    }
    changed.readers.clear();
}

void RuleRecord::RaiseVariable(const Text& key) noexcept {
    const auto known = mVariables.find(key);
    if (known != mVariables.end()) Raise(known->second);
}

void RuleRecord::ForgetAll() noexcept {
    Traces::Leave(Unrepeatable::Change);
    ++mEpoch;
}

std::uint64_t RuleRecord::Epoch() noexcept {
    if (const Locale* locale = &CurrentLocale(); locale != mLocale) {
        mLocale = locale;
        ++mEpoch;
    }
    return mEpoch;
}

void RuleRecord::OpenRows() noexcept {
    if (mRowsAreOpen) return;
    mRowsAreOpen = true;
    ForgetAll();
}

void RuleRecord::Unsubscribe(std::uint32_t reader, const RuleNote::Read& read) noexcept {
    Input& input = InputOf(read.input);
    if (input.stamp != read.stamp) return;  // it has told, and forgotten
    const auto found = std::find(input.readers.rbegin(), input.readers.rend(), reader);
    if (found == input.readers.rend()) return;
    *found = input.readers.back();
    input.readers.pop_back();
}

void RuleRecord::Subscribe(std::uint32_t reader, RuleNote& note, std::span<const std::uint32_t> inputs) {
    const std::span<RuleNote::Read> former{note.reads.get(), note.readCount};
    // Mostly a rule reads again what it has read before.
    if (std::ranges::equal(former, inputs, {}, &RuleNote::Read::input)) {
        for (RuleNote::Read& read : former) {
            Input& input = InputOf(read.input);
            if (read.stamp == input.stamp) continue;
            input.readers.push_back(reader);
            read.stamp = input.stamp;
        }
        return;
    }
    auto reads = std::make_unique<RuleNote::Read[]>(inputs.size());
    for (const RuleNote::Read& read : former) {
        Unsubscribe(reader, read);
    }
    note.readCount = 0;
    note.reads = std::move(reads);
    for (const std::uint32_t number : inputs) {
        Input& input = InputOf(number);
        input.readers.push_back(reader);
        note.reads[note.readCount++] = {number, input.stamp};
    }
}

}  // namespace ov
