// SPDX-License-Identifier: MIT
// Searches that are interrupted, killed or split among processes.
#ifndef _WIN32

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <tests/cli/Program.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

// A search that is lost ends nevertheless, and the test with it [s].
constexpr unsigned kLongest = 300;

// A search of all seeds there are, which comes to no end by itself.
class EndlessSearchTest : public ProgramTest {
protected:
    ~EndlessSearchTest() override {
        close(err);
        close(out);
    }

    void Start() {
        std::array<int, 2> outPipe{};
        std::array<int, 2> errPipe{};
        ASSERT_EQ(pipe2(outPipe.data(), O_CLOEXEC), 0);
        ASSERT_EQ(pipe2(errPipe.data(), O_CLOEXEC), 0);
        std::vector<std::string> words = {
            VAULTRY_PROGRAM, "search", "--seeds", "0..4294967295", "--jobs", "2"};
        words.insert(words.end(), {"--csv", File("found.csv"), "--size", "tiny", "--top", "9"});
        child = fork();
        if (child == 0) {
            Become(words, outPipe[1], errPipe[1]);
        }
        close(outPipe[1]);
        close(errPipe[1]);
        out = outPipe[0];
        err = errPipe[0];
    }

    // Waits until the search has its threads: then it is on its way. False when it ended before.
    bool IsUnderWay() const {
        const fs::path threads = "/proc/" + std::to_string(child) + "/task";
        for (;;) {
            std::error_code gone;
            if (std::distance(fs::directory_iterator(threads, gone), {}) > 1) {
                return true;
            }
            siginfo_t ended{};
            if (waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT) != 0 ||
                ended.si_pid == child) {
                return false;
            }
            std::this_thread::yield();
        }
    }

    // What a stream still has until all that could write to it are gone.
    static std::string Rest(int stream) {
        std::string text;
        std::array<char, 4096> block{};
        for (ssize_t size = 0; (size = read(stream, block.data(), block.size())) > 0;) {
            text.append(block.data(), static_cast<std::size_t>(size));
        }
        return text;
    }

    int Wait() const {
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    void ExpectEndWithWhatItHas(int number) {
        Write("found.csv", "old");
        Start();
        ASSERT_TRUE(IsUnderWay());
        kill(child, number);
        Rest(out);
        const std::string said = Rest(err);
        EXPECT_EQ(Wait(), 130);
        EXPECT_EQ(said.find("vaultry: cancelled: found "), 0U) << said;
        EXPECT_TRUE(Contains(said, "; go on with --seeds ")) << said;
        EXPECT_EQ(Files(), Lines{"found.csv"});
        const std::string table = Read("found.csv");
        EXPECT_EQ(table.find("seed,levels,rooms,"), 0U);
        EXPECT_EQ(table.back(), '\n');
        // The table can be merged with those of other parts.
        EXPECT_EQ(Run({"search", "--merge", "found.csv"}).status, 0);
    }

    pid_t child = 0;
    int out = -1;
    int err = -1;

private:
    [[noreturn]] static void Become(std::vector<std::string>& words, int outEnd, int errEnd) {
        std::signal(SIGINT, SIG_DFL);
        std::signal(SIGTERM, SIG_DFL);
        alarm(kLongest);
        dup2(outEnd, STDOUT_FILENO);
        dup2(errEnd, STDERR_FILENO);
        std::vector<char*> arguments;
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        execv(VAULTRY_PROGRAM, arguments.data());
        _exit(127);
    }
};

TEST_F(EndlessSearchTest, InterruptEndsItWithWhatItHas) {
    ExpectEndWithWhatItHas(SIGINT);
}

TEST_F(EndlessSearchTest, TerminationEndsItWithWhatItHas) {
    ExpectEndWithWhatItHas(SIGTERM);
}

TEST_F(EndlessSearchTest, AKilledSearchLeavesTheOldTable) {
    Write("found.csv", "old");
    Start();
    ASSERT_TRUE(IsUnderWay());
    kill(child, SIGKILL);
    EXPECT_EQ(Rest(out), "");
    EXPECT_EQ(Wait(), -1);
    EXPECT_EQ(Files(), Lines{"found.csv"});
    EXPECT_EQ(Read("found.csv"), "old");
}

class SearchProcessTest : public ProgramTest {
protected:
    // The first block of code in docs/search.md that holds `word`, with `vaultry` on the path.
    std::string Documented(const std::string& word) const {
        std::ifstream page(VAULTRY_SOURCE_DIR "/docs/search.md");
        std::string block;
        bool inside = false;
        for (std::string line; std::getline(page, line);) {
            if (line.rfind("```", 0) == 0) {
                if (inside && Contains(block, word)) {
                    return "PATH=\"$(dirname '" VAULTRY_PROGRAM "'):$PATH\"\n" + block;
                }
                inside = !inside;
                block.clear();
            } else if (inside) {
                block += line + '\n';
            }
        }
        return {};
    }

    static void Replace(std::string& text, const std::string& what, const std::string& with) {
        const std::size_t place = text.find(what);
        ASSERT_NE(place, std::string::npos) << what;
        text.replace(place, what.size(), with);
    }

    void ExpectTheWhole(const std::string& merged) const {
        EXPECT_EQ(Run({"search",
                       "--quiet",
                       "--seeds",
                       "0..99",
                       "--size",
                       "large",
                       "--levels",
                       "2",
                       "--where",
                       "rooms>=12 and walkable and loops>=2",
                       "--sort",
                       "loops,treasure",
                       "--top",
                       "20",
                       "--csv",
                       "whole.csv"})
                      .status,
                  0);
        EXPECT_GT(Read("whole.csv").size(), 1000U);
        EXPECT_EQ(Read(merged), Read("whole.csv"));
    }
};

// The progress is for terminals, and this is one.
TEST_F(SearchProcessTest, ATerminalShowsHowFarItIs) {
    const Outcome outcome = RunAfter("export SHELL=/bin/sh && script -qec \"'" VAULTRY_PROGRAM
                                     "' search --seeds 1..5 --fixed\" /dev/null >shown.txt "
                                     "</dev/null",
                                     {"--version"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(Contains(Read("shown.txt"), " of 5 seeds, ")) << Read("shown.txt");
    EXPECT_TRUE(Contains(Read("shown.txt"), "found 5 in 5 seeds"));
}

TEST_F(SearchProcessTest, TheDocumentedParallelSearchFindsWhatOneSearchFinds) {
    std::string script = Documented("parallel --sshlogin");
    Replace(script, "host1,host2,:", "2/:");
    Replace(script, "ranges 0 1000000 100000", "ranges 0 100 25");
    Write("split.sh", "export PARALLEL=--will-cite HOME=\"$PWD\" SHELL=/bin/sh\n" + script);
    const Outcome outcome = RunAfter("bash -e split.sh", {"--version"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    ExpectTheWhole("best.csv");
}

TEST_F(SearchProcessTest, TheDocumentedJobArrayFindsWhatOneSearchFinds) {
    std::string job = Documented("#SBATCH --array");
    Replace(job, "100000", "25");
    std::string merge = Documented("--dependency");
    Write("search.sh", job);
    Replace(merge, "sbatch", "submit");
    Replace(merge, "sbatch", "submit");
    // Four tasks, one after another, and then what waits for them.
    Write(
        "all.sh",
        "export SLURM_CPUS_PER_TASK=1 SLURM_ARRAY_TASK_ID\n"
        "submit() {\n"
        "  for word; do case $word in --wrap=*) bash -ec \"${word#--wrap=}\"; return;; esac; done\n"
        "  for SLURM_ARRAY_TASK_ID in 0 1 2 3; do bash -e \"${@: -1}\" >&2; done\n"
        "  echo 7\n"
        "}\n" +
            merge);
    const Outcome outcome = RunAfter("bash -e all.sh", {"--version"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    ExpectTheWhole("best.csv");
}

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(SearchProcessTest,
                            "sends signals to child processes and runs shell scripts")

#endif
