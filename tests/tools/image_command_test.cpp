// Whole device images by the tool.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "support/temporary_folder.h"
#include "support/tool.h"

namespace ov {
namespace {

using ::testing::HasSubstr;
using testing::RunTool;

class ImageCommand : public ::testing::Test {
protected:
    ImageCommand() {
        EXPECT_EQ(RunTool("pack " OV_MODEL_SOURCE_DIR "/examples/tt200/tt200.sql -o " + mFolder / "d.db").status, 0);
    }
    testing::Outcome Run(const std::string& map, const std::string& options = "") {
        return RunTool("image " + mFolder / "d.db" + " 'TT200 HART' " + map + " " + options);
    }
    // What the tool says of a map with these lines below the titles.
    std::string Said(const std::string& lines, const std::string& options = "") {
        std::ofstream(mFolder / "m.csv") << "path,startByte,bitLength,startBit,byteOrder\n" << lines;
        return Run(mFolder / "m.csv", options + " -o " + mFolder / "none").text;
    }
    std::string Content(const std::string& name) {
        std::ostringstream content;
        content << std::ifstream(mFolder / name, std::ios::binary).rdbuf();
        return content.str();
    }
    testing::TemporaryFolder mFolder;
};

TEST_F(ImageCommand, WritesReadsAndShowsTheSamplesImages) {
    const std::string map = OV_MODEL_SOURCE_DIR "/examples/tt200/device_image.csv";
    ASSERT_EQ(Run(map, "-o " + mFolder / "image").text, "");
    ASSERT_EQ(Run(map, "--hex -o " + mFolder / "image.hex").text, "");
    std::string bytes = Content("image");
    ASSERT_EQ(bytes.size(), 75U);
    EXPECT_THAT(Content("image.hex"), HasSubstr("016E63E1")) << "the serial number 24011745";
    bytes[42] = 7;  // the contrast
    std::ofstream(mFolder / "image", std::ios::binary) << bytes;
    EXPECT_THAT(Run(map, "--import " + mFolder / "image").text,
                ::testing::ContainsRegex("\n42 +8 +07 +0/14/1402 +[^\n]* 7 %\n"));
    EXPECT_THAT(Run(map).text, ::testing::ContainsRegex("\n33 +4 at 4 +21 +0/14/1407 [^\n]* 2\n"));
    EXPECT_EQ(Run(OV_MODEL_SOURCE_DIR "/examples/tt200/sensor_image.csv", "-o " + mFolder / "sensor").status, 0);
    EXPECT_EQ(Content("sensor").size(), 68U);
}

TEST_F(ImageCommand, TellsAllFaultsByTheirLinesAndWritesNothing) {
    const std::string overlap = Said("0/14/1402,0,8,0,big\n\n0/14/1405,2,32,0,big\n0/14/1407,1,4,6,big\n");
    EXPECT_THAT(overlap, HasSubstr("m.csv:5: 0/14/1407 overlaps 0/14/1402 of line 2\n")) << "on the byte before";
    EXPECT_EQ(overlap.find(":4:"), std::string::npos);
    const std::string outside = Said("0/14/1407,0,4,6,big\n0/14/1405,2,32,0,big\n", "--size 5");
    EXPECT_THAT(outside, HasSubstr("m.csv:2: 0/14/1407 lies outside the 5 bytes\n"));
    EXPECT_THAT(outside, HasSubstr("m.csv:3: 0/14/1405 lies outside the 5 bytes\n"));
    const std::string lines =
        Said("0/14,0,8,0,big\n0/14/1,-1,8,0,big\n0/14/1,0,0,0,big\n0/14/1,0,8,,big\n0/14/1,0,8,0,2\n1\n");
    for (const char* fault : {":2: '0/14' is no path", ":3: '-1' is no start byte", ":4: '0' is no bit length",
                              ":5: '' is no start bit", ":6: '2' is neither", ":7: not 5 columns"}) {
        EXPECT_THAT(lines, HasSubstr(fault));
    }
    EXPECT_THAT(Said("0/14/1,0,8,0,big\n0/99/1,1,8,0,big\n"), HasSubstr("m.csv:3: no group '99'"));
    EXPECT_THAT(Said("0/14/1404,8,12,0,big\n"), HasSubstr("m.csv:2: 0/14/1404 has no form of that length"));
    EXPECT_THAT(Said(""), HasSubstr("names no field"));
    std::ofstream(mFolder / "odd.hex") << "123";
    EXPECT_THAT(Said("0/14/1402,0,8,0,big\n", "--hex --import " + mFolder / "odd.hex"), HasSubstr("odd number"));
    EXPECT_FALSE(std::filesystem::exists(mFolder / "none"));
}

}  // namespace
}  // namespace ov
