// SPDX-License-Identifier: MIT
#include "tools/engine/EngineLine.h"

#include <gtest/gtest.h>

namespace Tarnex::Test {

namespace {

TEST(EngineLineTest, TheGameStaysAsItsConfigurationHasIt) {
    const Report::EngineStart start{
        "/usr/games/openmw", "", "/home/a/maps", {"keep.esp"}, "Keep, Level 1", "/home/a/go.txt"};
    EXPECT_EQ(Report::EngineLine(System::Posix, Report::EngineWords(start)),
              "/usr/games/openmw --skip-menu --data /home/a/maps --content keep.esp "
              "--start \"Keep, Level 1\" --script-run /home/a/go.txt");
}

TEST(EngineLineTest, AStageStandsInPlaceOfTheGame) {
    const Report::EngineStart start{"C:\\Program Files\\OpenMW 0.48.0\\openmw.exe",
                                    "C:\\my stage\\",
                                    "C:\\maps",
                                    {"Morrowind.esm", "keep.esp"},
                                    "Keep",
                                    ""};
    EXPECT_EQ(Report::EngineLine(System::Windows, Report::EngineWords(start)),
              "\"C:\\Program Files\\OpenMW 0.48.0\\openmw.exe\" --skip-menu --replace content "
              "--replace data --replace fallback-archive --replace fallback "
              "--data \"\\\"C:\\my stage\\\\\\\"\" --data C:\\maps "
              "--content Morrowind.esm --content keep.esp --start Keep");
}

TEST(EngineLineTest, AFolderWithBlanksIsQuotedForTheEngineToo) {
    const Report::EngineStart start{"openmw", "", "/maps & more", {}, "Keep", ""};
    EXPECT_EQ(Report::EngineWords(start).at(3), "\"/maps && more\"");
    EXPECT_EQ(Report::EngineLine(System::Posix, Report::EngineWords(start)),
              "openmw --skip-menu --data '\"/maps && more\"' --start Keep");
}

TEST(EngineLineTest, WordsAreQuotedAsTheSystemTakesThem) {
    EXPECT_EQ(Report::EngineLine(System::Posix, {"a", "$b", "it's"}), "a '$b' \"it's\"");
    EXPECT_EQ(Report::EngineLine(System::Windows, {"a", "$b", "", "\\\\"}), "a \"$b\" \"\" \\\\");
}

TEST(EngineLineTest, ContentIsFoundInAnyCase) {
    const std::vector<std::string> names = {"Morrowind.esm", "My Mod.esp"};
    EXPECT_TRUE(Report::HasContent(names, "morrowind.ESM"));
    EXPECT_FALSE(Report::HasContent(names, "Mod.esp"));
}

} // namespace

} // namespace Tarnex::Test
