// SPDX-License-Identifier: MIT
#include "apps/vaultry/GenerateCommand.h"

#include "apps/vaultry/CancelSignals.h"
#include "apps/vaultry/CellName.h"
#include "apps/vaultry/ConfigSource.h"
#include "apps/vaultry/ConsoleStatus.h"
#include "apps/vaultry/JsonReport.h"
#include "apps/vaultry/LevelLines.h"
#include "apps/vaultry/LibraryLog.h"
#include "apps/vaultry/NameCheck.h"
#include "apps/vaultry/OutputFile.h"
#include "apps/vaultry/UsageError.h"
#include "apps/vaultry/WalkableSearch.h"

#include <vaultry/foundation/CodePage.h>

#include <ctime>
#include <random>

namespace Tarnex::Cli {

namespace {

// A file that is written must be no other file of the run, or one would destroy the other.
void RequireDistinct(const std::string& written, const std::string& other) {
    if (SameFile(written, other)) {
        throw UsageError("\"" + written + "\" is named for two files");
    }
}

void CheckFiles(const GenerateOptions& options, const ConfigSource& source) {
    const std::optional<std::string> config = source.Path();
    if (config) {
        RequireDistinct(options.out, *config);
    }
    if (options.log) {
        RequireDistinct(*options.log, options.out);
    }
    if (options.log && config) {
        RequireDistinct(*options.log, *config);
    }
}

void CheckText(const GenerateOptions& options) {
    if (options.cell.empty()) {
        throw UsageError("--cell: the name of the cell is empty");
    }
    if (options.ensureWalkable && options.fixed) {
        throw UsageError("--ensure-walkable is for random levels, not for --fixed");
    }
    if (options.master && options.master->empty()) {
        throw UsageError("--master: the name of the master file is empty");
    }
}

// A run can be repeated only when what chance and the clock decided is known.
void FixChance(GenerateOptions& options) {
    if (!options.seed) {
        options.seed = std::random_device()();
    }
    if (!options.stamp) {
        options.stamp = std::time(nullptr);
    }
}

// Each name is looked for before it is set, since the library ignores some unknown names.
void ChooseNames(GenMgr& manager, const GenerateOptions& options) {
    const auto choose = [](const auto& name, const char* what, const auto& list, auto set) {
        if (name) {
            set(RequireName(what, *name, NamesOf(list)).c_str());
        }
    };
    choose(options.tileSet, "room tile set", manager.GetRoomTileSets(), [&](const char* name) {
        manager.SetDefaultTileSet(name, false);
    });
    choose(options.caveTileSet, "cave tile set", manager.GetCaveTileSets(), [&](const char* name) {
        manager.SetDefaultTileSet(name, true);
    });
    choose(options.layout, "room layout", manager.GetRoomLayouts(), [&](const char* name) {
        manager.SetDefaultTemplate(name, false);
    });
    choose(options.caveLayout, "cave layout", manager.GetCaveLayouts(), [&](const char* name) {
        manager.SetDefaultTemplate(name, true);
    });
    choose(options.theme, "theme", manager.GetThemes(), [&](const char* name) {
        manager.SetDefaultTheme(name);
    });
    choose(options.creatureTheme, "creature theme", manager.GetCreatureThemes(), [&](auto name) {
        manager.SetDefaultCreatureTheme(name);
    });
    choose(options.treasureTheme, "treasure theme", manager.GetTreasureThemes(), [&](auto name) {
        manager.SetDefaultTreasureTheme(name);
    });
}

void Configure(GenMgr& manager, const GenerateOptions& options, const ConfigSource& source) {
    source.Load(manager);
    ChooseNames(manager, options);
    const std::string master = FromUtf8(options.master.value_or(""));
    manager.SetMasterFile(options.master ? master.c_str() : nullptr,
                          options.masterSize.value_or(0));
    manager.SetAddPlatforms(options.platforms);
    manager.SetRandomInfo(options.random);
    manager.SetNameSingleLevel(true);
}

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

constexpr ExitStatus StatusOf(RunResult result) {
    switch (result) {
    case RunResult::Written:
        return ExitStatus::Success;
    case RunResult::Canceled:
        return ExitStatus::Canceled;
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
        : report(runReport), console(runConsole), output(report.options.out) {}

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
        const RunResult result = GenerateLevels(manager, report, log);
        manager.SetJobStatus(nullptr);
        if (result != RunResult::Written) {
            return result;
        }
        const ModResult written = manager.WriteMod(output.TemporaryPath().c_str());
        return written == ModResult::Written ? RunResult::Written : RunResult::NotWritten;
    }

    void Commit() {
        try {
            report.bytes = output.Commit();
        } catch (const std::filesystem::filesystem_error& e) {
            report.result = RunResult::NotWritten;
            console.Say(e.code().message());
        }
    }

    RunReport& report;
    const Console& console;
    OutputFile output;
};

} // namespace

ExitStatus RunGenerate(const GenerateOptions& options, const Console& console) {
    CheckText(options);
    const ConfigSource source(options.config);
    RunReport report;
    report.options = options;
    report.stampGiven = options.stamp.has_value();
    FixChance(report.options);
    Run run(report, console);
    CheckFiles(options, source);
    const CancelSignals signals;
    LibraryLog log(options.log);
    GenMgr manager;
    try {
        Configure(manager, report.options, source);
    } catch (const UsageError&) {
        // A name may be missing because the configuration was not read to its end.
        console.Show(log.Errors());
        throw;
    }
    WarnOfNames(report, console);
    run.Generate(manager, log, signals);
    console.Show(report.errors);
    SayLevels(report, console);
    // A failure is said even to those who want it quiet.
    if (!options.quiet || report.result != RunResult::Written) {
        console.Say(Summary(report));
    }
    if (options.json) {
        console.out << ToJson(report);
    }
    return StatusOf(report.result);
}

} // namespace Tarnex::Cli
