// SPDX-License-Identifier: MIT
// Runs whose memory fails at any point.
#include <algorithm>
#include <set>
#include <string>
#include <tests/apps/faults/FaultTest.h>

namespace Tarnex::Test {

namespace {

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
    int Count() const {
        const TempDir count;
        const std::string file = count.File("count");
        const Outcome outcome = RunWithFaults("VAULTRY_COUNT_IN='" + file + "'", Arguments());
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        return std::stoi(ReadFile(file));
    }

    // The first ones, in which the program starts, and others over the whole run.
    static std::set<int> Moments(int count) {
        constexpr int kFirst = 30;
        constexpr int kOthers = 170;
        std::set<int> moments;
        for (int i = 1; i <= kFirst; ++i) {
            moments.insert(i);
        }
        for (int i = 1; i <= kOthers; ++i) {
            moments.insert(i * count / kOthers);
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
        std::string said = outcome.err;
        std::ranges::replace(said, 'O', 'o');
        EXPECT_TRUE(Contains(said, "out of memory")) << outcome.err;
        EXPECT_TRUE(file == kOld || file == whole) << file.size() << " bytes";
    }

    void ExpectNoLitter() const {
        for (const std::string& name : Files()) {
            EXPECT_TRUE(name == "dungeon.esp" || name == "map.svg" || name == "run.log") << name;
        }
    }

    void FailEverywhere(const std::string& more) {
        const int count = Count();
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

} // namespace

} // namespace Tarnex::Test
