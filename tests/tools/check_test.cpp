// Each defect of a descriptor has its finding, and a descriptor without has none.
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "support/test_database.h"
#include "support/tool.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using testing::Outcome;
using testing::RunTool;
using testing::TestDatabase;

std::string SampleSql(const std::string& name) {
    std::ostringstream text;
    text << std::ifstream(OV_MODEL_SOURCE_DIR "/examples/tt200/" + name).rdbuf();
    return text.str();
}

/// What a check must say of one defect: the begin of a line, and words in it.
struct Defect {
    const char* place;
    const char* words;
};

// Every defect is found, and nothing else is.
void ExpectFindings(const TestDatabase& database, std::span<const Defect> defects) {
    const Outcome outcome = RunTool("check " + database.path());
    std::vector<std::string> lines;
    std::istringstream text(outcome.text);
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    for (const Defect& defect : defects) {
        const auto found = std::ranges::find_if(lines, [&](const std::string& line) {
            return line.starts_with(defect.place) && line.find(defect.words) != std::string::npos;
        });
        EXPECT_NE(found, lines.end()) << defect.place << " ... " << defect.words;
        if (found != lines.end()) lines.erase(found);
    }
    ASSERT_EQ(lines.size(), 1u) << outcome.text;  // the sum
    EXPECT_EQ(outcome.status, lines[0].starts_with("0 errors") ? 1 : 2);
}

TEST(Check, FindsNothingInTheSamples) {
    for (const char* name : {"tt200.sql", "tt100.sql"}) {
        const TestDatabase sample(SampleSql(name));
        const Outcome outcome = RunTool("check " + sample.path());
        EXPECT_EQ(outcome.text, "0 errors, 0 warnings\n");
        EXPECT_EQ(outcome.status, 0);
    }
}

TEST(Check, FindsEachDefect) {
    const TestDatabase database(SampleSql("tt200.sql") + R"(
UPDATE ModuleTypes SET description = 99999, deviceHelpFile = 777 WHERE IDX = 1;
UPDATE ModuleTypes SET FDTversion = 9 WHERE IDX = 4;
UPDATE ModuleTypes SET mainValue = 'CH("1").G("22").P("9999")' WHERE IDX = 2;
UPDATE ChannelTypes SET mainValue = 'abc' WHERE ChannelType = 1;
INSERT INTO [Groups] (ChannelType, GroupType, groupId, name, block1) VALUES (9, 91, 91, 11, 99);
INSERT INTO Channels (ModuleType, ChannelId, name, ChannelType, [order]) VALUES (7, 0, 1, 8, 10);
INSERT INTO BusCategories VALUES (8, 9, NULL);
INSERT INTO Blocks VALUES (44, 45, 31);
INSERT INTO SupportedLanguages VALUES ('040C');
INSERT INTO FieldProperties VALUES ('SensorTypes', 'nam', 'RowSource', 'SELECT 1 FROM Texts');
UPDATE SensorTypes SET name = 66666 WHERE SensorType = 3;

UPDATE Parameters SET subtype = 'f33' WHERE idx = 15060;
UPDATE Parameters SET displayFormat = 'hexagon' WHERE idx = 15070;
UPDATE Parameters SET displayFormat = 'unixtme' WHERE idx = 15040;
UPDATE Parameters SET displayFormat = 'seconds4' WHERE idx = 15030;
UPDATE Parameters SET subtype = 'HartDate' WHERE idx = 15100;
UPDATE Parameters SET subtype = 's65' WHERE idx = 15110;
UPDATE Parameters SET DefaultValue = '-501' WHERE idx = 15130;
UPDATE Parameters SET Type = 'Int' WHERE idx = 15120;
UPDATE Parameters SET kind = 12 WHERE idx = 16060;
UPDATE Parameters SET direction = 7, editable = NULL WHERE idx = 16080;
UPDATE Parameters SET realGain = '0' WHERE idx = 16090;
UPDATE Parameters SET unit = 88888, html = 55 WHERE idx = 16020;
UPDATE Parameters SET subtype = 'ServiceComand' WHERE idx = 16030;
UPDATE Parameters SET DefaultValue = '77' WHERE idx = 16040;
UPDATE Parameters SET actionOnChange = 'NOPE' WHERE idx = 14020;
UPDATE Parameters SET actionOnChange = 'SERVICE' WHERE idx = 16050;
UPDATE Parameters SET DefaultValue = 'MUCH TOO LONG' WHERE idx = 11010;

UPDATE Parameters SET dependency = '!:P("9999") = 1' WHERE idx = 15050;
UPDATE Parameters SET dependency = '!:G("17")("1") = 1' WHERE idx = 15080;
UPDATE Parameters SET dependency = '!:ENV("X") = 1' WHERE idx = 15090;
UPDATE Parameters SET consistency = '!:CH("5")("21")("2101") > 0' WHERE idx = 14060;
UPDATE Parameters SET DefaultValue = '#:CONFM("IDXX")' WHERE idx = 14070;
UPDATE Parameters SET DefaultValue = '#:Len^^(P("1402")' WHERE idx = 14090;
UPDATE Parameters SET consistency = 'P("1111") <> ""' WHERE idx = 11110;
UPDATE Parameters SET Min = 'low' WHERE idx = 14010;
UPDATE Parameters SET Min = '#:P.wrong("1201")', Max = '#:P.script("NO_GAIN")' WHERE idx = 12010;
UPDATE Parameters SET consistency = '!:CONFG.pvalue("1404", "Maxx") > 0 And GETTEXT(4444) = ""' WHERE idx = 14040;
INSERT INTO Texts VALUES (90001, 'eins', 'same'), (90002, 'zwei', 'same'), (90003, '#:1 +', NULL);
UPDATE Parameters SET unit = 90003 WHERE idx = 15030;
INSERT INTO Files VALUES (90, '#:P("1101")', NULL);
INSERT INTO GroupScripts VALUES (21, 'T_GAIN', '!:1'), (13, 'BAD', '!:If');
INSERT INTO Actions VALUES ('SERVICE', '9', 'P.SetValue "9999", P()'), ('UNUSED', NULL, 'x = 1');
INSERT INTO Enums VALUES ('Twice', 1, 90001), ('Twice', 2, 90002), ('Twice', 2, 77777), ('Twice', NULL, 1);

INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, Min, Max, DefaultValue,
                        displayFormat) VALUES
    (14021, 14, 55,   1402, 7, 'INT',    'u8', '0', '100', '50', NULL),
    (16910, 16, 1910, 1691, 8, 'INT',    'u8', NULL, NULL, '1', NULL),
    (16911, 16, 1911, 1691, 8, 'FLOAT',  'f32', NULL, NULL, '1', NULL),
    (16920, 16, 1920, 1692, 8, 'SELECT', 'SELECT nope FROM Enums', NULL, NULL, NULL, NULL),
    (16930, 16, 1930, 1693, 8, 'SELECT', 'SELECT value, valueText FROM Enums', NULL, NULL, NULL, '$5'),
    (16940, 16, 1940, 1694, 8, 'INT',    'u8', '!:5', NULL, '3', NULL),
    (16950, 16, 1950, 1695, 8, 'INT',    'u8', NULL, NULL, '#:1 / 0', NULL),
    (16960, 16, 1960, 1696, 8, 'INT',    'u8', '9', '2', '5', NULL),
    (16961, 16, 1961, 1698, 8, 'INT',    'u8', NULL, NULL, '#:Choose9(1, 2)', NULL),
    (16962, 16, 1962, 1699, 8, 'INT',    'u8', NULL, '!:P.isInn("1602", 1)', '5', NULL),
    (16963, 16, 1963, 1700, 8, 'INT',    'u8', NULL, NULL, '#:Quotient(1, 2)', NULL),
    (99990, 99, 1,    9999, 8, 'INT',    'u8', NULL, NULL, '5', NULL);
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 21)
INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, dependency)
    SELECT 16970 + i, 16, 1970 + i, 1697, 8, 'INT', 'u8', '!:P("1602") = ' || i FROM n;
)");
    static constexpr Defect kDefects[] = {
        {"ModuleTypes [1] description: error:", "'99999': no such text"},
        {"ModuleTypes [1] deviceHelpFile: error:", "'777': no such file"},
        {"ModuleTypes [4] FDTversion: error:", "no such version"},
        {"ModuleTypes [2] mainValue: error:", "there is no parameter"},
        {"ChannelTypes [1] mainValue: error:", "'abc' is no path of 2 quoted ids"},
        {"Groups [9, 91] ChannelType: warning:", "never met"},
        {"Groups [9, 91] GroupType: warning:", "no parameters"},
        {"Groups [9, 91] block1: error:", "no such block"},
        {"Channels [7, 0] ModuleType: error:", "no such module type"},
        {"Channels [7, 0] ChannelType: warning:", "no main value"},
        {"Channels [7, 0] ChannelType: warning:", "no groups"},
        {"BusCategories [8, 9] module: error:", "no such module type"},
        {"BusCategories [8, 9] busCategory: error:", "no such bus category"},
        {"Blocks [44] idx: error:", "'45' is not the key '44'"},
        {"SupportedLanguages [040C] LangId: warning:", "no column 'Text_12'"},
        {"FieldProperties [SensorTypes, nam, RowSource] FieldName: error:", "no column SensorTypes.nam"},
        {"SensorTypes [3] name: error:", "'66666': no such text"},

        {"Parameters [15060] subtype: error:", "32 or 64 bits"},
        {"Parameters [15070] displayFormat: warning:", "no number behind 'hex'"},
        {"Parameters [15040] displayFormat: warning:", "did you mean 'unixtime'?"},
        {"Parameters [15030] displayFormat: warning:", "nothing behind it"},
        {"Parameters [15100] subtype: error:", "did you mean 'hartdate'?"},
        {"Parameters [15110] subtype: error:", "no width of 1 to 64 bits"},
        {"Parameters [15130] DefaultValue: error:", "below the lower limit"},
        {"Parameters [15120] Type: error:", "makes no parameter; did you mean 'INT'?"},
        {"Parameters [16060] kind: error:", "12 is not one of the kinds"},
        {"Parameters [16060] kind: warning:", "no name for the kind"},
        {"Parameters [16080] direction: error:", "7 is not 1 none"},
        {"Parameters [16080] editable: error:", "Null"},
        {"Parameters [16090] realGain: error:", "a gain of 0"},
        {"Parameters [16020] unit: error:", "no such text"},
        {"Parameters [16020] html: error:", "no such file"},
        {"Parameters [16030] subtype: error:", "did you mean 'ServiceCommand'?"},
        {"Parameters [16040] DefaultValue: error:", "'77' is not in the enumeration 'OnOff'"},
        {"Parameters [14020] actionOnChange: error:", "no such action"},
        {"Parameters [16050] actionOnChange: warning:", "runs no action"},
        {"Parameters [11010] DefaultValue: error:", "of 13 characters, is longer than Max"},

        {"Parameters [15050] dependency: error:", "line 1, column 3: group type 15 has no parameter '9999'"},
        {"Parameters [15090] dependency: error:", "ENV has no member ''"},
        {"Parameters [15080] dependency: error:", "no group '17'; did you mean '1"},
        {"Parameters [14060] consistency: error:", "no module type has a channel '5'"},
        {"Parameters [14070] DefaultValue: error:", "no column 'IDXX'; did you mean 'IDX'?"},
        {"Parameters [14090] DefaultValue: error:", "line 1, column 18: Expected ')'"},
        {"Parameters [11110] consistency: error:", "looks like a rule of generation 0"},
        {"Parameters [14010] Min: error:", "'low' is no number"},
        {"Parameters [12010] Min: error:", "P has no member 'wrong'"},
        {"Parameters [12010] Max: error:", "there is no group script 'NO_GAIN'"},
        {"Parameters [14040] consistency: error:", "the table Parameters has no column 'Maxx'; did you mean 'Max'?"},
        {"Parameters [14040] consistency: error:", "there is no text 4444"},
        {"Texts [90003] Text_7: error:", "Expected expression"},
        {"Files [90] Text_7: error:", "'P' is not there for scripts of a channel"},
        {"GroupScripts [21, T_GAIN] ScriptId: error:", "too"},
        {"GroupScripts [13, BAD] script: error:", "line 1, column 3: "},
        {"Actions [SERVICE, 9] actionScript: error:", "has no parameter '9999'"},
        {"Actions [UNUSED, Null] ActionID: warning:", "no parameter has this action"},
        {"Enums [Twice, 2] value: error:", "left out"},
        {"Enums [Twice, 2] valueText: error:", "'same' stands in Text_9 for the value 1 too"},
        {"Enums [Twice, 2] valueText: error:", "'77777': no such text"},

        {"Parameters [15030] ParameterId: error:", "cannot be read: Overflow"},
        {"Parameters [15040] ParameterId: error:", "cannot be read: Overflow"},
        {"Parameters [14021] order: error:", "not neighbours"},
        {"Parameters [16911] Type: error:", "keeps the class of its first row, 'INT'"},
        {"Parameters [16920] subtype: error:", "the query fails"},
        {"Parameters [16930] displayFormat: error:", "asks for column 5 of a query with 2"},
        {"Parameters [16940] DefaultValue: warning:", "is not consistent at the start: value '3', limits 5 .. 255"},
        {"Parameters [16950] DefaultValue: error:", "fails: Division by zero"},
        {"Parameters [16960] Min: error:", "above Max"},
        {"Parameters [16961] DefaultValue: error:", "no function 'Choose9'; did you mean 'Choose8'?"},
        {"Parameters [16962] Max: error:", "P has no member 'isInn'; did you mean 'isIn'?"},
        {"Parameters [16963] DefaultValue: error:", "fails: Type mismatch: 'Quotient'"},
        {"Parameters [99990] GroupType: error:", "never met"},
        {"Parameters [16991] ParameterId: error:", "row 21 of parameter '1697' is dropped"},
    };
    ExpectFindings(database, kDefects);
}

TEST(Check, FindsDefectsOfTablesAndOfTheOtherGeneration) {
    const TestDatabase database(SampleSql("tt100.sql") + R"(
DROP TABLE Versions;
DROP TABLE Kinds;
ALTER TABLE Parameters RENAME COLUMN realGain TO realGian;
CREATE TABLE Copy AS SELECT * FROM BusCategoryTypes;
DROP TABLE BusCategoryTypes;
ALTER TABLE Copy RENAME TO BusCategoryTypes;
INSERT INTO ModuleTypes (IDX, moduletype, FDTversion) VALUES (3, 'TT100', 1);
INSERT INTO Channels SELECT 3, ChannelId, name, ChannelType, [order], NULL, NULL FROM Channels WHERE ModuleType = 1;
INSERT INTO Channels (ModuleType, ChannelId, ChannelType, [order]) VALUES (2, 1, 2, 3);
INSERT INTO SupportedLanguages VALUES ('XYZ');
UPDATE Parameters SET DefaultValue = '#:1' WHERE idx = 102;
UPDATE Parameters SET consistency = 'P() > _' || char(10) || 'P("20^^4"' WHERE idx = 204;
UPDATE Parameters SET Max = 'P("299")' WHERE idx = 203;
)");
    static constexpr Defect kDefects[] = {
        {"Versions: error:", "the table is missing"},
        {"Kinds: warning:", "the table is missing"},
        {"Parameters realGain: error:", "did you mean to name 'realGian' so?"},
        {"BusCategoryTypes: error:", "no primary key"},
        {"ModuleTypes [3] moduletype: error:", "hides this one"},
        {"Channels [2, 1] ChannelId: error:", "in row 4 already"},
        {"SupportedLanguages [XYZ] LangId: error:", "no hexadecimal number"},
        {"Parameters [102] DefaultValue: error:", "a prefix of generation 1"},
        {"Parameters [204] consistency: error:", "line 2, column 10: Expected ')'"},
        {"Parameters [203] Max: error:", "line 1, column 1: group type 2 has no parameter '299'"},
    };
    // What follows of them: every type lacks its version, and every kind its name.
    const std::string text = RunTool("check " + database.path()).text;
    for (const Defect& defect : kDefects) {
        EXPECT_NE(("\n" + text).find(std::string("\n") + defect.place), std::string::npos) << defect.place;
        EXPECT_THAT(text, HasSubstr(defect.words));
    }
    EXPECT_THAT(text, HasSubstr("ModuleTypes [1] moduletype: error: the type cannot be loaded: "));
    EXPECT_EQ(RunTool("check " + database.path()).status, 2);
}

TEST(Check, FindsRulesThatNeverSettle) {
    const TestDatabase database(SampleSql("tt200.sql") + R"(
INSERT INTO Parameters (idx, GroupType, [order], ParameterId, kind, Type, subtype, DefaultValue, dependency) VALUES
    (17000, 16, 2000, 1700, 8, 'INT', 'u8', '0', '!:P("1701") = 1'),
    (17001, 16, 2001, 1700, 8, 'INT', 'u8', '1', '!:P("1701") = 0'),
    (17010, 16, 2010, 1701, 8, 'INT', 'u8', '0', '!:P("1700") = 0'),
    (17011, 16, 2011, 1701, 8, 'INT', 'u8', '1', '!:P("1700") = 1');
)");
    const Outcome outcome = RunTool("check --type 'TT200 HART' " + database.path());
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.text, HasSubstr("ModuleTypes [1] moduletype: error: in 'TT200 HART' rules have not settled"));
    EXPECT_THAT(outcome.text, HasSubstr("0/16/1700, 0/16/1701\n1 error, 0 warnings\n"));
}

TEST(Check, LoadsOneTypeAndTellsWarningsFromErrors) {
    const TestDatabase database(
        SampleSql("tt200.sql") +
        "UPDATE Parameters SET DefaultValue = '#:ENV.Variable(\"X\") & \"6\"' WHERE idx = 12020;"
        "UPDATE Parameters SET Min = '#:7' WHERE idx = 12020;");
    const std::string command = "check " + database.path();
    EXPECT_EQ(RunTool(command + " --type 'TT200 PROFINET'").text, "0 errors, 0 warnings\n");
    const Outcome outcome = RunTool(command + " --type 'TT200 HART' --json");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.text, HasSubstr(R"("key": "12020")"));
    EXPECT_THAT(outcome.text, HasSubstr(R"("severity": "warning")"));
    EXPECT_EQ(RunTool(command + " --type 'TT200 HARD'").text,
              "ovmodel: no module type 'TT200 HARD'; did you mean 'TT200 HART'?\n");
    EXPECT_EQ(RunTool("check " OV_MODEL_SOURCE_DIR "/README.md").status, 2);
}

}  // namespace
}  // namespace ov
