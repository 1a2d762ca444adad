// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigReader.h>
#include <vaultry/catalogue/LoadBudget.h>
#include <vaultry/foundation/JobStatus.h>

#include <xercesc/sax/SAXParseException.hpp>

#include <gtest/gtest.h>

#include <utility>

namespace Tarnex::Test {

namespace {

using Of = LoadBudget::Of;

class Canceled : public JobStatus {
public:
    bool HasBeenCanceled() const override { return canceled; }
    bool canceled = true;
};

// Exceptions of the parser need the parser's library.
class LoadBudgetTest : public ::testing::Test {
protected:
    LoadBudgetTest() { EXPECT_EQ(StartXmlParser(), ""); }
};

TEST_F(LoadBudgetTest, EveryLimitMayBeReachedButNotPassed) {
    for (int i = 0; i < static_cast<int>(Of::Kinds); ++i) {
        SCOPED_TRACE(i);
        const Of what = static_cast<Of>(i);
        const std::uint64_t most = LoadBudget::Most(what);
        LoadBudget budget(nullptr);
        EXPECT_NO_THROW(budget.Spend(what, most - 1));
        EXPECT_TRUE(budget.Affords(what, 1));
        EXPECT_FALSE(budget.Affords(what, 2));
        EXPECT_NO_THROW(budget.Spend(what));
        EXPECT_THROW(budget.Spend(what), xercesc::SAXParseException);
    }
}

TEST_F(LoadBudgetTest, WhatIsGivenBackMayBeSpentAgain) {
    LoadBudget budget(nullptr);
    budget.Spend(Of::Depth, LoadBudget::Most(Of::Depth));
    budget.GiveBack(Of::Depth);
    EXPECT_NO_THROW(budget.Spend(Of::Depth));
    EXPECT_THROW(budget.Spend(Of::Depth), xercesc::SAXParseException);
}

TEST_F(LoadBudgetTest, WhatIsOnlyCountedStopsWhereTheParserCanBeLeft) {
    LoadBudget budget(nullptr);
    EXPECT_NO_THROW(budget.Count(Of::Requests, LoadBudget::Most(Of::Requests)));
    EXPECT_NO_THROW(budget.Settle());
    EXPECT_NO_THROW(budget.Count(Of::Requests));
    EXPECT_THROW(budget.Settle(), xercesc::SAXParseException);
}

TEST_F(LoadBudgetTest, AsksAtEveryExpansionEveryHundredRequestsAndEveryThousandElements) {
    const Canceled status;
    const std::pair<Of, std::uint64_t> questions[] = {
        {Of::Expansions, 1}, {Of::Requests, 100}, {Of::Elements, 1000}, {Of::Attributes, 10'000}};
    for (const auto& [what, amount] : questions) {
        LoadBudget budget(&status);
        EXPECT_NO_THROW(budget.Spend(what, amount - 1));
        EXPECT_NO_THROW(budget.Count(what));
        EXPECT_THROW(budget.Settle(), LoadCanceled);
    }
}

TEST_F(LoadBudgetTest, WithoutAStatusNobodyIsAsked) {
    const LoadBudget budget(nullptr);
    EXPECT_NO_THROW(budget.Ask());
}

} // namespace

} // namespace Tarnex::Test
