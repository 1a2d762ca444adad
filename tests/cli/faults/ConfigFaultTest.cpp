// SPDX-License-Identifier: MIT
// Configurations that are not there, not readable, or gone while they are read.
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tests/cli/faults/FaultTest.h>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

class ConfigFaultTest : public FaultTest {
protected:
    Outcome Generate(const std::string& config) const {
        return Run({"generate", "--fixed", "-c", config});
    }
};

TEST_F(ConfigFaultTest, LinkToNowhereIsNoConfiguration) {
    fs::create_symlink("gone.xml", File("my.xml"));
    const Outcome outcome = Generate("my.xml");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: the configuration \"my.xml\" does not exist\n");
    ExpectOldFileAlone({"my.xml"});
}

TEST_F(ConfigFaultTest, FolderIsNoConfiguration) {
    fs::create_directory(File("my.xml"));
    const Outcome outcome = Generate("my.xml");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: the configuration \"my.xml\" is a folder\n");
    ExpectOldFileAlone({"my.xml"});
}

TEST_F(ConfigFaultTest, ConfigurationWithoutTheRightToReadIt) {
    fs::copy_file(smallConfig, File("my.xml"));
    fs::permissions(File("my.xml"), fs::perms::none);
    const Outcome outcome = RunAsNobody({"generate", "-c", "my.xml"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: the configuration \"my.xml\" cannot be opened\n");
    ExpectOldFileAlone({"my.xml"});
}

// It is there when the program looks for it and gone when it is read.
TEST_F(ConfigFaultTest, ConfigurationThatVanishesGivesNoDungeon) {
    fs::copy_file(smallConfig, File("my.xml"));
    const Outcome outcome =
        RunWithFaults("VAULTRY_VANISHES=my.xml", {"generate", "--fixed", "-c", "my.xml"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_TRUE(Contains(outcome.err, "Fatal Error parsing XML")) << outcome.err;
    EXPECT_TRUE(Contains(outcome.err, "the configuration \"my.xml\" cannot be read at all: "))
        << outcome.err;
    ExpectOldFileAlone();
}

TEST_F(ConfigFaultTest, PipeServesAsConfiguration) {
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    const pid_t child = Start({"generate", "--fixed", "-c", "pipe"});
    std::ofstream(File("pipe")) << ReadFile(smallConfig);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(Read("dungeon.esp").substr(0, 4), "TES3");
}

TEST_F(ConfigFaultTest, PipeThatEndsAtOnceGivesNoDungeon) {
    ASSERT_EQ(mkfifo(File("pipe").c_str(), 0600), 0);
    const pid_t child = Start({"generate", "--fixed", "-c", "pipe"});
    std::ofstream(File("pipe")) << "";
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 2);
    ExpectOldFileAlone({"pipe"});
}

} // namespace

} // namespace Tarnex::Test
