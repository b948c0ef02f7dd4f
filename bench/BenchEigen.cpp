// Benchmarks of Eigen on the shared data. Eigen multiplies column vectors on the right, so each
// matrix is loaded transposed and products are taken in the reverse order: every operation maps
// the same points as this library's.
#include "BenchCommon.h"
#include "BenchData.h"

#include <Eigen/Geometry>

#include <vector>

namespace {

using namespace bench;

Eigen::Matrix4d ToMatrix4(const Mat4& a) {
    return Eigen::Map<const Eigen::Matrix<double, 4, 4, Eigen::RowMajor>>(&a.m[0][0]).transpose();
}
Eigen::Matrix3d ToMatrix3(const Mat3& a) {
    return Eigen::Map<const Eigen::Matrix<double, 3, 3, Eigen::RowMajor>>(&a.m[0][0]).transpose();
}
Eigen::Affine3d ToAffine(const Mat4& a) { return Eigen::Affine3d(ToMatrix4(a)); }
// This library's q1 * q2 (q1 first) is Eigen's q2 * q1.
Eigen::Quaterniond ToQuat(const Quat& q) { return Eigen::Quaterniond(q.w, q.x, q.y, q.z); }

template <class T, class In, class F>
std::vector<T> Convert(const std::vector<In>& in, F f) {
    std::vector<T> out;
    out.reserve(in.size());
    for (const In& x : in) out.push_back(f(x));
    return out;
}

void Inverse4General(benchmark::State& state) {
    static const auto in = Convert<Eigen::Matrix4d>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    std::vector<Eigen::Matrix4d> out(in.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Matrix4d { return in[i].inverse(); });
}
ZT_BENCH(Inverse4General, "Inverse4General/eigen-Matrix4d");

void Inverse4AffineMatrix(benchmark::State& state) {
    static const auto in = Convert<Eigen::Matrix4d>(AffineMatrices4(SeedMat4Affine), ToMatrix4);
    std::vector<Eigen::Matrix4d> out(in.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Matrix4d { return in[i].inverse(); });
}
ZT_BENCH(Inverse4AffineMatrix, "Inverse4Affine/eigen-Matrix4d");

void Inverse4AffineMap(benchmark::State& state) {
    static const auto in = Convert<Eigen::Affine3d>(AffineMatrices4(SeedMat4Affine), ToAffine);
    std::vector<Eigen::Affine3d> out(in.size());
    RunArray(state, out,
             [&](std::size_t i) -> Eigen::Affine3d { return in[i].inverse(Eigen::Affine); });
}
ZT_BENCH(Inverse4AffineMap, "Inverse4Affine/eigen-Affine3d");

void Inverse3(benchmark::State& state) {
    static const auto in = Convert<Eigen::Matrix3d>(Matrices3(SeedMat3A), ToMatrix3);
    std::vector<Eigen::Matrix3d> out(in.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Matrix3d { return in[i].inverse(); });
}
ZT_BENCH(Inverse3, "Inverse3/eigen-Matrix3d");

void Product4(benchmark::State& state) {
    static const auto a = Convert<Eigen::Matrix4d>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    static const auto b = Convert<Eigen::Matrix4d>(AffineMatrices4(SeedMat4B), ToMatrix4);
    std::vector<Eigen::Matrix4d> out(a.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Matrix4d { return b[i] * a[i]; });
}
ZT_BENCH(Product4, "Product4/eigen-Matrix4d");

void Product3(benchmark::State& state) {
    static const auto a = Convert<Eigen::Matrix3d>(Matrices3(SeedMat3A), ToMatrix3);
    static const auto b = Convert<Eigen::Matrix3d>(Matrices3(SeedMat3B), ToMatrix3);
    std::vector<Eigen::Matrix3d> out(a.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Matrix3d { return b[i] * a[i]; });
}
ZT_BENCH(Product3, "Product3/eigen-Matrix3d");

const std::vector<Eigen::Vector3d>& Positions() {
    static const auto v = Convert<Eigen::Vector3d>(
        Points(SeedPoints), [](const Vec3& p) { return Eigen::Vector3d(p.x, p.y, p.z); });
    return v;
}

void PointProjective(benchmark::State& state) {
    static const auto m = Convert<Eigen::Matrix4d>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    const auto& p = Positions();
    std::vector<Eigen::Vector3d> out(p.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Vector3d {
        return (m[i] * p[i].homogeneous()).hnormalized();
    });
}
ZT_BENCH(PointProjective, "PointProjective/eigen-Matrix4d");

void PointAffine(benchmark::State& state) {
    static const auto a = Convert<Eigen::Affine3d>(AffineMatrices4(SeedMat4Affine), ToAffine);
    const auto& p = Positions();
    std::vector<Eigen::Vector3d> out(p.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Vector3d { return a[i] * p[i]; });
}
ZT_BENCH(PointAffine, "PointAffine/eigen-Affine3d");

const std::vector<Eigen::Quaterniond>& QuatA() {
    static const auto v = Convert<Eigen::Quaterniond>(Quats(SeedQuatA), ToQuat);
    return v;
}
const std::vector<Eigen::Quaterniond>& QuatB() {
    static const auto v = Convert<Eigen::Quaterniond>(Quats(SeedQuatB), ToQuat);
    return v;
}

void QuatProduct(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    std::vector<Eigen::Quaterniond> out(a.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Quaterniond { return b[i] * a[i]; });
}
ZT_BENCH(QuatProduct, "QuatProduct/eigen-Quaterniond");

// The same product renormalised, as this library's product is.
void QuatProductNormalized(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    std::vector<Eigen::Quaterniond> out(a.size());
    RunArray(state, out,
             [&](std::size_t i) -> Eigen::Quaterniond { return (b[i] * a[i]).normalized(); });
}
ZT_BENCH(QuatProductNormalized, "QuatProductNormalized/eigen-Quaterniond");

void QuatToMatrix(benchmark::State& state) {
    const auto& a = QuatA();
    std::vector<Eigen::Matrix3d> out(a.size());
    RunArray(state, out, [&](std::size_t i) -> Eigen::Matrix3d { return a[i].toRotationMatrix(); });
}
ZT_BENCH(QuatToMatrix, "QuatToMatrix/eigen-Quaterniond");

void Slerp(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    static const std::vector<double> t = Parameters(SeedParam);
    std::vector<Eigen::Quaterniond> out(a.size());
    RunArray(state, out,
             [&](std::size_t i) -> Eigen::Quaterniond { return a[i].slerp(t[i], b[i]); });
}
ZT_BENCH(Slerp, "Slerp/eigen-Quaterniond");

void BoxTransform(benchmark::State& state) {
    static const auto a = Convert<Eigen::Affine3d>(AffineMatrices4(SeedMat4Affine), ToAffine);
    static const auto boxes = Convert<Eigen::AlignedBox3d>(Boxes(SeedBoxes), [](const Box& b) {
        return Eigen::AlignedBox3d(Eigen::Vector3d(b.min.x, b.min.y, b.min.z),
                                   Eigen::Vector3d(b.max.x, b.max.y, b.max.z));
    });
    std::vector<Eigen::AlignedBox3d> out(boxes.size());
    RunArray(state, out,
             [&](std::size_t i) -> Eigen::AlignedBox3d { return boxes[i].transformed(a[i]); });
}
ZT_BENCH(BoxTransform, "BoxTransform/eigen-AlignedBox3d");

// World transforms root to leaves: the parent's world transform, then the node's local one
// (column vectors: parent * local).
template <class T>
void SceneChains(benchmark::State& state) {
    static const std::vector<SceneNode> scene = Scene(SeedScene);
    static const auto local =
        Convert<T>(scene, [](const SceneNode& n) { return T(ToMatrix4(LocalMatrix(n))); });
    std::vector<T> world(scene.size());
    RunArray(state, world, [&](std::size_t i) -> T {
        const int p = scene[i].parent;
        return p < 0 ? local[i] : T(world[p] * local[i]);
    });
}
ZT_BENCH(SceneChains<Eigen::Matrix4d>, "SceneChains/eigen-Matrix4d");
ZT_BENCH(SceneChains<Eigen::Affine3d>, "SceneChains/eigen-Affine3d");

}  // namespace
