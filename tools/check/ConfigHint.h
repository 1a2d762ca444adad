// SPDX-License-Identifier: MIT
// What a broken configuration probably lacks.
#pragma once

#include <string>

namespace Tarnex::Report {

/// What is probably meant where a document broke with that message (Windows-1252) of the parser, as
/// the end of a sentence; empty when the message says it itself or nothing is known.
std::string ProbableCause(const std::string& message);

} // namespace Tarnex::Report
