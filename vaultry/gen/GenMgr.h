// SPDX-License-Identifier: MIT
// The library's entry.
#pragma once

#include <vaultry/foundation/Problem.h>
#include <vaultry/gen/GenInfo.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The whole library, but for the types that begin with Di and stand outside. GenMgr is where to
/// begin.
namespace Tarnex {

/// How a CreateMod ended.
enum class ModResult {
    Written,  ///< the plug-in stands at its path, complete
    Refused,  ///< no default tile set or template, no memory, a limit passed, a fault inside or in
              ///< what the caller handed over; nothing was written
    Canceled, ///< the job status asked to stop; nothing was written
    NotWritten, ///< generated, but the file could not be opened or written whole
};

/// Reads a configuration and generates plug-ins from it.
///
/// Expected order: construct, Init, any setters, CreateMod as often as wanted. A GenMgr and all
/// that it hands out are used from one thread at a time. Unless a thread uses a state of its own
/// (UseRunState), all of them share one random generator and one log, and none may work while
/// another does; with one for each thread they do not disturb each other. Names, cell names and log
/// lines are Windows-1252; file paths are UTF-8. Problems are logged (see Logger), mostly under
/// "GenMgr", "Generator" and "XML Parser". A null text counts as an empty one. Nothing throws, but
/// std::bad_alloc when memory does not even suffice for the line that tells of its lack. What a job
/// status or an observer of the caller's throws, whatever it is, ends the run, which is refused
/// then.
///
/// The usual way is a Run, which takes all that it is asked for as RunOptions; the setters and
/// CreateMod are what it is made of, for front ends that keep the settings in the manager:
///
/// @code
/// const Tarnex::ProblemList problems; // hears what is wrong from here on
/// Tarnex::GenMgr manager;
/// manager.Init("vaultry.xml");
/// manager.SetDefaultTileSet("Crypt", false); // a room tile set of the configuration
/// manager.SetDefaultCreatureTheme("Undead");
/// if (manager.CreateMod("dungeon.esp", "Old Crypt", false) != Tarnex::ModResult::Written) {
///     for (const std::string& line : Tarnex::ErrorLines(problems.Get())) {
///         std::cerr << line << '\n';
///     }
/// }
/// @endcode
class VAULTRY_API GenMgr : public GenInfo {
public:
    /// Seeds the random generator with the current time; see SeedRandom for a seed of one's own.
    GenMgr();
    ~GenMgr();

    /// Drops any earlier configuration, reads the file at `configPath` and takes the first room
    /// layout, theme, room tile set and treasure theme as defaults, null where there is none. The
    /// default creature theme stays as it was: null until it is set. When memory runs out the
    /// configuration is empty.
    void Init(const char* configPath);

    /// Likewise, asking all the while whether that was cancelled. When it was, or when `status`
    /// threw, the configuration is empty. Waits for a pipe are ended too. What is read is appended
    /// to `copy`, so that further managers can have the same; null copies nothing.
    void Init(const char* configPath, const JobStatus& status, std::string* copy = nullptr);

    /// Like Init, but from a document held in memory, which is needed during the call only. `name`
    /// (UTF-8) stands for the file.
    void InitFromMemory(std::string_view text, const char* name);

    /// Likewise, asking all the while whether that was cancelled, as Init does.
    void InitFromMemory(std::string_view text, const char* name, const JobStatus& status);

    /// Why the configuration was not read to its end; nothing when it was, or when that was
    /// cancelled. What stood before is there all the same: whether to use it is for the front end
    /// to say.
    const std::optional<Problem>& GetConfigFault() const { return configFault; }

    /// Generates a plug-in with cells named after `cellName` and writes it to `outPath`, truncating
    /// a file that is there. `fixedLayout`: one cell from the default template; otherwise random
    /// levels. A cancelled run leaves the file as it is. A dungeon is written even if the log has
    /// errors. To keep an earlier file until the new one is whole, generate first and write into a
    /// file beside it.
    ModResult CreateMod(const char* outPath, const char* cellName, bool fixedLayout);

    /// The first half of CreateMod: fills `mod` and writes nothing. Written means ready here. After
    /// a cancelled run `mod` holds what was made until then; without a default tile set or template
    /// it stays as it was.
    ModResult Generate(const char* cellName, bool fixedLayout);

    /// The second half of CreateMod: writes `mod` as it stands. Refused, and nothing is opened,
    /// unless the last Generate answered Written.
    ModResult WriteMod(const char* outPath);

    /// The first cave (`cave`) or room tile set of exactly that name becomes the default; without
    /// one the default stays.
    void SetDefaultTileSet(const char* name, bool cave);
    /// The first cave or room layout of exactly that name becomes the default; without one the
    /// default stays.
    void SetDefaultTemplate(const char* name, bool cave);
    /// The first theme of exactly that name becomes the default; without one there is no default.
    void SetDefaultTheme(const char* name);
    /// Likewise among the creature themes; without one, levels have no creatures.
    void SetDefaultCreatureTheme(const char* name);
    /// Likewise among the treasure themes; without one, containers stay empty.
    void SetDefaultTreasureTheme(const char* name);

    /// The default in use, null for none. A random run leaves here what it chose last.
    /// @{

    DiPtr<TileSet> GetDefaultTileSet() const { return defTileSet; }
    DiPtr<LayoutTemplate> GetDefaultTemplate() const { return defTemplate; }
    DiPtr<Theme> GetDefaultTheme() const { return defTheme; }
    DiPtr<Theme> GetDefaultCreatureTheme() const { return defCreatureTheme; }
    DiPtr<Theme> GetDefaultTreasureTheme() const { return defTreasureTheme; }

    /// @}

    /// One of the configuration's own lists, in document order, for front ends to enumerate. What
    /// is in it lasts until the next configuration is read.
    /// @{

    std::vector<DiPtr<TileSet>>& GetCaveTileSets() { return config.caveTileSets; }
    std::vector<DiPtr<TileSet>>& GetRoomTileSets() { return config.roomTileSets; }
    std::vector<DiPtr<LayoutTemplate>>& GetCaveLayouts() { return config.caveLayouts; }
    std::vector<DiPtr<LayoutTemplate>>& GetRoomLayouts() { return config.roomLayouts; }
    std::vector<DiPtr<Theme>>& GetThemes() { return config.themes; }
    std::vector<DiPtr<Theme>>& GetCreatureThemes() { return config.creatureThemes; }
    std::vector<DiPtr<Theme>>& GetTreasureThemes() { return config.treasureThemes; }

    /// @}

    /// Replaces what is asked of random levels.
    void SetRandomInfo(const RandomGenInfo& parameters) { randomInfo = parameters; }
    /// Told of the progress of runs and asked whether to stop them; the pointer is kept, not owned;
    /// null is allowed.
    void SetJobStatus(JobStatus* status) { jobStatus = status; }
    /// Shown every finished level; the pointer is kept, not owned; null is allowed.
    void SetLevelObserver(LevelObserver* observer) { levelObserver = observer; }
    /// The master file that the plug-in names; see FileHeader::SetMasterFile.
    void SetMasterFile(const char* name, std::uint32_t size) { mod.SetMasterFile(name, size); }
    /// Whether fixed interiors of cave tile sets get platforms; off at first.
    void SetAddPlatforms(bool add) { addPlatforms = add; }
    /// Whether the cell of a single random level carries the name asked for; off at first.
    void SetNameSingleLevel(bool named) { nameSingleLevel = named; }

private:
    template <typename ReadConfig>
    void Read(ReadConfig readConfig);
    bool StartReading();
    void ChooseDefaults();
    bool CheckDefaults() const;
    bool RunGenerator(const char* name, bool fixedLayout);

    bool generated = false; // mod is whole
    std::optional<Problem> configFault;
};

} // namespace Tarnex
