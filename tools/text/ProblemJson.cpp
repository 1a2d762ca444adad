// SPDX-License-Identifier: MIT
#include "tools/text/ProblemJson.h"

#include "tools/text/Json.h"

#include <vaultry/foundation/CodePage.h>

namespace Tarnex::Report {

namespace {

Json NumberOrNull(std::uint64_t number) {
    return number == 0 ? Json(nullptr) : Json(number);
}

Json ProblemJson(const Problem& problem) {
    Json names = Json::array();
    for (const std::string& name : problem.names) {
        names.push_back(ToUtf8(name));
    }
    return {{"kind", WordOf(problem.kind)},
            {"file", problem.file},
            {"line", NumberOrNull(problem.place.line)},
            {"column", NumberOrNull(problem.place.column)},
            {"names", names},
            {"text", ToUtf8(TextOf(problem))}};
}

} // namespace

std::string ToJson(const std::vector<Problem>& problems) {
    Json json = JsonHeader();
    Json& list = json["problems"] = Json::array();
    for (const Problem& problem : problems) {
        list.push_back(ProblemJson(problem));
    }
    return JsonText(json);
}

} // namespace Tarnex::Report
