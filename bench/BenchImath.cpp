// Benchmarks of Imath on the shared data. Imath multiplies row vectors on the left and stores
// matrices row by row, as this library does, so matrices load unchanged.
#include "BenchCommon.h"
#include "BenchData.h"

#include <Imath/ImathBox.h>
#include <Imath/ImathBoxAlgo.h>
#include <Imath/ImathFrustum.h>
#include <Imath/ImathFrustumTest.h>
#include <Imath/ImathMatrix.h>
#include <Imath/ImathQuat.h>
#include <Imath/ImathVec.h>

#include <cstring>
#include <vector>

namespace {

using namespace bench;

Imath::M44d ToMatrix4(const Mat4& a) { return Imath::M44d(a.m); }
Imath::M33d ToMatrix3(const Mat3& a) { return Imath::M33d(a.m); }
// Imath's product q1 * q2 is the Hamilton product; this library's q1 * q2 (q1 first) is q2 * q1.
Imath::Quatd ToQuat(const Quat& q) { return Imath::Quatd(q.w, q.x, q.y, q.z); }
Imath::Box3d ToBox(const Box& b) {
    return Imath::Box3d(Imath::V3d(b.min.x, b.min.y, b.min.z),
                        Imath::V3d(b.max.x, b.max.y, b.max.z));
}

template <class T, class In, class F>
std::vector<T> Convert(const std::vector<In>& in, F f) {
    std::vector<T> out;
    out.reserve(in.size());
    for (const In& x : in) out.push_back(f(x));
    return out;
}

void Inverse4General(benchmark::State& state) {
    static const auto in = Convert<Imath::M44d>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    std::vector<Imath::M44d> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return in[i].inverse(); });
}
ZT_BENCH(Inverse4General, "Inverse4General/imath-M44d");

void Inverse4Affine(benchmark::State& state) {
    static const auto in = Convert<Imath::M44d>(AffineMatrices4(SeedMat4Affine), ToMatrix4);
    std::vector<Imath::M44d> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return in[i].inverse(); });
}
ZT_BENCH(Inverse4Affine, "Inverse4Affine/imath-M44d");

void Inverse3(benchmark::State& state) {
    static const auto in = Convert<Imath::M33d>(Matrices3(SeedMat3A), ToMatrix3);
    std::vector<Imath::M33d> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return in[i].inverse(); });
}
ZT_BENCH(Inverse3, "Inverse3/imath-M33d");

void Product4(benchmark::State& state) {
    static const auto a = Convert<Imath::M44d>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    static const auto b = Convert<Imath::M44d>(AffineMatrices4(SeedMat4B), ToMatrix4);
    std::vector<Imath::M44d> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return a[i] * b[i]; });
}
ZT_BENCH(Product4, "Product4/imath-M44d");

void Product3(benchmark::State& state) {
    static const auto a = Convert<Imath::M33d>(Matrices3(SeedMat3A), ToMatrix3);
    static const auto b = Convert<Imath::M33d>(Matrices3(SeedMat3B), ToMatrix3);
    std::vector<Imath::M33d> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return a[i] * b[i]; });
}
ZT_BENCH(Product3, "Product3/imath-M33d");

const std::vector<Imath::V3d>& Positions() {
    static const auto v = Convert<Imath::V3d>(
        Points(SeedPoints), [](const Vec3& p) { return Imath::V3d(p.x, p.y, p.z); });
    return v;
}

void PointProjective(benchmark::State& state) {
    static const auto m = Convert<Imath::M44d>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    const auto& p = Positions();
    std::vector<Imath::V3d> out(p.size());
    RunArray(state, out, [&](std::size_t i) {
        Imath::V3d r;
        m[i].multVecMatrix(p[i], r);
        return r;
    });
}
ZT_BENCH(PointProjective, "PointProjective/imath-M44d");

// Imath has no affine map type: a point goes through an affine 4x4 matrix (with its divide).
void PointAffine(benchmark::State& state) {
    static const auto m = Convert<Imath::M44d>(AffineMatrices4(SeedMat4Affine), ToMatrix4);
    const auto& p = Positions();
    std::vector<Imath::V3d> out(p.size());
    RunArray(state, out, [&](std::size_t i) {
        Imath::V3d r;
        m[i].multVecMatrix(p[i], r);
        return r;
    });
}
ZT_BENCH(PointAffine, "PointAffine/imath-M44d");

const std::vector<Imath::Quatd>& QuatA() {
    static const auto v = Convert<Imath::Quatd>(Quats(SeedQuatA), ToQuat);
    return v;
}
const std::vector<Imath::Quatd>& QuatB() {
    static const auto v = Convert<Imath::Quatd>(Quats(SeedQuatB), ToQuat);
    return v;
}

void QuatProduct(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    std::vector<Imath::Quatd> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return b[i] * a[i]; });
}
ZT_BENCH(QuatProduct, "QuatProduct/imath-Quatd");

void QuatProductNormalized(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    std::vector<Imath::Quatd> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return (b[i] * a[i]).normalized(); });
}
ZT_BENCH(QuatProductNormalized, "QuatProductNormalized/imath-Quatd");

void QuatToMatrix(benchmark::State& state) {
    const auto& a = QuatA();
    std::vector<Imath::M33d> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return a[i].toMatrix33(); });
}
ZT_BENCH(QuatToMatrix, "QuatToMatrix/imath-Quatd");

void Slerp(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    static const std::vector<double> t = Parameters(SeedParam);
    std::vector<Imath::Quatd> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return Imath::slerpShortestArc(a[i], b[i], t[i]); });
}
ZT_BENCH(Slerp, "Slerp/imath-Quatd");

void BoxTransform(benchmark::State& state) {
    static const auto m = Convert<Imath::M44d>(AffineMatrices4(SeedMat4Affine), ToMatrix4);
    static const auto boxes = Convert<Imath::Box3d>(Boxes(SeedBoxes), ToBox);
    std::vector<Imath::Box3d> out(boxes.size());
    RunArray(state, out, [&](std::size_t i) { return Imath::transform(boxes[i], m[i]); });
}
ZT_BENCH(BoxTransform, "BoxTransform/imath-Box3d");

void SceneChains(benchmark::State& state) {
    static const std::vector<SceneNode> scene = Scene(SeedScene);
    static const auto local =
        Convert<Imath::M44d>(scene, [](const SceneNode& n) { return ToMatrix4(LocalMatrix(n)); });
    std::vector<Imath::M44d> world(scene.size());
    RunArray(state, world, [&](std::size_t i) {
        const int p = scene[i].parent;
        return p < 0 ? local[i] : local[i] * world[p];
    });
}
ZT_BENCH(SceneChains, "SceneChains/imath-M44d");

// The view volume of BenchData.h seen from a camera at the origin looking down -z.
void CanCull(benchmark::State& state) {
    static const auto boxes = Convert<Imath::Box3d>(CullBoxes(SeedCull), ToBox);
    const Imath::Frustumd frustum(kNear, kFar, 0.0, kFovY, kAspect);
    const Imath::FrustumTest<double> test(frustum, Imath::M44d());
    std::vector<int> out(boxes.size());
    RunArray(state, out, [&](std::size_t i) { return test.isVisible(boxes[i]) ? 0 : 1; });
}
ZT_BENCH(CanCull, "CanCull/imath-FrustumTest");

}  // namespace
