#ifndef ZTLINEAR_ZTLFRUSTUM3F_H
#define ZTLINEAR_ZTLFRUSTUM3F_H

// ZtLFrustum3f: a view volume, either perspective (sight lines meet at the viewpoint, the eye) or
// orthographic (parallel sight lines).
//
// The volume is held as a viewpoint and four vectors: nearOffset from the viewpoint to the near
// bottom-left corner, nearX along the near rectangle's bottom edge (bottom-left to bottom-right),
// nearY along its left edge (bottom-left to top-left), and depth from the viewpoint to a point
// of the far plane, which is parallel to the near plane. For an orthographic volume the viewpoint
// is a point of the near plane on the view axis. The makers build the usual camera looking along
// -z with y up; the fields follow any rotation, affine map or general transform afterwards.
//
// Planes: the six bounding planes face into the volume, so a point inside has a non-negative
// signed distance from each. GetPlanes gives them in the fixed order left, right, top, bottom,
// near, far (index 4 is the near plane; the pick frustum relies on it). A perspective side plane
// whose face has no area (a near rectangle narrowed to a line) is the null plane, normal
// (0, 0, 0) and distance 0, on which every point lies.
//
// Corners: near bottom-left, near bottom-right, near top-left, near top-right, then the far ones
// in the same order. A far corner is its near corner carried onto the far plane along its sight
// line (perspective) or along depth (orthographic).
//
// Matrices (row vectors on the left, p' = p.M, A * B applies A first). GetMatrix maps the volume
// to clip space: the near rectangle to x and y in [-1, 1] (x along nearX, y along nearY), the
// near plane to clip z = 0 and the far plane to clip z = 1, with the perspective divide by w for
// a perspective volume (w > 0 in front of the eye). It is the product of two parts, which
// GetMatrices returns apart:
// - view: a rigid map into eye space, whose origin is the viewpoint, x axis along nearX, z axis
//   along nearX x nearY (pointing back to the viewer unless the volume is reflected) and y axis
//   completing the right-handed frame;
// - projection: the map from eye space to clip space. For the volumes of the makers it is the
//   familiar frustum or orthographic matrix (with depth 0..1); for sheared volumes it carries the
//   shear as well.
// GetInverseMatrix is formed from the parts' own inverses, not by inverting the product, so
// ProjectClipPointToLine takes the clip position (x, y, 0) to the near rectangle's point under
// it. A degenerate volume (a near rectangle of no area, or a far plane through the viewpoint)
// gives non-finite matrices; nothing is reported.
//
// Nothing here posts an error or allocates. The default constructor leaves the fields unset.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>

#include <cstdint>
#include <type_traits>

class ZtLAffine3f;
class ZtLMatrix3f;
class ZtLMatrix4f;
class ZtLTransform3f;

class ZTL_EXPORT ZtLFrustum3f {
public:
    enum FrustumType : std::int32_t {
        // Sight lines meet at the viewpoint.
        Perspective = 0,
        // Parallel sight lines.
        Orthographic = 1
    };

    // Fields unset.
    ZtLFrustum3f() = default;
    // MakePerspective(fovy, aspect, nearDist, farDist).
    ZtLFrustum3f(double fovy, double aspect, double nearDist, double farDist) noexcept {
        MakePerspective(fovy, aspect, nearDist, farDist);
    }
    // SetValue(type, left, right, bottom, top, nearDist, farDist).
    ZtLFrustum3f(FrustumType type, double left, double right, double bottom, double top,
                 double nearDist, double farDist) noexcept {
        SetValue(type, left, right, bottom, top, nearDist, farDist);
    }

    // MakeFrustum for type Perspective, MakeOrtho for any other value (stored as Orthographic).
    void SetValue(FrustumType type, double left, double right, double bottom, double top,
                  double nearDist, double farDist) noexcept {
        if (type == Perspective) {
            MakeFrustum(left, right, bottom, top, nearDist, farDist);
        } else {
            MakeOrtho(left, right, bottom, top, nearDist, farDist);
        }
    }
    void SetValue(const ZtLFrustum3f& f) noexcept { *this = f; }

    // A symmetric perspective volume: fovy is the full vertical angle in radians, aspect the
    // width over the height, nearDist and farDist positive distances along -z.
    void MakePerspective(double fovy, double aspect, double nearDist, double farDist) noexcept;
    // A perspective volume whose near rectangle spans [left, right] x [bottom, top] at
    // z = -nearDist, the far plane at z = -farDist.
    void MakeFrustum(double left, double right, double bottom, double top, double nearDist,
                     double farDist) noexcept;
    // An orthographic volume [left, right] x [bottom, top] x [-farDist, -nearDist].
    void MakeOrtho(double left, double right, double bottom, double top, double nearDist,
                   double farDist) noexcept;

    FrustumType GetFrustumType() const noexcept { return m_type; }
    const ZtLPos3f& GetViewpoint() const noexcept { return m_viewpoint; }
    const ZtLVec3f& GetNearOffset() const noexcept { return m_nearOffset; }
    const ZtLVec3f& GetNearX() const noexcept { return m_nearX; }
    const ZtLVec3f& GetNearY() const noexcept { return m_nearY; }
    // The depth vector, from the viewpoint to the far plane; not normalised.
    const ZtLVec3f& GetViewDirection() const noexcept { return m_depth; }
    // nearY x nearX, not normalised: the direction into the volume across the near plane.
    ZtLVec3f GetNearNormal() const noexcept { return m_nearY.Cross(m_nearX); }
    double GetWidth() const noexcept { return m_nearX.Length(); }
    double GetHeight() const noexcept { return m_nearY.Length(); }
    // The signed distance of viewpoint + depth from the near plane.
    double GetDepth() const noexcept;

    // The bounding planes, normals into the volume.
    ZtLPlane3f GetLeftPlane() const noexcept;
    ZtLPlane3f GetRightPlane() const noexcept;
    ZtLPlane3f GetTopPlane() const noexcept;
    ZtLPlane3f GetBottomPlane() const noexcept;
    ZtLPlane3f GetNearPlane() const noexcept;
    ZtLPlane3f GetFarPlane() const noexcept;
    // Six planes: left, right, top, bottom, near, far.
    void GetPlanes(ZtLPlane3f* out) const noexcept;
    // The plane parallel to the near plane through viewpoint + normalised(depth) * dist, facing
    // the same way as the near plane.
    ZtLPlane3f GetDistPlane(double dist) const noexcept;

    ZtLPos3f GetNearBottomLeft() const noexcept { return m_viewpoint + m_nearOffset; }
    ZtLPos3f GetNearBottomRight() const noexcept { return GetNearBottomLeft() + m_nearX; }
    ZtLPos3f GetNearTopLeft() const noexcept { return GetNearBottomLeft() + m_nearY; }
    ZtLPos3f GetNearTopRight() const noexcept {
        return m_viewpoint + m_nearOffset + m_nearX + m_nearY;
    }
    ZtLPos3f GetFarBottomLeft() const noexcept;
    ZtLPos3f GetFarBottomRight() const noexcept;
    ZtLPos3f GetFarTopLeft() const noexcept;
    ZtLPos3f GetFarTopRight() const noexcept;
    // Eight corners: the near ones (bottom-left, bottom-right, top-left, top-right), then the far
    // ones in the same order.
    void GetCorners(ZtLPos3f* out) const noexcept;

    // 1 when p has a non-negative signed distance from all six planes (a point on a face is
    // inside), 0 at the first plane it is behind.
    int ContainsPoint(const ZtLPos3f& p) const noexcept;
    // 1 when depth . (nearY x nearX) < 0: the near rectangle is wound the mirrored way.
    int IsReflected() const noexcept;

    // The sight line through p in unit screen coordinates (0..1 left to right and bottom to top).
    ZtLLine3f ProjectPointToLine(const ZtLPos2f& p) const noexcept;
    // The sight line through the clip position c (-1..1). Perspective: the line from the
    // viewpoint through c on the near plane. Orthographic: the line along depth through it, with
    // its point at the foot of the perpendicular from the origin.
    ZtLLine3f ProjectClipPointToLine(const ZtLPos2f& c) const noexcept;
    // The point of the sight line through p (screen) or c (clip) on GetDistPlane(dist); the
    // line's point when the line runs parallel to that plane.
    ZtLPos3f ProjectPointToDist(const ZtLPos2f& p, double dist) const noexcept;
    ZtLPos3f ProjectClipPointToDist(const ZtLPos2f& c, double dist) const noexcept;

    // World to clip space (see the header comment), its inverse, both, and the split into the
    // rigid view part and the projection part (view * projection = GetMatrix()).
    ZtLMatrix4f GetMatrix() const noexcept;
    ZtLMatrix4f GetInverseMatrix() const noexcept;
    void GetMatrixAndInverse(ZtLMatrix4f* matrix, ZtLMatrix4f* inverse) const noexcept;
    void GetMatrices(ZtLAffine3f* view, ZtLMatrix4f* projection) const noexcept;

    // Shrinks the near rectangle to the part [x0, x1] x [y0, y1] of it, in fractions of its width
    // and height. The viewpoint, depth and type stay, so a perspective volume keeps its eye.
    void Narrow(double x0, double x1, double y0, double y1) noexcept {
        m_nearOffset += m_nearX * x0 + m_nearY * y0;
        m_nearX *= x1 - x0;
        m_nearY *= y1 - y0;
    }
    ZtLFrustum3f NarrowedBy(double x0, double x1, double y0, double y1) const noexcept {
        ZtLFrustum3f f(*this);
        f.Narrow(x0, x1, y0, y1);
        return f;
    }

    // Transforms: the viewpoint maps as a position, nearOffset, nearX, nearY and depth as free
    // vectors. A general transform with a projective part maps the viewpoint, the near
    // bottom-left, bottom-right and top-left corners and viewpoint + depth as positions (with the
    // divide) and rebuilds the vectors from them; the near face stays a parallelogram.
    void Translate(const ZtLVec3f& v) noexcept { m_viewpoint += v; }
    ZtLFrustum3f TranslatedBy(const ZtLVec3f& v) const noexcept {
        ZtLFrustum3f f(*this);
        f.Translate(v);
        return f;
    }
    void Rotate(const ZtLMatrix3f& m) noexcept { *this = RotatedBy(m); }
    ZtLFrustum3f RotatedBy(const ZtLMatrix3f& m) const noexcept;
    void Transform(const ZtLMatrix3f& m) noexcept { *this = TransformedBy(m); }
    void Transform(const ZtLAffine3f& a) noexcept { *this = TransformedBy(a); }
    void Transform(const ZtLTransform3f& t) noexcept { *this = TransformedBy(t); }
    ZtLFrustum3f TransformedBy(const ZtLMatrix3f& m) const noexcept;
    ZtLFrustum3f TransformedBy(const ZtLAffine3f& a) const noexcept;
    ZtLFrustum3f TransformedBy(const ZtLTransform3f& t) const noexcept;

private:
    // The far corner of the near corner viewpoint + o.
    ZtLPos3f FarCorner(const ZtLVec3f& o) const noexcept;

    FrustumType m_type;
    ZtLPos3f m_viewpoint;
    ZtLVec3f m_nearOffset;
    ZtLVec3f m_nearX;
    ZtLVec3f m_nearY;
    ZtLVec3f m_depth;
};

static_assert(std::is_trivially_copyable<ZtLFrustum3f>::value,
              "a frustum is a plain trivially copyable value");

#endif
