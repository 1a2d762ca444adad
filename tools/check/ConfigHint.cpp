// SPDX-License-Identifier: MIT
#include "tools/check/ConfigHint.h"

#include <vaultry/foundation/CodePage.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace Tarnex::Report {

namespace {

// A part of the parser's words, and the cause: "%" stands for the last word that they quote.
struct HintRow {
    std::string_view part;
    std::string_view cause;
};

constexpr std::string_view kEncoding =
    "it is not saved in the encoding that its first line names: save it as UTF-8, or write "
    "encoding=\"windows-1252\" there";

constexpr std::array<HintRow, 13> kHints = {{
    {"expected end of tag", "</%> is missing before this place, or misspelt"},
    {"input ended before", "</%> is missing, or the end of the file is"},
    {"byte limit", kEncoding},
    {"invalid byte", kEncoding},
    {"create converter", "UTF-8 or windows-1252 is meant"},
    {"expected entity name", "an & that stands for itself is written &amp;"},
    {"entity '", "an & that stands for itself is written &amp;"},
    {"whitespace expected", "a > or a blank between two attributes is missing"},
    {"attribute value expected", "the value lacks its quotation marks"},
    {"unexpected end of input", "a quotation mark or a > is missing"},
    {"invalid document structure", "the file is empty or no XML"},
    {"comment or processing instruction", "what stands behind the last end tag belongs before it"},
    {"can not be resolved", "there is a colon in the name of a tag"},
}};

std::string LastQuoted(const std::string& text) {
    const std::size_t end = text.rfind('\'');
    const std::size_t start = end == 0 ? end : text.rfind('\'', end - 1);
    return start == std::string::npos ? "?" : text.substr(start + 1, end - start - 1);
}

} // namespace

std::string ProbableCause(const std::string& message) {
    const auto* const row = std::ranges::find_if(kHints, [&message](const HintRow& hint) {
        return message.find(hint.part) != std::string::npos;
    });
    if (row == kHints.end()) {
        return {};
    }
    std::string cause(row->cause);
    const std::size_t word = cause.find('%');
    return word == std::string::npos ? cause : cause.replace(word, 1, ToUtf8(LastQuoted(message)));
}

} // namespace Tarnex::Report
