// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/gen/ContentPlace.h>

#include <algorithm>
#include <limits>

namespace Tarnex::Report {

namespace {

// The containers that some theme places, and the greatest capacity of them.
struct Containers {
    bool placed = false;
    double capacity = 0;
};

Containers PlacedContainers(const ConfigTree& tree) {
    const ChosenContent chosen =
        ChosenIn(tree, ElementClass::Theme, std::numeric_limits<int>::min(), Content_Container);
    Containers containers;
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        if (Is(*content, Content_Container) &&
            chosen.Has(AttributeText(*content, Attrib_UniqueName))) {
            containers.placed = true;
            containers.capacity = std::max(containers.capacity, RealOf(*content, Attrib_Weight));
        }
    }
    return containers;
}

void CheckStack(const ConfigElement& content, Findings& findings) {
    const int max = WholeOf(content, Attrib_Max);
    const int value = WholeOf(content, Attrib_Value);
    if (max >= kLargePile && value > kGreatestWorth / kLargePile) {
        findings.Add(Weight::Note,
                     PlaceOf(content, Attrib_Max),
                     Titled(content, Attrib_UniqueName) + " is too dear for a Max of " +
                         std::to_string(max),
                     "Stacks are limited by their total value; it never lies in stacks of more "
                     "than " +
                         std::to_string(kLargePile - 1) + '.');
    }
}

void CheckCarried(const ConfigElement& content, const Containers& containers, Findings& findings) {
    CheckStack(content, findings);
    if (containers.placed && RealOf(content, Attrib_Weight) > containers.capacity) {
        findings.Add(Weight::Warning,
                     PlaceOf(content, Attrib_Weight),
                     Titled(content, Attrib_UniqueName) +
                         " is heavier than any container can carry",
                     "It is never placed.");
    }
}

void CheckPlaced(const ConfigElement& content, Findings& findings) {
    const ConfigAttribute* max = FindAttribute(content, Attrib_Max);
    if (max != nullptr) {
        findings.Add(Weight::Note,
                     max->place,
                     "Max has no use for " + Titled(content, Attrib_UniqueName),
                     "Only what lies in containers has stacks.");
    }
    if (Is(content, Content_Container) && RealOf(content, Attrib_Weight) <= 0) {
        findings.Add(Weight::Warning,
                     PlaceOf(content, Attrib_Weight),
                     Titled(content, Attrib_UniqueName) + " has no capacity",
                     "It takes only what weighs nothing.");
    }
}

void CheckTreasureType(const ConfigElement& treasure, Findings& findings) {
    const auto types = FindElementFormat(Content_Treasure)->types;
    const std::string type = AttributeText(treasure, Attrib_Type);
    if (!IsAnyOf(type, types)) {
        findings.Add(Weight::Error,
                     PlaceOf(treasure, Attrib_Type),
                     Titled(treasure, Attrib_UniqueName) + " has the unknown type " +
                         InQuotes(type),
                     "It is dropped without a message.",
                     findings.Nearest(type, {types.begin(), types.end()}));
    }
}

void CheckTreasureThemes(const ConfigTree& tree, const Containers& containers, Findings& findings) {
    if (containers.placed) {
        return;
    }
    for (const ConfigElement* theme : tree.OfClass(ElementClass::TreasureTheme)) {
        findings.Add(Weight::Warning,
                     theme->place,
                     "there is no container that a Theme places for " + Titled(*theme, Attrib_Name),
                     "Treasure lies in containers only: none is placed.");
    }
}

} // namespace

bool IsCarried(const ConfigElement& content) {
    return IsAnyOf(content.name,
                   {Content_Armor, Content_Clothing, Content_Treasure, Content_Weapon});
}

void CheckContent(const ConfigTree& tree, Findings& findings) {
    const Containers containers = PlacedContainers(tree);
    CheckTreasureThemes(tree, containers, findings);
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        if (IsCarried(*content)) {
            CheckCarried(*content, containers, findings);
        } else {
            CheckPlaced(*content, findings);
        }
        if (Is(*content, Content_Treasure)) {
            CheckTreasureType(*content, findings);
        }
    }
}

} // namespace Tarnex::Report
