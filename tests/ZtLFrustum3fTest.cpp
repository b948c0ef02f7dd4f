#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

const double kHalfPi = 1.5707963267948966;

bool Near(const ZtLBaseVec3f& a, const ZtLBaseVec3f& b, double tol) {
    return std::fabs(a[0] - b[0]) <= tol && std::fabs(a[1] - b[1]) <= tol &&
           std::fabs(a[2] - b[2]) <= tol;
}

std::string Str(const ZtLBaseVec3f& v) {
    return "(" + std::to_string(v[0]) + ", " + std::to_string(v[1]) + ", " + std::to_string(v[2]) +
           ")";
}

// A camera and the corners its numbers give (near bottom-left, bottom-right, top-left,
// top-right, then far).
struct Camera {
    const char* name;
    ZtLFrustum3f frustum;
    ZtLPos3f corners[8];
};

std::vector<Camera> Cameras() {
    std::vector<Camera> cameras;
    cameras.push_back({"perspective 90 degrees",
                       ZtLFrustum3f(kHalfPi, 1, 1, 10),
                       {{-1, -1, -1},
                        {1, -1, -1},
                        {-1, 1, -1},
                        {1, 1, -1},
                        {-10, -10, -10},
                        {10, -10, -10},
                        {-10, 10, -10},
                        {10, 10, -10}}});
    cameras.push_back({"asymmetric frustum",
                       ZtLFrustum3f(ZtLFrustum3f::Perspective, -1, 3, -2, 1, 2, 6),
                       {{-1, -2, -2},
                        {3, -2, -2},
                        {-1, 1, -2},
                        {3, 1, -2},
                        {-3, -6, -6},
                        {9, -6, -6},
                        {-3, 3, -6},
                        {9, 3, -6}}});
    cameras.push_back({"orthographic",
                       ZtLFrustum3f(ZtLFrustum3f::Orthographic, -2, 1, -1, 3, 1, 10),
                       {{-2, -1, -1},
                        {1, -1, -1},
                        {-2, 3, -1},
                        {1, 3, -1},
                        {-2, -1, -10},
                        {1, -1, -10},
                        {-2, 3, -10},
                        {1, 3, -10}}});
    return cameras;
}

// The planes (left, right, top, bottom, near, far) each corner lies on.
const int kCornerFaces[8][3] = {{0, 3, 4}, {1, 3, 4}, {0, 2, 4}, {1, 2, 4},
                                {0, 3, 5}, {1, 3, 5}, {0, 2, 5}, {1, 2, 5}};

// A rotation, a translation and both, to take cameras away from the axes.
ZtLAffine3f Placement() {
    const ZtLMatrix3f r(ZtLRotation3f(ZtLUnitVec3f(1, 2, -0.5), 0.7));
    return ZtLAffine3f(r, ZtLVec3f(3, -1, 2));
}

}  // namespace

TEST(ZtLFrustum3f, MakersGiveTheCornersAndAccessors) {
    for (const Camera& camera : Cameras()) {
        SCOPED_TRACE(camera.name);
        ZtLPos3f corners[8];
        camera.frustum.GetCorners(corners);
        for (int i = 0; i < 8; ++i) {
            EXPECT_TRUE(Near(corners[i], camera.corners[i], 1e-14)) << i << " " << Str(corners[i]);
        }
        EXPECT_EQ(camera.frustum.IsReflected(), 0);
    }
    const ZtLFrustum3f p(kHalfPi, 1, 1, 10);
    EXPECT_EQ(p.GetFrustumType(), ZtLFrustum3f::Perspective);
    EXPECT_NEAR(p.GetDepth(), 9.0, 1e-15);
    EXPECT_NEAR(p.GetWidth(), 2.0, 1e-15);
    EXPECT_NEAR(p.GetHeight(), 2.0, 1e-15);
    EXPECT_TRUE(Near(p.GetNearNormal(), ZtLVec3f(0, 0, -4), 1e-15));
    EXPECT_TRUE(Near(p.GetViewDirection(), ZtLVec3f(0, 0, -10), 0.0));

    const ZtLFrustum3f o(ZtLFrustum3f::Orthographic, -1, 1, -1, 1, 1, 10);
    EXPECT_TRUE(Near(o.GetViewpoint(), ZtLPos3f(0, 0, -1), 0.0));
    EXPECT_TRUE(Near(o.GetFarBottomLeft(), ZtLPos3f(-1, -1, -10), 0.0));
    EXPECT_NEAR(o.GetDepth(), 9.0, 0.0);
    // Any type other than perspective is stored as orthographic.
    const ZtLFrustum3f seven(static_cast<ZtLFrustum3f::FrustumType>(7), -1, 1, -1, 1, 1, 10);
    EXPECT_EQ(seven.GetFrustumType(), ZtLFrustum3f::Orthographic);

    ZtLFrustum3f mirrored(ZtLFrustum3f::Perspective, 1, -1, -1, 1, 1, 10);
    EXPECT_EQ(mirrored.IsReflected(), 1);
}

TEST(ZtLFrustum3f, PlanesFaceInwardAndBoundTheCorners) {
    for (const Camera& camera : Cameras()) {
        for (int placed = 0; placed < 2; ++placed) {
            SCOPED_TRACE(std::string(camera.name) + (placed ? " placed" : ""));
            const ZtLFrustum3f f =
                placed ? camera.frustum.TransformedBy(Placement()) : camera.frustum;
            ZtLPlane3f planes[6];
            f.GetPlanes(planes);
            const ZtLPlane3f named[6] = {f.GetLeftPlane(),   f.GetRightPlane(), f.GetTopPlane(),
                                         f.GetBottomPlane(), f.GetNearPlane(),  f.GetFarPlane()};
            ZtLPos3f corners[8];
            f.GetCorners(corners);
            ZtLVec3f sum(0, 0, 0);
            for (const ZtLPos3f& c : corners) sum += c.Vec() * 0.125;
            const ZtLPos3f centre = sum.Pos();
            for (int i = 0; i < 6; ++i) {
                EXPECT_TRUE(planes[i] == named[i]) << i;
                EXPECT_NEAR(planes[i].GetNormal().Vec().Length(), 1.0, 1e-15);
                EXPECT_GT(planes[i].DistanceFromPlane(centre), 0.1) << "faces inward " << i;
            }
            for (int c = 0; c < 8; ++c) {
                for (int i = 0; i < 6; ++i) {
                    const double d = planes[i].DistanceFromPlane(corners[c]);
                    const int* faces = kCornerFaces[c];
                    if (faces[0] == i || faces[1] == i || faces[2] == i) {
                        EXPECT_NEAR(d, 0.0, 1e-13) << "corner " << c << " on plane " << i;
                    } else {
                        EXPECT_GT(d, 0.1) << "corner " << c << " inside plane " << i;
                    }
                }
            }
            EXPECT_EQ(f.ContainsPoint(centre), 1);
            // On a face is inside; a little beyond it is not.
            const ZtLPos3f onNear = f.GetNearBottomLeft() + (f.GetNearX() + f.GetNearY()) * 0.5;
            const ZtLPlane3f& nearPlane = planes[4];
            const ZtLPos3f exact = nearPlane.ClosestPoint(onNear);
            EXPECT_EQ(nearPlane.DistanceFromPlane(exact) >= 0.0, f.ContainsPoint(exact) == 1);
            EXPECT_EQ(f.ContainsPoint(onNear - nearPlane.GetNormal().Multiply(1e-9)), 0);
            EXPECT_EQ(f.ContainsPoint(corners[7] + (corners[7] - centre) * 0.01), 0);
        }
    }
    // Exactly on the near plane of an axis-aligned camera.
    EXPECT_EQ(ZtLFrustum3f(kHalfPi, 1, 1, 10).ContainsPoint(ZtLPos3f(0.25, -0.5, -1)), 1);
}

TEST(ZtLFrustum3f, DistPlaneIsParallelToTheNearPlane) {
    const ZtLFrustum3f f = ZtLFrustum3f(kHalfPi, 1.5, 1, 10).TransformedBy(Placement());
    const ZtLPlane3f nearPlane = f.GetNearPlane();
    const ZtLPlane3f at4 = f.GetDistPlane(4.0);
    EXPECT_TRUE(nearPlane.GetNormal().Equals(at4.GetNormal(), 1e-15));
    EXPECT_NEAR(at4.DistanceFromPlane(f.GetViewpoint()), -4.0, 1e-13);
    EXPECT_NEAR(f.GetDistPlane(1.0).GetDistance(), nearPlane.GetDistance(), 1e-13);
}

TEST(ZtLFrustum3f, MatrixMapsTheCornersToTheClipCubeAndBack) {
    for (const Camera& camera : Cameras()) {
        for (int variant = 0; variant < 3; ++variant) {
            SCOPED_TRACE(std::string(camera.name) + " variant " + std::to_string(variant));
            ZtLFrustum3f f = camera.frustum;
            if (variant >= 1) f.Transform(Placement());
            if (variant == 2) f.Narrow(0.1, 0.4, 0.5, 0.9);
            const ZtLMatrix4f m = f.GetMatrix();
            const ZtLMatrix4f inverse = f.GetInverseMatrix();
            ZtLPos3f corners[8];
            f.GetCorners(corners);
            for (int c = 0; c < 8; ++c) {
                const ZtLPos3f clip((c & 1) ? 1 : -1, (c & 2) ? 1 : -1, (c & 4) ? 1 : 0);
                const ZtLPos3f mapped = corners[c] * m;
                EXPECT_TRUE(Near(mapped, clip, 1e-12)) << c << " " << Str(mapped);
                const ZtLPos3f back = clip * inverse;
                EXPECT_TRUE(Near(back, corners[c], 1e-12)) << c << " " << Str(back);
            }
            EXPECT_TRUE((m * inverse).Equals(ZtLMatrix4f(), 1e-12));
            ZtLMatrix4f both;
            ZtLMatrix4f bothInverse;
            f.GetMatrixAndInverse(&both, &bothInverse);
            EXPECT_TRUE(both == m && bothInverse == inverse);

            // The view part is rigid and takes the eye (or the near plane's point) to the
            // origin; the two parts make the whole.
            ZtLAffine3f view;
            ZtLMatrix4f projection;
            f.GetMatrices(&view, &projection);
            const ZtLMatrix3f& l = view.GetLinear();
            EXPECT_TRUE((l * l.Transpose()).Equals(ZtLMatrix3f(), 1e-15));
            EXPECT_NEAR(l.Determinant(), 1.0, 1e-15);
            EXPECT_TRUE(Near(f.GetViewpoint() * view, ZtLPos3f(0, 0, 0), 1e-14));
            EXPECT_TRUE((ZtLMatrix4f(view) * projection).Equals(m, 1e-15));
        }
    }
    // The makers' cameras need no view part, and the projection of the 90 degree camera is the
    // familiar one with depth 0..1.
    ZtLAffine3f view;
    ZtLMatrix4f projection;
    ZtLFrustum3f(kHalfPi, 1, 1, 10).GetMatrices(&view, &projection);
    EXPECT_TRUE(view.GetLinear().Equals(ZtLMatrix3f(), 0.0));
    EXPECT_TRUE(projection.Equals(
        ZtLMatrix4f(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -10.0 / 9, -1, 0, 0, -10.0 / 9, 0), 1e-15));
}

TEST(ZtLFrustum3f, SightLinesThroughScreenPositions) {
    // The middle of a symmetric camera's screen is the view axis.
    const ZtLLine3f axis = ZtLFrustum3f(kHalfPi, 1, 1, 10).ProjectPointToLine(ZtLPos2f(0.5, 0.5));
    EXPECT_TRUE(Near(axis.GetPoint(), ZtLPos3f(0, 0, 0), 1e-15));
    EXPECT_TRUE(Near(axis.GetDirection(), ZtLVec3f(0, 0, -1), 1e-15));
    // Any clip position of an orthographic camera sights along -z.
    const ZtLFrustum3f ortho(ZtLFrustum3f::Orthographic, -1, 1, -1, 1, 1, 10);
    const ZtLLine3f side = ortho.ProjectClipPointToLine(ZtLPos2f(0.5, -1));
    EXPECT_TRUE(Near(side.GetDirection(), ZtLVec3f(0, 0, -1), 1e-15));
    EXPECT_TRUE(Near(side.GetPoint(), ZtLPos3f(0.5, -1, 0), 1e-15)) << "foot from the origin";

    std::mt19937 gen(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (const Camera& camera : Cameras()) {
        SCOPED_TRACE(camera.name);
        const ZtLFrustum3f f = camera.frustum.TransformedBy(Placement());
        const bool perspective = f.GetFrustumType() == ZtLFrustum3f::Perspective;
        for (int n = 0; n < 20; ++n) {
            const ZtLPos2f s(unit(gen), unit(gen));
            const ZtLPos3f onNear =
                f.GetNearBottomLeft() + f.GetNearX() * s.GetX() + f.GetNearY() * s.GetY();
            const ZtLLine3f line = f.ProjectPointToLine(s);
            EXPECT_LT(line.DistanceFromLine(onNear), 1e-13);
            if (perspective) {
                EXPECT_LT(line.DistanceFromLine(f.GetViewpoint()), 1e-13);
            } else {
                EXPECT_TRUE(line.GetDirection().DirEquals(f.GetViewDirection(), 1e-15));
            }
            const ZtLLine3f clipLine =
                f.ProjectClipPointToLine(ZtLPos2f(2 * s.GetX() - 1, 2 * s.GetY() - 1));
            EXPECT_TRUE(clipLine.Equals(line, 1e-15, 1e-13));

            // The point at a distance lies on both the sight line and the distance plane.
            const double dist = 1.5 + 5 * unit(gen);
            const ZtLPos3f at = f.ProjectPointToDist(s, dist);
            EXPECT_LT(line.DistanceFromLine(at), 1e-12);
            EXPECT_NEAR(f.GetDistPlane(dist).DistanceFromPlane(at), 0.0, 1e-12);
        }
    }
}

TEST(ZtLFrustum3f, NarrowShrinksTheNearRectangle) {
    const ZtLFrustum3f f(ZtLFrustum3f::Perspective, -1, 3, -2, 1, 2, 6);
    ZtLFrustum3f same = f.NarrowedBy(0, 1, 0, 1);
    ZtLPos3f a[8];
    ZtLPos3f b[8];
    f.GetCorners(a);
    same.GetCorners(b);
    for (int i = 0; i < 8; ++i) EXPECT_TRUE(Near(a[i], b[i], 0.0)) << i;

    const ZtLFrustum3f point = f.NarrowedBy(0.5, 0.5, 0.5, 0.5);
    EXPECT_TRUE(point.GetNearX().IsZero() && point.GetNearY().IsZero());

    // The narrowed volume's screen is the sub-rectangle of the original one, and the eye stays.
    const ZtLFrustum3f part = f.NarrowedBy(0.25, 0.75, 0.1, 0.3);
    EXPECT_TRUE(Near(part.GetViewpoint(), f.GetViewpoint(), 0.0));
    EXPECT_TRUE(Near(part.GetNearBottomLeft(), ZtLPos3f(0, -1.7, -2), 1e-15));
    EXPECT_TRUE(Near(part.GetNearTopRight(), ZtLPos3f(2, -1.1, -2), 1e-15));
    EXPECT_TRUE(part.ProjectPointToLine(ZtLPos2f(0, 1))
                    .Equals(f.ProjectPointToLine(ZtLPos2f(0.25, 0.3)), 1e-15, 1e-14));
}

TEST(ZtLFrustum3f, TransformsMoveTheVolume) {
    const ZtLFrustum3f f(ZtLFrustum3f::Perspective, -1, 3, -2, 1, 2, 6);
    const ZtLFrustum3f o(ZtLFrustum3f::Orthographic, -2, 1, -1, 3, 1, 10);
    const ZtLAffine3f place = Placement();
    const ZtLMatrix3f shear(1, 0.5, 0, 0, 2, 0, 0.25, 0, 1);
    for (const ZtLFrustum3f& start : {f, o}) {
        ZtLPos3f before[8];
        start.GetCorners(before);
        const ZtLFrustum3f moved[3] = {start.TransformedBy(place), start.TransformedBy(shear),
                                       start.TranslatedBy(ZtLVec3f(1, 2, 3))};
        for (int k = 0; k < 3; ++k) {
            ZtLPos3f after[8];
            moved[k].GetCorners(after);
            for (int i = 0; i < 8; ++i) {
                const ZtLPos3f expected = k == 0   ? before[i] * place
                                          : k == 1 ? before[i] * shear
                                                   : before[i] + ZtLVec3f(1, 2, 3);
                EXPECT_TRUE(Near(after[i], expected, 1e-13)) << k << " " << i;
            }
            EXPECT_EQ(moved[k].GetFrustumType(), start.GetFrustumType());
        }
        // In place equals the copy; RotatedBy is the 3x3 map.
        ZtLFrustum3f g = start;
        g.Rotate(shear);
        ZtLFrustum3f h = start.RotatedBy(shear);
        EXPECT_TRUE(Near(g.GetNearX(), h.GetNearX(), 0.0) &&
                    Near(g.GetViewpoint(), moved[1].GetViewpoint(), 0.0));
    }
}

TEST(ZtLFrustum3f, GeneralTransformsDispatchOnTheirTraits) {
    const ZtLFrustum3f f(ZtLFrustum3f::Perspective, -1, 3, -2, 1, 2, 6);
    const ZtLAffine3f place = Placement();
    const ZtLMatrix3f& l = place.GetLinear();
    const ZtLVec3f& t = place.GetTranslation();
    auto same = [](const ZtLFrustum3f& x, const ZtLFrustum3f& y, double tol) {
        return x.GetFrustumType() == y.GetFrustumType() &&
               Near(x.GetViewpoint(), y.GetViewpoint(), tol) &&
               Near(x.GetNearOffset(), y.GetNearOffset(), tol) &&
               Near(x.GetNearX(), y.GetNearX(), tol) && Near(x.GetNearY(), y.GetNearY(), tol) &&
               Near(x.GetViewDirection(), y.GetViewDirection(), tol);
    };
    EXPECT_TRUE(same(f.TransformedBy(ZtLTransform3f()), f, 0.0));
    EXPECT_TRUE(
        same(f.TransformedBy(ZtLTransform3f::CreateTranslation(t)), f.TranslatedBy(t), 0.0));
    EXPECT_TRUE(same(f.TransformedBy(ZtLTransform3f(l)), f.RotatedBy(l), 0.0));
    EXPECT_TRUE(same(f.TransformedBy(ZtLTransform3f(place)), f.TransformedBy(place), 0.0));
    // The 4x4 path maps points; with an affine matrix it agrees with the affine path.
    EXPECT_TRUE(
        same(f.TransformedBy(ZtLTransform3f(ZtLMatrix4f(place))), f.TransformedBy(place), 1e-14));
    ZtLFrustum3f g = f;
    g.Transform(ZtLTransform3f(place));
    EXPECT_TRUE(same(g, f.TransformedBy(place), 0.0));

    // A projective map takes the eye and three near corners as points (the fourth follows from
    // them: the near face stays a parallelogram).
    const ZtLMatrix4f projective(1, 0, 0, 0.1, 0, 1, 0, 0, 0, 0, 1, -0.05, 1, 2, 3, 1);
    const ZtLFrustum3f p = f.TransformedBy(ZtLTransform3f(projective));
    EXPECT_TRUE(Near(p.GetViewpoint(), f.GetViewpoint() * projective, 1e-14));
    EXPECT_TRUE(Near(p.GetNearBottomLeft(), f.GetNearBottomLeft() * projective, 1e-14));
    EXPECT_TRUE(Near(p.GetNearBottomRight(), f.GetNearBottomRight() * projective, 1e-14));
    EXPECT_TRUE(Near(p.GetNearTopLeft(), f.GetNearTopLeft() * projective, 1e-14));
}
