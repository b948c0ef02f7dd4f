// Benchmarks of GLM on the shared data. GLM multiplies column vectors on the right and stores
// matrices column by column, so this library's row-major arrays load as the transposes and
// products are taken in the reverse order: every operation maps the same points as this
// library's.
#include "BenchCommon.h"
#include "BenchData.h"

#include <glm/glm.hpp>
#include <glm/gtc/matrix_inverse.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtc/type_ptr.hpp>

#include <vector>

namespace {

using namespace bench;

glm::dmat4 ToMatrix4(const Mat4& a) { return glm::make_mat4(&a.m[0][0]); }
glm::dmat3 ToMatrix3(const Mat3& a) { return glm::make_mat3(&a.m[0][0]); }
// The affine map as four columns of three rows: the point (x, y, z, 1) times it.
glm::dmat4x3 ToAffine(const Mat4& a) { return glm::dmat4x3(ToMatrix4(a)); }
glm::dquat ToQuat(const Quat& q) { return glm::dquat(q.w, q.x, q.y, q.z); }

template <class T, class In, class F>
std::vector<T> Convert(const std::vector<In>& in, F f) {
    std::vector<T> out;
    out.reserve(in.size());
    for (const In& x : in) out.push_back(f(x));
    return out;
}

void Inverse4General(benchmark::State& state) {
    static const auto in = Convert<glm::dmat4>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    std::vector<glm::dmat4> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return glm::inverse(in[i]); });
}
ZT_BENCH(Inverse4General, "Inverse4General/glm-dmat4");

void Inverse4Affine(benchmark::State& state) {
    static const auto in = Convert<glm::dmat4>(AffineMatrices4(SeedMat4Affine), ToMatrix4);
    std::vector<glm::dmat4> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return glm::affineInverse(in[i]); });
}
ZT_BENCH(Inverse4Affine, "Inverse4Affine/glm-dmat4");

void Inverse3(benchmark::State& state) {
    static const auto in = Convert<glm::dmat3>(Matrices3(SeedMat3A), ToMatrix3);
    std::vector<glm::dmat3> out(in.size());
    RunArray(state, out, [&](std::size_t i) { return glm::inverse(in[i]); });
}
ZT_BENCH(Inverse3, "Inverse3/glm-dmat3");

void Product4(benchmark::State& state) {
    static const auto a = Convert<glm::dmat4>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    static const auto b = Convert<glm::dmat4>(AffineMatrices4(SeedMat4B), ToMatrix4);
    std::vector<glm::dmat4> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return b[i] * a[i]; });
}
ZT_BENCH(Product4, "Product4/glm-dmat4");

void Product3(benchmark::State& state) {
    static const auto a = Convert<glm::dmat3>(Matrices3(SeedMat3A), ToMatrix3);
    static const auto b = Convert<glm::dmat3>(Matrices3(SeedMat3B), ToMatrix3);
    std::vector<glm::dmat3> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return b[i] * a[i]; });
}
ZT_BENCH(Product3, "Product3/glm-dmat3");

const std::vector<glm::dvec3>& Positions() {
    static const auto v = Convert<glm::dvec3>(
        Points(SeedPoints), [](const Vec3& p) { return glm::dvec3(p.x, p.y, p.z); });
    return v;
}

void PointProjective(benchmark::State& state) {
    static const auto m = Convert<glm::dmat4>(GeneralMatrices4(SeedMat4General), ToMatrix4);
    const auto& p = Positions();
    std::vector<glm::dvec3> out(p.size());
    RunArray(state, out, [&](std::size_t i) {
        const glm::dvec4 h = m[i] * glm::dvec4(p[i], 1.0);
        return glm::dvec3(h) / h.w;
    });
}
ZT_BENCH(PointProjective, "PointProjective/glm-dmat4");

void PointAffine(benchmark::State& state) {
    static const auto a = Convert<glm::dmat4x3>(AffineMatrices4(SeedMat4Affine), ToAffine);
    const auto& p = Positions();
    std::vector<glm::dvec3> out(p.size());
    RunArray(state, out, [&](std::size_t i) { return a[i] * glm::dvec4(p[i], 1.0); });
}
ZT_BENCH(PointAffine, "PointAffine/glm-dmat4x3");

const std::vector<glm::dquat>& QuatA() {
    static const auto v = Convert<glm::dquat>(Quats(SeedQuatA), ToQuat);
    return v;
}
const std::vector<glm::dquat>& QuatB() {
    static const auto v = Convert<glm::dquat>(Quats(SeedQuatB), ToQuat);
    return v;
}

void QuatProduct(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    std::vector<glm::dquat> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return b[i] * a[i]; });
}
ZT_BENCH(QuatProduct, "QuatProduct/glm-dquat");

void QuatProductNormalized(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    std::vector<glm::dquat> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return glm::normalize(b[i] * a[i]); });
}
ZT_BENCH(QuatProductNormalized, "QuatProductNormalized/glm-dquat");

void QuatToMatrix(benchmark::State& state) {
    const auto& a = QuatA();
    std::vector<glm::dmat3> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return glm::mat3_cast(a[i]); });
}
ZT_BENCH(QuatToMatrix, "QuatToMatrix/glm-dquat");

void Slerp(benchmark::State& state) {
    const auto& a = QuatA();
    const auto& b = QuatB();
    static const std::vector<double> t = Parameters(SeedParam);
    std::vector<glm::dquat> out(a.size());
    RunArray(state, out, [&](std::size_t i) { return glm::slerp(a[i], b[i], t[i]); });
}
ZT_BENCH(Slerp, "Slerp/glm-dquat");

void SceneChains(benchmark::State& state) {
    static const std::vector<SceneNode> scene = Scene(SeedScene);
    static const auto local =
        Convert<glm::dmat4>(scene, [](const SceneNode& n) { return ToMatrix4(LocalMatrix(n)); });
    std::vector<glm::dmat4> world(scene.size());
    RunArray(state, world, [&](std::size_t i) {
        const int p = scene[i].parent;
        return p < 0 ? local[i] : world[p] * local[i];
    });
}
ZT_BENCH(SceneChains, "SceneChains/glm-dmat4");

}  // namespace
