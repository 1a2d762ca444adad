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
                     "It takes only what weighs nothing. Give its capacity as Weight.");
    }
}

// The largest cell; 0 without any tile set.
int LargestCell(const ConfigTree& tree) {
    int largest = 0;
    for (const ConfigElement* tileSet : tree.OfClass(ElementClass::TileSet)) {
        largest = std::max(largest, WholeOf(*tileSet, Tile_TsSize));
    }
    return largest;
}

// What stands at a wall is pushed against it by its depth.
void CheckStanding(const ConfigElement& content, int cell, Findings& findings) {
    const auto given = [&content](std::string_view name) { return RealOf(content, name) != 0; };
    if (!given(Attrib_SizeX) && !given(Attrib_SizeY) && !given(Attrib_OffsetY)) {
        findings.Add(Weight::Warning,
                     content.place,
                     Titled(content, Attrib_UniqueName) + " has no SizeX and no SizeY",
                     "It stands half in the wall. Give its width and depth in units.",
                     "SizeX");
    }
    for (const std::string_view name : {Attrib_SizeX, Attrib_SizeY, Attrib_SizeZ}) {
        if (cell > 0 && RealOf(content, name) > cell) {
            findings.Add(
                Weight::Warning,
                PlaceOf(content, name),
                Titled(content, Attrib_UniqueName) + " has a " + std::string(name) +
                    " greater than a cell of " + std::to_string(cell),
                "It stands in walls and in what is beside it. Sizes are counted in units.");
        }
    }
}

void CheckModel(const ConfigElement& container, Findings& findings) {
    std::string path = AttributeText(container, Attrib_ModelFile);
    if (path.find('/') != std::string::npos) {
        std::ranges::replace(path, '/', '\\');
        findings.Add(Weight::Note,
                     PlaceOf(container, Attrib_ModelFile),
                     "ModelFile has the sign /",
                     "The folders of the game's models are parted by \\; tools for plug-ins may "
                     "not find it.",
                     path);
    }
}

void CheckWorth(const ConfigElement& content, Findings& findings) {
    if (FindAttribute(content, Attrib_Value) == nullptr) {
        findings.Add(
            Weight::Note,
            content.place,
            Titled(content, Attrib_UniqueName) + " has no Value",
            "It counts as worthless: it is found as often as what is cheap. Give its Value.",
            "Value");
    }
}

// Treasure is there for themes to come; what stands in rooms is written for one.
void CheckUse(const ConfigTree& tree, Findings& findings) {
    for (const std::string_view kind :
         {Content_Container, Content_Furniture, Content_Rug, Content_Tapestry}) {
        const ChosenContent chosen =
            ChosenIn(tree, ElementClass::Theme, std::numeric_limits<int>::min(), kind);
        for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
            if (Is(*content, kind) && !chosen.Has(AttributeText(*content, Attrib_UniqueName))) {
                findings.Add(Weight::Note,
                             content->place,
                             "no Theme chooses " + Titled(*content, Attrib_UniqueName),
                             "It is never placed. Name it in a ThemeItem.");
            }
        }
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
                     "It is dropped without a message. Write one of the types of treasure.",
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
    const int cell = LargestCell(tree);
    CheckTreasureThemes(tree, containers, findings);
    CheckUse(tree, findings);
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        if (IsCarried(*content)) {
            CheckCarried(*content, containers, findings);
            CheckWorth(*content, findings);
        } else {
            CheckPlaced(*content, findings);
        }
        if (IsAnyOf(content->name, {Content_Container, Content_Furniture})) {
            CheckStanding(*content, cell, findings);
            CheckModel(*content, findings);
        }
        if (Is(*content, Content_Treasure)) {
            CheckTreasureType(*content, findings);
        }
    }
}

} // namespace Tarnex::Report
