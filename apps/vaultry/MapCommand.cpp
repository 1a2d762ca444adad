// SPDX-License-Identifier: MIT
#include "apps/vaultry/MapCommand.h"

#include "apps/report/MapSvg.h"
#include "apps/report/MapText.h"
#include "apps/vaultry/CancelSignals.h"
#include "apps/vaultry/ConfigSource.h"
#include "apps/vaultry/ConsoleStatus.h"
#include "apps/vaultry/LevelLines.h"
#include "apps/vaultry/LibraryLog.h"
#include "apps/vaultry/RunSetup.h"
#include "apps/vaultry/WalkableSearch.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/gen/RandomGenInfo.h>

#include <fstream>

namespace Tarnex::Cli {

namespace {

// The options that shape the levels, as they are typed.
std::string OptionWords(const GenerateOptions& options) {
    std::string text;
    const auto add = [&text](const char* name, const std::optional<std::string>& value) {
        if (value) {
            text += (text.empty() ? "" : " ") + std::string(name) + " \"" + *value + '"';
        }
    };
    const RandomGenInfo& random = options.random;
    if (options.fixed) {
        text = options.platforms ? "--fixed --platforms" : "--fixed";
    } else {
        text = "--levels " + std::to_string(random.numLevels) + " --size " +
               RandomGenInfo::GetLevelSizeStrings()[static_cast<std::size_t>(random.levelSize)] +
               " --spacing " +
               RandomGenInfo::GetRoomSpacingStrings()[static_cast<std::size_t>(random.roomSpacing)];
    }
    add("--tileset", options.tileSet);
    add("--cave-tileset", options.caveTileSet);
    add("--template", options.layout);
    add("--cave-template", options.caveLayout);
    add("--theme", options.theme);
    add("--creature-theme", options.creatureTheme);
    add("--treasure-theme", options.treasureTheme);
    return text;
}

ExitStatus StatusOf(RunResult result) {
    switch (result) {
    case RunResult::Written:
        return ExitStatus::Success;
    case RunResult::Canceled:
        return ExitStatus::Canceled;
    default:
        return ExitStatus::Failure;
    }
}

} // namespace

ExitStatus RunMap(const MapOptions& options, const Console& console) {
    CheckText(options.generate);
    const ConfigSource source(options.generate.config);
    RunReport report;
    report.options = options.generate;
    FixChance(report.options);
    const CancelSignals signals;
    LibraryLog log(std::nullopt);
    GenMgr manager;
    Configure(manager, report.options, source);
    ConsoleStatus status(
        nullptr, signals, options.generate.fixed ? 1 : report.options.random.numLevels);
    manager.SetJobStatus(&status);
    log.StartTries();
    Report::MapCollector maps;
    report.result = GenerateLevels(manager, report, log, maps);
    manager.SetJobStatus(nullptr);
    console.Show(log.Errors());
    for (const std::string& warning : LevelWarnings(report.levels)) {
        console.Warn(warning);
    }
    if (report.result != RunResult::Written) {
        console.Say(Summary(report));
        return StatusOf(report.result);
    }
    for (const Report::LevelMap& map : maps.Maps()) {
        Report::PrintMap(map, console.outInColour, console.out);
        console.out << '\n';
    }
    Report::PrintMapLegend(console.out);
    console.out << "seed " << std::to_string(report.options.seed.value()) << '\n';
    return ExitStatus::Success;
}

bool WriteMapFile(const std::vector<Report::LevelMap>& maps,
                  const GenerateOptions& options,
                  const std::string& path) {
    std::ofstream stream(PathFromUtf8(path), std::ios::binary);
    const Report::MapCaption caption{
        options.seed.value_or(0), OptionWords(options), options.config};
    Report::WriteSvg(maps, caption, stream);
    stream.close();
    return stream.good();
}

} // namespace Tarnex::Cli
