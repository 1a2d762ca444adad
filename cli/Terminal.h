// SPDX-License-Identifier: MIT
// What the standard library cannot tell about the program's words and streams.
#pragma once

#include "tools/maps/MapText.h"

#include <memory>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// The arguments behind the program's name, in UTF-8 on every system. `argc` and `argv` are main's;
/// Windows, where they are in a code page that lacks most letters and have wildcards replaced, is
/// asked for its command line instead.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// Whether standard error is shown to somebody rather than kept.
bool StandardErrorIsTerminal();

/// What standard output is: a terminal with its columns, which shows colours unless its owner
/// refused them by NO_COLOR or it is too simple (TERM=dumb), or a file or pipe of any width.
Report::TextPage StandardOutputPage();

/// While the answer lives, what passes the standard streams arrives as it is: without
/// changed line ends in a file or pipe, and in a console as UTF-8 with the meaning of escape
/// sequences. Windows needs to be told; its console is left as it was found.
std::shared_ptr<void> PrepareStreams();

} // namespace Tarnex::Cli
