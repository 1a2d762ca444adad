// SPDX-License-Identifier: MIT
#include "apps/vaultry/MapCommand.h"

#include "apps/report/MapText.h"
#include "apps/report/Words.h"
#include "apps/vaultry/CancelSignals.h"
#include "apps/vaultry/ConfigSource.h"
#include "apps/vaultry/ConsoleStatus.h"
#include "apps/vaultry/GenerateWords.h"
#include "apps/vaultry/JsonReport.h"
#include "apps/vaultry/LevelLines.h"
#include "apps/vaultry/LibraryLog.h"
#include "apps/vaultry/MapFiles.h"
#include "apps/vaultry/PluginMapCommand.h"
#include "apps/vaultry/RunSetup.h"
#include "apps/vaultry/WalkableSearch.h"

namespace Tarnex::Cli {

namespace {

ExitStatus StatusOf(RunResult result) {
    switch (result) {
    case RunResult::Drawn:
        return ExitStatus::Success;
    case RunResult::Canceled:
        return ExitStatus::Canceled;
    default:
        return ExitStatus::Failure;
    }
}

RunResult Generate(GenMgr& manager,
                   RunReport& report,
                   LibraryLog& log,
                   Report::MapCollector& maps,
                   const Console& console) {
    const GenerateOptions& options = report.options;
    const CancelSignals signals;
    const bool shown = console.errIsTerminal && !options.quiet;
    ConsoleStatus status(
        shown ? &console.err : nullptr, signals, options.fixed ? 1 : options.random.numLevels);
    manager.SetJobStatus(&status);
    log.StartTries();
    const RunResult result = GenerateLevels(manager, report, log, &maps);
    manager.SetJobStatus(nullptr);
    if (result != RunResult::Written) {
        return result;
    }
    return maps.Maps().empty() ? RunResult::Refused : RunResult::Drawn;
}

// The maps take their places, or the terminal.
void Show(RunReport& report, MapFiles& files, Report::MapCollector& maps, const Console& console) {
    report.unwritten = files.Write(maps.Maps(), CaptionOf(report.options));
    if (report.unwritten) {
        report.result = RunResult::NotWritten;
        return;
    }
    report.maps = files.Commit();
    if (!files.AreWanted() && !report.options.json) {
        PrintMaps(maps.Maps(), console);
        console.out << "seed " << std::to_string(report.options.seed.value()) << '\n';
    }
}

} // namespace

ExitStatus RunMap(const MapOptions& options, const Console& console) {
    if (options.plugin) {
        return RunPluginMap(options, console);
    }
    CheckText(options.generate);
    const ConfigSource source(options.generate.config);
    RunReport report;
    report.options = options.generate;
    report.options.out.clear();
    FixChance(report.options);
    const MapFileOptions& wanted = options.generate.maps;
    MapFiles files(wanted);
    RequireDistinctFiles({source.Path(), options.generate.log, wanted.map, wanted.html});
    LibraryLog log(options.generate.log);
    GenMgr manager;
    ConfigureOrShow(manager, report.options, source, log, console);
    Report::MapCollector maps;
    report.result = Generate(manager, report, log, maps, console);
    report.errors = log.Errors();
    console.Show(report.errors);
    report.warnings = LevelWarnings(report.levels);
    for (const std::string& warning : report.warnings) {
        console.Warn(warning);
    }
    if (report.result == RunResult::Drawn) {
        AddTreasure(maps.Maps(), manager.mod);
        Show(report, files, maps, console);
    }
    const bool spoken = report.result != RunResult::Drawn || files.AreWanted();
    if (spoken && (!report.options.quiet || report.result != RunResult::Drawn)) {
        SayWritten(report.maps, console);
        console.Say(Summary(report));
    }
    if (report.options.json) {
        console.out << ToJson(report);
    }
    return StatusOf(report.result);
}

Report::MapCaption CaptionOf(const GenerateOptions& options) {
    return {options.seed.value_or(0), LevelWords(options), options.config};
}

void PrintMaps(const std::vector<Report::LevelMap>& maps, const Console& console) {
    for (const Report::LevelMap& map : maps) {
        Report::PrintMap(map, console.outInColour, console.out);
        console.out << '\n';
    }
    Report::PrintMapLegend(console.out);
}

void SayWritten(const std::vector<WrittenFile>& files, const Console& console) {
    for (const WrittenFile& file : files) {
        console.Say("drew \"" + file.path + "\": " + Report::Counted(file.bytes, "byte"));
    }
}

} // namespace Tarnex::Cli
