#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztutil/ZtUError.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

std::vector<ZtUErrorReport> g_posts;
// The messages, copied: a report's message is valid during the handler call only.
std::vector<std::string> g_messages;

// Captures the posts made while it lives.
struct PostCapture {
    PostCapture() : previous(ZtUError::SetHandler(&Record)) {
        g_posts.clear();
        g_messages.clear();
    }
    ~PostCapture() { ZtUError::SetHandler(previous); }
    static void Record(const ZtUErrorReport& r) {
        g_posts.push_back(r);
        g_messages.push_back(r.message);
    }
    ZtUError::Handler previous;
};

const ZtLMatrix4f kProjective(2, 0.5, -1, 0.25, 0, 3, 1, -0.5, 1, -2, 4, 0.125, 5, 6, -7, 2);

void ExpectNear(const ZtLMatrix4f& a, const ZtLMatrix4f& b, double tol) {
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(a[i][j], b[i][j], tol) << i << "," << j;
}

}  // namespace

TEST(ZtLMatrix4f, ProductShortCutsOnIdentityOperandsAndSumsRowsTimesColumns) {
    const double nan = std::nan("");
    const ZtLMatrix4f withNaN(nan, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, nan);
    const ZtLMatrix4f viaLeft = ZtLMatrix4f() * withNaN;
    const ZtLMatrix4f viaRight = withNaN * ZtLMatrix4f();
    EXPECT_TRUE(std::isnan(viaLeft[0][0]) && std::isnan(viaRight[3][3]));
    EXPECT_EQ(viaLeft[1][2], 6.0);

    ZtLMatrix4f a(kProjective);
    a.MultRight(kProjective.Transpose());  // operand distinct from this
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) {
            double sum = 0;
            for (int k = 0; k < 4; ++k) sum += kProjective[i][k] * kProjective[j][k];
            EXPECT_DOUBLE_EQ(a[i][j], sum);
        }
    ZtLMatrix4f self(kProjective);
    self.MultLeft(self);  // aliasing: computed into a temporary
    EXPECT_EQ(self, kProjective * kProjective);
}

TEST(ZtLMatrix4f, PointProductsDivideByWAndFreeVectorsTakeOnlyTheLinearBlock) {
    // Column 3 = (0, 0, 1, 0): a perspective division by z.
    const ZtLMatrix4f persp(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 0, 0);
    const ZtLPos3f p = ZtLPos3f(4, 6, 2) * persp;
    EXPECT_EQ(p[0], 2.0);
    EXPECT_EQ(p[1], 3.0);
    EXPECT_EQ(p[2], 1.0);
    EXPECT_TRUE(std::isinf((ZtLPos3f(1, 1, 0) * persp)[0])) << "w = 0 is not tested";

    const ZtLPos3f q(0.5, -1, 2);
    ZtLVec3f h;
    const double w = kProjective.MultLeftW(q, &h);
    const ZtLPos3f r = q * kProjective;
    for (int j = 0; j < 3; ++j) EXPECT_DOUBLE_EQ(r[j], h[j] / w);
    // The column form is the row form through the transpose.
    const double wt = kProjective.MultRightW(q, &h);
    EXPECT_EQ(wt, kProjective.Transpose().MultLeftW(q, &h));
    const ZtLPos3f c = kProjective * q, ct = q * kProjective.Transpose();
    for (int j = 0; j < 3; ++j) EXPECT_EQ(c[j], ct[j]);

    const ZtLVec3f v = kProjective.multVecAffineMatrix(ZtLVec3f(1, 0, 0));
    for (int j = 0; j < 3; ++j) EXPECT_EQ(v[j], kProjective[0][j]);
}

TEST(ZtLMatrix4f, ExactPredicates) {
    ZtLMatrix4f m;
    EXPECT_TRUE(m.IsIdentity() && m.IsAffine() && !m.IsZero());
    // 1 + 1e-16 rounds to exactly 1 in doubles, so that matrix is affine; the next double is not.
    m[3][3] = 1 + 1e-16;
    EXPECT_TRUE(m.IsAffine());
    m[3][3] = std::nextafter(1.0, 2.0);
    EXPECT_FALSE(m.IsAffine());
    EXPECT_FALSE(m.IsIdentity());
    EXPECT_TRUE(ZtLMatrix4f(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0).IsZero());

    ZtLMatrix4f n(m);
    n[1][2] = std::nan("");
    EXPECT_FALSE(n == n);
    EXPECT_TRUE(n.Equals(m, 0.0)) << "a NaN difference is not more than tol";
    n[1][2] = 0.5;
    EXPECT_FALSE(n.Equals(m, 0.4));
    EXPECT_TRUE(n.Equals(m, 0.5));
}

TEST(ZtLMatrix4f, InverseTakesTheIdentityAffineAndGeneralPaths) {
    PostCapture capture;
    EXPECT_TRUE(ZtLMatrix4f().Inverse().IsIdentity());

    // Affine with a rotation block: the transposed rotation and -T.R^T.
    const ZtLMatrix3f r(ZtLRotation3f(ZtLUnitVec3f(0, 0, 1), 0.5));
    const ZtLVec3f t(1, 2, 3);
    const ZtLMatrix4f inv = ZtLMatrix4f(r, t).Inverse();
    const ZtLMatrix3f rt = r.Transpose();
    const ZtLVec3f expected = t.Negated() * rt;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(inv[i][j], rt[i][j], 1e-15);
        EXPECT_NEAR(inv[3][i], expected[i], 1e-15);
        EXPECT_EQ(inv[i][3], 0.0);
    }
    EXPECT_EQ(inv[3][3], 1.0);

    ExpectNear(kProjective * kProjective.Inverse(), ZtLMatrix4f(), 1e-14);
    // An affine block whose determinant is lost in cancellation goes on to the LU path, which
    // finds a tiny but non-zero pivot: a finite result and no post.
    const ZtLMatrix4f nearly(1, 2, 3, 0, 1, 2, std::nextafter(3.0, 4.0), 0, 4, 5, 6, 0, 1, 1, 1, 1);
    const ZtLMatrix4f huge = nearly.Inverse();
    EXPECT_TRUE(std::isfinite(huge[0][0]) && std::fabs(huge[0][0]) > 1e14);
    EXPECT_TRUE(g_posts.empty());
}

TEST(ZtLMatrix4f, SingularMatricesPostCode3AndInvertToTheIdentity) {
    PostCapture capture;
    const ZtLMatrix4f singular[] = {
        ZtLMatrix4f(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
        // Affine with an all-zero block: unlike the 3x3 inverse, no infinities come out.
        ZtLMatrix4f(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 1),
        // Two equal rows with non-zero determinant products.
        ZtLMatrix4f(1, 2, 3, 0, 1, 2, 3, 0, 4, 5, 6, 0, 0, 0, 0, 1),
    };
    for (const ZtLMatrix4f& m : singular) {
        g_posts.clear();
        g_messages.clear();
        EXPECT_TRUE(m.Inverse().IsIdentity());
        ASSERT_EQ(g_posts.size(), 1u);
        EXPECT_EQ(g_posts[0].severity, 1);
        EXPECT_EQ(g_posts[0].component, ZtLMatrix::GetComponent());
        EXPECT_EQ(g_posts[0].code, 3);
        EXPECT_EQ(g_posts[0].data, &m);
        EXPECT_EQ(g_messages[0], "Singular Matrix");
    }
    ZtLMatrix4f m(singular[2]);
    m.Invert();
    EXPECT_TRUE(m.IsIdentity());
}

TEST(ZtLMatrix4f, DeterminantIsMultiplicative) {
    EXPECT_EQ(ZtLMatrix4f().Determinant(), 1.0);
    EXPECT_DOUBLE_EQ(ZtLMatrix4f(2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 9, 9, 9, 5).Determinant(),
                     120.0);
    const ZtLMatrix4f b = kProjective.Transpose() * ZtLMatrix4f(ZtLRotation3f(0.1, 0.2, 0.3, 0.9));
    EXPECT_NEAR((kProjective * b).Determinant(), kProjective.Determinant() * b.Determinant(),
                1e-10);
}

TEST(ZtLMatrix4f, FactorProjectionSplitsOffAProjectionAfterTheAffinePart) {
    ZtLMatrix4f p;
    kProjective.FactorProjection(&p);
    ZtLMatrix4f affine(kProjective);
    affine[0][3] = affine[1][3] = affine[2][3] = 0;
    affine[3][3] = 1;
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 3; ++j) EXPECT_EQ(p[i][j], i == j ? 1.0 : 0.0);
    ExpectNear(affine * p, kProjective, 1e-13);
}

TEST(ZtLMatrix4f, TextHasFourLinesOfFourDecimals) {
    const ZtLMatrix4f m(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16.5);
    EXPECT_EQ(m.ToString().ToUtf8(),
              "(1.0000, 2.0000, 3.0000, 4.0000)\n(5.0000, 6.0000, 7.0000, 8.0000)\n"
              "(9.0000, 10.0000, 11.0000, 12.0000)\n(13.0000, 14.0000, 15.0000, 16.5000)\n");
}
