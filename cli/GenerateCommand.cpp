// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LevelLines.h"
#include "cli/NameCheck.h"
#include "cli/VerbRun.h"

namespace Tarnex::Cli {

namespace {

GenerateOptions WithCell(GenerateOptions options) {
    options.cell = options.cell.value_or(CellNameOf(*options.out));
    return options;
}

} // namespace

ExitStatus RunVerb(const GenerateOptions& given, const Console& console) {
    const GenerateOptions options = WithCell(given);
    VerbRun run(options, console);
    if (run.Configure()) {
        run.Warn(FileNameWarnings(*options.out));
        run.Warn(given.cell ? std::vector<std::string>()
                            : CellNameWarnings(*options.out, *options.cell));
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
