// Descriptor files as SQL text, and back.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "platform/store/jet/jet_writer.h"
#include "support/test_database.h"
#include "support/tool.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using testing::RunTool;
using testing::TemporaryFolder;
using testing::TestDatabase;

std::string Unpacked(const std::string& database) {
    const testing::Outcome outcome = RunTool("unpack " + database);
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    return outcome.text;
}

// Packs the text of a database and gives the text of what that makes.
std::string AndBack(const TemporaryFolder& folder, const std::string& text) {
    std::ofstream(folder / "again.sql", std::ios::binary) << text;
    EXPECT_EQ(RunTool("pack --force " + (folder / "again.sql") + " -o " + (folder / "again.db")).status, 0);
    return Unpacked(folder / "again.db");
}

TEST(Unpack, PackMakesTheSameFileOfItsText) {
    const TestDatabase database(R"(
        CREATE TABLE Odd ("a ""b""" TEXT, [Order] REAL, bytes BLOB, twice AS ([Order] * 2));
        INSERT INTO Odd VALUES
            ('it''s' || char(13, 10) || 'two' || char(10) || 'lines' || char(0) || '; -- x', 0.1, X'00FF27'),
            (NULL, 1.0, 7), ('', 9e999, 1.5), ('007', 5e-324, 'text'), ('ä', 1.7976931348623157e308, NULL);
        DELETE FROM Odd WHERE [Order] = 9e999;
        INSERT INTO Odd VALUES ('last', -9e999, X'');
        CREATE TABLE FieldProperties (TableName TEXT, FieldName TEXT, PropertyName TEXT, PropertyValue TEXT,
            PRIMARY KEY (TableName, FieldName, PropertyName)) WITHOUT ROWID;
        INSERT INTO FieldProperties VALUES ('Enums', 'valueText', 'RowSource', 'SELECT * FROM Texts');
        CREATE INDEX OddOrder ON Odd ([Order]);
        CREATE VIEW Named AS SELECT bytes FROM Odd;
    )");
    const std::string text = Unpacked(database.path());
    EXPECT_EQ(AndBack(database.folder(), text), text);
    EXPECT_THAT(text, HasSubstr("('it''s' || char(13) || '\ntwo\nlines' || char(0) || '; -- x', 0.1, X'00FF27');\n"));
    EXPECT_THAT(text, HasSubstr("(NULL, 1.0, 7);\n"));
    EXPECT_THAT(text, HasSubstr("RowSource"));

    const std::string places = "SELECT group_concat(quote([a \"b\"]) || [Order] || quote(bytes) || twice) FROM Odd";
    const TestDatabase again(text);
    const auto read = [&](const TestDatabase& from) {
        return from.Open()->OpenRecordset(Text::FromUtf8(places))->Fields(Variant(0))->Value().AsText().ToUtf8();
    };
    EXPECT_EQ(read(again), read(database));
}

TEST(Unpack, WritesJetFilesAndSamples) {
    const TemporaryFolder folder;
    using jet::ColumnType;
    testing::WriteJet({jet::Version::Jet4,
                       "",
                       0,
                       {{"Enums",
                         {{"value", ColumnType::Long, true}, {"valueText", ColumnType::Memo}},
                         {{{std::int64_t{2}, "zwei"}}, {{std::int64_t{1}, "1e3"}}},
                         {{"valueText", "RowSource", "SELECT 1 FROM Texts"}}}}},
                      folder / "device.mdb");
    const std::string jet = Unpacked(folder / "device.mdb");
    EXPECT_THAT(jet, HasSubstr("INSERT INTO \"Enums\" VALUES (2, 'zwei');\nINSERT INTO \"Enums\" VALUES (1, '1e3');"));
    EXPECT_THAT(jet, HasSubstr("'SELECT 1 FROM Texts'"));
    EXPECT_EQ(AndBack(folder, jet), jet);

    const std::string sample = OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql";
    ASSERT_EQ(RunTool("pack " + sample + " -o " + (folder / "tt200.db")).status, 0);
    ASSERT_EQ(RunTool("unpack " + (folder / "tt200.db") + " -o " + (folder / "tt200.sql")).status, 0);
    EXPECT_THAT(RunTool("unpack " + (folder / "tt200.db") + " -o " + (folder / "tt200.sql")).text,
                HasSubstr("--force"));
    std::ostringstream text;
    text << std::ifstream(folder / "tt200.sql").rdbuf();
    EXPECT_EQ(AndBack(folder, text.str()), text.str());
    EXPECT_THAT(RunTool("unpack " + sample).text, HasSubstr("Unrecognized database format"));
}

}  // namespace
}  // namespace ov
