// SPDX-License-Identifier: MIT
#include "tools/check/ConfigCheck.h"

#include "tools/check/ConfigHint.h"
#include "tools/check/ConfigRules.h"
#include "tools/text/Json.h"
#include "tools/text/Words.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/CodePage.h>
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

// What the loader's problems mean, and the attribute that they are about.
struct MeaningRow {
    ProblemKind kind;
    Weight weight;
    const char* meaning;
    std::string_view attribute;
};

constexpr const char* kTwice = "The later one is used, and nothing is derived from it. Remove it "
                               "unless it is meant to differ.";

// clang-format off
constexpr std::array<MeaningRow, 10> kMeanings = {{
    {ProblemKind::UnknownElement,     Weight::Error,   "The element is ignored.",        {}},
    {ProblemKind::UnusualTileSize,    Weight::Warning, "The size is used as it is. Give the edge of a cell in units, mostly 256.",     Tile_TsSize},
    {ProblemKind::UnknownTileSetType, Weight::Error,   "The tile set is dropped. Write TsType=\"Room\" or TsType=\"Cave\".",       Tile_TsType},
    {ProblemKind::UnknownLayoutType,  Weight::Error,   "The layout is dropped. Write Type=\"Room\" or Type=\"Cave\".",         Attrib_Type},
    {ProblemKind::LayoutTooLarge,     Weight::Error,   "The layout is refused.",         {}},
    {ProblemKind::LayoutsTooLarge,    Weight::Error,   "The layout is refused.",         {}},
    {ProblemKind::CellOutside,        Weight::Error,   "The cell is dropped.",           {}},
    {ProblemKind::TileTwice,          Weight::Warning, kTwice,                           {}},
    {ProblemKind::PieceTwice,         Weight::Warning, kTwice,                           {}},
    {ProblemKind::TooMany,            Weight::Error,   "What else is wrong is not told.", {}},
}};
// clang-format on

// The words that may stand where an unknown one does.
std::vector<std::string> Offered(ProblemKind kind) {
    if (kind == ProblemKind::UnknownElement) {
        std::vector<std::string> names;
        for (const ElementFormat& format : ElementFormats()) {
            names.emplace_back(format.name);
        }
        return names;
    }
    if (kind == ProblemKind::UnknownTileSetType || kind == ProblemKind::UnknownLayoutType) {
        const auto types = FindElementFormat(Tile_TileSet)->types;
        return {types.begin(), types.end()};
    }
    return {};
}

constexpr const char* kRestMissing = "Everything after this place is missing.";

// The parser's own words name the start of a block that it was given, far from the place.
void AddEncoding(const EncodingFault& fault, Findings& findings) {
    if (fault.wide) {
        findings.Add(Weight::Error,
                     fault.place,
                     "the document is UTF-16, but its first line names " + InQuotes(fault.declared),
                     "Nothing of it can be read. Save it as UTF-8 (in PowerShell: Set-Content "
                     "-Encoding utf8), or write encoding=\"UTF-16\" there.",
                     "UTF-16");
        return;
    }
    const std::string letter(1, static_cast<char>(fault.byte));
    findings.Add(Weight::Error,
                 fault.place,
                 "the letter " + InQuotes(letter) + " is no UTF-8, but of windows-1252 or the like",
                 std::string(kRestMissing) +
                     " Save the document as UTF-8, or write encoding=\"windows-1252\" in its first "
                     "line.");
}

// The parser notices it where an outer element ends; the place to look at is here.
void AddUnclosed(const ConfigRecord& record, const Problem& problem, Findings& findings) {
    const std::string& words = problem.names.front();
    const bool tag = words.find("expected end of tag") != std::string::npos ||
                     words.find("input ended before") != std::string::npos;
    if (tag && record.open != ConfigElement::kNone) {
        const ConfigElement& open = record.elements[record.open];
        findings.Add(Weight::Error,
                     open.place,
                     open.name + " begins here, and its end tag is missing or misspelt",
                     "Line " + std::to_string(problem.place.line) +
                         " ends another one, and nothing behind that is read. Write </" +
                         ToUtf8(open.name) + "> where it ends.");
    }
}

void AddFault(const ConfigRecord& record, const Problem& problem, Findings& findings) {
    if (record.encoding) {
        return AddEncoding(*record.encoding, findings);
    }
    AddUnclosed(record, problem, findings);
    const std::string cause = ProbableCause(problem.names.front());
    findings.Add(Weight::Error,
                 problem.place,
                 TextOf(problem),
                 kRestMissing + (cause.empty() ? cause : " Probably " + cause + '.'));
}

void AddProblem(const ConfigRecord& record, const ConfigProblem& found, Findings& findings) {
    const Problem& problem = found.problem;
    const auto* const row = std::ranges::find(kMeanings, problem.kind, &MeaningRow::kind);
    if (row == kMeanings.end()) {
        return AddFault(record, problem, findings);
    }
    const bool placed = found.element != ConfigElement::kNone && !row->attribute.empty();
    const DocumentPlace place =
        placed ? PlaceOf(record.elements[found.element], row->attribute) : problem.place;
    const std::string& name = problem.names.front();
    const std::string nearest = findings.Nearest(name, Offered(problem.kind));
    if (!nearest.empty() && EqualsNoCase(nearest, name)) {
        findings.Add(row->weight,
                     place,
                     TextOf(problem),
                     "It is ignored: it stands outside the element that it belongs to.");
    } else {
        findings.Add(row->weight, place, TextOf(problem), row->meaning, nearest);
    }
}

std::size_t CountOf(const ConfigCheck& check, Weight weight) {
    return static_cast<std::size_t>(
        std::ranges::count(check.findings, weight, &ConfigFinding::weight));
}

} // namespace

ConfigCheck CheckConfig(const std::string& name, const ConfigRecord& record) {
    ConfigCheck check{name, !record.fatal, {}};
    Findings findings(check.findings);
    for (const ConfigProblem& problem : record.problems) {
        AddProblem(record, problem, findings);
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

void PrintCheck(const ConfigCheck& check, std::ostream& out, bool named) {
    for (const ConfigFinding& finding : check.findings) {
        out << ForTerminal(check.name) << ':' << finding.place.line << ':' << finding.place.column
            << ": " << WeightName(finding.weight) << ": " << ForTerminal(finding.message) << '\n'
            << "    " << ForTerminal(finding.meaning) << '\n';
        if (!finding.nearest.empty()) {
            out << "    Nearest: " << ForTerminal(finding.nearest) << '\n';
        }
    }
    out << (named ? ForTerminal(check.name) + ": " : "");
    if (check.findings.empty()) {
        out << "Nothing is wrong.\n";
        return;
    }
    out << Counted(CountOf(check, Weight::Error), "error") << ", "
        << Counted(CountOf(check, Weight::Warning), "warning") << ", "
        << Counted(CountOf(check, Weight::Note), "note") << ".\n";
}

namespace {

Json JsonOf(const ConfigCheck& check) {
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
    return json;
}

} // namespace

std::string ToJson(const ConfigCheck& check) {
    return JsonText(JsonOf(check));
}

std::string ToJson(std::span<const ConfigCheck> checks) {
    Json list = Json::array();
    for (const ConfigCheck& check : checks) {
        list.push_back(JsonOf(check));
    }
    return JsonText(list);
}

} // namespace Tarnex::Report
