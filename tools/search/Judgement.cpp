// SPDX-License-Identifier: MIT
#include "tools/search/Judgement.h"

#include "tools/facts/FactsJson.h"
#include "tools/search/Condition.h"

namespace Tarnex::Search {

std::string JudgementJson(std::string_view text, const std::optional<Report::FactValues>& values) {
    using Report::Json;
    const Condition condition(text, "the condition");
    Json json = Report::JsonHeader();
    json["holds"] = values ? Json(condition.Holds(*values)) : Json(nullptr);
    Json& facts = json["facts"] = Json::array();
    for (const std::size_t fact : condition.FactsUsed()) {
        Json& entry = facts.emplace_back(Report::FactJson(Report::Facts()[fact]));
        entry["value"] = values ? Json(values->at(fact)) : Json(nullptr);
    }
    return Report::JsonText(json);
}

} // namespace Tarnex::Search
