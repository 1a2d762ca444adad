// SPDX-License-Identifier: MIT
// Running esmtool, an independent reader and writer of the file format.
#pragma once

#if !defined(_WIN32)

#include <cstddef>
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

/// The number in the four bytes at `place`, lowest byte first.
inline std::size_t WordAt(const std::string& bytes, std::size_t place) {
    std::size_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        word |= std::size_t{static_cast<unsigned char>(bytes.at(place + i))} << (8 * i);
    }
    return word;
}

/// Blanks the top byte of the reference numbers among the sub-records from `place` to `end`.
inline void BlankTopsOfReferenceNumbers(std::string& plugin, std::size_t place, std::size_t end) {
    constexpr std::size_t kHeader = 8; // of a sub-record: its tag and its size
    while (place < end) {
        if (plugin.compare(place, 4, "FRMR") == 0) {
            plugin.at(place + kHeader + 3) = '-';
        }
        place += kHeader + WordAt(plugin, place + 4);
    }
}

/// A plug-in without the fields in which a copy differs: the writer leaves the version and the top
/// byte of each reference number undefined (they differ from machine to machine, and even from run
/// to run) and puts the true number of records into the header.
inline std::string WithoutWhatACopyChanges(std::string plugin) {
    constexpr std::size_t kVersion = 24;
    constexpr std::size_t kRecordCount = 320;
    constexpr std::size_t kHeader = 16; // of a record
    plugin.replace(kVersion, 4, 4, '-');
    plugin.replace(kRecordCount, 4, 4, '-');
    for (std::size_t place = 0; place < plugin.size();) {
        const std::size_t end = place + kHeader + WordAt(plugin, place + 4);
        BlankTopsOfReferenceNumbers(plugin, place + kHeader, end);
        place = end;
    }
    return plugin;
}

} // namespace Tarnex::Test

#endif
