// SPDX-License-Identifier: MIT
#include "cli/NameCheck.h"

#include <vaultry/foundation/CodePage.h>

#include <algorithm>

namespace Tarnex::Cli {

namespace {

constexpr std::size_t kMostListed = 12;

std::string Quoted(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "\"" : ", \"") + name + '"';
    }
    return text;
}

} // namespace

std::string OfferNames(std::string_view name, const std::vector<std::string>& names) {
    const std::vector<std::string> nearest = NearestNames(name, names);
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

std::vector<std::string> ToUtf8(const std::vector<std::string>& codePageNames) {
    std::vector<std::string> names;
    names.reserve(codePageNames.size());
    for (const std::string& name : codePageNames) {
        names.push_back(Tarnex::ToUtf8(name));
    }
    return names;
}

} // namespace Tarnex::Cli
