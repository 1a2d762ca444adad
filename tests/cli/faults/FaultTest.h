// SPDX-License-Identifier: MIT
// What runs of the program that go wrong are judged by.
#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>
#include <tests/cli/Program.h>
#include <vector>

namespace Tarnex::Test {

using Lines = std::vector<std::string>;

/// A folder with an old plug-in "dungeon.esp", and runs that would replace it.
class FaultTest : public ProgramTest {
protected:
    static constexpr const char* kOld = "the old file";

    FaultTest() { Write("dungeon.esp", kOld); }

    /// The old plug-in is as it was, and the folder holds nothing else but the files named.
    void ExpectOldFileAlone(const Lines& others = {}) const;

    /// Runs the program with FaultyCalls loaded; `variables` are set as "NAME=value".
    Outcome RunWithFaults(const std::string& variables, const Lines& arguments) const;

    /// Starts the program in the folder; nothing is heard of it. `traced`: the child asks to be
    /// traced and stops before its first instruction.
    pid_t Start(const Lines& arguments, bool traced = false) const;

    /// Runs the program's code as a user without rights: root may write and read everything.
    Outcome RunAsNobody(const Lines& arguments) const;
};

} // namespace Tarnex::Test
