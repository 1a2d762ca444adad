// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/PresetChoice.h"
#include "cli/VerbRun.h"
#include "tools/runs/Chosen.h"

namespace Tarnex::Cli {

ExitStatus RunVerb(const MapOptions& options, const Console& console) {
    if (options.plugin) {
        return RunPluginMap(options, console);
    }
    VerbRun run(WithPreset(options.generate), console);
    if (run.Configure()) {
        run.Generate();
    }
    run.Show();
    if (!run.report.options.quiet) {
        SayPreset(run.report.options, console);
    }
    run.Write();
    run.Close();
    const GenerateOptions& used = run.report.options;
    if (run.report.result == Ending::Drawn && !used.maps.AreWanted() && !used.json) {
        PrintMaps(*run.maps, console);
        console.out << "seed " << std::to_string(used.seed.value()) << '\n';
        for (const std::string& line : Report::ChosenLines(run.report.levels, used)) {
            console.out << line << '\n';
        }
    }
    return run.End();
}

} // namespace Tarnex::Cli
