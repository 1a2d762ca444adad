// SPDX-License-Identifier: MIT
#include "tools/runs/Description.h"

#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/output/FileHeader.h>

namespace Tarnex::Report {

namespace {

constexpr std::string_view kProgram = "vaultry ";
constexpr std::string_view kBehindVersion = ": ";
constexpr std::string_view kBeside = "the file beside it that ends in .txt says how it was made";

std::string Signed(std::string_view text) {
    std::string description(kProgram);
    description += VAULTRY_VERSION;
    description += kBehindVersion;
    return description += text;
}

// Without what is said of the program; empty when nothing is.
std::string_view SignedText(std::string_view description) {
    const std::size_t end = description.find(kBehindVersion);
    const bool isSigned = description.starts_with(kProgram) && end != std::string_view::npos;
    return isSigned ? description.substr(end + kBehindVersion.size()) : std::string_view();
}

} // namespace

Description DescriptionOf(const RunRequest& request, std::uint32_t seed) {
    const std::string text = Signed(GenerateCommandLine(request, seed));
    bool lost = false;
    std::string header = FromUtf8(text, &lost);
    if (lost || header.size() > FileHeader::kLongestDescription) {
        return {Signed(kBeside), text + '\n'};
    }
    return {std::move(header), {}};
}

std::string PathBeside(const std::string& plugin) {
    return plugin + ".txt";
}

bool StandsBeside(std::string_view description) {
    return SignedText(description) == kBeside;
}

std::string CommandIn(std::string_view description) try {
    std::string_view line = SignedText(description);
    line = line.substr(0, line.find_last_not_of("\r\n") + 1);
    const RunRequest request = ReadCommandLine(line);
    return request.seed ? GenerateCommandLine(request, *request.seed) : std::string();
} catch (const UsageError&) {
    return {};
}

} // namespace Tarnex::Report
