// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include "tools/text/NearNames.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kLongestQuoted = 200;
// Less of a word tells nothing.
constexpr std::size_t kShortestBeginning = 3;

} // namespace

void Findings::Add(Weight weight,
                   const DocumentPlace& place,
                   const std::string& message,
                   std::string meaning,
                   const std::string& nearest) {
    list.push_back({weight, place, ToUtf8(message), std::move(meaning), ToUtf8(nearest)});
}

std::string Findings::Nearest(const std::string& name, const std::vector<std::string>& names) {
    const std::size_t start = name.find_first_not_of(' ');
    if (start == std::string::npos || name.size() > kLongestQuoted) {
        return {};
    }
    const std::uint64_t cost = name.size() * 16 * names.size();
    if (cost > comparisonsLeft) {
        return {};
    }
    comparisonsLeft -= cost;
    const std::string word = name.substr(start, name.find_last_not_of(' ') - start + 1);
    const std::vector<std::string> near = NearestNames(word, names);
    if (!near.empty()) {
        return near.front();
    }
    const auto longer = std::ranges::find_if(names, [&word](const std::string& candidate) {
        return EqualsNoCase(std::string_view(candidate).substr(0, word.size()), word);
    });
    return word.size() < kShortestBeginning || longer == names.end() ? "" : *longer;
}

std::string InQuotes(const std::string& text) {
    const bool cut = text.size() > kLongestQuoted;
    return '"' + text.substr(0, kLongestQuoted) + (cut ? "...\"" : "\"");
}

std::string Titled(const ConfigElement& element, std::string_view titleAttribute) {
    return element.name + ' ' + InQuotes(AttributeText(element, titleAttribute));
}

} // namespace Tarnex::Report
