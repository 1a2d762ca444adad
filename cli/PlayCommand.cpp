// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/EngineProcess.h"
#include "cli/PluginPieces.h"
#include "tools/engine/EngineLine.h"
#include "tools/maps/PluginMap.h"
#include "tools/plugins/PluginLoad.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Environment.h>
#include <vaultry/game/EngineConfig.h>

#include <filesystem>
#include <fstream>

namespace Tarnex::Cli {

namespace {

namespace fs = std::filesystem;

constexpr const char* kScript = "vaultry-play.txt";

std::string EngineOf(const PlayOptions& options) {
    if (options.engine) {
        return *options.engine;
    }
    if (const std::optional<std::string> found = FindEngine()) {
        return *found;
    }
    throw UsageError("OpenMW was not found: install it (Debian, Ubuntu: apt-get install openmw; "
                     "otherwise from openmw.org), or name its program with --engine");
}

// Where one arrives on the first level, for what a built-in configuration made.
std::optional<Arrival> FirstArrival(const PluginFile& file) {
    std::vector<const PluginCell*> cells;
    for (const PluginCell& cell : file.cells) {
        cells.push_back(&cell);
    }
    const ChosenPieces chosen = ChoosePieces(kBuiltin, false, cells);
    Report::PluginLevels levels(cells, file, chosen.pieces);
    return chosen.known == 0 ? std::nullopt : levels.Level(0).arrival;
}

void RequireMaster(const PluginMaster& master, const std::vector<std::string>& content) {
    const std::string name = ToUtf8(master.name);
    if (!Report::HasContent(content, name)) {
        throw UsageError(
            "OpenMW does not load \"" + name +
            "\": tick it in OpenMW's launcher, or play without the game: \"vaultry stage "
            "FOLDER\", then --stage FOLDER");
    }
}

// What the engine has to load besides what it loads anyway.
std::vector<std::string> MissingContent(const Report::LoadedPlugin& plugin,
                                        const std::vector<std::string>& content) {
    for (const PluginMaster& master : plugin.file.header.masters) {
        RequireMaster(master, content);
    }
    const std::string name = Utf8(PathFromUtf8(plugin.path).filename());
    return Report::HasContent(content, name) ? std::vector<std::string>() : std::vector{name};
}

// The masters as a stage has them, and the plug-in.
std::vector<std::string> StagedContent(const Report::LoadedPlugin& plugin, const fs::path& stage) {
    std::vector<std::string> content;
    for (const PluginMaster& master : plugin.file.header.masters) {
        content.push_back(ToUtf8(master.name));
        if (!fs::exists(stage / PathFromUtf8(content.back()))) {
            throw UsageError('"' + Utf8(stage) + "\" is no stage: it has no \"" + content.back() +
                             "\"; \"vaultry stage FOLDER\" makes one");
        }
    }
    content.push_back(Utf8(PathFromUtf8(plugin.path).filename()));
    return content;
}

// What the engine's console is to do; the file's path.
std::string WriteScript(const fs::path& folder, const Arrival& arrival) {
    const fs::path path = folder / kScript;
    std::ofstream stream(path, std::ios::binary);
    if (!(stream << FromUtf8(ConsoleLine(arrival)) << '\n' << std::flush)) {
        throw UsageError('"' + Utf8(path) + "\" cannot be written");
    }
    return Utf8(path);
}

Report::EngineStart StartOf(const PlayOptions& options, const Report::LoadedPlugin& plugin) {
    Report::EngineStart start;
    start.engine = EngineOf(options);
    fs::path config = PathFromUtf8(EngineConfigPath(kThisSystem, EnvironmentValue));
    if (options.stage) {
        const fs::path stage = fs::absolute(PathFromUtf8(*options.stage));
        start.stage = Utf8(stage);
        start.content = StagedContent(plugin, stage);
        config = stage / config.filename();
    } else {
        start.content = MissingContent(plugin, InstalledEngineConfig().content);
    }
    start.folder = Utf8(fs::absolute(PathFromUtf8(plugin.path)).parent_path());
    start.cell = ToUtf8(plugin.file.cells.front().name);
    if (const std::optional<Arrival> arrival = FirstArrival(plugin.file)) {
        start.script = WriteScript(config.parent_path(), *arrival);
    }
    return start;
}

} // namespace

ExitStatus RunVerb(const PlayOptions& options, const Console& console) {
    const Report::LoadedPlugin plugin = Report::LoadPlugin(options.plugin);
    if (plugin.file.cells.empty()) {
        throw UsageError('"' + plugin.path + "\" has no interior to arrive in");
    }
    const Report::EngineStart start = StartOf(options, plugin);
    if (start.script.empty()) {
        console.Warn("no built-in configuration knows \"" + plugin.path +
                     "\": one arrives where OpenMW finds a place");
    }
    const std::vector<std::string> words = Report::EngineWords(start);
    if (options.print) {
        console.out << Report::EngineLine(kThisSystem, words) << '\n';
        return ExitStatus::Success;
    }
    const std::optional<int> status = RunProgram(words);
    if (!status) {
        console.Say('"' + start.engine + "\" cannot be started");
    }
    return status == 0 ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace Tarnex::Cli
