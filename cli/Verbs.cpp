// SPDX-License-Identifier: MIT
#include "cli/Verbs.h"

#include "cli/Arguments.h"
#include "cli/CommandHelp.h"
#include "tools/facts/DungeonFacts.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/Text.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace Tarnex::Cli {

namespace {

constexpr std::uint64_t kMaxWord = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kMostJobs = 1024;
constexpr std::size_t kFactColumn = 19;

constexpr const char* kGenerateExample =
    "Examples:\n"
    "  vaultry generate -o keep.esp -n \"The Old Keep\" --levels 3 --size medium --seed 7\n"
    "  vaultry generate --fixed -c my.xml --cave-tileset Cavern --cave-template Den --platforms\n"
    "  vaultry generate --seed 7 --levels 2 --map keep.png --html keep.html";
constexpr const char* kMapExample =
    "Draws on the terminal unless --map, --html or --json is given. Of a plug-in, the "
    "configuration\n"
    "tells which pieces are floors, walls and doors; by default the built-in one that fits best.\n"
    "\n"
    "Examples:\n"
    "  vaultry map --seed 7 --levels 2 --size medium\n"
    "  vaultry map --fixed --template \"Sunken Shrine\" --map shrine.png --scale 2 --look dark\n"
    "  vaultry map crypt.esp --html crypt.html\n"
    "  vaultry map Morrowind.esm --cell \"Addamasartus\" --map cave.svg";
constexpr const char* kSearchConditions =
    "A condition compares facts and whole numbers by < <= > >= = != and joins comparisons by and,\n"
    "or, not and parentheses; a fact by itself holds when it is not 0. A key is a fact: the "
    "greatest\n"
    "comes first, or with :asc the least. The facts:\n";
constexpr const char* kSearchExample =
    "Exit status: 0 done, 1 a seed could not be judged or a file not be written, 2 wrong "
    "arguments,\n"
    "130 cancelled; what was found until then is listed and written.\n"
    "\n"
    "Examples:\n"
    "  vaultry search --seeds 1..10000 --levels 2 --size large \\\n"
    "      --where 'rooms>=12 and walkable and loops>=2' --sort loops,treasure --top 10\n"
    "  vaultry search --seeds 1..500 --creature-theme Undead --where 'creatures-from-15 > 3' \\\n"
    "      --csv found.csv --thumbnails maps\n"
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
    "  vaultry check builtin:caves";

constexpr const char* kManualExample = "Example:\n"
                                       "  vaultry manual | man -l -";
constexpr const char* kCompletionExample =
    "Example:\n"
    "  vaultry completion bash > ~/.local/share/bash-completion/completions/vaultry";

struct Shell {
    const char* name;
    std::string (*completion)(const CommandHelp& help);
};

constexpr std::array<Shell, 2> kShells = {{{"bash", BashCompletion}, {"zsh", ZshCompletion}}};

// In the order of Report::MapLook.
const std::vector<std::string> kLooks = {"Auto", "Light", "Dark"};

template <typename Word>
Word ParseWord(const char* option, const std::string& text, const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (EqualsNoCase(text, words[i])) {
            return static_cast<Word>(i);
        }
    }
    throw UsageError(std::string(option) + ": \"" + text + "\" is none of " + JoinWords(words));
}

// Holds the long name of an option apart from its declaration "-c,--config".
std::string LongName(const std::string& declaration) {
    return declaration.substr(declaration.find("--"));
}

void AddNumber(CLI::App& verb,
               const std::string& declaration,
               const char* help,
               std::uint64_t lowest,
               std::uint64_t highest,
               std::function<void(std::uint64_t)> store) {
    const std::string option = LongName(declaration);
    verb.add_option_function<std::string>(
            declaration,
            [=, store = std::move(store)](const std::string& text) {
                store(ParseWhole(option, text, lowest, highest));
            },
            help)
        ->type_name("N");
}

template <typename Number>
std::function<void(std::uint64_t)> Into(Number& field) {
    return [&field](std::uint64_t number) { field = static_cast<Number>(number); };
}

template <typename Field>
CLI::Option*
AddText(CLI::App& verb, const char* declaration, Field& field, const char* type, const char* help) {
    return verb
        .add_option_function<std::string>(
            declaration, [&field](const std::string& text) { field = text; }, help)
        ->type_name(type);
}

template <typename Word>
void AddWord(CLI::App& verb,
             const char* option,
             Word& field,
             const std::vector<std::string>& words,
             const char* help) {
    verb.add_option_function<std::string>(
            option,
            [=, &field, &words](const std::string& text) {
                field = ParseWord<Word>(option, text, words);
            },
            std::string(help) + ": " + JoinWords(words))
        ->type_name("WORD");
}

double ParseScale(const std::string& text) {
    double scale = 0.0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, scale);
    if (fault != std::errc() || stop != end ||
        !(scale >= Report::kSmallestScale && scale <= Report::kLargestScale)) {
        throw UsageError("--scale: \"" + text + "\" is not a number from 0.1 to 10");
    }
    return scale;
}

void AddConfig(CLI::App& verb, std::string& config, bool& keepGoing) {
    AddText(verb,
            "-c,--config",
            config,
            "FILE",
            "The configuration: a file, builtin or builtin:NAME (default: builtin)");
    verb.add_flag("--keep-going", keepGoing, "Use what can be read of a broken configuration");
}

// What help calls the value of an option, in the order of OptionKind.
constexpr std::array<const char*, 4> kValueWords = {"", "NAME", "N", "WORD"};

CLI::Option* AddRunOption(CLI::App& verb, const OptionRow& row, RunOptions& options) {
    const std::string option = std::string("--") + row.name;
    const std::string names =
        row.letter == nullptr ? option : '-' + std::string(row.letter) + ',' + option;
    if (const auto* const flag = std::get_if<bool RunOptions::*>(&row.field)) {
        return verb.add_flag(names, options.**flag, row.help);
    }
    const std::vector<std::string> words = WordsOf(row);
    const std::string help = words.empty() ? row.help : row.help + (": " + JoinWords(words));
    return verb
        .add_option_function<std::string>(
            names,
            [&options, &row, option](const std::string& text) {
                const std::string fault = SetOption(options, row, text);
                if (!fault.empty()) {
                    throw UsageError(option + ": \"" + text + "\" " + fault);
                }
            },
            help)
        ->type_name(kValueWords.at(static_cast<std::size_t>(KindOf(row))));
}

// What a run is asked for, as far as the verb takes it: 0 stands for all of it.
void AddRunOptions(CLI::App& verb, RunOptions& options, unsigned use = 0) {
    for (const OptionRow& row : RunOptionRows()) {
        if ((row.uses & use) != use) {
            continue;
        }
        CLI::Option* const option = AddRunOption(verb, row, options);
        CLI::Option* const rival = row.rival == nullptr
                                       ? nullptr
                                       : verb.get_option_no_throw(std::string("--") + row.rival);
        if (rival != nullptr) {
            rival->excludes(option);
        }
    }
}

void AddMapFiles(CLI::App& verb, MapFileOptions& options) {
    AddText(
        verb, "--map", options.map, "FILE", "Draws every level, as .svg or .png (default: none)");
    AddText(verb, "--html", options.html, "FILE", "Writes a page with maps and tables");
    AddWord(verb, "--look", options.look, kLooks, "Colours of maps and pages");
    verb.add_option_function<std::string>(
            "--scale",
            [&options](const std::string& text) { options.scale = ParseScale(text); },
            "Pixels of a PNG per unit, 24 units to a cell (default: 1.5)")
        ->type_name("N");
}

void AddSummary(CLI::App& verb, GenerateOptions& options) {
    verb.add_flag("--quiet", options.quiet, "No progress and no summary");
    verb.add_flag("--json", options.json, "A report on standard output");
}

void AddReport(CLI::App& verb, GenerateOptions& options) {
    AddText(verb, "--log", options.log, "FILE", "Writes the generator's log (default: none)");
    AddSummary(verb, options);
}

void AddJson(CLI::App& verb, bool& json, const char* help = "As JSON") {
    verb.add_flag("--json", json, help);
}

// A plug-in is drawn as it is: what shapes levels does not go with it.
void CheckPluginOptions(const CLI::App& verb) {
    static const std::vector<std::string> kAllowed = {"plugin",
                                                      "help",
                                                      "config",
                                                      "keep-going",
                                                      "cell",
                                                      "map",
                                                      "html",
                                                      "look",
                                                      "scale",
                                                      "log",
                                                      "quiet",
                                                      "json"};
    for (const CLI::Option* option : verb.get_options()) {
        const std::string name =
            option->get_lnames().empty() ? option->get_name() : option->get_lnames().front();
        const bool allowed = std::ranges::find(kAllowed, name) != kAllowed.end();
        if (option->count() > 0 && !allowed) {
            throw UsageError("--" + name +
                             " shapes what is generated and does not go with a "
                             "plug-in");
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

void AddGenerate(CLI::App& verb, Asked& asked) {
    GenerateOptions& options = asked.generate;
    AddConfig(verb, options.config, options.keepGoing);
    AddText(verb, "-o,--out", options.out, "FILE", "The plug-in (default: dungeon.esp)");
    AddRunOptions(verb, options);
    AddMapFiles(verb, options.maps);
    AddReport(verb, options);
}

void AddMap(CLI::App& verb, Asked& asked) {
    MapOptions& map = asked.map;
    GenerateOptions& options = map.generate;
    AddText(verb, "plugin", map.plugin, "PLUGIN", "A plug-in to draw (default: none)");
    AddConfig(verb, options.config, options.keepGoing);
    AddRunOptions(verb, options, kForMaps);
    CLI::Option* const cell = verb.get_option("--cell");
    cell->description("The cell (default: Vaultry Dungeon; of a plug-in, all cells)");
    AddMapFiles(verb, options.maps);
    AddReport(verb, options);
    verb.final_callback([&map, &verb, cell] {
        if (map.plugin) {
            CheckPluginOptions(verb);
        }
        if (map.plugin && cell->count() > 0) {
            map.onlyCell = map.generate.cell;
        }
    });
}

void AddSearch(CLI::App& verb, Asked& asked) {
    SearchOptions& options = asked.search;
    verb.footer(SearchFooter());
    CLI::Option* seeds =
        AddText(verb, "--seeds", options.seeds, "A..B", "The seeds to try, A and B included");
    verb.add_option("--merge", options.merge, "Tables of --csv to merge, instead of seeds to try")
        ->type_name("FILE...")
        ->excludes(seeds);
    AddText(
        verb, "--where", options.where, "CONDITION", "What a dungeon must be like (default: any)");
    AddText(verb, "--sort", options.sort, "KEY,...", "Which are the best (default: by seed)");
    AddNumber(verb, "--top", "Keeps the best only (default: all)", 1, kMaxWord, Into(options.top));
    AddText(
        verb, "--csv", options.generate.out, "FILE", "Writes a table of all facts (default: none)");
    AddText(verb,
            "--thumbnails",
            options.thumbnails,
            "FOLDER",
            "Draws each dungeon listed (default: no maps)");
    AddNumber(verb,
              "--jobs",
              "Dungeons made at once (default: one per processor)",
              1,
              kMostJobs,
              Into(options.jobs));
    AddSummary(verb, options.generate);
    AddConfig(verb, options.generate.config, options.generate.keepGoing);
    AddRunOptions(verb, options.generate, kForSearch);
}

void AddList(CLI::App& verb, Asked& asked) {
    AddConfig(verb, asked.list.config, asked.list.keepGoing);
    AddJson(verb, asked.list.json);
}

void AddPrint(CLI::App& verb, Asked& asked) {
    AddText(verb, "name", asked.config.name, "NAME", "Which one (default: default)");
}

void AddInspect(CLI::App& verb, Asked& asked) {
    AddText(verb, "plugin", asked.inspect.plugin, "PLUGIN", "The plug-in")->required();
    verb.add_flag("--refs", asked.inspect.refs, "Every reference, rotations in degrees");
    AddJson(verb, asked.inspect.json, "As JSON, with every reference");
}

void AddDiff(CLI::App& verb, Asked& asked) {
    AddText(verb, "a", asked.diff.a, "A", "A plug-in")->required();
    AddText(verb, "b", asked.diff.b, "B", "The one to compare it with")->required();
    AddJson(verb, asked.diff.json);
}

void AddCheck(CLI::App& verb, Asked& asked) {
    AddText(verb, "config", asked.check.config, "CONFIG", "A file, builtin or builtin:NAME")
        ->required();
    AddJson(verb, asked.check.json);
}

void AddNothing(CLI::App& /*verb*/, Asked& /*asked*/) {}

void AddShell(CLI::App& verb, Asked& asked) {
    AddText(verb, "shell", asked.shell, "SHELL", "bash or zsh")->required();
}

template <auto Member>
Request Take(Asked& asked) {
    return std::move(asked.*Member);
}

Request Manual(Asked& /*asked*/) {
    return PrintText{ManualPage(DescribeCommandLine())};
}

Request Completion(Asked& asked) {
    for (const Shell& known : kShells) {
        if (known.name == asked.shell) {
            return PrintText{known.completion(DescribeCommandLine())};
        }
    }
    throw UsageError("completion: \"" + asked.shell + "\" is none of bash, zsh");
}

// clang-format off
constexpr std::array<Verb, 10> kVerbs = {{
    {"generate",   "Generates an interior as a plug-in",            kGenerateExample,   AddGenerate, Take<&Asked::generate>},
    {"map",        "Draws a plug-in, or what would be generated",   kMapExample,        AddMap,      Take<&Asked::map>},
    {"search",     "Finds the best among many seeds",               kSearchExample,     AddSearch,   Take<&Asked::search>},
    {"list",       "Names what a configuration offers",             kListExample,       AddList,     Take<&Asked::list>},
    {"config",     "Prints a built-in configuration",               kConfigExample,     AddPrint,    Take<&Asked::config>},
    {"inspect",    "Tells what a plug-in holds and what is wrong",  kInspectExample,    AddInspect,  Take<&Asked::inspect>},
    {"diff",       "Tells in words how two plug-ins differ",        kDiffExample,       AddDiff,     Take<&Asked::diff>},
    {"check",      "Tells what is wrong with a configuration",      kCheckExample,      AddCheck,    Take<&Asked::check>},
    {"manual",     "Prints the manual page",                        kManualExample,     AddNothing,  Manual},
    {"completion", "Prints what a shell completes arguments by",    kCompletionExample, AddShell,    Completion},
}};
// clang-format on

} // namespace

std::span<const Verb> Verbs() {
    return kVerbs;
}

} // namespace Tarnex::Cli
