// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/LevelLines.h"
#include "cli/NameCheck.h"
#include "cli/PresetChoice.h"
#include "cli/VerbRun.h"
#include "tools/runs/Chosen.h"
#include "tools/text/Json.h"

#include <vaultry/gen/ContainerIds.h>
#include <vaultry/run/Run.h>

#include <sstream>

namespace Tarnex::Cli {

namespace {

GenerateOptions WithCell(GenerateOptions options) {
    options.cell = options.cell.value_or(CellNameOf(*options.out));
    return options;
}

// "keep.esp" as "keep-07.esp" where there are ten or more: so that they sort by number.
void Number(std::string& path, const GenerateOptions& options) {
    const std::string most = std::to_string(options.count);
    std::string number = std::to_string(options.number);
    number.insert(0, most.size() - number.size(), '0');
    const std::size_t name = path.find_last_of("/\\") + 1;
    const std::size_t dot = path.rfind('.');
    path.insert(dot == std::string::npos || dot <= name ? path.size() : dot, '-' + number);
}

// One of several: whatever would be the same for all of them is told apart by its number, also the
// stamp, or the containers of one plug-in would be taken for those of another.
GenerateOptions OneOf(GenerateOptions options, std::uint32_t number) {
    options.number = number;
    options.seed = FurtherSeed(*options.seed, number - 1);
    for (std::optional<std::string>* path :
         {&options.out, &options.log, &options.maps.map, &options.maps.html}) {
        if (*path) {
            Number(**path, options);
        }
    }
    if (options.cell) {
        *options.cell += ' ' + std::to_string(number);
    }
    if (options.stamp) {
        const auto stamp = static_cast<std::uint64_t>(*options.stamp) + number - 1;
        options.stamp = static_cast<std::int64_t>(stamp & kMaxStamp);
    }
    return options;
}

ExitStatus GenerateOne(const GenerateOptions& given, const Console& console) {
    const GenerateOptions options = WithCell(WithPreset(given));
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
        SayPreset(options, console);
    }
    if (run.report.interior && !options.quiet) {
        console.Say(InteriorLine(*run.report.interior));
    }
    if (!options.quiet) {
        for (const std::string& line : LevelLines(run.report.levels)) {
            console.Say(line);
        }
        for (const std::string& line : Report::ChosenLines(run.report.levels, options)) {
            console.Say(line);
        }
    }
    return run.End();
}

} // namespace

ExitStatus RunVerb(const GenerateOptions& options, const Console& console) {
    if (options.count == 1) {
        return GenerateOne(options, console);
    }
    RunOptions chance = options;
    FixChance(chance);
    GenerateOptions all = options;
    all.seed = chance.seed;
    ExitStatus status = ExitStatus::Success;
    Report::Json told = Report::Json::array();
    for (std::uint32_t i = 1; i <= all.count && status == ExitStatus::Success; ++i) {
        std::ostringstream object;
        status = GenerateOne(OneOf(all, i), {object, console.err, console.errIsTerminal});
        if (options.json) {
            told.push_back(Report::Json::parse(object.str()));
        }
    }
    if (options.json) {
        console.out << Report::JsonText(told);
    }
    return status;
}

} // namespace Tarnex::Cli
