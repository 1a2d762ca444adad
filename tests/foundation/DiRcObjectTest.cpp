// SPDX-License-Identifier: MIT
#include <vaultry/foundation/DiPtr.h>
#include <vaultry/foundation/DiRcObject.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace Tarnex::Test {

namespace {

class Counted : public DiRcObject {
public:
    explicit Counted(int& destroyed_) : destroyed(&destroyed_) {}
    Counted(const Counted&) = default;
    Counted& operator=(const Counted&) = default;
    ~Counted() override { ++*destroyed; }

private:
    int* destroyed;
};

// Lives outside the heap, so it takes note of its end instead of being deleted.
class Resting : public DiRcObject {
public:
    int ends = 0;

protected:
    void RcObjectDestroy() override { ++ends; }
};

TEST(DiRcObjectTest, CannotBeMadeOrCopiedByItself) {
    static_assert(!std::is_default_constructible_v<DiRcObject>);
    static_assert(!std::is_copy_constructible_v<DiRcObject>);
    static_assert(!std::is_copy_assignable_v<DiRcObject>);
    static_assert(std::has_virtual_destructor_v<DiRcObject>);
    SUCCEED();
}

TEST(DiRcObjectTest, IsDestroyedWhenTheLastReferenceGoes) {
    int destroyed = 0;
    auto* object = new Counted(destroyed);
    object->addReference();
    object->addReference();
    object->removeReference();
    EXPECT_EQ(destroyed, 0);
    object->removeReference();
    EXPECT_EQ(destroyed, 1);
}

TEST(DiRcObjectTest, IsSharedFromTwoReferencesOn) {
    Resting object;
    EXPECT_FALSE(object.isShared());
    object.addReference();
    EXPECT_FALSE(object.isShared());
    object.addReference();
    EXPECT_TRUE(object.isShared());
    object.addReference();
    EXPECT_TRUE(object.isShared());
    object.removeReference();
    object.removeReference();
    EXPECT_FALSE(object.isShared());
}

TEST(DiRcObjectTest, ADerivedClassDecidesHowItEnds) {
    Resting object;
    object.addReference();
    EXPECT_EQ(object.ends, 0);
    object.removeReference();
    EXPECT_EQ(object.ends, 1);
}

TEST(DiRcObjectTest, ACopyStartsWithoutReferences) {
    Resting original;
    original.addReference();
    original.addReference();
    Resting copy(original);
    EXPECT_FALSE(copy.isShared());
    copy.addReference();
    EXPECT_FALSE(copy.isShared());
    copy.removeReference();
    EXPECT_EQ(copy.ends, 1);
    EXPECT_TRUE(original.isShared());
}

TEST(DiRcObjectTest, AssignmentLeavesTheCountOfTheTarget) {
    Resting source;
    source.addReference();
    source.addReference();
    source.addReference();
    Resting target;
    target.addReference();
    target = source;
    EXPECT_FALSE(target.isShared());
    target.removeReference();
    EXPECT_EQ(target.ends, 1);

    Resting shared;
    shared.addReference();
    shared.addReference();
    shared = Resting();
    EXPECT_TRUE(shared.isShared());
}

TEST(DiRcObjectTest, AConstObjectCanBeHeld) {
    int destroyed = 0;
    const Counted* object = new Counted(destroyed);
    object->addReference();
    object->removeReference();
    EXPECT_EQ(destroyed, 1);
}

} // namespace

} // namespace Tarnex::Test
