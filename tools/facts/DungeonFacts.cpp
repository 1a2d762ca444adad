// SPDX-License-Identifier: MIT
#include "tools/facts/DungeonFacts.h"

#include "tools/text/NearNames.h"
#include "tools/text/Quote.h"

#include <vaultry/foundation/Text.h>
#include <vaultry/gen/Limits.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <numeric>
#include <ostream>
#include <streambuf>

namespace Tarnex::Report {

namespace {

// Counts what is written to it: a search asks it of every dungeon, and keeping the bytes would cost
// one instruction in thirty.
class ByteCounter : public std::streambuf {
public:
    std::uint64_t Count() const { return count; }

protected:
    int_type overflow(int_type letter) override {
        ++count;
        return traits_type::not_eof(letter);
    }
    std::streamsize xsputn(const char* /*bytes*/, std::streamsize size) override {
        count += static_cast<std::uint64_t>(size);
        return size;
    }

private:
    std::uint64_t count = 0;
};

std::uint64_t SizeOf(Mod& mod) {
    ByteCounter counter;
    std::ostream stream(&counter);
    mod.Write(stream);
    return counter.Count();
}

std::int64_t Worth(const Container& container, const ContentWorth& worth) {
    std::int64_t sum = 0;
    for (const auto& [id, count] : container.GetInventory()) {
        sum = AddUpTo(sum, worth.StackValue(id, static_cast<std::int32_t>(count)));
    }
    return sum;
}

std::int32_t
Find(const std::unordered_map<std::string, std::int32_t>& map, const std::string& id, int other) {
    const auto found = map.find(ToUpper(id));
    return found == map.end() ? other : found->second;
}

template <std::uint32_t LevelShape::*Field>
std::int64_t Sum(const DungeonTally& tally) {
    std::int64_t sum = 0;
    for (const LevelShape& level : tally.levels) {
        sum += level.*Field;
    }
    return sum;
}

std::int64_t LongestWay(const DungeonTally& tally) {
    std::int64_t longest = 0;
    for (const LevelShape& level : tally.levels) {
        longest = std::max<std::int64_t>(longest, level.longestWay);
    }
    return longest;
}

std::int64_t Doors(const DungeonTally& tally) {
    return static_cast<std::int64_t>(tally.references[static_cast<std::size_t>(RefSort::Door)]);
}

std::int64_t References(const DungeonTally& tally) {
    return static_cast<std::int64_t>(
        std::accumulate(tally.references.begin(), tally.references.end(), std::uint64_t{0}));
}

template <std::int32_t Lowest, std::int32_t Highest>
std::int64_t Creatures(const DungeonTally& tally) {
    return std::ranges::count_if(tally.creatureLevels, [](std::int32_t level) {
        return level >= Lowest && level <= Highest;
    });
}

std::int64_t CreatureLevels(const DungeonTally& tally) {
    return std::accumulate(
        tally.creatureLevels.begin(), tally.creatureLevels.end(), std::int64_t{0});
}

template <auto Field>
std::int64_t Number(const DungeonTally& tally) {
    return static_cast<std::int64_t>(tally.*Field);
}

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

// clang-format off
constexpr auto kFacts = std::to_array<Fact>({
    // name               help                                                    value
    {"seed",              "the seed that makes the dungeon",                      Number<&DungeonTally::seed>, 0, UINT32_MAX},
    {"levels",            "levels that were made",                                [](const DungeonTally& tally) { return static_cast<std::int64_t>(tally.levels.size()); }, 0, kMaxLevels},
    {"rooms",             "rooms",                                                Sum<&LevelShape::rooms>},
    {"halls",             "stretches of hall between rooms, junctions and ends",  Sum<&LevelShape::halls>},
    {"junctions",         "pieces of hall that lead on to three sides or four",   Sum<&LevelShape::junctions>},
    {"doors",             "doors, those between levels included",                 Doors},
    {"loops",             "ways round, independent of each other",                Sum<&LevelShape::loops>},
    {"dead-ends",         "pieces of hall that lead on to one side or none",      Sum<&LevelShape::deadEnds>},
    {"openings",          "openings of halls and doorways onto nothing",          Sum<&LevelShape::openings>},
    {"walkable",          "1 when every room can be reached, otherwise 0",        Number<&DungeonTally::walkable>, 0, 1},
    {"longest-way",       "steps between the two rooms farthest from each other", LongestWay},
    {"area",              "cells with a floor",                                   Sum<&LevelShape::area>},
    {"creatures",         "creatures",                                            Creatures<kLeast, kMost>},
    {"creatures-to-4",    "creatures of level 4 or lower",                        Creatures<kLeast, 4>},
    {"creatures-5-9",     "creatures of levels 5 to 9",                           Creatures<5, 9>},
    {"creatures-10-14",   "creatures of levels 10 to 14",                         Creatures<10, 14>},
    {"creatures-from-15", "creatures of level 15 or higher",                      Creatures<15, kMost>},
    {"creature-levels",   "the levels of all creatures added up",                 CreatureLevels, kNoLeast},
    {"containers",        "containers",                                           Number<&DungeonTally::containers>},
    {"treasure",          "gold value of everything in containers",               Number<&DungeonTally::treasure>, kNoLeast},
    {"references",        "objects placed, the marker of each cell included",     References},
    {"bytes",             "size of the plug-in",                                  Number<&DungeonTally::bytes>},
    {"errors",            "error lines logged for the dungeon",                   Number<&DungeonTally::errors>},
});
// clang-format on

} // namespace

std::int64_t AddUpTo(std::int64_t sum, std::int64_t more) {
    if (more > 0) {
        return sum > kNoMost - more ? kNoMost : sum + more;
    }
    return sum < kNoLeast - more ? kNoLeast : sum + more;
}

ContentWorth::ContentWorth(const ContentMgr& content) {
    for (const DiPtr<ContentTemplate>& creature : content.GetCreatures()) {
        levels.try_emplace(ToUpper(creature->uniqueName), creature->level);
    }
    for (const ContentList* list : {&content.GetArmor(),
                                    &content.GetBooks(),
                                    &content.GetClothes(),
                                    &content.GetGems(),
                                    &content.GetGold(),
                                    &content.GetIngredients(),
                                    &content.GetMisc(),
                                    &content.GetTools(),
                                    &content.GetWeapons()}) {
        for (const DiPtr<ContentTemplate>& item : *list) {
            values.try_emplace(ToUpper(item->uniqueName), item->value);
        }
    }
}

std::int32_t ContentWorth::CreatureLevel(const std::string& id) const {
    return Find(levels, id, 1);
}

std::int32_t ContentWorth::ItemValue(const std::string& id) const {
    return Find(values, id, 0);
}

std::int64_t ContentWorth::StackValue(const std::string& id, std::int32_t count) const {
    return std::abs(std::int64_t{count}) * ItemValue(id);
}

DungeonTally Tally(Mod& mod,
                   const GenReport& report,
                   std::vector<LevelShape> levels,
                   const ContentWorth& worth) {
    DungeonTally tally;
    tally.levels = std::move(levels);
    tally.walkable = report.levels.empty()
                         ? std::ranges::all_of(tally.levels, &LevelShape::connected)
                         : report.IsWalkable();
    for (const DiPtr<Cell>& cell : mod.GetCells()) {
        for (const Ref& ref : cell->GetRefs()) {
            ++tally.references.at(static_cast<std::size_t>(ref.sort));
            if (ref.sort == RefSort::Creature) {
                tally.creatureLevels.push_back(worth.CreatureLevel(ref.GetName()));
            }
        }
    }
    tally.containers = mod.GetContainers().size();
    for (const DiPtr<Container>& container : mod.GetContainers()) {
        tally.treasure = AddUpTo(tally.treasure, Worth(*container, worth));
    }
    tally.bytes = SizeOf(mod);
    return tally;
}

std::span<const Fact> Facts() {
    return kFacts;
}

std::optional<std::size_t> FindFact(std::string_view name) {
    std::string wanted(name);
    std::ranges::replace(wanted, '_', '-');
    const auto found = std::ranges::find_if(
        kFacts, [&wanted](const Fact& fact) { return EqualsNoCase(fact.name, wanted); });
    if (found == kFacts.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - kFacts.begin());
}

std::string NoFact(std::string_view name) {
    const bool isLong = name.size() > kLongestQuote;
    std::string text = Quote(name) + " is no fact";
    // The effort of comparing grows with the length, and no fact is that long.
    const std::vector<std::string> nearest =
        isLong ? std::vector<std::string>() : NearestNames(name, FactNames());
    if (nearest.empty()) {
        return text + "; \"vaultry search --help\" lists them";
    }
    for (const std::string& fact : nearest) {
        text += (&fact == &nearest.front() ? "; did you mean \"" : " or \"") + fact + '"';
    }
    return text + '?';
}

std::vector<std::string> FactNames() {
    std::vector<std::string> names;
    names.reserve(kFacts.size());
    for (const Fact& fact : kFacts) {
        names.emplace_back(fact.name);
    }
    return names;
}

FactValues ValuesOf(const DungeonTally& tally) {
    FactValues values;
    values.reserve(kFacts.size());
    for (const Fact& fact : kFacts) {
        values.push_back(fact.value(tally));
    }
    return values;
}

} // namespace Tarnex::Report
