// SPDX-License-Identifier: MIT
#include "tests/cli/Markdown.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <regex>

namespace Tarnex::Test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kFence = "```";
constexpr const char* kAnyLines = "...";

bool StartsWith(const std::string& text, const std::string& start) {
    return text.rfind(start, 0) == 0;
}

std::vector<std::string> LinesOf(const fs::path& path) {
    std::vector<std::string> lines;
    std::ifstream stream(path);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> JoinContinued(const std::vector<std::string>& lines) {
    std::vector<std::string> joined;
    bool continues = false;
    for (std::string line : lines) {
        const bool more = !line.empty() && line.back() == '\\';
        if (more) {
            line.pop_back();
        }
        if (continues) {
            joined.back() += line;
        } else {
            joined.push_back(line);
        }
        continues = more;
    }
    return joined;
}

// The name in the sentence `start`NAME`end; empty in other sentences.
std::string NameIn(const std::string& sentence, const std::string& start, const std::string& end) {
    const std::size_t before = sentence.find(start + '`');
    const std::size_t begin = before + start.size() + 1;
    const std::size_t after =
        before == std::string::npos ? before : sentence.find('`' + end, begin);
    return after == std::string::npos ? "" : sentence.substr(begin, after - begin);
}

// As sites that show Markdown name a heading: lower case, words joined by hyphens.
std::string AnchorOf(const std::string& heading) {
    std::string anchor;
    for (const char c : heading) {
        const auto letter = static_cast<unsigned char>(c);
        if (c == ' ') {
            anchor += '-';
        } else if (std::isalnum(letter) != 0 || c == '-' || c == '_' || letter >= 0x80) {
            anchor += static_cast<char>(std::tolower(letter));
        }
    }
    return anchor;
}

} // namespace

std::vector<std::string> CodeBlock::Commands() const {
    return JoinContinued(lines);
}

std::string CodeBlock::SavedName() const {
    return NameIn(before, "ave this as ", ":");
}

std::string CodeBlock::ExtendedName() const {
    return NameIn(before, "ut this into ", ", before its last line:");
}

std::string CodeBlock::Text() const {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

bool Session::Shows(const std::vector<std::string>& lines) const {
    auto expected = printed.begin();
    auto line = lines.begin();
    auto gap = printed.end(); // the last "..." met, which takes the lines up to `taken`
    auto taken = lines.begin();
    for (;;) {
        if (expected != printed.end() && *expected == kAnyLines) {
            gap = expected++;
            taken = line;
        } else if (line == lines.end()) {
            return expected == printed.end();
        } else if (expected != printed.end() && *expected == *line) {
            ++expected;
            ++line;
        } else if (gap != printed.end()) {
            // Giving an earlier gap more lines would only leave fewer for what stands behind it.
            expected = gap + 1;
            line = ++taken;
        } else {
            return false;
        }
    }
}

std::vector<Session> Sessions(const CodeBlock& block) {
    std::vector<Session> sessions;
    for (const std::string& line : JoinContinued(block.lines)) {
        if (StartsWith(line, "$ ")) {
            sessions.push_back({line.substr(2), {}});
        } else if (!sessions.empty()) {
            sessions.back().printed.push_back(line);
        }
    }
    return sessions;
}

std::string ProgramCommand(const std::string& line) {
    const std::string command = line.substr(0, std::min(line.find(" #"), line.find(" | ")));
    const std::string body = "; do vaultry ";
    if (const std::size_t loop = command.find(body); StartsWith(command, "for ")) {
        return loop == std::string::npos
                   ? ""
                   : command.substr(0, loop) + "; do \"" VAULTRY_PROGRAM "\" " +
                         command.substr(loop + body.size());
    }
    for (const std::string start : {"vaultry ", "scripts/run "}) {
        const bool named = StartsWith(command, start);
        if (named && command.find_first_not_of(' ', start.size()) != std::string::npos) {
            return "\"" VAULTRY_PROGRAM "\" " + command.substr(start.size());
        }
    }
    return {};
}

std::vector<CodeBlock> Page::Blocks() const {
    std::vector<CodeBlock> blocks;
    std::string before;
    bool inside = false;
    for (const std::string& line : LinesOf(path)) {
        if (StartsWith(line, kFence)) {
            inside = !inside;
            if (inside) {
                blocks.push_back({line.substr(3), before, {}});
                before.clear();
            }
        } else if (inside) {
            blocks.back().lines.push_back(line);
        } else if (!line.empty()) {
            before = line;
        }
    }
    return blocks;
}

std::vector<std::string> Page::Prose() const {
    std::vector<std::string> prose;
    bool inside = false;
    for (const std::string& line : LinesOf(path)) {
        if (StartsWith(line, kFence)) {
            inside = !inside;
        } else if (!inside) {
            prose.push_back(line);
        }
    }
    return prose;
}

std::vector<std::string> Page::Links() const {
    static const std::regex target(R"(\]\(([^()\s]+)\))");
    std::vector<std::string> links;
    for (const std::string& line : Prose()) {
        for (std::sregex_iterator match(line.begin(), line.end(), target), end; match != end;
             ++match) {
            links.push_back((*match)[1]);
        }
    }
    return links;
}

std::vector<std::string> Page::Anchors() const {
    std::vector<std::string> anchors;
    for (const std::string& line : Prose()) {
        const std::size_t level = line.find_first_not_of('#');
        if (level != std::string::npos && level > 0 && line[level] == ' ') {
            anchors.push_back(AnchorOf(line.substr(level + 1)));
        }
    }
    return anchors;
}

std::vector<Page> Pages() {
    const fs::path root = VAULTRY_SOURCE_DIR;
    std::vector<Page> pages = {{root / "README.md"}, {root / "CONTRIBUTING.md"}};
    for (const auto& entry : fs::directory_iterator(root / "docs")) {
        if (entry.path().extension() == ".md") {
            pages.push_back({entry.path()});
        }
    }
    std::ranges::sort(pages, {}, &Page::path);
    return pages;
}

} // namespace Tarnex::Test
