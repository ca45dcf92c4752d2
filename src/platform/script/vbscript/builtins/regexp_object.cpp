#include "platform/script/vbscript/builtins/regexp_object.h"

#include <array>

#include "platform/automation/member.h"
#include "platform/script/vbscript/builtins/regexp_replacement.h"

namespace ov::vbscript {

const InterfaceInfo& IRegExp::Members() {
    static constexpr std::array kMembers = {
        get_member<&IRegExp::get_Pattern>("Pattern"),
        let_member<&IRegExp::let_Pattern>("Pattern"),
        get_member<&IRegExp::get_IgnoreCase>("IgnoreCase"),
        let_member<&IRegExp::let_IgnoreCase>("IgnoreCase"),
        get_member<&IRegExp::get_Global>("Global"),
        let_member<&IRegExp::let_Global>("Global"),
        get_member<&IRegExp::get_Multiline>("Multiline"),
        let_member<&IRegExp::let_Multiline>("Multiline"),
        member<&IRegExp::Execute>("Execute"),
        member<&IRegExp::Test>("Test"),
        member<&IRegExp::Replace>("Replace"),
    };
    static const InterfaceInfo info(kIid, kName, kMembers);
    return info;
}

namespace {

class RegExp final : public Object<RegExp, Facet<IRegExp>> {
public:
    static constexpr const char* kClassName = IRegExp::kName;

    explicit RegExp(BuiltinContext::Link link) : mLink(std::move(link)) { mMemory.Resize(sizeof(RegExp)); }

    Text get_Pattern() override { return mPattern; }
    void let_Pattern(const Text& pattern) override {
        mPattern = pattern;
        mRegex.reset();
    }
    bool get_IgnoreCase() override { return mFlags.ignoreCase; }
    void let_IgnoreCase(bool ignoreCase) override {
        mFlags.ignoreCase = ignoreCase;
        mRegex.reset();
    }
    bool get_Global() override { return mGlobal; }
    void let_Global(bool global) override { mGlobal = global; }
    bool get_Multiline() override { return mFlags.multiline; }
    void let_Multiline(bool multiline) override {
        mFlags.multiline = multiline;
        mRegex.reset();
    }

    Ref<IMatches> Execute(const Text& text) override {
        RegexSearch search = Search(text);
        return CollectMatches(search, mGlobal);
    }
    bool Test(const Text& text) override { return Search(text).Next(); }

    Text Replace(const Text& text, const Variant& replacement) override {
        RegexSearch search = Search(text);
        const Replacement parts(replacement, mLink);
        const bool all = mGlobal;  // a procedure that gives the replacement may change this object
        Text result;
        std::size_t done = 0;
        while (search.Next()) {
            const TextRange match = search.Ranges().front();
            result += text.view().substr(done, match.begin - done);
            parts.AppendTo(result, search);
            done = match.end;
            if (!all) break;
        }
        if (done == 0 && result.empty()) return text;
        result += text.view().substr(done);
        return result;
    }

private:
    RegexSearch Search(const Text& text) {
        if (!mRegex) mRegex = std::make_shared<Regex>(mPattern, mFlags);
        return RegexSearch(mRegex, text, mLink);
    }

    BuiltinContext::Link mLink;
    Text mPattern;
    RegexFlags mFlags;
    bool mGlobal = false;
    std::shared_ptr<const Regex> mRegex;  // of the pattern, once it was needed
    MemoryAccount::Share mMemory;
};

}  // namespace

Ref<IRegExp> MakeRegExp(BuiltinContext::Link link) {
    return MakeObject<RegExp>(std::move(link));
}

Ref<IDispatch> NewBuiltinObject(std::u16string_view className, BuiltinContext& context) {
    if (!EqualNoCase(className, u"RegExp")) return nullptr;
    return MakeRegExp(context.LinkHere());
}

}  // namespace ov::vbscript
