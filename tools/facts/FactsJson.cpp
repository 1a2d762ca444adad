// SPDX-License-Identifier: MIT
#include "tools/facts/FactsJson.h"

namespace Tarnex::Report {

Json FactJson(const Fact& fact) {
    return {{"name", fact.name},
            {"help", fact.help},
            {"least", fact.least == kNoLeast ? Json(nullptr) : Json(fact.least)},
            {"most", fact.most == kNoMost ? Json(nullptr) : Json(fact.most)}};
}

std::string FactListJson() {
    Json json = JsonHeader();
    Json& list = json["facts"] = Json::array();
    for (const Fact& fact : Facts()) {
        list.push_back(FactJson(fact));
    }
    return JsonText(json);
}

std::string ToJson(const FactValues& values) {
    Json json = JsonHeader();
    Json& facts = json["facts"] = Json::object();
    for (std::size_t i = 0; i < values.size(); ++i) {
        facts[std::string(Facts()[i].name)] = values[i];
    }
    return JsonText(json);
}

} // namespace Tarnex::Report
