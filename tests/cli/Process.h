// SPDX-License-Identifier: MIT
// Running the program as a child process.
#pragma once

#include <string>
#include <vector>

namespace Tarnex::Test {

/// Where a program runs and where its streams go, all paths in UTF-8.
struct ProcessPlace {
    std::string folder;
    std::string out;
    std::string err;
};

/// Runs `vaultry` and returns its exit status, or -1 when it did not end by itself.
int RunProgram(const ProcessPlace& place, const std::vector<std::string>& arguments);

#ifndef _WIN32
/// Likewise after `preparation`, a shell command that sets up the process.
int RunProgramAfter(const std::string& preparation,
                    const ProcessPlace& place,
                    const std::vector<std::string>& arguments);
#endif

} // namespace Tarnex::Test
