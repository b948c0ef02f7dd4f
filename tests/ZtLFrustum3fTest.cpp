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

namespace {

const double kHalfPi = 1.5707963267948966;

bool Near(const ZtLBaseVec3f& a, const ZtLBaseVec3f& b, double tol) {
    return std::fabs(a[0] - b[0]) <= tol && std::fabs(a[1] - b[1]) <= tol &&
           std::fabs(a[2] - b[2]) <= tol;
}

// A camera from its numbers (left, right, bottom, top, near, far).
struct Camera {
    const char* name;
    ZtLFrustum3f::FrustumType type;
    double l, r, b, t, n, f;

    ZtLFrustum3f Frustum() const { return ZtLFrustum3f(type, l, r, b, t, n, f); }
    // Corner i: bit 0 right, bit 1 top, bit 2 far; a perspective far corner lies on the sight
    // line through its near corner.
    ZtLPos3f Corner(int i) const {
        const double k = (i & 4) && type == ZtLFrustum3f::Perspective ? f / n : 1.0;
        return ZtLPos3f(((i & 1) ? r : l) * k, ((i & 2) ? t : b) * k, (i & 4) ? -f : -n);
    }
};

const Camera kCameras[] = {{"perspective", ZtLFrustum3f::Perspective, -1, 1, -1, 1, 1, 10},
                           {"asymmetric", ZtLFrustum3f::Perspective, -1, 3, -2, 1, 2, 6},
                           {"orthographic", ZtLFrustum3f::Orthographic, -2, 1, -1, 3, 1, 10}};

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
    for (const Camera& camera : kCameras) {
        SCOPED_TRACE(camera.name);
        ZtLPos3f corners[8];
        camera.Frustum().GetCorners(corners);
        for (int i = 0; i < 8; ++i) {
            EXPECT_TRUE(Near(corners[i], camera.Corner(i), 1e-14)) << i;
        }
        EXPECT_EQ(camera.Frustum().IsReflected(), 0);
    }
    const ZtLFrustum3f p(kHalfPi, 1, 1, 10);
    EXPECT_TRUE(Near(p.GetFarTopRight(), ZtLPos3f(10, 10, -10), 1e-14));
    EXPECT_TRUE(Near(p.GetNearBottomLeft(), ZtLPos3f(-1, -1, -1), 1e-15));
    EXPECT_NEAR(p.GetDepth(), 9.0, 1e-15);
    EXPECT_NEAR(p.GetWidth() * p.GetHeight(), 4.0, 1e-15);
    EXPECT_TRUE(Near(p.GetNearNormal(), ZtLVec3f(0, 0, -4), 1e-15));

    const ZtLFrustum3f o(ZtLFrustum3f::Orthographic, -1, 1, -1, 1, 1, 10);
    EXPECT_TRUE(Near(o.GetViewpoint(), ZtLPos3f(0, 0, -1), 0.0) && o.GetDepth() == 9.0);
    EXPECT_TRUE(Near(o.GetFarBottomLeft(), ZtLPos3f(-1, -1, -10), 0.0));
    // Any type other than perspective is stored as orthographic.
    const auto seven = static_cast<ZtLFrustum3f::FrustumType>(7);
    EXPECT_EQ(ZtLFrustum3f(seven, -1, 1, -1, 1, 1, 10).GetFrustumType(),
              ZtLFrustum3f::Orthographic);
    EXPECT_EQ(ZtLFrustum3f(ZtLFrustum3f::Perspective, 1, -1, -1, 1, 1, 10).IsReflected(), 1);
}

TEST(ZtLFrustum3f, PlanesFaceInwardAndBoundTheCorners) {
    for (const Camera& camera : kCameras) {
        for (int placed = 0; placed < 2; ++placed) {
            SCOPED_TRACE(std::string(camera.name) + (placed ? " placed" : ""));
            const ZtLFrustum3f f =
                placed ? camera.Frustum().TransformedBy(Placement()) : camera.Frustum();
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
            // A little beyond a face is outside.
            const ZtLPos3f onNear = f.GetNearBottomLeft() + (f.GetNearX() + f.GetNearY()) * 0.5;
            EXPECT_EQ(f.ContainsPoint(onNear - planes[4].GetNormal().Multiply(1e-9)), 0);
            EXPECT_EQ(f.ContainsPoint(corners[7] + (corners[7] - centre) * 0.01), 0);
        }
    }
    // Exactly on the near plane of an axis-aligned camera.
    EXPECT_EQ(ZtLFrustum3f(kHalfPi, 1, 1, 10).ContainsPoint(ZtLPos3f(0.25, -0.5, -1)), 1);

    // The plane at a distance is parallel to the near plane.
    const ZtLFrustum3f f = ZtLFrustum3f(kHalfPi, 1.5, 1, 10).TransformedBy(Placement());
    const ZtLPlane3f at4 = f.GetDistPlane(4.0);
    EXPECT_TRUE(f.GetNearPlane().GetNormal().Equals(at4.GetNormal(), 1e-15));
    EXPECT_NEAR(at4.DistanceFromPlane(f.GetViewpoint()), -4.0, 1e-13);
    EXPECT_NEAR(f.GetDistPlane(1.0).GetDistance(), f.GetNearPlane().GetDistance(), 1e-13);
}

TEST(ZtLFrustum3f, MatrixMapsTheCornersToTheClipCubeAndBack) {
    for (const Camera& camera : kCameras) {
        for (int variant = 0; variant < 3; ++variant) {
            SCOPED_TRACE(std::string(camera.name) + " variant " + std::to_string(variant));
            ZtLFrustum3f f = camera.Frustum();
            if (variant >= 1) f.Transform(Placement());
            if (variant == 2) f.Narrow(0.1, 0.4, 0.5, 0.9);
            const ZtLMatrix4f m = f.GetMatrix();
            const ZtLMatrix4f inverse = f.GetInverseMatrix();
            ZtLPos3f corners[8];
            f.GetCorners(corners);
            for (int c = 0; c < 8; ++c) {
                const ZtLPos3f clip((c & 1) ? 1 : -1, (c & 2) ? 1 : -1, (c & 4) ? 1 : 0);
                const ZtLPos3f mapped = corners[c] * m;
                EXPECT_TRUE(Near(mapped, clip, 1e-12)) << c;
                const ZtLPos3f back = clip * inverse;
                EXPECT_TRUE(Near(back, corners[c], 1e-12)) << c;
            }
            EXPECT_TRUE((m * inverse).Equals(ZtLMatrix4f(), 1e-12));

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
    for (const Camera& camera : kCameras) {
        SCOPED_TRACE(camera.name);
        const ZtLFrustum3f f = camera.Frustum().TransformedBy(Placement());
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
    const ZtLFrustum3f same = f.NarrowedBy(0, 1, 0, 1), point = f.NarrowedBy(0.5, 0.5, 0.5, 0.5);
    EXPECT_TRUE(Near(same.GetNearOffset(), f.GetNearOffset(), 0.0) &&
                Near(same.GetNearX(), f.GetNearX(), 0.0) &&
                Near(same.GetNearY(), f.GetNearY(), 0.0));
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
    const ZtLAffine3f place = Placement();
    const ZtLMatrix3f shear(1, 0.5, 0, 0, 2, 0, 0.25, 0, 1);
    const ZtLVec3f t(1, 2, 3);
    for (const Camera& camera : kCameras) {
        SCOPED_TRACE(camera.name);
        const ZtLFrustum3f start = camera.Frustum();
        const ZtLFrustum3f moved[] = {
            start.TransformedBy(place), start.TransformedBy(shear), start.TranslatedBy(t),
            start.TransformedBy(ZtLTransform3f(place)), start.RotatedBy(shear),
            start.TransformedBy(ZtLTransform3f(shear)), start.TransformedBy(ZtLTransform3f()),
            start.TransformedBy(ZtLTransform3f::CreateTranslation(t)),
            // The 4x4 path maps points; an affine matrix agrees with the affine path.
            start.TransformedBy(ZtLTransform3f(ZtLMatrix4f(place)))};
        for (int k = 0; k < 9; ++k) {
            for (int i = 0; i < 8; ++i) {
                const ZtLPos3f c = camera.Corner(i);
                const ZtLPos3f expected = k == 6                       ? c
                                          : k == 2 || k == 7           ? c + t
                                          : k == 1 || k == 4 || k == 5 ? c * shear
                                                                       : c * place;
                ZtLPos3f corners[8];
                moved[k].GetCorners(corners);
                EXPECT_TRUE(Near(corners[i], expected, 1e-13)) << k << " " << i;
            }
            EXPECT_EQ(moved[k].GetFrustumType(), start.GetFrustumType());
        }
    }

    // A projective map takes the eye and three near corners as points (the fourth follows from
    // them: the near face stays a parallelogram).
    const ZtLFrustum3f f = kCameras[1].Frustum();
    const ZtLMatrix4f projective(1, 0, 0, 0.1, 0, 1, 0, 0, 0, 0, 1, -0.05, 1, 2, 3, 1);
    const ZtLFrustum3f p = f.TransformedBy(ZtLTransform3f(projective));
    EXPECT_TRUE(Near(p.GetViewpoint(), f.GetViewpoint() * projective, 1e-14));
    EXPECT_TRUE(Near(p.GetNearBottomLeft(), f.GetNearBottomLeft() * projective, 1e-14));
    EXPECT_TRUE(Near(p.GetNearBottomRight(), f.GetNearBottomRight() * projective, 1e-14));
    EXPECT_TRUE(Near(p.GetNearTopLeft(), f.GetNearTopLeft() * projective, 1e-14));
}
