// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

using Words = std::vector<std::string_view>;

struct KeywordRow {
    ElementClass element;
    std::string_view name; // of the element; empty for all of its class
    std::string_view attribute;
    Words words;
    const char* meaning;
};

const std::vector<KeywordRow>& KeywordRows() {
    static const std::vector<KeywordRow> kRows = {
        {ElementClass::Tile,
         {},
         Attrib_Area,
         {Tile_HalfSize, Tile_QuarterSize, "FullSize"},
         "The tile is of full size."},
        {ElementClass::Content,
         {},
         Attrib_Stack,
         {Stack_No, Stack_Bottom, Stack_Top, Stack_Yes},
         "It counts as No."},
        {ElementClass::Content,
         Content_Creature,
         Attrib_Type,
         {Creature_Bird,
          Creature_Creature,
          Creature_Daedra,
          Creature_Fish,
          Creature_Humanoid,
          Creature_Undead},
         "It is placed like any creature that is no Bird and no Fish."},
    };
    return kRows;
}

void CheckKeywords(const ConfigElement& element, ElementClass elementClass, Findings& findings) {
    for (const KeywordRow& row : KeywordRows()) {
        const ConfigAttribute* attribute = FindAttribute(element, row.attribute);
        const bool concerned = row.element == elementClass && attribute != nullptr &&
                               (row.name.empty() || Is(element, row.name));
        if (concerned && !IsAnyOf(attribute->value, row.words)) {
            findings.Add(Weight::Warning,
                         attribute->place,
                         std::string(row.attribute) + " has no word " + InQuotes(attribute->value),
                         row.meaning,
                         findings.Nearest(attribute->value, {row.words.begin(), row.words.end()}));
        }
    }
}

// Attributes of XML itself and of schemas, which editors add.
bool IsOfXml(const ConfigAttribute& attribute) {
    return attribute.name.starts_with("xml:") || attribute.name.starts_with("xmlns") ||
           attribute.name.starts_with("xsi:");
}

void CheckAttributes(const ConfigElement& element, ElementClass elementClass, Findings& findings) {
    Words known;
    for (const AttributeFormat& format : AttributesOf(elementClass)) {
        known.push_back(format.name);
    }
    NameSet given;
    for (const ConfigAttribute& attribute : element.attributes) {
        if (!IsAnyOf(attribute.name, known) && !IsOfXml(attribute)) {
            findings.Add(Weight::Warning,
                         attribute.place,
                         element.name + " has no attribute " + InQuotes(attribute.name),
                         "It is ignored.",
                         findings.Nearest(attribute.name, {known.begin(), known.end()}));
        }
        if (!given.insert(attribute.name).second) {
            findings.Add(Weight::Warning,
                         attribute.place,
                         element.name + " has the attribute " + InQuotes(attribute.name) + " twice",
                         "The last one counts; unique names are added to the earlier ones.");
        }
    }
}

} // namespace

void CheckWords(const ConfigTree& tree, Findings& findings) {
    for (const ConfigElement& element : tree.All()) {
        const ElementClass elementClass = tree.ClassOf(element);
        // The loader itself reports elements that it does not know.
        if (elementClass != ElementClass::Unknown) {
            CheckAttributes(element, elementClass, findings);
            CheckKeywords(element, elementClass, findings);
        }
    }
}

} // namespace Tarnex::Report
