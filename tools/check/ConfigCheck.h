// SPDX-License-Identifier: MIT
// What is wrong with a configuration, and what it means for generation.
#pragma once

#include <vaultry/catalogue/ConfigRecord.h>

#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// How much a finding matters. Notes are told, but a configuration with nothing else is clean.
enum class Weight { Error, Warning, Note };

/// One finding. All text is UTF-8.
struct ConfigFinding {
    Weight weight = Weight::Error;
    DocumentPlace place; ///< of the start tag or attribute concerned
    std::string message;
    std::string meaning; ///< for generation
    std::string nearest; ///< the word that was probably meant; empty when none comes near
};

/// A configuration that was checked.
struct ConfigCheck {
    std::string name; ///< as it was given [UTF-8]
    bool usable = true;
    std::vector<ConfigFinding> findings; ///< in the order of their places
};

/// Finds everything that the loader reports and what shows only when levels are generated.
ConfigCheck CheckConfig(const std::string& name, const ConfigRecord& record);

/// True when something was found that is more than a note.
bool HasWeight(const ConfigCheck& check);

/// Prints each finding with its place, and how many there are: behind the name where `named`.
void PrintCheck(const ConfigCheck& check, std::ostream& out, bool named = false);

std::string ToJson(const ConfigCheck& check);

/// A list of what stands for each.
std::string ToJson(std::span<const ConfigCheck> checks);

} // namespace Tarnex::Report
