#include <ztlinear/ZtLFrustum3f.h>

#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <cmath>

namespace {

// The inverse by cofactors, with no report: a singular matrix gives non-finite entries. The
// frustum's matrices are built from it so that a degenerate volume posts nothing.
ZtLMatrix3f InverseQuiet(const ZtLMatrix3f& m) noexcept {
    const double c00 = m[1][1] * m[2][2] - m[1][2] * m[2][1];
    const double c01 = m[1][2] * m[2][0] - m[1][0] * m[2][2];
    const double c02 = m[1][0] * m[2][1] - m[1][1] * m[2][0];
    const double f = 1.0 / (m[0][0] * c00 + m[0][1] * c01 + m[0][2] * c02);
    return ZtLMatrix3f(c00 * f, (m[0][2] * m[2][1] - m[0][1] * m[2][2]) * f,
                       (m[0][1] * m[1][2] - m[0][2] * m[1][1]) * f, c01 * f,
                       (m[0][0] * m[2][2] - m[0][2] * m[2][0]) * f,
                       (m[0][2] * m[1][0] - m[0][0] * m[1][2]) * f, c02 * f,
                       (m[0][1] * m[2][0] - m[0][0] * m[2][1]) * f,
                       (m[0][0] * m[1][1] - m[0][1] * m[1][0]) * f);
}

// The matrix whose rows are a, b and c.
ZtLMatrix3f Rows(const ZtLVec3f& a, const ZtLVec3f& b, const ZtLVec3f& c) noexcept {
    return ZtLMatrix3f(a[0], a[1], a[2], b[0], b[1], b[2], c[0], c[1], c[2]);
}

// The 4x4 matrix of the affine map p.l + t.
ZtLMatrix4f Affine4(const ZtLMatrix3f& l, const ZtLVec3f& t) noexcept { return ZtLMatrix4f(l, t); }

// The plane with no normal: every point lies on it. Stands for a side plane whose face has no
// area (a narrowed-away near rectangle), so that the plane neither rejects nor holds garbage.
ZtLPlane3f NullPlane() noexcept { return ZtLPlane3f(ZtLUnitVec3f(0.0, 0.0, 0.0), 0.0); }

// The perspective side plane through the three points, or the null plane.
ZtLPlane3f PlaneThrough(const ZtLPos3f& p0, const ZtLPos3f& p1, const ZtLPos3f& p2) noexcept {
    ZtLPlane3f plane = NullPlane();
    plane.SetValue(p0, p1, p2);
    return plane;
}

}  // namespace

void ZtLFrustum3f::MakePerspective(double fovy, double aspect, double nearDist,
                                   double farDist) noexcept {
    const double h = std::tan(fovy * 0.5) * nearDist;
    const double w = h * aspect;
    m_type = Perspective;
    m_viewpoint = ZtLPos3f(0.0, 0.0, 0.0);
    m_nearOffset = ZtLVec3f(-w, -h, -nearDist);
    m_nearX = ZtLVec3f(2 * w, 0.0, 0.0);
    m_nearY = ZtLVec3f(0.0, 2 * h, 0.0);
    m_depth = ZtLVec3f(0.0, 0.0, -farDist);
}

void ZtLFrustum3f::MakeFrustum(double left, double right, double bottom, double top,
                               double nearDist, double farDist) noexcept {
    m_type = Perspective;
    m_viewpoint = ZtLPos3f(0.0, 0.0, 0.0);
    m_nearOffset = ZtLVec3f(left, bottom, -nearDist);
    m_nearX = ZtLVec3f(right - left, 0.0, 0.0);
    m_nearY = ZtLVec3f(0.0, top - bottom, 0.0);
    m_depth = ZtLVec3f(0.0, 0.0, -farDist);
}

void ZtLFrustum3f::MakeOrtho(double left, double right, double bottom, double top, double nearDist,
                             double farDist) noexcept {
    m_type = Orthographic;
    m_viewpoint = ZtLPos3f(0.0, 0.0, -nearDist);
    m_nearOffset = ZtLVec3f(left, bottom, 0.0);
    m_nearX = ZtLVec3f(right - left, 0.0, 0.0);
    m_nearY = ZtLVec3f(0.0, top - bottom, 0.0);
    m_depth = ZtLVec3f(0.0, 0.0, nearDist - farDist);
}

double ZtLFrustum3f::GetDepth() const noexcept {
    return GetNearPlane().DistanceFromPlane(m_viewpoint + m_depth);
}

ZtLPlane3f ZtLFrustum3f::GetLeftPlane() const noexcept {
    if (m_type == Perspective) {
        return PlaneThrough(m_viewpoint, GetNearBottomLeft(), GetNearTopLeft());
    }
    return ZtLPlane3f(ZtLUnitVec3f(m_depth.Cross(m_nearY)), GetNearBottomLeft());
}

ZtLPlane3f ZtLFrustum3f::GetRightPlane() const noexcept {
    if (m_type == Perspective) {
        return PlaneThrough(m_viewpoint, GetNearTopRight(), GetNearBottomRight());
    }
    return ZtLPlane3f(ZtLUnitVec3f(m_nearY.Cross(m_depth)), GetNearBottomRight());
}

ZtLPlane3f ZtLFrustum3f::GetTopPlane() const noexcept {
    if (m_type == Perspective) {
        return PlaneThrough(m_viewpoint, GetNearTopLeft(), GetNearTopRight());
    }
    return ZtLPlane3f(ZtLUnitVec3f(m_depth.Cross(m_nearX)), GetNearTopLeft());
}

ZtLPlane3f ZtLFrustum3f::GetBottomPlane() const noexcept {
    if (m_type == Perspective) {
        return PlaneThrough(m_viewpoint, GetNearBottomRight(), GetNearBottomLeft());
    }
    return ZtLPlane3f(ZtLUnitVec3f(m_nearX.Cross(m_depth)), GetNearBottomLeft());
}

ZtLPlane3f ZtLFrustum3f::GetNearPlane() const noexcept {
    return ZtLPlane3f(ZtLUnitVec3f(m_nearY.Cross(m_nearX)), GetNearBottomLeft());
}

ZtLPlane3f ZtLFrustum3f::GetFarPlane() const noexcept {
    return ZtLPlane3f(ZtLUnitVec3f(m_nearX.Cross(m_nearY)), m_viewpoint + m_depth);
}

void ZtLFrustum3f::GetPlanes(ZtLPlane3f* out) const noexcept {
    out[0] = GetLeftPlane();
    out[1] = GetRightPlane();
    out[2] = GetTopPlane();
    out[3] = GetBottomPlane();
    out[4] = GetNearPlane();
    out[5] = GetFarPlane();
}

ZtLPlane3f ZtLFrustum3f::GetDistPlane(double dist) const noexcept {
    const ZtLUnitVec3f u(m_depth);
    const ZtLPos3f q = m_viewpoint + u.Multiply(dist);
    return ZtLPlane3f(ZtLUnitVec3f(GetNearNormal()), q);
}

ZtLPos3f ZtLFrustum3f::FarCorner(const ZtLVec3f& o) const noexcept {
    const ZtLPlane3f farPlane = GetFarPlane();
    const ZtLVec3f& n = farPlane.GetNormal();
    if (m_type == Orthographic) {
        const ZtLPos3f q = m_viewpoint + o;
        const double s = (farPlane.GetDistance() - n.Dot(q.Vec())) / n.Dot(m_depth);
        return q + m_depth * s;
    }
    const double s = (farPlane.GetDistance() - n.Dot(m_viewpoint.Vec())) / n.Dot(o);
    return m_viewpoint + o * s;
}

ZtLPos3f ZtLFrustum3f::GetFarBottomLeft() const noexcept { return FarCorner(m_nearOffset); }

ZtLPos3f ZtLFrustum3f::GetFarBottomRight() const noexcept {
    return FarCorner(m_nearOffset + m_nearX);
}

ZtLPos3f ZtLFrustum3f::GetFarTopLeft() const noexcept { return FarCorner(m_nearOffset + m_nearY); }

ZtLPos3f ZtLFrustum3f::GetFarTopRight() const noexcept {
    return FarCorner(m_nearOffset + m_nearX + m_nearY);
}

void ZtLFrustum3f::GetCorners(ZtLPos3f* out) const noexcept {
    out[0] = GetNearBottomLeft();
    out[1] = GetNearBottomRight();
    out[2] = GetNearTopLeft();
    out[3] = GetNearTopRight();
    out[4] = GetFarBottomLeft();
    out[5] = GetFarBottomRight();
    out[6] = GetFarTopLeft();
    out[7] = GetFarTopRight();
}

int ZtLFrustum3f::ContainsPoint(const ZtLPos3f& p) const noexcept {
    ZtLPlane3f planes[6];
    GetPlanes(planes);
    for (const ZtLPlane3f& plane : planes) {
        if (plane.DistanceFromPlane(p) < 0.0) return 0;
    }
    return 1;
}

int ZtLFrustum3f::IsReflected() const noexcept {
    return m_depth.Dot(m_nearY.Cross(m_nearX)) < 0.0 ? 1 : 0;
}

ZtLLine3f ZtLFrustum3f::ProjectPointToLine(const ZtLPos2f& p) const noexcept {
    return ProjectClipPointToLine(ZtLPos2f(2 * p.GetX() - 1, 2 * p.GetY() - 1));
}

ZtLLine3f ZtLFrustum3f::ProjectClipPointToLine(const ZtLPos2f& c) const noexcept {
    const ZtLPos3f p = ZtLPos3f(c.GetX(), c.GetY(), 0.0) * GetInverseMatrix();
    if (m_type == Perspective) return ZtLLine3f(m_viewpoint, p);
    const ZtLUnitVec3f u(m_depth);
    ZtLLine3f line;
    line.SetNormalizedValue(p - u.Multiply(u.Dot(p.Vec())), u);
    return line;
}

ZtLPos3f ZtLFrustum3f::ProjectPointToDist(const ZtLPos2f& p, double dist) const noexcept {
    return ProjectClipPointToDist(ZtLPos2f(2 * p.GetX() - 1, 2 * p.GetY() - 1), dist);
}

ZtLPos3f ZtLFrustum3f::ProjectClipPointToDist(const ZtLPos2f& c, double dist) const noexcept {
    const ZtLPlane3f plane = GetDistPlane(dist);
    const ZtLLine3f line = ProjectClipPointToLine(c);
    const ZtLUnitVec3f& n = plane.GetNormal();
    const ZtLPos3f& q = line.GetPoint();
    const double s = n.Dot(line.GetDirection());
    if (s == 0.0) return q;
    return q + line.GetDirection().Multiply((plane.GetDistance() - n.Dot(q.Vec())) / s);
}

namespace {

// The parts of a frustum's matrices. The view is rigid: the rows of r are the eye axes in world
// coordinates (x along nearX, z along nearX x nearY, y = z x x), so world to eye is
// (p - viewpoint) . r^T. In eye space the volume has its own coordinates:
// - perspective (a, b, t) with p = eye + t * nearOffset + a * nearX + b * nearY: the near plane
//   is t = 1, the far plane t = tf, and the clip position is (2a/t - 1, 2b/t - 1);
// - orthographic (a, b, s) with p = eye + nearOffset + a * nearX + b * nearY + s * depth: the
//   near plane is s = 0, the far plane s = sf, and the clip position is (2a - 1, 2b - 1).
struct FrustumParts {
    ZtLMatrix3f r;       // eye axes as rows
    ZtLVec3f viewpoint;  // world position of the eye
    ZtLMatrix3f basis;   // the own axes in eye space, as rows
    ZtLVec3f base;       // eye-space origin of the own coordinates
    double farParam;     // tf or sf
};

FrustumParts MakeParts(const ZtLFrustum3f& f) noexcept {
    const ZtLUnitVec3f ex(f.GetNearX());
    const ZtLUnitVec3f ez(f.GetNearX().Cross(f.GetNearY()));
    FrustumParts parts;
    parts.r = Rows(ex, ez.Cross(ex), ez);
    parts.viewpoint = f.GetViewpoint().Vec();
    const ZtLMatrix3f toEye = parts.r.Transpose();
    const ZtLVec3f o = f.GetNearOffset() * toEye;
    const ZtLVec3f x = f.GetNearX() * toEye;
    const ZtLVec3f y = f.GetNearY() * toEye;
    const ZtLVec3f depth = f.GetViewDirection() * toEye;
    if (f.GetFrustumType() == ZtLFrustum3f::Perspective) {
        parts.basis = Rows(x, y, o);
        parts.base = ZtLVec3f(0.0, 0.0, 0.0);
        parts.farParam = (depth * InverseQuiet(parts.basis))[2];
    } else {
        parts.basis = Rows(x, y, depth);
        parts.base = o;
        parts.farParam = ((depth - o) * InverseQuiet(parts.basis))[2];
    }
    return parts;
}

// Own coordinates (homogeneous, w = 1) to clip space.
ZtLMatrix4f OwnToClip(bool perspective, double farParam) noexcept {
    if (perspective) {
        // x' = 2a - t, y' = 2b - t, z' = k (t - 1), w' = t with k = tf / (tf - 1): z'/w' runs
        // from 0 at t = 1 to 1 at t = tf.
        const double k = farParam / (farParam - 1.0);
        return ZtLMatrix4f(2, 0, 0, 0, 0, 2, 0, 0, -1, -1, k, 1, 0, 0, -k, 0);
    }
    return ZtLMatrix4f(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1.0 / farParam, 0, -1, -1, 0, 1);
}

// Clip space back to own coordinates.
ZtLMatrix4f ClipToOwn(bool perspective, double farParam) noexcept {
    if (perspective) {
        const double k = farParam / (farParam - 1.0);
        return ZtLMatrix4f(0.5, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, 0, -1.0 / k, 0.5, 0.5, 1, 1);
    }
    return ZtLMatrix4f(0.5, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, farParam, 0, 0.5, 0.5, 0, 1);
}

}  // namespace

void ZtLFrustum3f::GetMatrices(ZtLAffine3f* view, ZtLMatrix4f* projection) const noexcept {
    const FrustumParts parts = MakeParts(*this);
    const ZtLMatrix3f toEye = parts.r.Transpose();
    *view = ZtLAffine3f(toEye, (-parts.viewpoint) * toEye);
    const ZtLMatrix3f toOwn = InverseQuiet(parts.basis);
    *projection =
        Affine4(toOwn, (-parts.base) * toOwn) * OwnToClip(m_type == Perspective, parts.farParam);
}

ZtLMatrix4f ZtLFrustum3f::GetMatrix() const noexcept {
    ZtLAffine3f view;
    ZtLMatrix4f projection;
    GetMatrices(&view, &projection);
    return ZtLMatrix4f(view) * projection;
}

ZtLMatrix4f ZtLFrustum3f::GetInverseMatrix() const noexcept {
    const FrustumParts parts = MakeParts(*this);
    return ClipToOwn(m_type == Perspective, parts.farParam) * Affine4(parts.basis, parts.base) *
           Affine4(parts.r, parts.viewpoint);
}

void ZtLFrustum3f::GetMatrixAndInverse(ZtLMatrix4f* matrix, ZtLMatrix4f* inverse) const noexcept {
    *matrix = GetMatrix();
    *inverse = GetInverseMatrix();
}

ZtLFrustum3f ZtLFrustum3f::RotatedBy(const ZtLMatrix3f& m) const noexcept {
    ZtLFrustum3f f;
    f.m_type = m_type;
    f.m_viewpoint = m_viewpoint * m;
    f.m_nearOffset = m_nearOffset * m;
    f.m_nearX = m_nearX * m;
    f.m_nearY = m_nearY * m;
    f.m_depth = m_depth * m;
    return f;
}

ZtLFrustum3f ZtLFrustum3f::TransformedBy(const ZtLMatrix3f& m) const noexcept {
    return RotatedBy(m);
}

ZtLFrustum3f ZtLFrustum3f::TransformedBy(const ZtLAffine3f& a) const noexcept {
    ZtLFrustum3f f;
    f.m_type = m_type;
    f.m_viewpoint = m_viewpoint * a;
    f.m_nearOffset = m_nearOffset * a;
    f.m_nearX = m_nearX * a;
    f.m_nearY = m_nearY * a;
    f.m_depth = m_depth * a;
    return f;
}

ZtLFrustum3f ZtLFrustum3f::TransformedBy(const ZtLTransform3f& t) const noexcept {
    const std::uint32_t traits = t.GetTraits();
    if (traits == 0) return *this;
    if (traits & 32u) {
        const ZtLMatrix4f& m = t.MatrixDirect();
        const ZtLPos3f eye = m_viewpoint * m;
        const ZtLPos3f bottomLeft = GetNearBottomLeft() * m;
        ZtLFrustum3f f;
        f.m_type = m_type;
        f.m_viewpoint = eye;
        f.m_nearOffset = bottomLeft - eye;
        f.m_nearX = GetNearBottomRight() * m - bottomLeft;
        f.m_nearY = GetNearTopLeft() * m - bottomLeft;
        f.m_depth = (m_viewpoint + m_depth) * m - eye;
        return f;
    }
    if (traits == 16u) return TranslatedBy(t.AffineTransDirect());
    if (traits < 8u) return RotatedBy(t.AffineLinearDirect());
    return TransformedBy(t.AffineDirect());
}
