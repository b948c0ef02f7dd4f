// The camera and the pick of ztpick.
#include "ZtPickPick.h"

#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLPick.h>
#include <ztlinear/ZtLPickFrustum3f.h>
#include <ztlinear/ZtLTransform3f.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

const double kPi = 3.14159265358979323846;

double Radians(double degrees) { return degrees * (kPi / 180.0); }

}  // namespace

bool ZtPickCamera::Setup(const ZtLBox3f& sceneBounds, std::string* error) {
    zAxis = eye - target;
    if (!(zAxis.Normalize() > 0.0) || !zAxis.IsFinite()) {
        *error = "camera: the eye and the target must be two different points";
        return false;
    }
    xAxis = up.Cross(zAxis);
    if (!(xAxis.Normalize() > 1e-9 * up.Length()) || !xAxis.IsFinite()) {
        *error = "camera: the up direction must not be parallel to the line of sight";
        return false;
    }
    yAxis = zAxis.Cross(xAxis);

    // Near and far planes that take in the whole scene, with a margin.
    ZtLPos3f corners[8];
    sceneBounds.GetCorners(corners);
    double nearest = 0.0;
    double farthest = 0.0;
    for (int i = 0; i < 8; ++i) {
        const double depth = -(corners[i] - eye).Dot(zAxis);
        nearest = i == 0 ? depth : std::min(nearest, depth);
        farthest = i == 0 ? depth : std::max(farthest, depth);
    }
    const double margin = 0.01 * (farthest - nearest) + 1e-3;
    farDist = farthest + margin;
    if (ortho) {
        nearDist = nearest - margin;
    } else {
        nearDist = std::max(nearest - margin, 1e-4 * farDist);
    }
    if (!(farDist > nearDist)) {
        // Nothing of the scene is in front of the camera: any thin volume does.
        nearDist = 0.1;
        farDist = 1.0;
    }
    return true;
}

double ZtPickCamera::GetOrthoHalfHeight() const {
    return (eye - target).Length() * std::tan(Radians(fovy) * 0.5);
}

ZtLFrustum3f ZtPickCamera::GetFrustum() const {
    const double aspect = static_cast<double>(width) / height;
    ZtLFrustum3f f;
    if (ortho) {
        const double h = GetOrthoHalfHeight();
        f.MakeOrtho(-h * aspect, h * aspect, -h, h, nearDist, farDist);
    } else {
        f.MakePerspective(Radians(fovy), aspect, nearDist, farDist);
    }
    // From eye space (looking along -z, y up) to the world: the rows are the camera's axes in
    // world space and the translation is the eye.
    const ZtLMatrix3f axes(xAxis[0], xAxis[1], xAxis[2], yAxis[0], yAxis[1], yAxis[2], zAxis[0],
                           zAxis[1], zAxis[2]);
    f.Transform(ZtLTransform3f(axes, eye.Vec()));
    return f;
}

bool ZtPickCamera::Project(const ZtLPos3f& p, double* x, double* y) const {
    const ZtLVec3f v = p - eye;
    const double depth = -v.Dot(zAxis);
    if (!(depth >= nearDist)) return false;
    const double aspect = static_cast<double>(width) / height;
    const double h = ortho ? GetOrthoHalfHeight() : depth * std::tan(Radians(fovy) * 0.5);
    const double sx = v.Dot(xAxis) / (h * aspect);
    const double sy = v.Dot(yAxis) / h;
    *x = (sx + 1.0) * 0.5 * width;
    *y = (1.0 - sy) * 0.5 * height;
    return true;
}

ZtPickCamera ZtPickFrameScene(const ZtLBox3f& sceneBounds, int width, int height, double fovy,
                              bool ortho) {
    ZtPickCamera camera;
    camera.width = width;
    camera.height = height;
    camera.fovy = fovy;
    camera.ortho = ortho;
    camera.target = sceneBounds.GetCenter();
    camera.up = ZtLVec3f(0.0, 1.0, 0.0);
    // Far enough back along a fixed direction for the bounding sphere to fit the narrower of
    // the two fields of view.
    const double radius = std::max(0.5 * sceneBounds.GetSize().Length(), 1e-3);
    const double aspect = static_cast<double>(width) / height;
    const double halfAngle = Radians(fovy) * 0.5;
    const double narrower = std::min(halfAngle, std::atan(std::tan(halfAngle) * aspect));
    ZtLVec3f direction(0.55, 0.62, 0.85);
    direction.Normalize();
    camera.eye = camera.target + direction * (radius / std::sin(narrower) * 0.7);
    return camera;
}

ZtPickResult ZtPickRun(const ZtPickScene& scene, const ZtPickCamera& camera,
                       const ZtPickSettings& settings) {
    const auto start = std::chrono::steady_clock::now();
    ZtPickResult r;
    r.visited.assign(scene.models.size(), 0);

    // The pick window in fractions of the viewport, measured from the bottom-left corner.
    const double half = settings.aperture * 0.5;
    const double w = camera.width;
    const double h = camera.height;
    const double fromBottom = h - settings.y;
    r.window = camera.GetFrustum().NarrowedBy((settings.x - half) / w, (settings.x + half) / w,
                                              (fromBottom - half) / h, (fromBottom + half) / h);
    const ZtLPickFrustum3f world(r.window);
    const ZtLPlane3f nearPlane = world.GetPlane(4);

    int options = ZtLPickEnum::WritePosition | ZtLPickEnum::WriteDistance;
    if (settings.snap == ZtPickSnap::Vertex) options |= ZtLPickEnum::SnapVertices;
    if (settings.snap == ZtPickSnap::Edge) options |= ZtLPickEnum::SnapEdges;
    if (settings.centreLine) options |= ZtLPickEnum::NearestToCentreLine;
    const int allPlanes = (1 << world.GetNumPlanes()) - 1;

    struct Entry {
        std::uint32_t node;
        int mask;
    };
    std::vector<Entry> stack;
    std::vector<Entry> meshStack;
    // CanCull on a node's box: true when the node is culled; narrows *mask otherwise.
    const auto culled = [&](const ZtLPickFrustum3f& volume, const ZtLBox3f& box, int* mask) {
        if (!settings.useCulling) return false;
        ++r.stats.boxesTested;
        if (volume.CanCull(box, mask)) {
            ++r.stats.boxesCulled;
            return true;
        }
        return false;
    };

    if (!scene.tree.IsEmpty()) stack.push_back(Entry{0, allPlanes});
    while (!stack.empty()) {
        const Entry e = stack.back();
        stack.pop_back();
        const ZtPickBoxNode& node = scene.tree.GetNode(e.node);
        int mask = e.mask;
        if (culled(world, node.box, &mask)) continue;
        if (node.count == 0) {
            // Right child pushed first, so the left one is walked first.
            stack.push_back(Entry{node.first + 1, mask});
            stack.push_back(Entry{node.first, mask});
            continue;
        }
        for (std::uint32_t k = 0; k < node.count; ++k) {
            const std::uint32_t m = scene.tree.GetItem(node.first + k);
            const ZtPickModel& model = scene.models[m];
            const ZtPickMesh& mesh = scene.meshes[model.mesh];
            int modelMask = mask;
            // A leaf with several models has only the box of all of them: test each model's.
            if (node.count > 1 && culled(world, model.bounds, &modelMask)) continue;
            r.visited[m] = 1;
            ++r.stats.modelsVisited;
            // The pick volume in model space (the model's inverse moves world into model
            // space; its own inverse, the model transform, is at hand).
            ZtLPickFrustum3f local(world);
            if (model.transform.GetTraits() != 0) local.Transform(model.inverse, model.transform);

            if (mesh.tree.IsEmpty()) continue;
            meshStack.push_back(Entry{0, modelMask});
            while (!meshStack.empty()) {
                const Entry me = meshStack.back();
                meshStack.pop_back();
                const ZtPickBoxNode& mn = mesh.tree.GetNode(me.node);
                int meshMask = me.mask;
                if (culled(local, mn.box, &meshMask)) continue;
                if (mn.count == 0) {
                    meshStack.push_back(Entry{mn.first + 1, meshMask});
                    meshStack.push_back(Entry{mn.first, meshMask});
                    continue;
                }
                for (std::uint32_t i = 0; i < mn.count; ++i) {
                    const std::uint32_t t = mesh.tree.GetItem(mn.first + i);
                    const std::uint32_t* v = &mesh.indices[3 * t];
                    ZtLPickFrustumContext3f context(settings.cullBackFaces ? 1 : 0, meshMask,
                                                    options);
                    ++r.stats.trianglesTested;
                    if (!local.FindNearest(&context, mesh.positions[v[0]], mesh.positions[v[1]],
                                           mesh.positions[v[2]])) {
                        continue;
                    }
                    // Hits of different models compare by their distance in world space.
                    const ZtLPos3f p = context.position * model.transform;
                    const ZtLUnitVec3f& n = nearPlane.GetNormal();
                    const double d =
                        p[0] * n[0] + p[1] * n[1] + p[2] * n[2] - nearPlane.GetDistance();
                    if (!r.hit.hit || d < r.hit.distance) {
                        r.hit.hit = true;
                        r.hit.model = m;
                        r.hit.triangle = t;
                        r.hit.position = p;
                        r.hit.distance = d;
                        r.hit.result = context.result;
                    }
                }
            }
        }
    }
    r.stats.seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return r;
}

std::string ZtPickFeatureName(int result) {
    static const char* const vertexNames[] = {"vertex 0", "vertex 1", "vertex 2"};
    static const char* const edgeNames[] = {"edge 0", "edge 1", "edge 2"};
    for (int i = 0; i < 3; ++i) {
        if (result & (ZtLPickEnum::OnVertex0 << i)) return vertexNames[i];
    }
    for (int i = 0; i < 3; ++i) {
        if (result & (ZtLPickEnum::OnEdge0 << i)) return edgeNames[i];
    }
    return "face";
}
