// SPDX-License-Identifier: MIT
// Where the program writes.
#pragma once

#include <ostream>
#include <string_view>

namespace Tarnex::Cli {

/// The program's two streams. All text is UTF-8.
struct Console {
    std::ostream& out;          ///< results
    std::ostream& err;          ///< everything that is said about the run
    bool errIsTerminal = false; ///< progress is shown to people only

    /// One line that begins with the program's name.
    void Say(std::string_view line) const { err << "vaultry: " << line << '\n'; }
    void Warn(std::string_view line) const { err << "vaultry: warning: " << line << '\n'; }
};

} // namespace Tarnex::Cli
