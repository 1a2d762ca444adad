// SPDX-License-Identifier: MIT
// Conditions on the facts of a dungeon.
#pragma once

#include "tools/facts/DungeonFacts.h"

#include <cstdint>
#include <optional>
#include <string>
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

    /// The texts of the conditions that `and` joins, in their order: all of them must hold. What
    /// `or` divides is one by itself.
    const std::vector<std::string>& Parts() const { return parts; }

    /// The numbers of the facts that are asked for, each once, in order.
    const std::vector<std::size_t>& FactsUsed() const { return used; }

private:
    class Parser;

    enum class Act : std::uint8_t { Compare, Not, And, Or };

    struct Operand {
        std::optional<std::size_t> fact;
        std::int64_t number = 0;

        std::int64_t In(const Report::FactValues& values) const {
            return fact ? values.at(*fact) : number;
        }
    };

    // Parts stand before what joins them, so that no recursion is needed to judge.
    struct Instruction {
        Act act = Act::Compare;
        bool (*compare)(std::int64_t left, std::int64_t right) = nullptr;
        Operand left{};
        Operand right{};
    };

    std::vector<Instruction> program;
    std::vector<std::size_t> used;
    std::vector<std::string> parts;
};

} // namespace Tarnex::Search
