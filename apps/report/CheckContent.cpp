// SPDX-License-Identifier: MIT
#include "apps/report/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kLongestItemId = 31; // in the record of a container [bytes]

const std::vector<std::string_view> kCarried = {
    Content_Armor, Content_Clothing, Content_Treasure, Content_Weapon};
const std::vector<std::string_view> kPlaced = {
    Content_Container, Content_Creature, Content_Furniture, Content_Rug, Content_Tapestry};

double WeightOf(const ConfigElement& element) {
    return ParseReal(AttributeText(element, Attrib_Weight));
}

std::string Titled(const ConfigElement& element) {
    return element.name + " \"" + AttributeText(element, Attrib_UniqueName) + '"';
}

// The greatest capacity of any container; negative when there is none.
double LargestCapacity(const ConfigRecord& record) {
    double largest = -1;
    for (const ConfigElement& element : record.elements) {
        if (Is(element, Content_Container)) {
            largest = std::max(largest, WeightOf(element));
        }
    }
    return largest;
}

void CheckCarried(const ConfigElement& element, double capacity, Findings& findings) {
    if (AttributeText(element, Attrib_UniqueName).size() > kLongestItemId) {
        findings.Add(Weight::Error,
                     element,
                     Titled(element) + " has an identifier of more than 31 bytes",
                     "It is cut in containers, and the game does not find it.");
    }
    if (capacity >= 0 && WeightOf(element) > capacity) {
        findings.Add(Weight::Warning,
                     element,
                     Titled(element) + " is heavier than any container can carry",
                     "It is never placed.");
    }
}

void CheckNumbers(const ConfigElement& element, Findings& findings) {
    const auto max = Attribute(element, Attrib_Max);
    if (max && ParseInt(*max) < 1) {
        findings.Add(Weight::Warning,
                     element,
                     Titled(element) + " has a Max of \"" + *max + '"',
                     "It counts as 1.");
    }
    const auto value = Attribute(element, Attrib_Value);
    if (value && ParseInt(*value) < 0) {
        findings.Add(Weight::Warning,
                     element,
                     Titled(element) + " has a Value of \"" + *value + '"',
                     "It counts as worthless.");
    }
}

void CheckTreasureType(const ConfigElement& element, Findings& findings) {
    const std::vector<std::string> types = {"Book", "Gem", "Gold", "Ingredient", "Misc", "Tool"};
    const std::string type = AttributeText(element, Attrib_Type);
    if (!IsAnyOf(type, {types.begin(), types.end()})) {
        findings.Add(Weight::Error,
                     element,
                     Titled(element) + " has the unknown type \"" + type + '"',
                     "It is dropped without a message.",
                     Nearest(type, types));
    }
}

} // namespace

void CheckContent(const ConfigRecord& record, Findings& findings) {
    const double capacity = LargestCapacity(record);
    NameSet seen;
    for (const ConfigElement& element : record.elements) {
        const bool carried = IsAnyOf(element.name, kCarried);
        if (!carried && !IsAnyOf(element.name, kPlaced)) {
            continue;
        }
        CheckNumbers(element, findings);
        if (carried) {
            CheckCarried(element, capacity, findings);
        }
        if (Is(element, Content_Treasure)) {
            CheckTreasureType(element, findings);
        }
        if (Is(element, Content_Container) && WeightOf(element) <= 0) {
            findings.Add(Weight::Warning,
                         element,
                         Titled(element) + " has no capacity",
                         "It takes only what weighs nothing.");
        }
        const std::string key = element.name + ' ' + AttributeText(element, Attrib_Type) + ' ' +
                                AttributeText(element, Attrib_UniqueName);
        if (!seen.insert(key).second) {
            findings.Add(Weight::Warning,
                         element,
                         Titled(element) + " is given twice",
                         "Theme items that name it find the first one.");
        }
    }
}

} // namespace Tarnex::Report
