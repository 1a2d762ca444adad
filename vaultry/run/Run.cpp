// SPDX-License-Identifier: MIT
#include <vaultry/run/Run.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Random.h>
#include <vaultry/foundation/RunState.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/game/GameFault.h>
#include <vaultry/gen/ContainerIds.h>
#include <vaultry/gen/LevelObserver.h>
#include <vaultry/run/ArrivalPlace.h>
#include <vaultry/run/Entrance.h>
#include <vaultry/run/GameIds.h>
#include <vaultry/run/LockMaker.h>
#include <vaultry/run/PathPlan.h>

#include <filesystem>
#include <random>

namespace Tarnex {

namespace {

// As many as a program that reads numbers as floating-point ones keeps apart.
constexpr unsigned kStampBits = 53;

// Puts back, when it goes, what a run sets in its manager and what it leaves there for the next:
// the tile set and the themes that were chosen by chance.
class KeptSettings {
public:
    explicit KeptSettings(GenMgr& kept)
        : manager(kept), tileSet(kept.defTileSet), layout(kept.defTemplate), theme(kept.defTheme),
          creatureTheme(kept.defCreatureTheme), treasureTheme(kept.defTreasureTheme),
          random(kept.randomInfo), platforms(kept.addPlatforms), named(kept.nameSingleLevel),
          wayOut(kept.wayOut), observer(kept.levelObserver) {}

    ~KeptSettings() {
        manager.defTileSet = tileSet;
        manager.defTemplate = layout;
        manager.defTheme = theme;
        manager.defCreatureTheme = creatureTheme;
        manager.defTreasureTheme = treasureTheme;
        manager.randomInfo = random;
        manager.addPlatforms = platforms;
        manager.nameSingleLevel = named;
        manager.wayOut = wayOut;
        manager.levelObserver = observer;
    }

    KeptSettings(const KeptSettings&) = delete;
    KeptSettings& operator=(const KeptSettings&) = delete;

private:
    GenMgr& manager;
    DiPtr<TileSet> tileSet;
    DiPtr<LayoutTemplate> layout;
    DiPtr<Theme> theme;
    DiPtr<Theme> creatureTheme;
    DiPtr<Theme> treasureTheme;
    RandomGenInfo random;
    bool platforms;
    bool named;
    DiPtr<Ref> wayOut;
    LevelObserver* observer;
};

// A state of the run's own, with what listens to whoever calls: the log and the recorder, which
// counts the draws. Listeners of problems do not: they would hear of tries that came to nothing.
class OwnState {
public:
    OwnState() : outer(CurrentRunState()), state(outer.log), use(&state) {
        state.chance = outer.chance;
    }
    ~OwnState() { outer.chance.draws = state.chance.draws; }
    OwnState(const OwnState&) = delete;
    OwnState& operator=(const OwnState&) = delete;

private:
    RunState& outer;
    RunState state;
    UseRunState use;
};

// Notes where one arrives on the levels that it passes on to the caller's observer.
class ArrivalFinder : public LevelObserver {
public:
    explicit ArrivalFinder(LevelObserver* nextObserver) : next(nextObserver) {}

    void StartOver() override {
        levels = 0;
        arrivals.clear();
        if (next != nullptr) {
            next->StartOver();
        }
    }

    void LevelFinished(const FinishedLevel& level) override {
        if (auto arrival = ArrivalOf(level)) {
            arrival->level = levels;
            arrivals.push_back(*std::move(arrival));
        }
        ++levels;
        if (next != nullptr) {
            next->LevelFinished(level);
        }
    }

    std::vector<Arrival> arrivals;

private:
    LevelObserver* next;
    std::size_t levels = 0;
};

// Lays a path grid into the plug-in for each level that it passes on.
class PathGridMaker : public LevelObserver {
public:
    PathGridMaker(Mod& filledMod, LevelObserver* nextObserver)
        : mod(filledMod), next(nextObserver) {}

    void LevelFinished(const FinishedLevel& level) override {
        // Without a name the grid would be one of the world outside.
        if (const std::string& cell = level.cell.GetName(); !cell.empty()) {
            mod.CreatePathGrid(cell.c_str())->points = PathPointsOf(level);
        }
        if (next != nullptr) {
            next->LevelFinished(level);
        }
    }

private:
    Mod& mod;
    LevelObserver* next;
};

// Notes where one arrives who comes in from the world.
class EntranceFinder : public LevelObserver {
public:
    explicit EntranceFinder(LevelObserver* nextObserver) : next(nextObserver) {}

    void LevelFinished(const FinishedLevel& level) override {
        if (auto arrival = ArrivalAtWayOut(level)) {
            inside = std::move(arrival);
        }
        if (next != nullptr) {
            next->LevelFinished(level);
        }
    }

    std::optional<Arrival> inside;

private:
    LevelObserver* next;
};

// The outer door, and both sides of the way as one arrives there.
MadeEntrance
AddOuterDoor(Mod& mod, const EntranceSite& site, const Arrival& inside, const GameIds& ids) {
    const std::string& id = ids.Of(IdRole::OutsideDoor).front();
    mod.CreateWorldCell(site.head)->AddRef(OuterDoor(site, inside, id));
    return {{0, ToUtf8(site.cell), site.before, site.angle, true}, inside};
}

RunEnd EndOf(ModResult result) {
    return result == ModResult::Written    ? RunEnd::Made
           : result == ModResult::Canceled ? RunEnd::Canceled
                                           : RunEnd::Refused;
}

} // namespace

void FixChance(RunOptions& options) {
    std::random_device chance;
    if (!options.seed) {
        options.seed = chance();
    }
    if (!options.stamp) {
        const std::uint64_t number = std::uint64_t{chance()} << 32U | chance();
        options.stamp = static_cast<std::int64_t>(number >> (64U - kStampBits));
    }
}

Run::Run(GenMgr& manager_, const RunOptions& options_) : manager(manager_), options(options_) {
    FixChance(options);
    options.cell = options.cell.value_or(kDefaultCell);
    try {
        ids = options.ids ? LoadIds(options.ids->path) : BuiltinIds();
    } catch (const IdsError& e) {
        idsFault = e.what();
    }
}

// The place that the log named last for want of a door stays for all tries, whose lines stand in
// one log.
RunResult Run::Generate() {
    const OwnState own;
    std::optional<EntranceSite> site;
    if (options.entrance) {
        const ProblemList problems;
        Logger::ResetErrors();
        site = FindSite();
        if (!site) {
            RunResult refused;
            refused.seed = options.seed.value();
            refused.stamp = options.stamp.value();
            refused.problems = problems.Get();
            return refused;
        }
    }
    ArrivalFinder finder(manager.levelObserver);
    bool reached = !options.ensureWalkable || options.fixed;
    for (std::uint32_t tries = 1;; ++tries) {
        RunResult result =
            Try(FurtherSeed(options.seed.value(), tries - 1), site ? &*site : nullptr, &finder);
        result.tries = tries;
        result.arrivals = finder.arrivals;
        const bool walkable =
            !options.ensureWalkable || options.fixed || result.levels.IsWalkable();
        const bool closed = !options.ensureClosed || options.fixed || result.levels.IsClosed();
        if (result.end != RunEnd::Made || (walkable && closed)) {
            return result;
        }
        reached = reached || walkable;
        if (tries == kMaxTries) {
            result.end = reached ? RunEnd::Unclosed : RunEnd::Unwalkable;
            result.seed = *options.seed;
            return result;
        }
        if (manager.jobStatus != nullptr) {
            manager.jobStatus->SetPos(0);
        }
    }
}

RunResult Run::GenerateFrom(std::uint32_t seed) {
    const OwnState own;
    if (!options.entrance) {
        return Try(seed, nullptr, manager.levelObserver);
    }
    // Wherever the door leads, the dungeon behind it is the same.
    const EntranceSite site = WildernessSite(*options.entrance, {});
    return Try(seed, &site, manager.levelObserver);
}

std::optional<EntranceSite> Run::FindSite() const try {
    if (options.cell->empty()) {
        throw GameFault("no door leads to a cell without a name; give it one");
    }
    // The game would take both for one.
    if (options.entranceCell && EqualsNoCase(*options.entranceCell, *options.cell)) {
        throw GameFault("the dungeon has the name of the interior that it is entered from; give it "
                        "another");
    }
    return FindEntranceSite(options);
} catch (const GameFault& e) {
    ReportProblem({ProblemKind::NoEntrance, {FromUtf8(e.what())}});
    return std::nullopt;
} catch (const std::filesystem::filesystem_error& e) {
    ReportProblem({ProblemKind::NoEntrance, {e.what()}});
    return std::nullopt;
}

bool Run::FindNames(RunOptions& wanted) const {
    const std::vector<const OptionRow*> unknown = SpellNames(wanted, manager);
    for (const OptionRow* row : unknown) {
        const std::string name = std::get<std::string>(ValueOf(wanted, *row));
        ReportProblem({ProblemKind::UnknownName, {row->choice->what, FromUtf8(name)}});
    }
    return unknown.empty();
}

void Run::HandOver(const RunOptions& wanted) const {
    for (const OptionRow& row : RunOptionRows()) {
        const OptionValue value = ValueOf(wanted, row);
        if (row.choice != nullptr && std::holds_alternative<std::string>(value)) {
            row.choice->choose(manager, FromUtf8(std::get<std::string>(value)).c_str());
        }
    }
    const std::string master = FromUtf8(wanted.master.value_or(""));
    manager.SetMasterFile(wanted.master ? master.c_str() : nullptr, wanted.masterSize.value_or(0));
    manager.mod.SetDescription(nullptr);
    manager.mod.SetUniqueReferences(wanted.uniqueReferences || wanted.playable);
    manager.SetAddPlatforms(wanted.platforms);
    RandomGenInfo random = wanted;
    random.closeOpenings = random.closeOpenings || wanted.playable;
    manager.SetRandomInfo(random);
    manager.SetNameSingleLevel(true);
}

// Every try starts from the same state, so that its seed makes the same dungeon by itself.
RunResult Run::Try(std::uint32_t seed, const EntranceSite* site, LevelObserver* observer) const {
    const KeptSettings settings(manager);
    EntranceFinder entrance(observer);
    LevelObserver* const watching = site == nullptr ? observer : &entrance;
    LockMaker locks(manager.mod, options, ids, seed, options.stamp.value(), watching);
    LevelObserver* const behindPaths = options.lock > 0 || options.trap > 0 ? &locks : watching;
    PathGridMaker paths(manager.mod, behindPaths);
    manager.levelObserver = options.pathGrid || options.playable ? &paths : behindPaths;
    manager.wayOut = site == nullptr ? nullptr : MakeDi<Ref>(WayOutTo(*site));
    ProblemList problems;
    RunResult result;
    result.seed = seed;
    result.stamp = options.stamp.value();
    Logger::ResetErrors();
    RunOptions wanted = options;
    if (!idsFault.empty()) {
        ReportProblem({ProblemKind::UnusableIds, {FromUtf8(idsFault)}});
    } else if (FindNames(wanted)) {
        if (options.trap > 0 && ids.Of(IdRole::Trap).empty()) {
            Logger::WriteInfo("Run", "No traps:  The ids name no spell for them.");
        }
        HandOver(wanted);
        SeedRandom(seed);
        SetContainerStamp(result.stamp);
        if (observer != nullptr) {
            observer->StartOver();
        }
        result.end = EndOf(manager.Generate(FromUtf8(options.cell.value()).c_str(), options.fixed));
        result.levels = manager.report;
        if (result.end == RunEnd::Made && entrance.inside) {
            result.entrance = AddOuterDoor(manager.mod, *site, *entrance.inside, ids);
        }
    }
    result.problems = problems.Get();
    return result;
}

} // namespace Tarnex
