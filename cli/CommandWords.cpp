// SPDX-License-Identifier: MIT
#include "cli/CommandWords.h"

#include "cli/Arguments.h"
#include "tools/runs/RunLine.h"
#include "tools/text/ShellWords.h"
#include "tools/text/UsageError.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <variant>

namespace Tarnex::Cli {

namespace {

constexpr std::string_view kStart = "vaultry generate --seed ";

GenerateOptions OptionsOf(const std::string& line) {
    std::vector<std::string> words = Report::SplitCommandLine(line);
    if (words.size() < 2 || words[0] != "vaultry" || words[1] != "generate") {
        throw UsageError("it does not begin with vaultry generate");
    }
    words.erase(words.begin());
    const Request request = ParseArguments(words);
    const auto* const options = std::get_if<GenerateOptions>(&request);
    if (options == nullptr || !options->seed) {
        throw UsageError("it has no --seed");
    }
    if (options->preset.name || options->preset.random || options->preset.file) {
        throw UsageError("it names a preset, where tables name what that sets");
    }
    return *options;
}

bool IsTyped(const GenerateOptions& options, std::string_view name) {
    return std::ranges::find(options.typed, FindRunOption(name)) != options.typed.end();
}

// Puts in what earlier versions meant by a line that does not name it; false for a line of today.
bool NameEarlierDefaults(GenerateOptions& options) {
    const bool sized = options.fixed || IsTyped(options, "size");
    if (options.cell && sized) {
        return false;
    }
    options.cell = options.cell.value_or("Vaultry Dungeon");
    options.levelSize = sized ? options.levelSize : RandomGenInfo::Random;
    const bool ofCaves = options.config == "builtin:caves" || options.config == "builtin:grottoes";
    if (ofCaves && !options.caveTileSet) {
        options.tileSet = "Velothi";
    }
    if (ofCaves && options.fixed && !options.caveLayout) {
        options.layout = options.layout.value_or("Small Chamber");
    }
    return true;
}

// The seed of a line that begins as those in tables do, taken off with all before it.
std::optional<std::uint32_t> TakeSeed(std::string_view& line) {
    if (!line.starts_with(kStart)) {
        return std::nullopt;
    }
    std::uint32_t seed = 0;
    const char* const end = line.data() + line.size();
    const auto [stop, fault] = std::from_chars(line.data() + kStart.size(), end, seed);
    if (fault != std::errc() || (stop != end && *stop != ' ')) {
        return std::nullopt;
    }
    line.remove_prefix(static_cast<std::size_t>(stop - line.data()));
    return seed;
}

} // namespace

GenerateLines::Understood GenerateLines::Read(const std::string& line) {
    std::string_view behind = line;
    const std::optional<std::uint32_t> seed = TakeSeed(behind);
    if (seed && behind == read) {
        return {*seed, std::string(kStart) + std::to_string(*seed) + printed};
    }
    GenerateOptions options = OptionsOf(line);
    older = NameEarlierDefaults(options) || older;
    const std::string whole = Report::GenerateCommandLine(options, *options.seed);
    std::string_view words = whole;
    if (seed && TakeSeed(words)) {
        read = behind;
        printed = words;
    }
    return {*options.seed, whole};
}

} // namespace Tarnex::Cli
