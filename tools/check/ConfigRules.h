// SPDX-License-Identifier: MIT
// The rules of a configuration check, one function per subject.
#pragma once

#include "tools/check/ConfigCheck.h"
#include "tools/check/ConfigTree.h"

#include <cstdint>

namespace Tarnex::Report {

/// Collects findings, whose text is Windows-1252.
class Findings {
public:
    explicit Findings(std::vector<ConfigFinding>& list_) : list(list_) {}

    void Add(Weight weight,
             const DocumentPlace& place,
             const std::string& message,
             std::string meaning,
             const std::string& nearest = {});

    /// The one of `names` that comes nearest, blanks around the name left aside; empty when none
    /// does. After many comparisons nothing is compared any more: a hostile document could ask for
    /// them without end.
    std::string Nearest(const std::string& name, const std::vector<std::string>& names);

private:
    std::vector<ConfigFinding>& list;
    std::uint64_t comparisonsLeft = 20'000'000; // of letters
};

/// A text of the document in quotes, cut where it is long.
std::string InQuotes(const std::string& text);
/// The name and the title of an element.
std::string Titled(const ConfigElement& element, std::string_view titleAttribute);

/// Whether content lies in containers; other content stands in rooms.
bool IsCarried(const ConfigElement& content);

/// Unknown attributes and keywords.
void CheckWords(const ConfigTree& tree, Findings& findings);
/// What is no number, and numbers that make no sense.
void CheckNumbers(const ConfigTree& tree, Findings& findings);
/// Identifiers that the game does not find.
void CheckIds(const ConfigTree& tree, Findings& findings);
/// Things of one name, of which only the first is found by it.
void CheckDuplicates(const ConfigTree& tree, Findings& findings);
/// What every dungeon needs and no default is found for.
void CheckDefaults(const ConfigTree& tree, Findings& findings);
void CheckTileSets(const ConfigTree& tree, Findings& findings);
void CheckPlatforms(const ConfigTree& tree, Findings& findings);
void CheckLayouts(const ConfigTree& tree, Findings& findings);
void CheckThemes(const ConfigTree& tree, Findings& findings);
void CheckContent(const ConfigTree& tree, Findings& findings);

} // namespace Tarnex::Report
