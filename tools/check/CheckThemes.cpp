// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"
#include "tools/text/NearNames.h"
#include "tools/text/Words.h"

#include <vaultry/catalogue/ThemeItem.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/Limits.h>

#include <algorithm>
#include <array>
#include <limits>

namespace Tarnex::Report {

namespace {

// The content of one kind.
struct Choice {
    std::vector<std::string> placed;  // unique names
    std::vector<std::string> unnamed; // those of them that no theme item names
    NameSet known;                    // likewise
    NameSet neverPlaced;              // birds and fish
};

using Choices = std::map<std::string, Choice, LessNoCase>;

// Each kind and name that a theme item names.
NameSet NamedByThemes(const ConfigTree& tree) {
    NameSet named;
    for (const ConfigElement* item : tree.OfClass(ElementClass::ThemeItem)) {
        for (const std::string& name : ListedNames(AttributeText(*item, Attrib_UniqueName))) {
            named.insert(AttributeText(*item, Attrib_Type) + '\n' + name);
        }
    }
    return named;
}

Choices ChoicesOf(const ConfigTree& tree) {
    const NameSet named = NamedByThemes(tree);
    Choices choices;
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        Choice& choice = choices[ContentKind(*content)];
        const std::string name = AttributeText(*content, Attrib_UniqueName);
        const bool never =
            Is(*content, Content_Creature) &&
            IsAnyOf(AttributeText(*content, Attrib_Type), {Creature_Bird, Creature_Fish});
        if (never) {
            choice.neverPlaced.insert(name);
        } else {
            choice.placed.push_back(name);
            if (!named.contains(ContentKind(*content) + '\n' + name)) {
                choice.unnamed.push_back(name);
            }
            choice.known.insert(name);
        }
    }
    return choices;
}

void CheckAnyContent(const ConfigElement& item, const Choice& choice, Findings& findings) {
    if (!choice.placed.empty()) {
        return;
    }
    const std::string type = AttributeText(item, Attrib_Type);
    findings.Add(Weight::Error,
                 PlaceOf(item, Attrib_Type),
                 choice.neverPlaced.empty()
                     ? "there is no content of the type " + InQuotes(type)
                     : "all creatures are birds and fish, which are never placed",
                 "The item places nothing.");
}

// What is named in the list already is not meant again. Of two that are as near, the one that
// nothing names is probably the one that lost its name.
std::string NearestOf(const ConfigElement& item,
                      const std::string& name,
                      const Choice& choice,
                      Findings& findings) {
    const auto listed = ListedNames(AttributeText(item, Attrib_UniqueName));
    const NameSet named(listed.begin(), listed.end());
    std::vector<std::string> others = choice.placed;
    std::erase_if(others, [&named](const std::string& other) { return named.contains(other); });
    const std::string nearest = findings.Nearest(name, others);
    const std::string unnamed = findings.Nearest(name, choice.unnamed);
    const bool lost = !unnamed.empty() &&
                      EditDistance(name, unnamed) <= EditDistance(name, nearest) &&
                      !name.starts_with(' ');
    return lost ? unnamed : nearest;
}

void CheckName(const ConfigElement& item,
               const std::string& name,
               const Choice& choice,
               Findings& findings) {
    if (choice.known.contains(name)) {
        return;
    }
    const std::string type = AttributeText(item, Attrib_Type);
    const bool never = choice.neverPlaced.contains(name);
    findings.Add(Weight::Error,
                 PlaceOf(item, Attrib_UniqueName),
                 never ? "the " + type + ' ' + InQuotes(name) + " is a bird or fish"
                       : "no " + type + " has the unique name " + InQuotes(name),
                 never ? "Birds and fish are never placed; the item places nothing more when this "
                         "name is drawn."
                       : "The item places nothing more when this name is drawn.",
                 never ? "" : NearestOf(item, name, choice, findings));
}

constexpr std::array kThemes = {
    ElementClass::Theme, ElementClass::CreatureTheme, ElementClass::TreasureTheme};

bool IsTheme(const ConfigElement& element) {
    return std::ranges::find(kThemes, element.element) != kThemes.end();
}

void CheckTheme(const ConfigTree& tree, const ConfigElement& theme, Findings& findings) {
    const Elements& inside = tree.Inside(theme);
    if (std::ranges::none_of(inside, [](const ConfigElement* item) {
            return item->element == ElementClass::ThemeItem;
        })) {
        findings.Add(Weight::Warning,
                     theme.place,
                     Titled(theme, Attrib_Name) + " has no items",
                     "Levels with it stay empty. Give it a ThemeItem for each kind of thing.");
    }
    if (WholeOf(theme, Attrib_Level) == 0) {
        findings.Add(Weight::Note,
                     PlaceOf(theme, Attrib_Level),
                     Titled(theme, Attrib_Name) + " has no Level",
                     "It can be chosen by name, but not by chance, which asks for a Level of 1 or "
                     "more.",
                     "Level=\"1\"");
    }
}

// Places to fill are counted in cells, but for treasure in containers, which take many.
void CheckRatio(const ConfigElement& item, const ConfigElement& theme, Findings& findings) {
    constexpr double kMostTreasure = 20;
    constexpr double kHundred = 100;
    const ConfigAttribute* const ratio = FindAttribute(item, Attrib_Ratio);
    if (ratio == nullptr) {
        return;
    }
    const double value = ParseReal(ratio->value);
    const bool treasure = theme.element == ElementClass::TreasureTheme;
    if (value > (treasure ? kMostTreasure : 1)) {
        findings.Add(Weight::Warning,
                     ratio->place,
                     "Ratio " + InQuotes(ratio->value) + " asks for more than " +
                         (treasure ? "20 stacks in each container" : "one in each cell"),
                     "It fills every one, and the items behind it find no room. It is no "
                     "percentage: 1 stands for all.",
                     value > kHundred ? "" : ExactNumber(static_cast<float>(value / kHundred)));
    }
    if (value == 0 && WholeOf(item, Attrib_Max) == ThemeItem::kNotGiven) {
        findings.Add(Weight::Warning,
                     ratio->place,
                     "Ratio is 0",
                     "One is placed all the same, with its Chance. Max=\"0\" stands for none.",
                     "Max=\"0\"");
    }
}

// A treasure theme finds what it names in any list.
const char* MeaningOfOtherType(const ConfigElement& theme) {
    return theme.element == ElementClass::TreasureTheme
               ? "Containers get objects that are no treasure."
               : "The item is skipped.";
}

void CheckItem(const ConfigElement& item,
               const ConfigElement& theme,
               const Choices& choices,
               Findings& findings) {
    const std::string type = AttributeText(item, Attrib_Type);
    const ElementFormat& format = *FindElementFormat(theme.name);
    if (!IsAnyOf(type, format.types)) {
        findings.Add(Weight::Error,
                     PlaceOf(item, Attrib_Type),
                     "a " + std::string(format.name) + " has no items of the type " +
                         InQuotes(type),
                     MeaningOfOtherType(theme),
                     findings.Nearest(type, {format.types.begin(), format.types.end()}));
        return;
    }
    static const Choice kNone;
    const auto found = choices.find(type);
    const Choice& choice = found == choices.end() ? kNone : found->second;
    const std::vector<std::string> names = ListedNames(AttributeText(item, Attrib_UniqueName));
    if (names.empty()) {
        CheckAnyContent(item, choice, findings);
    }
    for (const std::string& name : names) {
        CheckName(item, name, choice, findings);
    }
}

void CheckMinAndMax(const ConfigElement& item, Findings& findings) {
    const int min = WholeOf(item, Attrib_Min);
    const int max = WholeOf(item, Attrib_Max);
    if (max != ThemeItem::kNotGiven && max < 1) {
        findings.Add(Weight::Warning,
                     PlaceOf(item, Attrib_Max),
                     "Max is " + std::to_string(max),
                     "The item places nothing.");
    } else if (max != ThemeItem::kNotGiven && min > max) {
        findings.Add(Weight::Warning,
                     PlaceOf(item, Attrib_Min),
                     "Min " + std::to_string(min) + " is greater than Max " + std::to_string(max),
                     "No more than Max are placed.");
    }
    for (const std::string_view name : {Attrib_Min, Attrib_Max}) {
        if (WholeOf(item, name) > kMaxTurns) {
            findings.Add(Weight::Warning,
                         PlaceOf(item, name),
                         std::string(name) + " is greater than " + std::to_string(kMaxTurns),
                         "The item gets no more turns than these in a cell.");
        }
    }
}

void CheckChance(const ConfigElement& item, Findings& findings) {
    if (RealOf(item, Attrib_Chance) <= 0 && WholeOf(item, Attrib_Min) < 1) {
        findings.Add(Weight::Warning,
                     PlaceOf(item, Attrib_Chance),
                     "the item has no Chance and no Min",
                     "It places nothing.");
    }
}

// Of a theme without a Level, the theme is told.
void CheckCreatures(const ConfigTree& tree, Findings& findings) {
    const ChosenContent chosen = ChosenIn(
        tree, ElementClass::CreatureTheme, std::numeric_limits<int>::min(), Content_Creature);
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        const std::string name = AttributeText(*content, Attrib_UniqueName);
        if (Is(*content, Content_Creature) && !chosen.Has(name)) {
            findings.Add(Weight::Note,
                         content->place,
                         "no CreatureTheme chooses Creature " + InQuotes(name),
                         "It is never placed. Name it in a ThemeItem.");
        }
    }
}

} // namespace

void CheckThemes(const ConfigTree& tree, Findings& findings) {
    CheckCreatures(tree, findings);
    for (const ElementClass kind : kThemes) {
        for (const ConfigElement* theme : tree.OfClass(kind)) {
            CheckTheme(tree, *theme, findings);
        }
    }
    const Choices choices = ChoicesOf(tree);
    for (const ConfigElement* item : tree.OfClass(ElementClass::ThemeItem)) {
        const ConfigElement* theme = tree.Around(*item);
        if (theme != nullptr && IsTheme(*theme)) {
            CheckItem(*item, *theme, choices, findings);
            CheckMinAndMax(*item, findings);
            CheckChance(*item, findings);
            CheckRatio(*item, *theme, findings);
        }
    }
}

} // namespace Tarnex::Report
