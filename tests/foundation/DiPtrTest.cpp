// SPDX-License-Identifier: MIT
#include <vaultry/foundation/DiPtr.h>
#include <vaultry/foundation/DiRcObject.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

namespace Tarnex::Test {

namespace {

class DiPtrTest : public ::testing::Test {
protected:
    // An object of a chain that takes note of its end.
    class Link : public DiRcObject {
    public:
        Link(std::vector<int>& ended_, int number_) : number(number_), ended(&ended_) {}
        ~Link() override { ended->push_back(number); }

        int number;
        DiPtr<Link> next;

    private:
        std::vector<int>* ended;
    };

    class LastLink : public Link {
    public:
        using Link::Link;
    };

    DiPtr<Link> Make(int number) { return MakeDi<Link>(ended, number); }
    bool Ended(int number) const { return ended == std::vector<int>{number}; }

    std::vector<int> ended;
};

TEST_F(DiPtrTest, StartsNull) {
    const DiPtr<Link> handle;
    EXPECT_FALSE(handle);
    EXPECT_EQ(handle.get(), nullptr);
    EXPECT_TRUE(handle == nullptr);
    EXPECT_TRUE(DiPtr<Link>(nullptr) == handle);
    EXPECT_TRUE(DiPtr<Link>(static_cast<Link*>(nullptr)) == handle);
}

TEST_F(DiPtrTest, DestroysTheObjectExactlyWhenReset) {
    DiPtr<Link> handle(new Link(ended, 1));
    EXPECT_TRUE(ended.empty());
    handle = nullptr;
    EXPECT_TRUE(Ended(1));
    EXPECT_FALSE(handle);
}

TEST_F(DiPtrTest, DestroysTheObjectExactlyWhenItsOnlyHandleGoes) {
    {
        const DiPtr<Link> handle(new Link(ended, 1));
        EXPECT_TRUE(ended.empty());
    }
    EXPECT_TRUE(Ended(1));
}

TEST_F(DiPtrTest, TheObjectLivesAsLongAsOneHandle) {
    DiPtr<Link> first = Make(1);
    DiPtr<Link> second = first;
    first = nullptr;
    EXPECT_TRUE(ended.empty());
    EXPECT_EQ(second->number, 1);
    second = nullptr;
    EXPECT_TRUE(Ended(1));
}

TEST_F(DiPtrTest, ARawPointerIsSharedWithTheHandlesThatExist) {
    DiPtr<Link> first = Make(1);
    DiPtr<Link> second(first.get());
    EXPECT_TRUE(first->isShared());
    first = nullptr;
    EXPECT_TRUE(ended.empty());
    EXPECT_FALSE(second->isShared());
}

TEST_F(DiPtrTest, CopyConstructionTakesAReference) {
    const DiPtr<Link> first = Make(1);
    EXPECT_FALSE(first->isShared());
    {
        const DiPtr<Link> second(first);
        EXPECT_TRUE(first->isShared());
    }
    EXPECT_FALSE(first->isShared());
}

TEST_F(DiPtrTest, AssignmentReleasesTheOldObjectAndSharesTheNew) {
    DiPtr<Link> handle = Make(1);
    const DiPtr<Link> other = Make(2);
    handle = other;
    EXPECT_TRUE(Ended(1));
    EXPECT_EQ(handle, other);
    EXPECT_TRUE(other->isShared());
}

TEST_F(DiPtrTest, AssignmentFromARawPointerReleasesTheOldObject) {
    DiPtr<Link> handle = Make(1);
    handle = new Link(ended, 2);
    EXPECT_TRUE(Ended(1));
    EXPECT_EQ(handle->number, 2);
    EXPECT_FALSE(handle->isShared());
}

TEST_F(DiPtrTest, SelfAssignmentKeepsTheObject) {
    DiPtr<Link> handle = Make(1);
    const DiPtr<Link>& self = handle;
    handle = self;
    EXPECT_TRUE(ended.empty());
    EXPECT_FALSE(handle->isShared());
    handle = handle.get();
    EXPECT_TRUE(ended.empty());
    EXPECT_FALSE(handle->isShared());
}

TEST_F(DiPtrTest, SelfMoveKeepsTheObject) {
    DiPtr<Link> handle = Make(1);
    DiPtr<Link>& self = handle;
    handle = std::move(self);
    EXPECT_TRUE(ended.empty());
    ASSERT_TRUE(handle);
    EXPECT_EQ(handle->number, 1);
}

TEST_F(DiPtrTest, AssigningAHandleOfTheSameObjectChangesNoCount) {
    DiPtr<Link> first = Make(1);
    DiPtr<Link> second = first;
    first = second;
    EXPECT_TRUE(first->isShared());
    second = nullptr;
    EXPECT_FALSE(first->isShared());
    EXPECT_TRUE(ended.empty());
}

TEST_F(DiPtrTest, CanBeSetToWhatItsOwnObjectHolds) {
    DiPtr<Link> handle = Make(1);
    handle->next = Make(2);
    handle->next->next = Make(3);
    handle = handle->next;
    EXPECT_TRUE(Ended(1));
    ASSERT_TRUE(handle);
    EXPECT_EQ(handle->number, 2);
    EXPECT_FALSE(handle->isShared());
    handle = handle->next.get();
    EXPECT_EQ(ended, (std::vector<int>{1, 2}));
    EXPECT_EQ(handle->number, 3);
    handle = handle->next;
    EXPECT_FALSE(handle);
    EXPECT_EQ(ended, (std::vector<int>{1, 2, 3}));
}

TEST_F(DiPtrTest, CanTakeOverWhatItsOwnObjectHolds) {
    DiPtr<Link> handle = Make(1);
    handle->next = Make(2);
    handle = std::move(handle->next);
    EXPECT_TRUE(Ended(1));
    ASSERT_TRUE(handle);
    EXPECT_EQ(handle->number, 2);
}

TEST_F(DiPtrTest, MovingHandsTheReferenceOver) {
    static_assert(std::is_nothrow_move_constructible_v<DiPtr<Link>>);
    static_assert(std::is_nothrow_move_assignable_v<DiPtr<Link>>);
    DiPtr<Link> first = Make(1);
    const Link* object = first.get();
    DiPtr<Link> second(std::move(first));
    EXPECT_EQ(second.get(), object);
    EXPECT_FALSE(second->isShared());
    EXPECT_TRUE(ended.empty());

    DiPtr<Link> third = Make(2);
    third = std::move(second);
    EXPECT_TRUE(Ended(2));
    EXPECT_EQ(third.get(), object);
    EXPECT_FALSE(third->isShared());
}

TEST_F(DiPtrTest, CopyingTheObjectDoesNotCopyItsCount) {
    DiPtr<Link> original = Make(1);
    const DiPtr<Link> second = original;
    DiPtr<Link> copy = MakeDi<Link>(*original);
    EXPECT_FALSE(copy->isShared());
    copy = nullptr;
    EXPECT_TRUE(Ended(1));
    EXPECT_TRUE(original->isShared());
}

TEST_F(DiPtrTest, HandlesCompareByPointer) {
    const DiPtr<Link> first = Make(1);
    const DiPtr<Link> same = first;
    const DiPtr<Link> twin = Make(1);
    EXPECT_TRUE(first == same);
    EXPECT_FALSE(first != same);
    EXPECT_FALSE(first == twin);
    EXPECT_TRUE(first != twin);
    EXPECT_TRUE(first != nullptr);
    EXPECT_TRUE(nullptr != first);
    EXPECT_TRUE(first);
}

TEST_F(DiPtrTest, DereferencesTheObject) {
    const DiPtr<Link> handle = Make(7);
    EXPECT_EQ(handle->number, 7);
    EXPECT_EQ((*handle).number, 7);
    EXPECT_EQ(&*handle, handle.get());
}

TEST_F(DiPtrTest, AHandleOfADerivedObjectConvertsToItsBase) {
    DiPtr<LastLink> derived = MakeDi<LastLink>(ended, 1);
    DiPtr<Link> base = derived;
    EXPECT_EQ(base.get(), derived.get());
    EXPECT_TRUE(derived->isShared());
    derived = nullptr;
    EXPECT_TRUE(ended.empty());
    base = MakeDi<LastLink>(ended, 2);
    EXPECT_TRUE(Ended(1));
    EXPECT_EQ(base->number, 2);
}

TEST_F(DiPtrTest, AListReleasesItsObjectsWhenCleared) {
    std::vector<DiPtr<Link>> list;
    for (int number = 1; number <= 20; ++number) {
        list.push_back(Make(number));
    }
    EXPECT_TRUE(ended.empty());
    const DiPtr<Link> kept = list[4];
    list.clear();
    EXPECT_EQ(ended.size(), 19U);
    EXPECT_EQ(kept->number, 5);
}

} // namespace

} // namespace Tarnex::Test
