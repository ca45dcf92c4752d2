// What changed between two descriptors, in words.
#include <gmock/gmock.h>

#include "support/small_descriptor.h"
#include "support/test_database.h"
#include "support/tool.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using testing::kSmallDescriptor;
using testing::RunTool;
using testing::TestDatabase;

TEST(Diff, TellsEachChangeRowByRow) {
    const std::string more = "CREATE TABLE Loose (a, b); INSERT INTO Loose VALUES (1, X'00'), (1, X'00'), (2, 'x');";
    const TestDatabase before(kSmallDescriptor + more);
    const TestDatabase after(kSmallDescriptor + more + R"(
UPDATE ModuleTypes SET description = 1, FDTsubDeviceType = NULL WHERE IDX = 1;
DELETE FROM Kinds WHERE Kind = 2;
INSERT INTO Texts VALUES (4, 'Neu', 'New');
UPDATE Texts SET Text_9 = 'Gadget' WHERE TEXT_IDX = 1;
DELETE FROM Loose WHERE rowid = 1;
UPDATE Loose SET b = X'0001' WHERE rowid = 2;
ALTER TABLE Channels ADD COLUMN extra TEXT;
ALTER TABLE Channels DROP COLUMN name;
DROP TABLE Files;
CREATE TABLE Groups (GroupType LONG);
DELETE FROM BusCategories WHERE rowid = 1;
INSERT INTO BusCategories VALUES (1, 1, NULL);
)");
    const testing::Outcome outcome = RunTool("diff " + before.path() + " " + after.path());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.text, R"(ModuleTypes [1] description: 2 ('Beschreibung') -> 1 ('Gerät')
ModuleTypes [1] FDTsubDeviceType: 'x' -> Null
BusCategories: the rows stand in another order
Kinds [2] removed: Kind 2, KindId 'Device'
Texts [1] Text_9: 'Device' -> 'Gadget'
Texts [4] added: TEXT_IDX 4, Text_7 'Neu', Text_9 'New'
Files: table removed, 1 rows
Channels: column name removed
Channels: column extra added, String
Loose [1, X'00'] removed: a 1, b X'00'
Loose [1, X'00'] removed: a 1, b X'00'
Loose [1, X'0001'] added: a 1, b X'0001'
Groups: table added, 0 rows
)");
    EXPECT_THAT(RunTool("diff --language 9 " + before.path() + " " + after.path()).text,
                HasSubstr("2 ('Beschreibung') -> 1 ('Gadget')"));
    EXPECT_THAT(RunTool("diff --json " + before.path() + " " + after.path()).text, HasSubstr(R"json("what": "cell",
    "table": "ModuleTypes",
    "key": "1",
    "column": "description",
    "before": "2 ('Beschreibung')",)json"));
    EXPECT_EQ(RunTool("diff " + before.path() + " " + before.path()).status, 0);
    EXPECT_EQ(RunTool("diff " + before.path() + " " + before.path()).text, "");
    EXPECT_EQ(RunTool("diff " + before.path() + " /no/such.db").status, 2);
}

}  // namespace
}  // namespace ov
