// SPDX-License-Identifier: MIT
#include <vaultry/game/EngineConfig.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

Environment Of(std::map<std::string, std::string> values) {
    return [values = std::move(values)](const char* name) {
        const auto found = values.find(name);
        return found == values.end() ? std::string() : found->second;
    };
}

EngineConfig Read(std::string_view text) {
    EngineConfig config;
    AddEngineConfig(text, config);
    return config;
}

TEST(EngineConfigTest, FoldersAndContentStandInLinesOfTheirOwn) {
    const EngineConfig config = Read("# content=no.esp\r\n"
                                     "data=\"/a b\"\r\n"
                                     " content = Morrowind.esm \r\n"
                                     "contents=no.esp\n"
                                     "\n"
                                     "data=/c d\n"
                                     "data-local=/e\n"
                                     "content=My Mod.esp");
    EXPECT_EQ(config.content, (Lines{"Morrowind.esm", "My Mod.esp"}));
    EXPECT_EQ(config.folders, (Lines{"/a b", "/c d", "/e"}));
    EXPECT_TRUE(Read("").content.empty());
}

TEST(EngineConfigTest, AnAmpersandInQuotationMarksTakesTheMeaningAway) {
    EXPECT_EQ(Read(R"(data="/a &"b&" && c" # d)").folders, (Lines{R"(/a "b" & c)"}));
    EXPECT_EQ(Read("data=/a && b").folders, (Lines{"/a && b"}));
    EXPECT_EQ(Read("data=\"/a&").folders, (Lines{"/a&"}));
    EXPECT_EQ(Read("data=\"").folders, (Lines{""}));
}

TEST(EngineConfigTest, WhatOneFileSaysIsAddedToThatOfAnother) {
    EngineConfig config = Read("data=/a\ncontent=A.esm\n");
    AddEngineConfig("data=/b\ncontent=B.esp\n", config);
    EXPECT_EQ(config.folders, (Lines{"/a", "/b"}));
    EXPECT_EQ(config.content, (Lines{"A.esm", "B.esp"}));
}

TEST(EngineConfigTest, TheLastFileIsTheUsers) {
    EXPECT_EQ(EngineConfigPath(System::Posix, Of({{"HOME", "/home/a"}})),
              "/home/a/.config/openmw/openmw.cfg");
    EXPECT_EQ(
        EngineConfigPath(System::Posix, Of({{"HOME", "/home/a"}, {"XDG_CONFIG_HOME", "/etc/a"}})),
        "/etc/a/openmw/openmw.cfg");
    EXPECT_EQ(EngineConfigPaths(System::Posix, Of({{"HOME", "/home/a"}})),
              (Lines{"/etc/openmw/openmw.cfg",
                     "/home/a/Library/Preferences/openmw/openmw.cfg",
                     "/home/a/.config/openmw/openmw.cfg"}));
    const Environment windows = Of({{"USERPROFILE", "C:\\Users\\a"}});
    EXPECT_EQ(EngineConfigPath(System::Windows, windows),
              "C:\\Users\\a\\Documents\\My Games\\OpenMW\\openmw.cfg");
    EXPECT_EQ(EngineConfigPaths(System::Windows, windows),
              (Lines{EngineConfigPath(System::Windows, windows)}));
}

} // namespace

} // namespace Tarnex::Test
