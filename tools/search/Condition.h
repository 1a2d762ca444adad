// SPDX-License-Identifier: MIT
// Conditions on the facts of a dungeon.
#pragma once

#include "tools/facts/DungeonFacts.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Tarnex::Search {

/// A condition such as "rooms >= 12 and (walkable or not loops < 2)".
///
///   condition   = term { "or" term }
///   term        = factor { "and" factor }
///   factor      = "not" factor | "(" condition ")" | comparison
///   comparison  = fact | operand ( "<" | "<=" | ">" | ">=" | "=" | "==" | "!=" ) operand
///   operand     = fact | number
///
/// A fact by itself holds when it is not 0. Numbers are whole. Case does not matter.
class Condition {
public:
    /// How deep parentheses and "not" may nest.
    static constexpr int kDeepest = 100;

    /// Holds for every dungeon.
    Condition() = default;
    /// Throws UsageError, which tells the place of the mistake and what may have been meant; `name`
    /// is what its readers call the condition.
    explicit Condition(std::string_view text, std::string_view name = "--where");

    bool Holds(const Report::FactValues& values) const;

    /// The numbers of the facts that are asked for, each once, in order.
    const std::vector<std::size_t>& FactsUsed() const { return used; }

private:
    class Parser;

    enum class Sign : std::uint8_t { Less, LessEqual, Greater, GreaterEqual, Equal, NotEqual };
    enum class Act : std::uint8_t { Compare, Not, And, Or };

    struct Operand {
        bool isFact = false;
        std::size_t fact = 0;
        std::int64_t number = 0;
    };

    // Parts stand before what joins them, so that no recursion is needed to judge.
    struct Instruction {
        Act act = Act::Compare;
        Sign sign = Sign::Equal;
        Operand left{};
        Operand right{};
    };

    static std::int64_t ValueOf(const Operand& operand, const Report::FactValues& values);
    static bool Compare(const Instruction& comparison, const Report::FactValues& values);

    std::vector<Instruction> program;
    std::vector<std::size_t> used;
};

} // namespace Tarnex::Search
