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

ZtLBox3f Box(double x0, double y0, double z0, double x1, double y1, double z1) {
    return ZtLBox3f(ZtLPos3f(x0, y0, z0), ZtLPos3f(x1, y1, z1));
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

TEST(ZtLBox3f, EmptinessLooksAtXOnlyWhileValidityAndMeasuresSeeAllAxes) {
    struct Case {
        ZtLBox3f box;
        int empty, valid, volume, surface;
        double v, s;
    };
    const Case cases[] = {
        {ZtLBox3f(), 1, 1, 0, 0, 0, 0},
        {Box(0, 0, 0, 1, 2, 3), 0, 1, 1, 1, 6, 22},
        {Box(0, 0, 0, 1, 2, 0), 0, 1, 0, 1, 0, 4},    // flat
        {Box(2, 2, 2, 2, 2, 2), 0, 1, 0, 0, 0, 0},    // a point
        {Box(0, 1, 0, 1, 0, 1), 0, 0, 0, 1, -1, -2},  // y reversed: not empty, only invalid
        {Box(2, 5, 5, 1, 0, 0), 1, 1, 0, 0, 0, 0},    // empty whatever y and z hold
        {Box(0, 0, 0, 1, kNaN, 1), 0, 0, 0, 0, kNaN, kNaN},
    };
    for (const Case& c : cases) {
        const ZtLBox3f& b = c.box;
        SCOPED_TRACE(b.GetMin().ToString().GetString());
        EXPECT_EQ(b.IsEmpty(), c.empty);
        EXPECT_EQ(b.IsValid(), c.valid);
        EXPECT_EQ(b.HasVolume(), c.volume);
        if (std::isnan(c.v)) continue;
        EXPECT_EQ(b.HasSurfaceArea(), c.surface);
        EXPECT_EQ(b.Volume(), c.v);
        EXPECT_EQ(b.SurfaceArea(), c.s);
    }
    ZtLPos3f c[8];
    Box(-1, 0, 2, 3, 4, 5).GetCorners(c);
    const double expect[8][3] = {{-1, 0, 2}, {-1, 4, 2}, {3, 4, 2}, {3, 0, 2},
                                 {-1, 0, 5}, {-1, 4, 5}, {3, 4, 5}, {3, 0, 5}};
    for (int k = 0; k < 8; ++k) EXPECT_TRUE(c[k].Equals(ZtLPos3f(expect[k]), 0)) << k;
}

TEST(ZtLBox3f, ContainmentOverlapAndIntersectionAreInclusive) {
    const ZtLBox3f unit = Box(0, 0, 0, 1, 1, 1);
    EXPECT_EQ(unit.Contains(ZtLPos3f(1, 0.5, 0)), 1) << "a point on a face";
    EXPECT_EQ(unit.Intersects(ZtLPos3f(1, 1, 1.0000001)), 0);
    EXPECT_EQ(ZtLBox3f().Contains(ZtLPos3f(1, 1, 1)), 0) << "(1, 1, 1) is min of the empty box";
    struct Case {
        ZtLBox3f b;
        int contains, intersects;
        ZtLBox3f common;
    };
    const Case cases[] = {
        {Box(0.2, 0, 0.2, 0.8, 1, 0.8), 1, 1, Box(0.2, 0, 0.2, 0.8, 1, 0.8)},
        {Box(1, 0, 0, 2, 1, 1), 0, 1, Box(1, 0, 0, 1, 1, 1)},  // a shared face: flat
        {Box(0.5, -1, 0.25, 2, 0.5, 3), 0, 1, Box(0.5, 0, 0.25, 1, 0.5, 1)},
        {Box(1.5, 0, 0, 2, 1, 1), 0, 0, ZtLBox3f()},
        {ZtLBox3f(), 0, 0, ZtLBox3f()},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(unit.Contains(c.b), c.contains);
        EXPECT_EQ(unit.Intersects(c.b), c.intersects);
        EXPECT_EQ(unit.Intersection(c.b), c.common);
    }
    // Only this box's order on y and z is checked: reversed here gives nothing, even though the
    // overlap test passes; reversed in the other box, it comes through.
    const ZtLBox3f tall = Box(0, 0, 0, 1, 10, 1), yReversed = Box(0, 5, 0, 1, 0, 1);
    EXPECT_EQ(yReversed.Intersection(tall), ZtLBox3f());
    EXPECT_EQ(tall.Intersection(yReversed), yReversed);
}

TEST(ZtLBox3f, UnionSkipsEmptyOperandsAndLetsNaNReplaceMin) {
    const ZtLBox3f a = Box(0, 0, 0, 1, 1, 1), b = Box(-1, 0.5, 0.5, 0.5, 3, 0.75);
    const ZtLBox3f otherEmpty = Box(5, 0, 0, 4, 0, 0);
    EXPECT_EQ(a.Union(b), Box(-1, 0, 0, 1, 3, 1));
    EXPECT_EQ(ZtLBox3f().Union(b), b);
    EXPECT_EQ(b.Union(otherEmpty), b);
    EXPECT_EQ(otherEmpty.Union(ZtLBox3f()), otherEmpty) << "of two empty boxes this one stays";
    EXPECT_EQ(ZtLBox3f().Union(ZtLPos3f(2, 3, 4)), Box(2, 3, 4, 2, 3, 4));
    EXPECT_EQ(a.Union(ZtLPos3f(2, -1, 0.5)), Box(0, -1, 0, 2, 1, 1));
    ZtLBox3f n = a;
    n.ExtendBy(ZtLPos3f(kNaN, 0.5, 2));
    EXPECT_TRUE(std::isnan(n.GetMin()[0]));
    EXPECT_EQ(n.GetMax()[0], 1.0) << "a NaN replaces min, never max";
    EXPECT_EQ(n.GetMax()[2], 2.0);
}

TEST(ZtLBox3f, LinearAndAffineImagesAreTheBoxOfTheMappedCorners) {
    const ZtLMatrix3f r(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), std::atan(1.0)));
    EXPECT_TRUE(Box(0, 0, 0, 1, 1, 1)
                    .RotatedBy(r)
                    .GetSize()
                    .Equals(ZtLVec3f(std::sqrt(2.0), std::sqrt(2.0), 1), 1e-15));
    std::mt19937 gen(7);
    std::uniform_real_distribution<double> u(-3.0, 3.0);
    for (int k = 0; k < 200; ++k) {
        ZtLBox3f b;
        b.ExtendBy(ZtLPos3f(u(gen), u(gen), u(gen)));
        b.ExtendBy(ZtLPos3f(u(gen), u(gen), u(gen)));
        const ZtLMatrix3f m(u(gen), u(gen), u(gen), u(gen), u(gen), u(gen), u(gen), u(gen), u(gen));
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
    }
    const ZtLBox3f empty = Box(2, 0, 0, 1, 0, 0);
    EXPECT_EQ(empty.TransformedBy(ZtLAffine3f(ZtLMatrix3f(), ZtLVec3f(1, 1, 1))), empty);
}

TEST(ZtLBox3f, FourByFourAndGeneralTransformsTakeTheMatchingPath) {
    const ZtLBox3f b = Box(-1, -2, 1, 2, 1, 3);
    ZtLMatrix4f persp(1, 0, 0, 0, 0, 1, 0, 0, 0.25, 0.5, 1, 1, 0, 0, 0, 0);  // divides by z
    EXPECT_EQ(b.TransformedBy(persp), CornerBox(b, [&](const ZtLPos3f& p) { return p * persp; }));
    ZtLMatrix4f affine = persp;  // last column (0, 0, 0, 1): exactly the affine result
    affine[2][3] = 0.0;
    affine[3][3] = 1.0;
    affine[3][0] = 5.0;
    EXPECT_EQ(b.TransformedBy(affine),
              b.TransformedBy(ZtLAffine3f(affine.GetLinear(), affine.GetTranslation())));

    const ZtLMatrix3f m(ZtLRotation3f(ZtLUnitVec3f(1, 2, 3), 0.7));
    const ZtLVec3f t(0.5, -0.25, 2);
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f()), b);
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f::CreateTranslation(t)), b.TranslatedBy(t));
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f(m)), b.TransformedBy(m));
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f(m, t)), b.TransformedBy(ZtLAffine3f(m, t)));
    EXPECT_EQ(b.TransformedBy(ZtLTransform3f(persp)), b.TransformedBy(persp));
    EXPECT_EQ(ZtLBox3f().TransformedBy(ZtLTransform3f::CreateTranslation(t)), ZtLBox3f());
    ZtLBox3f inPlace = b;
    inPlace.Transform(ZtLTransform3f(persp));
    EXPECT_EQ(inPlace, b.TransformedBy(persp));
}

TEST(ZtLBox3f, XMLRecordRoundTripsAndAFailedReadLeavesTheBox) {
    const ZtLBox3f b = Box(0.1, -2, 3, 4, 5e-300, 6), stored = Box(9, 9, 9, 9, 9, 9);
    ZtUXMLDOMWriter w;
    ZtLBox3f(b).SerialiseXML(&w);
    ZtLBox3f().SerialiseXML(&w);  // an empty box is written as its stored corners
    std::string text = w.GetText();
    EXPECT_NE(text.find("<box3f>\n  <min>\n    <pos3f x=\"0.1\""), std::string::npos) << text;
    ZtUXMLDOMReader r;
    ASSERT_TRUE(r.Parse(text));
    ZtLBox3f back = stored;
    back.SerialiseXML(&r);
    EXPECT_EQ(back, b);
    back.SerialiseXML(&r);
    EXPECT_EQ(back, ZtLBox3f());
    EXPECT_TRUE(r.Finish());
    text.replace(text.find("<max>"), 5, "<mix>");
    text.replace(text.find("</max>"), 6, "</mix>");
    ASSERT_TRUE(r.Parse(text));
    back = stored;
    back.SerialiseXML(&r);
    EXPECT_TRUE(r.HasError());
    EXPECT_EQ(back, stored);
}

TEST(ZtLBox2f, PlanarBoxesGrowMoveAndMapLikeTheSpatialOnes) {
    const ZtLBox2f unit(1, 1);
    EXPECT_EQ(ZtLBox2f().Grow(1), unit) << "growing ignores emptiness";
    EXPECT_EQ(unit.Grow(-1), ZtLBox2f(ZtLPos2f(1, 1), ZtLPos2f(0, 0)));
    EXPECT_EQ(ZtLBox2f(2, 3).MoveTo(ZtLPos2f(-1, 4)), ZtLBox2f(ZtLPos2f(-1, 4), ZtLPos2f(1, 7)));
    const ZtLBox2f yReversed(ZtLPos2f(0, 5), ZtLPos2f(1, 0));
    EXPECT_FALSE(yReversed.IsEmpty() || yReversed.IsValid());
    EXPECT_EQ(yReversed.Intersection(ZtLBox2f(1, 10)), ZtLBox2f());
    EXPECT_TRUE(std::isnan(unit.Union(ZtLPos2f(0.5, kNaN)).GetMin()[1]));

    std::mt19937 gen(21);
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    for (int k = 0; k < 100; ++k) {
        const ZtLBox2f b =
            ZtLBox2f().Union(ZtLPos2f(u(gen), u(gen))).Union(ZtLPos2f(u(gen), u(gen)));
        const ZtLAffine2f a(ZtLMatrix2f(u(gen), u(gen), u(gen), u(gen)), ZtLVec2f(u(gen), u(gen)));
        const ZtLPos2f lo = b.GetMin(), hi = b.GetMax();
        ZtLBox2f corners;
        for (const ZtLPos2f& c : {lo, ZtLPos2f(lo[0], hi[1]), hi, ZtLPos2f(hi[0], lo[1])})
            corners.ExtendBy(c * a);
        EXPECT_TRUE(b.TransformedBy(a).Equals(corners, 1e-13));
        EXPECT_EQ(b.TransformedBy(a.GetLinear()), b.RotatedBy(a.GetLinear()));
    }
}
