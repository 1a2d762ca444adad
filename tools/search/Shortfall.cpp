// SPDX-License-Identifier: MIT
#include "tools/search/Shortfall.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <cctype>

namespace Tarnex::Search {

namespace {

bool IsOfWord(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_';
}

std::string Trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
    const std::size_t end = text.find_last_not_of(" \t") + 1;
    return std::string(text.substr(begin, std::max(begin, end) - begin));
}

} // namespace

std::vector<std::string> PartsOf(std::string_view condition) {
    std::vector<std::string> parts;
    std::size_t begin = 0; // of the part
    int depth = 0;
    for (std::size_t at = 0; at < condition.size();) {
        std::size_t end = at;
        while (end < condition.size() && IsOfWord(condition[end])) {
            ++end;
        }
        const std::string_view word = condition.substr(at, end - at);
        depth += condition[at] == '(' ? 1 : condition[at] == ')' ? -1 : 0;
        if (depth == 0 && EqualsNoCase(word, "or")) {
            return {Trimmed(condition)};
        }
        if (depth == 0 && EqualsNoCase(word, "and")) {
            parts.push_back(Trimmed(condition.substr(begin, at - begin)));
            begin = end;
        }
        at = std::max(end, at + 1);
    }
    parts.push_back(Trimmed(condition.substr(begin)));
    return parts;
}

Shortfall::Shortfall(std::string_view condition) {
    if (Trimmed(condition).empty()) {
        return;
    }
    for (const std::string& text : PartsOf(condition)) {
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
