#ifndef ZTPICK_ZTPICKPICK_H
#define ZTPICK_ZTPICKPICK_H

// The camera and the pick of ztpick.
//
// The camera looks from eye at target with up pointing up the screen, perspective (vertical
// field of view fovy) or orthographic (showing at the target's distance what the perspective
// camera shows there). Pixels count from the top-left corner of the viewport, x to the right and
// y down; pixel (i, j) covers i..i+1, j..j+1, so its centre is (i + 0.5, j + 0.5).
//
// The pick, as an interactive program does it on a mouse click:
// 1. the camera's ZtLFrustum3f in world space, narrowed (Narrow) to the pick window, a square of
//    aperture pixels centred on the pick position;
// 2. a ZtLPickFrustum3f of that;
// 3. down the scene's box tree with CanCull, the plane mask reduced on the way down;
// 4. per model, the pick volume moved into model space with the inverse of the model's
//    transform, and down the mesh's box tree with CanCull;
// 5. FindNearest on each remaining triangle; the nearest hit (smallest distance from the near
//    plane, measured in world space) wins, the first one found on a tie.

#include "ZtPickScene.h"

#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLVec3f.h>

#include <cstdint>
#include <string>
#include <vector>

struct ZtPickCamera {
    ZtLPos3f eye;
    ZtLPos3f target;
    ZtLVec3f up;
    // Degrees.
    double fovy = 45.0;
    bool ortho = false;
    int width = 800;
    int height = 600;
    double nearDist = 0.1;
    double farDist = 1000.0;

    // The camera's axes in world space: right, up the screen, and back (towards the viewer).
    // Set by Setup.
    ZtLVec3f xAxis;
    ZtLVec3f yAxis;
    ZtLVec3f zAxis;

    // Checks the camera and works out its axes and, from the scene bounds, the near and far
    // distances that take in the whole scene. False (with *error set) when eye and target
    // coincide or up is parallel to the line of sight.
    bool Setup(const ZtLBox3f& sceneBounds, std::string* error);
    // The half height of the orthographic view volume.
    double GetOrthoHalfHeight() const;
    // The view volume in world space.
    ZtLFrustum3f GetFrustum() const;
    // The pixel position of p. False when p is not in front of the near plane.
    bool Project(const ZtLPos3f& p, double* x, double* y) const;
};

// The camera looking at the scene bounds from above and aside, with the whole scene in view.
ZtPickCamera ZtPickFrameScene(const ZtLBox3f& sceneBounds, int width, int height, double fovy,
                              bool ortho);

enum class ZtPickSnap { None, Vertex, Edge };

struct ZtPickSettings {
    // The pick position in pixels.
    double x = 400.0;
    double y = 300.0;
    // The side of the pick window in pixels.
    double aperture = 5.0;
    ZtPickSnap snap = ZtPickSnap::None;
    // Each triangle's point nearest the centre line of the pick window instead of nearest the
    // near plane.
    bool centreLine = false;
    bool cullBackFaces = false;
    // Cull with the box trees (CanCull). Off: every triangle of every model is tested.
    bool useCulling = true;
};

struct ZtPickHit {
    bool hit = false;
    std::uint32_t model = 0;
    std::uint32_t triangle = 0;
    // World space.
    ZtLPos3f position;
    // Signed distance from the pick volume's near plane, in world units.
    double distance = 0.0;
    // The result bits of FindNearest (ZtLPickEnum::Result): the snapped feature.
    int result = 0;
};

struct ZtPickStats {
    std::uint64_t boxesTested = 0;
    std::uint64_t boxesCulled = 0;
    std::uint64_t modelsVisited = 0;
    std::uint64_t trianglesTested = 0;
    double seconds = 0.0;
};

struct ZtPickResult {
    ZtPickHit hit;
    ZtPickStats stats;
    // The narrowed view volume of the pick window, in world space.
    ZtLFrustum3f window;
    // Per model: 1 when its triangles were reached (its box was not culled).
    std::vector<char> visited;
};

// The pick of the given pixel on the scene (see the top of this file).
ZtPickResult ZtPickRun(const ZtPickScene& scene, const ZtPickCamera& camera,
                       const ZtPickSettings& settings);

// Names the snapped feature of a triangle hit's result bits: "vertex 0", "edge 1", "face".
std::string ZtPickFeatureName(int result);

#endif
