// SPDX-License-Identifier: MIT
#include "cli/CommandLine.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <sstream>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <tests/cli/faults/FaultTest.h>
#include <unistd.h>

namespace Tarnex::Test {

namespace {

constexpr uid_t kNobody = 65534;
constexpr int kNotStarted = 125;

} // namespace

void FaultTest::ExpectOldFileAlone(const Lines& others) const {
    Lines expected = others;
    expected.insert(expected.begin(), "dungeon.esp");
    EXPECT_EQ(Files(), expected);
    EXPECT_EQ(Read("dungeon.esp"), kOld);
}

Outcome FaultTest::RunWithFaults(const std::string& variables, const Lines& arguments) const {
    // Blanks and colons part the names of libraries, and the folders above may have them in theirs.
    const TempDir beside;
    std::filesystem::create_symlink(VAULTRY_FAULTY_CALLS, beside.Path() / "calls.so");
    const std::string library = "../" + beside.Path().filename().string() + "/calls.so";
    // The sanitizers want to be the first library, but what matters here works without.
    return RunAfter("export LD_PRELOAD=" + library + ' ' + variables +
                        " ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0",
                    arguments);
}

pid_t FaultTest::Start(const Lines& arguments, bool traced) const {
    const std::string folder = File("");
    std::vector<char*> argv = {const_cast<char*>(VAULTRY_PROGRAM)};
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_RDWR);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // it would trace the process itself
        const bool ready = chdir(folder.c_str()) == 0 &&
                           (!traced || ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0);
        if (ready) {
            execv(VAULTRY_PROGRAM, argv.data());
        }
        _exit(kNotStarted);
    }
    return child;
}

Outcome FaultTest::RunAsNobody(const Lines& arguments) const {
    const TempDir said;
    const std::string errName = said.File("err.txt");
    const pid_t child = fork();
    if (child == 0) {
        std::ofstream err(errName);
        std::ostringstream out;
        // Folders above this one may be closed to others.
        const bool entered = chdir(File("").c_str()) == 0;
        const bool isRoot = geteuid() == 0;
        const bool dropped =
            !isRoot || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0);
        if (!entered || !dropped) {
            _exit(kNotStarted);
        }
        const int status = Cli::RunCommandLine(arguments, {out, err});
        err.close();
        _exit(status);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, "", ReadFile(errName)};
}

} // namespace Tarnex::Test
