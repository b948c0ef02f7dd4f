#ifndef ZTLINEAR_ZTLPICKFRUSTUM3F_H
#define ZTLINEAR_ZTLPICKFRUSTUM3F_H

// ZtLPickFrustum3f: the pick volume of interactive selection, bounded by up to six planes.
//
// It answers whether a point, a segment or a triangle lies in the volume and, if so, which point
// of it is nearest: nearest to the near plane, or nearest to the volume's centre line, optionally
// snapped to a vertex, an edge, an end point or a midpoint. It culls boxes so that a caller can
// skip whole subtrees of a scene, and it follows the scene into a model's local space through
// rotations, scalings, translations and transforms.
//
// Planes face into the volume: a point is inside plane i when its signed distance
// n.p - d (computed as x*nx + y*ny + z*nz - d) is not negative; a point exactly on a plane is
// inside, and no tolerance is applied. Plane i is bit (1 << i) of every mask and outside code.
// Built from a ZtLFrustum3f the planes are, by index, left, right, top, bottom, near, far; plane
// 4 is the near plane throughout: every distance a query reports is the signed distance from it.
// A volume built from arbitrary planes must keep its near plane at index 4 for the distances to
// mean anything. Plane indices and counts are not checked: callers keep them within 0..6.
//
// A query's options and results travel in a ZtLPickFrustumContext3f; the option and result bits
// are named in ZtLPickEnum (ZtLPick.h). Queries never allocate (a clipped triangle lives in fixed
// storage on the stack), test each plane with one dot product, stop at the first plane that
// rejects, and CanCull narrows the plane mask for a subtree's descendants. Nothing here posts an
// error, except that a transform by a singular matrix is reported by that matrix's inverse.

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLPick.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLVec3f.h>

#include <type_traits>

class ZtLAffine3f;
class ZtLBox3f;
class ZtLFrustum3f;
class ZtLMatrix3f;
class ZtLMatrix4f;
class ZtLRay3f;
class ZtLTransform3f;

// Inputs and outputs of one pick query. The caller fills the inputs; a query that hits fills
// result, and position and distance when the options ask for them.
struct ZtLPickFrustumContext3f {
    // Fields unset.
    ZtLPickFrustumContext3f() = default;
    // Sets the first three inputs only; nearLimit must be set too when UseNearLimit is asked.
    ZtLPickFrustumContext3f(int cullBackFacesIn, int planeMaskIn, int optionsIn) noexcept
        : cullBackFaces(cullBackFacesIn), planeMask(planeMaskIn), options(optionsIn) {}

    // In: triangles only, reject triangles that do not face the viewer.
    int cullBackFaces;
    // In: bit i set, plane i takes part in the test.
    int planeMask;
    // In: ZtLPickEnum::Option bits.
    int options;
    // In: the limit distance of ZtLPickEnum::UseNearLimit.
    double nearLimit;
    // Out: ZtLPickEnum::Result bits.
    int result;
    // Out: the picked point (with ZtLPickEnum::WritePosition).
    ZtLPos3f position;
    // Out: its signed distance from plane 4 (with ZtLPickEnum::WriteDistance).
    double distance;
};

// Working storage of the triangle clipper: a closed ring of at most 9 vertices (the 3 corners
// and at most one net new vertex per plane), linked by index, in fixed storage.
struct ZtLPickPolygon {
    struct PickVertex {
        // Index of the next vertex of the ring.
        int next;
        ZtLPos3f position;
        // The tested planes the vertex is outside of.
        int outside;
        // ZtLPickEnum::Result bits of the triangle features the vertex lies on: a corner carries
        // its vertex bit and its two edge bits, a clipped vertex the edge bits it shares.
        int features;
    };
    enum { Capacity = 9 };

    // Index of the ring's first vertex.
    int head;
    // Records in use.
    int count;
    PickVertex vertices[Capacity];
};

class ZTL_EXPORT ZtLPickFrustum3f {
public:
    // No planes, no eye point, no orientation step. The unused planes are null planes (normal
    // (0, 0, 0), on which every point lies), the origin and the centre line (0, 0, 0) and -z.
    ZtLPickFrustum3f() noexcept;
    // The six planes of the frustum (left, right, top, bottom, near, far) facing inwards, the eye
    // of a perspective frustum as origin, and the sight line through the middle of the near
    // rectangle as centre line.
    explicit ZtLPickFrustum3f(const ZtLFrustum3f& frustum) noexcept;
    // A copy of the first numPlanes planes; no origin and no orientation step.
    ZtLPickFrustum3f(const ZtLPlane3f* const planes, int numPlanes) noexcept;

    const ZtLPlane3f& GetPlane(int i) const noexcept { return m_planes[i]; }
    int GetNumPlanes() const noexcept { return m_numPlanes; }
    int HasOrigin() const noexcept { return m_hasOrigin; }
    const ZtLPos3f& GetOrigin() const noexcept { return m_origin; }
    // Plain writes: no checks, no orientation step.
    void SetNumPlanes(int n) noexcept { m_numPlanes = n; }
    void SetPlane(int i, const ZtLPlane3f& plane) noexcept { m_planes[i] = plane; }
    void SetPlaneNormal(int i, const ZtLUnitVec3f& n) noexcept { m_planes[i].SetNormal(n); }
    void SetPlaneDistance(int i, double d) noexcept { m_planes[i].SetDistance(d); }
    // The ray from the origin along the centre line (meaningful with an origin).
    ZtLRay3f GetRay() const noexcept;
    ZtLLine3f GetCenterLine() const noexcept { return m_centreLine; }

    // The mask of the planes, among those whose bit is not in excluded, that p is behind.
    int Classify(const ZtLPos3f& p, int excluded) const noexcept {
        int outside = 0;
        for (int i = 0; i < m_numPlanes; ++i) {
            const int bit = 1 << i;
            if (!(excluded & bit) && SignedDistance(m_planes[i], p) < 0.0) outside |= bit;
        }
        return outside;
    }

    // Picks a point: 1 when it is inside every tested plane (and, with UseNearLimit, not nearer
    // than nearLimit to plane 4). The result is WhollyInside.
    int FindNearest(ZtLPickFrustumContext3f* context, const ZtLPos3f& p) const noexcept;
    // Picks the segment a..b: 1 when some part of it is inside (the segment is clipped plane by
    // plane, Cohen-Sutherland fashion). The picked point is an end, the midpoint or the nearest
    // point of the clipped piece, by the snap options; nearLimit does not apply.
    int FindNearest(ZtLPickFrustumContext3f* context, const ZtLPos3f& a,
                    const ZtLPos3f& b) const noexcept;
    // Picks the triangle a, b, c: 1 when the triangle clipped to the tested planes keeps
    // something (and, with UseNearLimit, reaches nearer than nearLimit to plane 4; note the
    // opposite sense from the point query). The picked point is a surviving corner, a point of
    // the clipped ring or where the centre line meets the triangle, by the mode and snap options.
    // Every triangle goes through the clipper, so the result never carries WhollyInside.
    int FindNearest(ZtLPickFrustumContext3f* context, const ZtLPos3f& a, const ZtLPos3f& b,
                    const ZtLPos3f& c) const noexcept;
    // The triangle query with a context of its own: it asks for the position and the distance
    // when the pointers are given and copies them out on a hit.
    int FindNearest(const ZtLPos3f& a, const ZtLPos3f& b, const ZtLPos3f& c, int cullBackFaces,
                    int planeMask, ZtLPos3f* position, double* distance) const noexcept;
    // 1 when the triangle has a part inside the tested planes; no nearest point is sought.
    int Intersects(const ZtLPos3f& a, const ZtLPos3f& b, const ZtLPos3f& c, int cullBackFaces,
                   int planeMask) const noexcept;

    // 1 when the box is wholly behind one of the planes in *mask (the mask is left as it was).
    // Otherwise 0, and the bits of the planes the box lies wholly in front of are cleared from
    // *mask, so a subtree's descendants skip them. A box touching a plane neither culls nor
    // clears.
    int CanCull(const ZtLBox3f& box, int* mask) const noexcept;
    // The smallest / largest signed distance of a corner of the box from plane 4.
    double MinDistance(const ZtLBox3f& box) const noexcept;
    double MaxDistance(const ZtLBox3f& box) const noexcept;

    // Transforms. The planes follow the points, the origin maps as a position and the centre
    // line as a line. Scale and every Transform then make sure that a volume built from a
    // frustum still faces inwards (its near plane's points on the inner side of the far plane,
    // else all six planes are turned round); Translate and Rotate keep the orientation anyway.
    void Translate(const ZtLVec3f& t) noexcept;
    // The planes and the centre line are rotated as row vectors (p . m), but the origin is
    // mapped in column form, m * origin: for a rotation, the opposite turn. No inverse is formed.
    void Rotate(const ZtLMatrix3f& m) noexcept;
    // Scales about the world origin.
    void Scale(double s) noexcept;
    void Transform(const ZtLMatrix3f& m) noexcept;
    void Transform(const ZtLAffine3f& a) noexcept;
    void Transform(const ZtLMatrix4f& m) noexcept;
    void Transform(const ZtLTransform3f& t) noexcept;
    // With the inverse of t ready-made.
    void Transform(const ZtLTransform3f& t, const ZtLTransform3f& inverse) noexcept;
    ZtLPickFrustum3f TranslatedBy(const ZtLVec3f& t) noexcept;
    ZtLPickFrustum3f RotatedBy(const ZtLMatrix3f& m) noexcept;
    ZtLPickFrustum3f ScaledBy(double s) noexcept;
    ZtLPickFrustum3f TransformedBy(const ZtLMatrix3f& m) noexcept;
    ZtLPickFrustum3f TransformedBy(const ZtLAffine3f& a) noexcept;
    ZtLPickFrustum3f TransformedBy(const ZtLMatrix4f& m) noexcept;
    ZtLPickFrustum3f TransformedBy(const ZtLTransform3f& t) noexcept;

private:
    enum PolyStatus { Inside = 0, Partial = 1, Outside = 2 };

    static double SignedDistance(const ZtLPlane3f& plane, const ZtLPos3f& p) noexcept {
        const ZtLUnitVec3f& n = plane.GetNormal();
        return p[0] * n[0] + p[1] * n[1] + p[2] * n[2] - plane.GetDistance();
    }
    // The planes that take part under planeMask.
    int TestedPlanes(int planeMask) const noexcept { return planeMask & ((1 << m_numPlanes) - 1); }

    // Clips a..b to the tested planes into a2..b2. The codes are the ends' outside codes before
    // clipping: an end was moved exactly when its code is not 0.
    PolyStatus FindLine(ZtLPickFrustumContext3f* context, const ZtLPos3f& a, const ZtLPos3f& b,
                        ZtLPos3f* a2, ZtLPos3f* b2, int* codeA, int* codeB) const noexcept;
    // Clips the triangle to the tested planes into the ring in polygon (which may be null when
    // only the status is wanted).
    PolyStatus FindPolygon(ZtLPickFrustumContext3f* context, const ZtLPos3f& a, const ZtLPos3f& b,
                           const ZtLPos3f& c, ZtLPickPolygon* polygon) const noexcept;
    // The orientation step (when the volume was built from a frustum).
    void OrientPlanes() noexcept;

    ZtLPlane3f m_planes[6];
    int m_numPlanes;
    int m_hasOrigin;
    ZtLPos3f m_origin;
    ZtLLine3f m_centreLine;
    int m_orientPlanes;
};

static_assert(std::is_trivially_copyable<ZtLPickFrustumContext3f>::value &&
                  std::is_trivially_copyable<ZtLPickPolygon>::value &&
                  std::is_trivially_copyable<ZtLPickFrustum3f>::value,
              "pick volumes, their query records and their working storage are plain values");

#endif
