#include <ztlinear/ZtLIntersect.h>
#include <ztlinear/ZtLInterval.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLPlane3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const ZtLInterval::LimitType C = ZtLInterval::Closed, O = ZtLInterval::Open,
                             U = ZtLInterval::Unbounded;

}  // namespace

TEST(ZtLInterval, ConstructionKeepsMaxAtLeastMinButEditDoesNot) {
    const ZtLInterval swapped(3, 1, true);  // [3, 3]
    EXPECT_TRUE(swapped.IsDegenerate() && swapped.Contains(3));
    EXPECT_EQ(swapped.Clamp(5), 3.0);
    EXPECT_TRUE(ZtLInterval().IsDegenerate() && ZtLInterval().IsClosed());
    ZtLInterval in(2, O, -7, U);
    EXPECT_EQ(in.GetMax(), kInf);
    in.SetLimits(5, 4);
    EXPECT_EQ(in.GetMaxLimitType(), U) << "SetLimits keeps the types";
    in.SetLimitTypes(C, C);
    EXPECT_EQ(in.GetMax(), 5.0);
    in.EditMax() = 1.0;  // raw access: max below min stays
    EXPECT_EQ(in.GetMax(), 1.0);
    EXPECT_FALSE(in.Contains(3.0));
}

TEST(ZtLInterval, MembershipAndClampFollowTheLimitTypes) {
    struct Case {
        ZtLInterval::LimitType lo, hi;
        double x;
        bool contains;
        double clamp;
    };
    const Case cases[] = {
        {C, C, 1, true, 1},           {C, C, -1, false, 0}, {C, C, 2, false, 1},
        {O, O, 0, false, 1},   // equal to the open lower limit: not below it, so the upper one
        {O, O, -1, false, 0},  // the open limit itself, which is not contained
        {O, O, 1, false, 1},          {O, C, 1, true, 1},   {C, O, 0, true, 0},
        {U, O, -1e300, true, -1e300}, {C, U, -1, false, 0}, {O, U, 1e300, true, 1e300},
    };
    for (const Case& c : cases) {
        const ZtLInterval in(0, c.lo, 1, c.hi);
        EXPECT_EQ(in.Contains(c.x), c.contains) << int(c.lo) << int(c.hi) << " x=" << c.x;
        EXPECT_EQ(in.Clamp(c.x), c.clamp) << int(c.lo) << int(c.hi) << " x=" << c.x;
    }
    EXPECT_TRUE(ZtLInterval(0, 1, true).Contains(std::nan(""))) << "no end rejects a NaN";
    ZtLInterval odd(0, 1, true);
    odd.EditMinLimitType() = static_cast<ZtLInterval::LimitType>(7);
    EXPECT_TRUE(odd.Contains(-5)) << "an unknown type rejects nothing";
}

TEST(ZtLInterval, ClosednessOfTheEnds) {
    struct Case {
        ZtLInterval::LimitType lo, hi;
        bool closed, open, half;
    };
    const Case cases[] = {
        {C, C, true, false, false}, {O, O, false, true, false}, {O, C, false, false, true},
        {U, U, true, false, false}, {U, O, false, false, true}, {C, U, true, false, false},
    };
    for (const Case& c : cases) {
        const ZtLInterval in(0, c.lo, 1, c.hi);
        EXPECT_EQ(in.IsClosed(), c.closed) << int(c.lo) << int(c.hi);
        EXPECT_EQ(in.IsOpen(), c.open) << int(c.lo) << int(c.hi);
        EXPECT_EQ(in.IsHalfClosed(), c.half) << int(c.lo) << int(c.hi);
    }
}

TEST(ZtLIntersect, PredicatesReadTheCodeBits) {
    struct Case {
        unsigned int code, touches;
        int intersects, equals, contains, inside, outsidesTouch, separate;
    };
    const Case cases[] = {
        {10, 0, 0, 0, 0, 0, 0, 1},
        {13, 0, 0, 0, 0, 1, 0, 0},
        {28, 16, 0, 0, 0, 1, 0, 0},
        {15, 0, 1, 0, 0, 0, 0, 0},
        {53, 48, 0, 1, 1, 1, 0, 0},
        {26, 16, 0, 0, 0, 0, 1, 0},  // all of 10's bits, yet not separate
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ZtLIntersect::Touches(c.code), c.touches) << c.code;
        EXPECT_EQ(ZtLIntersect::Intersects(c.code), c.intersects) << c.code;
        EXPECT_EQ(ZtLIntersect::Equals(c.code), c.equals) << c.code;
        EXPECT_EQ(ZtLIntersect::Contains(c.code), c.contains) << c.code;
        EXPECT_EQ(ZtLIntersect::Inside(c.code), c.inside) << c.code;
        EXPECT_EQ(ZtLIntersect::OutsidesTouch(c.code), c.outsidesTouch) << c.code;
        EXPECT_EQ(ZtLIntersect::Separate(c.code), c.separate) << c.code;
    }
}

TEST(ZtLIntersect, PointsAgainstPlanesCountBothToleranceBoundsAsOn) {
    const ZtLPlane3f pl(ZtLUnitVec3f(0, 0, 1), 1.0);
    const struct {
        double z;
        unsigned int code;
        int contains, containsTol;
    } cases[] = {{1.5, 13, 1, 1}, {1.25, 28, 1, 1}, {0.75, 28, 0, 1}, {0.5, 10, 0, 0}};
    for (const auto& c : cases) {
        const ZtLPos3f p(3, -2, c.z);
        EXPECT_EQ(ZtLIntersect::ClassifyTol(p, pl, 0.25), c.code) << c.z;
        EXPECT_EQ(ZtLIntersect::Contains(pl, p), c.contains) << c.z;
        EXPECT_EQ(ZtLIntersect::ContainsTol(pl, p, 0.25), c.containsTol) << c.z;
    }
}

TEST(ZtLIntersect, LinesClassifyAsEqualCrossingOrSeparate) {
    const ZtLLine3f x(ZtLPos3f(0, 0, 0), ZtLUnitVec3f(1, 0, 0));
    const ZtLLine3f y(ZtLPos3f(0, 0, 0.1), ZtLUnitVec3f(0, 1, 0));  // 0.1 above x
    const ZtLLine3f xAbove(ZtLPos3f(0, 0, 0.1), ZtLUnitVec3f(1, 0, 0));
    const struct {
        ZtLLine3f a, b;
        double t1, t2;
        unsigned int code;
    } cases[] = {
        {x, x, 0, 0, 53},  // equal although the closest points are undefined
        {x, xAbove, 0, 0.1, 53}, {x, xAbove, 0, 0.05, 10},  // parallel, not equal
        {x, y, 0.2, 0, 15},      {x, y, 0.1, 0, 10},        // the crossing test is strict
        {x, y, 1.0, 0.1, 53},  // t1 is the direction tolerance of the equality test too
    };
    for (const auto& c : cases) {
        ZtLPos3f p(9, 9, 9);
        EXPECT_EQ(ZtLIntersect::ClassifyTol(c.a, c.b, c.t1, c.t2), c.code) << c.t1 << " " << c.t2;
        EXPECT_EQ(ZtLIntersect::ClassifyTol(c.a, c.b, &p, c.t1, c.t2), c.code);
        EXPECT_TRUE(p.Equals(c.code == 15 ? ZtLPos3f(0, 0, 0.05) : ZtLPos3f(9, 9, 9), 1e-17))
            << "the midpoint on 15, else untouched";
    }
    ZtLPos3f p(9, 9, 9);
    EXPECT_EQ(ZtLIntersect::IntersectTol(x, y, &p, 0.1) + ZtLIntersect::IntersectsTol(x, x, 1.0),
              0);
    EXPECT_EQ(p[0], 9.0);
    EXPECT_EQ(ZtLIntersect::IntersectsTol(x, y, 0.10001), 1);
    EXPECT_EQ(ZtLIntersect::IntersectTol(x, y, &p, 0.10001), 1);
    EXPECT_TRUE(p.Equals(ZtLPos3f(0, 0, 0.05), 1e-17));
}
