// SPDX-License-Identifier: MIT
#include "cli/JsonReport.h"

#include "tools/runs/RunJson.h"
#include "tools/text/Json.h"
#include "tools/text/Words.h"

namespace Tarnex::Cli {

namespace {

using Report::Json;

template <typename T>
Json OrNull(const std::optional<T>& value) {
    return value ? Json(*value) : Json(nullptr);
}

// Every option that decides what is generated, under the name of its switch.
Json OptionsOf(const GenerateOptions& options) {
    Json json = Report::OptionsJson(options);
    json["keep-going"] = options.keepGoing;
    return json;
}

Json CellJson(const CellReport& cell) {
    Json references = Json::object();
    for (std::size_t sort = 0; sort < kRefSorts; ++sort) {
        references[Report::SortWord(static_cast<RefSort>(sort))] = cell.references[sort];
    }
    return {{"name", cell.name}, {"references", references}, {"teleports", cell.teleports}};
}

void AddFiles(Json& list, const std::vector<WrittenFile>& files) {
    for (const WrittenFile& file : files) {
        list.push_back({{"path", file.path}, {"bytes", file.bytes}});
    }
}

Json FilesJson(const RunReport& report) {
    Json files = Json::array();
    if (report.result == Ending::Written) {
        files.push_back({{"path", report.options.out}, {"bytes", report.bytes}});
    }
    AddFiles(files, report.maps);
    return files;
}

Json LevelJson(const Report::SurveyedLevel& level) {
    const Report::MapOutline& map = level.outline;
    return {{"name", map.name},
            {"tileset", map.tileSet.empty() ? Json(nullptr) : Json(map.tileSet)},
            {"width", map.width},
            {"height", map.height},
            {"cell-size", map.tileSize},
            {"rooms", level.rooms},
            {"reachable-rooms", level.reachableRooms},
            {"openings-onto-nothing", level.looseEnds},
            {"references-left-out", map.leftOut}};
}

Json CellsJson(const RunReport& report) {
    Json cells = Json::array();
    for (const CellReport& cell : report.cells) {
        cells.push_back(CellJson(cell));
    }
    return cells;
}

} // namespace

std::string ToJson(const RunReport& report) {
    Json json = Report::JsonHeader();
    json["result"] = EndingWord(report.result);
    json["seed"] = OrNull(report.options.seed);
    json["stamp"] = OrNull(report.options.stamp);
    json["config"] = report.options.config;
    json["options"] = OptionsOf(report.options);
    json["files"] = FilesJson(report);
    json["cells"] = CellsJson(report);
    json["levels"] = Report::LevelsJson(report.levels);
    if (!report.options.fixed) {
        json["walkable"] = report.levels.IsWalkable();
        json["tries"] = report.tries;
    }
    json["containers"] = {{"count", report.containers}, {"entries", report.entries}};
    json["errors"] = report.errors;
    json["warnings"] = report.warnings;
    return Report::JsonText(json);
}

std::string ToJson(const PluginMapReport& report) {
    Json json = Report::JsonHeader();
    json["plugin"] = report.plugin;
    json["config"] = report.config;
    AddFiles(json["files"] = Json::array(), report.files);
    Json& levels = json["levels"] = Json::array();
    for (const Report::SurveyedLevel& level : report.levels) {
        levels.push_back(LevelJson(level));
    }
    return Report::JsonText(json);
}

} // namespace Tarnex::Cli
