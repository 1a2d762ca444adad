// SPDX-License-Identifier: MIT
#include "cli/CommandWords.h"

#include "cli/Arguments.h"
#include "cli/GenerateWords.h"
#include "tools/search/Quote.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/HarmlessText.h>

#include <charconv>
#include <optional>
#include <variant>

namespace Tarnex::Cli {

namespace {

constexpr std::string_view kStart = "vaultry generate --seed ";

class WordReader {
public:
    explicit WordReader(std::string_view line) : rest(line) {}

    /// The next word; nothing behind the last.
    std::optional<std::string> Next() {
        rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
        if (rest.empty()) {
            return std::nullopt;
        }
        std::string word;
        while (!rest.empty() && rest.front() != ' ') {
            word += Part();
        }
        return word;
    }

private:
    std::string Part() {
        if (Take("$'")) {
            return Numbered();
        }
        if (Take("'")) {
            return std::string(UpTo('\''));
        }
        if (Take("\\'")) {
            return "'";
        }
        const std::string_view plain = rest.substr(0, 1);
        if (!IsPlainInShell(plain.front())) {
            throw UsageError(Search::Quote(plain) + " stands outside of apostrophes");
        }
        rest.remove_prefix(1);
        return std::string(plain);
    }

    // Behind "$'": bytes may be octal numbers.
    std::string Numbered() {
        std::string_view text = UpTo('\'');
        std::string bytes;
        while (!text.empty()) {
            const std::size_t mark = std::min(text.find('\\'), text.size());
            bytes += text.substr(0, mark);
            text.remove_prefix(mark);
            if (!text.empty()) {
                bytes += OctalByte(text.substr(1, 3));
                text.remove_prefix(4);
            }
        }
        return bytes;
    }

    static char OctalByte(std::string_view digits) {
        unsigned byte = 0;
        const char* const end = digits.data() + digits.size();
        const auto [stop, fault] = std::from_chars(digits.data(), end, byte, 8);
        if (digits.size() != 3 || fault != std::errc() || stop != end || byte > 0xFF) {
            throw UsageError("a backslash within $'...' needs three octal digits");
        }
        return static_cast<char>(static_cast<unsigned char>(byte));
    }

    bool Take(std::string_view start) {
        const bool taken = rest.starts_with(start);
        rest.remove_prefix(taken ? start.size() : 0);
        return taken;
    }

    std::string_view UpTo(char end) {
        const std::size_t at = rest.find(end);
        if (at == std::string_view::npos) {
            throw UsageError("an apostrophe is never closed");
        }
        const std::string_view text = rest.substr(0, at);
        rest.remove_prefix(at + 1);
        return text;
    }

    std::string_view rest;
};

GenerateOptions OptionsOf(const std::string& line) {
    std::vector<std::string> words = SplitCommandLine(line);
    if (words.size() < 2 || words[0] != "vaultry" || words[1] != "generate") {
        throw UsageError("it does not begin with vaultry generate");
    }
    words.erase(words.begin());
    const Request request = ParseArguments(words);
    const auto* const options = std::get_if<GenerateOptions>(&request);
    if (options == nullptr || !options->seed) {
        throw UsageError("it has no --seed");
    }
    return *options;
}

// The seed of a line that begins as those in tables do, taken off with all before it.
std::optional<std::uint32_t> TakeSeed(std::string_view& line) {
    if (!line.starts_with(kStart)) {
        return std::nullopt;
    }
    std::uint32_t seed = 0;
    const char* const end = line.data() + line.size();
    const auto [stop, fault] = std::from_chars(line.data() + kStart.size(), end, seed);
    if (fault != std::errc() || (stop != end && *stop != ' ')) {
        return std::nullopt;
    }
    line.remove_prefix(static_cast<std::size_t>(stop - line.data()));
    return seed;
}

} // namespace

std::vector<std::string> SplitCommandLine(std::string_view line) {
    WordReader reader(line);
    std::vector<std::string> words;
    while (std::optional<std::string> word = reader.Next()) {
        words.push_back(*std::move(word));
    }
    return words;
}

GenerateLines::Understood GenerateLines::Read(const std::string& line) {
    std::string_view behind = line;
    const std::optional<std::uint32_t> seed = TakeSeed(behind);
    if (known && seed && behind == read) {
        return {*seed, std::string(kStart) + std::to_string(*seed) + printed};
    }
    const GenerateOptions options = OptionsOf(line);
    const std::string whole = GenerateCommandLine(options, *options.seed);
    if (seed) {
        std::string_view words = whole;
        known = TakeSeed(words).has_value();
        read = behind;
        printed = words;
    }
    return {*options.seed, whole};
}

} // namespace Tarnex::Cli
