#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztutil/ZtUError.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

namespace {

int g_postCount = 0;
int g_lastCode = 0;

struct PostCapture {
    PostCapture() : previous(ZtUError::SetHandler(&Record)) { g_postCount = 0; }
    ~PostCapture() { ZtUError::SetHandler(previous); }
    static void Record(const ZtUErrorReport& r) {
        ++g_postCount;
        g_lastCode = r.code;
    }
    ZtUError::Handler previous;
};

void ExpectNear(const ZtLAffine3f& a, const ZtLAffine3f& b, double tol) {
    EXPECT_TRUE(a.Equals(b, tol)) << ZtLMatrix4f(a).ToString().ToUtf8() << "vs\n"
                                  << ZtLMatrix4f(b).ToString().ToUtf8();
}

const ZtLAffine3f kMap(ZtLMatrix3f(1, 2, 0, -1, 0.5, 3, 2, 1, 1), ZtLVec3f(0.5, -1, 2));

}  // namespace

// Each product equals the product of the equivalent 4x4 matrices on the named side.
TEST(ZtLAffine3f, ProductsMatchTheEquivalentMatrixProducts) {
    const ZtLAffine3f other(ZtLMatrix3f(0, 1, 0, 2, 0, 1, 1, 1, -1), ZtLVec3f(3, 0, -2));
    const ZtLMatrix3f l(2, 0, 1, 0, 1, 0, 1, 0, 3);
    const ZtLRotation3f q(ZtLUnitVec3f(1, 2, 3), -0.9);
    const ZtLVec3f v(1.5, -2, 0.25);
    const ZtLMatrix4f m(kMap), mo(other), ml(l, {0, 0, 0}), mq(q),
        ms(v[0], 0, 0, 0, 0, v[1], 0, 0, 0, 0, v[2], 0, 0, 0, 0, 1), mt(ZtLMatrix3f(), v);
    struct Case {
        std::string name;
        std::function<void(ZtLAffine3f&)> op;
        ZtLMatrix4f expected;
    };
    const std::vector<Case> cases = {
        {"MultRightAffine", [&](ZtLAffine3f& a) { a.MultRight(other); }, m * mo},
        {"TimesAssign", [&](ZtLAffine3f& a) { a *= other; }, m * mo},
        {"MultRightMatrix", [&](ZtLAffine3f& a) { a.MultRight(l); }, m * ml},
        {"RotateRight", [&](ZtLAffine3f& a) { a.RotateRight(q); }, m * mq},
        {"ScaleRight", [&](ZtLAffine3f& a) { a.ScaleRight(v); }, m * ms},
        {"TranslateRight", [&](ZtLAffine3f& a) { a.TranslateRight(v); }, m * mt},
        {"MultLeftAffine", [&](ZtLAffine3f& a) { a.MultLeft(other); }, mo * m},
        {"MultLeftMatrix", [&](ZtLAffine3f& a) { a.MultLeft(l); }, ml * m},
        {"RotateLeft", [&](ZtLAffine3f& a) { a.RotateLeft(q); }, mq * m},
        {"ScaleLeft", [&](ZtLAffine3f& a) { a.ScaleLeft(v); }, ms * m},
        {"TranslateLeft", [&](ZtLAffine3f& a) { a.TranslateLeft(v); }, mt * m},
        {"FreeOperator", [&](ZtLAffine3f& a) { a = a * other; }, m * mo},
        {"SelfRight", [&](ZtLAffine3f& a) { a.MultRight(a); }, m * m},
        {"SelfLeft", [&](ZtLAffine3f& a) { a.MultLeft(a); }, m * m},
    };
    ZtLMatrix4f projective(m);
    projective[0][3] = 7;  // column 3 is ignored
    EXPECT_EQ(ZtLAffine3f(projective), kMap);
    for (const Case& c : cases) {
        ZtLAffine3f a(kMap);
        c.op(a);
        SCOPED_TRACE(c.name);
        ExpectNear(a, ZtLAffine3f(c.expected), 1e-12);
    }
}

TEST(ZtLAffine3f, PointsTakeTheTranslationAndFreeVectorsDoNot) {
    ZtLAffine3f a;
    a.MakeTranslation({1, 0, 0});
    const ZtLPos3f p = ZtLPos3f(1, 2, 3) * a;
    const ZtLVec3f v = ZtLVec3f(1, 2, 3) * a;
    EXPECT_EQ(p[0], 2.0);
    EXPECT_EQ(p[1], 2.0);
    EXPECT_EQ(v[0], 1.0);

    // A translation before a uniform scale 2 moves by 2v, one after it by v.
    ZtLAffine3f s;
    s.MakeUniformScale(2);
    EXPECT_EQ(ZtLAffine3f(s).TranslateLeft({1, 2, 3}).GetTranslation()[2], 6.0);
    EXPECT_EQ(ZtLAffine3f(s).TranslateRight({1, 2, 3}).GetTranslation()[2], 3.0);
}

TEST(ZtLAffine3f, InverseUndoesTheMapAndASingularLinearPartPostsOnce) {
    PostCapture capture;
    ExpectNear(kMap * kMap.Inverse(), ZtLAffine3f(), 1e-14);
    ZtLAffine3f t;
    t.MakeTranslation({1, -2, 3});
    t.MultLeft(ZtLAffine3f());
    const ZtLVec3f back = t.Inverse().GetTranslation();
    EXPECT_EQ(back[0], -1.0);
    EXPECT_EQ(back[1], 2.0);
    EXPECT_EQ(g_postCount, 0);

    ZtLAffine3f singular(ZtLMatrix3f(1, 2, 3, 1, 2, 3, 4, 5, 6), ZtLVec3f(1, 2, 3));
    singular.Invert();
    EXPECT_EQ(singular, ZtLAffine3f(ZtLMatrix3f(), ZtLVec3f(-1, -2, -3)));
    EXPECT_EQ(g_postCount, 1);
    EXPECT_EQ(g_lastCode, 2);
}

TEST(ZtLAffine3f, ComparisonsAndTheNaNAsymmetryOfEquals) {
    ZtLAffine3f a(kMap);
    EXPECT_TRUE(a == kMap && !(a != kMap));
    EXPECT_FALSE(kMap.IsIdentity());
    a.EditLinear()[1][1] = std::nan("");
    EXPECT_TRUE(a.Equals(kMap, 0.0)) << "a NaN difference passes in L";
    a = kMap;
    a.EditTranslation()[1] = std::nan("");
    EXPECT_FALSE(a.Equals(kMap, 1e9)) << "but fails in T";
    a = kMap;
    a.EditTranslation()[2] += 0.25;
    EXPECT_FALSE(a.Equals(kMap, 0.2));
    EXPECT_TRUE(a.Equals(kMap, 0.25));
}
