// SPDX-License-Identifier: MIT
#include "tools/search/Ranking.h"

#include "tools/text/UsageError.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace Tarnex::Search {

namespace {

constexpr std::size_t kSeed = 0; // the first fact
constexpr std::uint64_t kSpare = 1024;

bool ParseDirection(std::string_view direction) {
    if (direction != "asc" && direction != "desc") {
        throw UsageError("--sort: \"" + std::string(direction) + "\" is neither asc nor desc");
    }
    return direction == "asc";
}

} // namespace

Order::Key Order::ParseKey(std::string_view text) {
    const std::size_t colon = text.find(':');
    const std::string_view name = text.substr(0, colon);
    const std::optional<std::size_t> fact = Report::FindFact(name);
    if (!fact) {
        throw UsageError("--sort: " + Report::NoFact(name));
    }
    return {*fact, colon != std::string_view::npos && ParseDirection(text.substr(colon + 1))};
}

Order::Order(std::string_view text) {
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t comma = std::min(text.find(',', start), text.size());
        keys.push_back(ParseKey(text.substr(start, comma - start)));
        start = comma + 1;
    }
}

bool Order::IsBefore(const Report::FactValues& a, const Report::FactValues& b) const {
    for (const Key& key : keys) {
        const std::int64_t first = a.at(key.fact);
        const std::int64_t second = b.at(key.fact);
        if (first != second) {
            return key.ascending ? first < second : first > second;
        }
    }
    return a.at(kSeed) < b.at(kSeed);
}

std::vector<std::size_t> Order::FactsUsed() const {
    std::vector<std::size_t> facts;
    facts.reserve(keys.size());
    for (const Key& key : keys) {
        facts.push_back(key.fact);
    }
    return facts;
}

bool Ranking::IsBefore(const Hit& a, const Hit& b) const {
    if (order.IsBefore(a.values, b.values) || order.IsBefore(b.values, a.values)) {
        return order.IsBefore(a.values, b.values);
    }
    return std::tie(a.values, a.command) < std::tie(b.values, b.command);
}

void Ranking::Add(Hit hit) {
    ++added;
    hits.push_back(std::move(hit));
    if (top > 0 && hits.size() >= top + std::max(top, kSpare)) {
        Cut();
    }
}

void Ranking::Cut() {
    if (top == 0 || hits.size() <= top) {
        return;
    }
    const auto end = hits.begin() + static_cast<std::ptrdiff_t>(top);
    std::nth_element(hits.begin(), end, hits.end(), [this](const Hit& a, const Hit& b) {
        return IsBefore(a, b);
    });
    hits.erase(end, hits.end());
}

std::vector<Hit> Ranking::Take() {
    Cut();
    std::ranges::sort(hits, [this](const Hit& a, const Hit& b) { return IsBefore(a, b); });
    return std::move(hits);
}

} // namespace Tarnex::Search
