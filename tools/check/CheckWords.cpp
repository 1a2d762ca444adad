// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"
#include "tools/text/Words.h"

#include <vaultry/catalogue/Vocabulary.h>

namespace Tarnex::Report {

namespace {

using Words = std::vector<std::string_view>;

void CheckWord(const ConfigAttribute& attribute,
               std::string_view name,
               const Words& words,
               const char* meaning,
               Findings& findings) {
    if (!IsAnyOf(attribute.value, words)) {
        findings.Add(Weight::Warning,
                     attribute.place,
                     std::string(name) + " has no word " + InQuotes(attribute.value),
                     meaning,
                     findings.Nearest(attribute.value, {words.begin(), words.end()}));
    }
}

void CheckKeywords(const ConfigElement& element, Findings& findings) {
    for (const AttributeFormat& format : AttributesOf(element.element)) {
        const ConfigAttribute* attribute = FindAttribute(element, format.name);
        if (attribute != nullptr && format.kind == ValueKind::Keyword) {
            Words words;
            for (const Keyword& keyword : format.keywords) {
                words.push_back(keyword.word);
            }
            CheckWord(*attribute, format.name, words, format.bounds.otherwise, findings);
        }
    }
}

void CheckBeing(const ConfigElement& creature, Findings& findings) {
    const ConfigAttribute* attribute = FindAttribute(creature, Attrib_Type);
    if (attribute != nullptr) {
        const auto types = FindElementFormat(Content_Creature)->types;
        CheckWord(*attribute,
                  Attrib_Type,
                  {types.begin(), types.end()},
                  "It is placed like any creature that is no Bird and no Fish.",
                  findings);
    }
}

// Attributes of XML itself and of schemas, which editors add.
bool IsOfXml(const ConfigAttribute& attribute) {
    return attribute.name.starts_with("xml:") || attribute.name.starts_with("xmlns") ||
           attribute.name.starts_with("xsi:");
}

// What is there already was not meant.
std::vector<std::string> NotGiven(const ConfigElement& element, const Words& known) {
    std::vector<std::string> names;
    for (const std::string_view name : known) {
        if (FindAttribute(element, name) == nullptr) {
            names.emplace_back(name);
        }
    }
    return names;
}

// The end of a sentence: what counts instead of the attribute that was probably meant.
std::string Instead(const ConfigElement& element, const std::string& meant) {
    const AttributeFormat* const format = meant.empty() ? nullptr : FindFormat(element, meant);
    if (format == nullptr || format->initial == nullptr) {
        return ".";
    }
    const std::string counts = ", and " + meant + " counts as " + Number(RealOf(element, meant));
    const bool fills = format->name == Attrib_Ratio;
    return counts + (fills ? ": one for each cell, or for each container." : ".");
}

void CheckAttributes(const ConfigElement& element, Findings& findings) {
    Words known;
    for (const AttributeFormat& format : AttributesOf(element.element)) {
        known.push_back(format.name);
    }
    NameSet given;
    const std::vector<std::string> missing = NotGiven(element, known);
    for (const ConfigAttribute& attribute : element.attributes) {
        if (!IsAnyOf(attribute.name, known) && !IsOfXml(attribute)) {
            const std::string nearest = findings.Nearest(attribute.name, missing);
            findings.Add(Weight::Warning,
                         attribute.place,
                         element.name + " has no attribute " + InQuotes(attribute.name),
                         "It is ignored" + Instead(element, nearest),
                         nearest);
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
        // The loader itself reports elements that it does not know.
        if (element.element != ElementClass::Unknown) {
            CheckAttributes(element, findings);
            CheckKeywords(element, findings);
        }
        if (element.element == ElementClass::Content && Is(element, Content_Creature)) {
            CheckBeing(element, findings);
        }
    }
}

} // namespace Tarnex::Report
