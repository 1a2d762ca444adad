// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/MemoryBudget.h>

#include <xercesc/util/OutOfMemoryException.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>

namespace Tarnex::Test {

TEST(MemoryBudget, HandsOutMemoryThatCanHoldAnything) {
    MemoryBudget budget(1000);
    void* block = budget.allocate(100);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
    std::memset(block, 0x5A, 100);
    budget.deallocate(block);
}

TEST(MemoryBudget, RefusesWhatIsBeyondTheBudget) {
    MemoryBudget budget(1000);
    EXPECT_THROW(budget.allocate(1001), xercesc::OutOfMemoryException);
    EXPECT_THROW(budget.allocate(1000), xercesc::OutOfMemoryException);
    EXPECT_THROW(budget.allocate(std::numeric_limits<XMLSize_t>::max()),
                 xercesc::OutOfMemoryException);
}

TEST(MemoryBudget, CountsWhatIsHeldAtOneTime) {
    MemoryBudget budget(1000);
    void* first = budget.allocate(600);
    EXPECT_THROW(budget.allocate(600), xercesc::OutOfMemoryException);
    budget.deallocate(first);
    void* second = budget.allocate(600);
    EXPECT_NE(second, nullptr);
    budget.deallocate(second);
}

TEST(MemoryBudget, TakesBackNothing) {
    MemoryBudget budget(100);
    budget.deallocate(nullptr);
    EXPECT_THROW(budget.allocate(100), xercesc::OutOfMemoryException);
}

} // namespace Tarnex::Test
