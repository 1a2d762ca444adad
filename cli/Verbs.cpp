// SPDX-License-Identifier: MIT
#include "cli/Verbs.h"

#include "cli/CommandHelp.h"
#include "tools/facts/DungeonFacts.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/Text.h>
#include <vaultry/run/BuiltinConfigs.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <limits>

namespace Tarnex::Cli {

namespace {

constexpr std::uint64_t kMaxWord = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kMostJobs = 1024;
constexpr std::uint64_t kMostDungeons = 10'000;
constexpr std::size_t kFactColumn = 19;

constexpr const char* kGenerateExample =
    "Examples:\n"
    "  vaultry generate -o keep.esp -n \"The Old Keep\" --levels 3 --seed 7\n"
    "  vaultry generate --fixed -c my.xml --cave-template Den --platforms\n"
    "  vaultry generate --seed 7 --levels 2 --map keep.png --html keep.html";
constexpr const char* kMapExample =
    "Draws on the terminal unless --map, --html or --json is given. Of a plug-in, the "
    "configuration tells which pieces are floors, walls and doors; by default the built-in one "
    "that fits best.\n"
    "\n"
    "Examples:\n"
    "  vaultry map --seed 7 --levels 2 --size medium\n"
    "  vaultry map --fixed --template \"Sunken Shrine\" --map shrine.png --look dark\n"
    "  vaultry map crypt.esp --html crypt.html\n"
    "  vaultry map Morrowind.esm --cell \"Addamasartus\" --map cave.svg";
constexpr const char* kSearchConditions =
    "A condition compares facts and whole numbers by < <= > >= = != and joins comparisons by and, "
    "or, not and parentheses; a fact by itself holds when it is not 0. A key is a fact: the "
    "greatest comes first, or with :asc the least. The facts:\n";
constexpr const char* kSearchExample =
    "Exit status: 0 done, 1 a seed could not be judged or a file not be written, 2 wrong "
    "arguments, 130 cancelled; what was found until then is listed and written.\n"
    "\n"
    "Examples:\n"
    "  vaultry search --sample 10000 --levels 2 --size large --top 10 \\\n"
    "      --where \"rooms>=12 and walkable and loops>=2\" --sort loops,treasure\n"
    "  vaultry search --sample 500 --creature-theme Undead --csv found.csv \\\n"
    "      --where \"creatures-from-15 > 3\" --thumbnails maps\n"
    "  vaultry search --merge found-*.csv --sort loops --top 10 --csv best.csv";
constexpr const char* kListExample = "Example:\n"
                                     "  vaultry list -c my.xml --json";
constexpr const char* kConfigExample = "Example:\n"
                                       "  vaultry config caves > my.xml";
constexpr const char* kInspectExample =
    "Exit status: 0 nothing is wrong, 1 there are findings, 2 no plug-in.\n"
    "\n"
    "Examples:\n"
    "  vaultry inspect crypt.esp\n"
    "  vaultry inspect crypt.esp --refs | less\n"
    "  vaultry inspect crypt.esp --json > crypt.json";
constexpr const char* kPlayExample = "Writes what the engine's console is to do into "
                                     "vaultry-play.txt, beside openmw.cfg or into the "
                                     "folder of the stage.\n"
                                     "\n"
                                     "Exit status: 0 OpenMW ended well, 2 something is missing, "
                                     "any other: it did not, or could not be "
                                     "started.\n"
                                     "\n"
                                     "Examples:\n"
                                     "  vaultry play crypt.esp\n"
                                     "  vaultry play crypt.esp --stage stage --print";
constexpr const char* kDiffExample = "Exit status: 0 the same, 1 differences, 2 no plug-in.\n"
                                     "\n"
                                     "Example:\n"
                                     "  vaultry diff before.esp after.esp";

constexpr const char* kCheckExample =
    "Exit status: 0 clean, 1 there are errors or warnings, 2 unusable.\n"
    "\n"
    "Examples:\n"
    "  vaultry check my.xml\n"
    "  vaultry check my.xml --json | jq -r '.findings[].message'\n"
    "  vaultry check *.xml";

constexpr const char* kStageExample =
    "Boxes and bare rooms stand in for the game's objects, at the measures that were taken in the "
    "game, so that OpenMW shows a plug-in without it. The folder is a new one or that of a stage.\n"
    "\n"
    "Example:\n"
    "  vaultry stage stage\n"
    "  vaultry generate --seed 7 -n Crypt -o stage/crypt.esp\n"
    "  openmw --data stage --content Morrowind.esm --content crypt.esp \\\n"
    "      --skip-menu --start Crypt";

constexpr const char* kManualExample = "Example:\n"
                                       "  vaultry manual | man -l -";
constexpr const char* kCompletionExample =
    "Examples, of which the last belongs into $PROFILE:\n"
    "  vaultry completion bash > ~/.local/share/bash-completion/completions/vaultry\n"
    "  vaultry completion fish > ~/.config/fish/completions/vaultry.fish\n"
    "  vaultry completion powershell | Out-String | Invoke-Expression";

// In the order of Report::MapLook.
const std::vector<std::string> kLooks = {"Auto", "Light", "Dark"};

// Takes the text of an option and returns what is wrong with it, the second half of a sentence;
// empty for nothing.
using Taker = std::function<std::string(const std::string& text)>;

CLI::Option* AddValue(CLI::App& verb,
                      const std::string& names,
                      const char* type,
                      const std::string& help,
                      Taker take) {
    const std::string longName = names.substr(names.find(',') + 1);
    return verb
        .add_option_function<std::string>(
            names,
            [longName, take = std::move(take)](const std::string& text) {
                const std::string fault = take(text);
                if (!fault.empty()) {
                    throw UsageError(longName + ": \"" + text + "\" " + fault);
                }
            },
            help)
        ->type_name(type);
}

// Of the options that follow.
void ListUnder(CLI::App& verb, Heading heading) {
    verb.option_defaults()->group(kHeadings.at(static_cast<std::size_t>(heading)));
}

template <typename Field>
CLI::Option*
AddText(CLI::App& verb, const char* names, Field& field, const char* type, const char* help) {
    return AddValue(verb, names, type, help, [&field](const std::string& text) {
        field = text;
        return std::string();
    });
}

template <typename Number>
bool Reads(const std::string& text, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    return fault == std::errc() && stop == end;
}

// A whole number from 1.
template <typename Field>
void AddCount(
    CLI::App& verb, const char* name, Field& field, std::uint64_t highest, const char* help) {
    AddValue(verb, name, "N", help, [&field, highest](const std::string& text) -> std::string {
        std::uint64_t number = 0;
        if (!Reads(text, number) || number < 1 || number > highest) {
            return "is not a whole number from 1 to " + std::to_string(highest);
        }
        field = static_cast<Field>(number);
        return {};
    });
}

std::string TakeLook(MapFileOptions& options, const std::string& text) {
    const auto found = std::ranges::find_if(
        kLooks, [&text](const std::string& look) { return EqualsNoCase(look, text); });
    if (found == kLooks.end()) {
        return "is none of " + JoinWords(kLooks);
    }
    options.look = static_cast<Report::MapLook>(found - kLooks.begin());
    return {};
}

std::string TakeScale(MapFileOptions& options, const std::string& text) {
    double scale = 0.0;
    if (!Reads(text, scale) ||
        !(scale >= Report::kSmallestScale && scale <= Report::kLargestScale)) {
        return "is not a number from 0.1 to 10";
    }
    options.scale = scale;
    return {};
}

template <typename Config>
void AddConfig(CLI::App& verb, Config& config, bool& keepGoing) {
    ListUnder(verb, Heading::Dungeon);
    AddText(verb,
            "-c,--config",
            config,
            "FILE",
            "The configuration: a file, builtin or builtin:NAME (default: builtin)");
    verb.add_flag("--keep-going", keepGoing, "Use what can be read of a broken configuration");
}

// Puts the words that an option takes before its default.
std::string WithWords(std::string help, const std::vector<std::string>& words) {
    if (!words.empty()) {
        help.insert(std::min(help.find(" ("), help.size()), ": " + JoinWords(words));
    }
    return help;
}

// What help calls the value of an option, in the order of OptionKind.
constexpr std::array<const char*, 8> kValueWords = {
    "", "NAME", "N", "WORD", "X,Y,Z,ANGLE", "FOLDER", "A..B", "FILE"};

CLI::Option* AddRunOption(CLI::App& verb, const OptionRow& row, RunOptions& options) {
    const std::string option = std::string("--") + row.name;
    const std::string names =
        row.letter == nullptr ? option : '-' + std::string(row.letter) + ',' + option;
    if (const auto* const flag = std::get_if<bool RunOptions::*>(&row.field)) {
        return verb.add_flag(names, options.**flag, row.help);
    }
    return AddValue(
        verb,
        names,
        kValueWords.at(static_cast<std::size_t>(KindOf(row))),
        WithWords(row.help, WordsOf(row)),
        [&options, &row](const std::string& text) { return SetOption(options, row, text); });
}

// The options of a run that were typed.
std::vector<const OptionRow*> TypedRows(const CLI::App& verb) {
    std::vector<const OptionRow*> typed;
    for (const OptionRow& row : RunOptionRows()) {
        const CLI::Option* const option = verb.get_option_no_throw(std::string("--") + row.name);
        if (option != nullptr && option->count() > 0) {
            typed.push_back(&row);
        }
    }
    return typed;
}

void NoteTyped(const CLI::App& verb, GenerateOptions& options) {
    options.typed = TypedRows(verb);
    options.config = options.preset.config.value_or(options.config);
}

// What a run is asked for, as far as the verb takes it: 0 stands for all of it.
void AddRunOptions(CLI::App& verb, GenerateOptions& options, unsigned use = 0) {
    verb.final_callback([&verb, &options] { NoteTyped(verb, options); });
    for (const OptionRow& row : RunOptionRows()) {
        if ((row.uses & use) != use) {
            continue;
        }
        ListUnder(verb, static_cast<Heading>(row.group));
        CLI::Option* const option = AddRunOption(verb, row, options);
        CLI::Option* const rival = row.rival == nullptr
                                       ? nullptr
                                       : verb.get_option_no_throw(std::string("--") + row.rival);
        if (rival != nullptr) {
            rival->excludes(option);
        }
    }
}

void AddPresetFile(CLI::App& verb, std::optional<std::string>& file) {
    AddText(
        verb, "--presets", file, "FILE", "Presets in place of the built-in ones (default: none)");
}

// By the words of help a shell completes what may follow.
void AddPresets(CLI::App& verb, PresetOptions& options, bool byChance) {
    ListUnder(verb, Heading::Dungeon);
    std::vector<std::string> names;
    for (const Report::Preset& preset : Report::BuiltinPresetList()) {
        names.push_back(preset.name);
    }
    const std::string help = WithWords("Options that belong together (default: none)", names);
    CLI::Option* const name = AddText(verb, "--preset", options.name, "WORD", help.c_str());
    AddPresetFile(verb, options.file);
    if (byChance) {
        verb.add_flag("--random-preset", options.random, "Choose the preset by the seed")
            ->excludes(name);
    }
}

void AddMapFiles(CLI::App& verb, MapFileOptions& options) {
    ListUnder(verb, Heading::Maps);
    AddText(
        verb, "--map", options.map, "FILE", "Draws every level, as .svg or .png (default: none)");
    AddText(
        verb, "--html", options.html, "FILE", "Writes a page with maps and tables (default: none)");
    AddValue(verb,
             "--look",
             "WORD",
             WithWords("Colours of maps and pages (default: Auto)", kLooks),
             [&options](const std::string& text) { return TakeLook(options, text); });
    AddValue(verb,
             "--scale",
             "N",
             "Pixels of a PNG per unit, 24 units to a cell (default: 1.5)",
             [&options](const std::string& text) { return TakeScale(options, text); });
}

void AddSummary(CLI::App& verb, GenerateOptions& options) {
    verb.add_flag("--quiet", options.quiet, "No progress and no summary");
    verb.add_flag("--json", options.json, "A report on standard output");
}

void AddReport(CLI::App& verb, GenerateOptions& options) {
    ListUnder(verb, Heading::Reports);
    AddText(verb, "--log", options.log, "FILE", "Writes the generator's log (default: none)");
    AddSummary(verb, options);
}

void AddJson(CLI::App& verb, bool& json, const char* help = "As JSON") {
    verb.add_flag("--json", json, help);
}

// A plug-in is drawn as it is: what shapes levels does not go with it.
void CheckPluginOptions(const CLI::App& verb) {
    std::vector<std::string> given = {"--preset", "--presets", "--random-preset"};
    std::erase_if(given, [&verb](const std::string& option) { return verb.count(option) == 0; });
    for (const OptionRow* row : TypedRows(verb)) {
        given.push_back(std::string("--") + row->name);
    }
    for (const std::string& option : given) {
        if (option != "--cell") {
            throw UsageError(option + " shapes what is generated and does not go with a plug-in");
        }
    }
}

// The facts as a list, a line each.
std::string SearchFooter() {
    std::string text = kSearchConditions;
    for (const Report::Fact& fact : Report::Facts()) {
        text += "  " + std::string(fact.name);
        text.append(std::max(kFactColumn, fact.name.size() + 1) - fact.name.size(), ' ');
        text += std::string(fact.help) + '\n';
    }
    return text + '\n' + kSearchExample;
}

void AddGenerate(CLI::App& verb, Request& request) {
    auto& options = request.emplace<GenerateOptions>();
    AddPresets(verb, options.preset, true);
    AddConfig(verb, options.preset.config, options.keepGoing);
    ListUnder(verb, Heading::Plugin);
    AddText(verb, "-o,--out", options.out, "FILE", "The plug-in (default: dungeon.esp)");
    ListUnder(verb, Heading::Repeat);
    AddCount(verb,
             "--count",
             options.count,
             kMostDungeons,
             "Dungeons with further seeds, in numbered files (default: 1)");
    AddRunOptions(verb, options);
    AddMapFiles(verb, options.maps);
    AddReport(verb, options);
}

void AddMap(CLI::App& verb, Request& request) {
    auto& map = request.emplace<MapOptions>();
    GenerateOptions& options = map.generate;
    AddText(verb, "plugin", map.plugin, "PLUGIN", "A plug-in to draw (default: none)");
    AddPresets(verb, options.preset, true);
    AddConfig(verb, options.preset.config, options.keepGoing);
    AddRunOptions(verb, options, kForMaps);
    CLI::Option* const cell = verb.get_option("--cell");
    cell->description("The cell (default: dungeon; of a plug-in, all cells)");
    AddMapFiles(verb, options.maps);
    AddReport(verb, options);
    verb.final_callback([&map, &verb, cell] {
        NoteTyped(verb, map.generate);
        if (map.plugin) {
            CheckPluginOptions(verb);
        }
        if (map.plugin && cell->count() > 0) {
            map.onlyCell = map.generate.cell;
        }
    });
}

void AddSearch(CLI::App& verb, Request& request) {
    auto& options = request.emplace<SearchOptions>();
    verb.footer(SearchFooter());
    ListUnder(verb, Heading::Searching);
    CLI::Option* seeds =
        AddText(verb, "--seeds", options.seeds, "A..B", "The seeds to try, A and B included");
    CLI::Option* sample = AddText(verb,
                                  "--sample",
                                  options.sample,
                                  "N",
                                  "N seeds from all over, or the Ath to the Bth: A..B");
    sample->excludes(seeds);
    verb.add_option("--merge", options.merge, "Tables of --csv to merge, instead of seeds to try")
        ->type_name("FILE...")
        ->excludes(seeds)
        ->excludes(sample);
    AddText(
        verb, "--where", options.where, "CONDITION", "What a dungeon must be like (default: any)");
    AddText(verb, "--sort", options.sort, "KEY,...", "Which are the best (default: by seed)");
    AddCount(verb, "--top", options.top, kMaxWord, "Keeps the best only (default: all)");
    AddText(
        verb, "--csv", options.generate.out, "FILE", "Writes a table of all facts (default: none)");
    AddText(verb,
            "--thumbnails",
            options.thumbnails,
            "FOLDER",
            "Draws each dungeon listed (default: no maps)");
    AddCount(verb,
             "--jobs",
             options.jobs,
             kMostJobs,
             "Dungeons made at once (default: one per processor)");
    ListUnder(verb, Heading::Reports);
    AddSummary(verb, options.generate);
    AddPresets(verb, options.generate.preset, false);
    AddConfig(verb, options.generate.preset.config, options.generate.keepGoing);
    AddRunOptions(verb, options.generate, kForSearch);
}

void AddList(CLI::App& verb, Request& request) {
    auto& options = request.emplace<ListOptions>();
    AddConfig(verb, options.config, options.keepGoing);
    AddPresetFile(verb, options.presets);
    AddText(verb, "--html", options.html, "FILE", "A page with pictures instead (default: none)");
    AddJson(verb, options.json);
}

void AddPrint(CLI::App& verb, Request& request) {
    auto& options = request.emplace<ConfigOptions>();
    std::vector<std::string> names;
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        names.emplace_back(config.name);
    }
    const std::string help = WithWords("Which one (default: default)", names);
    AddText(verb, "name", options.name, "NAME", help.c_str());
}

void AddInspect(CLI::App& verb, Request& request) {
    auto& options = request.emplace<InspectOptions>();
    AddText(verb, "plugin", options.plugin, "PLUGIN", "The plug-in")->required();
    verb.add_flag("--refs", options.refs, "Every reference, rotations in degrees");
    AddJson(verb, options.json, "As JSON, with every reference");
}

void AddPlay(CLI::App& verb, Request& request) {
    auto& options = request.emplace<PlayOptions>();
    AddText(verb, "plugin", options.plugin, "PLUGIN", "The plug-in")->required();
    AddText(verb,
            "--stage",
            options.stage,
            "FOLDER",
            "A stage in place of the game (default: the game in openmw.cfg)");
    AddText(verb,
            "--engine",
            options.engine,
            "FILE",
            "OpenMW itself (default: where the system has it)");
    verb.add_flag("--print", options.print, "The command line, without starting anything");
}

void AddDiff(CLI::App& verb, Request& request) {
    auto& options = request.emplace<DiffOptions>();
    AddText(verb, "a", options.a, "A", "A plug-in")->required();
    AddText(verb, "b", options.b, "B", "The one to compare it with")->required();
    AddJson(verb, options.json);
}

void AddCheck(CLI::App& verb, Request& request) {
    auto& options = request.emplace<CheckOptions>();
    verb.add_option("-c,--config,configs",
                    options.configs,
                    "Files, builtin or builtin:NAME; - is standard input")
        ->type_name("CONFIG...")
        ->required();
    AddJson(verb, options.json);
}

void AddStage(CLI::App& verb, Request& request) {
    auto& options = request.emplace<StageOptions>();
    AddText(verb, "folder", options.folder, "FOLDER", "Where it is to stand")->required();
    verb.add_option("-c,--config",
                    options.configs,
                    "Files, builtin or builtin:NAME (default: all that are built in)")
        ->type_name("CONFIG...");
    AddText(verb,
            "--name",
            options.master,
            "NAME",
            "The file that plug-ins ask for (default: Morrowind.esm)");
}

void AddManual(CLI::App& /*verb*/, Request& request) {
    request.emplace<ManualOptions>();
}

void AddCompletion(CLI::App& verb, Request& request) {
    auto& options = request.emplace<CompletionOptions>();
    AddText(verb, "shell", options.shell, "SHELL", "The shell: bash, zsh, fish, powershell")
        ->required();
}

// clang-format off
constexpr std::array<Verb, 12> kVerbs = {{
    {"generate",   "Generates an interior as a plug-in",            kGenerateExample,   AddGenerate},
    {"map",        "Draws a plug-in, or what would be generated",   kMapExample,        AddMap},
    {"search",     "Finds the best among many seeds",               kSearchExample,     AddSearch},
    {"list",       "Names what a configuration offers",             kListExample,       AddList},
    {"config",     "Prints a built-in configuration",               kConfigExample,     AddPrint},
    {"inspect",    "Tells what a plug-in holds and what is wrong",  kInspectExample,    AddInspect},
    {"play",       "Walks through a plug-in with OpenMW",           kPlayExample,       AddPlay},
    {"diff",       "Tells in words how two plug-ins differ",        kDiffExample,       AddDiff},
    {"check",      "Tells what is wrong with a configuration",      kCheckExample,      AddCheck},
    {"stage",      "Makes a stand-in for the game to walk on",       kStageExample,      AddStage},
    {"manual",     "Prints the manual page",                        kManualExample,     AddManual},
    {"completion", "Prints what a shell completes arguments by",    kCompletionExample, AddCompletion},
}};
// clang-format on

} // namespace

std::span<const Verb> Verbs() {
    return kVerbs;
}

} // namespace Tarnex::Cli
