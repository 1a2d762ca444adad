// SPDX-License-Identifier: MIT
#include "tools/check/ConfigTree.h"

#include <vaultry/catalogue/Mirroring.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

// What the loader starts from; 0 for what it does not read as a number.
double InitialOf(const ConfigElement& element, std::string_view name) {
    const AttributeFormat* format = FindFormat(element, name);
    return format == nullptr || format->initial == nullptr ? 0 : format->initial();
}

} // namespace

bool LessNoCase::operator()(const std::string& a, const std::string& b) const {
    return ToUpper(a) < ToUpper(b);
}

ConfigTree::ConfigTree(const ConfigRecord& record_)
    : record(record_), children(record_.elements.size()) {
    for (const ConfigElement& element : record.elements) {
        byClass[element.element].push_back(&element);
        if (element.parent != ConfigElement::kNone) {
            children[element.parent].push_back(&element);
        }
    }
}

const Elements& ConfigTree::OfClass(ElementClass wanted) const {
    static const Elements none;
    const auto found = byClass.find(wanted);
    return found == byClass.end() ? none : found->second;
}

const Elements& ConfigTree::Inside(const ConfigElement& element) const {
    return children[static_cast<std::size_t>(&element - record.elements.data())];
}

const ConfigElement* ConfigTree::Around(const ConfigElement& element) const {
    return element.parent == ConfigElement::kNone ? nullptr : &record.elements[element.parent];
}

const ConfigAttribute* FindAttribute(const ConfigElement& element, std::string_view name) {
    const auto found =
        std::find_if(element.attributes.rbegin(),
                     element.attributes.rend(),
                     [name](const ConfigAttribute& a) { return EqualsNoCase(a.name, name); });
    return found == element.attributes.rend() ? nullptr : &*found;
}

std::string AttributeText(const ConfigElement& element, std::string_view name) {
    const ConfigAttribute* attribute = FindAttribute(element, name);
    return attribute == nullptr ? "" : attribute->value;
}

const AttributeFormat* FindFormat(const ConfigElement& element, std::string_view name) {
    const auto formats = AttributesOf(element.element);
    const auto found = std::ranges::find_if(
        formats, [name](const AttributeFormat& f) { return EqualsNoCase(f.name, name); });
    return found == formats.end() ? nullptr : &*found;
}

int WholeOf(const ConfigElement& element, std::string_view name) {
    const ConfigAttribute* attribute = FindAttribute(element, name);
    return attribute == nullptr ? static_cast<int>(InitialOf(element, name))
                                : ParseInt(attribute->value);
}

double RealOf(const ConfigElement& element, std::string_view name) {
    const ConfigAttribute* attribute = FindAttribute(element, name);
    return attribute == nullptr ? InitialOf(element, name) : ParseReal(attribute->value);
}

DocumentPlace PlaceOf(const ConfigElement& element, std::string_view name) {
    const ConfigAttribute* attribute = FindAttribute(element, name);
    return attribute == nullptr ? element.place : attribute->place;
}

bool Is(const ConfigElement& element, std::string_view name) {
    return EqualsNoCase(element.name, name);
}

bool IsAnyOf(std::string_view word, std::span<const std::string_view> words) {
    return std::ranges::any_of(
        words, [word](std::string_view other) { return EqualsNoCase(word, other); });
}

bool IsAnyOf(std::string_view word, std::initializer_list<std::string_view> words) {
    return IsAnyOf(word, std::span(words.begin(), words.size()));
}

std::vector<std::string> ListedNames(const std::string& text) {
    const auto parts = SplitList(text);
    return {parts.begin(), parts.end()};
}

std::string ContentKind(const ConfigElement& content) {
    return Is(content, Content_Treasure) ? AttributeText(content, Attrib_Type) : content.name;
}

ChosenContent
ChosenIn(const ConfigTree& tree, ElementClass themeClass, int leastLevel, std::string_view type) {
    ChosenContent chosen;
    for (const ConfigElement* item : tree.OfClass(ElementClass::ThemeItem)) {
        const ConfigElement* theme = tree.Around(*item);
        if (theme == nullptr || theme->element != themeClass ||
            WholeOf(*theme, Attrib_Level) < leastLevel ||
            !IsAnyOf(AttributeText(*item, Attrib_Type), {type})) {
            continue;
        }
        const auto names = ListedNames(AttributeText(*item, Attrib_UniqueName));
        chosen.any |= names.empty();
        chosen.names.insert(names.begin(), names.end());
    }
    return chosen;
}

NameSet TileNames(const ConfigTree& tree, const ConfigElement& tileSet) {
    NameSet names;
    for (const ConfigElement* element : tree.Inside(tileSet)) {
        Tile tile;
        tile.kindName = element->name;
        for (const Tile& derived : MirrorTile(tile)) {
            names.insert(derived.kindName.Text());
        }
        names.insert(element->name);
    }
    return names;
}

} // namespace Tarnex::Report
