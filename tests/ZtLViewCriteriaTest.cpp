#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLViewCriteria.h>

#include <gtest/gtest.h>

namespace {

ZtLViewCriteria View() {
    ZtLViewCriteria v;
    v.SetPosition(ZtLPos3f(1, 2, 3));
    v.SetViewDir(ZtLUnitVec3f(0, 0, -1));
    v.SetUpVector(ZtLUnitVec3f(0, 1, 0));
    v.SetProjectionConstant(0.75);
    return v;
}

void ExpectView(const ZtLViewCriteria& v, const ZtLPos3f& p, const ZtLVec3f& dir,
                const ZtLVec3f& up, double tol) {
    EXPECT_TRUE(ZtLPos3f::Equals(v.GetPosition(), p, tol));
    EXPECT_TRUE(ZtLVec3f::Equals(v.GetViewDir(), dir, tol));
    EXPECT_TRUE(ZtLVec3f::Equals(v.GetUpVector(), up, tol));
    EXPECT_EQ(v.GetProjectionConstant(), 0.75);
}

}  // namespace

TEST(ZtLViewCriteria, TranslationAndScaleMoveOnlyThePosition) {
    EXPECT_EQ(ZtLViewCriteria().GetProjectionConstant(), 0.0);
    ZtLViewCriteria v = View();
    v.Scale(2);
    ExpectView(v, ZtLPos3f(2, 4, 6), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 0);
    v.Scale(-1);
    ExpectView(v, ZtLPos3f(-2, -4, -6), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 0);
    v.Translate(ZtLVec3f(2, 4, 7));
    ExpectView(v, ZtLPos3f(0, 0, 1), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 0);
}

TEST(ZtLViewCriteria, MotionsMapThePositionAsAPointAndRenormaliseTheDirections) {
    ZtLViewCriteria v = View();
    const ZtLMatrix3f stretch(0, 2, 0, -3, 0, 0, 0, 0, 1);  // a quarter turn, not orthonormal
    v.Rotate(stretch);
    ExpectView(v, ZtLPos3f(-6, 2, 3), ZtLVec3f(0, 0, -1), ZtLVec3f(-1, 0, 0), 1e-16);

    const ZtLAffine3f a(stretch, ZtLVec3f(10, 20, 30));
    const ZtLPos3f p(-6 + 10, 2 + 20, 3 + 30);
    ZtLViewCriteria out;
    View().TransformedBy(a, &out);
    ExpectView(out, p, ZtLVec3f(0, 0, -1), ZtLVec3f(-1, 0, 0), 1e-16);
    View().TransformedBy(ZtLTransform3f(a), &out);
    ExpectView(out, p, ZtLVec3f(0, 0, -1), ZtLVec3f(-1, 0, 0), 1e-16);
    View().TransformedBy(ZtLMatrix4f(a), &out);
    ExpectView(out, p, ZtLVec3f(0, 0, -1), ZtLVec3f(-1, 0, 0), 1e-16);

    // A perspective matrix divides the position by w but maps the directions by its 3x3 block.
    ZtLMatrix4f persp;
    persp[2][3] = 1;
    persp[3][3] = 0;
    View().TransformedBy(persp, &out);
    ExpectView(out, ZtLPos3f(1.0 / 3, 2.0 / 3, 1), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 1e-16);
}

TEST(ZtLViewCriteria, CopyingFormsLeaveTheReceiverAndOverwriteAllOfTheOutput) {
    const ZtLViewCriteria v = View();
    ZtLViewCriteria out;
    out.SetPosition(ZtLPos3f(9, 9, 9));
    out.SetViewDir(ZtLUnitVec3f(1, 0, 0));
    out.SetUpVector(ZtLUnitVec3f(1, 0, 0));
    out.SetProjectionConstant(9);
    v.TranslatedBy(ZtLVec3f(1, 1, 1), &out);
    ExpectView(out, ZtLPos3f(2, 3, 4), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 0);
    v.ScaledBy(0.5, &out);
    ExpectView(out, ZtLPos3f(0.5, 1, 1.5), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 0);
    v.RotatedBy(ZtLMatrix3f(2, 0, 0, 0, 2, 0, 0, 0, 2), &out);
    ExpectView(out, ZtLPos3f(2, 4, 6), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 0);
    ExpectView(v, ZtLPos3f(1, 2, 3), ZtLVec3f(0, 0, -1), ZtLVec3f(0, 1, 0), 0);
}
