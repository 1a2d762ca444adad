// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/LoadBudget.h>
#include <vaultry/catalogue/ParserMemory.h>

#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

namespace Tarnex::Test {

namespace {

class ParserMemoryTest : public ::testing::Test {
protected:
    static constexpr std::size_t kMost = std::size_t{384} << 20;

    LoadBudget budget{nullptr};
    ParserMemory memory{budget};
};

} // namespace

TEST_F(ParserMemoryTest, HandsOutMemoryThatCanHoldAnything) {
    void* block = memory.allocate(100);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U);
    std::memset(block, 0x5A, 100);
    memory.deallocate(block);
}

TEST_F(ParserMemoryTest, RefusesWhatIsBeyondTheBudget) {
    EXPECT_THROW(memory.allocate(kMost), xercesc::OutOfMemoryException);
}

TEST_F(ParserMemoryTest, RefusesWhatCannotBe) {
    EXPECT_THROW(memory.allocate(std::numeric_limits<XMLSize_t>::max()),
                 xercesc::OutOfMemoryException);
}

TEST_F(ParserMemoryTest, CountsWhatIsHeldAtOneTime) {
    for (int i = 0; i < 10; ++i) {
        void* block = memory.allocate(kMost - 1000);
        memory.deallocate(block);
    }
    void* first = memory.allocate(kMost / 2);
    EXPECT_THROW(memory.allocate(kMost / 2), xercesc::OutOfMemoryException);
    memory.deallocate(first);
}

// With a sanitizer, a block that is freed twice ends the program.
TEST_F(ParserMemoryTest, FreesNothingTwiceAfterARefusal) {
    void* block = memory.allocate(100);
    memory.deallocate(block);
    EXPECT_THROW(memory.allocate(kMost), xercesc::OutOfMemoryException);
    memory.deallocate(block);
    EXPECT_NE(memory.allocate(100), nullptr);
}

// With a sanitizer, memory that is lost fails the program.
TEST_F(ParserMemoryTest, TakesBackWhatTheParserLoses) {
    void* first = memory.allocate(100);
    void* middle = memory.allocate(100);
    void* last = memory.allocate(100);
    memory.deallocate(middle);
    EXPECT_NE(first, last);
}

TEST_F(ParserMemoryTest, TakesBackNothing) {
    memory.deallocate(nullptr);
    EXPECT_TRUE(budget.Affords(LoadBudget::Of::Memory, kMost));
}

} // namespace Tarnex::Test
