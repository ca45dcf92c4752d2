/// @file
/// The state questions and commands by kind of parameter, which each node of the tree answers by asking its children.
#pragma once

#include <optional>

#include "contract/enumerations.h"
#include "tree/typed_collection.h"

namespace ov {

/// A set of kinds as hosts pass it; left out, all of them.
using KindMask = std::optional<eParameterKind>;

/// What a walk over the children is for.
enum class KindWalk { Question, Command };

/// The face @p Face of a node over children of the face @p Child: whatever is not there yet is loaded where it may
/// matter, and where it cannot it stays away. Children run rules and tell listeners, so a walk holds its node.
template <class Face, class Child>
class KindFolds : public Facet<Face> {
public:
    /// True unless a child says False; False if the children cannot be loaded.
    bool consistent(KindMask kind) override {
        const Ref<Face> alive = this;
        if (!LoadChildren()) return false;
        const Ref<Child> failing = First(kind, [&](Child& child) { return !Ask(child, &Child::consistent, kind); });
        if (failing) NoteInconsistent(*failing);
        return !failing;
    }
    // What is not loaded is neither modified nor unknown, and need not be told so.
    bool modified(KindMask kind) override { return IsAny(&Child::modified, kind); }
    bool unknown(KindMask kind) override { return IsAny(&Child::unknown, kind); }
    void ClearModified(KindMask kind) override { Tell(&Child::ClearModified, kind); }
    void SetUnknown(KindMask kind) override { Tell(&Child::SetUnknown, kind); }
    void ClearUnknown(KindMask kind) override { LoadAndTell(&Child::ClearUnknown, kind); }

protected:
    virtual bool LoadChildren() = 0;
    /// The children in order; Nothing before they are loaded.
    virtual Ref<TypedList<Child>> LoadedChildren() = 0;
    /// Whether a child takes part.
    virtual bool Concerns(Child&, KindMask, KindWalk) { return true; }
    /// Called with the child at which `consistent` ended.
    virtual void NoteInconsistent(Child&) {}

    template <class Member>
    void LoadAndTell(Member member, KindMask kind) {
        const Ref<Face> alive = this;
        if (LoadChildren()) Tell(member, kind);
    }

private:
    // Nodes pass the kinds on; parameters have no such argument, or the text to test in its place.
    template <class Result>
    static Result Ask(Child& child, Result (Child::*member)(KindMask), KindMask kind) {
        return (child.*member)(kind);
    }
    template <class Result>
    static Result Ask(Child& child, Result (Child::*member)(), KindMask) {
        return (child.*member)();
    }
    static bool Ask(Child& child, bool (Child::*member)(const std::optional<Text>&), KindMask) {
        return (child.*member)(std::nullopt);
    }

    template <class Member>
    bool IsAny(Member member, KindMask kind) {
        return First(kind, [&](Child& child) { return Ask(child, member, kind); }) != nullptr;
    }
    template <class Member>
    void Tell(Member member, KindMask kind) {
        const Ref<Face> alive = this;
        if (const Ref<TypedList<Child>> children = LoadedChildren()) {
            children->ForEach([&](Child& child) {
                if (Concerns(child, kind, KindWalk::Command)) Ask(child, member, kind);
                return true;
            });
        }
    }
    // The first child for which the question is answered with True.
    template <class Question>
    Ref<Child> First(KindMask kind, Question question) {
        Ref<Child> found;
        if (const Ref<TypedList<Child>> children = LoadedChildren()) {
            children->ForEach([&](Child& child) {
                if (Concerns(child, kind, KindWalk::Question) && question(child)) found = &child;
                return !found;
            });
        }
        return found;
    }
};

/// The same for a face that can also reset and lock what is below it.
template <class Face, class Child>
class DatasetFolds : public KindFolds<Face, Child> {
public:
    void ResetValue(KindMask kind) override { this->LoadAndTell(&Child::ResetValue, kind); }
    void LockDataset(KindMask kind) override { this->LoadAndTell(&Child::LockDataset, kind); }
    void UnlockDataset(KindMask kind) override { this->LoadAndTell(&Child::UnlockDataset, kind); }
};

}  // namespace ov
