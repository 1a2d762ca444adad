// SPDX-License-Identifier: MIT
#include "tools/check/ConfigCheck.h"

#include "tools/check/ConfigHint.h"
#include "tools/check/ConfigRules.h"
#include "tools/text/Json.h"
#include "tools/text/Words.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <tuple>

namespace Tarnex::Report {

namespace {

constexpr std::array kRules = {CheckWords,
                               CheckNumbers,
                               CheckIds,
                               CheckDuplicates,
                               CheckDefaults,
                               CheckTileSets,
                               CheckPlatforms,
                               CheckLayouts,
                               CheckThemes,
                               CheckContent};

constexpr std::array<const char*, 3> kWeightNames = {"error", "warning", "note"};

const char* WeightName(Weight weight) {
    return kWeightNames.at(static_cast<std::size_t>(weight));
}

// What the loader's lines mean, by a part of their text that no other has, and the attribute that
// they are about.
struct LogRow {
    std::string_view part;
    Weight weight;
    const char* meaning;
    std::string_view attribute;
};

constexpr std::array<LogRow, 9> kLogRows = {{
    {"Unrecognized tag", Weight::Error, "The element is ignored.", {}},
    {"Unusual tile set size", Weight::Warning, "The size is used as it is.", Tile_TsSize},
    {"Unrecognized TileSet Type", Weight::Error, "The tile set is dropped.", Tile_TsType},
    {"Unrecognized Layout Type", Weight::Error, "The layout is dropped.", Attrib_Type},
    {"Layout size too large", Weight::Error, "The layout is refused.", {}},
    {"Layouts too large together", Weight::Error, "The layout is refused.", {}},
    {"no more are kept", Weight::Error, "What else is wrong is not told.", {}},
    {"Too many rows/cols", Weight::Error, "The cell is dropped.", {}},
    {"Duplicate tile",
     Weight::Warning,
     "The later one is used, and nothing is derived from it.",
     {}},
}};

// The word in the first pair of apostrophes.
std::string NamedWord(const std::string& text) {
    const std::size_t start = text.find('\'');
    const std::size_t end = text.find('\'', start + 1);
    return end == std::string::npos ? "" : text.substr(start + 1, end - start - 1);
}

std::string NearestInLine(const std::string& line, Findings& findings) {
    if (line.find("Unrecognized tag") != std::string::npos) {
        const std::vector<std::string_view> names = ElementNames();
        return findings.Nearest(NamedWord(line), {names.begin(), names.end()});
    }
    if (line.find(" Type '") != std::string::npos) {
        return findings.Nearest(NamedWord(line), {std::string(Tile_Room), std::string(Tile_Cave)});
    }
    return {};
}

// An element that is known and yet not recognised stands in the wrong place.
const char* MeaningOf(const LogRow& row, const std::string& nearest, const std::string& line) {
    return !nearest.empty() && EqualsNoCase(nearest, NamedWord(line))
               ? "It is ignored: it stands outside the element that it belongs to."
               : row.meaning;
}

void AddLogLine(const ConfigRecord& record, const ConfigLogLine& line, Findings& findings) {
    constexpr std::string_view kPrefix = "Error : ";
    const std::string text =
        line.text.starts_with(kPrefix) ? line.text.substr(kPrefix.size()) : line.text;
    const auto* const row = std::ranges::find_if(kLogRows, [&text](const LogRow& candidate) {
        return text.find(candidate.part) != std::string::npos;
    });
    if (row == kLogRows.end()) {
        const std::string cause = ProbableCause(line.text);
        findings.Add(Weight::Error,
                     line.place,
                     text,
                     "Everything after this place is missing." +
                         (cause.empty() ? cause : " Probably " + cause + '.'));
        return;
    }
    const bool placed = line.element != ConfigElement::kNone && !row->attribute.empty();
    const std::string nearest = NearestInLine(text, findings);
    const char* meaning = MeaningOf(*row, nearest, text);
    findings.Add(row->weight,
                 placed ? PlaceOf(record.elements[line.element], row->attribute) : line.place,
                 text,
                 meaning,
                 meaning == row->meaning ? nearest : "");
}

std::size_t CountOf(const ConfigCheck& check, Weight weight) {
    return static_cast<std::size_t>(
        std::ranges::count(check.findings, weight, &ConfigFinding::weight));
}

} // namespace

ConfigCheck CheckConfig(const std::string& name, const ConfigRecord& record) {
    ConfigCheck check{name, !record.fatal, {}};
    Findings findings(check.findings);
    for (const ConfigLogLine& line : record.errors) {
        AddLogLine(record, line, findings);
    }
    if (check.usable) {
        const ConfigTree tree(record);
        for (const auto rule : kRules) {
            rule(tree, findings);
        }
    }
    std::ranges::stable_sort(check.findings, {}, [](const ConfigFinding& finding) {
        return std::tuple(finding.place.line, finding.place.column);
    });
    return check;
}

bool HasWeight(const ConfigCheck& check) {
    return CountOf(check, Weight::Note) != check.findings.size();
}

void PrintCheck(const ConfigCheck& check, std::ostream& out) {
    for (const ConfigFinding& finding : check.findings) {
        out << ForTerminal(check.name) << ':' << finding.place.line << ':' << finding.place.column
            << ": " << WeightName(finding.weight) << ": " << ForTerminal(finding.message) << '\n'
            << "    " << ForTerminal(finding.meaning) << '\n';
        if (!finding.nearest.empty()) {
            out << "    Nearest: " << ForTerminal(finding.nearest) << '\n';
        }
    }
    if (check.findings.empty()) {
        out << "Nothing is wrong.\n";
        return;
    }
    out << Counted(CountOf(check, Weight::Error), "error") << ", "
        << Counted(CountOf(check, Weight::Warning), "warning") << ", "
        << Counted(CountOf(check, Weight::Note), "note") << ".\n";
}

std::string ToJson(const ConfigCheck& check) {
    Json json = JsonHeader();
    json["config"] = check.name;
    json["usable"] = check.usable;
    json["clean"] = check.usable && !HasWeight(check);
    Json& findings = json["findings"] = Json::array();
    for (const ConfigFinding& finding : check.findings) {
        findings.push_back({{"weight", WeightName(finding.weight)},
                            {"line", finding.place.line},
                            {"column", finding.place.column},
                            {"message", finding.message},
                            {"meaning", finding.meaning},
                            {"nearest", finding.nearest}});
    }
    return JsonText(json);
}

} // namespace Tarnex::Report
