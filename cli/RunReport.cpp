// SPDX-License-Identifier: MIT
#include "cli/RunReport.h"

#include "tools/runs/RunJson.h"
#include "tools/text/PlaceJson.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/CodePage.h>

#include <numeric>

namespace Tarnex::Cli {

namespace {

using Report::Counted;
using Report::Json;

std::uint64_t ReferenceCount(const RunReport& report) {
    std::uint64_t count = 0;
    for (const CellReport& cell : report.cells) {
        count = std::accumulate(cell.references.begin(), cell.references.end(), count);
    }
    return count;
}

std::string Outcome(const RunReport& report) {
    const std::optional<std::string>& out = report.options.out;
    const std::string file = out ? '"' + *out + '"' : "the map";
    switch (report.result) {
    case Ending::Written:
        return "wrote " + file + ": " + Counted(report.bytes, "byte") + ", " +
               Counted(report.cells.size(), "cell") + ", " +
               Counted(ReferenceCount(report), "reference") + ", " +
               Counted(report.containers, "container");
    case Ending::Drawn:
        return Counted(report.maps.size(), "map") + " drawn";
    case Ending::Refused:
        return "nothing was generated";
    case Ending::NotWritten:
        return report.fault;
    case Ending::Strict:
        return file + " was not written because of " + Counted(report.errors.size(), "error");
    case Ending::Unwalkable:
        return file + " was not written: none of " + Counted(report.tries, "seed") +
               " made every room of every level reachable; try another --tileset, --spacing or " +
               "--size";
    case Ending::Unclosed:
        return file + " was not written: none of " + Counted(report.tries, "seed") +
               " made a dungeon as wanted without an opening onto nothing; try --close-openings, " +
               "or another --tileset, --spacing or --size";
    case Ending::Canceled:
        return "cancelled, " + file + " was not written";
    }
    return {};
}

template <typename T>
Json OrNull(const std::optional<T>& value) {
    return value ? Json(*value) : Json(nullptr);
}

Json CellJson(const CellReport& cell) {
    Json references = Json::object();
    for (std::size_t sort = 0; sort < kRefSorts; ++sort) {
        references[Report::SortWord(static_cast<RefSort>(sort))] = cell.references[sort];
    }
    return {{"name", cell.name}, {"references", references}, {"teleports", cell.teleports}};
}

Json FilesJson(const RunReport& report) {
    Json files = Json::array();
    if (report.result == Ending::Written) {
        files.push_back({{"path", *report.options.out}, {"bytes", report.bytes}});
    }
    if (report.beside) {
        files.push_back({{"path", report.beside->path}, {"bytes", report.beside->bytes}});
    }
    for (const WrittenFile& file : report.maps) {
        files.push_back({{"path", file.path}, {"bytes", file.bytes}});
    }
    return files;
}

Json CellsJson(const RunReport& report) {
    Json cells = Json::array();
    for (const CellReport& cell : report.cells) {
        cells.push_back(CellJson(cell));
    }
    return cells;
}

} // namespace

void TakeOver(const RunResult& run, RunReport& report) {
    // In the order of RunEnd.
    constexpr std::array<Ending, 5> kEndings = {
        Ending::Written, Ending::Refused, Ending::Canceled, Ending::Unwalkable, Ending::Unclosed};
    report.result = kEndings.at(static_cast<std::size_t>(run.end));
    report.options.seed = run.seed;
    report.tries = run.tries;
    report.levels = run.levels;
    report.arrivals = run.arrivals;
    report.entrance = run.entrance;
}

void CountContent(const Mod& mod, RunReport& report) {
    for (const DiPtr<Cell>& cell : mod.GetCells()) {
        CellReport& counted = report.cells.emplace_back();
        counted.name = ToUtf8(cell->GetName());
        for (const Ref& ref : cell->GetRefs()) {
            ++counted.references.at(static_cast<std::size_t>(ref.sort));
            counted.teleports += ref.GetDestination() ? 1 : 0;
        }
    }
    report.containers = mod.GetContainers().size();
    for (const DiPtr<Container>& container : mod.GetContainers()) {
        report.entries += container->GetInventory().size();
    }
}

std::string Summary(const RunReport& report) {
    std::string line = Outcome(report) + "; seed " + std::to_string(report.options.seed.value());
    if (report.tries > 1 && (report.result == Ending::Written || report.result == Ending::Drawn)) {
        line += " (found in " + std::to_string(report.tries) + " tries)";
    }
    if (report.stampGiven) {
        line += ", stamp " + std::to_string(report.options.stamp.value());
    }
    return line;
}

std::vector<std::string> NextSteps(const RunReport& report) {
    const std::string& path = *report.options.out;
    const bool several = report.options.count > 1;
    std::vector<std::string> steps;
    // What is the same for several dungeons is said behind the last.
    if (report.options.number == report.options.count) {
        steps.push_back(std::string("copy ") + (several ? "them" : "it") +
                        " into the game's folder \"Data Files\", or for OpenMW into a folder that "
                        "openmw.cfg names with data=");
        steps.push_back("tick " +
                        (several ? std::string("the plug-ins")
                                 : '"' + path.substr(path.find_last_of("/\\") + 1) + '"') +
                        " under Data Files in the launcher of the game, or of OpenMW");
    }
    if (!report.arrivals.empty()) {
        steps.push_back("load a game, open the console (the key left of 1) and type: " +
                        ConsoleLine(report.arrivals.front()));
    }
    if (report.entrance) {
        steps.push_back("or walk in; to stand before the door: " +
                        ConsoleLine(report.entrance->outside));
    }
    return steps;
}

std::string ToJson(const RunReport& report) {
    Json json = Report::JsonHeader();
    json["result"] = WordOf(report.result);
    json["seed"] = OrNull(report.options.seed);
    json["stamp"] = OrNull(report.options.stamp);
    const std::optional<Report::Preset>& preset = report.options.preset.chosen;
    json["preset"] = preset ? Json(preset->name) : Json(nullptr);
    json["config"] = report.options.config;
    json["options"] = Report::OptionsJson(report.options);
    json["options"]["keep-going"] = report.options.keepGoing;
    json["files"] = FilesJson(report);
    json["cells"] = CellsJson(report);
    json["levels"] = Report::LevelsJson(report.levels);
    json["chosen"] = Report::ChosenJson(report.levels);
    json["arrivals"] = Report::ArrivalsJson(report.arrivals);
    json["entrance"] = Report::EntranceJson(report.entrance);
    if (report.interior) {
        json["walkable"] = report.interior->unreachable.empty();
    }
    if (!report.options.fixed) {
        json["walkable"] = report.levels.IsWalkable();
        json["tries"] = report.tries;
    }
    json["containers"] = {{"count", report.containers}, {"entries", report.entries}};
    json["errors"] = report.errors;
    json["warnings"] = report.warnings;
    return Report::JsonText(json);
}

} // namespace Tarnex::Cli
