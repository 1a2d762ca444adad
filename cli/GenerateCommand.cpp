// SPDX-License-Identifier: MIT
#include "cli/GenerateCommand.h"

#include "cli/CancelSignals.h"
#include "cli/CellName.h"
#include "cli/ConfigSource.h"
#include "cli/JsonReport.h"
#include "cli/LevelLines.h"
#include "cli/LibraryLog.h"
#include "cli/MapCommand.h"
#include "cli/MapFiles.h"
#include "cli/RunSetup.h"

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
    case Ending::Written:
        return report.logged ? ExitStatus::Success : ExitStatus::Failure;
    case Ending::Canceled:
        return ExitStatus::Canceled;
    case Ending::Drawn:
    case Ending::Refused:
    case Ending::NotWritten:
    case Ending::Strict:
    case Ending::Unwalkable:
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
class Writing {
public:
    Writing(RunReport& runReport, const Console& runConsole)
        : report(runReport), console(runConsole), output(report.options.out),
          mapFiles(report.options.maps) {}

    void Generate(GenMgr& manager, const LibraryLog& log, const CancelSignals& signals) {
        report.errors = log.Errors(); // of the configuration
        report.result = CreateMod(manager, signals);
        log.AddErrors(report.errors);
        if (report.result != Ending::Written) {
            return;
        }
        CountContent(manager.mod, report);
        if (signals.Requested()) {
            report.result = Ending::Canceled;
        } else if (report.options.strict && !report.errors.empty()) {
            report.result = Ending::Strict;
        } else {
            Commit();
        }
    }

private:
    Ending CreateMod(GenMgr& manager, const CancelSignals& signals) {
        GenerateLevels(
            manager, report, signals, console, mapFiles.AreWanted() ? maps.get() : nullptr);
        if (report.result != Ending::Written) {
            return report.result;
        }
        AddTreasure(maps->Maps(), manager.mod);
        try {
            mapFiles.Write(maps, CaptionOf(report.options));
            manager.mod.Write(output.Open(&CancelSignals::Status()));
            output.Finish();
        } catch (const FileError& e) {
            report.fault = e.what();
        }
        if (signals.Requested()) {
            return Ending::Canceled;
        }
        return report.fault.empty() ? Ending::Written : Ending::NotWritten;
    }

    void Commit() {
        try {
            output.Commit();
            report.bytes = output.Size();
            report.maps = mapFiles.Commit();
        } catch (const FileError& e) {
            report.result = Ending::NotWritten;
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
    std::optional<Writing> writing(std::in_place, report, console);
    RequireDistinctFiles(
        {source.Path(), options.out, options.log, options.maps.map, options.maps.html});
    const LibraryLog log(options.log);
    GenMgr manager;
    if (Configure(manager, report.options, source, *signals, log, console)) {
        WarnOfNames(report, console);
        writing->Generate(manager, log, *signals);
    } else {
        report.result = Ending::Canceled;
        report.errors = log.Errors();
    }
    // The temporary files are gone: nothing is left that could stay half done.
    writing.reset();
    signals.reset();
    console.Show(report.errors);
    SayLevels(report, console);
    // A failure is said even to those who want it quiet.
    if (!options.quiet || report.result != Ending::Written) {
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
