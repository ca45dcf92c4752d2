/// @file
/// RegExp: the language's regular expression object, and what a search with it gives.
#pragma once

#include "platform/automation/enumeration.h"
#include "platform/automation/object.h"
#include "platform/script/vbscript/builtins/regex.h"

namespace ov::vbscript {

// The class names are the ones that the language's TypeName has always given for these objects.

/// The groups of a match.
class ISubMatches : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{2F6B1C0E-5D3A-4B8F-9C47-1A0E8D7B6F31}");
    static constexpr const char* kName = "ISubMatches";
    static const InterfaceInfo& Members();

    virtual std::int32_t Count() = 0;
    /// The text of a group, from 0 on; Empty for one that took no part. The default member. @throws RuntimeError 5 for
    /// a group that is not there
    virtual Variant Item(std::int32_t index) = 0;
    virtual Ref<IEnumVariant> NewEnum() = 0;
};

/// One match.
class IMatch : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{2F6B1C0E-5D3A-4B8F-9C47-1A0E8D7B6F32}");
    static constexpr const char* kName = "IMatch2";
    static const InterfaceInfo& Members();

    /// The text that was found. The default member.
    virtual Text Value() = 0;
    /// Its place, from 0 on.
    virtual std::int32_t FirstIndex() = 0;
    virtual std::int32_t Length() = 0;
    virtual Ref<ISubMatches> SubMatches() = 0;
};

/// The matches of a search, in order.
class IMatches : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{2F6B1C0E-5D3A-4B8F-9C47-1A0E8D7B6F33}");
    static constexpr const char* kName = "IMatchCollection2";
    static const InterfaceInfo& Members();

    virtual std::int32_t Count() = 0;
    /// A match, from 0 on. The default member. @throws RuntimeError 5 for one that is not there
    virtual Ref<IMatch> Item(std::int32_t index) = 0;
    virtual Ref<IEnumVariant> NewEnum() = 0;
};

/// The regular expression. The operations raise 5017 to 5021 for an error in the pattern, which nothing checks before.
class IRegExp : public IDispatch {
public:
    static constexpr Guid kIid = Guid::Parse("{2F6B1C0E-5D3A-4B8F-9C47-1A0E8D7B6F34}");
    static constexpr const char* kName = "IRegExp2";
    static const InterfaceInfo& Members();

    virtual Text get_Pattern() = 0;
    virtual void let_Pattern(const Text& pattern) = 0;
    virtual bool get_IgnoreCase() = 0;
    virtual void let_IgnoreCase(bool ignoreCase) = 0;
    /// Whether Execute and Replace take all matches, not only the first one.
    virtual bool get_Global() = 0;
    virtual void let_Global(bool global) = 0;
    virtual bool get_Multiline() = 0;
    virtual void let_Multiline(bool multiline) = 0;
    virtual Ref<IMatches> Execute(const Text& text) = 0;
    virtual bool Test(const Text& text) = 0;
    /// The text with its matches replaced: by a text in which "$1", "$&" and the like stand for parts of the match, or
    /// by what a procedure of the script gives for the match, its groups, its place and the text.
    virtual Text Replace(const Text& text, const Variant& replacement) = 0;
};

/// A new regular expression, with an empty pattern.
Ref<IRegExp> MakeRegExp(BuiltinContext::Link link);

/// What a search with Execute found.
Ref<IMatches> CollectMatches(RegexSearch& search, bool all);

}  // namespace ov::vbscript
