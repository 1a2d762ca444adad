// SPDX-License-Identifier: MIT
#include "cli/SearchReport.h"

#include "tools/text/Json.h"
#include "tools/text/TextTable.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace Tarnex::Cli {

namespace {

using Report::Counted;
using Report::Json;

constexpr std::array<std::string_view, 9> kListed = {"seed",
                                                     "rooms",
                                                     "halls",
                                                     "loops",
                                                     "dead-ends",
                                                     "walkable",
                                                     "creatures",
                                                     "containers",
                                                     "treasure"};

constexpr std::size_t kMostListed = 11;

// In the order of Search::SearchEnd.
constexpr std::array<const char*, 3> kEndWords = {"complete", "cancelled", "given-up"};

const char* RangeOption(const SearchReport& report) {
    return report.scattered ? "--sample" : "--seeds";
}

Json HitJson(const Search::Hit& hit) {
    Json json = Json::object();
    for (std::size_t i = 0; i < hit.values.size(); ++i) {
        json[std::string(Report::Facts()[i].name)] = hit.values[i];
    }
    json["command"] = hit.command;
    return json;
}

Json PartJson(const Search::Shortfall::Part& part) {
    Json facts = Json::object();
    for (const auto& [fact, least, most] : part.ranges) {
        facts[std::string(Report::Facts()[fact].name)] = {{"least", least}, {"most", most}};
    }
    return {{"where", part.text}, {"seeds", part.held}, {"facts", facts}};
}

// "rooms 2 to 11, loops 3"
std::string RangeWords(const std::vector<Search::Shortfall::Range>& ranges) {
    std::string text;
    for (const auto& [fact, least, most] : ranges) {
        text += (text.empty() ? "" : ", ") + std::string(Report::Facts()[fact].name) + ' ' +
                std::to_string(least) + (least == most ? "" : " to " + std::to_string(most));
    }
    return text;
}

void PrintParts(const SearchReport& report, std::ostream& out) {
    if (report.parts.empty()) {
        return;
    }
    using Align = Report::TextTable::Align;
    Report::TextTable table({Align::Left, Align::Right, Align::Left});
    table.Add({"condition", report.range ? "seeds" : "dungeons", "seen"});
    for (const Search::Shortfall::Part& part : report.parts) {
        table.Add({ForTerminal(part.text), std::to_string(part.held), RangeWords(part.ranges)});
    }
    const bool all = report.outcome.end == Search::SearchEnd::Complete;
    const std::uint64_t judged = report.outcome.done - report.lost.size();
    out << "No dungeon " << (all ? "" : "so far ") << "is like that. Of "
        << Counted(judged, report.range ? "seed" : "dungeon") << ", so many pass each part:\n";
    table.Print(out, 2);
}

} // namespace

std::vector<std::size_t> ListedFacts(const std::vector<std::size_t>& askedFor) {
    std::vector<std::size_t> facts = {Report::FindFact(kListed.front()).value()};
    const auto add = [&facts](std::size_t fact) {
        if (std::ranges::find(facts, fact) == facts.end()) {
            facts.push_back(fact);
        }
    };
    std::ranges::for_each(askedFor, add);
    for (const std::string_view name : kListed) {
        if (facts.size() < kMostListed) {
            add(Report::FindFact(name).value());
        }
    }
    return facts;
}

void PrintHits(const SearchReport& report, std::ostream& out) {
    if (report.hits.empty()) {
        PrintParts(report, out);
        return;
    }
    using Align = Report::TextTable::Align;
    Report::TextTable table(std::vector<Align>(report.columns.size(), Align::Right));
    std::vector<std::string> heading;
    for (const std::size_t fact : report.columns) {
        heading.emplace_back(Report::Facts()[fact].name);
    }
    table.Add(heading);
    for (const Search::Hit& hit : report.hits) {
        std::vector<std::string> row;
        for (const std::size_t fact : report.columns) {
            row.push_back(std::to_string(hit.values[fact]));
        }
        table.Add(std::move(row));
    }
    table.Print(out, 0);
    out << "\nThe first is made by\n  " << report.hits.front().command << '\n';
}

std::string Summary(const SearchReport& report) {
    if (!report.range) {
        return Counted(report.found, "dungeon") + " in " +
               Counted(report.options.merge.size(), "table");
    }
    const Search::SearchOutcome& outcome = report.outcome;
    std::string line = "found " + std::to_string(report.found) + " in " +
                       Counted(outcome.done, "seed") + ", " + Duration(report.seconds);
    if (report.found == 0 && !report.scattered && report.range->Count() > 1) {
        line +=
            "; seeds side by side make dungeons of one kind, --sample N takes them from all over";
    }
    if (!report.lost.empty()) {
        line += "; " + Counted(report.lost.size(), "seed") + " could not be judged";
    }
    if (outcome.end != Search::SearchEnd::Complete) {
        line = (outcome.end == Search::SearchEnd::Stopped
                    ? "cancelled: "
                    : "given up, as too many seeds could not be judged: ") +
               line + "; go on with " + RangeOption(report) + ' ' +
               std::to_string(outcome.nextSeed) + ".." + std::to_string(report.range->last);
    }
    return line;
}

std::string ToJson(const SearchReport& report) {
    Json json = Report::JsonHeader();
    json["result"] = kEndWords.at(static_cast<std::size_t>(report.outcome.end));
    if (report.range) {
        json[RangeOption(report) + 2] = {{"first", report.range->first},
                                         {"last", report.range->last},
                                         {"done", report.outcome.done},
                                         {"next", report.outcome.nextSeed}};
    } else {
        json["merged"] = report.options.merge;
    }
    json["where"] = report.options.where;
    json["sort"] = report.options.sort;
    json["found"] = report.found;
    Json& hits = json["hits"] = Json::array();
    for (const Search::Hit& hit : report.hits) {
        hits.push_back(HitJson(hit));
    }
    Json& parts = json["parts"] = Json::array();
    for (const Search::Shortfall::Part& part : report.parts) {
        parts.push_back(PartJson(part));
    }
    Json& lost = json["lost"] = Json::array();
    for (const LostSeed& seed : report.lost) {
        lost.push_back({{"seed", seed.seed}, {"why", seed.why}});
    }
    json["errors"] = report.errors;
    return Report::JsonText(json);
}

std::string Duration(double seconds) {
    constexpr double kMostSeconds = 120;
    constexpr std::int64_t kMinute = 60;
    constexpr std::int64_t kMostMinutes = 120;
    if (seconds < 10) {
        return Report::Number(seconds, 1) + " s";
    }
    if (seconds < kMostSeconds) {
        return std::to_string(std::llround(seconds)) + " s";
    }
    const std::int64_t minutes = std::llround(seconds / static_cast<double>(kMinute));
    if (minutes < kMostMinutes) {
        return std::to_string(minutes) + " min";
    }
    return std::to_string(minutes / kMinute) + " h " + std::to_string(minutes % kMinute) + " min";
}

} // namespace Tarnex::Cli
