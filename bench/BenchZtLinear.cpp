// Benchmarks of this library's operations on the shared data.
#include "BenchCommon.h"
#include "BenchData.h"

#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLPickFrustum3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLVec3f.h>

#include <cstdint>
#include <vector>

namespace {

using namespace bench;

ZtLMatrix4f ToMatrix4(const Mat4& a) { return ZtLMatrix4f(&a.m[0][0]); }
ZtLMatrix3f ToMatrix3(const Mat3& a) { return ZtLMatrix3f(&a.m[0][0]); }
ZtLRotation3f ToRotation(const Quat& q) { return ZtLRotation3f(q.x, q.y, q.z, q.w); }
ZtLVec3f ToVec(const Vec3& v) { return ZtLVec3f(v.x, v.y, v.z); }
ZtLAffine3f ToAffine(const Mat4& a) { return ZtLAffine3f(ToMatrix4(a)); }

template <class T, class In, class F>
std::vector<T> Convert(const std::vector<In>& in, F f) {
    std::vector<T> out;
    out.reserve(in.size());
    for (const In& x : in) out.push_back(f(x));
    return out;
}

const std::vector<ZtLMatrix4f>& General4() {
    static const auto v = Convert<ZtLMatrix4f>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    return v;
}
const std::vector<ZtLMatrix4f>& Affine4() {
    static const auto v = Convert<ZtLMatrix4f>(AffineMatrices4(SeedMat4Affine), ToMatrix4);
    return v;
}
const std::vector<ZtLMatrix4f>& Affine4B() {
    static const auto v = Convert<ZtLMatrix4f>(AffineMatrices4(SeedMat4B), ToMatrix4);
    return v;
}
const std::vector<ZtLAffine3f>& Affines() {
    static const auto v = Convert<ZtLAffine3f>(AffineMatrices4(SeedMat4Affine), ToAffine);
    return v;
}
const std::vector<ZtLMatrix3f>& Mat3A() {
    static const auto v = Convert<ZtLMatrix3f>(Matrices3(SeedMat3A), ToMatrix3);
    return v;
}
const std::vector<ZtLMatrix3f>& Mat3B() {
    static const auto v = Convert<ZtLMatrix3f>(Matrices3(SeedMat3B), ToMatrix3);
    return v;
}
const std::vector<ZtLRotation3f>& QuatA() {
    static const auto v = Convert<ZtLRotation3f>(Quats(SeedQuatA), ToRotation);
    return v;
}
const std::vector<ZtLRotation3f>& QuatB() {
    static const auto v = Convert<ZtLRotation3f>(Quats(SeedQuatB), ToRotation);
    return v;
}
const std::vector<ZtLPos3f>& Positions() {
    static const auto v = Convert<ZtLPos3f>(Points(SeedPoints),
                                            [](const Vec3& p) { return ZtLPos3f(p.x, p.y, p.z); });
    return v;
}

void Inverse4General(benchmark::State& state) {
    const auto& in = General4();
    std::vector<ZtLMatrix4f> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return in[i].Inverse(); });
}
ZT_BENCH(Inverse4General, "Inverse4General/ztlinear-Matrix4f");

void Inverse4AffineMatrix(benchmark::State& state) {
    const auto& in = Affine4();
    std::vector<ZtLMatrix4f> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return in[i].Inverse(); });
}
ZT_BENCH(Inverse4AffineMatrix, "Inverse4Affine/ztlinear-Matrix4f");

void Inverse4AffineMap(benchmark::State& state) {
    const auto& in = Affines();
    std::vector<ZtLAffine3f> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return in[i].Inverse(); });
}
ZT_BENCH(Inverse4AffineMap, "Inverse4Affine/ztlinear-Affine3f");

void Inverse3(benchmark::State& state) {
    const auto& in = Mat3A();
    std::vector<ZtLMatrix3f> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return in[i].Inverse(); });
}
ZT_BENCH(Inverse3, "Inverse3/ztlinear-Matrix3f");

void Product4(benchmark::State& state) {
    const auto& a = General4();
    const auto& b = Affine4B();
    std::vector<ZtLMatrix4f> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return a[i] * b[i]; });
}
ZT_BENCH(Product4, "Product4/ztlinear-Matrix4f");

void Product3(benchmark::State& state) {
    const auto& a = Mat3A();
    const auto& b = Mat3B();
    std::vector<ZtLMatrix3f> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return a[i] * b[i]; });
}
ZT_BENCH(Product3, "Product3/ztlinear-Matrix3f");

void PointProjective(benchmark::State& state) {
    const auto& m = General4();
    const auto& p = Positions();
    std::vector<ZtLPos3f> out(p.size());
    RunArray(state, out, [&](std::size_t i) { return p[i] * m[i]; });
}
ZT_BENCH(PointProjective, "PointProjective/ztlinear-Matrix4f");

void PointAffine(benchmark::State& state) {
    const auto& a = Affines();
    const auto& p = Positions();
    std::vector<ZtLPos3f> out(p.size());
    RunArray(state, out, [&](std::size_t i) { return p[i] * a[i]; });
}
ZT_BENCH(PointAffine, "PointAffine/ztlinear-Affine3f");

void PointTransform(benchmark::State& state) {
    static const auto x =
        Convert<ZtLTransform3f>(Affines(), [](const ZtLAffine3f& a) { return ZtLTransform3f(a); });
    const auto& p = Positions();
    std::vector<ZtLPos3f> out(p.size());
    RunArray(state, out, [&](std::size_t i) { return p[i] * x[i]; });
}
ZT_BENCH(PointTransform, "PointTransform/ztlinear-Transform3f");

void QuatProduct(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    std::vector<ZtLRotation3f> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return a[i] * b[i]; });
}
ZT_BENCH(QuatProduct, "QuatProduct/ztlinear-Rotation3f");

void QuatToMatrix(benchmark::State& state) {
    const auto& a = QuatA();
    std::vector<ZtLMatrix3f> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return ZtLMatrix3f(a[i]); });
}
ZT_BENCH(QuatToMatrix, "QuatToMatrix/ztlinear-Rotation3f");

void Slerp(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    static const std::vector<double> t = Parameters(SeedParam);
    std::vector<ZtLRotation3f> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return a[i].Slerp(b[i], t[i]); });
}
ZT_BENCH(Slerp, "Slerp/ztlinear-Rotation3f");

const std::vector<ZtLBox3f>& BoxArray() {
    static const auto v = Convert<ZtLBox3f>(Boxes(SeedBoxes), [](const Box& b) {
        return ZtLBox3f(ZtLPos3f(b.min.x, b.min.y, b.min.z), ZtLPos3f(b.max.x, b.max.y, b.max.z));
    });
    return v;
}

void BoxTransformAffine(benchmark::State& state) {
    const auto& a = Affines();
    const auto& boxes = BoxArray();
    std::vector<ZtLBox3f> out(boxes.size());
    RunArray(state, out, [&](std::size_t i) { return boxes[i].TransformedBy(a[i]); });
}
ZT_BENCH(BoxTransformAffine, "BoxTransform/ztlinear-Affine3f");

void BoxTransformTransform(benchmark::State& state) {
    static const auto x =
        Convert<ZtLTransform3f>(Affines(), [](const ZtLAffine3f& a) { return ZtLTransform3f(a); });
    const auto& boxes = BoxArray();
    std::vector<ZtLBox3f> out(boxes.size());
    RunArray(state, out, [&](std::size_t i) { return boxes[i].TransformedBy(x[i]); });
}
ZT_BENCH(BoxTransformTransform, "BoxTransform/ztlinear-Transform3f");

ZtLTransform3f LocalTransform(const SceneNode& n) {
    ZtLTransform3f x;
    switch (n.kind) {
        case SceneNode::Identity:
            break;
        case SceneNode::Translation:
            x.MakeTranslation(ToVec(n.translation));
            break;
        case SceneNode::RotationTranslation:
            x.SetValue(ToRotation(n.rotation), ToVec(n.translation));
            break;
        case SceneNode::GeneralAffine:
            x.MakeAffine(ToMatrix3(n.linear), ToVec(n.translation));
            break;
        case SceneNode::ScaledRotation:
            x.MakeUniformScale(n.scale);
            x.RotateRight(ToRotation(n.rotation));
            x.TranslateRight(ToVec(n.translation));
            break;
    }
    return x;
}

// World transforms of every node, root to leaves: a node's local transform, then its parent's
// world transform. Computed as the product local * parent ...
void SceneChains(benchmark::State& state) {
    static const std::vector<SceneNode> scene = Scene(SeedScene);
    static const auto local = Convert<ZtLTransform3f>(scene, LocalTransform);
    std::vector<ZtLTransform3f> world(scene.size());
    RunArray(state, world, [&](std::size_t i) {
        const int p = scene[i].parent;
        return p < 0 ? local[i] : local[i] * world[p];
    });
}
ZT_BENCH(SceneChains, "SceneChains/ztlinear-Transform3f");

// ... or in place: the parent's world transform with the local one put before it.
void SceneChainsLeft(benchmark::State& state) {
    static const std::vector<SceneNode> scene = Scene(SeedScene);
    static const auto local = Convert<ZtLTransform3f>(scene, LocalTransform);
    std::vector<ZtLTransform3f> world(scene.size());
    RunArray(state, world, [&](std::size_t i) {
        const int p = scene[i].parent;
        if (p < 0) return local[i];
        ZtLTransform3f w(world[p]);
        w.MultLeft(local[i]);
        return w;
    });
}
ZT_BENCH(SceneChainsLeft, "SceneChains/ztlinear-Transform3f-MultLeft");

ZtLBox3f ToBox(const Box& b) {
    return ZtLBox3f(ZtLPos3f(b.min.x, b.min.y, b.min.z), ZtLPos3f(b.max.x, b.max.y, b.max.z));
}

// The view volume of BenchData.h; a box is culled when it lies wholly outside one of the six
// planes. Every box starts from the full plane mask.
void CanCull(benchmark::State& state) {
    static const auto boxes = Convert<ZtLBox3f>(CullBoxes(SeedCull), ToBox);
    const ZtLPickFrustum3f volume(ZtLFrustum3f(kFovY, kAspect, kNear, kFar));
    std::vector<int> out(boxes.size());
    RunArray(state, out, [&](std::size_t i) {
        int mask = 0x3f;
        return volume.CanCull(boxes[i], &mask);
    });
}
ZT_BENCH(CanCull, "CanCull/ztlinear-PickFrustum3f");

struct Tri {
    ZtLPos3f a, b, c;
};

// The nearest triangle of a million-triangle soup under a narrow pick volume (a 0.01 radian cone
// down the view axis), asking for the picked position and its distance: one pass over the soup
// per iteration; items are triangles.
void FindNearest(benchmark::State& state) {
    static const auto soup = Convert<Tri>(Soup(SeedSoup), [](const Triangle& t) {
        return Tri{ZtLPos3f(t.a.x, t.a.y, t.a.z), ZtLPos3f(t.b.x, t.b.y, t.b.z),
                   ZtLPos3f(t.c.x, t.c.y, t.c.z)};
    });
    const ZtLPickFrustum3f volume(ZtLFrustum3f(0.01, 1.0, kNear, kFar));
    const int options = ZtLPickEnum::WritePosition | ZtLPickEnum::WriteDistance;
    std::int64_t hits = 0;
    for (auto _ : state) {
        ZtLPickFrustumContext3f context(0, 0x3f, options);
        double nearest = kFar;
        std::size_t found = soup.size();
        for (std::size_t i = 0; i < soup.size(); ++i) {
            if (!volume.FindNearest(&context, soup[i].a, soup[i].b, soup[i].c)) continue;
            ++hits;
            if (context.distance < nearest) {
                nearest = context.distance;
                found = i;
            }
        }
        benchmark::DoNotOptimize(found);
        benchmark::DoNotOptimize(nearest);
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(soup.size()));
    state.counters["hits"] =
        benchmark::Counter(static_cast<double>(hits), benchmark::Counter::kAvgIterations);
}
ZT_BENCH(FindNearest, "FindNearest/ztlinear-PickFrustum3f");

}  // namespace
