// SPDX-License-Identifier: MIT
#include "apps/report/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <array>

namespace Tarnex::Report {

namespace {

struct ThemeRow {
    std::string_view theme;
    std::vector<std::string_view> types;
    const char* otherwise;
};

const std::array<ThemeRow, 3>& ThemeRows() {
    static const std::array<ThemeRow, 3> kRows = {{
        {Theme_Theme,
         {Content_Container, Content_Furniture, Content_Rug, Content_Tapestry},
         "The item is skipped."},
        {Theme_CreatureTheme, {Content_Creature}, "The item is skipped."},
        {Theme_TreasureTheme,
         {Treasure_Armor,
          Treasure_Book,
          Treasure_Clothing,
          Treasure_Gem,
          Treasure_Gold,
          Treasure_Ingredient,
          Treasure_Misc,
          Treasure_Tool,
          Treasure_Weapon},
         "Containers get objects that are no treasure."},
    }};
    return kRows;
}

// The content that a theme item of that type can choose from.
std::vector<std::string> ContentOf(const ConfigRecord& record, std::string_view type) {
    std::vector<std::string> names;
    for (const ConfigElement& element : record.elements) {
        const bool treasure = Is(element, Content_Treasure);
        const std::string kind = treasure ? AttributeText(element, Attrib_Type) : element.name;
        if (EqualsNoCase(kind, type)) {
            names.push_back(AttributeText(element, Attrib_UniqueName));
        }
    }
    return names;
}

void CheckNames(const ConfigRecord& record,
                const ConfigElement& item,
                const std::string& type,
                Findings& findings) {
    const std::vector<std::string> content = ContentOf(record, type);
    const NameSet known(content.begin(), content.end());
    const std::vector<std::string> wanted = ListedNames(AttributeText(item, Attrib_UniqueName));
    if (wanted.empty() && content.empty()) {
        findings.Add(Weight::Error,
                     item,
                     "there is no content of the type \"" + type + '"',
                     "The item places nothing.");
    }
    const std::string complaint = "no " + type + " has the unique name ";
    for (const std::string& name : wanted) {
        if (!known.contains(name)) {
            std::string message = complaint;
            message.append("\"").append(name).append("\"");
            findings.Add(Weight::Error,
                         item,
                         message,
                         "The item places nothing more when this name is drawn.",
                         Nearest(name, content));
        }
    }
}

void CheckItem(const ConfigRecord& record,
               const ConfigElement& item,
               const ThemeRow& row,
               Findings& findings) {
    const std::string type = AttributeText(item, Attrib_Type);
    if (IsAnyOf(type, row.types)) {
        CheckNames(record, item, type, findings);
        return;
    }
    findings.Add(Weight::Error,
                 item,
                 "a " + std::string(row.theme) + " has no items of the type \"" + type + '"',
                 row.otherwise,
                 Nearest(type, {row.types.begin(), row.types.end()}));
}

// What random creature themes choose from: any creature, or those that are named.
bool IsChosen(const ConfigRecord& record, const std::string& creature) {
    for (const ConfigElement& theme : record.elements) {
        if (!Is(theme, Theme_CreatureTheme) || ParseInt(AttributeText(theme, Attrib_Level)) < 1) {
            continue;
        }
        for (const ConfigElement* item : ChildrenOf(record, theme)) {
            const auto names = ListedNames(AttributeText(*item, Attrib_UniqueName));
            if (names.empty() || NameSet(names.begin(), names.end()).contains(creature)) {
                return true;
            }
        }
    }
    return false;
}

void CheckCreatures(const ConfigRecord& record, Findings& findings) {
    for (const ConfigElement& element : record.elements) {
        const std::string name = AttributeText(element, Attrib_UniqueName);
        if (Is(element, Content_Creature) && !IsChosen(record, name)) {
            findings.Add(Weight::Note,
                         element,
                         "no creature theme with a Level of 1 or more chooses Creature \"" + name +
                             '"',
                         "Random creature themes never place it.");
        }
    }
}

} // namespace

void CheckThemes(const ConfigRecord& record, Findings& findings) {
    CheckCreatures(record, findings);
    for (const ConfigElement& theme : record.elements) {
        for (const ThemeRow& row : ThemeRows()) {
            if (!Is(theme, row.theme)) {
                continue;
            }
            for (const ConfigElement* item : ChildrenOf(record, theme)) {
                if (Is(*item, Theme_ThemeItem)) {
                    CheckItem(record, *item, row, findings);
                }
            }
        }
    }
}

} // namespace Tarnex::Report
