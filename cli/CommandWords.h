// SPDX-License-Identifier: MIT
// From a command line in a table to what it generates.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Cli {

/// The words of a line in which every word is plain or quoted as ForShell does. Throws UsageError
/// for any other: a shell would not just hand its words over.
std::vector<std::string> SplitCommandLine(std::string_view line);

/// Reads command lines of `vaultry generate` by the options of the program. Many that differ in the
/// seed alone, as those of a table do, are read quickly.
class GenerateLines {
public:
    /// A seed, and the line that makes it, printed anew from what was understood.
    struct Understood {
        std::uint32_t seed = 0;
        std::string line;
    };

    /// Throws UsageError for what is no line of `vaultry generate` with a seed.
    Understood Read(const std::string& line);

private:
    bool known = false;
    std::string read;    // what stood behind the seed of the last line,
    std::string printed; // and what stands there for it
};

} // namespace Tarnex::Cli
