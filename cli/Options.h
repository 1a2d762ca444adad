// SPDX-License-Identifier: MIT
// What each verb was asked for. All text is UTF-8.
#pragma once

#include "tools/maps/MapFile.h"
#include "tools/runs/Presets.h"
#include "tools/runs/RunLine.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Tarnex::Cli {

using Report::kBuiltin;

/// The maps of generate and map, besides that on the terminal.
struct MapFileOptions {
    std::optional<std::string> map;  ///< a path that ends in .svg or .png
    std::optional<std::string> html; ///< a path
    Report::MapLook look = Report::MapLook::Auto;
    double scale = Report::MapSettings().scale; ///< see Report::MapSettings

    bool AreWanted() const { return map || html; }
};

/// A file that a run left behind.
struct WrittenFile {
    std::string path;
    std::uint64_t bytes = 0;
};

/// The kind of dungeon that was asked for.
struct PresetOptions {
    std::optional<std::string> config; ///< given in place of that of the preset
    std::optional<std::string> name;
    bool random = false;                  ///< by the seed
    std::optional<std::string> file;      ///< a path, of presets in place of the built-in ones
    std::optional<Report::Preset> chosen; ///< see WithPreset
};

/// vaultry generate: a run, where it begins and where it ends
struct GenerateOptions : Report::RunRequest {
    std::optional<std::string> out = "dungeon.esp"; ///< a path, of search that of its table
    std::optional<std::string> log;                 ///< a path
    std::vector<const OptionRow*> typed;            ///< the options of the run that were given
    std::uint32_t count = 1;                        ///< dungeons, each with files of its own
    std::uint32_t number = 1;                       ///< of them, from 1: which this is
    PresetOptions preset;
    MapFileOptions maps;
    bool quiet = false;
    bool json = false;
};

/// The same where no file is written unless it is asked for.
struct TrialOptions : GenerateOptions {
    TrialOptions() { out.reset(); }
};

/// vaultry map: generates without writing a plug-in, or draws one
struct MapOptions {
    TrialOptions generate;
    std::optional<std::string> plugin;   ///< a path; only config, maps, log, quiet, json go with it
    std::optional<std::string> onlyCell; ///< the cell, or the dungeon, that is drawn of it
};

/// vaultry search
struct SearchOptions {
    TrialOptions generate;                 ///< what is generated from each seed
    std::optional<std::string> seeds;      ///< "A..B"
    std::optional<std::string> sample;     ///< instead: "N" or "A..B", numbers of scattered seeds
    std::vector<std::string> merge;        ///< paths of tables to merge instead
    std::string where;                     ///< a condition; empty: none
    std::string sort;                      ///< keys; empty: by seed
    std::uint64_t top = 0;                 ///< the most hits that are kept; 0: all
    std::optional<std::string> thumbnails; ///< a folder
    std::uint32_t jobs = 0;                ///< threads; 0: one per processor
};

/// vaultry list
struct ListOptions {
    std::string config = kBuiltin;
    bool keepGoing = false;             ///< use what was read of a broken one
    std::optional<std::string> presets; ///< a path, of presets in place of the built-in ones
    std::optional<std::string> html;    ///< a path
    bool json = false;
};

/// vaultry config
struct ConfigOptions {
    std::string name = "default";
};

/// vaultry inspect
struct InspectOptions {
    std::string plugin; ///< a path
    bool refs = false;  ///< show every reference
    bool json = false;
};

/// vaultry play
struct PlayOptions {
    std::string plugin;                ///< a path
    std::optional<std::string> stage;  ///< a folder with a master in place of the game
    std::optional<std::string> engine; ///< the path of OpenMW, if not where it usually is
    bool print = false;                ///< show the command line instead
};

/// vaultry diff
struct DiffOptions {
    std::string a; ///< a path
    std::string b; ///< a path
    bool json = false;
};

/// vaultry check
struct CheckOptions {
    std::vector<std::string> configs; ///< paths, "builtin", "builtin:NAME", "-": standard input
    bool json = false;
};

/// vaultry stage
struct StageOptions {
    std::string folder;                   ///< a path
    std::vector<std::string> configs;     ///< paths, "builtin", "builtin:NAME"; empty: all built-in
    std::string master = "Morrowind.esm"; ///< the name that plug-ins ask for
};

/// vaultry manual
struct ManualOptions {};

/// vaultry completion
struct CompletionOptions {
    std::string shell; ///< its name
};

/// A shell asks what may stand for a word.
struct CompleteOptions {
    std::vector<std::string> before; ///< the arguments before it
    std::string typed;
};

/// A text asked for, such as the help.
struct PrintText {
    std::string text;
};

/// A call without a verb: the help is shown, and it is a mistake.
struct NoVerb {
    std::string help;
};

using Request = std::variant<GenerateOptions,
                             MapOptions,
                             SearchOptions,
                             ListOptions,
                             ConfigOptions,
                             InspectOptions,
                             PlayOptions,
                             DiffOptions,
                             CheckOptions,
                             StageOptions,
                             ManualOptions,
                             CompletionOptions,
                             CompleteOptions,
                             PrintText,
                             NoVerb>;

} // namespace Tarnex::Cli
