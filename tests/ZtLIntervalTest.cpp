#include <ztlinear/ZtLIntersect.h>
#include <ztlinear/ZtLInterval.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLPlane3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
using LT = ZtLInterval::LimitType;

}  // namespace

TEST(ZtLInterval, ConstructionKeepsMaxAtLeastMinButEditDoesNot) {
    ZtLInterval def;
    EXPECT_EQ(def.GetMin(), 0.0);
    EXPECT_EQ(def.GetMax(), 0.0);
    EXPECT_TRUE(def.IsClosed() && def.IsDegenerate());

    ZtLInterval swapped(3, 1, true);  // [3, 3]
    EXPECT_EQ(swapped.GetMax(), 3.0);
    EXPECT_TRUE(swapped.IsDegenerate());
    EXPECT_TRUE(swapped.Contains(3));
    EXPECT_EQ(swapped.Clamp(5), 3.0);

    ZtLInterval typed(2, ZtLInterval::Open, -7, ZtLInterval::Unbounded);
    EXPECT_EQ(typed.GetMinLimitType(), ZtLInterval::Open);
    EXPECT_EQ(typed.GetMax(), kInf);
    typed.SetLimits(5, 4);
    EXPECT_EQ(typed.GetMin(), 5.0);
    EXPECT_EQ(typed.GetMaxLimitType(), ZtLInterval::Unbounded) << "SetLimits keeps the types";
    typed.SetLimitTypes(ZtLInterval::Closed, ZtLInterval::Closed);
    EXPECT_EQ(typed.GetMax(), 5.0);
    typed.EditMax() = 1.0;  // raw access: max below min stays
    EXPECT_EQ(typed.GetMax(), 1.0);
    EXPECT_FALSE(typed.Contains(3.0));
}

TEST(ZtLInterval, MembershipAndClampFollowTheLimitTypes) {
    struct Case {
        LT lo, hi;
        double x;
        bool contains;
        double clamp;
    };
    const LT C = ZtLInterval::Closed, O = ZtLInterval::Open, U = ZtLInterval::Unbounded;
    const Case cases[] = {
        {C, C, 0, true, 0},
        {C, C, 1, true, 1},
        {C, C, -1, false, 0},
        {C, C, 2, false, 1},
        {O, O, 0, false, 1},  // equal to the open lower limit: not
                              // below
        {O, O, 1, false, 1},
        {O, O, -1, false, 0},  // the open limit itself is returned
        {O, O, 0.5, true, 0.5},
        {O, C, 1, true, 1},
        {C, O, 0, true, 0},
        {U, O, -1e300, true, -1e300},
        {U, U, 1e300, true, 1e300},
        {C, U, -1, false, 0},
        {O, U, 7, true, 7},
    };
    for (const Case& c : cases) {
        ZtLInterval in(0, c.lo, 1, c.hi);
        EXPECT_EQ(in.Contains(c.x), c.contains) << int(c.lo) << int(c.hi) << " x=" << c.x;
        EXPECT_EQ(in.Clamp(c.x), c.clamp) << int(c.lo) << int(c.hi) << " x=" << c.x;
    }
    ZtLInterval lowerOpen(0, 1, false);
    EXPECT_FALSE(lowerOpen.Contains(lowerOpen.Clamp(-1))) << "clamped into a limit it rejects";

    // NaN: no comparison rejects it, so it is everywhere.
    EXPECT_TRUE(ZtLInterval(0, 1, true).Contains(kNaN));
    EXPECT_TRUE(std::isnan(ZtLInterval(0, 1, false).Clamp(kNaN)));
    // A type byte outside the enumeration rejects nothing on its side.
    ZtLInterval odd(0, 1, true);
    odd.EditMinLimitType() = static_cast<LT>(7);
    EXPECT_TRUE(odd.Contains(-5));
    EXPECT_EQ(odd.GetMin(), 0.0);
}

TEST(ZtLInterval, ClosednessOfTheEnds) {
    struct Case {
        LT lo, hi;
        bool closed, open, half;
    };
    const LT C = ZtLInterval::Closed, O = ZtLInterval::Open, U = ZtLInterval::Unbounded;
    const Case cases[] = {
        {C, C, true, false, false}, {O, O, false, true, false}, {O, C, false, false, true},
        {C, O, false, false, true}, {U, U, true, false, false}, {U, O, false, false, true},
        {C, U, true, false, false},
    };
    for (const Case& c : cases) {
        ZtLInterval in(0, c.lo, 1, c.hi);
        EXPECT_EQ(in.IsClosed(), c.closed) << int(c.lo) << int(c.hi);
        EXPECT_EQ(in.IsOpen(), c.open) << int(c.lo) << int(c.hi);
        EXPECT_EQ(in.IsHalfClosed(), c.half) << int(c.lo) << int(c.hi);
    }
    EXPECT_TRUE(ZtLInterval(2, 2, false).IsDegenerate()) << "whatever the types";
    EXPECT_EQ(ZtLInterval(0, ZtLInterval::Unbounded, 1, C).GetMin(), -kInf);
}

TEST(ZtLIntersect, PredicatesReadTheCodeBits) {
    struct Case {
        unsigned int code;
        int intersects, equals, contains, inside;
        unsigned int touches;
        int outsidesTouch, separate;
    };
    const Case cases[] = {
        {10, 0, 0, 0, 0, 0, 0, 1},
        {13, 0, 0, 0, 1, 0, 0, 0},
        {28, 0, 0, 0, 1, 16, 0, 0},
        {15, 1, 0, 0, 0, 0, 0, 0},
        {53, 0, 1, 1, 1, 48, 0, 0},
        {26, 0, 0, 0, 0, 16, 1, 0},  // all of 10's bits, yet not separate
        {18, 0, 0, 1, 0, 16, 1, 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ZtLIntersect::Intersects(c.code), c.intersects) << c.code;
        EXPECT_EQ(ZtLIntersect::Equals(c.code), c.equals) << c.code;
        EXPECT_EQ(ZtLIntersect::Contains(c.code), c.contains) << c.code;
        EXPECT_EQ(ZtLIntersect::Inside(c.code), c.inside) << c.code;
        EXPECT_EQ(ZtLIntersect::Touches(c.code), c.touches) << c.code;
        EXPECT_EQ(ZtLIntersect::OutsidesTouch(c.code), c.outsidesTouch) << c.code;
        EXPECT_EQ(ZtLIntersect::Separate(c.code), c.separate) << c.code;
    }
}

TEST(ZtLIntersect, PointsAgainstPlanesCountBothToleranceBoundsAsOn) {
    const ZtLPlane3f pl(ZtLUnitVec3f(0, 0, 1), 1.0);
    struct Case {
        double z;
        unsigned int code;
        int contains, containsTol;
    };
    const Case cases[] = {
        {1.5, 13, 1, 1}, {1.25, 28, 1, 1}, {1.0, 28, 1, 1}, {0.75, 28, 0, 1}, {0.5, 10, 0, 0},
    };
    for (const Case& c : cases) {
        const ZtLPos3f p(3, -2, c.z);
        EXPECT_EQ(ZtLIntersect::ClassifyTol(p, pl, 0.25), c.code) << c.z;
        EXPECT_EQ(ZtLIntersect::Contains(pl, p), c.contains) << c.z;
        EXPECT_EQ(ZtLIntersect::ContainsTol(pl, p, 0.25), c.containsTol) << c.z;
    }
    const ZtLLine3f up(ZtLPos3f(2, 3, 0), ZtLUnitVec3f(0, 0, 1));
    const ZtLLine3f flat(ZtLPos3f(0, 0, 1), ZtLUnitVec3f(1, 0, 0));
    ZtLPos3f p(9, 9, 9);
    EXPECT_EQ(ZtLIntersect::Intersects(up, pl), 1);
    EXPECT_EQ(ZtLIntersect::Intersects(pl, flat), 0);
    EXPECT_EQ(ZtLIntersect::Intersect(pl, flat, &p), 0);
    EXPECT_EQ(p[0], 9.0);
    EXPECT_EQ(ZtLIntersect::Intersect(up, pl, &p), 1);
    EXPECT_TRUE(p.Equals(ZtLPos3f(2, 3, 1), 0));
}

TEST(ZtLIntersect, LinesClassifyAsEqualCrossingOrSeparate) {
    const ZtLLine3f x(ZtLPos3f(0, 0, 0), ZtLUnitVec3f(1, 0, 0));
    const ZtLLine3f y(ZtLPos3f(0, 0, 0.1), ZtLUnitVec3f(0, 1, 0));  // 0.1 above x
    const ZtLLine3f xAbove(ZtLPos3f(0, 0, 0.1), ZtLUnitVec3f(1, 0, 0));
    struct Case {
        ZtLLine3f a, b;
        double t1, t2;
        unsigned int code;
    };
    const Case cases[] = {
        {x, x, 0, 0, 53},  // equal although the closest points are undefined
        {x, xAbove, 0, 0.1, 53},
        {x, xAbove, 0, 0.05, 10},  // parallel, not equal
        {x, y, 0.2, 0, 15},
        {x, y, 0.1, 0, 10},  // the crossing test is strict
        // t1 is the direction tolerance of the equality test too: 1 - x.y = 1 passes at 1.
        {x, y, 1.0, 0.1, 53},
    };
    for (const Case& c : cases) {
        ZtLPos3f p(9, 9, 9);
        EXPECT_EQ(ZtLIntersect::ClassifyTol(c.a, c.b, c.t1, c.t2), c.code) << c.t1 << " " << c.t2;
        EXPECT_EQ(ZtLIntersect::ClassifyTol(c.a, c.b, &p, c.t1, c.t2), c.code);
        if (c.code == 15)
            EXPECT_TRUE(p.Equals(ZtLPos3f(0, 0, 0.05), 1e-17)) << "the midpoint";
        else
            EXPECT_TRUE(p.Equals(ZtLPos3f(9, 9, 9), 0)) << "untouched";
    }
    ZtLPos3f p(9, 9, 9);
    EXPECT_EQ(ZtLIntersect::IntersectsTol(x, y, 0.1), 0);
    EXPECT_EQ(ZtLIntersect::IntersectTol(x, y, &p, 0.1), 0);
    EXPECT_EQ(ZtLIntersect::IntersectsTol(x, x, 1.0), 0) << "parallel";
    EXPECT_EQ(p[0], 9.0);
    EXPECT_EQ(ZtLIntersect::IntersectsTol(x, y, 0.10001), 1);
    EXPECT_EQ(ZtLIntersect::IntersectTol(x, y, &p, 0.10001), 1);
    EXPECT_TRUE(p.Equals(ZtLPos3f(0, 0, 0.05), 1e-17));
}
