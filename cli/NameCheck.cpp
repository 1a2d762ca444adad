// SPDX-License-Identifier: MIT
#include "cli/NameCheck.h"

#include "tools/text/NearNames.h"

#include <vaultry/foundation/CodePage.h>

#include <algorithm>

namespace Tarnex::Cli {

namespace {

constexpr std::size_t kMostListed = 12;
constexpr std::size_t kLongestName = 63;

std::string Quoted(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "\"" : ", \"") + name + '"';
    }
    return text;
}

// Of the last of several levels, whose name is the longest.
std::string LastCellName(const GenerateOptions& options, const std::string& name) {
    const bool numbered = !options.fixed && options.numLevels > 1;
    return numbered ? name + ", Level " + std::to_string(options.numLevels) : name;
}

} // namespace

std::string OfferNames(std::string_view name, const std::vector<std::string>& names) {
    const std::vector<std::string> nearest = Report::NearestNames(name, names);
    if (!nearest.empty()) {
        return "did you mean " + Quoted(nearest) + "?";
    }
    if (names.empty()) {
        return "there are none";
    }
    const bool many = names.size() > kMostListed;
    const auto count = static_cast<std::ptrdiff_t>(std::min(names.size(), kMostListed));
    const std::vector<std::string> listed(names.begin(), names.begin() + count);
    return "there are " + Quoted(listed) + (many ? " and more" : "");
}

std::vector<std::string> NameWarnings(const GenerateOptions& options) {
    std::vector<std::string> warnings;
    bool lost = false;
    const std::string name = FromUtf8(options.cell, &lost);
    if (lost) {
        warnings.push_back("the name of the cell has letters that the game lacks; it becomes \"" +
                           Tarnex::ToUtf8(name) + '"');
    }
    const std::size_t length = LastCellName(options, name).size();
    if (length > kLongestName) {
        warnings.push_back("the name of the cell has " + std::to_string(length) +
                           " bytes in Windows-1252, of which the game reads " +
                           std::to_string(kLongestName));
    }
    FromUtf8(options.master.value_or(""), &lost);
    if (lost) {
        warnings.emplace_back("the name of the master file has letters that the game lacks");
    }
    return warnings;
}

std::vector<std::string> ToUtf8(const std::vector<std::string>& codePageNames) {
    std::vector<std::string> names;
    names.reserve(codePageNames.size());
    for (const std::string& name : codePageNames) {
        names.push_back(Tarnex::ToUtf8(name));
    }
    return names;
}

} // namespace Tarnex::Cli
