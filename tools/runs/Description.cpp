// SPDX-License-Identifier: MIT
#include "tools/runs/Description.h"

#include "tools/text/OrdinaryFile.h"
#include "tools/text/ShellWords.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/output/FileHeader.h>
#include <vaultry/run/SafeFile.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

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

// The first bytes of a file, as many as the longest line that is read; empty when it cannot be
// read.
std::string StartOf(const std::string& path) try {
    constexpr std::size_t kMost = 65536;
    const std::size_t size = std::min<std::size_t>(RequireOrdinaryFile(path), kMost);
    std::string text(size, '\0');
    std::ifstream stream(PathFromUtf8(path), std::ios::binary);
    stream.read(text.data(), static_cast<std::streamsize>(size));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
} catch (const UsageError&) {
    return {};
}

// Whatever shell it is for.
std::string LineIn(std::string_view description) try {
    std::string_view line = SignedText(description);
    line = line.substr(0, line.find_last_not_of("\r\n") + 1);
    const RunRequest request = ReadCommandLine(line);
    return request.seed ? GenerateCommandLine(request, *request.seed) : std::string();
} catch (const UsageError&) {
    return {};
}

bool IsForEveryShell(const std::string& line) {
    return std::ranges::all_of(SplitCommandLine(line), IsSameInEveryShell);
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

std::string CommandIn(std::string_view description) {
    std::string line = LineIn(description);
    return IsForEveryShell(line) ? line : std::string();
}

bool IsKeptBack(std::string_view description) {
    return !IsForEveryShell(LineIn(description));
}

std::string DescriptionBeside(const std::string& plugin) {
    return StartOf(PathBeside(plugin));
}

void RequireFreeBeside(const std::string& plugin) {
    const std::string path = PathBeside(plugin);
    std::error_code unknown;
    if (std::filesystem::exists(PathFromUtf8(path), unknown) &&
        LineIn(DescriptionBeside(plugin)).empty()) {
        throw FileError("\"" + path +
                        "\" is to say how the plug-in was made, and holds something else: move it "
                        "away, or name the plug-in otherwise");
    }
}

} // namespace Tarnex::Report
