// SPDX-License-Identifier: MIT
// What the program was called with.
#pragma once

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// The arguments behind the program's name, in UTF-8 on every system. `argc` and `argv` are main's;
/// Windows, where they are in a code page that lacks most letters and have wildcards replaced, is
/// asked for its command line instead.
std::vector<std::string> ProgramArguments(int argc, char** argv);

} // namespace Tarnex::Cli
