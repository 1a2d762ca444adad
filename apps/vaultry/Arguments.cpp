// SPDX-License-Identifier: MIT
#include "apps/vaultry/Arguments.h"

#include "apps/report/DungeonFacts.h"
#include "apps/report/UsageError.h"
#include "apps/vaultry/CommandHelp.h"

#include <vaultry/foundation/Text.h>
#include <vaultry/gen/Limits.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <type_traits>

namespace Tarnex::Cli {

namespace {

constexpr std::uint64_t kMaxWord = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kMaxStamp = std::numeric_limits<std::int64_t>::max();
constexpr std::uint64_t kMostJobs = 1024;
constexpr std::size_t kHelpColumn = 34;
constexpr std::size_t kFactColumn = 19;

constexpr const char* kOverview =
    "Generates dungeon interiors as plug-ins for the game.\n"
    "\n"
    "Exit status: 0 done, 1 nothing generated or a file not written whole (inspect, diff, check:\n"
    "something found; search: a seed could not be judged), 2 wrong arguments, 130 cancelled.";
constexpr const char* kOverviewExample =
    "Example:\n"
    "  vaultry generate --levels 3 --creature-theme Undead -o crypt.esp\n"
    "\n"
    "\"vaultry VERB --help\" describes a verb.";
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

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

template <typename Word>
Word ParseWord(const char* option, const std::string& text, const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (EqualsNoCase(text, words[i])) {
            return static_cast<Word>(i);
        }
    }
    throw UsageError(std::string(option) + ": \"" + text + "\" is none of " + Joined(words));
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

// A field may be a number or an optional one.
template <typename Field>
std::function<void(std::uint64_t)> Into(Field& field) {
    return [&field](std::uint64_t number) {
        if constexpr (std::is_integral_v<Field>) {
            field = static_cast<Field>(number);
        } else {
            field = static_cast<typename Field::value_type>(number);
        }
    };
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
            std::string(help) + ": " + Joined(words))
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

void AddConfig(CLI::App& verb, std::string& config) {
    AddText(verb,
            "-c,--config",
            config,
            "FILE",
            "The configuration: a file, builtin or builtin:NAME (default: builtin)");
}

void AddNames(CLI::App& verb, GenerateOptions& options) {
    constexpr const char* kName = "NAME";
    CLI::Option* rooms =
        AddText(verb, "--tileset", options.tileSet, kName, "The room tile set (default: first)");
    CLI::Option* caves =
        AddText(verb, "--cave-tileset", options.caveTileSet, kName, "A cave tile set instead");
    rooms->excludes(caves);
    CLI::Option* roomLayout = AddText(
        verb, "--template", options.layout, kName, "The layout of --fixed (default: first)");
    CLI::Option* caveLayout =
        AddText(verb, "--cave-template", options.caveLayout, kName, "A cave layout instead");
    roomLayout->excludes(caveLayout);
    AddText(verb, "--theme", options.theme, kName, "The furniture (default: first)");
    AddText(
        verb, "--creature-theme", options.creatureTheme, kName, "The creatures (default: none)");
    AddText(
        verb, "--treasure-theme", options.treasureTheme, kName, "The treasure (default: first)");
}

void AddRandom(CLI::App& verb, GenerateOptions& options) {
    RandomGenInfo& random = options.random;
    AddNumber(verb,
              "--levels",
              "Levels, each a cell (default: 1)",
              1,
              kMaxLevels,
              Into(random.numLevels));
    AddNumber(verb,
              "--min-level",
              "Lowest level of a random creature theme (default: 1)",
              0,
              kMaxWord,
              Into(random.minLevel));
    AddNumber(verb,
              "--max-level",
              "Highest level of a random creature theme (default: 5)",
              0,
              kMaxWord,
              Into(random.maxLevel));
    AddWord(verb, "--size", random.levelSize, RandomGenInfo::GetLevelSizeStrings(), "Level size");
    AddWord(verb,
            "--spacing",
            random.roomSpacing,
            RandomGenInfo::GetRoomSpacingStrings(),
            "Room spacing");
    verb.add_flag("--random-tileset", random.randomTileSet, "Choose the tile set by chance");
    verb.add_flag("--random-theme", random.randomTheme, "Choose the furniture by chance");
    verb.add_flag(
        "--random-creature-theme", random.randomCreatureTheme, "Choose the creatures by chance");
    verb.add_flag(
        "--random-treasure-theme", random.randomTreasureTheme, "Choose the treasure by chance");
}

void AddPlatforms(CLI::App& verb, GenerateOptions& options) {
    verb.add_flag("--platforms", options.platforms, "Raise platforms in fixed cave interiors");
}

void AddRepeat(CLI::App& verb, GenerateOptions& options) {
    verb.add_flag("--ensure-walkable",
                  options.ensureWalkable,
                  "Try further seeds until every room can be reached");
    AddPlatforms(verb, options);
    AddNumber(
        verb, "--seed", "Repeats a run (default: by chance)", 0, kMaxWord, Into(options.seed));
}

void AddHeader(CLI::App& verb, GenerateOptions& options) {
    AddText(verb, "--master", options.master, "NAME", "The master file (default: the game's)");
    AddNumber(verb,
              "--master-size",
              "The master file's size in bytes",
              0,
              kMaxWord,
              Into(options.masterSize));
    AddNumber(verb,
              "--stamp",
              "The number in container identifiers (default: by chance)",
              0,
              kMaxStamp,
              Into(options.stamp));
}

void AddRun(CLI::App& verb, GenerateOptions& options) {
    AddRepeat(verb, options);
    AddHeader(verb, options);
    verb.add_flag("--strict", options.strict, "Write nothing if there was an error");
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

void AddReport(CLI::App& verb, GenerateOptions& options) {
    AddText(verb, "--log", options.log, "FILE", "Writes the generator's log (default: none)");
    verb.add_flag("--quiet", options.quiet, "No progress and no summary");
    verb.add_flag("--json", options.json, "A report on standard output");
}

// A plug-in is drawn as it is: what shapes levels does not go with it.
void CheckPluginOptions(const CLI::App& verb) {
    static const std::vector<std::string> kAllowed = {
        "plugin", "help", "config", "cell", "map", "html", "look", "scale", "log", "quiet", "json"};
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

void AddSearch(CLI::App& verb, SearchOptions& options) {
    CLI::Option* seeds =
        AddText(verb, "--seeds", options.seeds, "A..B", "The seeds to try, A and B included");
    verb.add_option("--merge", options.merge, "Tables of --csv to merge, instead of seeds to try")
        ->type_name("FILE...")
        ->excludes(seeds);
    AddText(
        verb, "--where", options.where, "CONDITION", "What a dungeon must be like (default: any)");
    AddText(verb, "--sort", options.sort, "KEY,...", "Which are the best (default: by seed)");
    AddNumber(verb, "--top", "Keeps the best only (default: all)", 1, kMaxWord, Into(options.top));
    AddText(verb, "--csv", options.csv, "FILE", "Writes a table of all facts (default: none)");
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
    verb.add_flag("--quiet", options.quiet, "No progress and no summary");
    verb.add_flag("--json", options.json, "A report on standard output");
    AddConfig(verb, options.generate.config);
    AddText(
        verb, "-n,--cell", options.generate.cell, "NAME", "The cell (default: Vaultry Dungeon)");
    verb.add_flag(
        "--fixed", options.generate.fixed, "One cell from a layout instead of random levels");
    AddNames(verb, options.generate);
    AddRandom(verb, options.generate);
    AddPlatforms(verb, options.generate);
    AddHeader(verb, options.generate);
}

CLI::App& AddVerb(CLI::App& app, const char* name, const char* help, const std::string& example) {
    CLI::App& verb = *app.add_subcommand(name, help);
    verb.footer(example);
    verb.allow_windows_style_options(false);
    return verb;
}

// Every option writes into the field it is declared with.
struct Verbs {
    GenerateOptions generate;
    MapOptions map;
    SearchOptions search;
    ListOptions list;
    ConfigOptions config;
    InspectOptions inspect;
    DiffOptions diff;
    CheckOptions check;
    std::string shell;

    void Declare(CLI::App& app) {
        CLI::App& make =
            AddVerb(app, "generate", "Generates an interior as a plug-in", kGenerateExample);
        AddConfig(make, generate.config);
        AddText(make, "-o,--out", generate.out, "FILE", "The plug-in (default: dungeon.esp)");
        AddText(make, "-n,--cell", generate.cell, "NAME", "The cell (default: Vaultry Dungeon)");
        make.add_flag("--fixed", generate.fixed, "One cell from a layout instead of random levels");
        AddNames(make, generate);
        AddRandom(make, generate);
        AddRun(make, generate);
        AddMapFiles(make, generate.maps);
        AddReport(make, generate);

        DeclareMap(app);
        AddSearch(AddVerb(app, "search", "Finds the best among many seeds", SearchFooter()),
                  search);

        CLI::App& show = AddVerb(app, "list", "Names what a configuration offers", kListExample);
        AddConfig(show, list.config);
        show.add_flag("--json", list.json, "As JSON");

        CLI::App& print = AddVerb(app, "config", "Prints a built-in configuration", kConfigExample);
        AddText(print, "name", config.name, "NAME", "Which one (default: default)");

        CLI::App& look = AddVerb(
            app, "inspect", "Tells what a plug-in holds and what is wrong", kInspectExample);
        AddText(look, "plugin", inspect.plugin, "PLUGIN", "The plug-in")->required();
        look.add_flag("--refs", inspect.refs, "Every reference, rotations in degrees");
        look.add_flag("--json", inspect.json, "As JSON, with every reference");

        CLI::App& compare =
            AddVerb(app, "diff", "Tells in words how two plug-ins differ", kDiffExample);
        AddText(compare, "a", diff.a, "A", "A plug-in")->required();
        AddText(compare, "b", diff.b, "B", "The one to compare it with")->required();
        compare.add_flag("--json", diff.json, "As JSON");

        CLI::App& judge =
            AddVerb(app, "check", "Tells what is wrong with a configuration", kCheckExample);
        AddText(judge, "config", check.config, "CONFIG", "A file, builtin or builtin:NAME")
            ->required();
        judge.add_flag("--json", check.json, "As JSON");

        AddVerb(app, "manual", "Prints the manual page", kManualExample);
        CLI::App& complete = AddVerb(
            app, "completion", "Prints what a shell completes arguments by", kCompletionExample);
        AddText(complete, "shell", shell, "SHELL", "bash or zsh")->required();
    }

    void DeclareMap(CLI::App& app) {
        CLI::App& verb =
            AddVerb(app, "map", "Draws a plug-in, or what would be generated", kMapExample);
        GenerateOptions& options = map.generate;
        AddText(verb, "plugin", map.plugin, "PLUGIN", "A plug-in to draw (default: none)");
        AddConfig(verb, options.config);
        AddText(verb,
                "-n,--cell",
                map.onlyCell,
                "NAME",
                "The cell (default: Vaultry Dungeon; of a plug-in, all cells)");
        verb.add_flag("--fixed", options.fixed, "One cell from a layout instead of random levels");
        AddNames(verb, options);
        AddRandom(verb, options);
        AddRepeat(verb, options);
        AddMapFiles(verb, options.maps);
        AddReport(verb, options);
        verb.final_callback([this, &verb] {
            if (map.plugin) {
                CheckPluginOptions(verb);
            } else {
                map.generate.cell = map.onlyCell.value_or(map.generate.cell);
            }
        });
    }
};

// The parser's own words for these two speak of counts.
std::string WrongCount(const CLI::ArgumentMismatch& e) {
    const std::string text = e.what();
    const bool missing = text.find("missing") != std::string::npos;
    return text.substr(0, text.find(':')) + (missing ? ": a value is missing" : ": given twice");
}

// The words that an option offers stand behind the colon of its help.
std::vector<std::string> WordsOf(const OptionHelp& option) {
    std::vector<std::string> words;
    if (option.value != "WORD") {
        return words;
    }
    std::size_t begin = option.text.find(": ");
    while (begin != std::string::npos) {
        begin += 2;
        const std::size_t end = option.text.find(", ", begin);
        words.push_back(option.text.substr(begin, end - begin));
        begin = end;
    }
    return words;
}

OptionHelp Describe(const CLI::Option& option) {
    OptionHelp help;
    for (const std::string& name : option.get_snames()) {
        help.names.push_back("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        help.names.push_back("--" + name);
    }
    help.value = option.get_items_expected_max() > 0 ? option.get_type_name() : "";
    help.text = option.get_description();
    help.words = WordsOf(help);
    return help;
}

CommandHelp Describe(const CLI::App& app) {
    CommandHelp help{app.get_description() + "\n\n" + app.get_footer(), {}};
    for (const CLI::App* verb : app.get_subcommands({})) {
        VerbHelp& entry = help.verbs.emplace_back();
        entry = {verb->get_name(), verb->get_description(), verb->get_footer(), {}};
        for (const CLI::Option* option : verb->get_options()) {
            entry.options.push_back(Describe(*option));
        }
    }
    return help;
}

PrintText CompletionFor(const std::string& shell, const CLI::App& app) {
    for (const Shell& known : kShells) {
        if (known.name == shell) {
            return {known.completion(Describe(app))};
        }
    }
    throw UsageError("completion: \"" + shell + "\" is none of bash, zsh");
}

Request Parse(CLI::App& app, const std::vector<std::string>& arguments) {
    Verbs verbs;
    verbs.Declare(app);
    // The parser takes the words from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    if (app.got_subcommand("generate")) {
        return std::move(verbs.generate);
    }
    if (app.got_subcommand("map")) {
        return std::move(verbs.map);
    }
    if (app.got_subcommand("search")) {
        return std::move(verbs.search);
    }
    if (app.got_subcommand("list")) {
        return std::move(verbs.list);
    }
    if (app.got_subcommand("config")) {
        return std::move(verbs.config);
    }
    if (app.got_subcommand("inspect")) {
        return std::move(verbs.inspect);
    }
    if (app.got_subcommand("diff")) {
        return std::move(verbs.diff);
    }
    if (app.got_subcommand("check")) {
        return std::move(verbs.check);
    }
    if (app.got_subcommand("manual")) {
        return PrintText{ManualPage(Describe(app))};
    }
    if (app.got_subcommand("completion")) {
        return CompletionFor(verbs.shell, app);
    }
    return NoVerb{app.help()};
}

} // namespace

std::uint64_t ParseWhole(const std::string& option,
                         const std::string& text,
                         std::uint64_t lowest,
                         std::uint64_t highest) {
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    if (fault != std::errc() || stop != end || number < lowest || number > highest) {
        throw UsageError(option + ": \"" + text + "\" is not a whole number from " +
                         std::to_string(lowest) + " to " + std::to_string(highest));
    }
    return number;
}

Request ParseArguments(const std::vector<std::string>& arguments) {
    CLI::App app(kOverview, "vaultry");
    app.footer(kOverviewExample);
    app.set_version_flag("--version", "vaultry " VAULTRY_VERSION, "Print the version and exit");
    app.require_subcommand(0, 1);
    app.allow_windows_style_options(false);
    app.get_formatter()->column_width(kHelpColumn);
    try {
        return Parse(app, arguments);
    } catch (const CLI::CallForHelp&) {
        return PrintText{app.help()};
    } catch (const CLI::CallForVersion& version) {
        return PrintText{std::string(version.what()) + '\n'};
    } catch (const CLI::ArgumentMismatch& e) {
        throw UsageError(WrongCount(e));
    } catch (const CLI::ParseError& e) {
        throw UsageError(std::string(e.what()) + "; see \"vaultry --help\"");
    }
}

} // namespace Tarnex::Cli
