// SPDX-License-Identifier: MIT
// A configuration as it is written, ready to be asked about.
#pragma once

#include <vaultry/catalogue/ConfigFormat.h>
#include <vaultry/catalogue/ConfigRecord.h>

#include <initializer_list>
#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// Names compare as the library compares them, without regard to case.
struct LessNoCase {
    bool operator()(const std::string& a, const std::string& b) const;
};
using NameSet = std::set<std::string, LessNoCase>;

using Elements = std::vector<const ConfigElement*>;

/// The elements of a record by what they are and by what is inside what. The record must outlive
/// it.
class ConfigTree {
public:
    explicit ConfigTree(const ConfigRecord& record);

    const std::vector<ConfigElement>& All() const { return record.elements; }

    /// In document order.
    const Elements& OfClass(ElementClass wanted) const;
    /// Those directly inside an element, in document order.
    const Elements& Inside(const ConfigElement& element) const;
    /// The element around one, or null.
    const ConfigElement* Around(const ConfigElement& element) const;

private:
    const ConfigRecord& record;
    std::vector<Elements> children;
    std::map<ElementClass, Elements> byClass;
};

/// The attribute that counts when one is given several times: the last; null when it is not given.
const ConfigAttribute* FindAttribute(const ConfigElement& element, std::string_view name);
/// Its value; empty when it is not given.
std::string AttributeText(const ConfigElement& element, std::string_view name);
/// Its value, or the number that stands for it when it is not given.
int WholeOf(const ConfigElement& element, std::string_view name);
double RealOf(const ConfigElement& element, std::string_view name);
/// How the loader reads it; null when it does not.
const AttributeFormat* FindFormat(const ConfigElement& element, std::string_view name);
/// The place of an attribute, or of its element when it is not given.
DocumentPlace PlaceOf(const ConfigElement& element, std::string_view name);

bool Is(const ConfigElement& element, std::string_view name);
bool IsAnyOf(std::string_view word, std::span<const std::string_view> words);
bool IsAnyOf(std::string_view word, std::initializer_list<std::string_view> words);

/// The names of a list as the loader splits them.
std::vector<std::string> ListedNames(const std::string& text);

/// The kind of content under which themes find an element: its name, or the type of a treasure.
std::string ContentKind(const ConfigElement& content);

/// The content that items of themes choose: any of their type, or that of some names.
struct ChosenContent {
    bool any = false;
    NameSet names;

    bool Has(const std::string& name) const { return any || names.contains(name); }
};

/// What the items of that type choose in themes of that class and at least that level.
ChosenContent
ChosenIn(const ConfigTree& tree, ElementClass themeClass, int leastLevel, std::string_view type);

/// The tiles of a set: those that are given and those that follow from them.
NameSet TileNames(const ConfigTree& tree, const ConfigElement& tileSet);

} // namespace Tarnex::Report
