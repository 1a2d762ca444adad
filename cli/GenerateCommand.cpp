// SPDX-License-Identifier: MIT
#include "cli/GenerateCommand.h"

#include "cli/CancelSignals.h"
#include "cli/CellName.h"
#include "cli/ConfigSource.h"
#include "cli/ConsoleStatus.h"
#include "cli/JsonReport.h"
#include "cli/LevelLines.h"
#include "cli/LibraryLog.h"
#include "cli/MapCommand.h"
#include "cli/MapFiles.h"
#include "cli/RunSetup.h"
#include "cli/WalkableSearch.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/run/SafeFile.h>

#include <memory>
#include <optional>

namespace Tarnex::Cli {

namespace {

void WarnOfNames(RunReport& report, const Console& console) {
    report.warnings = CellNameWarnings(report.options);
    bool lost = false;
    FromUtf8(report.options.master.value_or(""), &lost);
    if (lost) {
        report.warnings.emplace_back("the name of the master file has letters that the game lacks");
    }
    for (const std::string& warning : report.warnings) {
        console.Warn(warning);
    }
}

ExitStatus StatusOf(const RunReport& report) {
    switch (report.result) {
    case RunResult::Written:
        return report.logged ? ExitStatus::Success : ExitStatus::Failure;
    case RunResult::Canceled:
        return ExitStatus::Canceled;
    case RunResult::Drawn:
    case RunResult::Refused:
    case RunResult::NotWritten:
    case RunResult::Strict:
    case RunResult::Unwalkable:
        return ExitStatus::Failure;
    }
    return ExitStatus::Failure;
}

// What is wrong with a level is said even to those who want it quiet.
void SayLevels(RunReport& report, const Console& console) {
    for (const std::string& warning : LevelWarnings(report.levels)) {
        report.warnings.push_back(warning);
        console.Warn(warning);
    }
    if (report.options.quiet) {
        return;
    }
    for (const std::string& line : LevelLines(report.levels)) {
        console.Say(line);
    }
}

// Generates into the temporary file and gives it its name only if nothing speaks against it.
class Run {
public:
    Run(RunReport& runReport, const Console& runConsole)
        : report(runReport), console(runConsole), output(report.options.out),
          mapFiles(report.options.maps) {}

    void Generate(GenMgr& manager, LibraryLog& log, const CancelSignals& signals) {
        log.StartTries();
        report.result = CreateMod(manager, log, signals);
        report.errors = log.Errors();
        if (report.result != RunResult::Written) {
            return;
        }
        CountContent(manager.mod, report);
        if (signals.Requested()) {
            report.result = RunResult::Canceled;
        } else if (report.options.strict && !report.errors.empty()) {
            report.result = RunResult::Strict;
        } else {
            Commit();
        }
    }

private:
    RunResult CreateMod(GenMgr& manager, LibraryLog& log, const CancelSignals& signals) {
        const GenerateOptions& options = report.options;
        const bool shown = console.errIsTerminal && !options.quiet;
        const std::uint32_t levels = options.fixed ? 1 : options.random.numLevels;
        ConsoleStatus status(shown ? &console.err : nullptr, signals, levels);
        manager.SetJobStatus(&status);
        const RunResult result =
            GenerateLevels(manager, report, log, mapFiles.AreWanted() ? maps.get() : nullptr);
        manager.SetJobStatus(nullptr);
        if (result != RunResult::Written) {
            return result;
        }
        AddTreasure(maps->Maps(), manager.mod);
        try {
            mapFiles.Write(maps, CaptionOf(options));
            manager.mod.Write(output.Open(&CancelSignals::Status()));
            output.Finish();
        } catch (const FileError& e) {
            report.fault = e.what();
        }
        if (signals.Requested()) {
            return RunResult::Canceled;
        }
        return report.fault.empty() ? RunResult::Written : RunResult::NotWritten;
    }

    void Commit() {
        try {
            output.Commit();
            report.bytes = output.Size();
            report.maps = mapFiles.Commit();
        } catch (const FileError& e) {
            report.result = RunResult::NotWritten;
            report.fault = e.what();
        }
    }

    RunReport& report;
    const Console& console;
    SafeFile output;
    MapFiles mapFiles;
    std::shared_ptr<Report::MapCollector> maps = std::make_shared<Report::MapCollector>();
};

} // namespace

ExitStatus RunGenerate(const GenerateOptions& options, const Console& console) {
    CheckText(options);
    const ConfigSource source(options.config);
    RunReport report;
    report.options = options;
    report.stampGiven = options.stamp.has_value();
    FixChance(report.options);
    std::optional<CancelSignals> signals(std::in_place);
    std::optional<Run> run(std::in_place, report, console);
    RequireDistinctFiles(
        {source.Path(), options.out, options.log, options.maps.map, options.maps.html});
    LibraryLog log(options.log);
    GenMgr manager;
    if (Configure(manager, report.options, source, *signals, log, console)) {
        WarnOfNames(report, console);
        run->Generate(manager, log, *signals);
    } else {
        report.result = RunResult::Canceled;
        report.errors = log.Errors();
    }
    // The temporary files are gone: nothing is left that could stay half done.
    run.reset();
    signals.reset();
    console.Show(report.errors);
    SayLevels(report, console);
    // A failure is said even to those who want it quiet.
    if (!options.quiet || report.result != RunResult::Written) {
        SayWritten(report.maps, console);
        console.Say(Summary(report));
    }
    SayLogFault(log, report, console);
    if (options.json) {
        console.out << ToJson(report);
    }
    return StatusOf(report);
}

} // namespace Tarnex::Cli
