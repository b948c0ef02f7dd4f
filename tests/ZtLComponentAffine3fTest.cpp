#include <ztlinear/ZtLComponentAffine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

ZtLComponentAffine3f Identity() {
    ZtLComponentAffine3f c;
    c.MakeIdentity();
    return c;
}

// An affine transform with a random linear part (either sign of determinant) and translation.
ZtLTransform3f RandomAffine(std::mt19937& gen) {
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    for (;;) {
        const ZtLMatrix3f m(u(gen), u(gen), u(gen), u(gen), u(gen), u(gen), u(gen), u(gen), u(gen));
        if (std::fabs(m.Determinant()) > 0.1)
            return ZtLTransform3f(m, ZtLVec3f(u(gen), u(gen), u(gen)));
    }
}

// The images of the origin and the unit points agree within tol.
bool MapsAlike(const ZtLTransform3f& a, const ZtLTransform3f& b, double tol) {
    const ZtLPos3f points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {-3, 2, 5}};
    for (const ZtLPos3f& p : points)
        if (!ZtLPos3f::Equals(p * a, p * b, tol)) return false;
    return true;
}

}  // namespace

TEST(ZtLComponentAffine3f, CombineAppliesScaleAndRotationAboutTheCentre) {
    ZtLComponentAffine3f c = Identity();
    EXPECT_TRUE(c.Combine().Equals(ZtLTransform3f(), 0.0));
    c.SetScale(ZtLVec3f(2, 2, 2));
    c.SetCenter(ZtLVec3f(1, 0, 0));
    const ZtLTransform3f t = c.Combine();
    EXPECT_TRUE(ZtLPos3f::Equals(ZtLPos3f(1, 0, 0) * t, ZtLPos3f(1, 0, 0), 0));
    EXPECT_TRUE(ZtLPos3f::Equals(ZtLPos3f(0, 0, 0) * t, ZtLPos3f(-1, 0, 0), 0));

    // ((p - C) SO^-1 S SO R) + C + T, term by term.
    c.SetScale(ZtLVec3f(1, 3, 0.5));
    c.SetScaleOrientation(ZtLRotation3f(ZtLUnitVec3f(1, 1, 0), 0.7));
    c.SetRotation(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), -1.1));
    c.SetCenter(ZtLVec3f(1, 2, 3));
    c.SetTranslation(ZtLVec3f(1, 1, 1));
    ZtLMatrix3f s;
    s.MakeScale(c.GetScale());
    const ZtLMatrix3f so(c.GetScaleOrientation());
    const ZtLMatrix3f l = so.Transpose() * s * so * ZtLMatrix3f(c.GetRotation());
    const ZtLPos3f p(4, -1, 2);
    const ZtLVec3f expected = p.Subtract(ZtLPos3f(1, 2, 3)) * l + ZtLVec3f(2, 3, 4);
    EXPECT_TRUE(ZtLPos3f::Equals(p * c.Combine(), expected.Pos(), 1e-14));
    EXPECT_TRUE(ZtLVec3f::Equals(c.CalcWorldSpaceCenter(), ZtLVec3f(2, 3, 4), 0));
}

TEST(ZtLComponentAffine3f, FactoredTransformsCombineBackAndKeepThemUnderACentreMove) {
    std::mt19937 gen(3);
    for (int k = 0; k < 50; ++k) {
        const ZtLTransform3f t = RandomAffine(gen);
        const ZtLComponentAffine3f c = t.Factor();
        EXPECT_TRUE(MapsAlike(c.Combine(), t, 1e-12)) << k;
        const ZtLVec3f centre(k, -0.5 * k, 2);
        ZtLComponentAffine3f centred;
        t.Factor(centre, &centred);
        // A small scale factor can put the centre hundreds of units away: rounding grows with it.
        EXPECT_TRUE(ZtLVec3f::Equals(centred.CalcWorldSpaceCenter(), centre, 1e-10)) << k;
        EXPECT_TRUE(MapsAlike(centred.Combine(), t, 1e-12)) << k;
        EXPECT_TRUE(ZtLPos3f::Equals(centred.GetCenter().Pos() * t, centre.Pos(), 1e-10)) << k;
    }

    // A flat scale: the centre cannot reach every point, yet Combine() stays as it was.
    ZtLComponentAffine3f flat = Identity();
    flat.SetScale(ZtLVec3f(2, 0, 1));
    flat.SetTranslation(ZtLVec3f(0, 5, 0));
    const ZtLTransform3f before = flat.Combine();
    flat.ApplyWorldSpaceCenter(ZtLVec3f(4, 1, 3));
    EXPECT_TRUE(MapsAlike(flat.Combine(), before, 1e-14));
    EXPECT_TRUE(ZtLVec3f::Equals(flat.CalcWorldSpaceCenter(), ZtLVec3f(4, 5, 3), 1e-14));
    EXPECT_TRUE(ZtLVec3f::Equals(flat.GetCenter(), ZtLVec3f(2, 0, 3), 1e-14));
}

TEST(ZtLComponentAffine3f, CopiesComparisonsHashAndText) {
    ZtLComponentAffine3f a = Identity();
    a.SetRotation(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), 3.141592653589793 / 2));
    a.EditCenter() = ZtLVec3f(1, 2, 3);
    ZtLComponentAffine3f b(a);
    EXPECT_TRUE(b == a);
    EXPECT_EQ(b.CalcHashCode(), a.CalcHashCode());
    b.EditTranslation()[2] = 1e-300;
    EXPECT_TRUE(b != a);
    EXPECT_NE(b.CalcHashCode(), a.CalcHashCode());

    const std::wstring text = a.ToString().GetString();
    EXPECT_EQ(text, std::wstring(L"Scale: ") + a.GetScale().ToString().GetString() +
                        L"\nScale orientation: " + a.GetScaleOrientation().ToString().GetString() +
                        L"\nRotation: " + a.GetRotation().ToString().GetString() + L"\nCenter: " +
                        a.GetCenter().ToString().GetString() + L"\nTranslation: " +
                        a.GetTranslation().ToString().GetString());
    EXPECT_NE(text.find(L"90.0000"), std::wstring::npos) << "rotations print Euler degrees";
}
