// SPDX-License-Identifier: MIT
#include "tools/plugins/DiffReport.h"

#include "tools/text/Json.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/Text.h>

namespace Tarnex::Report {

DiffResult Diff(const LoadedPlugin& a, const LoadedPlugin& b) {
    DiffResult result{a.path, b.path, ComparePlugins(a.file, b.file)};
    if (result.differences.empty() && a.bytes != b.bytes) {
        result.differences.push_back(
            {"bytes", "file", "other bytes that stand for the same or are not compared"});
    }
    return result;
}

void PrintDiff(const DiffResult& result, std::ostream& out) {
    if (result.differences.empty()) {
        out << "The plug-ins are the same.\n";
        return;
    }
    std::string subject;
    for (const Difference& difference : result.differences) {
        if (difference.subject != subject) {
            subject = difference.subject;
            out << ToUpper(subject.substr(0, 1)) << subject.substr(1) << '\n';
        }
        out << "  " << difference.text << '\n';
    }
    out << Counted(result.differences.size(), "difference") << ".\n";
}

std::string ToJson(const DiffResult& result) {
    Json json = JsonHeader();
    json["a"] = result.pathOfA;
    json["b"] = result.pathOfB;
    json["same"] = result.differences.empty();
    Json& differences = json["differences"] = Json::array();
    for (const auto& [kind, subject, text] : result.differences) {
        differences.push_back({{"kind", kind}, {"subject", subject}, {"text", text}});
    }
    return JsonText(json);
}

} // namespace Tarnex::Report
