/// @file
/// Which columns of the known tables hold numbers of texts and files.
#pragma once

#include <array>
#include <string_view>

namespace ovmodel {

struct IndexColumn {
    std::u16string_view table, column;
    bool isFile;  ///< else a text; 0 stands for none in both
};

inline constexpr std::array kIndexColumns = {
    IndexColumn{u"ModuleTypes", u"defaultName", false},
    IndexColumn{u"ModuleTypes", u"description", false},
    IndexColumn{u"ModuleTypes", u"deviceHelpFile", true},
    IndexColumn{u"Channels", u"name", false},
    IndexColumn{u"Groups", u"name", false},
    IndexColumn{u"Blocks", u"name", false},
    IndexColumn{u"Parameters", u"name", false},
    IndexColumn{u"Parameters", u"description", false},
    IndexColumn{u"Parameters", u"unit", false},
    IndexColumn{u"Parameters", u"html", true},
    IndexColumn{u"Enums", u"valueText", false},
    IndexColumn{u"EnumsStr", u"valueText", false},
};

}  // namespace ovmodel
