// SPDX-License-Identifier: MIT
// Running esmtool, an independent reader and writer of the file format.
#pragma once

#if !defined(_WIN32)

#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace Tarnex::Test {

/// What a finished command left behind.
struct Answer {
    int status = -1; ///< the exit status; -1 when the command did not end by itself
    std::string text;
};

/// Runs a shell command; esmtool is found where its package puts it.
inline Answer RunShell(const std::string& command) {
    Answer answer;
    std::FILE* pipe = popen(("PATH=\"$PATH:/usr/games\"; " + command).c_str(), "r");
    if (pipe == nullptr) {
        return answer;
    }
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        answer.text.push_back(static_cast<char>(c));
    }
    const int status = pclose(pipe);
    answer.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return answer;
}

inline bool HaveEsmtool() {
    return RunShell("command -v esmtool").status == 0;
}

/// What to say when there is none.
inline constexpr const char* kNoEsmtool =
    "esmtool is missing; scripts/setup installs the package openmw-cs, which brings it";

/// Runs the reader with bounds: a wrong size word can make it run for long or take all memory.
inline Answer RunEsmtool(const std::string& arguments) {
    return RunShell("ulimit -v 4000000; timeout 30 esmtool " + arguments + " 2>&1");
}

/// The reader's view of a plug-in.
inline Answer DumpPlugin(const std::string& file) {
    return RunEsmtool("dump -C '" + file + "'");
}

/// Reads a plug-in and writes it anew.
inline Answer ClonePlugin(const std::string& file, const std::string& copy) {
    return RunEsmtool("clone '" + file + "' '" + copy + "'");
}

/// A plug-in without the two fields in which a copy differs: the writer leaves the version
/// undefined (it differs from run to run) and puts the true number of records into the header.
inline std::string WithoutVersionAndCount(std::string plugin) {
    constexpr std::size_t kVersion = 24;
    constexpr std::size_t kRecordCount = 320;
    plugin.replace(kVersion, 4, 4, '-');
    plugin.replace(kRecordCount, 4, 4, '-');
    return plugin;
}

} // namespace Tarnex::Test

#endif
