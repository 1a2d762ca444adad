// SPDX-License-Identifier: MIT
// What is answered to words of the command line that nothing takes.
#pragma once

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// That there is no verb of that name, and which come near.
std::string AnswerToVerb(const std::string& word);

/// What is wrong with the first of `words`, which are left over, in the order in which they were
/// typed: an option that the verb lacks, with those that come near or the verbs that take it, or a
/// word too many, which may be the name of a preset. Without a verb, `verb` is empty.
std::string AnswerToWords(const std::string& verb, const std::vector<std::string>& words);

/// What a verb lacks; where `words` are left over, what is wrong with them.
std::string AnswerToMissing(const std::string& verb, const std::vector<std::string>& words);

} // namespace Tarnex::Cli
