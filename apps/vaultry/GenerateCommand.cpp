// SPDX-License-Identifier: MIT
#include "apps/vaultry/GenerateCommand.h"

#include "apps/vaultry/CancelSignals.h"
#include "apps/vaultry/CellName.h"
#include "apps/vaultry/ConfigSource.h"
#include "apps/vaultry/ConsoleStatus.h"
#include "apps/vaultry/JsonReport.h"
#include "apps/vaultry/LibraryLog.h"
#include "apps/vaultry/NameCheck.h"
#include "apps/vaultry/OutputFile.h"
#include "apps/vaultry/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/gen/ContainerIds.h>

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
    SeedRandom(options.seed.value());
    SetContainerStamp(options.stamp.value());
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

constexpr RunResult ResultOf(ModResult result) {
    switch (result) {
    case ModResult::Written:
        return RunResult::Written;
    case ModResult::Refused:
        return RunResult::Refused;
    case ModResult::Canceled:
        return RunResult::Canceled;
    case ModResult::NotWritten:
        return RunResult::NotWritten;
    }
    return RunResult::NotWritten;
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
        return ExitStatus::Failure;
    }
    return ExitStatus::Failure;
}

// Generates into the temporary file and gives it its name only if nothing speaks against it.
class Run {
public:
    Run(RunReport& runReport, const Console& runConsole)
        : report(runReport), console(runConsole), output(report.options.out) {}

    void Generate(GenMgr& manager, const LibraryLog& log, const CancelSignals& signals) {
        report.result = ResultOf(CreateMod(manager, signals));
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
    ModResult CreateMod(GenMgr& manager, const CancelSignals& signals) {
        const GenerateOptions& options = report.options;
        const bool shown = console.errIsTerminal && !options.quiet;
        const std::uint32_t levels = options.fixed ? 1 : options.random.numLevels;
        ConsoleStatus status(shown ? &console.err : nullptr, signals, levels);
        manager.SetJobStatus(&status);
        const std::string cell = FromUtf8(options.cell);
        const ModResult result =
            manager.CreateMod(output.TemporaryPath().c_str(), cell.c_str(), options.fixed);
        manager.SetJobStatus(nullptr);
        return result;
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
    const LibraryLog log(options.log);
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
