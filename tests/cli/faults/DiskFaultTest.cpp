// SPDX-License-Identifier: MIT
// Disks that fill up and places that cannot be written to.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tests/cli/faults/FaultTest.h>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

const Lines kRun = {"generate", "--seed", "3", "--stamp", "1", "--map", "map.svg"};

class DiskFaultTest : public FaultTest {};

// The limit on the size of files stands for a full disk; it works without any rights.
TEST_F(DiskFaultTest, DiskThatFillsAtAnyPointKeepsTheOldFile) {
    EXPECT_EQ(Run(kRun).status, 0);
    const std::size_t map = Read("map.svg").size();
    const std::size_t largest = std::max(Read("dungeon.esp").size(), map);
    fs::remove(File("map.svg"));
    Write("dungeon.esp", kOld);
    constexpr std::size_t kBlock = 512; // the shell's unit
    ASSERT_GT(largest, 10 * kBlock);
    for (std::size_t limit = 1; limit * kBlock < largest; ++limit) {
        SCOPED_TRACE(limit);
        const Outcome outcome = RunAfter("ulimit -f " + std::to_string(limit), kRun);
        EXPECT_EQ(outcome.status, 1);
        const std::string file = limit * kBlock < map ? "map.svg" : "dungeon.esp";
        EXPECT_TRUE(
            Contains(outcome.err, '"' + file + "\" could not be written: it would be larger"))
            << outcome.err;
        ExpectOldFileAlone();
    }
    EXPECT_EQ(RunAfter("ulimit -f 10000", kRun).status, 0);
    EXPECT_EQ(Files(), (Lines{"dungeon.esp", "map.svg"}));
}

// A small disk of its own, where the test may mount one.
class SmallDiskTest : public FaultTest {
protected:
    SmallDiskTest() {
        fs::create_directory(File("disk"));
        mounted = mount("tmpfs", File("disk").c_str(), "tmpfs", 0, "size=64k") == 0;
    }
    ~SmallDiskTest() override {
        if (mounted) {
            umount2(File("disk").c_str(), MNT_DETACH);
        }
    }

    bool mounted = false;
};

TEST_F(SmallDiskTest, FullDiskKeepsTheOldFileAndSaysSo) {
    if (!mounted) {
        GTEST_SKIP() << "this container may not mount a disk; "
                        "DiskFaultTest.DiskThatFillsAtAnyPointKeepsTheOldFile shows the same";
    }
    Write("disk/dungeon.esp", kOld);
    Write("disk/filler", std::string(40000, 'x'));
    Lines run = kRun;
    run.insert(run.end(), {"--size", "large", "-o", "disk/dungeon.esp", "--log", "disk/run.log"});
    const Outcome outcome = Run(run);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(
        Contains(outcome.err, "\"disk/dungeon.esp\" could not be written: the disk is full"));
    EXPECT_EQ(Read("disk/dungeon.esp"), kOld);
    EXPECT_FALSE(fs::exists(File("map.svg")));
    fs::remove(File("disk/filler"));
    fs::remove(File("disk/run.log"));
    fs::remove(File("disk/dungeon.esp"));
    EXPECT_TRUE(fs::is_empty(File("disk")));
}

// The configuration has much to complain about.
TEST_F(SmallDiskTest, LogThatDoesNotFitIsNoSuccess) {
    if (!mounted) {
        GTEST_SKIP() << "this container may not mount a disk; "
                        "DiskFaultTest.EveryVerbWithALogSaysThatItIsNotWhole shows the same";
    }
    constexpr std::size_t kPage = 4096;
    std::string config = "<OstrelData><TileSet TsName=\"Stone\" TsType=\"Room\" TsSize=\"256\">";
    for (int i = 0; i < 100; ++i) {
        config += "<Center>s_center</Center>";
    }
    config += "</TileSet><Layout LayoutName=\"Spot\" Type=\"Room\" Width=\"1\" Height=\"1\"><Row>"
              "<Col>Center</Col></Row></Layout></OstrelData>";
    Write("noisy.xml", config);
    Write("disk/filler", std::string(15 * kPage, 'x'));
    const Outcome outcome = Run(
        {"generate", "--fixed", "-c", "noisy.xml", "--log", "disk/run.log", "--quiet", "--json"});
    EXPECT_EQ(outcome.status, 1);
    const std::string missing = "could not be written whole: No space left on device";
    EXPECT_EQ(outcome.ErrLines().back(), "vaultry: the log \"disk/run.log\" " + missing);
    EXPECT_TRUE(Contains(outcome.out, missing)) << outcome.out;
    EXPECT_EQ(Read("disk/run.log").size(), kPage);
    EXPECT_EQ(Read("dungeon.esp").substr(0, 4), "TES3");
}

TEST_F(DiskFaultTest, ReadOnlyFolderKeepsTheOldFileAndSaysSo) {
    fs::permissions(File(""), fs::perms(0555));
    const Outcome outcome = RunAsNobody({"generate", "--seed", "3"});
    fs::permissions(File(""), fs::perms(0755));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.err, "could not be written: it or its folder is protected"))
        << outcome.err;
    ExpectOldFileAlone();
}

TEST_F(DiskFaultTest, LogThatCannotBeWrittenIsRefusedBeforeAnythingIsDone) {
    fs::permissions(File(""), fs::perms(0555));
    const Outcome outcome = RunAsNobody({"generate", "--log", "run.log"});
    fs::permissions(File(""), fs::perms(0755));
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: the log \"run.log\" cannot be written\n");
    ExpectOldFileAlone();
}

TEST_F(DiskFaultTest, EveryVerbWithALogSaysThatItIsNotWhole) {
    const std::string missing =
        "vaultry: the log \"/dev/full\" could not be written whole: No space left on device";
    for (const Lines& run : {Lines{"generate", "--fixed"},
                             Lines{"map", "--fixed"},
                             Lines{"map", "dungeon.esp"},
                             Lines{"map", "--fixed", "--map", "map.svg"}}) {
        SCOPED_TRACE(run.back());
        Lines logged = run;
        logged.insert(logged.end(), {"--log", "/dev/full", "--quiet"});
        const Outcome outcome = Run(logged);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.ErrLines(), Lines{missing});
    }
    EXPECT_EQ(Files(), (Lines{"dungeon.esp", "map.svg"}));
}

TEST_F(DiskFaultTest, PipeIsRefusedAsOutputAndAsMapWithoutWaitingForAReader) {
    ASSERT_EQ(mkfifo(File("pipe.svg").c_str(), 0600), 0);
    const Outcome plugin = Run({"generate", "-o", "pipe.svg"});
    EXPECT_EQ(plugin.status, 2);
    EXPECT_EQ(plugin.err, "vaultry: the output file \"pipe.svg\" is no ordinary file\n");
    EXPECT_EQ(Run({"generate", "--map", "pipe.svg"}).status, 2);
    EXPECT_TRUE(fs::is_fifo(File("pipe.svg")));
    ExpectOldFileAlone({"pipe.svg"});
}

// What the program says to the system about the files of a folder, in order.
TEST_F(DiskFaultTest, EveryFileIsOnTheDiskBeforeItHasItsNameAndItsNameIsAfterwards) {
    const TempDir calls;
    const std::string file = calls.File("calls");
    Lines run = kRun;
    run.insert(run.end(), {"--html", "page.html"});
    EXPECT_EQ(RunWithFaults("VAULTRY_CALLS_IN='" + file + "'", run).status, 0);
    EXPECT_EQ(ReadFile(file),
              "sync new file\nsync new file\nsync new file\n"
              "rename to dungeon.esp\nsync folder\n"
              "rename to map.svg\nsync folder\n"
              "rename to page.html\nsync folder\n");
}

TEST_F(DiskFaultTest, DiskThatDoesNotKeepWhatItTookKeepsTheOldFile) {
    const Outcome outcome = RunWithFaults("VAULTRY_SYNC_FAILS=1", kRun);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.err, "\"map.svg\" could not be written: Input/output error"))
        << outcome.err;
    ExpectOldFileAlone();
}

TEST_F(DiskFaultTest, FolderIsRefusedAsOutput) {
    fs::create_directory(File("sub"));
    const Outcome outcome = Run({"generate", "-o", "sub"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "vaultry: the output file \"sub\" is a folder\n");
    EXPECT_TRUE(fs::is_empty(File("sub")));
}

TEST_F(DiskFaultTest, ReportThatCannotBeWrittenIsAFailure) {
    const std::string command =
        "cd '" + File("") + "' && '" VAULTRY_PROGRAM "' list --json >/dev/full 2>err.txt";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(Read("err.txt"), "vaultry: standard output could not be written\n");
}

} // namespace

} // namespace Tarnex::Test
