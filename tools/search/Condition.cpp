// SPDX-License-Identifier: MIT
#include "tools/search/Condition.h"

#include "tools/search/FactOffer.h"
#include "tools/text/Quote.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <utility>

namespace Tarnex::Search {

namespace {

// Not those of the standard library, which depend on the locale.
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

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

enum class Kind { End, Word, Number, Sign, Open, Close, Other };

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
    if (IsInSign(first)) {
        return Kind::Sign;
    }
    return first == '(' ? Kind::Open : first == ')' ? Kind::Close : Kind::Other;
}

class Scanner {
public:
    Scanner(std::string_view condition, std::string_view conditionName)
        : text(condition), name(conditionName) {
        Next();
    }

    const Token& Current() const { return token; }

    void Next() {
        while (place < text.size() && IsBlank(text[place])) {
            ++place;
        }
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

private:
    std::string_view text;
    std::string_view name;
    std::size_t place = 0;
    Token token;
};

// What stands there, for messages.
std::string Named(const Token& token) {
    return token.kind == Kind::End ? std::string("the end") : Report::Quote(token.text);
}

} // namespace

class Condition::Parser {
public:
    Parser(Condition& target, std::string_view text, std::string_view name)
        : condition(target), scanner(text, name) {}

    void Parse() {
        ParseOr();
        if (scanner.Current().kind == Kind::Sign) {
            scanner.Refuse(scanner.Current(),
                           "a comparison has two sides; join comparisons with \"and\"");
        }
        if (scanner.Current().kind != Kind::End) {
            scanner.Refuse(scanner.Current(),
                           "\"and\", \"or\" or the end is expected, not " +
                               Named(scanner.Current()));
        }
    }

private:
    bool IsKeyword(std::string_view keyword) const {
        return scanner.Current().kind == Kind::Word &&
               EqualsNoCase(scanner.Current().text, keyword);
    }

    bool Accept(std::string_view keyword) {
        const bool there = IsKeyword(keyword);
        if (there) {
            scanner.Next();
        }
        return there;
    }

    void Add(const Instruction& instruction) { condition.program.push_back(instruction); }

    void ParseOr() {
        ParseAnd();
        while (Accept("or")) {
            ParseAnd();
            Add({Act::Or});
        }
    }

    void ParseAnd() {
        ParseFactor();
        while (Accept("and")) {
            ParseFactor();
            Add({Act::And});
        }
    }

    void ParseFactor() {
        const Token start = scanner.Current();
        if (Accept("not")) {
            Enter(start);
            ParseFactor();
            Add({Act::Not});
            --depth;
        } else if (start.kind == Kind::Open) {
            scanner.Next();
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
            scanner.Refuse(at, "nested more than " + std::to_string(kDeepest) + " deep");
        }
    }

    void Close(const Token& opening) {
        if (scanner.Current().kind == Kind::End) {
            scanner.Refuse(opening, "this \"(\" is never closed");
        }
        if (scanner.Current().kind != Kind::Close) {
            scanner.Refuse(scanner.Current(),
                           "\"and\", \"or\" or \")\" is expected, not " + Named(scanner.Current()));
        }
        scanner.Next();
    }

    void ParseComparison() {
        const Token start = scanner.Current();
        Instruction comparison;
        comparison.left = ParseOperand();
        if (scanner.Current().kind == Kind::Sign) {
            comparison.sign = ParseSign();
            comparison.right = ParseOperand();
        } else if (comparison.left.isFact) {
            comparison.sign = Sign::NotEqual;
        } else {
            scanner.Refuse(start, "a number must be compared with something");
        }
        Add(comparison);
    }

    Sign ParseSign() {
        constexpr std::array<std::pair<std::string_view, Sign>, 7> kSigns = {
            {{"<", Sign::Less},
             {"<=", Sign::LessEqual},
             {">", Sign::Greater},
             {">=", Sign::GreaterEqual},
             {"=", Sign::Equal},
             {"==", Sign::Equal},
             {"!=", Sign::NotEqual}}};
        const Token token = scanner.Current();
        const auto* const found =
            std::ranges::find(kSigns, token.text, &std::pair<std::string_view, Sign>::first);
        if (found == kSigns.end()) {
            scanner.Refuse(token,
                           Report::Quote(token.text) +
                               " is none of < <= > >= = !=; for \"not\" write not");
        }
        scanner.Next();
        return found->second;
    }

    Operand ParseOperand() {
        const Token token = scanner.Current();
        if (token.kind == Kind::Number) {
            scanner.Next();
            return {false, 0, ParseNumber(token)};
        }
        if (token.kind == Kind::Word && !IsKeyword("and") && !IsKeyword("or") &&
            !IsKeyword("not")) {
            scanner.Next();
            return {true, ParseFact(token), 0};
        }
        scanner.Refuse(token, "a fact or a number is expected, not " + Named(token));
    }

    std::int64_t ParseNumber(const Token& token) const {
        std::int64_t number = 0;
        const char* const end = token.text.data() + token.text.size();
        const auto [stop, fault] = std::from_chars(token.text.data(), end, number);
        if (fault == std::errc::result_out_of_range) {
            scanner.Refuse(token, Report::Quote(token.text) + " is too large");
        }
        if (fault != std::errc() || stop != end) {
            scanner.Refuse(token, Report::Quote(token.text) + " is no whole number");
        }
        return number;
    }

    std::size_t ParseFact(const Token& token) {
        const std::optional<std::size_t> fact = Report::FindFact(token.text);
        if (!fact) {
            scanner.Refuse(token, NoFact(token.text));
        }
        if (std::ranges::find(condition.used, *fact) == condition.used.end()) {
            condition.used.push_back(*fact);
        }
        return *fact;
    }

    Condition& condition;
    Scanner scanner;
    int depth = 0;
};

Condition::Condition(std::string_view text, std::string_view name) {
    Parser(*this, text, name).Parse();
}

std::int64_t Condition::ValueOf(const Operand& operand, const Report::FactValues& values) {
    return operand.isFact ? values.at(operand.fact) : operand.number;
}

bool Condition::Compare(const Instruction& comparison, const Report::FactValues& values) {
    const std::int64_t left = ValueOf(comparison.left, values);
    const std::int64_t right = ValueOf(comparison.right, values);
    switch (comparison.sign) {
    case Sign::Less:
        return left < right;
    case Sign::LessEqual:
        return left <= right;
    case Sign::Greater:
        return left > right;
    case Sign::GreaterEqual:
        return left >= right;
    case Sign::Equal:
        return left == right;
    case Sign::NotEqual:
        return left != right;
    }
    return false;
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
            results.push_back(Compare(instruction, values));
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
