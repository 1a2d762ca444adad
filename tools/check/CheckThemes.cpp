// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/ThemeItem.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/gen/Limits.h>

namespace Tarnex::Report {

namespace {

// The content of one kind.
struct Choice {
    std::vector<std::string> placed; // unique names
    NameSet known;                   // likewise
    NameSet neverPlaced;             // birds and fish
};

using Choices = std::map<std::string, Choice, LessNoCase>;

Choices ChoicesOf(const ConfigTree& tree) {
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
                 never ? "" : findings.Nearest(name, choice.placed));
}

bool IsTheme(const ConfigElement& element) {
    return element.element == ElementClass::Theme ||
           element.element == ElementClass::CreatureTheme ||
           element.element == ElementClass::TreasureTheme;
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

void CheckCreatures(const ConfigTree& tree, Findings& findings) {
    const ChosenContent chosen = ChosenIn(tree, ElementClass::CreatureTheme, 1, Content_Creature);
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        const std::string name = AttributeText(*content, Attrib_UniqueName);
        if (Is(*content, Content_Creature) && !chosen.Has(name)) {
            findings.Add(Weight::Note,
                         content->place,
                         "no CreatureTheme with a Level of 1 or more chooses Creature " +
                             InQuotes(name),
                         "Random creature themes never place it.");
        }
    }
}

} // namespace

void CheckThemes(const ConfigTree& tree, Findings& findings) {
    CheckCreatures(tree, findings);
    const Choices choices = ChoicesOf(tree);
    for (const ConfigElement* item : tree.OfClass(ElementClass::ThemeItem)) {
        const ConfigElement* theme = tree.Around(*item);
        if (theme != nullptr && IsTheme(*theme)) {
            CheckItem(*item, *theme, choices, findings);
            CheckMinAndMax(*item, findings);
            CheckChance(*item, findings);
        }
    }
}

} // namespace Tarnex::Report
