// SPDX-License-Identifier: MIT
// What every verb that generates goes through.
#pragma once

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/Console.h"
#include "cli/LibraryLog.h"
#include "cli/MapFiles.h"
#include "cli/RunReport.h"

#include <vaultry/run/SafeFile.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// One run of a verb, from its options to its exit status. The functions are its stations, in the
/// order in which most verbs come by; what a verb does in between is its own.
class VerbRun {
public:
    /// Finds out that configuration and files can be used, notes signals from here on, and opens
    /// the log. Throws UsageError and FilePlaceError.
    VerbRun(const GenerateOptions& options, const Console& console);

    /// Loads the configuration. Returns false when that was cancelled. Throws UsageError for a
    /// broken one, unless it is to be used all the same, and for a name that it lacks, having shown
    /// what was logged. The configuration as it was read is put into `copy`; null copies nothing.
    bool Configure(std::string* copy = nullptr);

    /// Generates, showing how far it is.
    void Generate();

    /// Writes what was generated into the files asked for, of which each is replaced whole or not
    /// at all, unless something speaks against it. Throws Report::MapError.
    void Write();

    /// Removes what was not finished. Signals end the process again.
    void Close() { files.reset(); }

    /// Shows the errors so far, and what is wrong with a level even to those who want it quiet.
    void Show();
    /// Shows warnings of the verb's own and reports them.
    void Warn(const std::vector<std::string>& warnings);

    /// Says what was written, and a failure even to those who want it quiet.
    ExitStatus End();

    RunReport report;
    GenMgr manager;
    const std::shared_ptr<Report::MapCollector> maps = std::make_shared<Report::MapCollector>();

    /// What went wrong so far.
    const std::vector<Problem>& Problems() const { return log.Problems(); }
    const CancelSignals& Signals() const { return files->signals; }
    /// The file besides maps, if there is one. Not after Close.
    std::optional<SafeFile>& Output() { return files->output; }

private:
    // What must not be left half done, below what waits for it to be removed.
    struct Files {
        Files(const GenerateOptions& options, const ConfigSource& source);

        CancelSignals signals;
        std::optional<SafeFile> output;
        std::optional<SafeFile> beside; // that says how the output was made
        std::optional<MapFiles> maps;
    };

    void Fill();
    void Describe();
    Ending Filled();
    void Commit();

    const Console& console;
    ConfigSource source;
    std::optional<Files> files;
    LibraryLog log;
};

} // namespace Tarnex::Cli
