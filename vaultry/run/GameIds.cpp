// SPDX-License-Identifier: MIT
#include <vaultry/run/GameIds.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/CsvRows.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace Tarnex {

namespace {

struct RoleRow {
    const char* word;
    std::size_t longest; // id [bytes]
};

constexpr std::size_t kLongestId = 31;
constexpr std::size_t kLongestFile = 255;

// In the order of IdRole.
constexpr std::array<RoleRow, kIdRoles> kRoles = {{{"trap", kLongestId},
                                                   {"key-model", kLongestFile},
                                                   {"key-icon", kLongestFile},
                                                   {"outside-door", kLongestId}}};

constexpr std::uintmax_t kLargestTable = std::uintmax_t{1} << 20;

std::string RoleWords() {
    std::vector<std::string> words;
    words.reserve(kRoles.size());
    for (const RoleRow& role : kRoles) {
        words.emplace_back(role.word);
    }
    return JoinWords(words);
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t start = text.find_first_not_of(kBlanks);
    return start == std::string_view::npos
               ? std::string_view()
               : text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

class IdReader {
public:
    explicit IdReader(const std::string& tableName) : name(tableName) {}

    GameIds Read(std::string_view table) {
        const std::vector<CsvRow> rows = CsvRows(table);
        if (rows.empty()) {
            throw IdsError(Start() + "it is empty; its first line is " + kFirstLine);
        }
        line = rows.front().line;
        FindColumns(rows.front());
        std::for_each(rows.begin() + 1, rows.end(), [this](const CsvRow& row) { Take(row); });
        return std::move(ids);
    }

private:
    static constexpr const char* kFirstLine = "\"role,id,source\"";

    std::string Start() const { return "the ids \"" + name + "\": "; }

    [[noreturn]] void Fail(const std::string& why) const {
        throw IdsError("the ids \"" + name + "\", line " + std::to_string(line) + ": " + why);
    }

    void FindColumns(const CsvRow& row) {
        const auto find = [&](std::string_view column) {
            const auto found = std::ranges::find_if(
                row.cells, [column](const std::string& cell) { return Trimmed(cell) == column; });
            if (found == row.cells.end()) {
                Fail("there is no column \"" + std::string(column) + "\"; the first line is " +
                     kFirstLine);
            }
            return static_cast<std::size_t>(found - row.cells.begin());
        };
        roleColumn = find("role");
        idColumn = find("id");
        find("source");
    }

    void Take(const CsvRow& row) {
        line = row.line;
        if (!row.closed) {
            Fail("a quotation mark is not closed; inside of a cell it is written twice");
        }
        const auto cell = [&row](std::size_t column) {
            return Trimmed(column < row.cells.size() ? std::string_view(row.cells[column])
                                                     : std::string_view());
        };
        const std::string_view word = cell(roleColumn);
        const auto role = std::ranges::find_if(
            kRoles, [word](const RoleRow& known) { return EqualsNoCase(known.word, word); });
        if (role == kRoles.end()) {
            Fail('"' + std::string(word) + "\" is no role; there are " + RoleWords());
        }
        ids.Add(static_cast<IdRole>(role - kRoles.begin()), IdOf(cell(idColumn), *role));
    }

    std::string IdOf(std::string_view text, const RoleRow& role) const {
        if (text.empty()) {
            Fail(std::string("the ") + role.word + " has no id; give it one, or take the line out");
        }
        const std::vector<std::string> missing = MissingFromCodePage(text);
        if (!missing.empty()) {
            Fail('"' + std::string(text) +
                 "\" has letters that the game lacks: " + JoinWords(missing));
        }
        std::string id = FromUtf8(text);
        if (id.size() > role.longest) {
            Fail('"' + std::string(text) + "\" has " + std::to_string(id.size()) +
                 " bytes; the game takes " + std::to_string(role.longest));
        }
        return id;
    }

    const std::string& name;
    std::size_t line = 1;
    std::size_t roleColumn = 0;
    std::size_t idColumn = 0;
    GameIds ids;
};

[[noreturn]] void Refuse(const std::string& path, const char* why) {
    throw IdsError("the ids \"" + path + "\" " + why);
}

std::string TextAt(const std::string& path) try {
    namespace fs = std::filesystem;
    const fs::path file = PathFromUtf8(path);
    std::error_code fault;
    const fs::file_status status = fs::status(file, fault);
    if (!fs::exists(status)) {
        Refuse(path, "do not exist; --ids names a file");
    }
    // Nobody knows when a pipe ends.
    if (!fs::is_regular_file(status)) {
        Refuse(path,
               fs::is_directory(status) ? "are a folder; --ids names a file in it"
                                        : "are no ordinary file");
    }
    if (fs::file_size(file, fault) > kLargestTable) {
        Refuse(path, "are larger than 1 MiB and are not read");
    }
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream.is_open() || stream.bad()) {
        Refuse(path, "cannot be read");
    }
    return text.str();
} catch (const std::filesystem::filesystem_error&) {
    // Windows has no name for a path that is not UTF-8.
    Refuse(path, "do not exist; --ids names a file");
}

} // namespace

const char* WordOf(IdRole role) {
    return kRoles.at(static_cast<std::size_t>(role)).word;
}

GameIds ReadIds(std::string_view table, const std::string& name) {
    return IdReader(name).Read(table);
}

GameIds BuiltinIds() {
    return ReadIds(BuiltinIdTable(), "builtin");
}

GameIds LoadIds(const std::string& path) {
    const GameIds own = ReadIds(TextAt(path), path);
    const GameIds builtin = BuiltinIds();
    GameIds ids;
    for (std::size_t number = 0; number < kIdRoles; ++number) {
        const auto role = static_cast<IdRole>(number);
        for (const std::string& id : (own.Of(role).empty() ? builtin : own).Of(role)) {
            ids.Add(role, id);
        }
    }
    return ids;
}

} // namespace Tarnex
