#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox2f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztutil/ZtUXMLDOMStream.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

ZtLBox3f Box(double x0, double y0, double z0, double x1, double y1, double z1) {
    return ZtLBox3f(ZtLPos3f(x0, y0, z0), ZtLPos3f(x1, y1, z1));
}

ZtLMatrix3f RandomMatrix(std::mt19937& gen) {
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    ZtLMatrix3f a;
    for (int i = 0; i < 9; ++i) a[i / 3][i % 3] = u(gen);
    return a;
}

ZtLBox3f RandomBox(std::mt19937& gen) {
    std::uniform_real_distribution<double> u(-5.0, 5.0);
    ZtLBox3f b;
    b.ExtendBy(ZtLPos3f(u(gen), u(gen), u(gen)));
    b.ExtendBy(ZtLPos3f(u(gen), u(gen), u(gen)));
    return b;
}

// The box of the eight corners mapped by f, built corner by corner.
template <class F>
ZtLBox3f CornerBox(const ZtLBox3f& b, F f) {
    ZtLPos3f c[8];
    b.GetCorners(c);
    ZtLBox3f r;
    for (const ZtLPos3f& p : c) r.ExtendBy(f(p));
    return r;
}

}  // namespace

TEST(ZtLBox3f, EmptinessLooksAtXOnlyAndValidityAtAllAxes) {
    struct Case {
        ZtLBox3f box;
        int empty, valid;
    };
    const Case cases[] = {
        {ZtLBox3f(), 1, 1},
        {Box(0, 5, 0, 1, 0, 1), 0, 0},  // x in order: not empty, y reversed: invalid
        {Box(0, 0, 5, 1, 1, 0), 0, 0},
        {Box(2, 5, 5, 1, 0, 0), 1, 1},  // empty whatever y and z hold
        {Box(0, 0, 0, 0, 0, 0), 0, 1},
        {Box(0, 0, 0, 1, kNaN, 1), 0, 0},
        {Box(1, 1, 1, 0, 0, kInf), 1, 0},  // empty but not finite
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.box.IsEmpty(), c.empty) << c.box.GetMin().ToString().GetString();
        EXPECT_EQ(c.box.IsValid(), c.valid) << c.box.GetMin().ToString().GetString();
    }
    EXPECT_EQ(ZtLBox3f::CreateEmpty(), Box(1, 1, 1, 0, 0, 0));
    ZtLBox3f b = Box(0, 0, 0, 1, 1, 1);
    b.MakeEmpty();
    EXPECT_EQ(b, ZtLBox3f());
    EXPECT_TRUE(ZtLBox3f::IsInvalidConstructorArgs(ZtLPos3f(0, 0, 1), ZtLPos3f(1, 1, 0)));
    EXPECT_FALSE(ZtLBox3f::IsInvalidConstructorArgs(ZtLPos3f(0, 0, 0), ZtLPos3f(0, 1, 0)));
}

TEST(ZtLBox3f, MeasuresOfFullFlatDegenerateAndEmptyBoxes) {
    struct Case {
        ZtLBox3f box;
        int volume, surface;
        double v, s;
    };
    const Case cases[] = {
        {Box(0, 0, 0, 1, 2, 3), 1, 1, 6, 22},
        {Box(0, 0, 0, 1, 2, 0), 0, 1, 0, 4},  // flat: area, no volume
        {Box(0, 0, 0, 1, 0, 0), 0, 0, 0, 0},  // a segment
        {Box(2, 2, 2, 2, 2, 2), 0, 0, 0, 0},  // a point
        {ZtLBox3f(), 0, 0, 0, 0},
        {Box(0, 1, 0, 1, 0, 1), 0, 1, -1, -2},  // y reversed: not empty, signed measures
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.box.HasVolume(), c.volume);
        EXPECT_EQ(c.box.HasSurfaceArea(), c.surface);
        EXPECT_EQ(c.box.Volume(), c.v);
        EXPECT_EQ(c.box.SurfaceArea(), c.s);
    }
    const ZtLBox3f b = Box(-1, 0, 2, 3, 4, 4);
    EXPECT_TRUE(b.GetCenter().Equals(ZtLPos3f(1, 2, 3), 0));
    EXPECT_TRUE(b.GetSize().Equals(ZtLVec3f(4, 4, 2), 0));
    ZtLPos3f c[8];
    b.GetCorners(c);
    const double expect[8][3] = {{-1, 0, 2}, {-1, 4, 2}, {3, 4, 2}, {3, 0, 2},
                                 {-1, 0, 4}, {-1, 4, 4}, {3, 4, 4}, {3, 0, 4}};
    for (int k = 0; k < 8; ++k) EXPECT_TRUE(c[k].Equals(ZtLPos3f(expect[k]), 0)) << k;
}

TEST(ZtLBox3f, ContainmentAndOverlapAreInclusive) {
    const ZtLBox3f unit = Box(0, 0, 0, 1, 1, 1);
    struct PointCase {
        ZtLPos3f p;
        int in;
    };
    const PointCase points[] = {{ZtLPos3f(0.5, 0.5, 0.5), 1},
                                {ZtLPos3f(1, 0.5, 0.5), 1},
                                {ZtLPos3f(0, 0, 0), 1},
                                {ZtLPos3f(1, 1, 1.0000001), 0},
                                {ZtLPos3f(kNaN, 0, 0), 0}};
    for (const PointCase& c : points) {
        EXPECT_EQ(unit.Contains(c.p), c.in);
        EXPECT_EQ(unit.Intersects(c.p), c.in);
    }
    EXPECT_EQ(ZtLBox3f().Contains(ZtLPos3f(0.5, 0.5, 0.5)), 0);

    struct BoxCase {
        ZtLBox3f b;
        int contains, intersects;
    };
    const BoxCase boxes[] = {
        {Box(0.2, 0.2, 0.2, 0.8, 0.8, 0.8), 1, 1},
        {unit, 1, 1},
        {Box(1, 0, 0, 2, 1, 1), 0, 1},  // shares a face
        {Box(0.5, 0.5, 0.5, 2, 2, 2), 0, 1},
        {Box(1.5, 0, 0, 2, 1, 1), 0, 0},
        {ZtLBox3f(), 0, 0},
    };
    for (const BoxCase& c : boxes) {
        EXPECT_EQ(unit.Contains(c.b), c.contains);
        EXPECT_EQ(unit.Intersects(c.b), c.intersects);
        EXPECT_EQ(ZtLBox3f().Contains(c.b), 0);
        EXPECT_EQ(c.b.Intersects(ZtLBox3f()), 0);
    }
}

TEST(ZtLBox3f, IntersectionIsEmptyUnlessTheBoxesOverlapAndThisBoxIsOrdered) {
    const ZtLBox3f unit = Box(0, 0, 0, 1, 1, 1);
    struct Case {
        ZtLBox3f a, b, expect;
    };
    const Case cases[] = {
        {unit, Box(0.5, -1, 0.25, 2, 0.5, 3), Box(0.5, 0, 0.25, 1, 0.5, 1)},
        {unit, Box(1, 0, 0, 2, 1, 1), Box(1, 0, 0, 1, 1, 1)},  // a face: flat
        {unit, Box(2, 0, 0, 3, 1, 1), ZtLBox3f()},
        {unit, ZtLBox3f(), ZtLBox3f()},
        // This box reversed on y: nothing, even though the overlap test passes.
        {Box(0, 5, 0, 1, 0, 1), Box(0, 0, 0, 1, 10, 1), ZtLBox3f()},
        // Only this box's order is checked: the other box's reversed y comes through.
        {Box(0, 0, 0, 1, 10, 1), Box(0, 5, 0, 1, 0, 1), Box(0, 5, 0, 1, 0, 1)},
    };
    for (const Case& c : cases) EXPECT_EQ(c.a.Intersection(c.b), c.expect);
    EXPECT_FALSE(unit.Intersection(Box(1, 0, 0, 2, 1, 1)).HasVolume());
}

TEST(ZtLBox3f, UnionAndExtensionSkipEmptyOperandsAndLetNaNReplaceMin) {
    const ZtLBox3f a = Box(0, 0, 0, 1, 1, 1);
    const ZtLBox3f b = Box(-1, 0.5, 0.5, 0.5, 3, 0.75);
    EXPECT_EQ(a.Union(b), Box(-1, 0, 0, 1, 3, 1));
    EXPECT_EQ(ZtLBox3f().Union(b), b);
    EXPECT_EQ(b.Union(ZtLBox3f()), b);
    const ZtLBox3f otherEmpty = Box(5, 0, 0, 4, 0, 0);
    EXPECT_EQ(otherEmpty.Union(ZtLBox3f()), otherEmpty) << "of two empty boxes this one stays";

    ZtLBox3f p;
    p.ExtendBy(ZtLPos3f(2, 3, 4));
    EXPECT_EQ(p, Box(2, 3, 4, 2, 3, 4));
    EXPECT_FALSE(p.HasVolume() || p.HasSurfaceArea());
    EXPECT_EQ(p.Volume(), 0.0);
    EXPECT_EQ(a.Union(ZtLPos3f(2, -1, 0.5)), Box(0, -1, 0, 2, 1, 1));

    ZtLBox3f n = a;
    n.ExtendBy(ZtLPos3f(kNaN, 0.5, kNaN));
    EXPECT_TRUE(std::isnan(n.GetMin()[0]) && std::isnan(n.GetMin()[2]));
    EXPECT_EQ(n.GetMax()[0], 1.0) << "a NaN replaces min, never max";
}

TEST(ZtLBox3f, TranslationAndExactComparisons) {
    const ZtLBox3f a = Box(0, 0, 0, 1, 1, 1);
    ZtLBox3f t = a;
    t.Translate(ZtLVec3f(1, 2, 3));
    EXPECT_EQ(t, a.TranslatedBy(ZtLVec3f(1, 2, 3)));
    EXPECT_EQ(t, Box(1, 2, 3, 2, 3, 4));
    EXPECT_NE(ZtLBox3f().TranslatedBy(ZtLVec3f(1, 0, 0)), ZtLBox3f()) << "corners move anyway";
    EXPECT_TRUE(a.Equals(Box(0, 0, 0.5, 1, 1, 1), 0.5));
    EXPECT_FALSE(a.Equals(Box(0.3, 0.3, 0.3, 1, 1, 1), 0.5));
    EXPECT_NE(Box(kNaN, 0, 0, 1, 1, 1), Box(kNaN, 0, 0, 1, 1, 1));
}

TEST(ZtLBox3f, LinearAndAffineImagesAreTheBoxOfTheMappedCorners) {
    // Rotation by 45 degrees about z of the unit cube.
    const ZtLMatrix3f r(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), std::atan(1.0)));
    const ZtLVec3f size = Box(0, 0, 0, 1, 1, 1).RotatedBy(r).GetSize();
    EXPECT_NEAR(size[0], std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(size[1], std::sqrt(2.0), 1e-15);
    EXPECT_NEAR(size[2], 1.0, 1e-15);

    std::mt19937 gen(7);
    std::uniform_real_distribution<double> u(-3.0, 3.0);
    for (int k = 0; k < 200; ++k) {
        const ZtLBox3f b = RandomBox(gen);
        const ZtLMatrix3f m = RandomMatrix(gen);
        const ZtLAffine3f a(m, ZtLVec3f(u(gen), u(gen), u(gen)));
        EXPECT_TRUE(b.TransformedBy(m).Equals(
            CornerBox(b, [&](const ZtLPos3f& p) { return p * m; }), 1e-12));
        EXPECT_TRUE(b.TransformedBy(a).Equals(
            CornerBox(b, [&](const ZtLPos3f& p) { return p * a; }), 1e-12));
        ZtLBox3f inPlace = b;
        inPlace.Transform(a);
        EXPECT_EQ(inPlace, b.TransformedBy(a));
        inPlace = b;
        inPlace.Rotate(m);
        EXPECT_EQ(inPlace, b.TransformedBy(m));
        EXPECT_EQ(b.RotatedBy(m), b.TransformedBy(m));
    }
    const ZtLBox3f empty = Box(2, 0, 0, 1, 0, 0);
    EXPECT_EQ(empty.TransformedBy(ZtLAffine3f(ZtLMatrix3f(), ZtLVec3f(1, 1, 1))), empty);
}

TEST(ZtLBox3f, FourByFourImagesProjectTheCornersUnlessTheMatrixIsAffine) {
    std::mt19937 gen(11);
    std::uniform_real_distribution<double> u(-1.0, 1.0);
    const ZtLBox3f b = Box(-1, -2, 1, 2, 1, 3);
    // A perspective division by z (column 3 = (0, 0, 1, 0)).
    ZtLMatrix4f persp(1, 0, 0, 0, 0, 1, 0, 0, 0.25, 0.5, 1, 1, 0, 0, 0, 0);
    EXPECT_EQ(b.TransformedBy(persp), CornerBox(b, [&](const ZtLPos3f& p) { return p * persp; }));
    // The same upper part with column 3 = (0, 0, 0, 1) takes the affine path exactly.
    ZtLMatrix4f affine = persp;
    affine[2][3] = 0.0;
    affine[3][3] = 1.0;
    affine[3][0] = 5.0;
    const ZtLAffine3f asAffine(affine.GetLinear(), affine.GetTranslation());
    EXPECT_EQ(b.TransformedBy(affine), b.TransformedBy(asAffine));

    // The traits dispatch of a general transform lands on the matching path exactly.
    const ZtLMatrix3f m(ZtLRotation3f(ZtLUnitVec3f(1, 2, 3), 0.7));
    const ZtLVec3f t(u(gen), u(gen), u(gen));
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f()), b);
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f::CreateTranslation(t)), b.TranslatedBy(t));
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f(m)), b.TransformedBy(m));
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f(m, t)), b.TransformedBy(ZtLAffine3f(m, t)));
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f(persp)), b.TransformedBy(persp));
    ZtLBox3f inPlace = b;
    inPlace.Transform(ZtLTransform3f(persp));
    EXPECT_EQ(inPlace, b.TransformedBy(persp));
    EXPECT_EQ(ZtLBox3f().TransformedBy(ZtLTransform3f::CreateTranslation(t)), ZtLBox3f());
}

TEST(ZtLBox3f, XMLRecordRoundTripsAndAFailedReadLeavesTheBox) {
    ZtLBox3f b = Box(0.1, -2, 3, 4, 5e-300, 6);
    ZtUXMLDOMWriter w;
    b.SerialiseXML(&w);
    ZtLBox3f e;
    e.SerialiseXML(&w);  // an empty box is written as its stored corners
    ASSERT_FALSE(w.HasError());
    const std::string text = w.GetText();
    EXPECT_NE(text.find("<box3f>"), std::string::npos);
    EXPECT_NE(text.find("<min>"), std::string::npos);

    ZtUXMLDOMReader r;
    ASSERT_TRUE(r.Parse(text));
    ZtLBox3f back = Box(9, 9, 9, 9, 9, 9);
    back.SerialiseXML(&r);
    EXPECT_EQ(back, b);
    back.SerialiseXML(&r);
    EXPECT_EQ(back, ZtLBox3f());
    EXPECT_TRUE(r.Finish());

    std::string bad = text;
    bad.replace(bad.find("<max>"), 5, "<mix>");
    bad.replace(bad.find("</max>"), 6, "</mix>");
    ASSERT_TRUE(r.Parse(bad));
    ZtLBox3f kept = Box(9, 9, 9, 9, 9, 9);
    kept.SerialiseXML(&r);
    EXPECT_TRUE(r.HasError());
    EXPECT_EQ(kept, Box(9, 9, 9, 9, 9, 9));
}

TEST(ZtLBox2f, PlanarBoxKeepsTheRulesAndAddsSizeEdits) {
    const ZtLBox2f unit(1, 1);
    EXPECT_EQ(unit, ZtLBox2f(ZtLPos2f(0, 0), ZtLPos2f(1, 1)));
    EXPECT_TRUE(ZtLBox2f().IsEmpty());
    const ZtLBox2f yReversed(ZtLPos2f(0, 5), ZtLPos2f(1, 0));
    EXPECT_FALSE(yReversed.IsEmpty());
    EXPECT_FALSE(yReversed.IsValid());
    EXPECT_EQ(yReversed.Intersection(ZtLBox2f(ZtLPos2f(0, 0), ZtLPos2f(1, 10))), ZtLBox2f());

    EXPECT_EQ(ZtLBox2f().Grow(1), unit) << "growing ignores emptiness";
    EXPECT_TRUE(unit.Grow(-1).IsEmpty());
    EXPECT_EQ(unit.Grow(-1), ZtLBox2f(ZtLPos2f(1, 1), ZtLPos2f(0, 0)));
    EXPECT_EQ(ZtLBox2f(2, 3).MoveTo(ZtLPos2f(-1, 4)), ZtLBox2f(ZtLPos2f(-1, 4), ZtLPos2f(1, 7)));

    ZtLBox2f s(ZtLPos2f(1, 2), ZtLPos2f(3, 3));
    EXPECT_EQ(s.GetWidth(), 2.0);
    EXPECT_EQ(s.GetHeight(), 1.0);
    s.SetWidth(5);
    s.SetHeight(0.5);
    EXPECT_EQ(s, ZtLBox2f(ZtLPos2f(1, 2), ZtLPos2f(6, 2.5)));
    EXPECT_EQ(s.Area(), 2.5);
    EXPECT_TRUE(s.HasArea());
    EXPECT_FALSE(ZtLBox2f(ZtLPos2f(0, 0), ZtLPos2f(1, 0)).HasArea());
    EXPECT_EQ(ZtLBox2f().Area(), 0.0);

    EXPECT_EQ(unit.Contains(ZtLPos2f(1, 0)), 1);
    EXPECT_EQ(unit.Intersects(ZtLBox2f(ZtLPos2f(1, 1), ZtLPos2f(2, 2))), 1);
    EXPECT_EQ(unit.Contains(ZtLBox2f(ZtLPos2f(0.5, 0), ZtLPos2f(1, 1.5))), 0);
    EXPECT_EQ(unit.Intersection(ZtLBox2f(ZtLPos2f(0.5, -1), ZtLPos2f(2, 0.5))),
              ZtLBox2f(ZtLPos2f(0.5, 0), ZtLPos2f(1, 0.5)));
    EXPECT_EQ(unit.Union(ZtLBox2f(ZtLPos2f(-1, 0.5), ZtLPos2f(0, 3))),
              ZtLBox2f(ZtLPos2f(-1, 0), ZtLPos2f(1, 3)));
    EXPECT_EQ(ZtLBox2f().Union(ZtLPos2f(2, 3)), ZtLBox2f(ZtLPos2f(2, 3), ZtLPos2f(2, 3)));
    const ZtLBox2f n = unit.Union(ZtLPos2f(0.5, kNaN));
    EXPECT_TRUE(std::isnan(n.GetMin()[1]));
    EXPECT_EQ(n.GetMax()[1], 1.0);
    EXPECT_EQ(unit.TranslatedBy(ZtLVec2f(1, -1)), ZtLBox2f(ZtLPos2f(1, -1), ZtLPos2f(2, 0)));
    EXPECT_TRUE(ZtLBox2f::IsInvalidConstructorArgs(ZtLPos2f(0, 1), ZtLPos2f(1, 0)));
}

TEST(ZtLBox2f, PlanarImagesAreTheBoxOfTheMappedCorners) {
    std::mt19937 gen(21);
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    for (int k = 0; k < 100; ++k) {
        ZtLBox2f b;
        b.ExtendBy(ZtLPos2f(u(gen), u(gen)));
        b.ExtendBy(ZtLPos2f(u(gen), u(gen)));
        const ZtLMatrix2f m(u(gen), u(gen), u(gen), u(gen));
        const ZtLAffine2f a(m, ZtLVec2f(u(gen), u(gen)));
        const ZtLPos2f lo = b.GetMin(), hi = b.GetMax();
        const ZtLPos2f corners[4] = {lo, ZtLPos2f(lo[0], hi[1]), hi, ZtLPos2f(hi[0], lo[1])};
        ZtLBox2f bm, ba;
        for (const ZtLPos2f& c : corners) {
            bm.ExtendBy(c * m);
            ba.ExtendBy(c * a);
        }
        EXPECT_TRUE(b.TransformedBy(m).Equals(bm, 1e-13));
        EXPECT_TRUE(b.TransformedBy(a).Equals(ba, 1e-13));
        ZtLBox2f inPlace = b;
        inPlace.Transform(a);
        EXPECT_EQ(inPlace, b.TransformedBy(a));
        inPlace = b;
        inPlace.Rotate(m);
        EXPECT_EQ(inPlace, b.RotatedBy(m));
    }
    EXPECT_EQ(ZtLBox2f().TransformedBy(ZtLAffine2f(ZtLMatrix2f(), ZtLVec2f(3, 3))), ZtLBox2f());
}
