// SPDX-License-Identifier: MIT
// The rules of a configuration check, one function per subject.
#pragma once

#include "apps/report/ConfigCheck.h"

#include <functional>
#include <optional>
#include <set>
#include <string_view>

namespace Tarnex::Report {

/// Names compare as the library compares them, without regard to case.
struct LessNoCase {
    bool operator()(const std::string& a, const std::string& b) const;
};
using NameSet = std::set<std::string, LessNoCase>;

/// Collects findings about elements, whose text is Windows-1252.
class Findings {
public:
    explicit Findings(std::vector<ConfigFinding>& list_) : list(list_) {}

    void Add(Weight weight,
             const ConfigElement& element,
             const std::string& message,
             std::string meaning,
             const std::string& nearest = {});

private:
    std::vector<ConfigFinding>& list;
};

/// The last value given to an attribute.
std::optional<std::string> Attribute(const ConfigElement& element, std::string_view name);
/// Likewise, empty when it is not given.
std::string AttributeText(const ConfigElement& element, std::string_view name);

bool Is(const ConfigElement& element, std::string_view name);
bool IsAnyOf(std::string_view word, const std::vector<std::string_view>& words);

/// The names of a list as the loader splits them.
std::vector<std::string> ListedNames(const std::string& text);

/// The one that comes nearest, blanks around the name left aside; empty when none does.
std::string Nearest(const std::string& name, const std::vector<std::string>& names);

/// The children of an element, in document order.
std::vector<const ConfigElement*> ChildrenOf(const ConfigRecord& record, const ConfigElement& of);

/// The names of all tiles that the tile sets of a type have, derived ones included.
NameSet TileNames(const ConfigRecord& record, std::string_view type);

/// Adds the tiles that a tile of that kind brings with it, itself included.
void AddDerivedTiles(const std::string& name, NameSet& names);

void CheckWords(const ConfigRecord& record, Findings& findings);
void CheckTileSets(const ConfigRecord& record, Findings& findings);
void CheckLayouts(const ConfigRecord& record, Findings& findings);
void CheckThemes(const ConfigRecord& record, Findings& findings);
void CheckContent(const ConfigRecord& record, Findings& findings);

} // namespace Tarnex::Report
