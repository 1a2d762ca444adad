// SPDX-License-Identifier: MIT
#include "cli/MapCommand.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/JsonReport.h"
#include "cli/LevelLines.h"
#include "cli/LibraryLog.h"
#include "cli/MapFiles.h"
#include "cli/PluginMapCommand.h"
#include "cli/RunSetup.h"
#include "tools/maps/MapText.h"
#include "tools/runs/RunLine.h"
#include "tools/text/Words.h"

#include <memory>
#include <optional>

namespace Tarnex::Cli {

namespace {

ExitStatus StatusOf(const RunReport& report) {
    switch (report.result) {
    case Ending::Drawn:
        return report.logged ? ExitStatus::Success : ExitStatus::Failure;
    case Ending::Canceled:
        return ExitStatus::Canceled;
    default:
        return ExitStatus::Failure;
    }
}

Ending Generate(GenMgr& manager,
                RunReport& report,
                Report::MapCollector& maps,
                const CancelSignals& signals,
                const Console& console) {
    GenerateLevels(manager, report, signals, console, &maps);
    if (report.result != Ending::Written) {
        return report.result;
    }
    AddTreasure(maps.Maps(), manager.mod);
    return maps.Maps().empty() ? Ending::Refused : Ending::Drawn;
}

void SayWarnings(RunReport& report, const Console& console) {
    report.warnings = LevelWarnings(report.levels);
    for (const std::string& warning : report.warnings) {
        console.Warn(warning);
    }
}

void DrawFiles(RunReport& report,
               MapFiles& files,
               const std::shared_ptr<Report::MapCollector>& maps,
               const CancelSignals& signals) {
    try {
        files.Write(maps, CaptionOf(report.options));
        if (!signals.Requested()) {
            report.maps = files.Commit();
            return;
        }
    } catch (const FileError& e) {
        report.fault = e.what();
    }
    report.result = signals.Requested() ? Ending::Canceled : Ending::NotWritten;
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
    std::optional<CancelSignals> signals(std::in_place);
    MapFiles files(wanted);
    RequireDistinctFiles({source.Path(), options.generate.log, wanted.map, wanted.html});
    const LibraryLog log(options.generate.log);
    GenMgr manager;
    const auto maps = std::make_shared<Report::MapCollector>();
    const bool configured = Configure(manager, report.options, source, *signals, log, console);
    report.errors = log.Errors();
    report.result = Ending::Canceled;
    if (configured) {
        report.result = Generate(manager, report, *maps, *signals, console);
        log.AddErrors(report.errors);
    }
    console.Show(report.errors);
    SayWarnings(report, console);
    if (report.result == Ending::Drawn) {
        DrawFiles(report, files, maps, *signals);
    }
    signals.reset(); // nothing is left that could stay half done
    const bool printed =
        report.result == Ending::Drawn && !files.AreWanted() && !report.options.json;
    if (printed) {
        PrintMaps(*maps, console);
        console.out << "seed " << std::to_string(report.options.seed.value()) << '\n';
    }
    const bool spoken = report.result != Ending::Drawn || files.AreWanted();
    if (spoken && (!report.options.quiet || report.result != Ending::Drawn)) {
        SayWritten(report.maps, console);
        console.Say(Summary(report));
    }
    SayLogFault(log, report, console);
    if (report.options.json) {
        console.out << ToJson(report);
    }
    return StatusOf(report);
}

Report::MapCaption CaptionOf(const GenerateOptions& options) {
    return {options.seed.value_or(0), Report::LevelWords(options), options.config};
}

void PrintMaps(Report::MapLevels& levels, const Console& console) {
    for (std::size_t i = 0; i < levels.Count(); ++i) {
        Report::PrintMap(levels.Level(i), console.outInColour, console.out);
        console.out << '\n';
    }
    Report::PrintMapLegend(console.out);
}

void SayLogFault(const LibraryLog& log, RunReport& report, const Console& console) {
    if (const auto fault = log.Fault()) {
        report.logged = false;
        report.warnings.push_back(*fault);
        console.Say(*fault);
    }
}

void SayWritten(const std::vector<WrittenFile>& files, const Console& console) {
    for (const WrittenFile& file : files) {
        console.Say("drew \"" + file.path + "\": " + Report::Counted(file.bytes, "byte"));
    }
}

} // namespace Tarnex::Cli
