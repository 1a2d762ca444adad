// SPDX-License-Identifier: MIT
#include "tools/search/Condition.h"

#include "tools/text/Quote.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace Tarnex::Search {

namespace {

// Not those of the standard library, which depend on the locale.
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsInWord(char c) {
    return IsLetter(c) || IsDigit(c) || c == '-' || c == '_' || c == '.';
}

bool IsInSign(char c) {
    return c == '<' || c == '>' || c == '=' || c == '!';
}

enum class Kind { End, Word, Number, Sign, Other };

struct Token {
    Kind kind = Kind::End;
    std::string_view text;
    std::size_t place = 0; // from 0
};

// The first character whole, or the longest run of what belongs together.
std::size_t LengthOf(std::string_view rest) {
    const auto run = [rest](auto belongs) {
        return static_cast<std::size_t>(std::ranges::find_if_not(rest, belongs) - rest.begin());
    };
    if (IsInWord(rest.front())) {
        return run(IsInWord);
    }
    if (IsInSign(rest.front())) {
        return run(IsInSign);
    }
    const auto goesOn = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    std::size_t length = 1;
    while (length < rest.size() && goesOn(rest[length])) {
        ++length;
    }
    return length;
}

Kind KindOf(std::string_view token) {
    const char first = token.front();
    if (IsLetter(first) || first == '_') {
        return Kind::Word;
    }
    if (IsInWord(first)) {
        return Kind::Number;
    }
    return IsInSign(first) ? Kind::Sign : Kind::Other;
}

// What stands there, for messages.
std::string Named(const Token& token) {
    return token.kind == Kind::End ? std::string("the end") : Report::Quote(token.text);
}

template <typename Relation>
bool Holding(std::int64_t left, std::int64_t right) {
    return Relation()(left, right);
}

using Comparison = bool (*)(std::int64_t left, std::int64_t right);

constexpr std::array<std::pair<std::string_view, Comparison>, 7> kSigns = {
    {{"<", Holding<std::less<>>},
     {"<=", Holding<std::less_equal<>>},
     {">", Holding<std::greater<>>},
     {">=", Holding<std::greater_equal<>>},
     {"=", Holding<std::equal_to<>>},
     {"==", Holding<std::equal_to<>>},
     {"!=", Holding<std::not_equal_to<>>}}};

} // namespace

class Condition::Parser {
public:
    Parser(Condition& target, std::string_view condition_, std::string_view conditionName)
        : condition(target), text(condition_), name(conditionName) {
        Next();
        first = part = token.place;
    }

    void Parse() {
        ParseOr();
        if (token.kind == Kind::Sign) {
            Refuse(token, "a comparison has two sides; join comparisons with \"and\"");
        }
        if (token.kind != Kind::End) {
            Refuse(token, "\"and\", \"or\" or the end is expected, not " + Named(token));
        }
        EndPart();
        if (divided) {
            condition.parts = {std::string(text.substr(first, end - first))};
        }
    }

private:
    void Next() {
        end = place;
        place = std::min(text.find_first_not_of(" \t\n\r", place), text.size());
        token = {Kind::End, {}, place};
        if (place < text.size()) {
            token.text = text.substr(place, LengthOf(text.substr(place)));
            token.kind = KindOf(token.text);
            place += token.text.size();
        }
    }

    // Characters are counted, not bytes.
    [[noreturn]] void Refuse(const Token& at, const std::string& what) const {
        const std::string_view before = text.substr(0, at.place);
        const auto characters = std::ranges::count_if(
            before, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; });
        throw UsageError(std::string(name) + ", position " + std::to_string(characters + 1) + ": " +
                         what);
    }

    bool Is(std::string_view keyword) const { return EqualsNoCase(token.text, keyword); }

    bool Accept(std::string_view keyword) {
        const bool there = Is(keyword);
        if (there) {
            Next();
        }
        return there;
    }

    void Add(const Instruction& instruction) { condition.program.push_back(instruction); }

    // The part before the token is whole.
    void EndPart() {
        if (depth == 0) {
            condition.parts.emplace_back(text.substr(part, end - part));
        }
    }

    void ParseOr() {
        ParseAnd();
        while (Accept("or")) {
            divided = divided || depth == 0;
            ParseAnd();
            Add({Act::Or});
        }
    }

    void ParseAnd() {
        ParseFactor();
        while (Is("and")) {
            EndPart();
            Next();
            part = depth == 0 ? token.place : part;
            ParseFactor();
            Add({Act::And});
        }
    }

    void ParseFactor() {
        const Token start = token;
        if (Accept("not")) {
            Enter(start);
            ParseFactor();
            Add({Act::Not});
            --depth;
        } else if (Accept("(")) {
            Enter(start);
            ParseOr();
            Close(start);
            --depth;
        } else {
            ParseComparison();
        }
    }

    void Enter(const Token& at) {
        if (++depth > kDeepest) {
            Refuse(at, "nested more than " + std::to_string(kDeepest) + " deep");
        }
    }

    void Close(const Token& opening) {
        if (token.kind == Kind::End) {
            Refuse(opening, "this \"(\" is never closed");
        }
        if (!Accept(")")) {
            Refuse(token, "\"and\", \"or\" or \")\" is expected, not " + Named(token));
        }
    }

    void ParseComparison() {
        const Token start = token;
        const Operand left = ParseOperand();
        if (token.kind == Kind::Sign) {
            const Comparison compare = ParseSign();
            Add({Act::Compare, compare, left, ParseOperand()});
        } else if (left.fact) {
            Add({Act::Compare, Holding<std::not_equal_to<>>, left});
        } else {
            Refuse(start, "a number must be compared with something");
        }
    }

    Comparison ParseSign() {
        const auto* const found =
            std::ranges::find(kSigns, token.text, [](const auto& row) { return row.first; });
        if (found == kSigns.end()) {
            Refuse(token,
                   Report::Quote(token.text) + " is none of < <= > >= = !=; for \"not\" write not");
        }
        Next();
        return found->second;
    }

    Operand ParseOperand() {
        const Token start = token;
        if (start.kind == Kind::Number) {
            Next();
            return {std::nullopt, ParseNumber(start)};
        }
        if (start.kind == Kind::Word && !Is("and") && !Is("or") && !Is("not")) {
            Next();
            return {ParseFact(start)};
        }
        Refuse(start, "a fact or a number is expected, not " + Named(start));
    }

    std::int64_t ParseNumber(const Token& at) const {
        std::int64_t number = 0;
        const char* const end = at.text.data() + at.text.size();
        const auto [stop, fault] = std::from_chars(at.text.data(), end, number);
        if (fault == std::errc::result_out_of_range) {
            Refuse(at, Report::Quote(at.text) + " is too large");
        }
        if (fault != std::errc() || stop != end) {
            Refuse(at, Report::Quote(at.text) + " is no whole number");
        }
        return number;
    }

    std::size_t ParseFact(const Token& at) {
        const std::optional<std::size_t> fact = Report::FindFact(at.text);
        if (!fact) {
            Refuse(at, Report::NoFact(at.text));
        }
        if (std::ranges::find(condition.used, *fact) == condition.used.end()) {
            condition.used.push_back(*fact);
        }
        return *fact;
    }

    Condition& condition;
    std::string_view text;
    std::string_view name;
    std::size_t place = 0; // behind the token
    Token token;
    std::size_t end = 0;   // of what stands before the token, blanks left out
    std::size_t first = 0; // of all tokens,
    std::size_t part = 0;  // of those of the part
    bool divided = false;  // by an "or" outside of parentheses
    int depth = 0;
};

Condition::Condition(std::string_view text, std::string_view name) {
    Parser(*this, text, name).Parse();
}

bool Condition::Holds(const Report::FactValues& values) const {
    std::vector<bool> results;
    const auto take = [&results] {
        const bool result = results.back();
        results.pop_back();
        return result;
    };
    for (const Instruction& instruction : program) {
        if (instruction.act == Act::Compare) {
            results.push_back(
                instruction.compare(instruction.left.In(values), instruction.right.In(values)));
            continue;
        }
        const bool last = take();
        if (instruction.act == Act::Not) {
            results.push_back(!last);
            continue;
        }
        const bool first = take();
        results.push_back(instruction.act == Act::And ? first && last : first || last);
    }
    return program.empty() || results.back();
}

} // namespace Tarnex::Search
