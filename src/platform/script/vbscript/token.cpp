#include "platform/script/vbscript/token.h"

#include <array>

#include "platform/automation/text.h"

namespace ov::vbscript {

namespace {

struct Word {
    std::u16string_view text;
    TokenKind kind;
};

constexpr std::array kWords = {
    Word{u"and", TokenKind::And},
    Word{u"byref", TokenKind::ByRef},
    Word{u"byval", TokenKind::ByVal},
    Word{u"call", TokenKind::Call},
    Word{u"case", TokenKind::Case},
    Word{u"class", TokenKind::Class},
    Word{u"const", TokenKind::Const},
    Word{u"dim", TokenKind::Dim},
    Word{u"do", TokenKind::Do},
    Word{u"each", TokenKind::Each},
    Word{u"else", TokenKind::Else},
    Word{u"elseif", TokenKind::ElseIf},
    Word{u"empty", TokenKind::Empty},
    Word{u"end", TokenKind::EndWord},
    Word{u"eqv", TokenKind::Eqv},
    Word{u"exit", TokenKind::Exit},
    Word{u"false", TokenKind::False},
    Word{u"for", TokenKind::For},
    Word{u"function", TokenKind::Function},
    Word{u"get", TokenKind::Get},
    Word{u"goto", TokenKind::GoTo},
    Word{u"if", TokenKind::If},
    Word{u"imp", TokenKind::Imp},
    Word{u"in", TokenKind::In},
    Word{u"is", TokenKind::Is},
    Word{u"let", TokenKind::Let},
    Word{u"loop", TokenKind::Loop},
    Word{u"me", TokenKind::Me},
    Word{u"mod", TokenKind::Mod},
    Word{u"new", TokenKind::New},
    Word{u"next", TokenKind::Next},
    Word{u"not", TokenKind::Not},
    Word{u"nothing", TokenKind::Nothing},
    Word{u"null", TokenKind::Null},
    Word{u"on", TokenKind::On},
    Word{u"option", TokenKind::Option},
    Word{u"or", TokenKind::Or},
    Word{u"private", TokenKind::Private},
    Word{u"public", TokenKind::Public},
    Word{u"redim", TokenKind::ReDim},
    Word{u"rem", TokenKind::Rem},
    Word{u"resume", TokenKind::Resume},
    Word{u"select", TokenKind::Select},
    Word{u"set", TokenKind::Set},
    Word{u"stop", TokenKind::Stop},
    Word{u"sub", TokenKind::Sub},
    Word{u"then", TokenKind::Then},
    Word{u"to", TokenKind::To},
    Word{u"true", TokenKind::True},
    Word{u"until", TokenKind::Until},
    Word{u"wend", TokenKind::Wend},
    Word{u"while", TokenKind::While},
    Word{u"with", TokenKind::With},
    Word{u"xor", TokenKind::Xor},
};

constexpr std::size_t kLongestWord = 8;
constexpr std::size_t kSlots = 256;

/// A hash table of the words; each slot holds a number in kWords plus 1.
using Slots = std::array<std::uint8_t, kSlots>;

Slots MakeSlots() noexcept {
    Slots slots{};
    for (std::size_t i = 0; i < kWords.size(); ++i) {
        std::size_t at = HashNoCase(kWords[i].text) % kSlots;
        while (slots[at] != 0) {
            at = (at + 1) % kSlots;
        }
        slots[at] = static_cast<std::uint8_t>(i + 1);
    }
    return slots;
}

}  // namespace

TokenKind WordKind(std::u16string_view word, std::uint32_t hash) noexcept {
    static const Slots slots = MakeSlots();
    if (word.size() > kLongestWord) return TokenKind::Identifier;
    for (std::size_t at = hash % kSlots; slots[at] != 0; at = (at + 1) % kSlots) {
        const Word& candidate = kWords[slots[at] - 1u];
        if (EqualNoCase(candidate.text, word)) return candidate.kind;
    }
    return TokenKind::Identifier;
}

}  // namespace ov::vbscript
