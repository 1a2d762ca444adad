// SPDX-License-Identifier: MIT
#include "tools/runs/RunLine.h"

#include "tools/text/Quote.h"
#include "tools/text/ShellWords.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>
#include <optional>
#include <set>

namespace Tarnex::Report {

namespace {

void Add(std::string& line, const std::string& option, const std::string& text) {
    // Behind a blank, what begins with a hyphen would be taken for an option.
    line += " --" + option + (text.starts_with('-') ? "=" : " ") + ForShell(text);
}

struct AddValue {
    void operator()(std::monostate /*missing*/) const {}
    void operator()(bool given) const { line += given ? " --" + option : ""; }
    void operator()(std::int64_t number) const {
        line += " --" + option + ' ' + std::to_string(number);
    }
    void operator()(const std::string& text) const { Add(line, option, text); }

    std::string& line;
    std::string option;
};

bool IsSaid(const RunOptions& options, const OptionRow& row) {
    const bool named = (row.uses & kNamed) != 0 && WhyIdle(options, row).empty();
    return named || !IsDefault(options, row);
}

// Appends the options for that use, of those that are as by default the ones that are named always.
void AddOptions(std::string& line, const RunOptions& options, OptionUse use) {
    for (const OptionRow& row : RunOptionRows()) {
        if ((row.uses & use) != 0 && IsSaid(options, row)) {
            std::visit(AddValue{line, row.name}, ValueOf(options, row));
        }
    }
}

// An option as it was typed: "--name", "--name=value", "-n" or "-nvalue".
struct TypedOption {
    std::string_view name;
    std::optional<std::string_view> value;
    bool isShort = false;

    bool Is(std::string_view full, const char* letter) const {
        return isShort ? letter != nullptr && name == letter : name == full;
    }
};

TypedOption Typed(std::string_view word) {
    if (word.starts_with("--")) {
        word.remove_prefix(2);
        const std::size_t end = word.find('=');
        return end == std::string_view::npos
                   ? TypedOption{word, std::nullopt}
                   : TypedOption{word.substr(0, end), word.substr(end + 1)};
    }
    if (word.size() >= 2 && word.front() == '-') {
        const std::string_view value = word.substr(2);
        return {word.substr(1, 1), value.empty() ? std::nullopt : std::optional(value), true};
    }
    throw UsageError(Quote(word) + " is no option");
}

class LineReader {
public:
    explicit LineReader(std::string_view line) : words(SplitCommandLine(line)) {}

    RunRequest Read() {
        if (words.size() < 2 || words[0] != "vaultry" || words[1] != "generate") {
            throw UsageError("it does not begin with vaultry generate");
        }
        for (next = 2; next < words.size();) {
            word = words[next++];
            Take(Typed(word));
        }
        return request;
    }

private:
    void Take(const TypedOption& option) {
        if (option.Is("config", "c")) {
            RequireNew("config");
            request.config = ValueOf(option);
        } else if (option.Is("keep-going", nullptr)) {
            RequireNew("keep-going");
            RequireNoValue(option);
            request.keepGoing = true;
        } else {
            Set(RowOf(option), option);
        }
    }

    void RequireNew(const char* name) {
        if (!given.insert(name).second) {
            throw UsageError(std::string("--") + name + " is given twice");
        }
    }

    const OptionRow& RowOf(const TypedOption& option) const {
        const auto rows = RunOptionRows();
        const auto row = std::ranges::find_if(
            rows, [&option](const OptionRow& r) { return option.Is(r.name, r.letter); });
        if (row == rows.end()) {
            throw UsageError(Quote(word) + " is no option of a run");
        }
        return *row;
    }

    void Set(const OptionRow& row, const TypedOption& option) {
        RequireNew(row.name);
        if (row.rival != nullptr && given.contains(row.rival)) {
            throw UsageError(std::string("--") + row.name + " excludes --" + row.rival);
        }
        const bool isSwitch = KindOf(row) == OptionKind::Switch;
        if (isSwitch) {
            RequireNoValue(option);
        }
        const std::string value = isSwitch ? "true" : ValueOf(option);
        const std::string fault = SetOption(request, row, value);
        if (!fault.empty()) {
            throw UsageError(std::string("--") + row.name + ": " + Quote(value) + ' ' + fault);
        }
    }

    std::string ValueOf(const TypedOption& option) {
        if (option.value) {
            return std::string(*option.value);
        }
        if (next == words.size()) {
            throw UsageError(Quote(word) + " lacks its value");
        }
        return words[next++];
    }

    void RequireNoValue(const TypedOption& option) const {
        if (option.value) {
            throw UsageError(Quote(word) + " takes no value");
        }
    }

    std::vector<std::string> words;
    std::size_t next = 0;
    std::string word;            // that is being read
    std::set<std::string> given; // the options read so far, by their names
    RunRequest request;
};

} // namespace

std::string LevelWords(const RunOptions& options) {
    std::string words;
    AddOptions(words, options, kShapesLevels);
    return words.empty() ? words : words.substr(1);
}

std::string GenerateCommandLine(const RunRequest& request, std::uint32_t seed) {
    std::string line = "vaultry generate --seed " + std::to_string(seed);
    if (request.config != kBuiltin) {
        Add(line, "config", request.config);
    }
    line += request.keepGoing ? " --keep-going" : "";
    RunOptions named = request;
    named.cell = named.cell.value_or(kDefaultCell);
    AddOptions(line, named, kRepeats);
    return line;
}

RunRequest ReadCommandLine(std::string_view line) {
    return LineReader(line).Read();
}

} // namespace Tarnex::Report
