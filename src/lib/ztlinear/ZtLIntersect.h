#ifndef ZTLINEAR_ZTLINTERSECT_H
#define ZTLINEAR_ZTLINTERSECT_H

#include <ztlinear/ZtLExport.h>

class ZtLLine3f;
class ZtLPlane3f;
class ZtLPos3f;

// ZtLIntersect: static tests of how two primitives meet. The classifications return a code of
// six bits (1, 2, 4, 8, 16, 32), and the predicates read such a code:
//   10 (8 + 2)            separate: a point behind the plane, or lines that do not come close
//   13 (8 + 4 + 1)        a point in front of the plane
//   28 (16 + 8 + 4)       a point on the plane
//   15 (8 + 4 + 2 + 1)    two lines that cross
//   53 (32 + 16 + 4 + 1)  two equal lines
// The predicates test bits, except Separate, which wants exactly 10 (26 has all of 10's bits and
// is not separate).
//
// Never instantiated.
class ZTL_EXPORT ZtLIntersect {
public:
    enum : unsigned int {
        kSeparate = 10,
        kInFront = 13,
        kOnPlane = 28,
        kCrossing = 15,
        kEqual = 53,
    };

    ZtLIntersect& operator=(const ZtLIntersect&) = default;

    // normal . p - distance >= 0, and >= -tol.
    static int Contains(const ZtLPlane3f& pl, const ZtLPos3f& p) noexcept;
    static int ContainsTol(const ZtLPlane3f& pl, const ZtLPos3f& p, double tol) noexcept;
    // As ZtLLine3f::Intersects and ZtLLine3f::Intersect of the line and the plane.
    static int Intersects(const ZtLLine3f& l, const ZtLPlane3f& pl) noexcept;
    static int Intersects(const ZtLPlane3f& pl, const ZtLLine3f& l) noexcept;
    static int Intersect(const ZtLLine3f& l, const ZtLPlane3f& pl, ZtLPos3f* p) noexcept;
    static int Intersect(const ZtLPlane3f& pl, const ZtLLine3f& l, ZtLPos3f* p) noexcept;

    // The point against the plane: 10 behind it beyond tol, 13 in front beyond tol, else 28
    // (both bounds count as on the plane).
    static unsigned int ClassifyTol(const ZtLPos3f& p, const ZtLPlane3f& pl, double tol) noexcept;
    // 53 when a.Equals(b, t1, t2); else 15 when the closest points are nearer than t1 (so t1 is
    // both the direction tolerance of the equality and the distance tolerance of the crossing);
    // else 10, also for exactly parallel lines.
    static unsigned int ClassifyTol(const ZtLLine3f& a, const ZtLLine3f& b, double t1,
                                    double t2) noexcept;
    // The same; on 15 p receives the midpoint of the two closest points, otherwise it is left.
    static unsigned int ClassifyTol(const ZtLLine3f& a, const ZtLLine3f& b, ZtLPos3f* p, double t1,
                                    double t2) noexcept;
    // Whether the closest points of the lines are nearer than tol (strict); 0 for exactly
    // parallel lines. IntersectTol writes their midpoint on success and leaves p otherwise.
    static int IntersectsTol(const ZtLLine3f& a, const ZtLLine3f& b, double tol) noexcept;
    static int IntersectTol(const ZtLLine3f& a, const ZtLLine3f& b, ZtLPos3f* p,
                            double tol) noexcept;

    // Bits 1, 2, 4 and 8 all set.
    static constexpr int Intersects(unsigned int c) noexcept { return (c & 15u) == 15u; }
    // Bits 2 and 8 clear.
    static constexpr int Equals(unsigned int c) noexcept { return (c & 10u) == 0u; }
    // Bit 8 clear.
    static constexpr int Contains(unsigned int c) noexcept { return (c & 8u) == 0u; }
    // Bit 2 clear.
    static constexpr int Inside(unsigned int c) noexcept { return (c & 2u) == 0u; }
    // The bits 16 and 32 of c themselves.
    static constexpr unsigned int Touches(unsigned int c) noexcept { return c & 48u; }
    // Bit 16 or 32 set, bits 1 and 4 clear.
    static constexpr int OutsidesTouch(unsigned int c) noexcept {
        return (c & 48u) != 0u && (c & 5u) == 0u;
    }
    // Exactly 10.
    static constexpr int Separate(unsigned int c) noexcept { return c == 10u; }

private:
    ZtLIntersect() {}
};

#endif
