// SPDX-License-Identifier: MIT
// Ctrl-C pressed while the program runs.
#ifndef _WIN32

#include <fcntl.h>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <tests/cli/Program.h>
#include <unistd.h>
#include <vector>

namespace Tarnex::Test {

namespace {

using Lines = std::vector<std::string>;

// The configuration is a pipe: while the program waits for it, it can be signalled at leisure.
class CancelTest : public ProgramTest {
protected:
    CancelTest() : pipe(pipeFolder.File("config")), err(pipeFolder.File("err.txt")) {
        if (mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR) != 0) {
            throw std::runtime_error("no pipe");
        }
        signal(SIGPIPE, SIG_IGN);
    }
    ~CancelTest() override { signal(SIGPIPE, SIG_DFL); }

    // Runs the program, signals it before it has read its configuration, and waits for its end.
    int RunSignalled(int number, const std::string& out) {
        return RunSignalled(number, out, ReadFile(smallConfig), 1);
    }

    // Likewise with a text that is offered over and over.
    int RunSignalled(int number, const std::string& out, const std::string& text, int times) {
        const pid_t child = fork();
        if (child == 0) {
            Become(out);
        }
        // Both ends wait for each other here, so the program has reached its configuration.
        std::ofstream writer(pipe);
        kill(child, number);
        for (taken = 0; taken < times && writer; ++taken) {
            writer << text << std::flush;
        }
        writer.close();
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    int taken = 0; // how often

    std::string Err() const { return ReadFile(err); }

private:
    [[noreturn]] void Become(const std::string& out) const {
        signal(SIGINT, SIG_DFL);
        signal(SIGTERM, SIG_DFL);
        const int file = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, S_IRUSR | S_IWUSR);
        dup2(file, STDERR_FILENO);
        execl(VAULTRY_PROGRAM,
              VAULTRY_PROGRAM,
              "generate",
              "--fixed",
              "--quiet",
              "-c",
              pipe.c_str(),
              "-o",
              out.c_str(),
              static_cast<char*>(nullptr));
        _exit(127);
    }

    TempDir pipeFolder;
    std::string pipe;
    std::string err;
};

TEST_F(CancelTest, InterruptKeepsAnExistingFileAndLeavesNothing) {
    Write("dungeon.esp", "kept");
    EXPECT_EQ(RunSignalled(SIGINT, File("dungeon.esp")), 130);
    EXPECT_EQ(Files(), Lines{"dungeon.esp"});
    EXPECT_EQ(Read("dungeon.esp"), "kept");
    EXPECT_EQ(Err().find("vaultry: cancelled, "), 0U) << Err();
}

TEST_F(CancelTest, TerminationIsACancellationToo) {
    EXPECT_EQ(RunSignalled(SIGTERM, File("dungeon.esp")), 130);
    EXPECT_EQ(Files(), Lines{});
}

TEST_F(CancelTest, NoMoreOfTheConfigurationIsReadThanMustBe) {
    const std::string comment = "<!--" + std::string(100'000, ' ') + "-->";
    EXPECT_EQ(RunSignalled(SIGINT, File("dungeon.esp"), comment, 1000), 130);
    EXPECT_LT(taken, 100);
    EXPECT_EQ(Files(), Lines{});
    EXPECT_EQ(Err().find("vaultry: cancelled, "), 0U) << Err();
}

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(CancelTest, "sends signals to a child process")

#endif
