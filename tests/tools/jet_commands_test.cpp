// The sample descriptor as a Jet file, as the tool's users meet it: used as it is, locked by another program,
// converted.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/store/jet/jet_copy.h"
#include "support/scoped_settings.h"
#include "support/test_database.h"
#include "support/tool.h"

namespace ov {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using testing::JetFile;
using testing::Outcome;
using testing::RunTool;
using testing::ScopedVariable;
using testing::TestDatabase;

constexpr const char* kTypes[] = {"'TT200 HART'", "'TT200 PROFINET'", "'TT200 HART SIL'"};

std::string SampleText() {
    std::ostringstream sql;
    sql << std::ifstream(OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql").rdbuf();
    return sql.str();
}

class JetSample : public ::testing::Test {
protected:
    JetSample() : mSqlite(SampleText()), mJet(mSqlite.folder() / "sample.mdb") {
        JetFile file = testing::CopyToJet(mSqlite.Path());
        file.password = "9kelp";
        file.pageKey = 0x2468ACE0;
        testing::WriteJet(file, mJet);
    }
    // All that the tool tells of a file's types, channels, groups, parameters and their texts, values, lists and
    // limits.
    static std::string WholeOf(const std::string& file) {
        std::string whole = RunTool("types " + file).text;
        for (const char* type : kTypes) {
            for (const char* language : {" --language 7", " --language 9"}) {
                const Outcome info = RunTool("info " + file + " " + type + language + " --json");
                const Outcome tree = RunTool("tree " + file + " " + type + language + " --json");
                EXPECT_EQ(info.status + tree.status, 0) << info.text << tree.text;
                whole += info.text + tree.text;
            }
        }
        return whole;
    }

    const TestDatabase mSqlite;
    const std::string mJet;
};

TEST_F(JetSample, IsTheSameDeviceAsTheSqliteFileAndAfterAConversion) {
    const std::string expected = WholeOf(mSqlite.path());
    EXPECT_EQ(WholeOf(mJet), expected);
    const std::string converted = mSqlite.folder() / "converted.db";
    const Outcome conversion = RunTool("convert " + mJet + " -o " + converted);
    EXPECT_EQ(conversion.status, 0) << conversion.text;
    EXPECT_THAT(conversion.text, ::testing::ContainsRegex("\nParameters +[0-9]+\n"));
    EXPECT_EQ(WholeOf(converted), expected);
    EXPECT_EQ(RunTool("tables " + converted + " --json").text, RunTool("tables " + mJet + " --json").text);
}

TEST_F(JetSample, IsReadFromAPrivateCopyWhileAnotherProgramHoldsIt) {
    const ScopedVariable cache("XDG_CACHE_HOME", mSqlite.folder() / "cache");
    const ScopedVariable registry("OV_MODEL_REGISTRY", mSqlite.folder() / "none.ini");
    const int file = open(mJet.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    const Outcome types = RunTool("types " + mJet);
    close(file);
    EXPECT_EQ(types.text, "TT200 HART\nTT200 PROFINET\nTT200 HART SIL\n");
    const fs::path copies = fs::path(mSqlite.folder() / "cache") / "Orvane" / "TempFileCopy";
    ASSERT_TRUE(fs::exists(copies));
    const fs::path copy = *fs::directory_iterator(copies);
    EXPECT_THAT(copy.filename().string(), ::testing::MatchesRegex("sample\\.[0-9A-F]+\\.mdb"));
    EXPECT_EQ(fs::last_write_time(copy), fs::last_write_time(mJet));
}

TEST_F(JetSample, ConversionTellsWhatItLeavesOutAndWritesNothingElse) {
    const std::string target = mSqlite.folder() / "out.db";
    const auto convert = [&](const std::string& rest) { return RunTool("convert " + mJet + " -o " + target + rest); };
    const Outcome refused = convert(" --password wrong");
    EXPECT_NE(refused.status, 0);
    EXPECT_THAT(refused.text, HasSubstr("Not a valid password."));
    EXPECT_FALSE(fs::exists(target));

    testing::JetTable link{"Elsewhere", {}, {}, {}};
    link.type = 6;
    const testing::JetTable table{"T", {{"a", jet::ColumnType::Long, true}}, {{{std::int64_t{5}}}}, {}};
    testing::WriteJet({jet::Version::Jet3, "", 0, {table, link}}, mJet);
    const Outcome partial = convert("");
    EXPECT_EQ(partial.status, 1);
    EXPECT_THAT(partial.text, HasSubstr("left out: "));
    EXPECT_THAT(partial.text, HasSubstr("Elsewhere"));
    EXPECT_EQ(RunTool("tables " + target).text, "T: 1 rows\n  a  Long  key 1\n");
    const Outcome again = convert("");
    EXPECT_NE(again.status, 0);
    EXPECT_THAT(again.text, HasSubstr("--force"));
    std::ofstream(target) << "former";
    const Outcome lossy = convert(" --force");
    EXPECT_EQ(lossy.status, 1);
    EXPECT_THAT(lossy.text, HasSubstr("is not replaced, since something is left out; --lossy replaces it\n"));
    EXPECT_EQ(fs::file_size(target), 6u);
    EXPECT_EQ(convert(" --force --lossy").status, 1);
    EXPECT_EQ(RunTool("tables " + target).text, "T: 1 rows\n  a  Long  key 1\n");
}

}  // namespace
}  // namespace ov
