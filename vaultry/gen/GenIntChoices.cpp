// SPDX-License-Identifier: MIT
// What a random run leaves to chance: tile set and themes.
#include <vaultry/gen/GenIntRandom.h>

#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Random.h>

#include <algorithm>
#include <limits>

namespace Tarnex {

namespace {

// A dungeon mostly goes on as it began: stairs from a mine into a palace would puzzle a player.
constexpr double kKeepsTileSet = 0.7;
constexpr std::uint32_t kAnyLevel = std::numeric_limits<std::uint32_t>::max();

// The first level has nothing to keep and draws nothing for it.
bool KeepsLast(bool first, double share) {
    if (first) {
        return false;
    }
    const double draw = RandomUnit();
    return draw <= share;
}

// The log's numbers have a sign.
std::string LevelText(std::uint32_t level) {
    return std::to_string(static_cast<std::int32_t>(level));
}

} // namespace

// What later levels keep and what is chosen anew.
struct GenIntRandom::ThemeChoice {
    bool wanted;
    double keeps; // draws up to this keep the theme on a later level
    const std::vector<DiPtr<Theme>>& themes;
    std::uint32_t lowest;
    std::uint32_t highest;
    Problem noMatch; // what is reported then
};

void GenIntRandom::InitRandomTileSet(bool first) {
    if (!info.randomInfo.randomTileSet || KeepsLast(first, kKeepsTileSet)) {
        return;
    }
    // Caves first: the place in this list is what the draw picks.
    std::vector<DiPtr<TileSet>> sets = config->caveTileSets;
    sets.insert(sets.end(), config->roomTileSets.begin(), config->roomTileSets.end());
    // Without a set to choose nothing is drawn, and the default stays.
    if (sets.empty()) {
        return;
    }
    tileSet = DrawOne(sets);
    // The run's context learns of it, since halls are built from there.
    info.defTileSet = tileSet;
}

void GenIntRandom::InitRandomThemes(bool first) {
    const RandomGenInfo& wanted = info.randomInfo;
    // Furniture, creatures, treasure: the order of the draws.
    ChooseTheme(info.defTheme,
                {wanted.randomTheme, 0.33, config->themes, 1, kAnyLevel, {ProblemKind::NoTheme}},
                first);
    ChooseTheme(
        info.defCreatureTheme,
        {wanted.randomCreatureTheme,
         0.25,
         config->creatureThemes,
         wanted.minLevel,
         wanted.maxLevel,
         {ProblemKind::NoCreatureTheme, {LevelText(wanted.minLevel), LevelText(wanted.maxLevel)}}},
        first);
    ChooseTheme(info.defTreasureTheme,
                {wanted.randomTreasureTheme,
                 0.25,
                 config->treasureThemes,
                 1,
                 kAnyLevel,
                 {ProblemKind::NoTreasureTheme}},
                first);
}

void GenIntRandom::ChooseTheme(DiPtr<Theme>& theme, const ThemeChoice& choice, bool first) const {
    if (!choice.wanted || KeepsLast(first, choice.keeps)) {
        return;
    }
    std::vector<DiPtr<Theme>> matching = FilterThemes(choice.themes, choice.lowest, choice.highest);
    if (matching.empty()) {
        ReportProblem(choice.noMatch);
        // A dungeon with monsters of the wrong level is better than one without any.
        matching = choice.themes;
    }
    if (!matching.empty()) {
        theme = DrawOne(matching);
    }
}

std::vector<DiPtr<Theme>> GenIntRandom::FilterThemes(const std::vector<DiPtr<Theme>>& list,
                                                     std::uint32_t lo,
                                                     std::uint32_t hi) {
    // Bounds in the wrong order leave the upper one alone.
    std::vector<DiPtr<Theme>> matching;
    for (const DiPtr<Theme>& theme : list) {
        const std::int64_t level = theme->level;
        // A negative level takes a theme out of every choice by chance.
        if (level >= 0 && std::min(lo, hi) <= level && level <= hi) {
            matching.push_back(theme);
        }
    }
    return matching;
}

} // namespace Tarnex
