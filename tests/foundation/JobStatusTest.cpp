// SPDX-License-Identifier: MIT
#include <vaultry/foundation/JobStatus.h>

#include <gtest/gtest.h>

#include <utility>

namespace Tarnex::Test {

namespace {

// A front end that cancels after two steps.
class ImpatientFrontEnd : public JobStatus {
public:
    bool HasBeenCanceled() const override { return GetPos() >= 2; }
    void SetText(const std::string& newText) override { text = newText; }

    std::string text;
};

TEST(JobStatusTest, StartsAtZero) {
    const JobStatus status;
    EXPECT_EQ(status.GetPos(), 0);
}

TEST(JobStatusTest, SetPosSetsThePosition) {
    JobStatus status;
    status.SetPos(42);
    EXPECT_EQ(status.GetPos(), 42);
    status.SetPos(-7);
    EXPECT_EQ(status.GetPos(), -7);
}

TEST(JobStatusTest, StepItAddsOne) {
    JobStatus status;
    status.StepIt();
    EXPECT_EQ(status.GetPos(), 1);
    status.SetPos(10);
    status.StepIt();
    status.StepIt();
    EXPECT_EQ(status.GetPos(), 12);
}

TEST(JobStatusTest, HasNoRangeOfItsOwn) {
    JobStatus status;
    EXPECT_EQ(status.GetRange(), std::make_pair(0, 0));
    status.SetRange(5, 100);
    EXPECT_EQ(status.GetRange(), std::make_pair(0, 0));
    EXPECT_EQ(status.GetPos(), 0);
}

TEST(JobStatusTest, SetTextChangesNothing) {
    JobStatus status;
    status.SetPos(3);
    status.SetText("Generating Layouts");
    EXPECT_EQ(status.GetPos(), 3);
    EXPECT_FALSE(status.HasBeenCanceled());
}

TEST(JobStatusTest, IsNeverCanceledByItself) {
    JobStatus status;
    EXPECT_FALSE(status.HasBeenCanceled());
    status.SetPos(1000000);
    EXPECT_FALSE(status.HasBeenCanceled());
}

TEST(JobStatusTest, AFrontEndOverridesWhatItNeeds) {
    ImpatientFrontEnd frontEnd;
    JobStatus& status = frontEnd;
    status.StepIt();
    EXPECT_FALSE(status.HasBeenCanceled());
    status.StepIt();
    EXPECT_TRUE(status.HasBeenCanceled());
    status.SetText("Adding Content");
    EXPECT_EQ(frontEnd.text, "Adding Content");
}

} // namespace

} // namespace Tarnex::Test
