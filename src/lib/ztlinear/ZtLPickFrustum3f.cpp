#include <ztlinear/ZtLPickFrustum3f.h>

#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <cmath>

namespace {

using PickVertex = ZtLPickPolygon::PickVertex;

constexpr int kEdgeBits = 0x07;
constexpr int kVertexBits = 0x70;
constexpr int kWhollyInside = 0x80;

// The planes below i, i itself and the untested ones: after a clip at plane i only the later
// tested planes are asked again.
int ExcludedAfter(int bit, int tested) noexcept { return ~tested | (bit | (bit - 1)); }

// Where the line from `from` towards `to` crosses the plane. The line is taken through its point
// nearest the world origin, p0 = from - u (u . from) with u the unit direction, and the crossing
// is p0 + u (d - n . p0) / (n . u). False when n . u is zero or not a number: the line runs
// along the plane.
bool Crossing(const ZtLPlane3f& plane, const ZtLPos3f& from, const ZtLPos3f& to,
              ZtLPos3f* out) noexcept {
    const ZtLUnitVec3f u(to - from);
    const ZtLUnitVec3f& n = plane.GetNormal();
    const double k = n.Dot(u);
    if (!(k < 0.0 || k > 0.0)) return false;
    const ZtLPos3f p0 = from - u.Multiply(u.Dot(from.Vec()));
    *out = p0 + u.Multiply((plane.GetDistance() - n.Dot(p0.Vec())) / k);
    return true;
}

// Squared distance from p to its closest point on the line.
double SquaredDistanceToLine(const ZtLLine3f& line, const ZtLPos3f& p) noexcept {
    return (p - line.ClosestPoint(p)).Length2();
}

// The closest points of the centre line and the segment s..e: the segment is taken as the line
// through s along u = normalised(e - s), its parameter (a length along u, s at u . s and e at
// u . e) clamped to the segment; the centre-line parameter stays as solved before clamping. For
// parallel lines the segment point is s and the centre-line point its projection. Returns the
// squared distance between the two points and writes the segment point.
double ClosestOnSegment(const ZtLLine3f& centre, const ZtLPos3f& s, const ZtLPos3f& e,
                        ZtLPos3f* onSegment) noexcept {
    const ZtLUnitVec3f u(e - s);
    ZtLLine3f segment;
    segment.SetNormalizedValue(s - u.Multiply(u.Dot(s.Vec())), u);
    double sc = 0.0;
    double ts = 0.0;
    ZtLPos3f onCentre;
    if (centre.ClosestPointsParameters(segment, &sc, &ts)) {
        const double lo = u.Dot(s.Vec());
        const double hi = u.Dot(e.Vec());
        if (ts < lo) ts = lo;
        if (ts > hi) ts = hi;
        *onSegment = segment.Evaluate(ts);
        onCentre = centre.Evaluate(sc);
    } else {
        *onSegment = s;
        onCentre = centre.ClosestPoint(s);
    }
    return (*onSegment - onCentre).Length2();
}

// The nearest ring edge to the centre line, among the edges whose ends pass the filter (both
// ends carry one of its bits; 0 lets every edge through). Ties keep the first edge in ring order.
// Returns false when no edge passes; else writes the point and the edge bits the ends share.
bool NearestRingEdge(const ZtLLine3f& centre, const ZtLPickPolygon& ring, int filter,
                     ZtLPos3f* position, int* edgeBits) noexcept {
    bool found = false;
    double best = 0.0;
    int v = ring.head;
    do {
        const PickVertex& from = ring.vertices[v];
        const PickVertex& to = ring.vertices[from.next];
        if (filter == 0 || ((from.features & filter) && (to.features & filter))) {
            ZtLPos3f point;
            const double d2 = ClosestOnSegment(centre, from.position, to.position, &point);
            if (!found || d2 < best) {
                found = true;
                best = d2;
                *position = point;
                *edgeBits = from.features & to.features & kEdgeBits;
            }
        }
        v = from.next;
    } while (v != ring.head);
    return found;
}

}  // namespace

ZtLPickFrustum3f::ZtLPickFrustum3f() noexcept
    : m_numPlanes(0), m_hasOrigin(0), m_origin(0.0, 0.0, 0.0), m_orientPlanes(0) {
    const ZtLPlane3f null(ZtLUnitVec3f(0.0, 0.0, 0.0), 0.0);
    for (ZtLPlane3f& plane : m_planes) plane = null;
    m_centreLine.SetNormalizedValue(m_origin, ZtLVec3f(0.0, 0.0, -1.0));
}

ZtLPickFrustum3f::ZtLPickFrustum3f(const ZtLFrustum3f& frustum) noexcept
    : m_numPlanes(6),
      m_hasOrigin(frustum.GetFrustumType() == ZtLFrustum3f::Perspective ? 1 : 0),
      m_origin(frustum.GetViewpoint()),
      m_centreLine(frustum.ProjectClipPointToLine(ZtLPos2f(0.0, 0.0))),
      m_orientPlanes(1) {
    frustum.GetPlanes(m_planes);
    OrientPlanes();
}

ZtLPickFrustum3f::ZtLPickFrustum3f(const ZtLPlane3f* const planes, int numPlanes) noexcept
    : ZtLPickFrustum3f() {
    m_numPlanes = numPlanes;
    for (int i = 0; i < numPlanes; ++i) m_planes[i] = planes[i];
}

ZtLRay3f ZtLPickFrustum3f::GetRay() const noexcept {
    return ZtLRay3f(m_origin, m_centreLine.GetDirection());
}

void ZtLPickFrustum3f::OrientPlanes() noexcept {
    if (!m_orientPlanes) return;
    const ZtLPlane3f& nearPlane = m_planes[4];
    const ZtLPos3f q = nearPlane.GetNormal().Multiply(nearPlane.GetDistance()).Pos();
    if (!(SignedDistance(m_planes[5], q) >= 0.0)) {
        for (ZtLPlane3f& plane : m_planes) plane.Negate();
    }
}

int ZtLPickFrustum3f::FindNearest(ZtLPickFrustumContext3f* context,
                                  const ZtLPos3f& p) const noexcept {
    const int tested = TestedPlanes(context->planeMask);
    for (int i = 0; i < m_numPlanes; ++i) {
        if ((tested & (1 << i)) && SignedDistance(m_planes[i], p) < 0.0) return 0;
    }
    const int options = context->options;
    const double d = SignedDistance(m_planes[4], p);
    // A point nearer than the limit is rejected.
    if ((options & ZtLPickEnum::UseNearLimit) && context->nearLimit > d) return 0;
    context->result = kWhollyInside;
    if (options & ZtLPickEnum::WritePosition) context->position = p;
    if (options & ZtLPickEnum::WriteDistance) context->distance = d;
    return 1;
}

ZtLPickFrustum3f::PolyStatus ZtLPickFrustum3f::FindLine(ZtLPickFrustumContext3f* context,
                                                        const ZtLPos3f& a, const ZtLPos3f& b,
                                                        ZtLPos3f* a2, ZtLPos3f* b2, int* codeA,
                                                        int* codeB) const noexcept {
    const int tested = TestedPlanes(context->planeMask);
    *a2 = a;
    *b2 = b;
    int outA = 0;
    int outB = 0;
    for (int i = 0; i < m_numPlanes; ++i) {
        const int bit = 1 << i;
        if (!(tested & bit)) continue;
        if (SignedDistance(m_planes[i], a) < 0.0) outA |= bit;
        if (SignedDistance(m_planes[i], b) < 0.0) outB |= bit;
        if (outA & outB & bit) {
            if (codeA) *codeA = outA;
            if (codeB) *codeB = outB;
            return Outside;
        }
    }
    if (codeA) *codeA = outA;
    if (codeB) *codeB = outB;
    if (!((outA | outB) & tested)) {
        context->result = kWhollyInside;
        return Inside;
    }
    context->result = 0;

    // Move each end that is outside a plane onto it, plane by plane; an end's code is then asked
    // again of the later planes only.
    const ZtLUnitVec3f u(b - a);
    const ZtLPos3f p0 = a - u.Multiply(u.Dot(a.Vec()));
    for (int i = 0; i < m_numPlanes; ++i) {
        const int bit = 1 << i;
        if (!(tested & bit) || !((outA | outB) & bit)) continue;
        const ZtLPlane3f& plane = m_planes[i];
        const ZtLUnitVec3f& n = plane.GetNormal();
        const double k = n.Dot(u);
        if (!(k < 0.0 || k > 0.0)) continue;
        const ZtLPos3f crossing = p0 + u.Multiply((plane.GetDistance() - n.Dot(p0.Vec())) / k);
        const int excluded = ExcludedAfter(bit, tested);
        if (outA & bit) {
            *a2 = crossing;
            outA = Classify(crossing, excluded);
        }
        if (outB & bit) {
            *b2 = crossing;
            outB = Classify(crossing, excluded);
        }
    }
    return Partial;
}

ZtLPickFrustum3f::PolyStatus ZtLPickFrustum3f::FindPolygon(ZtLPickFrustumContext3f* context,
                                                           const ZtLPos3f& a, const ZtLPos3f& b,
                                                           const ZtLPos3f& c,
                                                           ZtLPickPolygon* polygon) const noexcept {
    const int tested = TestedPlanes(context->planeMask);
    int outA = 0;
    int outB = 0;
    int outC = 0;
    for (int i = 0; i < m_numPlanes; ++i) {
        const int bit = 1 << i;
        if (!(tested & bit)) continue;
        const ZtLPlane3f& plane = m_planes[i];
        if (SignedDistance(plane, a) < 0.0) outA |= bit;
        if (SignedDistance(plane, b) < 0.0) outB |= bit;
        if (SignedDistance(plane, c) < 0.0) outC |= bit;
        if (outA & outB & outC & bit) return Outside;
    }

    if (context->cullBackFaces) {
        ZtLVec3f n = (b - a).Cross(c - a);
        // A degenerate triangle has no facing and is never culled.
        if (n.Normalize() > ZtLVec::GetResop()) {
            double facing;
            if (m_hasOrigin) {
                ZtLVec3f v = a - m_origin;
                v.Normalize();
                facing = n.Dot(v);
            } else {
                facing = n.Dot(m_planes[4].GetNormal());
            }
            if (facing > -ZtLVec::GetResnor()) return Outside;
        }
    }

    const int clipped = outA | outB | outC;
    if (!polygon) {
        if (!clipped) return Inside;
        if (outA == 0 || outB == 0 || outC == 0) return Partial;
    }
    ZtLPickPolygon local;
    ZtLPickPolygon& ring = polygon ? *polygon : local;
    ring.head = 0;
    ring.count = 3;
    ring.vertices[0] = PickVertex{1, a, outA, 0x15};
    ring.vertices[1] = PickVertex{2, b, outB, 0x23};
    ring.vertices[2] = PickVertex{0, c, outC, 0x46};

    for (int i = 0; i < m_numPlanes; ++i) {
        const int bit = 1 << i;
        if (!(clipped & bit)) continue;
        PickVertex* const v = ring.vertices;
        // The edge v -> w on which the ring leaves the plane's inner side.
        int from = ring.head;
        int leave = -1;
        do {
            const int to = v[from].next;
            if (!(v[from].outside & bit) && (v[to].outside & bit)) {
                leave = from;
                break;
            }
            from = to;
        } while (from != ring.head);
        if (leave < 0) {
            if (v[ring.head].outside & bit) return Outside;
            continue;
        }
        const int w = v[leave].next;
        // The edge x -> y on which it comes back.
        int x = w;
        while (v[v[x].next].outside & bit) x = v[x].next;
        const int y = v[x].next;

        const ZtLPlane3f& plane = m_planes[i];
        ZtLPos3f leaving;
        ZtLPos3f entering;
        if (!Crossing(plane, v[leave].position, v[w].position, &leaving) ||
            !Crossing(plane, v[x].position, v[y].position, &entering)) {
            continue;
        }
        const int excluded = ExcludedAfter(bit, tested);
        const int added = ring.count++;
        v[added] = PickVertex{y, entering, Classify(entering, excluded),
                              v[x].features & v[y].features & ~kVertexBits};
        v[w].position = leaving;
        v[w].outside = Classify(leaving, excluded);
        v[w].features &= v[leave].features & ~kVertexBits;
        v[w].next = added;
        ring.head = added;
    }

    // Whatever went through the clipper is Partial, even a triangle that no tested plane cut (its
    // ring is the triangle itself): a triangle pick with storage never reports WhollyInside.
    if (!(context->options & ZtLPickEnum::UseNearLimit)) return Partial;
    // Only polygons that reach nearer than the limit are kept.
    const ZtLPlane3f& nearPlane = m_planes[4];
    int v = ring.head;
    do {
        if (context->nearLimit > SignedDistance(nearPlane, ring.vertices[v].position)) {
            return Partial;
        }
        v = ring.vertices[v].next;
    } while (v != ring.head);
    return Outside;
}

int ZtLPickFrustum3f::FindNearest(ZtLPickFrustumContext3f* context, const ZtLPos3f& a,
                                  const ZtLPos3f& b, const ZtLPos3f& c) const noexcept {
    ZtLPickPolygon ring;
    const PolyStatus status = FindPolygon(context, a, b, c, &ring);
    if (status == Outside) return 0;
    int result = status == Inside ? kWhollyInside : 0;
    const int options = context->options;
    if (!(options & (ZtLPickEnum::WritePosition | ZtLPickEnum::WriteDistance))) {
        context->result = result;
        return 1;
    }
    const bool snapVertices = (options & ZtLPickEnum::SnapVertices) != 0;
    const bool snapEdges = (options & ZtLPickEnum::SnapEdges) != 0;
    const ZtLPlane3f& nearPlane = m_planes[4];
    ZtLPos3f position;

    if (!(options & ZtLPickEnum::NearestToCentreLine)) {
        // The ring vertex nearest plane 4 among those carrying one of the filter's bits (0: all);
        // the first met in ring order wins ties.
        int best = -1;
        double bestDistance = 0.0;
        auto nearest = [&](int filter) {
            int v = ring.head;
            do {
                const PickVertex& vertex = ring.vertices[v];
                if (filter == 0 || (vertex.features & filter)) {
                    const double d = SignedDistance(nearPlane, vertex.position);
                    if (best < 0 || d < bestDistance) {
                        best = v;
                        bestDistance = d;
                    }
                }
                v = vertex.next;
            } while (v != ring.head);
        };
        if (snapVertices) {
            nearest(kVertexBits);
            if (best >= 0) result |= ring.vertices[best].features & kVertexBits;
        }
        if (best < 0 && snapEdges) {
            nearest(kEdgeBits);
            if (best >= 0) result |= ring.vertices[best].features & kEdgeBits;
        }
        if (best < 0) nearest(0);
        position = ring.vertices[best].position;
    } else {
        bool found = false;
        if (snapVertices) {
            double best = 0.0;
            int v = ring.head;
            do {
                const PickVertex& vertex = ring.vertices[v];
                if (vertex.features & kVertexBits) {
                    const double d2 = SquaredDistanceToLine(m_centreLine, vertex.position);
                    if (!found || d2 < best) {
                        found = true;
                        best = d2;
                        position = vertex.position;
                        result = (result & ~kVertexBits) | (vertex.features & kVertexBits);
                    }
                }
                v = vertex.next;
            } while (v != ring.head);
        }
        int edgeBits = 0;
        if (!found && snapEdges) {
            found = NearestRingEdge(m_centreLine, ring, kEdgeBits, &position, &edgeBits);
            result |= edgeBits;
        }
        if (!found) {
            if (!m_centreLine.Intersect(a, b, c, &position, nullptr)) {
                if (options & ZtLPickEnum::CentreLineThrough) return 0;
                NearestRingEdge(m_centreLine, ring, 0, &position, &edgeBits);
                result |= edgeBits;
            }
        }
    }

    context->result = result;
    if (options & ZtLPickEnum::WritePosition) context->position = position;
    if (options & ZtLPickEnum::WriteDistance) {
        context->distance = SignedDistance(nearPlane, position);
    }
    return 1;
}

int ZtLPickFrustum3f::FindNearest(const ZtLPos3f& a, const ZtLPos3f& b, const ZtLPos3f& c,
                                  int cullBackFaces, int planeMask, ZtLPos3f* position,
                                  double* distance) const noexcept {
    ZtLPickFrustumContext3f context(
        cullBackFaces, planeMask,
        (position ? ZtLPickEnum::WritePosition : 0) | (distance ? ZtLPickEnum::WriteDistance : 0));
    if (!FindNearest(&context, a, b, c)) return 0;
    if (position) *position = context.position;
    if (distance) *distance = context.distance;
    return 1;
}

int ZtLPickFrustum3f::Intersects(const ZtLPos3f& a, const ZtLPos3f& b, const ZtLPos3f& c,
                                 int cullBackFaces, int planeMask) const noexcept {
    ZtLPickFrustumContext3f context(cullBackFaces, planeMask, 0);
    return FindPolygon(&context, a, b, c, nullptr) != Outside ? 1 : 0;
}

int ZtLPickFrustum3f::FindNearest(ZtLPickFrustumContext3f* context, const ZtLPos3f& a,
                                  const ZtLPos3f& b) const noexcept {
    ZtLPos3f a2;
    ZtLPos3f b2;
    int codeA = 0;
    int codeB = 0;
    if (FindLine(context, a, b, &a2, &b2, &codeA, &codeB) == Outside) return 0;
    context->result |= ZtLPickEnum::OnSegment;
    const int options = context->options;
    if (!(options & (ZtLPickEnum::WritePosition | ZtLPickEnum::WriteDistance))) return 1;

    const bool freeA = codeA == 0;
    const bool freeB = codeB == 0;
    const bool snapEnds = (options & ZtLPickEnum::SnapEnds) != 0;
    const ZtLPos3f mid((a[0] + b[0]) / 2, (a[1] + b[1]) / 2, (a[2] + b[2]) / 2);
    // The midpoint counts only when it lies on the clipped piece, judged along the axis on which
    // the segment runs farthest (ties to the lower axis).
    bool midValid = false;
    if (options & ZtLPickEnum::SnapMidpoint) {
        if (freeA && freeB) {
            midValid = true;
        } else {
            const ZtLVec3f d = b - a;
            int k = 0;
            if (std::fabs(d[1]) > std::fabs(d[k])) k = 1;
            if (std::fabs(d[2]) > std::fabs(d[k])) k = 2;
            if (d[k] < 0.0 || d[k] > 0.0) {
                midValid = (a2[k] - a[k]) / d[k] <= 0.5 && 0.5 <= (b2[k] - a[k]) / d[k];
            }
        }
    }

    enum Choice { None, EndA, EndB, Mid, Closest };
    Choice choice = None;
    ZtLPos3f position;
    if (!(options & ZtLPickEnum::NearestToCentreLine)) {
        const ZtLPlane3f& nearPlane = m_planes[4];
        const double d0 = SignedDistance(nearPlane, a2);
        const double d1 = SignedDistance(nearPlane, b2);
        bool endsOnly = false;
        if (snapEnds) {
            if (!freeA && freeB) {
                if (!(midValid && d0 <= d1)) choice = EndB;
            } else if (freeA && !freeB) {
                if (!(midValid && d1 <= d0)) choice = EndA;
            } else if (freeA && freeB) {
                endsOnly = true;
            }
        }
        if (choice == None && !endsOnly && midValid) choice = Mid;
        if (choice == None) choice = d1 < d0 ? EndB : EndA;
    } else {
        const double dA = SquaredDistanceToLine(m_centreLine, a2);
        const double dB = SquaredDistanceToLine(m_centreLine, b2);
        const double dM = midValid ? SquaredDistanceToLine(m_centreLine, mid) : 0.0;
        if (snapEnds && (freeA || freeB)) {
            Choice end;
            double dEnd;
            if (freeA && freeB) {
                end = dB <= dA ? EndB : EndA;
                dEnd = dB <= dA ? dB : dA;
            } else {
                end = freeA ? EndA : EndB;
                dEnd = freeA ? dA : dB;
            }
            choice = midValid && dM < dEnd ? Mid : end;
        }
        if (choice == None) choice = midValid ? Mid : Closest;
    }

    switch (choice) {
        case EndA:
            position = a2;
            if (freeA) context->result |= ZtLPickEnum::OnEnd0;
            break;
        case EndB:
            position = b2;
            if (freeB) context->result |= ZtLPickEnum::OnEnd1;
            break;
        case Mid:
            position = mid;
            context->result |= ZtLPickEnum::OnMidpoint;
            break;
        default:
            ClosestOnSegment(m_centreLine, a2, b2, &position);
            break;
    }
    if (options & ZtLPickEnum::WritePosition) context->position = position;
    if (options & ZtLPickEnum::WriteDistance) {
        context->distance = SignedDistance(m_planes[4], position);
    }
    return 1;
}

int ZtLPickFrustum3f::CanCull(const ZtLBox3f& box, int* mask) const noexcept {
    const ZtLPos3f& lo = box.GetMin();
    const ZtLPos3f& hi = box.GetMax();
    const int tested = *mask;
    int remaining = tested;
    for (int i = 0; i < m_numPlanes; ++i) {
        const int bit = 1 << i;
        if (!(tested & bit)) continue;
        const ZtLPlane3f& plane = m_planes[i];
        const ZtLUnitVec3f& n = plane.GetNormal();
        // The corner farthest along the normal: behind the plane, the whole box is.
        const ZtLPos3f farthest(n[0] > 0.0 ? hi[0] : lo[0], n[1] > 0.0 ? hi[1] : lo[1],
                                n[2] > 0.0 ? hi[2] : lo[2]);
        if (SignedDistance(plane, farthest) < 0.0) return 1;
        // The corner farthest against it: in front, the whole box is.
        const ZtLPos3f nearest(n[0] > 0.0 ? lo[0] : hi[0], n[1] > 0.0 ? lo[1] : hi[1],
                               n[2] > 0.0 ? lo[2] : hi[2]);
        if (SignedDistance(plane, nearest) > 0.0) remaining &= ~bit;
    }
    *mask = remaining;
    return 0;
}

double ZtLPickFrustum3f::MinDistance(const ZtLBox3f& box) const noexcept {
    const ZtLPos3f& lo = box.GetMin();
    const ZtLPos3f& hi = box.GetMax();
    const ZtLUnitVec3f& n = m_planes[4].GetNormal();
    return SignedDistance(m_planes[4],
                          ZtLPos3f(n[0] > 0.0 ? lo[0] : hi[0], n[1] > 0.0 ? lo[1] : hi[1],
                                   n[2] > 0.0 ? lo[2] : hi[2]));
}

double ZtLPickFrustum3f::MaxDistance(const ZtLBox3f& box) const noexcept {
    const ZtLPos3f& lo = box.GetMin();
    const ZtLPos3f& hi = box.GetMax();
    const ZtLUnitVec3f& n = m_planes[4].GetNormal();
    return SignedDistance(m_planes[4],
                          ZtLPos3f(n[0] > 0.0 ? hi[0] : lo[0], n[1] > 0.0 ? hi[1] : lo[1],
                                   n[2] > 0.0 ? hi[2] : lo[2]));
}

void ZtLPickFrustum3f::Translate(const ZtLVec3f& t) noexcept {
    for (int i = 0; i < m_numPlanes; ++i) m_planes[i].Translate(t);
    if (m_hasOrigin) m_origin += t;
    m_centreLine.Translate(t);
}

void ZtLPickFrustum3f::Rotate(const ZtLMatrix3f& m) noexcept {
    for (int i = 0; i < m_numPlanes; ++i) m_planes[i].Rotate(m);
    // The eye is mapped in column form, m * origin (origin . m transposed), unlike the planes and
    // the centre line; for a rotation that is the inverse turn. Transform maps it as a point.
    if (m_hasOrigin) m_origin = m * m_origin;
    m_centreLine.Rotate(m);
}

void ZtLPickFrustum3f::Scale(double s) noexcept {
    for (int i = 0; i < m_numPlanes; ++i) {
        m_planes[i].SetDistance(m_planes[i].GetDistance() * s);
    }
    if (m_hasOrigin) m_origin = ZtLPos3f(m_origin[0] * s, m_origin[1] * s, m_origin[2] * s);
    OrientPlanes();
    const ZtLPos3f& p = m_centreLine.GetPoint();
    const ZtLPos3f scaled(p[0] * s, p[1] * s, p[2] * s);
    const ZtLUnitVec3f dir = m_centreLine.GetDirection();
    m_centreLine.SetNormalizedValue(scaled - dir.Multiply(dir.Dot(scaled.Vec())), dir);
}

void ZtLPickFrustum3f::Transform(const ZtLMatrix3f& m) noexcept {
    const ZtLMatrix3f inverse = m.Inverse();
    for (int i = 0; i < m_numPlanes; ++i) m_planes[i].InverseTransform(inverse);
    if (m_hasOrigin) m_origin = m_origin * m;
    OrientPlanes();
    m_centreLine.Transform(m);
}

void ZtLPickFrustum3f::Transform(const ZtLAffine3f& a) noexcept {
    const ZtLAffine3f inverse = a.Inverse();
    for (int i = 0; i < m_numPlanes; ++i) m_planes[i].InverseTransform(inverse);
    if (m_hasOrigin) m_origin = m_origin * a;
    OrientPlanes();
    m_centreLine.Transform(a);
}

void ZtLPickFrustum3f::Transform(const ZtLMatrix4f& m) noexcept {
    const ZtLMatrix4f inverse = m.Inverse();
    for (int i = 0; i < m_numPlanes; ++i) m_planes[i].InverseTransform(inverse);
    if (m_hasOrigin) m_origin = m_origin * m;
    OrientPlanes();
    m_centreLine.Transform(m);
}

void ZtLPickFrustum3f::Transform(const ZtLTransform3f& t) noexcept { Transform(t, t.Inverse()); }

void ZtLPickFrustum3f::Transform(const ZtLTransform3f& t, const ZtLTransform3f& inverse) noexcept {
    for (int i = 0; i < m_numPlanes; ++i) m_planes[i].InverseTransform(inverse);
    if (m_hasOrigin) m_origin = m_origin * t;
    OrientPlanes();
    m_centreLine.Transform(t);
}

ZtLPickFrustum3f ZtLPickFrustum3f::TranslatedBy(const ZtLVec3f& t) noexcept {
    ZtLPickFrustum3f f(*this);
    f.Translate(t);
    return f;
}

ZtLPickFrustum3f ZtLPickFrustum3f::RotatedBy(const ZtLMatrix3f& m) noexcept {
    ZtLPickFrustum3f f(*this);
    f.Rotate(m);
    return f;
}

ZtLPickFrustum3f ZtLPickFrustum3f::ScaledBy(double s) noexcept {
    ZtLPickFrustum3f f(*this);
    f.Scale(s);
    return f;
}

ZtLPickFrustum3f ZtLPickFrustum3f::TransformedBy(const ZtLMatrix3f& m) noexcept {
    ZtLPickFrustum3f f(*this);
    f.Transform(m);
    return f;
}

ZtLPickFrustum3f ZtLPickFrustum3f::TransformedBy(const ZtLAffine3f& a) noexcept {
    ZtLPickFrustum3f f(*this);
    f.Transform(a);
    return f;
}

ZtLPickFrustum3f ZtLPickFrustum3f::TransformedBy(const ZtLMatrix4f& m) noexcept {
    ZtLPickFrustum3f f(*this);
    f.Transform(m);
    return f;
}

ZtLPickFrustum3f ZtLPickFrustum3f::TransformedBy(const ZtLTransform3f& t) noexcept {
    ZtLPickFrustum3f f(*this);
    f.Transform(t);
    return f;
}
