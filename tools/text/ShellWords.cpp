// SPDX-License-Identifier: MIT
#include "tools/text/ShellWords.h"

#include "tools/text/Quote.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>
#include <charconv>
#include <optional>

namespace Tarnex::Report {

namespace {

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
            return std::string(UpTo('\'', "an apostrophe"));
        }
        if (Take("\\'")) {
            return "'";
        }
        if (Take("\"")) {
            return Quoted();
        }
        const std::string_view plain = rest.substr(0, 1);
        if (!IsPlainInShell(plain.front())) {
            throw UsageError(Quote(plain) + " stands outside of quotation marks");
        }
        rest.remove_prefix(1);
        return std::string(plain);
    }

    // What shells would act upon between quotation marks is refused, an escape too.
    std::string Quoted() {
        std::string text(UpTo('"', "a quotation mark"));
        const std::size_t sign = text.find_first_of("$`!%");
        if (sign != std::string::npos) {
            throw UsageError(Quote(text.substr(sign, 1)) + " stands between quotation marks");
        }
        if (text.ends_with('\\') || text.find("\\\\") != std::string::npos) {
            throw UsageError("a backslash between quotation marks escapes what follows");
        }
        return text;
    }

    // Behind "$'": bytes may be octal numbers.
    std::string Numbered() {
        std::string_view text = UpTo('\'', "an apostrophe");
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

    std::string_view UpTo(char end, const char* name) {
        const std::size_t at = rest.find(end);
        if (at == std::string_view::npos) {
            throw UsageError(std::string(name) + " is never closed");
        }
        const std::string_view text = rest.substr(0, at);
        rest.remove_prefix(at + 1);
        return text;
    }

    std::string_view rest;
};

} // namespace

std::vector<std::string> SplitCommandLine(std::string_view line) {
    WordReader reader(line);
    std::vector<std::string> words;
    while (std::optional<std::string> word = reader.Next()) {
        words.push_back(*std::move(word));
    }
    return words;
}

} // namespace Tarnex::Report
