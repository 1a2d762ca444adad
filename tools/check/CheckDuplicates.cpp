// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <map>

namespace Tarnex::Report {

namespace {

// The first element of each list and name.
using Seen = std::map<std::pair<std::string, std::string>, const ConfigElement*>;

struct Named {
    const ConfigElement& element;
    std::string list; // in which it is looked up
    std::string_view attribute;
    std::string key; // the name as it is compared there
};

void CheckNamed(const Named& named, Seen& seen, const char* meaning, Findings& findings) {
    const auto [entry, isFirst] = seen.emplace(std::pair(named.list, named.key), &named.element);
    if (!isFirst) {
        findings.Add(Weight::Warning,
                     PlaceOf(named.element, named.attribute),
                     Titled(named.element, named.attribute) + " is given twice, first on line " +
                         std::to_string(entry->second->place.line),
                     meaning);
    }
}

// Tile sets, layouts and themes are chosen by their names as they are written.
void CheckChosen(const ConfigTree& tree,
                 ElementClass elementClass,
                 std::string_view nameAttribute,
                 std::string_view typeAttribute,
                 Findings& findings) {
    Seen seen;
    for (const ConfigElement* element : tree.OfClass(elementClass)) {
        const ConfigElement* around = tree.Around(*element);
        if (around != nullptr && around->element == ElementClass::Layout) {
            continue;
        }
        const std::string name = AttributeText(*element, nameAttribute);
        if (name.empty()) {
            findings.Add(Weight::Note,
                         element->place,
                         element->name + " has no " + std::string(nameAttribute),
                         "It cannot be chosen by name.");
            continue;
        }
        const std::string list =
            ToUpper(element->name) + ' ' + ToUpper(AttributeText(*element, typeAttribute));
        CheckNamed({*element, list, nameAttribute, name},
                   seen,
                   "By name the first one is found; this one is used only by chance. Give it "
                   "another name.",
                   findings);
    }
}

} // namespace

void CheckDuplicates(const ConfigTree& tree, Findings& findings) {
    CheckChosen(tree, ElementClass::TileSet, Tile_TsName, Tile_TsType, findings);
    CheckChosen(tree, ElementClass::Layout, Attrib_LayoutName, Attrib_Type, findings);
    for (const ElementClass theme :
         {ElementClass::Theme, ElementClass::CreatureTheme, ElementClass::TreasureTheme}) {
        CheckChosen(tree, theme, Attrib_Name, {}, findings);
    }
    Seen seen;
    for (const ConfigElement* content : tree.OfClass(ElementClass::Content)) {
        const std::string name = ToUpper(AttributeText(*content, Attrib_UniqueName));
        if (!name.empty()) {
            CheckNamed({*content, ToUpper(ContentKind(*content)), Attrib_UniqueName, name},
                       seen,
                       "Theme items that name it find the first one. Remove one of the two.",
                       findings);
        }
    }
}

} // namespace Tarnex::Report
