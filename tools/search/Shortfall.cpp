// SPDX-License-Identifier: MIT
#include "tools/search/Shortfall.h"

#include <algorithm>

namespace Tarnex::Search {

Shortfall::Shortfall(const Condition& condition) {
    for (const std::string& text : condition.Parts()) {
        parts.push_back({text, Condition(text), 0, {}});
    }
}

void Shortfall::Note(const Report::FactValues& values) {
    for (Part& part : parts) {
        part.held += part.condition.Holds(values) ? 1U : 0U;
        if (part.ranges.empty()) {
            for (const std::size_t fact : part.condition.FactsUsed()) {
                part.ranges.push_back({fact, values.at(fact), values.at(fact)});
            }
        }
        for (Range& range : part.ranges) {
            range.least = std::min(range.least, values.at(range.fact));
            range.most = std::max(range.most, values.at(range.fact));
        }
    }
}

} // namespace Tarnex::Search
