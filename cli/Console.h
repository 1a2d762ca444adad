// SPDX-License-Identifier: MIT
// Where the program writes.
#pragma once

#include "tools/maps/MapText.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Cli {

/// The program's two streams. All text is UTF-8.
struct Console {
    std::ostream& out;          ///< results
    std::ostream& err;          ///< everything that is said about the run
    bool errIsTerminal = false; ///< progress is shown to people only
    Report::TextPage page{};    ///< that results are printed on

    /// One line of the program's own on standard error, harmless whatever names and paths hold.
    void Say(std::string_view line) const;
    /// Likewise, marked as a warning.
    void Warn(std::string_view line) const;
    /// Where progress is shown; null for nowhere.
    std::ostream* Progress(bool quiet) const { return errIsTerminal && !quiet ? &err : nullptr; }
    /// The library's lines on standard error, made harmless likewise.
    void Show(const std::vector<std::string>& lines) const;
};

} // namespace Tarnex::Cli
