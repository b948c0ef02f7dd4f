#ifndef ZTLINEAR_ZTLPICK_H
#define ZTLINEAR_ZTLPICK_H

#include <ztlinear/ZtLExport.h>

class ZtUComponent;

// The picking component of the library.
//
// The host calls Initialise before use and Terminate as often afterwards; the first Initialise
// and the last Terminate start and stop the error system of ztutil.
class ZTL_EXPORT ZtLPick {
public:
    static void Initialise();
    static void Terminate();
    // Non-zero while the component is initialised.
    static int IsInitialised();

    // The component record, for the classes that post errors through it.
    static ZtUComponent* GetComponent();

private:
    ZtLPick();
};

// The enumerations of picking: the option bits a caller puts into a pick query's options, and the
// result bits a query leaves in its result (ZtLPickFrustumContext3f). Never instantiated.
class ZtLPickEnum {
public:
    ZtLPickEnum() = delete;
    ZtLPickEnum(const ZtLPickEnum&) = delete;

    // Option bits.
    enum Option : int {
        // Triangles: snap to an edge (any of the three bits).
        SnapEdge0 = 0x01,
        SnapEdge1 = 0x02,
        SnapEdge2 = 0x04,
        SnapEdges = 0x07,
        // Triangles: snap to a vertex (any of the three bits).
        SnapVertex0 = 0x10,
        SnapVertex1 = 0x20,
        SnapVertex2 = 0x40,
        SnapVertices = 0x70,
        // Write the picked position / its distance from the near plane into the context.
        WritePosition = 0x100,
        WriteDistance = 0x200,
        // Apply the context's nearLimit (see each query).
        UseNearLimit = 0x1000,
        // Nearest means nearest to the centre line instead of nearest to the near plane.
        NearestToCentreLine = 0x2000,
        // Triangles, centre-line mode without a snap: the centre line must pass through the
        // triangle.
        CentreLineThrough = 0x4000,
        // Segments: snap to an end point (either bit, for both ends) / to the midpoint.
        SnapEnd0 = 0x10000,
        SnapEnd1 = 0x20000,
        SnapEnds = 0x30000,
        SnapMidpoint = 0x40000
    };

    // Result bits.
    enum Result : int {
        // Triangle: the picked point lies on edge 0 (vertex 0 to 1), 1 (1 to 2), 2 (2 to 0).
        OnEdge0 = 0x01,
        OnEdge1 = 0x02,
        OnEdge2 = 0x04,
        // Segment: set on every hit.
        OnSegment = 0x01,
        // Triangle: the picked point is vertex 0, 1, 2.
        OnVertex0 = 0x10,
        OnVertex1 = 0x20,
        OnVertex2 = 0x40,
        // The point or segment lies wholly inside every tested plane: nothing was clipped. A
        // triangle pick always runs the clipper and never sets it.
        WhollyInside = 0x80,
        // Segment: the picked point is the first end, the second end, the midpoint.
        OnEnd0 = 0x10000,
        OnEnd1 = 0x20000,
        OnMidpoint = 0x40000
    };
};

#endif
