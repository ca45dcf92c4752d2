/// @file
/// The words of the column Type.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/automation/text.h"

namespace ovmodel {

struct ParameterWord {
    enum Kind { Integer, Float, Enumeration, Query, TextEnumeration, TextQuery, String, Environment };

    std::u16string_view word;
    Kind kind;
    bool isText;     ///< has no number, and no gain
    bool hasAction;  ///< runs actionOnChange; of integers those of 32 bits only
};

inline constexpr std::array kParameterWords = {
    ParameterWord{u"INT", ParameterWord::Integer, false, true},
    ParameterWord{u"HEX", ParameterWord::Integer, false, true},
    ParameterWord{u"FLOAT", ParameterWord::Float, false, false},
    ParameterWord{u"ENUM", ParameterWord::Enumeration, false, true},
    ParameterWord{u"SELECT", ParameterWord::Query, false, true},
    ParameterWord{u"ACTION", ParameterWord::Enumeration, false, true},
    ParameterWord{u"ENUMSTR", ParameterWord::TextEnumeration, true, false},
    ParameterWord{u"SELECTSTR", ParameterWord::TextQuery, true, false},
    ParameterWord{u"STRING", ParameterWord::String, true, false},
    ParameterWord{u"ENVIROMENT", ParameterWord::Environment, true, false},
};

/// The entry of a word, case included, or nullptr: no parameter is made of such a row.
inline const ParameterWord* FindParameterWord(std::u16string_view word) {
    for (const ParameterWord& each : kParameterWords) {
        if (each.word == word) return &each;
    }
    return nullptr;
}

}  // namespace ovmodel
