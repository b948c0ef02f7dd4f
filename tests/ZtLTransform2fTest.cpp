#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztutil/ZtUError.h>
#include <ztutil/ZtUStream.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace {

const double kPi = 3.141592653589793;

int g_posts = 0;
ZtUErrorReport g_last;
std::string g_message;
void Capture(const ZtUErrorReport& r) {
    ++g_posts;
    g_last = r;
    g_message = r.message;
}
// Routes the posts made during its lifetime to Capture.
struct ErrorCapture {
    ZtUError::Handler previous = ZtUError::SetHandler(&Capture);
    ErrorCapture() { g_posts = 0; }
    ~ErrorCapture() { ZtUError::SetHandler(previous); }
};

// Entries in [-2, 2], determinant at least 0.05 in magnitude: factoring goes through M M^T, which
// squares the condition number, so nearly singular matrices would need looser tolerances.
ZtLMatrix2f Random(std::mt19937& gen) {
    std::uniform_real_distribution<double> u(-2.0, 2.0);
    for (;;) {
        const ZtLMatrix2f m(u(gen), u(gen), u(gen), u(gen));
        if (std::fabs(m.Determinant()) >= 0.05) return m;
    }
}

bool IsRotation(const ZtLMatrix2f& a, double tol) {
    return (a * a.Transpose()).Equals(ZtLMatrix2f(), tol) && std::fabs(a.Determinant() - 1) <= tol;
}

// U^T diag(s) U R: what Factor claims to have split.
ZtLMatrix2f Recompose(const ZtLVec2f& s, const ZtLMatrix2f& u, const ZtLMatrix2f& r) {
    ZtLMatrix2f d;
    d.MakeScale(s);
    return u.Transpose() * d * u * r;
}

}  // namespace

TEST(ZtLRotation2f, FromTwoDirectionsSnapsIdentityAndHalfTurnWithinResop) {
    const ZtLUnitVec2f x(1, 0);
    const ZtLRotation2f same(x, x);
    EXPECT_TRUE(same.IsIdentity());
    const ZtLUnitVec2f d(0.6, -0.8);
    EXPECT_EQ(ZtLRotation2f(d, -d), ZtLRotation2f(-1.0, 0.0)) << "exactly a half turn";
    const ZtLUnitVec2f nearOpposite(-1, 1e-6);  // 1 + d = 5e-13 < resop
    EXPECT_EQ(ZtLRotation2f(x, nearOpposite), ZtLRotation2f(-1.0, 0.0));
    const ZtLUnitVec2f nearSame(1, 1e-4);  // 1 - d = 5e-9 > resop
    EXPECT_FALSE(ZtLRotation2f(x, nearSame).IsIdentity());

    EXPECT_EQ(ZtLRotation2f(x, ZtLUnitVec2f(0, 1)), ZtLRotation2f(0.0, 1.0));
    EXPECT_EQ(ZtLRotation2f(x, ZtLUnitVec2f(0, -1)), ZtLRotation2f(0.0, -1.0)) << "clockwise";
}

TEST(ZtLRotation2f, GetValueCountsSinesAboveMinusResopAsPositive) {
    EXPECT_DOUBLE_EQ(ZtLRotation2f(std::cos(0.5), -std::sin(0.5)).GetValue(), -0.5);
    EXPECT_EQ(ZtLRotation2f(-1.0, -1e-12).GetValue(), kPi);
    EXPECT_EQ(ZtLRotation2f(-1.0, -2e-10).GetValue(), -kPi);
    EXPECT_DOUBLE_EQ(ZtLRotation2f(-2.5).GetValue(), -2.5);
    ZtLVec::SetResop(1e-13);  // read at each call
    EXPECT_EQ(ZtLRotation2f(-1.0, -1e-12).GetValue(), -kPi);
    ZtLVec::SetResop(1e-10);
}

TEST(ZtLRotation2f, ProductsNormaliseAndVectorsRotateCounterClockwise) {
    const ZtLRotation2f a(0.3), b(0.4);
    EXPECT_TRUE((a * b).Equals(ZtLRotation2f(0.7), 1e-15));
    const ZtLRotation2f scaled = ZtLRotation2f(2.0, 0.0) * ZtLRotation2f(0.0, 3.0);
    EXPECT_EQ(scaled, ZtLRotation2f(0.0, 1.0)) << "renormalised";
    ZtLRotation2f c = a;
    c.Invert();
    EXPECT_EQ(c, ZtLRotation2f(a.GetCosAngle(), -a.GetSinAngle()));
    EXPECT_FALSE(a.Equals(b, 1 - std::cos(0.1) - 1e-12));
    EXPECT_TRUE(a.Equals(b, 1 - std::cos(0.1) + 1e-12));

    const ZtLRotation2f quarter(kPi / 2);
    EXPECT_TRUE(ZtLVec2f::Equals(ZtLVec2f(1, 0) * quarter, ZtLVec2f(0, 1), 1e-16));
    EXPECT_TRUE(ZtLVec2f::Equals(quarter * ZtLVec2f(1, 0), ZtLVec2f(0, -1), 1e-16));
    const ZtLVec2f v(0.25, -3);
    EXPECT_TRUE(ZtLVec2f::Equals(ZtLMatrix2f(a) * v, a * v, 0.0));
}

TEST(ZtLRotation2f, StreamRecordIsTwoDoublesAndAShortReadChangesNothing) {
    ZtUWriteStream out;
    out << ZtLRotation2f(-0.0, 0.1) << ZtLRotation2f(0.5, 2.0);
    ASSERT_EQ(out.GetBytesWritten(), 32u);
    ZtUReadStream in(out.GetBuffer());
    ZtLRotation2f r(7.0, 7.0);
    in >> r;
    EXPECT_TRUE(std::signbit(r.GetCosAngle()));
    EXPECT_EQ(r.GetSinAngle(), 0.1);
    in >> r;
    EXPECT_EQ(r, ZtLRotation2f(0.5, 2.0));

    ZtUReadStream shortIn(out.GetBuffer().data(), 24);
    ZtLRotation2f s(7.0, 7.0);
    shortIn >> s >> s;
    EXPECT_EQ(s, ZtLRotation2f(-0.0, 0.1)) << "the second record is cut short";
}

TEST(ZtLMatrix2f, ProductsAndVectorForms) {
    const ZtLMatrix2f a(1, 2, 3, 4), b(-1, 0.5, 2, 3);
    EXPECT_EQ(a * b, ZtLMatrix2f(3, 6.5, 5, 13.5));
    ZtLMatrix2f c = a;
    EXPECT_EQ(c.MultLeft(b), b * a);
    c = a;
    EXPECT_EQ(c.ScaleLeft(ZtLVec2f(2, -1)), ZtLMatrix2f(2, 4, -3, -4));
    c = a;
    EXPECT_EQ(c.RotateRight(ZtLRotation2f(0.0, 1.0)), a * ZtLMatrix2f(0, 1, -1, 0));
    EXPECT_TRUE(ZtLVec2f::Equals(ZtLVec2f(1, -1) * a, ZtLVec2f(-2, -2), 0));
    EXPECT_TRUE(ZtLPos2f::Equals(ZtLPos2f(1, -1) * a, ZtLPos2f(-2, -2), 0));
    EXPECT_TRUE(ZtLVec2f::Equals(a * ZtLVec2f(1, -1), ZtLVec2f(-1, -1), 0));
    EXPECT_TRUE(ZtLPos2f::Equals(a * ZtLPos2f(1, -1), ZtLPos2f(-1, -1), 0));
    EXPECT_EQ(a.Determinant(), -2);
    EXPECT_TRUE(ZtLRotation2f(0.7).Equals(
        (ZtLMatrix2f(ZtLRotation2f(0.7)) * ZtLMatrix2f(3, 0, 0, 3)).ConvertRotation(), 0.0));
}

TEST(ZtLMatrix2f, InverseUsesAnAbsoluteDeterminantThreshold) {
    ErrorCapture capture;
    const ZtLMatrix2f tiny(1e-6, 0, 0, 5e-7);  // det 5e-13: regular, yet reported
    EXPECT_EQ(tiny.Inverse(), ZtLMatrix2f());
    EXPECT_EQ(g_posts, 1);
    EXPECT_TRUE(g_last.severity == 1 && g_last.component == ZtLMatrix::GetComponent() &&
                g_last.code == 1 && g_last.data == &tiny);
    EXPECT_EQ(g_message, "Singular Matrix");

    const ZtLMatrix2f small(1e-6, 0, 0, 2e-6);  // det 2e-12
    EXPECT_TRUE((small * small.Inverse()).Equals(ZtLMatrix2f(), 1e-15));
    ZtLMatrix2f a(1, 2, 3, 4);
    a.Invert();
    EXPECT_EQ(a, ZtLMatrix2f(-2, 1, 1.5, -0.5));
    EXPECT_EQ(g_posts, 1);

    ZtLAffine2f singular(ZtLMatrix2f(1, 2, 2, 4), ZtLVec2f(1, -3));
    singular.Invert();
    EXPECT_EQ(singular, ZtLAffine2f(ZtLMatrix2f(), ZtLVec2f(-1, 3)));
    EXPECT_EQ(g_posts, 2);
    EXPECT_EQ(g_last.code, 1);
}

TEST(ZtLMatrix2f, FactorRecomposesWithProperRotationsAlsoInTheAffine) {
    std::mt19937 gen(7);
    for (int k = 0; k < 200; ++k) {
        const ZtLMatrix2f m = Random(gen);
        ZtLVec2f s;
        ZtLMatrix2f u, r;
        m.Factor(&s, &u, &r);
        EXPECT_TRUE(Recompose(s, u, r).Equals(m, 1e-12)) << k;
        EXPECT_TRUE(IsRotation(u, 1e-13) && IsRotation(r, 1e-12)) << k;
        EXPECT_EQ(s[0] * s[1] < 0, m.Determinant() < 0) << k;
        const ZtLAffine2f a(m, ZtLVec2f(k, -k));
        ZtLVec2f s2, t;
        ZtLRotation2f ru, rr;
        a.Factor(&s2, &ru, &rr, &t);
        EXPECT_TRUE(
            ZtLAffine2f(Recompose(s2, ZtLMatrix2f(ru), ZtLMatrix2f(rr)), t).Equals(a, 1e-12))
            << k;
    }
    ZtLVec2f s;
    ZtLMatrix2f u, r;
    ZtLMatrix2f(2, 0, 0, 3).Factor(&s, &u, &r);
    EXPECT_TRUE(s.Equals(ZtLVec2f(2, 3), 0) && u.IsIdentity() && r.IsIdentity());

    // The 2x2 decomposition is the 3x3 one of the block-diagonal matrix.
    const ZtLMatrix2f m(1.5, -0.25, 0.75, 2);
    m.Factor(&s, &u, &r);
    ZtLVec3f s3;
    ZtLMatrix3f u3, r3;
    ZtLMatrix3f(1.5, -0.25, 0, 0.75, 2, 0, 0, 0, 1).Factor(&s3, &u3, &r3);
    EXPECT_TRUE(s.Equals(ZtLVec2f(s3[0], s3[1]), 0));
    EXPECT_TRUE(u.Equals(ZtLMatrix2f(u3[0][0], u3[0][1], u3[1][0], u3[1][1]), 0));
    EXPECT_TRUE(r.Equals(ZtLMatrix2f(r3[0][0], r3[0][1], r3[1][0], r3[1][1]), 1e-16));
}

TEST(ZtLAffine2f, ProductsApplyLeftOperandFirst) {
    const ZtLAffine2f a(ZtLMatrix2f(1, 2, 3, 4), ZtLVec2f(1, -1));
    const ZtLAffine2f b(ZtLMatrix2f(0, 1, -1, 0), ZtLVec2f(5, 0));
    const ZtLPos2f p(0.5, -2);
    EXPECT_TRUE(ZtLPos2f::Equals(p * (a * b), (p * a) * b, 0));
    EXPECT_TRUE(ZtLVec2f::Equals(ZtLVec2f(1, 2) * ZtLAffine2f().MakeTranslation(ZtLVec2f(1, 0)),
                                 ZtLVec2f(1, 2), 0));
    ZtLAffine2f c = a;
    EXPECT_EQ(c.MultLeft(b), b * a);
    c = a;
    EXPECT_EQ(c.MultRight(c), a * a);
    const ZtLRotation2f q(0.3);
    const ZtLVec2f s(2, -0.5), v(3, 4);
    c = a;
    EXPECT_EQ(c.RotateRight(q), a * ZtLAffine2f().MakeRotation(q));
    c = a;
    EXPECT_EQ(c.ScaleRight(s), a * ZtLAffine2f().MakeScale(s));
    c = ZtLAffine2f().MakeUniformScale(2);
    EXPECT_EQ(c.TranslateLeft(v).GetTranslation()[1], 8);
    EXPECT_EQ(c.TranslateRight(v).GetTranslation()[1], 12);

    EXPECT_TRUE((a * a.Inverse()).Equals(ZtLAffine2f(), 1e-15));
    EXPECT_EQ(ZtLAffine2f(a.GetMatrix()), a);
}

TEST(ZtLMatrix3f, PlaneRotationAndTwoDimensionalFactorHandOverToTheAffine) {
    const ZtLRotation2f q(0.6);
    const double c = q.GetCosAngle(), s = q.GetSinAngle();
    EXPECT_EQ(ZtLMatrix3f(q), ZtLMatrix3f(c, s, 0, -s, c, 0, 0, 0, 1));

    const ZtLAffine2f a(ZtLMatrix2f(1, 2, -3, 0.5), ZtLVec2f(4, -5));
    ZtLMatrix3f h = a.GetMatrix();
    h[0][2] = 0.25;
    h[1][2] = -0.5;
    ZtLVec2f s1, t1, s2, t2;
    ZtLMatrix2f u1, r1;
    ZtLRotation2f u2, r2;
    a.Factor(&s1, &u1, &r1, &t1);
    ZtLMatrix3f projection;
    h.Factor(&s2, &u2, &r2, &t2, &projection);
    EXPECT_TRUE(s2.Equals(s1, 0) && t2.Equals(t1, 0));
    EXPECT_EQ(u2, u1.ConvertRotation());
    ZtLMatrix3f expected;
    h.FactorProjection(&expected);
    EXPECT_EQ(projection, expected);
    h.Factor(&s2, &u1, &r1, &t2, &h);  // the projection may overwrite the source
    EXPECT_TRUE(s2.Equals(s1, 0) && t2.Equals(t1, 0));
    EXPECT_EQ(h, expected);
}
