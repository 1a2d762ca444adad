// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "cli/MapFiles.h"
#include "cli/PluginPieces.h"
#include "tools/maps/MapLabels.h"
#include "tools/maps/PluginMap.h"
#include "tools/plugins/PluginLoad.h"
#include "tools/text/PlaceJson.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>

#include <memory>
#include <optional>

namespace Tarnex::Cli {

namespace {

using Report::Json;

constexpr std::size_t kMostCells = 100; // in one drawing

// What was drawn. All text is UTF-8.
struct PluginMapReport {
    std::string plugin; // as it was given
    std::string config; // that told what the references are
    std::vector<Report::SurveyedLevel> levels;
    std::vector<WrittenFile> files;
};

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
            {"arrival", map.arrival ? Report::ArrivalJson(*map.arrival) : Json(nullptr)},
            {"references-left-out", map.leftOut}};
}

std::string ToJson(const PluginMapReport& report) {
    Json json = Report::JsonHeader();
    json["plugin"] = report.plugin;
    json["config"] = report.config;
    Json& files = json["files"] = Json::array();
    for (const WrittenFile& file : report.files) {
        files.push_back({{"path", file.path}, {"bytes", file.bytes}});
    }
    Json& levels = json["levels"] = Json::array();
    for (const Report::SurveyedLevel& level : report.levels) {
        levels.push_back(LevelJson(level));
    }
    return Report::JsonText(json);
}

// A dungeon's levels are found by the name of the whole dungeon too.
bool IsNamed(const PluginCell& cell, const std::string& name) {
    const std::string levels = name + ", ";
    return EqualsNoCase(cell.name, name) ||
           EqualsNoCase(std::string_view(cell.name).substr(0, levels.size()), levels);
}

std::vector<const PluginCell*> ChooseCells(const MapOptions& options, const PluginFile& file) {
    std::vector<const PluginCell*> cells;
    for (const PluginCell& cell : file.cells) {
        if (!cell.deleted && (!options.onlyCell || IsNamed(cell, FromUtf8(*options.onlyCell)))) {
            cells.push_back(&cell);
        }
    }
    const std::string where = '"' + options.plugin.value() + '"';
    if (cells.empty()) {
        throw UsageError(where + (options.onlyCell
                                      ? " has no interior cell \"" + *options.onlyCell + '"'
                                      : std::string(" has no interior cells")));
    }
    if (cells.size() > kMostCells) {
        throw UsageError(where + " has " + std::to_string(cells.size()) +
                         " interior cells, too many for one drawing; choose with --cell NAME");
    }
    return cells;
}

// A plug-in with what it is drawn from, for the thread that draws.
struct PluginDrawing {
    Report::LoadedPlugin plugin;
    std::vector<const PluginCell*> cells;
    std::optional<ChosenPieces> chosen;
    std::optional<Report::PluginLevels> levels;
};

void WarnOfLabels(const PluginMapReport& report, const Console& console) {
    for (const Report::SurveyedLevel& level : report.levels) {
        if (level.teleports > Report::kMostLabels) {
            console.Warn("\"" + level.outline.name + "\" has " + std::to_string(level.teleports) +
                         " doors to other levels, of which " + std::to_string(Report::kMostLabels) +
                         " are labelled");
        }
    }
}

std::shared_ptr<PluginDrawing> LoadDrawing(const MapOptions& options, const Console& console) {
    const std::string& path = options.plugin.value();
    auto drawing = std::make_shared<PluginDrawing>();
    drawing->plugin = Report::LoadPlugin(path);
    if (!drawing->plugin.file.complete) {
        console.Warn('"' + path + "\" cannot be read to its end; \"vaultry inspect\" tells why");
    }
    drawing->cells = ChooseCells(options, drawing->plugin.file);
    return drawing;
}

std::shared_ptr<Report::MapLevels> LevelsOf(const std::shared_ptr<PluginDrawing>& drawing,
                                            const GenerateOptions& options,
                                            const LibraryLog& log,
                                            const Console& console) {
    const ChosenPieces& chosen =
        drawing->chosen.emplace(ChoosePieces(options.config, options.keepGoing, drawing->cells));
    console.Show(log.Errors());
    if (chosen.known == 0) {
        console.Warn("the configuration \"" + options.config +
                     "\" knows no tile of the plug-in; everything is drawn as marks");
    }
    return {drawing, &drawing->levels.emplace(drawing->cells, drawing->plugin.file, chosen.pieces)};
}

// Until the files have their names, Ctrl-C leaves nothing of them behind.
Ending DrawFiles(MapFiles& files,
                 const std::shared_ptr<Report::MapLevels>& levels,
                 PluginMapReport& report,
                 const Console& console) {
    const CancelSignals signals;
    std::string fault;
    try {
        files.Write(levels, {0, "", report.config, report.plugin});
        if (!signals.Requested()) {
            report.files = files.Commit();
            report.levels = files.Survey().levels;
            WarnOfLabels(report, console);
            return Ending::Drawn;
        }
    } catch (const FileError& e) {
        fault = e.what();
    }
    const bool canceled = signals.Requested();
    console.Say(canceled ? "cancelled, the map was not written" : fault);
    return canceled ? Ending::Canceled : Ending::NotWritten;
}

Ending Draw(const GenerateOptions& options,
            MapFiles& files,
            const std::shared_ptr<Report::MapLevels>& levels,
            PluginMapReport& report,
            const Console& console) {
    if (options.maps.AreWanted()) {
        return DrawFiles(files, levels, report, console);
    }
    if (options.json) {
        report.levels = Report::SurveyOf(*levels).levels;
    } else {
        PrintMaps(*levels, console);
    }
    return Ending::Drawn;
}

} // namespace

ExitStatus RunPluginMap(const MapOptions& options, const Console& console) {
    const EndingSignals signals;
    const GenerateOptions& shared = options.generate;
    CheckMapOptions(shared.maps);
    const ConfigSource source(shared.config);
    MapFiles files(shared.maps);
    RequireDistinctFiles(
        {options.plugin, source.Path(), shared.log, shared.maps.map, shared.maps.html});
    const std::shared_ptr<PluginDrawing> drawing = LoadDrawing(options, console);
    LibraryLog log(shared.log);
    const auto levels = LevelsOf(drawing, shared, log, console);
    PluginMapReport report{*options.plugin, drawing->chosen->config, {}, {}};
    const Ending ending = Draw(shared, files, levels, report, console);
    if (ending != Ending::Drawn) {
        return StatusOf(ending);
    }
    if (shared.json) {
        console.out << ToJson(report);
    }
    if (!shared.quiet) {
        SayWritten(report.files, console);
    }
    return log.SayFault(console) ? ExitStatus::Failure : ExitStatus::Success;
}

} // namespace Tarnex::Cli
