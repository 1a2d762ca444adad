// SPDX-License-Identifier: MIT
#include <vaultry/foundation/Problem.h>

#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/RunState.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace Tarnex {

namespace {

enum class Severity : std::uint8_t { Info, Error };

struct KindRow {
    ProblemKind kind;
    Severity severity;
    const char* source;
    std::string_view text; // %s stands for the next name, %l and %c for line and column
};

using enum ProblemKind;
using enum Severity;

constexpr const char* kParser = "XML Parser";

// clang-format off
constexpr std::array<KindRow, 16> kKinds = {{
    {TooMany,            Error, "Logger",   "There are more than %s errors; no more are kept."},
    {ParserUnavailable,  Error, "GenMgr",   "Error during XML parser initialization: %s"},
    {Broken,             Error, kParser,    "Fatal Error parsing XML line %l col %c:  %s"},
    {Invalid,            Error, kParser,    "Error parsing XML line %l col %c:  %s"},
    {Odd,                Info,  kParser,    "XML Warning at line %l col %c:  %s"},
    {UnknownElement,     Error, kParser,    "Unrecognized tag in XML:  '%s'"},
    {UnusualTileSize,    Error, kParser,    "Unusual tile set size (%s) for tile set '%s'."},
    {UnknownTileSetType, Error, kParser,    "Unrecognized TileSet Type '%s' in TileSet '%s'."},
    {UnknownLayoutType,  Error, kParser,    "Unrecognized Layout Type '%s' in Layout '%s'."},
    {LayoutTooLarge,     Error, kParser,    "Layout size too large (H=%s, W=%s) for Layout set '%s'.  Max = %s."},
    {LayoutsTooLarge,    Error, kParser,    "Layouts too large together (H=%s, W=%s) for Layout set '%s'.  Max = %s cells in all."},
    {CellOutside,        Error, kParser,    "Too many rows/cols in Layout '%s' at Row %s Col %s."},
    {TileTwice,          Error, "TileSet",  "Duplicate tile '%s' encountered in TileSet '%s.'"},
    {PieceTwice,         Error, "Platform", "Duplicate tile '%s' encountered in Platform '%s.'"},
    {UnknownContentKind, Error, "Content",  "Unrecognized content type '%s'"},
    {UnknownContentList, Error, "Internal", "Unrecognized content type '%s'."},
}};
// clang-format on

static_assert([] {
    for (std::size_t i = 0; i < kKinds.size(); ++i) {
        if (static_cast<std::size_t>(kKinds[i].kind) != i) {
            return false;
        }
    }
    return true;
}());

const KindRow& RowOf(const Problem& problem) {
    return kKinds.at(static_cast<std::size_t>(problem.kind));
}

// The log's numbers have a sign.
std::string Number(std::uint64_t number) {
    return std::to_string(static_cast<std::int32_t>(number));
}

Problem TooManyProblems() {
    return {ProblemKind::TooMany, {std::to_string(Logger::kMaxErrors)}};
}

std::string MessageOf(const Problem& problem) {
    std::string message;
    auto name = problem.names.begin();
    const std::string_view text = RowOf(problem).text;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '%') {
            message += text[at];
            continue;
        }
        switch (text[++at]) {
        case 'l':
            message += Number(problem.place.line);
            break;
        case 'c':
            message += Number(problem.place.column);
            break;
        default:
            message += name == problem.names.end() ? "" : *name++;
        }
    }
    message.resize(std::min(message.size(), Logger::kMaxMessage));
    return message;
}

} // namespace

std::string TextOf(const Problem& problem) {
    return std::string(RowOf(problem).source) + " : " + MessageOf(problem);
}

void ReportProblem(const Problem& problem) {
    const KindRow& row = RowOf(problem);
    const std::size_t before = Logger::GetErrors().size();
    const std::string message = MessageOf(problem);
    const auto write = row.severity == Info ? Logger::WriteInfo : Logger::WriteError;
    write(row.source, "%s", message.c_str());
    ProblemListener* const listener = CurrentRunState().problems;
    const bool kept = row.severity == Info || Logger::GetErrors().size() > before;
    if (listener != nullptr && kept) {
        const bool replaced = row.severity == Error && before == Logger::kMaxErrors;
        listener->Hear(replaced ? TooManyProblems() : problem);
    }
}

ProblemListener::ProblemListener()
    : innermost(CurrentRunState().problems), outer(std::exchange(innermost, this)) {}

ProblemListener::~ProblemListener() {
    innermost = outer;
}

void ProblemListener::PassOn(const Problem& problem) const {
    if (outer != nullptr) {
        outer->Hear(problem);
    }
}

void ProblemList::Hear(const Problem& problem) {
    problems.push_back(problem);
    PassOn(problem);
}

} // namespace Tarnex
