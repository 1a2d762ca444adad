// SPDX-License-Identifier: MIT
// The plug-in replaces what was there whole or not at all, and nothing else is left behind.
#include <filesystem>
#include <string>
#include <tests/cli/Program.h>
#include <tests/support/LeftOut.h>
#include <vector>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using OutputTest = ProgramTest;

TEST_F(OutputTest, ReplacesAnExistingFileWhole) {
    Write("dungeon.esp", std::string(100000, 'x'));
    EXPECT_EQ(Generate({}).status, 0);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
    const std::string plugin = Read("dungeon.esp");
    EXPECT_EQ(plugin.substr(0, 4), "TES3");
    EXPECT_EQ(plugin.find("xxx"), std::string::npos);
}

TEST_F(OutputTest, StrictFailureKeepsAnExistingFile) {
    Write("dungeon.esp", "kept");
    EXPECT_EQ(Run({"generate", "-c", faultyConfig, "--fixed", "--strict"}).status, 1);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
    EXPECT_EQ(Read("dungeon.esp"), "kept");
}

TEST_F(OutputTest, FailedRunKeepsAnExistingFile) {
    Write("dungeon.esp", "kept");
    Write("empty.xml", "<OstrelData/>");
    EXPECT_EQ(Run({"generate", "-c", "empty.xml", "--fixed"}).status, 1);
    EXPECT_EQ(Files(), (Lines{"dungeon.esp", "empty.xml"}));
    EXPECT_EQ(Read("dungeon.esp"), "kept");
}

TEST_F(OutputTest, TakesNamesBeyondAsciiAndFolders) {
    fs::create_directory(fs::path(File("")) / "sub");
    EXPECT_EQ(Generate({"-o", "sub/Höhle ж.esp"}).status, 0);
    EXPECT_EQ(Read("sub/Höhle ж.esp").substr(0, 4), "TES3");
    EXPECT_EQ(Files(), Lines{"sub"});
}

#ifndef _WIN32
TEST_F(OutputTest, TakesTheLongestNameOfTheSystem) {
    const auto longest = static_cast<std::size_t>(pathconf(File("").c_str(), _PC_NAME_MAX));
    const std::string name = std::string(longest - 4, 'n') + ".esp";
    EXPECT_EQ(Generate({"-o", name}).status, 0);
    EXPECT_EQ(Files(), Lines{name});
}

TEST_F(OutputTest, KeepsThePermissionsOfTheFileItReplaces) {
    Write("dungeon.esp", "old");
    const fs::perms mine = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(File("dungeon.esp"), mine);
    EXPECT_EQ(Generate({}).status, 0);
    EXPECT_EQ(fs::status(File("dungeon.esp")).permissions(), mine);
}

TEST_F(OutputTest, FollowsALink) {
    Write("real.esp", "old");
    fs::create_symlink("real.esp", File("dungeon.esp"));
    EXPECT_EQ(Generate({}).status, 0);
    EXPECT_TRUE(fs::is_symlink(File("dungeon.esp")));
    EXPECT_EQ(Read("real.esp").substr(0, 4), "TES3");
}

TEST_F(OutputTest, RefusesToReplaceADevice) {
    const Outcome outcome = Generate({"-o", "/dev/null"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// The limit on the size of files stands for a full disk.
TEST_F(OutputTest, FullDiskKeepsAnExistingFileAndSaysSo) {
    Write("dungeon.esp", "kept");
    const Outcome outcome = RunAfter("trap '' XFSZ && ulimit -f 1",
                                     {"generate", "-c", smallConfig, "--fixed", "--quiet"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
    EXPECT_EQ(Read("dungeon.esp"), "kept");
    EXPECT_NE(outcome.err.find("\"dungeon.esp\" could not be written"), std::string::npos)
        << outcome.err;
}
#else
VAULTRY_LEFT_OUT_ON_WINDOWS(OutputTest, "needs links, devices, permissions and limits of POSIX")
#endif

} // namespace

} // namespace Tarnex::Test
