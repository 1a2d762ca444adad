// SPDX-License-Identifier: MIT
// From a command line in a table to what it generates.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace Tarnex::Cli {

/// Reads command lines of `vaultry generate` by the options of the program. Many that differ in the
/// seed alone, as those of a table do, are read quickly. A line that lacks what is named always is
/// of an earlier version, whose defaults were others: it is printed with these.
class GenerateLines {
public:
    /// A seed, and the line that makes it, printed anew from what was understood.
    struct Understood {
        std::uint32_t seed = 0;
        std::string line;
    };

    /// Throws UsageError for what is no line of `vaultry generate` with a seed.
    Understood Read(const std::string& line);

    /// Whether there was a line of an earlier version.
    bool ReadOlder() const { return older; }

private:
    std::optional<std::string> read; // what stood behind the seed of the last line,
    std::string printed;             // and what stands there for it
    bool older = false;
};

} // namespace Tarnex::Cli
