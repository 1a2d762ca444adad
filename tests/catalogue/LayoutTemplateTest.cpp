// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/LayoutTemplate.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace Tarnex::Test {

namespace {

DiPtr<TemplateElmt> ElmtNamed(const char* tileName) {
    auto elmt = MakeDi<TemplateElmt>();
    elmt->tileNames.emplace_back(tileName);
    return elmt;
}

// An element that tells when it goes.
struct WatchedElmt : public TemplateElmt {
    explicit WatchedElmt(bool& gone_) : gone(gone_) {}
    ~WatchedElmt() override { gone = true; }

    bool& gone;
};

template <typename Access>
std::string OutOfRangeText(Access access) {
    try {
        access();
    } catch (const std::out_of_range& e) {
        return e.what();
    }
    return "(nothing thrown)";
}

} // namespace

TEST(TemplateElmt, StartsWithoutNames) {
    EXPECT_TRUE(TemplateElmt().tileNames.empty());
}

TEST(LayoutTemplate, StartsAsAGridOfEmptyCells) {
    LayoutTemplate layout(DiPos(3, 2, 0));
    EXPECT_EQ(layout.GetName(), "");
    EXPECT_EQ(layout.GetType(), "");
    EXPECT_EQ(layout.GetOffset(), Di3Point(0.0F, 0.0F, 0.0F));
    EXPECT_TRUE(layout.GetChildren().empty());
    EXPECT_EQ(layout.GetSize(), DiPos(3, 2, 0));
    EXPECT_EQ(layout.GetWidth(), 3U);
    EXPECT_EQ(layout.GetHeight(), 2U);
    for (std::uint32_t row = 0; row < 2; ++row) {
        ASSERT_EQ(layout.GetRow(row).size(), 3U);
        for (std::uint32_t col = 0; col < 3; ++col) {
            EXPECT_FALSE(layout.GetElmt(row, col));
        }
    }
}

TEST(LayoutTemplate, KeepsWhatIsSet) {
    LayoutTemplate layout(DiPos(1, 1, 0));
    layout.SetName("Hall");
    layout.SetType("Cave");
    layout.SetOffset(Di3Point(1.0F, 2.0F, 3.0F));
    EXPECT_EQ(layout.GetName(), "Hall");
    EXPECT_EQ(layout.GetType(), "Cave");
    EXPECT_EQ(layout.GetOffset(), Di3Point(1.0F, 2.0F, 3.0F));
}

TEST(LayoutTemplate, ASizeOfZeroIsAGridWithoutCells) {
    LayoutTemplate narrow(DiPos(0, 2, 0));
    EXPECT_EQ(narrow.GetHeight(), 2U);
    EXPECT_TRUE(narrow.GetRow(1).empty());
    const LayoutTemplate flat(DiPos(2, 0, 0));
    EXPECT_EQ(flat.GetWidth(), 2U);
    EXPECT_EQ(flat.GetHeight(), 0U);
}

TEST(LayoutTemplate, CellsAreAddressedRowFirst) {
    LayoutTemplate layout(DiPos(3, 2, 0));
    const DiPtr<TemplateElmt> elmt = ElmtNamed("WallN");
    layout.SetElmt(elmt, 1, 2);
    EXPECT_EQ(layout.GetElmt(1, 2), elmt);
    EXPECT_EQ(layout.GetRow(1)[2], elmt);
    EXPECT_FALSE(layout.GetElmt(0, 2));
    EXPECT_FALSE(layout.GetElmt(1, 1));
}

TEST(LayoutTemplate, ASecondElementReleasesTheFirst) {
    LayoutTemplate layout(DiPos(1, 1, 0));
    bool gone = false;
    layout.SetElmt(MakeDi<WatchedElmt>(gone), 0, 0);
    EXPECT_FALSE(gone);
    const DiPtr<TemplateElmt> second = ElmtNamed("WallS");
    layout.SetElmt(second, 0, 0);
    EXPECT_TRUE(gone);
    EXPECT_EQ(layout.GetElmt(0, 0), second);
}

TEST(LayoutTemplate, AColumnOutsideIsOutOfRange) {
    LayoutTemplate layout(DiPos(3, 2, 0));
    const DiPtr<TemplateElmt> elmt = ElmtNamed("WallN");
    constexpr const char* kText = "invalid vector<T> subscript";
    EXPECT_EQ(OutOfRangeText([&] { layout.GetElmt(0, 3); }), kText);
    EXPECT_EQ(OutOfRangeText([&] { layout.SetElmt(elmt, 0, 3); }), kText);
    EXPECT_EQ(OutOfRangeText([&] { layout.SetElmt(elmt, 1, -1); }), kText);
}

TEST(LayoutTemplate, ARowOutsideIsOutOfRangeToo) {
    LayoutTemplate layout(DiPos(3, 2, 0));
    EXPECT_THROW(layout.GetRow(2), std::out_of_range);
    EXPECT_THROW(layout.GetElmt(2, 0), std::out_of_range);
    EXPECT_THROW(layout.SetElmt(ElmtNamed("WallN"), -1, 0), std::out_of_range);
}

TEST(LayoutTemplate, ChildrenKeepTheirOrder) {
    LayoutTemplate layout(DiPos(1, 1, 0));
    const auto first = MakeDi<LayoutTemplate>(DiPos(1, 1, 0));
    const auto second = MakeDi<LayoutTemplate>(DiPos(2, 2, 0));
    layout.AddChild(first);
    layout.AddChild(second);
    ASSERT_EQ(layout.GetChildren().size(), 2U);
    EXPECT_EQ(layout.GetChildren()[0], first);
    EXPECT_EQ(layout.GetChildren()[1], second);
}

TEST(LayoutTemplate, AnEmptyChildIsIgnored) {
    LayoutTemplate layout(DiPos(1, 1, 0));
    layout.AddChild(nullptr);
    EXPECT_TRUE(layout.GetChildren().empty());
}

} // namespace Tarnex::Test
