#ifndef ZTLINEAR_ZTLNEWELLMETHOD3F_H
#define ZTLINEAR_ZTLNEWELLMETHOD3F_H

#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLVec3f.h>

#include <cstdint>

// Newell's method over a polygon streamed one vertex at a time, without keeping the vertices:
// the polygon's plane with a robust averaged normal, and its area.
//
// The accumulated vector is a fan of triangles from the first vertex: each vertex p after the
// second adds (last - first) x (p - first). Once the outline is complete the sum is twice the
// polygon's vector area, pointing to the side from which the vertices run counter-clockwise.
// The outline need not be closed; repeating the first vertex (or any vertex just added) adds
// nothing. No vertex is rejected or merged.
class ZTL_EXPORT ZtLNewellMethod3f {
public:
    ZtLNewellMethod3f() noexcept = default;

    // Forgets every point.
    void Reset() noexcept {
        m_count = 0;
        m_sum = ZtLVec3f(0.0, 0.0, 0.0);
    }

    // Adds one vertex and returns the number of vertices added so far.
    int AddPoint(const ZtLPos3f& p) noexcept {
        ++m_count;
        if (m_count == 1) m_first = p;
        if (m_count >= 2) m_sum += m_last.Subtract(m_first).Cross(p.Subtract(m_first));
        m_last = p;
        return m_count;
    }
    int AddPoint(double x, double y, double z) noexcept { return AddPoint(ZtLPos3f(x, y, z)); }
    // Adds pts[0] ... pts[n - 1] in order and returns the count; for n < 1 it adds nothing and
    // returns 0, whatever was added before.
    int AddPoints(ZtLPos3f* const pts, int n) noexcept;

    // The polygon's plane: the normalised sum as normal (right-hand rule: counter-clockwise seen
    // from the positive side), through the first vertex. With fewer than three vertices, the
    // plane z = 0 with normal (0, 0, 1). A zero sum (collinear or self-cancelling outlines) gives
    // the zero normal that normalising a zero vector gives.
    ZtLPlane3f ComputePlane() const noexcept;
    // The polygon's area: half the length of the sum; 0 for fewer than three vertices.
    double ComputeArea() const noexcept;

private:
    std::int32_t m_count = 0;
    ZtLPos3f m_first{0.0, 0.0, 0.0};
    ZtLPos3f m_last{0.0, 0.0, 0.0};
    ZtLVec3f m_sum{0.0, 0.0, 0.0};
};

#endif
