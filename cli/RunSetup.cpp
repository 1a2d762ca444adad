// SPDX-License-Identifier: MIT
#include "cli/RunSetup.h"

#include "cli/ConsoleStatus.h"
#include "cli/MapFiles.h"
#include "cli/NameCheck.h"
#include "tools/text/UsageError.h"

#include <vaultry/run/Run.h>

namespace Tarnex::Cli {

namespace {

// The library refuses names that it lacks; here the nearest are offered.
void CheckNames(GenMgr& manager, const GenerateOptions& options) {
    for (const OptionRow* row : UnknownNames(options, manager)) {
        const std::string name = std::get<std::string>(ValueOf(options, *row));
        throw UsageError(std::string("the configuration has no ") + row->choice->what + " \"" +
                         name + "\"; " + OfferNames(name, ToUtf8(row->choice->names(manager))));
    }
}

} // namespace

void CheckText(const GenerateOptions& options) {
    if (options.cell.empty()) {
        throw UsageError("--cell: the name of the cell is empty");
    }
    if (options.ensureWalkable && options.fixed) {
        throw UsageError("--ensure-walkable is for random levels, not for --fixed");
    }
    CheckMapOptions(options.maps);
    if (options.master && options.master->empty()) {
        throw UsageError("--master: the name of the master file is empty");
    }
}

void GenerateLevels(GenMgr& manager,
                    RunReport& report,
                    const CancelSignals& signals,
                    const Console& console,
                    LevelObserver* observer) {
    const GenerateOptions& options = report.options;
    const bool shown = console.errIsTerminal && !options.quiet;
    ConsoleStatus status(
        shown ? &console.err : nullptr, signals, options.fixed ? 1 : options.numLevels);
    manager.SetJobStatus(&status);
    manager.SetLevelObserver(observer);
    TakeOver(Run(manager, options).Generate(), report);
    manager.SetLevelObserver(nullptr);
    manager.SetJobStatus(nullptr);
}

bool Configure(GenMgr& manager,
               const GenerateOptions& options,
               const ConfigSource& source,
               const CancelSignals& signals,
               const LibraryLog& log,
               const Console& console,
               std::string* copy) try {
    source.Load(manager, ConsoleStatus(nullptr, signals, 0), copy);
    if (signals.Requested()) {
        return false;
    }
    if (!options.keepGoing || options.strict) {
        source.RequireWhole(manager);
    }
    CheckNames(manager, options);
    return true;
} catch (const UsageError&) {
    console.Show(log.Errors());
    throw;
}

} // namespace Tarnex::Cli
