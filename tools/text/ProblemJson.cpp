// SPDX-License-Identifier: MIT
#include "tools/text/ProblemJson.h"

#include "tools/text/Json.h"

#include <vaultry/foundation/CodePage.h>

#include <array>

namespace Tarnex::Report {

namespace {

// In the order of ProblemKind.
constexpr auto kKinds = std::to_array<const char*>({"too-many",
                                                    "parser-unavailable",
                                                    "broken",
                                                    "invalid",
                                                    "odd",
                                                    "unknown-element",
                                                    "unusual-tile-size",
                                                    "unknown-tile-set-type",
                                                    "unknown-layout-type",
                                                    "layout-too-large",
                                                    "layouts-too-large",
                                                    "cell-outside",
                                                    "tile-twice",
                                                    "piece-twice",
                                                    "unknown-content-kind",
                                                    "unknown-content-list"});
static_assert(kKinds.size() == static_cast<std::size_t>(ProblemKind::UnknownContentList) + 1);

Json NumberOrNull(std::uint64_t number) {
    return number == 0 ? Json(nullptr) : Json(number);
}

Json ProblemJson(const Problem& problem) {
    Json names = Json::array();
    for (const std::string& name : problem.names) {
        names.push_back(ToUtf8(name));
    }
    return {{"kind", kKinds.at(static_cast<std::size_t>(problem.kind))},
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
