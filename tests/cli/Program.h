// SPDX-License-Identifier: MIT
// Running the program as a user does.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tests/cli/Process.h>
#include <tests/support/Contains.h>
#include <tests/support/TempDir.h>
#include <vector>

namespace Tarnex::Test {

/// What a finished program left behind.
struct Outcome {
    int status = -1; ///< the exit status; -1 when the program did not end by itself
    std::string out;
    std::string err;

    std::vector<std::string> ErrLines() const;
};

/// An empty folder to run the program in, and a vocabulary for what it leaves there.
class ProgramTest : public ::testing::Test {
private:
    TempDir folder;
    TempDir kept; // the configurations, which need it made first, and captured output

    ProcessPlace Place() const;
    Outcome OutcomeOf(int status) const;

protected:
    ProgramTest();

    /// Runs `vaultry` with the arguments in the folder.
    Outcome Run(const std::vector<std::string>& arguments) const;
#ifndef _WIN32
    /// Likewise, after `preparation`, a shell command that sets up the process.
    Outcome RunAfter(const std::string& preparation,
                     const std::vector<std::string>& arguments) const;
#endif

    /// Runs `vaultry generate` with the small configuration, fixed, and further arguments.
    Outcome Generate(const std::vector<std::string>& arguments) const;

    /// The names of all files in the folder, sorted.
    std::vector<std::string> Files() const;
    /// Every byte of a file in the folder; empty when there is none.
    std::string Read(std::string_view name) const;
    /// The full name of a file in the folder.
    std::string File(std::string_view name) const {
        return folder.File(name);
    }
    void Write(std::string_view name, std::string_view content) const;

    /// The full name of a configuration without a fault, kept outside the folder.
    std::string smallConfig;
    /// Another, with one tile given twice, which is an error of the library.
    std::string faultyConfig;
};

/// The one error line of the faulty configuration.
inline constexpr const char* kFaultyLine =
    "Error : TileSet : Duplicate tile 'Center' encountered in TileSet 'Stone.'";

} // namespace Tarnex::Test
