// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/LoadBudget.h>

#include <vaultry/foundation/JobStatus.h>

#include <xercesc/sax/SAXParseException.hpp>

#include <algorithm>
#include <string>
#include <string_view>

namespace Tarnex {

namespace {

using Of = LoadBudget::Of;

struct LimitRow {
    Of what;
    std::uint64_t most;
    std::uint64_t perQuestion; // whether the load is still wanted; 0 asks nothing
    std::string_view before;   // the number, in the message
    std::string_view after;
};

constexpr std::uint64_t kMaxText = 64'000'000;

// In the order of Of.
// Entities: a thousand of the longest hold as much text as a document may.
// Requests: the parser asks for memory some dozen times for a document of any length, and besides
// about six times for each reference to an entity, five for each new name of an element and nine
// for each attribute of one tag or declaration in the document type. Its tables are walked from end
// to end for names that are chosen to fall together, so many names would cost the square of their
// number.
// Memory: enough for the longest run of text with its copies.
constexpr std::array<LimitRow, static_cast<std::size_t>(Of::Kinds)> kLimits = {{
    {Of::Depth, 256, 0, "elements are nested more than ", " deep"},
    {Of::Namespaces, 256, 0, "more than ", " namespaces are declared at one place"},
    {Of::Elements, 2'000'000, 1000, "the document has more than ", " elements"},
    {Of::Attributes, 8'000'000, 10'000, "the document has more than ", " attributes"},
    {Of::AttributeText, kMaxText, 0, "the attributes hold more than ", " characters"},
    {Of::Text, kMaxText, 0, "the document holds more than ", " characters of text"},
    {Of::ListedNames, 2'000'000, 0, "the lists hold more than ", " names"},
    {Of::LayoutCells, 16'777'216, 0, "the layouts have more than ", " cells"},
    {Of::EntityText, kMaxText / 1000, 0, "an entity holds more than ", " characters"},
    {Of::Expansions, 1000, 1, "more than ", " references to entities are followed"},
    {Of::Requests,
     20'000,
     100,
     "the document has too many different names, attributes in one tag or declarations: they take "
     "more than ",
     " pieces of memory"},
    {Of::Memory, std::uint64_t{384} << 20, 0, "the parser needs more than ", " bytes of memory"},
}};

constexpr std::size_t Index(Of what) {
    return static_cast<std::size_t>(what);
}

} // namespace

std::uint64_t LoadBudget::Most(Of what) {
    return kLimits[Index(what)].most;
}

void LoadBudget::Count(Of what, std::uint64_t amount) {
    std::uint64_t& now = spent[Index(what)];
    const std::uint64_t before = now;
    now += amount;
    const std::uint64_t perQuestion = kLimits[Index(what)].perQuestion;
    mustAsk |= perQuestion != 0 && now / perQuestion != before / perQuestion;
}

void LoadBudget::GiveBack(Of what, std::uint64_t amount) {
    spent[Index(what)] -= amount;
}

bool LoadBudget::Affords(Of what, std::uint64_t amount) const {
    return spent[Index(what)] + amount <= Most(what);
}

void LoadBudget::Settle() {
    const auto passed = std::ranges::find_if_not(
        kLimits, [this](const LimitRow& row) { return Affords(row.what, 0); });
    if (passed != kLimits.end()) {
        Stop(std::string(passed->before) + std::to_string(passed->most) +
             std::string(passed->after));
    }
    if (mustAsk) {
        mustAsk = false;
        Ask();
    }
}

void LoadBudget::Spend(Of what, std::uint64_t amount) {
    Count(what, amount);
    Settle();
}

void LoadBudget::Stop(const std::string& message) const {
    const std::u16string wide(message.begin(), message.end());
    if (place == nullptr) {
        throw xercesc::SAXParseException(wide.c_str(), u"", u"", 0, 0);
    }
    throw xercesc::SAXParseException(wide.c_str(), *place);
}

void LoadBudget::Ask() const {
    if (status != nullptr && status->HasBeenCanceled()) {
        throw LoadCanceled();
    }
}

} // namespace Tarnex
