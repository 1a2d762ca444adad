// SPDX-License-Identifier: MIT
#include "cli/CellName.h"

#include <vaultry/foundation/CodePage.h>

namespace Tarnex::Cli {

namespace {

constexpr std::size_t kLongestName = 63;

// Of the last of several levels, whose name is the longest.
std::string LastCellName(const GenerateOptions& options, const std::string& name) {
    const bool numbered = !options.fixed && options.numLevels > 1;
    return numbered ? name + ", Level " + std::to_string(options.numLevels) : name;
}

} // namespace

std::vector<std::string> CellNameWarnings(const GenerateOptions& options) {
    std::vector<std::string> warnings;
    bool lost = false;
    const std::string name = FromUtf8(options.cell, &lost);
    if (lost) {
        warnings.push_back("the name of the cell has letters that the game lacks; it becomes \"" +
                           ToUtf8(name) + '"');
    }
    const std::size_t length = LastCellName(options, name).size();
    if (length > kLongestName) {
        warnings.push_back("the name of the cell has " + std::to_string(length) +
                           " bytes in Windows-1252, of which the game reads " +
                           std::to_string(kLongestName));
    }
    return warnings;
}

} // namespace Tarnex::Cli
