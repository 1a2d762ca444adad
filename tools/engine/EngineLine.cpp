// SPDX-License-Identifier: MIT
#include "tools/engine/EngineLine.h"

#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

// A game that is installed too would be loaded first, and its archives and fonts be looked for.
constexpr const char* kOfTheGame[] = {"content", "data", "fallback-archive", "fallback"};

// Backslashes are themselves unless a quotation mark follows.
std::string InQuotes(const std::string& word) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char c : word) {
        quoted.append(c == '"' ? backslashes + 1 : 0, '\\') += c;
        backslashes = c == '\\' ? backslashes + 1 : 0;
    }
    return quoted.append(backslashes, '\\') + '"';
}

// The engine ends a folder at its first blank unless it stands in quotation marks of its own, and
// there an ampersand takes away the meaning of what follows. [path]
std::string ForEngine(const std::string& folder) {
    if (folder.find(' ') == std::string::npos) {
        return folder;
    }
    std::string quoted = "\"";
    for (const char c : folder) {
        quoted.append(c == '&' || c == '"' ? "&" : "") += c;
    }
    return quoted + '"';
}

std::string ForPrompt(const std::string& word) {
    const bool plain = !word.empty() && std::ranges::all_of(word, [](char c) {
        return c == '\\' || c == ':' || IsPlainInShell(c);
    });
    return plain ? word : InQuotes(word);
}

} // namespace

std::vector<std::string> EngineWords(const EngineStart& start) {
    std::vector<std::string> words = {start.engine, "--skip-menu"};
    const auto add = [&words](const char* option, const std::string& value) {
        words.insert(words.end(), {option, value});
    };
    if (!start.stage.empty()) {
        for (const char* const list : kOfTheGame) {
            add("--replace", list);
        }
        add("--data", ForEngine(start.stage));
    }
    add("--data", ForEngine(start.folder));
    for (const std::string& file : start.content) {
        add("--content", file);
    }
    add("--start", start.cell);
    if (!start.script.empty()) {
        add("--script-run", start.script);
    }
    return words;
}

std::string EngineLine(System system, const std::vector<std::string>& words) {
    std::vector<std::string> quoted;
    quoted.reserve(words.size());
    for (const std::string& word : words) {
        quoted.push_back(system == System::Windows ? ForPrompt(word) : ForShell(word));
    }
    return JoinWords(quoted, " ");
}

bool HasContent(const std::vector<std::string>& names, std::string_view name) {
    return std::ranges::any_of(
        names, [name](const std::string& other) { return EqualsNoCase(other, name); });
}

} // namespace Tarnex::Report
