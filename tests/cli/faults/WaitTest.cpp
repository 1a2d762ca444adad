// SPDX-License-Identifier: MIT
// Ctrl-C while the program waits for somebody else: for one who writes to a pipe, or who reads.
#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sched.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tests/cli/faults/FaultTest.h>
#include <unistd.h>

namespace Tarnex::Test {

namespace {

constexpr unsigned kPatience = 60; // of a program that does not end [s]

// A program under way. One that outlives the patience is ended by its alarm and fails its test.
class WaitTest : public FaultTest {
protected:
    WaitTest() {
        for (const char* pipe : {"config", "log"}) {
            if (mkfifo(File(pipe).c_str(), S_IRUSR | S_IWUSR) != 0) {
                throw std::runtime_error("no pipe");
            }
        }
    }

    // Starts the program with these two as standard input and standard error, where they are given.
    pid_t StartWith(const Lines& arguments, int in = -1, int err = -1) const {
        std::vector<char*> argv = {const_cast<char*>(VAULTRY_PROGRAM)};
        for (const std::string& argument : arguments) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        argv.push_back(nullptr);
        const std::string folder = File("");
        const pid_t child = fork();
        if (child == 0) {
            const int nowhere = open("/dev/null", O_RDWR);
            dup2(in < 0 ? nowhere : in, STDIN_FILENO);
            dup2(nowhere, STDOUT_FILENO);
            dup2(err < 0 ? nowhere : err, STDERR_FILENO);
            for (const int number : {SIGINT, SIGTERM, SIGPIPE}) {
                std::signal(number, SIG_DFL);
            }
            alarm(kPatience);
            if (chdir(folder.c_str()) == 0) {
                execv(VAULTRY_PROGRAM, argv.data());
            }
            _exit(127);
        }
        return child;
    }

    // Waits until the program listens to signals.
    static void WaitUntilListening(pid_t child) {
        const std::string name = "/proc/" + std::to_string(child) + "/status";
        constexpr unsigned long kInterrupt = 1UL << (SIGINT - 1);
        for (;;) {
            std::ifstream status(name);
            std::string word;
            while (status >> word && word != "SigCgt:") {
            }
            if (!(status >> word)) {
                return; // gone
            }
            if ((std::stoul(word, nullptr, 16) & kInterrupt) != 0) {
                return;
            }
            sched_yield();
        }
    }

    static bool HasEnded(pid_t child) {
        siginfo_t end{};
        waitid(P_PID, static_cast<id_t>(child), &end, WEXITED | WNOHANG | WNOWAIT);
        return end.si_pid == child;
    }

    static int StatusOf(pid_t child) {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    // Sends one signal to a program that waits or is about to, and tells how it ended.
    int StatusAfter(int number, const Lines& arguments, int in = -1) const {
        const pid_t child = StartWith(arguments, in);
        WaitUntilListening(child);
        kill(child, number);
        return StatusOf(child);
    }

    void ExpectNothingDone() const {
        EXPECT_EQ(Files(), (Lines{"config", "dungeon.esp", "log"}));
        EXPECT_EQ(Read("dungeon.esp"), kOld);
    }
};

TEST_F(WaitTest, ConfigurationThatNobodyWritesIsGivenUp) {
    for (const int number : {SIGINT, SIGTERM}) {
        for (const Lines& run : {Lines{"generate", "--fixed"},
                                 Lines{"map", "--fixed", "--html", "page.html"},
                                 Lines{"search", "--seeds", "1..3", "--csv", "dungeon.esp"},
                                 Lines{"list"}}) {
            SCOPED_TRACE(run.front());
            Lines arguments = run;
            arguments.insert(arguments.end(), {"-c", "config"});
            EXPECT_EQ(StatusAfter(number, arguments), 130);
            ExpectNothingDone();
        }
        EXPECT_EQ(StatusAfter(number, {"check", "config"}), 130);
    }
}

TEST_F(WaitTest, ConfigurationFromStandardInputIsGivenUp) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const int status = StatusAfter(SIGINT, {"generate", "-c", "/dev/stdin"}, ends[0]);
    close(ends[0]);
    close(ends[1]);
    EXPECT_EQ(status, 130);
    ExpectNothingDone();
}

TEST_F(WaitTest, ConfigurationThatStopsHalfwayIsGivenUp) {
    const pid_t child = StartWith({"generate", "-c", "config"});
    std::ofstream writer(File("config"));
    writer << "<OstrelData><TileSet TsName=\"Stone\"" << std::flush;
    kill(child, SIGTERM);
    EXPECT_EQ(StatusOf(child), 130);
    ExpectNothingDone();
}

TEST_F(WaitTest, LogThatNobodyReadsIsGivenUp) {
    EXPECT_EQ(StatusAfter(SIGINT, {"generate", "--fixed", "--log", "log"}), 130);
    EXPECT_EQ(StatusAfter(SIGTERM, {"map", "--fixed", "--log", "log"}), 130);
    ExpectNothingDone();
}

TEST_F(WaitTest, LogWhoseReaderIsSlowIsGivenUp) {
    std::string config = "<OstrelData><TileSet TsName=\"Stone\" TsType=\"Room\" TsSize=\"256\">";
    for (int i = 0; i < 5000; ++i) {
        config += "<Center>s_center</Center>";
    }
    const TempDir other;
    const std::string name = other.Write("noisy.xml", config + "</TileSet></OstrelData>");
    const pid_t child = StartWith({"generate", "--fixed", "-c", name, "--log", "log"});
    const int reader = open(File("log").c_str(), O_RDONLY | O_CLOEXEC);
    // No line more fits into the pipe: the program waits, or is about to.
    const int room = fcntl(reader, F_GETPIPE_SZ) - 4096;
    for (int waiting = 0; waiting < room && !HasEnded(child);) {
        ioctl(reader, FIONREAD, &waiting);
        sched_yield();
    }
    kill(child, SIGINT);
    EXPECT_EQ(StatusOf(child), 130);
    close(reader);
    ExpectNothingDone();
}

// What is said goes to a pipe that nobody reads any more.
TEST_F(WaitTest, RunThatNobodyListensToStillWritesItsFileAndNothingElse) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    close(ends[0]);
    // The letter is not one of the game's, which is warned of before anything is written.
    const pid_t child = StartWith({"generate", "--fixed", "-n", "Кеер"}, -1, ends[1]);
    close(ends[1]);
    StatusOf(child);
    EXPECT_EQ(Read("dungeon.esp").substr(0, 4), "TES3");
    EXPECT_EQ(Files(), (Lines{"config", "dungeon.esp", "log"}));
}

} // namespace

} // namespace Tarnex::Test
