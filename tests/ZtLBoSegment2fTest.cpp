#include <ztlinear/ZtLBoEventPoint.h>
#include <ztlinear/ZtLBoPointList.h>
#include <ztlinear/ZtLBoSegment2f.h>
#include <ztlinear/ZtLVec.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>
#include <vector>

namespace {
using Event = ZtLBoEventPoint;
using Segment = ZtLBoSegment2f;
using Slope = ZtLBoSegment2fSlope;

Segment Seg(double x0, double y0, double x1, double y1) {
    return Segment(ZtLPos2f(x0, y0), ZtLPos2f(x1, y1));
}
}  // namespace

TEST(ZtLBoEventPointTest, GridTruncatesTowardZero) {
    const struct {
        double v, whole;
        std::int32_t fraction;
    } cases[] = {{0.3, 0, 300000},     {0.3000009, 0, 300000},  {0.0000005, 0, 0},
                 {-0.0000005, 0, 0},   {1.0000005, 1, 0},       {0.9999995, 0, 999999},
                 {-1.25, -1, -250000}, {1e9 + 0.5, 1e9, 500000}};
    for (const auto& c : cases) {
        const Event p(c.v, -c.v);
        EXPECT_EQ(p.GetWhole(0), c.whole) << c.v;
        EXPECT_EQ(p.GetFraction(0), c.fraction) << c.v;
        EXPECT_EQ(p.GetFraction(1), -c.fraction) << c.v;
        EXPECT_EQ(p.GetX(), c.v);  // the exact coordinates are kept beside the key
    }
    EXPECT_EQ(Event(0.3, 1.0), Event(0.3000009, 1.0));
    EXPECT_EQ(Event(0.0000005, 0.0), Event(-0.0000005, 0.0));  // -0.0 counts as 0
    EXPECT_NE(Event(1.0000005, 0.0), Event(0.9999995, 0.0));   // 1e-06 apart, different cells
}

TEST(ZtLBoEventPointTest, CellSizeIsFixedButTheNegligibleTestReadsTheCurrentTolerance) {
    Event first(0.5, 0.5);  // a fractional part fixes the grid at the default tolerance
    ZtLVec::SetResabs(1e-3);
    const Event p(0.0005, 0.0015);
    ZtLVec::SetResabs(1e-6);
    EXPECT_EQ(p.GetFraction(0), 0);           // |0.0005| <= 1e-3 at the time
    EXPECT_EQ(p.GetFraction(1), 1500);        // still counted in cells of 1e-06
    EXPECT_EQ(Event(p).GetFraction(0), 500);  // a copy splits again
}

TEST(ZtLBoEventPointTest, SixComparisonsFollowTheXThenYKey) {
    const Event sorted[] = {Event(-0.2, -3.0), Event(0.0, -1.0), Event(0.0000004, 2.0),
                            Event(0.9999995, -9.0), Event(1.0, -9.0)};
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < 5; ++j) {
            const Event &a = sorted[i], &b = sorted[j];
            const bool got[] = {a<b, a> b, a <= b, a >= b, a == b, a != b};
            const bool want[] = {i<j, i> j, i <= j, i >= j, i == j, i != j};
            EXPECT_TRUE(std::equal(got, got + 6, want)) << i << ' ' << j;
        }
    }
    EXPECT_TRUE(Event(0.3, 1.0).EqualX(Event(0.3000009, 5.0)));
    EXPECT_FALSE(Event(0.3, 1.0).EqualY(Event(0.3000009, 5.0)));
}

TEST(ZtLBoSegment2fTest, EndsAreOrderedAndTheSlopeClassified) {
    const struct {
        Segment s;
        Event left, right;
        int kind;
        double slope;
    } cases[] = {
        {Seg(4, 1, 0, 3), Event(0, 3), Event(4, 1), Slope::kOrdinary, -0.5},  // right-to-left
        {Seg(1, 5, 1.0000004, 0), Event(1, 0), Event(1, 5), Slope::kVertical, 0.0},
        {Seg(2, 2, 2.0000001, 2.0000009), Event(2, 2), Event(2, 2), Slope::kDegenerate, 0.0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.s.LeftPoint(), c.left);
        EXPECT_EQ(c.s.RightPoint(), c.right);
        EXPECT_EQ(c.s.Slope().kind, c.kind);
        EXPECT_EQ(c.s.Slope().slope, c.slope);
    }
    EXPECT_EQ(cases[2].s.LeftPoint().GetX(), 2.0000001);  // equal events: the second is left

    const Slope flat{0.0, Slope::kOrdinary}, nearlyFlat{1e-6, Slope::kOrdinary},
        steep{2.0, Slope::kOrdinary}, vertical{9.0, Slope::kVertical},
        otherVertical{-5.0, Slope::kVertical}, degenerate{0.0, Slope::kDegenerate};
    EXPECT_TRUE(flat < steep && steep < vertical && !(steep < flat) && !(vertical < steep));
    EXPECT_FALSE(degenerate < steep || vertical < otherVertical || flat < degenerate);
    EXPECT_TRUE((Slope{-1.0, Slope::kOrdinary} < degenerate));     // a degenerate other counts as 0
    EXPECT_TRUE(vertical == otherVertical && flat == nearlyFlat);  // within resabs
    EXPECT_FALSE(flat == steep || flat == degenerate);             // kinds differ
}

TEST(ZtLBoSegment2fTest, HeightOnPointClampsIntoTheSpan) {
    const Segment s = Seg(0, 1, 4, 3), v = Seg(1, 5, 1, -2);
    EXPECT_EQ(s.HeightOnPoint(Event(2, 100)), 2.0);
    EXPECT_EQ(s.HeightOnPoint(Event(-1, 100)), 1.0);
    EXPECT_EQ(s.HeightOnPoint(Event(10, 100)), 3.0);
    EXPECT_EQ(s.HeightOnPoint(Event(4.0000004, 3.0000005)), 3.0000005);  // an end: p's own y
    EXPECT_EQ(v.HeightOnPoint(Event(1, 0.5)), 0.5);
    EXPECT_EQ(v.HeightOnPoint(Event(1, -7)), -2.0);
    EXPECT_EQ(v.HeightOnPoint(Event(3, 9)), 5.0);
}

TEST(ZtLBoSegment2fTest, SweepOrderAtACommonPoint) {
    // Segments leaving (2, 2), from the lowest up: by slope, the vertical one on top.
    const Event p(2, 2);
    const Segment fan[] = {Seg(2, 2, 5, -4), Seg(2, 2, 6, 1), Seg(2, 2, 7, 2), Seg(2, 2, 3, 3),
                           Seg(2, 2, 2, 9)};
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < 5; ++j) {
            EXPECT_EQ(fan[i].IsBelow(fan[j], p, true), i < j) << i << ' ' << j;
            EXPECT_FALSE(fan[i].IsBelow(fan[j], p, false)) << "equal heights";
        }
    }
    // Away from the common point the heights decide.
    EXPECT_TRUE(Seg(0, 0, 4, 4).IsBelow(Seg(0, 1, 4, 1), Event(0.5, 0), false));
    EXPECT_FALSE(Seg(0, 0, 4, 4).IsBelow(Seg(0, 1, 4, 1), Event(3, 0), true));
    // Collinear segments: by right point, then by left point.
    const Segment shorter = Seg(0, 0, 3, 3), longer = Seg(1, 1, 5, 5), wider = Seg(-1, -1, 5, 5);
    EXPECT_TRUE(shorter.IsBelow(longer, p, true) && wider.IsBelow(longer, p, true));
    EXPECT_FALSE(longer.IsBelow(shorter, p, true));
    EXPECT_FALSE(Seg(2, 2, 2, 2).IsBelow(fan[0], p, true));  // degenerate: never below
}

TEST(ZtLBoSegment2fTest, ContainMeansStrictlyInsideAndOnTheLineWithinTheCell) {
    const Segment s = Seg(0, 0, 4, 2);
    EXPECT_TRUE(s.Contain(Event(3.2000005, 1.60000025)));
    EXPECT_TRUE(s.Contain(Event(2.0000001, 1.0000003)));  // same cell as its projection
    EXPECT_FALSE(s.Contain(Event(2, 1.00001)));
    EXPECT_FALSE(s.Contain(Event(4.0000004, 2)));  // the right end, as an event
    EXPECT_FALSE(s.Contain(Event(6, 3)));          // on the line, beyond the end
    EXPECT_TRUE(Seg(1, -3, 1, 3).Contain(Event(1, 0.25)));
}

TEST(ZtLBoSegment2fTest, IntersectReportsCrossingsAwayFromSharedEnds) {
    const struct {
        Segment a, b;
        bool crosses;
        double x, y;
    } cases[] = {
        {Seg(0, 0, 4, 4), Seg(0, 4, 4, 0), true, 2, 2},
        {Seg(0, 0, 4, 0), Seg(2, 0, 2, 3), true, 2, 0},  // touching inside a
        {Seg(0, 0, 4, 4), Seg(4, 4, 8, 0), false, 0, 0},
        {Seg(0, 0, 4, 4), Seg(4.0000003, 4.0000001, 8, 0), false, 0, 0},  // shared as events
        {Seg(0, 0, 4, 4), Seg(2, 2, 6, 6), false, 0, 0},                  // collinear overlap
        {Seg(0, 0, 1, 1), Seg(2, 2, 2, 2), false, 0, 0},                  // degenerate
        // The tolerance band at the ends: t = -0.5e-06 and 1 + 0.5e-06 cross, 2e-06 off not.
        {Seg(0, 0, 1, 0), Seg(-0.5e-6, -1, -0.5e-6, 1), true, -0.5e-6, 0},
        {Seg(0, 0, 1, 0), Seg(1.0000005, -1, 1.0000005, 1), true, 1.0000005, 0},
        {Seg(0, 0, 1, 0), Seg(-2e-6, -1, -2e-6, 1), false, 0, 0},
    };
    for (const auto& c : cases) {
        ZtLPos2f out(-99, -99);
        EXPECT_EQ(c.a.Intersect(c.b, out), c.crosses) << c.x;
        EXPECT_NEAR(out.GetX(), c.crosses ? c.x : -99, 1e-15) << c.x;
        EXPECT_NEAR(out.GetY(), c.crosses ? c.y : -99, 1e-15) << c.x;
    }
}

TEST(ZtLBoSegment2fTest, IntersectAgreesWithExactOrientationsOnGridSegments) {
    auto orient = [](const int* a, const int* b, const int* c) {
        const std::int64_t v =
            std::int64_t(b[0] - a[0]) * (c[1] - a[1]) - std::int64_t(b[1] - a[1]) * (c[0] - a[0]);
        return (v > 0) - (v < 0);
    };
    std::mt19937 rng(12345);
    std::uniform_int_distribution<int> coord(-12, 12);
    int crossings = 0;
    for (int iter = 0; iter < 20000; ++iter) {
        int p[4][2];
        for (auto& q : p) q[0] = coord(rng), q[1] = coord(rng);
        const Segment a = Seg(p[0][0], p[0][1], p[1][0], p[1][1]);
        const Segment b = Seg(p[2][0], p[2][1], p[3][0], p[3][1]);
        bool shared = false;
        for (int i : {0, 1}) {
            for (int j : {2, 3}) shared |= p[i][0] == p[j][0] && p[i][1] == p[j][1];
        }
        const bool parallel =
            (p[1][0] - p[0][0]) * (p[3][1] - p[2][1]) == (p[1][1] - p[0][1]) * (p[3][0] - p[2][0]);
        const bool expected = !shared && !parallel &&
                              orient(p[0], p[1], p[2]) * orient(p[0], p[1], p[3]) <= 0 &&
                              orient(p[2], p[3], p[0]) * orient(p[2], p[3], p[1]) <= 0;
        ZtLPos2f out(0, 0);
        ASSERT_EQ(b.Intersect(a, out), expected) << iter;
        ASSERT_EQ(a.Intersect(b, out), expected) << iter;
        if (!expected) continue;
        ++crossings;
        for (int s : {0, 2}) {  // the crossing lies on both lines
            const double dx = p[s + 1][0] - p[s][0], dy = p[s + 1][1] - p[s][1];
            ASSERT_NEAR(dx * (out.GetY() - p[s][1]) - dy * (out.GetX() - p[s][0]), 0.0, 1e-9);
        }
    }
    EXPECT_GT(crossings, 1000);
}

TEST(ZtLBoSegment2fTest, SegmentOrderAndIntersectionQueue) {
    const Segment sorted[] = {Seg(0, 0, 1, 5), Seg(0, 0, 2, -1), Seg(0, 1, 0, 3),
                              Seg(3, -4, 0.5, 0)};
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) EXPECT_EQ(sorted[i] < sorted[j], i < j);
    }
    ZtLBoSegment2fPlus a(sorted[2]), b(sorted[0]), c(sorted[3]);
    const std::set<ZtLBoSegment2fPlus*, ZtLBoSegment2fPlusLess> set = {&a, &b, &c};
    EXPECT_EQ(std::vector<ZtLBoSegment2fPlus*>(set.begin(), set.end()),
              (std::vector<ZtLBoSegment2fPlus*>{&b, &a, &c}));

    ZtLBoSegment2fPlus s(ZtLPos2f(0, 0), ZtLPos2f(10, 0));
    EXPECT_EQ(s.GetIntersectionQueue(), nullptr);
    EXPECT_FALSE(s.AddIntersection(Event(10.0000004, 0)));  // the right end: not queued,
    ASSERT_NE(s.GetIntersectionQueue(), nullptr);           // but the queue is there
    EXPECT_TRUE(s.AddIntersection(Event(7, 0)) && s.AddIntersection(Event(3, 0)));
    EXPECT_TRUE(s.AddIntersection(Event(7.0000001, 0.0000002)));  // the same event again
    EXPECT_FALSE(s.AddIntersection(Event(0, 0)));
    const std::vector<Event> q(s.GetIntersectionQueue()->begin(), s.GetIntersectionQueue()->end());
    ASSERT_EQ(q.size(), 2u);
    EXPECT_EQ(q[0].GetX(), 3.0);
    EXPECT_EQ(q[1].GetX(), 7.0);  // the first of the equal events stays
}

TEST(ZtLBoPointListTest, OwnsSeparateCopies) {
    ZtLPos2f p(1, 2);
    ZtLBoPointList list;
    list.Add(&p);
    p = ZtLPos2f(9, 9);
    list.Replace(0, &p);
    list.CopyFrom(list);  // appends copies of its own points
    ZtLBoPointList moved(std::move(list));
    ASSERT_EQ(moved.Count(), 2);
    EXPECT_TRUE(moved.ItemAt(0) != &p && moved.ItemAt(1) != moved.ItemAt(0));
    EXPECT_EQ(moved.ItemAt(1)->GetX(), 9.0);
}
