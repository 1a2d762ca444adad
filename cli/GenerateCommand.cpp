// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LevelLines.h"
#include "cli/NameCheck.h"
#include "cli/VerbRun.h"

namespace Tarnex::Cli {

ExitStatus RunVerb(const GenerateOptions& options, const Console& console) {
    VerbRun run(options, console);
    if (run.Configure()) {
        run.Warn(NameWarnings(options));
        run.Generate();
        run.Write();
    }
    run.Close();
    run.Show();
    if (!options.quiet) {
        for (const std::string& line : LevelLines(run.report.levels)) {
            console.Say(line);
        }
    }
    return run.End();
}

} // namespace Tarnex::Cli
