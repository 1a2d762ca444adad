// SPDX-License-Identifier: MIT
// What all JSON of the reports has in common.
#pragma once

#include <vaultry/foundation/HarmlessText.h>

#include <nlohmann/json.hpp>

#include <string>

namespace Tarnex::Report {

/// Keys stand in the order in which they are set.
using Json = nlohmann::ordered_json;

/// The number under "schema"; it grows when a key changes its meaning or goes.
inline constexpr int kJsonSchema = 1;

inline Json JsonHeader() {
    return {{"schema", kJsonSchema}, {"version", VAULTRY_VERSION}};
}

/// How far each level of a report is indented.
inline constexpr int kJsonIndent = 2;
/// Everything on one line, where many small values would make a file several times larger.
inline constexpr int kJsonOneLine = -1;

/// Paths come from the command line as they are and may be no UTF-8; the library replaces what is
/// none.
inline std::string JsonText(const Json& json, int indent = kJsonIndent) {
    return ForJson(json.dump(indent, ' ', false, Json::error_handler_t::replace)) + '\n';
}

} // namespace Tarnex::Report
