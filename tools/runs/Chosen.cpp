// SPDX-License-Identifier: MIT
#include "tools/runs/Chosen.h"

#include "tools/text/Words.h"

#include <vaultry/foundation/Text.h>

namespace Tarnex::Report {

namespace {

using Words = std::vector<std::string>;

template <typename T>
void AddName(Words& words, bool byChance, const char* what, const DiPtr<T>& chosen) {
    if (byChance && chosen) {
        words.push_back(what + (" \"" + Shown(chosen->GetName()) + '"'));
    }
}

Words NamesOf(const LevelChoices& level, const RandomGenInfo& asked) {
    Words words;
    AddName(words, asked.randomTileSet, "tile set", level.tileSet);
    AddName(words, asked.randomTheme, "theme", level.theme);
    AddName(words, asked.randomCreatureTheme, "creature theme", level.creatureTheme);
    AddName(words, asked.randomTreasureTheme, "treasure theme", level.treasureTheme);
    return words;
}

std::string SpacingWords(const SpacingRange& spacing) {
    return spacing.AddsNothing() ? "no spacing"
                                 : "spacing " + std::to_string(spacing.lo) + " to " +
                                       std::to_string(spacing.hi) + " cells";
}

Words AllOf(const LevelChoices& level, const RandomGenInfo& asked) {
    Words words = NamesOf(level, asked);
    if (asked.levelSize == RandomGenInfo::Random) {
        words.push_back("size " + std::to_string(level.roomGrid.x) + " x " +
                        std::to_string(level.roomGrid.y) + " rooms");
    }
    if (asked.roomSpacing == RandomGenInfo::RandomSpacing) {
        words.push_back(SpacingWords(level.spacing));
    }
    return words;
}

// Nothing of a fixed interior is left to chance.
Words LinesOf(const GenReport& report,
              const RandomGenInfo& asked,
              Words (*wordsOf)(const LevelChoices&, const RandomGenInfo&)) {
    Words lines;
    for (const LevelChoices& level : report.chosen) {
        const Words words = level.number > 0 ? wordsOf(level, asked) : Words();
        if (!words.empty()) {
            lines.push_back("level " + std::to_string(level.number) +
                            " by chance: " + JoinWords(words));
        }
    }
    return lines;
}

} // namespace

std::vector<std::string> ChosenNames(const GenReport& report, const RandomGenInfo& asked) {
    return LinesOf(report, asked, NamesOf);
}

std::vector<std::string> ChosenLines(const GenReport& report, const RandomGenInfo& asked) {
    return LinesOf(report, asked, AllOf);
}

} // namespace Tarnex::Report
