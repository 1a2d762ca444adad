// SPDX-License-Identifier: MIT
// Runs whose memory fails at any point.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <tests/cli/faults/FaultTest.h>

namespace Tarnex::Test {

namespace {

// Whether every allocation is tried, which takes minutes.
bool TryAll() {
    return std::getenv("VAULTRY_EVERY_ALLOCATION") != nullptr;
}

bool SaysOutOfMemory(std::string text) {
    std::ranges::replace(text, 'O', 'o');
    return Contains(text, "out of memory");
}

class MemoryFaultTest : public FaultTest {
protected:
    // Random levels, every file that can be written, and the report.
    Lines Arguments() const {
        return {"generate",
                "-c",
                VAULTRY_SOURCE_DIR "/tests/golden/configs/rooms_full.xml",
                "--seed",
                "3",
                "--stamp",
                "1",
                "--size",
                "tiny",
                "--map",
                "map.svg",
                "--log",
                "run.log",
                "--theme",
                "Rich",
                "--creature-theme",
                "Dead",
                "--json"};
    }

    // The allocations of an undisturbed run.
    int Count(const Lines& arguments) const {
        const TempDir count;
        const std::string file = count.File("count");
        const Outcome outcome = RunWithFaults("VAULTRY_COUNT_IN='" + file + "'", arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return std::stoi(ReadFile(file));
    }

    // The first ones, in which the program starts, and others over the whole run; or all of them.
    static std::set<int> Moments(int count, int wanted = 170) {
        constexpr int kFirst = 30;
        const int others = TryAll() ? count : wanted;
        std::set<int> moments;
        for (int i = 1; i <= kFirst; ++i) {
            moments.insert(i);
        }
        for (int i = 1; i <= others; ++i) {
            moments.insert(static_cast<int>(std::int64_t{i} * count / others));
        }
        return moments;
    }

    void ExpectCleanEnd(const Outcome& outcome, const std::string& whole) const {
        const std::string file = Read("dungeon.esp");
        if (outcome.status == 0) {
            EXPECT_TRUE(file == whole);
            return;
        }
        EXPECT_TRUE(outcome.status == 1 || outcome.status == 2)
            << outcome.status << ' ' << outcome.err;
        EXPECT_TRUE(SaysOutOfMemory(outcome.err)) << outcome.err;
        EXPECT_TRUE(file == kOld || file == whole) << file.size() << " bytes";
    }

    void ExpectNoLitter() const {
        for (const std::string& name : Files()) {
            EXPECT_TRUE(name == "dungeon.esp" || name == "map.svg" || name == "run.log") << name;
        }
    }

    void FailEverywhere(const std::string& more) {
        const int count = Count(Arguments());
        const std::string whole = Read("dungeon.esp");
        ASSERT_EQ(whole.substr(0, 4), "TES3");
        int failures = 0;
        for (const int moment : Moments(count)) {
            SCOPED_TRACE(moment);
            Write("dungeon.esp", kOld);
            const Outcome outcome = RunWithFaults(
                "VAULTRY_FAIL_AT=" + std::to_string(moment) + ' ' + more, Arguments());
            failures += outcome.status != 0 ? 1 : 0;
            ExpectCleanEnd(outcome, whole);
            ExpectNoLitter();
        }
        EXPECT_GT(failures, 100);
    }
};

TEST_F(MemoryFaultTest, OneFailingAllocationEndsTheRunWithAMessage) {
    FailEverywhere("");
}

TEST_F(MemoryFaultTest, MemoryThatHasRunOutEndsTheRunWithAMessage) {
    FailEverywhere("VAULTRY_FAIL_ON=1");
}

// Which allocation is whose is for the threads to settle: any may be the one that fails.
TEST_F(MemoryFaultTest, ASearchWhoseMemoryFailsEndsWithAMessageOnAnyThread) {
    const Lines search = {"search",
                          "-c",
                          VAULTRY_SOURCE_DIR "/tests/golden/configs/rooms_full.xml",
                          "--seeds",
                          "1..4",
                          "--jobs",
                          "2",
                          "--size",
                          "tiny",
                          "--csv",
                          "found.csv"};
    const int count = Count(search);
    const std::string whole = Read("found.csv");
    ASSERT_EQ(whole.substr(0, 4), "seed");
    for (const char* more : {"", "VAULTRY_FAIL_ON=1"}) {
        int failures = 0;
        for (const int moment : Moments(count, 40)) {
            SCOPED_TRACE(moment);
            const Outcome outcome =
                RunWithFaults("VAULTRY_FAIL_AT=" + std::to_string(moment) + ' ' + more, search);
            failures += outcome.status != 0 ? 1 : 0;
            if (outcome.status == 0) {
                EXPECT_TRUE(Read("found.csv") == whole);
                continue;
            }
            EXPECT_TRUE(outcome.status == 1 || outcome.status == 2)
                << outcome.status << ' ' << outcome.err;
            EXPECT_TRUE(SaysOutOfMemory(outcome.err)) << outcome.err;
        }
        EXPECT_GT(failures, 20);
    }
}

// What the parser allocates when it starts, it answers in many ways when it fails.
TEST_F(MemoryFaultTest, FailingAllocationsOfTheParserAreSaid) {
#ifdef __SANITIZE_ADDRESS__
    constexpr int kEvery = 50; // copies of a sanitized process take long to make
#else
    constexpr int kEvery = 2;
#endif
    const TempDir said;
    const std::string file = said.File("ends");
    const std::string moments =
        TryAll() ? "VAULTRY_FAIL_EVERY=1"
                 : "VAULTRY_FAIL_EVERY=" + std::to_string(kEvery) +
                       " VAULTRY_FAIL_FROM=" + std::to_string(Count({"--version"}));
    const Outcome outcome =
        RunWithFaults(moments + " VAULTRY_ENDS_IN='" + file + "'", {"list", "-c", smallConfig});
    EXPECT_EQ(outcome.status, 0);
    std::istringstream ends(ReadFile(file));
    std::size_t failures = 0;
    for (int end = 0; ends >> end;) {
        EXPECT_TRUE(WIFEXITED(end) && WEXITSTATUS(end) <= 2) << end;
        failures += end != 0 ? 1 : 0;
    }
    EXPECT_GT(failures, 1000U / kEvery);
    const Lines lines = outcome.ErrLines();
    EXPECT_GE(lines.size(), failures);
    for (const std::string& line : lines) {
        EXPECT_TRUE(SaysOutOfMemory(line)) << line;
    }
}

} // namespace

} // namespace Tarnex::Test
