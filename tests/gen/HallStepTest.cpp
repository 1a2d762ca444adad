// SPDX-License-Identifier: MIT
#include <vaultry/gen/HallStep.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace Tarnex::Test {

namespace {

// Everything a choice depends on, distances and steps each apart.
struct Case {
    TileDirT current = DirNone;
    int stepX = 0;
    int stepY = 0;
    int distX = 0;
    int distY = 0;
    int prevX = 0;
    int prevY = 0;
    CvtAction action = CvtNone;
    std::uint32_t blocked = 0;
};

std::string Text(std::string_view tile, int stepX, int stepY, CvtAction action) {
    constexpr std::array<const char*, 3> kActions = {"none", "corner", "four-way"};
    return (tile.empty() ? "no tile" : std::string(tile)) + " (" + std::to_string(stepX) + "," +
           std::to_string(stepY) + ") " + kActions[static_cast<std::size_t>(action)];
}

std::string Choose(const Case& c) {
    DiDirection wanted;
    wanted.stepX = c.stepX;
    wanted.stepY = c.stepY;
    wanted.distX = c.distX;
    wanted.distY = c.distY;
    const HallChoice choice =
        ChooseStep(c.current, wanted, DiPos(c.prevX, c.prevY, 0), c.action, c.blocked);
    return Text(choice.tile.Name(), choice.step.x, choice.step.y, choice.action);
}

// One line of the rules; the first that fits decides.
struct Rule {
    std::vector<TileDirT> pieces;
    bool (*fits)(const Case& c);
    const char* tile;
    int stepX;
    int stepY;
    bool becomesFourWay = false;
};

bool Vertical(const Case& c) {
    return c.stepX == 0;
}

bool Horizontal(const Case& c) {
    return !Vertical(c);
}

bool Fixed(const Case& c) {
    return c.action == CvtNone;
}

bool Crossed(const Case& c) {
    return c.action == CvtFourWay;
}

bool Undone(const Case& c) {
    return c.blocked >= 4;
}

bool Always(const Case& /*c*/) {
    return true;
}

bool IsEither(TileDirT piece, TileDirT first, TileDirT second) {
    return piece == first || piece == second;
}

const std::vector<TileDirT> kNorthSouth = {DirN, DirS, DirNS};
const std::vector<TileDirT> kEastWest = {DirE, DirW, DirEW};
const std::vector<TileDirT> kCorner = {DirNW, DirNE, DirSW, DirSE};

// clang-format off
const std::vector<Rule> kRules = {
    // A north-south piece goes on when the way is vertical or the piece is not to be changed.
    {kNorthSouth, [](const Case& c) { return (Vertical(c) || Fixed(c)) && c.distY < 0; }, "HallNS", 0, -1},
    {kNorthSouth, [](const Case& c) { return (Vertical(c) || Fixed(c)) && c.distY > 0; }, "HallNS", 0, 1},
    {kNorthSouth, [](const Case& c) { return Vertical(c) || Fixed(c); }, "", 0, 0},
    {kNorthSouth, Crossed, "Hall4Way", 0, 0},
    {kNorthSouth, [](const Case& c) { return c.stepX == -1 && c.prevY < 0; }, "HallCornerNE", 0, 0},
    {kNorthSouth, [](const Case& c) { return c.stepX == -1; }, "HallCornerSE", 0, 0},
    {kNorthSouth, [](const Case& c) { return c.stepX == 1 && c.prevY < 0; }, "HallCornerNW", 0, 0},
    {kNorthSouth, [](const Case& c) { return c.stepX == 1; }, "HallCornerSW", 0, 0},

    // An east-west piece goes on when the way is horizontal or the piece is not to be changed. One
    // that may turn but has nowhere to turn to is stuck.
    {kEastWest, [](const Case& c) { return (Horizontal(c) || Fixed(c)) && c.distX < 0; }, "HallEW", -1, 0},
    {kEastWest, [](const Case& c) { return (Horizontal(c) || Fixed(c)) && c.distX > 0; }, "HallEW", 1, 0},
    {kEastWest, [](const Case& c) { return Horizontal(c) || Fixed(c); }, "", 0, 0},
    {kEastWest, Crossed, "Hall4Way", 0, 0},
    {kEastWest, [](const Case& c) { return c.stepY == -1 && c.prevX < 0; }, "HallCornerSW", 0, 0},
    {kEastWest, [](const Case& c) { return c.stepY == -1; }, "HallCornerSE", 0, 0},
    {kEastWest, [](const Case& c) { return c.stepY == 1 && c.prevX < 0; }, "HallCornerNW", 0, 0},
    {kEastWest, [](const Case& c) { return c.stepY == 1; }, "HallCornerNE", 0, 0},
    {kEastWest, Always, "", 0, 0},

    // A corner is left by an open side, or undone after four failures.
    {kCorner, [](const Case& c) { return Undone(c) && c.prevX == 0 && c.prevY == 0; }, "Hall4Way", 0, 0, true},
    {kCorner, [](const Case& c) { return Undone(c) && c.prevY != 0; }, "HallNS", 0, 0},
    {kCorner, Undone, "HallEW", 0, 0},
    {kCorner, [](const Case& c) { return c.stepX == -1 && IsEither(c.current, DirNE, DirSE); }, "HallEW", -1, 0},
    {kCorner, [](const Case& c) { return c.stepX == 1 && IsEither(c.current, DirNW, DirSW); }, "HallEW", 1, 0},
    {kCorner, [](const Case& c) { return c.stepY == -1 && IsEither(c.current, DirSW, DirSE); }, "HallNS", 0, -1},
    {kCorner, [](const Case& c) { return c.stepY == 1 && IsEither(c.current, DirNW, DirNE); }, "HallNS", 0, 1},
    {kCorner, Always, "", 0, 0},

    // A junction is open everywhere; without a step it is replaced where it stands.
    {{DirAll}, [](const Case& c) { return c.stepX == -1; }, "HallEW", -1, 0},
    {{DirAll}, [](const Case& c) { return c.stepX == 1; }, "HallEW", 1, 0},
    {{DirAll}, [](const Case& c) { return c.stepY == -1; }, "HallNS", 0, -1},
    {{DirAll}, [](const Case& c) { return c.stepY == 1; }, "HallNS", 0, 1},
    {{DirAll}, Always, "HallNS", 0, 0},

    {{DirNone}, Always, "", 0, 0},
};
// clang-format on

std::size_t RuleFor(const Case& c) {
    const auto rule = std::ranges::find_if(kRules, [&c](const Rule& r) {
        return std::ranges::find(r.pieces, c.current) != r.pieces.end() && r.fits(c);
    });
    return static_cast<std::size_t>(rule - kRules.begin());
}

std::vector<Case> AllCases() {
    struct StepXY {
        int x;
        int y;
    };
    constexpr std::array<StepXY, 5> kSteps = {{{0, 0}, {0, -1}, {0, 1}, {1, 0}, {-1, 0}}};
    std::vector<Case> cases;
    for (int current = DirN; current <= DirNone; ++current) {
        for (int signs = 0; signs < 9; ++signs) {
            for (const StepXY& step : kSteps) {
                for (const StepXY& prev : kSteps) {
                    for (const CvtAction action : {CvtNone, CvtCorner, CvtFourWay}) {
                        for (const std::uint32_t blocked : {0U, 1U, 2U, 3U, 4U, 5U, 9U, 10U}) {
                            cases.push_back({static_cast<TileDirT>(current),
                                             step.x,
                                             step.y,
                                             (signs % 3 - 1) * 7,
                                             (signs / 3 - 1) * 5,
                                             prev.x,
                                             prev.y,
                                             action,
                                             blocked});
                        }
                    }
                }
            }
        }
    }
    return cases;
}

std::string Text(const Case& c) {
    return "facing " + std::to_string(c.current) + ", step " + std::to_string(c.stepX) + "," +
           std::to_string(c.stepY) + ", distance " + std::to_string(c.distX) + "," +
           std::to_string(c.distY) + ", before " + std::to_string(c.prevX) + "," +
           std::to_string(c.prevY) + ", action " + std::to_string(c.action) + ", blocked " +
           std::to_string(c.blocked);
}

TEST(HallStep, EveryCaseFollowsTheRules) {
    const std::vector<Case> cases = AllCases();
    ASSERT_EQ(cases.size(), 64800U);
    std::vector<std::string> differences;
    for (const Case& c : cases) {
        const std::size_t index = RuleFor(c);
        ASSERT_LT(index, kRules.size()) << Text(c);
        const Rule& rule = kRules[index];
        const CvtAction action = rule.becomesFourWay ? CvtFourWay : c.action;
        const std::string expected = Text(rule.tile, rule.stepX, rule.stepY, action);
        if (Choose(c) != expected && differences.size() < 10) {
            differences.push_back(Text(c) + ": " + Choose(c) + " instead of " + expected);
        }
    }
    EXPECT_EQ(differences, std::vector<std::string>());
}

TEST(HallStep, EveryRuleIsMetByACase) {
    std::vector<bool> met(kRules.size());
    for (const Case& c : AllCases()) {
        met[RuleFor(c)] = true;
    }
    for (std::size_t i = 0; i < kRules.size(); ++i) {
        EXPECT_TRUE(met[i]) << "rule " << i;
    }
}

// Single choices, one of each sort.

Case Piece(TileDirT current, CvtAction action = CvtCorner, std::uint32_t blocked = 0) {
    Case c;
    c.current = current;
    c.action = action;
    c.blocked = blocked;
    return c;
}

Case Wanting(Case c, int stepX, int stepY, int distX, int distY) {
    c.stepX = stepX;
    c.stepY = stepY;
    c.distX = distX;
    c.distY = distY;
    return c;
}

Case After(Case c, int prevX, int prevY) {
    c.prevX = prevX;
    c.prevY = prevY;
    return c;
}

TEST(HallStep, StraightHallGoesOnTowardsTheDestination) {
    EXPECT_EQ(Choose(Wanting(Piece(DirNS), 0, -1, 2, -6)), "HallNS (0,-1) corner");
    EXPECT_EQ(Choose(Wanting(Piece(DirEW), 1, 0, 6, 2)), "HallEW (1,0) corner");
}

TEST(HallStep, DoorwayIsLeftStraightWhereverTheDestinationLies) {
    EXPECT_EQ(Choose(Wanting(Piece(DirN, CvtNone), 1, 0, 6, -1)), "HallNS (0,-1) none");
    EXPECT_EQ(Choose(Wanting(Piece(DirW, CvtNone), 0, 1, -1, 6)), "HallEW (-1,0) none");
}

TEST(HallStep, DoorwayLevelWithTheDestinationLeadsNowhere) {
    EXPECT_EQ(Choose(Wanting(Piece(DirN, CvtNone), 1, 0, 6, 0)), "no tile (0,0) none");
    EXPECT_EQ(Choose(Wanting(Piece(DirE, CvtNone), 0, 1, 0, 6)), "no tile (0,0) none");
}

TEST(HallStep, NorthSouthHallTurnsByACornerOpenBehindIt) {
    EXPECT_EQ(Choose(After(Wanting(Piece(DirNS), -1, 0, -6, 2), 0, -1)),
              "HallCornerNE (0,0) corner");
    EXPECT_EQ(Choose(After(Wanting(Piece(DirNS), -1, 0, -6, 2), 0, 1)),
              "HallCornerSE (0,0) corner");
    EXPECT_EQ(Choose(After(Wanting(Piece(DirNS), 1, 0, 6, 2), 0, -1)), "HallCornerNW (0,0) corner");
    EXPECT_EQ(Choose(After(Wanting(Piece(DirNS), 1, 0, 6, 2), 0, 1)), "HallCornerSW (0,0) corner");
}

TEST(HallStep, EastWestHallTurnsByACornerOpenBehindIt) {
    EXPECT_EQ(Choose(After(Wanting(Piece(DirEW), 0, -1, 2, -6), -1, 0)),
              "HallCornerSW (0,0) corner");
    EXPECT_EQ(Choose(After(Wanting(Piece(DirEW), 0, -1, 2, -6), 1, 0)),
              "HallCornerSE (0,0) corner");
    EXPECT_EQ(Choose(After(Wanting(Piece(DirEW), 0, 1, 2, 6), -1, 0)), "HallCornerNW (0,0) corner");
    EXPECT_EQ(Choose(After(Wanting(Piece(DirEW), 0, 1, 2, 6), 1, 0)), "HallCornerNE (0,0) corner");
}

TEST(HallStep, ThroughHallTurnsByAJunction) {
    EXPECT_EQ(Choose(Wanting(Piece(DirNS, CvtFourWay), 1, 0, 6, 2)), "Hall4Way (0,0) four-way");
    EXPECT_EQ(Choose(Wanting(Piece(DirEW, CvtFourWay), 0, 1, 2, 6)), "Hall4Way (0,0) four-way");
}

TEST(HallStep, HallAtItsDestinationIsStuck) {
    EXPECT_EQ(Choose(Piece(DirNS)), "no tile (0,0) corner");
    EXPECT_EQ(Choose(Piece(DirEW)), "no tile (0,0) corner");
}

TEST(HallStep, CornerIsLeftByItsOpenSidesOnly) {
    EXPECT_EQ(Choose(Wanting(Piece(DirNW), 1, 0, 6, 2)), "HallEW (1,0) corner");
    EXPECT_EQ(Choose(Wanting(Piece(DirNW), 0, 1, 2, 6)), "HallNS (0,1) corner");
    EXPECT_EQ(Choose(Wanting(Piece(DirNW), -1, 0, -6, 2)), "no tile (0,0) corner");
    EXPECT_EQ(Choose(Wanting(Piece(DirNW), 0, -1, 2, -6)), "no tile (0,0) corner");
}

TEST(HallStep, CornerIsUndoneFromTheFourthFailureOn) {
    const Case third = After(Wanting(Piece(DirNW, CvtCorner, 3), 0, -1, 2, -6), 0, -1);
    EXPECT_EQ(Choose(third), "no tile (0,0) corner");
    const Case fourth = Wanting(Piece(DirNW, CvtCorner, 4), 0, -1, 2, -6);
    EXPECT_EQ(Choose(After(fourth, 0, -1)), "HallNS (0,0) corner");
    EXPECT_EQ(Choose(After(fourth, -1, 0)), "HallEW (0,0) corner");
}

TEST(HallStep, StuckCornerWithoutAStepBeforeItBecomesAJunction) {
    EXPECT_EQ(Choose(Wanting(Piece(DirSE, CvtCorner, 4), 0, -1, 2, -6)), "Hall4Way (0,0) four-way");
    EXPECT_EQ(Choose(Wanting(Piece(DirSE, CvtNone, 10), 0, -1, 2, -6)), "Hall4Way (0,0) four-way");
}

TEST(HallStep, JunctionIsLeftAnyWay) {
    EXPECT_EQ(Choose(Wanting(Piece(DirAll, CvtNone), 0, -1, 2, -6)), "HallNS (0,-1) none");
    EXPECT_EQ(Choose(Wanting(Piece(DirAll, CvtNone), -1, 0, -6, 2)), "HallEW (-1,0) none");
}

TEST(HallStep, JunctionAtItsDestinationIsReplacedInPlace) {
    EXPECT_EQ(Choose(Piece(DirAll, CvtNone)), "HallNS (0,0) none");
}

TEST(HallStep, PieceWithoutFacingLeadsNowhere) {
    EXPECT_EQ(Choose(Wanting(Piece(DirNone, CvtNone), 0, -1, 2, -6)), "no tile (0,0) none");
    EXPECT_EQ(Choose(Wanting(Piece(DirNone, CvtFourWay, 10), 1, 0, 6, 2)),
              "no tile (0,0) four-way");
}

TEST(HallStep, BlockedWayTurnsOntoTheOtherAxis) {
    struct Row {
        DiPos way;
        DiPos turned;
    };
    const std::array<Row, 12> rows = {{{DiPos(0, -5, 0), DiPos(-1, 0, 0)},
                                       {DiPos(-2, -5, 0), DiPos(-1, 0, 0)},
                                       {DiPos(1, -5, 0), DiPos(1, 0, 0)},
                                       {DiPos(0, 5, 0), DiPos(-1, 0, 0)},
                                       {DiPos(-2, 5, 0), DiPos(-1, 0, 0)},
                                       {DiPos(2, 5, 0), DiPos(1, 0, 0)},
                                       {DiPos(5, 0, 0), DiPos(0, -1, 0)},
                                       {DiPos(5, -2, 0), DiPos(0, -1, 0)},
                                       {DiPos(5, 1, 0), DiPos(0, 1, 0)},
                                       {DiPos(-5, 0, 0), DiPos(0, -1, 0)},
                                       {DiPos(-5, 2, 0), DiPos(0, 1, 0)},
                                       {DiPos(0, 0, 0), DiPos(-1, 0, 0)}}};
    for (const Row& row : rows) {
        DiDirection way(DiPos(0, 0, 0), row.way);
        GetBlockedDir(way);
        EXPECT_EQ(DiPos(way.stepX, way.stepY, 0), row.turned) << row.way.x << "," << row.way.y;
        EXPECT_EQ(DiPos(way.distX, way.distY, 0), row.way);
    }
}

TEST(HallStep, OnlyAChoiceWithoutAStepIsInPlace) {
    EXPECT_TRUE((HallChoice{TileKind::Of("HallNS"), {}, CvtNone}).IsInPlace());
    EXPECT_FALSE((HallChoice{TileKind::Of("HallNS"), {0, -1, 0}, CvtNone}).IsInPlace());
    EXPECT_FALSE((HallChoice{TileKind::Of("HallEW"), {1, 0, 0}, CvtNone}).IsInPlace());
}

} // namespace

} // namespace Tarnex::Test
