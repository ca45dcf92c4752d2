#include <array>
#include <memory>

#include "platform/automation/errors.h"
#include "platform/automation/member.h"
#include "platform/script/vbscript/builtins/accounted_list.h"
#include "platform/script/vbscript/builtins/regexp_object.h"

namespace ov::vbscript {

const InterfaceInfo& ISubMatches::Members() {
    static constexpr std::array kMembers = {
        get_member<&ISubMatches::Count>("Count"),
        get_member<&ISubMatches::Item>("Item").AsDefault(),
        member<&ISubMatches::NewEnum>("NewEnum"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IMatch::Members() {
    static constexpr std::array kMembers = {
        get_member<&IMatch::Value>("Value").AsDefault(),
        get_member<&IMatch::FirstIndex>("FirstIndex"),
        get_member<&IMatch::Length>("Length"),
        get_member<&IMatch::SubMatches>("SubMatches"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

const InterfaceInfo& IMatches::Members() {
    static constexpr std::array kMembers = {
        get_member<&IMatches::Count>("Count"),
        get_member<&IMatches::Item>("Item").AsDefault(),
        member<&IMatches::NewEnum>("NewEnum"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

namespace {

/// What a search found, shared by the objects that show it.
class MatchList {
public:
    MatchList(RegexSearch& search, bool all) : mText(search.Subject()), mRangesOfMatch(search.Ranges().size()) {
        mMemory.Resize(sizeof(MatchList));
        while (search.Next()) {
            for (const TextRange& range : search.Ranges()) {
                mRanges.Append(range);
            }
            if (!all) break;
        }
    }

    const Text& Subject() const noexcept { return mText; }
    std::size_t Count() const noexcept { return mRanges.Items().size() / mRangesOfMatch; }
    /// A match, and behind it its groups.
    std::span<const TextRange> RangesOf(std::size_t index) const noexcept {
        return std::span(mRanges.Items()).subspan(index * mRangesOfMatch, mRangesOfMatch);
    }

private:
    Text mText;
    std::size_t mRangesOfMatch;
    AccountedList<TextRange> mRanges;
    MemoryAccount::Share mMemory;
};

using SharedList = std::shared_ptr<const MatchList>;

std::size_t CheckedIndex(std::int32_t index, std::size_t count) {
    if (index < 0 || static_cast<std::size_t>(index) >= count) Raise(ErrorNumber::InvalidProcedureCall);
    return static_cast<std::size_t>(index);
}

class SubMatches final : public Object<SubMatches, Facet<ISubMatches>> {
public:
    static constexpr const char* kClassName = ISubMatches::kName;

    SubMatches(SharedList list, std::size_t match) : mList(std::move(list)), mMatch(match) {
        mMemory.Resize(sizeof(SubMatches));
    }

    std::int32_t Count() override { return static_cast<std::int32_t>(Groups().size()); }
    Variant Item(std::int32_t index) override {
        const TextRange& range = Groups()[CheckedIndex(index, Groups().size())];
        return range.IsSet() ? Variant(range.Of(mList->Subject())) : Variant();
    }
    Ref<IEnumVariant> NewEnum() override {
        std::vector<Variant> items;
        for (std::int32_t i = 0; i < Count(); ++i) {
            items.push_back(Item(i));
        }
        return EnumerateItems(std::move(items));
    }

private:
    std::span<const TextRange> Groups() const noexcept { return mList->RangesOf(mMatch).subspan(1); }

    SharedList mList;
    std::size_t mMatch;
    MemoryAccount::Share mMemory;
};

class Match final : public Object<Match, Facet<IMatch>> {
public:
    static constexpr const char* kClassName = IMatch::kName;

    Match(SharedList list, std::size_t match) : mList(std::move(list)), mMatch(match) { mMemory.Resize(sizeof(Match)); }

    Text Value() override { return Whole().Of(mList->Subject()); }
    std::int32_t FirstIndex() override { return static_cast<std::int32_t>(Whole().begin); }
    std::int32_t Length() override { return static_cast<std::int32_t>(Whole().end - Whole().begin); }
    Ref<ISubMatches> SubMatches() override { return MakeObject<vbscript::SubMatches>(mList, mMatch); }

private:
    const TextRange& Whole() const noexcept { return mList->RangesOf(mMatch).front(); }

    SharedList mList;
    std::size_t mMatch;
    MemoryAccount::Share mMemory;
};

/// Makes the objects as they are asked for: a long text may have very many matches.
class MatchEnumerator final : public Object<MatchEnumerator, Facet<IEnumVariant>> {
public:
    static constexpr const char* kClassName = "Enumerator";

    explicit MatchEnumerator(SharedList list) : mList(std::move(list)) { mMemory.Resize(sizeof(MatchEnumerator)); }

    bool Next(Variant& item) override {
        if (mNext == mList->Count()) return false;
        item = MakeObject<Match>(mList, mNext++);
        return true;
    }
    void Reset() override { mNext = 0; }

private:
    SharedList mList;
    std::size_t mNext = 0;
    MemoryAccount::Share mMemory;
};

class Matches final : public Object<Matches, Facet<IMatches>> {
public:
    static constexpr const char* kClassName = IMatches::kName;

    explicit Matches(SharedList list) : mList(std::move(list)) { mMemory.Resize(sizeof(Matches)); }

    std::int32_t Count() override { return static_cast<std::int32_t>(mList->Count()); }
    Ref<IMatch> Item(std::int32_t index) override {
        return MakeObject<Match>(mList, CheckedIndex(index, mList->Count()));
    }
    Ref<IEnumVariant> NewEnum() override { return MakeObject<MatchEnumerator>(mList); }

private:
    SharedList mList;
    MemoryAccount::Share mMemory;
};

}  // namespace

Ref<IMatches> CollectMatches(RegexSearch& search, bool all) {
    return MakeObject<Matches>(std::make_shared<const MatchList>(search, all));
}

}  // namespace ov::vbscript
