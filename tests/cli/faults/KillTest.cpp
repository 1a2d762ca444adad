// SPDX-License-Identifier: MIT
// The program stopped at any moment. Files change only in system calls, so a run that is stopped
// before or after each of them has been stopped at every moment that can be told apart.
#include <csignal>
#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <tests/cli/faults/FaultTest.h>

namespace Tarnex::Test {

namespace {

// How a run ended that was stopped.
struct End {
    int stops = 0; // system calls begun and ended until then
    int status = 0;

    bool ExitedWith(int code) const { return WIFEXITED(status) && WEXITSTATUS(status) == code; }
    bool KilledBy(int signal) const { return WIFSIGNALED(status) && WTERMSIG(status) == signal; }
};

class KillTest : public FaultTest {
protected:
    KillTest() {
        // The leak checker of a sanitized program cannot run while the program is traced.
        setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
        Write("dungeon.esp", "");
        all = RunUntil(0, 0).stops;
        whole = Read("dungeon.esp");
    }

    void SetUp() override {
        if (all == 0) {
            GTEST_SKIP()
                << "no process may be traced here, so none can be stopped at a system call";
        }
        // The moments are chosen among more than are tried.
        ASSERT_GT(all, 300);
        ASSERT_EQ(whole.substr(0, 4), "TES3");
    }

    static const Lines& Generating() {
        static const Lines run = {"generate", "--seed", "3", "--stamp", "1", "--levels", "2"};
        return run;
    }

    // Runs the program and sends it the signal at that stop; at 0 it is left alone.
    End RunUntil(int stop, int signal, const Lines& run = Generating()) const {
        const pid_t child = Start(run, true);
        End end;
        waitpid(child, &end.status, 0);
        ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        int pending = 0;
        while (!WIFEXITED(end.status) && !WIFSIGNALED(end.status)) {
            ptrace(PTRACE_SYSCALL, child, nullptr, pending);
            waitpid(child, &end.status, 0);
            const bool stopped = WIFSTOPPED(end.status);
            const bool inCall = stopped && WSTOPSIG(end.status) == (SIGTRAP | 0x80);
            pending = stopped && !inCall ? WSTOPSIG(end.status) : 0;
            if (inCall && ++end.stops == stop) {
                kill(child, signal);
            }
        }
        return end;
    }

    // The last stops, in which everything is written, and as many others by chance.
    std::set<int> Moments(int last, int others) const {
        std::set<int> moments;
        for (int stop = all - last + 1; stop <= all; ++stop) {
            moments.insert(stop);
        }
        std::random_device chance;
        std::uniform_int_distribution<int> any(1, all - last);
        while (moments.size() < static_cast<std::size_t>(last + others)) {
            moments.insert(any(chance));
        }
        return moments;
    }

    // What is left in the folder apart from the plug-in.
    Lines Litter() const {
        Lines files = Files();
        std::erase(files, "dungeon.esp");
        return files;
    }

    int all = 0;
    std::string whole;
};

TEST_F(KillTest, KilledRunLeavesTheOldFileOrTheWholeNewOne) {
    int old = 0;
    for (const int moment : Moments(170, 50)) {
        SCOPED_TRACE(moment);
        Write("dungeon.esp", kOld);
        const End end = RunUntil(moment, SIGKILL);
        EXPECT_TRUE(end.KilledBy(SIGKILL));
        const std::string file = Read("dungeon.esp");
        EXPECT_TRUE(file == kOld || file == whole) << file.size() << " bytes";
        old += file == kOld ? 1 : 0;
        // A file in between may stay, and nothing else.
        const Lines litter = Litter();
        EXPECT_LE(litter.size(), 1U);
        for (const std::string& name : litter) {
            EXPECT_EQ(name.rfind(".vaultry-", 0), 0U) << name;
            std::remove(File(name).c_str());
        }
    }
    EXPECT_GT(old, 50);
    EXPECT_LT(old, 220);
}

TEST_F(KillTest, InterruptedRunLeavesTheOldFileOrTheWholeNewOneAndNothingElse) {
    int canceled = 0;
    for (const int moment : Moments(170, 50)) {
        SCOPED_TRACE(moment);
        Write("dungeon.esp", kOld);
        const End end = RunUntil(moment, SIGINT);
        const std::string file = Read("dungeon.esp");
        if (end.ExitedWith(130)) {
            ++canceled;
            EXPECT_EQ(file, kOld);
        } else if (end.ExitedWith(0)) {
            EXPECT_TRUE(file == whole) << file.size() << " bytes";
        } else {
            // Before the program listens and after it has finished.
            EXPECT_TRUE(end.KilledBy(SIGINT)) << end.status;
            EXPECT_TRUE(file == kOld || file == whole) << file.size() << " bytes";
        }
        EXPECT_EQ(Litter(), Lines{});
    }
    EXPECT_GT(canceled, 0);
}

TEST_F(KillTest, InterruptedDrawingOfAPluginLeavesTheWholeMapOrNone) {
    const Lines drawing = {"map", "dungeon.esp", "--map", "map.svg"};
    const int stops = RunUntil(0, 0, drawing).stops;
    const std::string map = Read("map.svg");
    ASSERT_FALSE(map.empty());
    int canceled = 0;
    // Sanitized programs make many calls more after the drawing.
    for (int stop = stops - 180; stop <= stops; stop += 3) {
        SCOPED_TRACE(stop);
        std::remove(File("map.svg").c_str());
        canceled += RunUntil(stop, SIGINT, drawing).ExitedWith(130) ? 1 : 0;
        EXPECT_TRUE(Files() == Lines{"dungeon.esp"} || Read("map.svg") == map);
        EXPECT_LE(Files().size(), 2U);
    }
    EXPECT_GT(canceled, 0);
}

} // namespace

} // namespace Tarnex::Test
