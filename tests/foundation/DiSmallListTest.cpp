// SPDX-License-Identifier: MIT
#include <vaultry/foundation/DiSmallList.h>

#include <vaultry/foundation/DiRcObject.h>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

class DiSmallListTest : public ::testing::Test {
protected:
    // An object that takes note of its end.
    class Item : public DiRcObject {
    public:
        Item(std::vector<int>& ended_, int number_) : number(number_), ended(&ended_) {}
        ~Item() override { ended->push_back(number); }

        int number;

    private:
        std::vector<int>* ended;
    };

    using List = DiSmallList<Item, 3>;

    // A list of the numbers from 1 to `count`.
    List Make(int count) {
        List list;
        for (int number = 1; number <= count; ++number) {
            list.push_back(MakeDi<Item>(ended, number));
        }
        return list;
    }

    static std::vector<int> Numbers(const List& list) {
        std::vector<int> numbers;
        for (const DiPtr<Item>& item : list) {
            numbers.push_back(item->number);
        }
        return numbers;
    }

    std::vector<int> ended;
};

TEST_F(DiSmallListTest, StartsEmpty) {
    const List list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(list.begin(), list.end());
}

TEST_F(DiSmallListTest, KeepsItsOrderBelowAtAndBeyondTheRoomInPlace) {
    EXPECT_EQ(Numbers(Make(2)), (std::vector{1, 2}));
    EXPECT_EQ(Numbers(Make(3)), (std::vector{1, 2, 3}));
    EXPECT_EQ(Numbers(Make(4)), (std::vector{1, 2, 3, 4}));
    EXPECT_EQ(Numbers(Make(7)), (std::vector{1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(DiSmallListTest, GivesItsEndsAndItsMembers) {
    for (const int count : {1, 3, 4}) {
        const List list = Make(count);
        EXPECT_EQ(list.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(list.front()->number, 1);
        EXPECT_EQ(list.back()->number, count);
        EXPECT_EQ(list[static_cast<std::size_t>(count) - 1]->number, count);
    }
}

TEST_F(DiSmallListTest, HoldsEachObjectOnce) {
    for (const int count : {3, 4}) {
        const List list = Make(count);
        for (const DiPtr<Item>& item : list) {
            EXPECT_FALSE(item->isShared()) << item->number << " of " << count;
        }
    }
}

TEST_F(DiSmallListTest, ClearReleasesEveryObjectAtOnce) {
    for (const int count : {2, 3, 5}) {
        ended.clear();
        List list = Make(count);
        list.clear();
        EXPECT_EQ(ended.size(), static_cast<std::size_t>(count));
        EXPECT_TRUE(list.empty());
    }
}

TEST_F(DiSmallListTest, CanBeFilledAgainAfterClear) {
    List list = Make(5);
    list.clear();
    for (int number = 11; number <= 14; ++number) {
        list.push_back(MakeDi<Item>(ended, number));
    }
    EXPECT_EQ(Numbers(list), (std::vector{11, 12, 13, 14}));
}

TEST_F(DiSmallListTest, CopiesShareTheObjectsButNotTheList) {
    for (const int count : {2, 5}) {
        List original = Make(count);
        const List copy = original;
        EXPECT_EQ(copy.front(), original.front());
        EXPECT_TRUE(copy.front()->isShared());
        original.clear();
        EXPECT_EQ(copy.size(), static_cast<std::size_t>(count));
        EXPECT_FALSE(copy.front()->isShared());
    }
}

TEST_F(DiSmallListTest, MovingHandsTheObjectsOverAndLeavesNothing) {
    for (const int count : {2, 5}) {
        List source = Make(count);
        List target(std::move(source));
        EXPECT_EQ(target.size(), static_cast<std::size_t>(count));
        EXPECT_FALSE(target.front()->isShared());
        List second = Make(4);
        ended.clear();
        second = std::move(target);
        EXPECT_EQ(ended.size(), 4U);
        EXPECT_EQ(second.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(second.back()->number, count);
    }
}

} // namespace

} // namespace Tarnex::Test
