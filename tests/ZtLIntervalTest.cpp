#include <ztlinear/ZtLInterval.h>

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
        {C, C, 0, true, 0},           {C, C, 1, true, 1},         {C, C, -1, false, 0},
        {C, C, 2, false, 1},          {O, O, 0, false, 1},   // equal to the open lower limit: not
                                                             // below
        {O, O, 1, false, 1},          {O, O, -1, false, 0},  // the open limit itself is returned
        {O, O, 0.5, true, 0.5},       {O, C, 1, true, 1},         {C, O, 0, true, 0},
        {U, O, -1e300, true, -1e300}, {U, U, 1e300, true, 1e300}, {C, U, -1, false, 0},
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
