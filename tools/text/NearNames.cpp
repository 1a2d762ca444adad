// SPDX-License-Identifier: MIT
#include "tools/text/NearNames.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kMostOffered = 3;

// Two slips are forgiven in any name, more in longer ones.
std::size_t Tolerance(std::string_view name) {
    return std::max<std::size_t>(2, name.size() / 3);
}

} // namespace

std::size_t EditDistance(std::string_view a, std::string_view b) {
    const std::string from = ToUpper(a);
    const std::string to = ToUpper(b);
    std::vector<std::size_t> before(to.size() + 1); // the row of two letters ago
    std::vector<std::size_t> above(to.size() + 1);
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        before.swap(above);
        above.swap(row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = above[j] + (from[i] == to[j] ? 0 : 1);
            row[j + 1] = std::min({replaced, row[j] + 1, above[j + 1] + 1});
            if (i > 0 && j > 0 && from[i] == to[j - 1] && from[i - 1] == to[j]) {
                row[j + 1] = std::min(row[j + 1], before[j - 1] + 1);
            }
        }
    }
    return row.back();
}

std::vector<std::string> NearestNames(std::string_view name,
                                      const std::vector<std::string>& names) {
    std::vector<std::pair<std::size_t, std::string>> near;
    const std::size_t tolerance = Tolerance(name);
    for (const std::string& candidate : names) {
        // Their lengths tell already that too many letters differ.
        if (candidate.size() > name.size() + tolerance ||
            name.size() > candidate.size() + tolerance) {
            continue;
        }
        const std::pair entry(EditDistance(name, candidate), candidate);
        const bool known = std::ranges::find(near, entry) != near.end();
        if (entry.first <= tolerance && !known) {
            near.push_back(entry);
        }
    }
    std::ranges::stable_sort(near, {}, &std::pair<std::size_t, std::string>::first);
    near.resize(std::min(near.size(), kMostOffered));
    std::vector<std::string> nearest;
    nearest.reserve(near.size());
    for (const auto& entry : near) {
        nearest.push_back(entry.second);
    }
    return nearest;
}

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

} // namespace Tarnex::Report
