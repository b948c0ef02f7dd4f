// Fixed-seed input data shared by the benchmarks of every library, so that each library is
// measured on the same numbers. Everything is plain doubles in this library's convention: row
// vectors on the left, matrices row by row, translation in the last row, quaternions (x, y, z, w).
// A peer with column vectors loads the transpose, which maps points the same way.
#ifndef ZTLINEAR_BENCH_BENCHDATA_H
#define ZTLINEAR_BENCH_BENCHDATA_H

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace bench {

// Elements per array: 1024 of the largest type (4x4 doubles) take 128 KB, beyond L1 and well
// beyond anything a compiler could fold.
constexpr std::size_t kCount = 1024;

struct Mat4 {
    double m[4][4];
};
struct Mat3 {
    double m[3][3];
};
struct Quat {
    double x, y, z, w;
};
struct Vec3 {
    double x, y, z;
};
struct Box {
    Vec3 min, max;
};
struct Triangle {
    Vec3 a, b, c;
};

// A 64-bit Mersenne twister with its own mapping to doubles, so the numbers do not depend on the
// standard library's distributions.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}
    // Uniform in [lo, hi).
    double Uniform(double lo, double hi) {
        const double u = static_cast<double>(m_engine() >> 11) * (1.0 / 9007199254740992.0);
        return lo + (hi - lo) * u;
    }
    Vec3 UniformVec(double lo, double hi) {
        const double x = Uniform(lo, hi), y = Uniform(lo, hi), z = Uniform(lo, hi);
        return Vec3{x, y, z};
    }
    // A unit quaternion, uniform over rotations enough for timing.
    Quat UnitQuat() {
        double x, y, z, w, n;
        do {
            x = Uniform(-1, 1), y = Uniform(-1, 1), z = Uniform(-1, 1), w = Uniform(-1, 1);
            n = x * x + y * y + z * z + w * w;
        } while (n < 0.01 || n > 1.0);
        n = std::sqrt(n);
        return Quat{x / n, y / n, z / n, w / n};
    }

private:
    std::mt19937_64 m_engine;
};

// The row-vector rotation matrix of a unit quaternion.
inline Mat3 RotationOf(const Quat& q) {
    const double x = q.x, y = q.y, z = q.z, w = q.w;
    return Mat3{{{1 - 2 * y * y - 2 * z * z, 2 * z * w + 2 * x * y, 2 * x * z - 2 * y * w},
                 {2 * x * y - 2 * z * w, 1 - 2 * z * z - 2 * x * x, 2 * x * w + 2 * y * z},
                 {2 * y * w + 2 * x * z, 2 * y * z - 2 * x * w, 1 - 2 * x * x - 2 * y * y}}};
}

inline Mat4 AffineOf(const Mat3& l, const Vec3& t) {
    Mat4 r{};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) r.m[i][j] = l.m[i][j];
    r.m[3][0] = t.x, r.m[3][1] = t.y, r.m[3][2] = t.z, r.m[3][3] = 1.0;
    return r;
}

// Well-conditioned general 3x3 matrices: entries in [-1, 1) plus 2 on the diagonal.
inline std::vector<Mat3> Matrices3(std::uint64_t seed) {
    Random r(seed);
    std::vector<Mat3> v(kCount);
    for (Mat3& a : v)
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j) a.m[i][j] = r.Uniform(-1, 1) + (i == j ? 2.0 : 0.0);
    return v;
}

// General 4x4 matrices with a non-trivial last column (projective), well conditioned.
inline std::vector<Mat4> GeneralMatrices4(std::uint64_t seed) {
    Random r(seed);
    std::vector<Mat4> v(kCount);
    for (Mat4& a : v)
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) a.m[i][j] = r.Uniform(-1, 1) + (i == j ? 2.0 : 0.0);
    return v;
}

// Affine 4x4 matrices: a rotation times a non-uniform scale in [0.5, 2), then a translation.
inline std::vector<Mat4> AffineMatrices4(std::uint64_t seed) {
    Random r(seed);
    std::vector<Mat4> v(kCount);
    for (Mat4& a : v) {
        Mat3 l = RotationOf(r.UnitQuat());
        for (int i = 0; i < 3; ++i) {
            const double s = r.Uniform(0.5, 2.0);
            for (int j = 0; j < 3; ++j) l.m[i][j] *= s;
        }
        a = AffineOf(l, r.UniformVec(-10, 10));
    }
    return v;
}

inline std::vector<Quat> Quats(std::uint64_t seed) {
    Random r(seed);
    std::vector<Quat> v(kCount);
    for (Quat& q : v) q = r.UnitQuat();
    return v;
}

// Interpolation parameters in [0, 1).
inline std::vector<double> Parameters(std::uint64_t seed) {
    Random r(seed);
    std::vector<double> v(kCount);
    for (double& t : v) t = r.Uniform(0, 1);
    return v;
}

inline std::vector<Vec3> Points(std::uint64_t seed) {
    Random r(seed);
    std::vector<Vec3> v(kCount);
    for (Vec3& p : v) p = r.UniformVec(-10, 10);
    return v;
}

// Boxes with corners in [-10, 10) and extents in [0.1, 4).
inline std::vector<Box> Boxes(std::uint64_t seed, double lo = -10.0, double hi = 10.0) {
    Random r(seed);
    std::vector<Box> v(kCount);
    for (Box& b : v) {
        const Vec3 c = r.UniformVec(lo, hi);
        const Vec3 e = r.UniformVec(0.1, 4.0);
        b = Box{c, Vec3{c.x + e.x, c.y + e.y, c.z + e.z}};
    }
    return v;
}

// A scene: nodes in breadth-first order, each with its parent's index (-1 for a root) and a local
// transform. Per node about half are identities, a quarter translations, the rest rotations with
// translation except for a few (5 %) general affine maps or uniformly scaled rotations with
// translation. Every root-to-leaf chain has depth 8 (nine nodes).
struct SceneNode {
    enum Kind { Identity, Translation, RotationTranslation, GeneralAffine, ScaledRotation };
    Kind kind;
    int parent;
    Quat rotation;  // RotationTranslation, ScaledRotation
    double scale;   // ScaledRotation
    Mat3 linear;    // GeneralAffine
    Vec3 translation;
};

constexpr int kSceneDepth = 8;

// A binary tree of depth 8: 511 nodes, 510 products per update.
inline std::vector<SceneNode> Scene(std::uint64_t seed) {
    Random r(seed);
    std::vector<SceneNode> nodes;
    const std::size_t total = (std::size_t(1) << (kSceneDepth + 1)) - 1;
    nodes.reserve(total);
    for (std::size_t i = 0; i < total; ++i) {
        SceneNode n{};
        n.parent = i == 0 ? -1 : static_cast<int>((i - 1) / 2);
        const double u = r.Uniform(0, 1);
        n.kind = u < 0.5     ? SceneNode::Identity
                 : u < 0.75  ? SceneNode::Translation
                 : u < 0.95  ? SceneNode::RotationTranslation
                 : u < 0.975 ? SceneNode::GeneralAffine
                             : SceneNode::ScaledRotation;
        n.rotation = r.UnitQuat();
        n.scale = r.Uniform(0.5, 2.0);
        for (int a = 0; a < 3; ++a)
            for (int b = 0; b < 3; ++b) n.linear.m[a][b] = r.Uniform(-1, 1) + (a == b ? 2.0 : 0.0);
        n.translation = r.UniformVec(-5, 5);
        nodes.push_back(n);
    }
    return nodes;
}

// The node's local transform as an affine 4x4 matrix (row vectors), for the peers.
inline Mat4 LocalMatrix(const SceneNode& n) {
    switch (n.kind) {
        case SceneNode::Identity:
            return AffineOf(Mat3{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, Vec3{0, 0, 0});
        case SceneNode::Translation:
            return AffineOf(Mat3{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, n.translation);
        case SceneNode::RotationTranslation:
            return AffineOf(RotationOf(n.rotation), n.translation);
        case SceneNode::GeneralAffine:
            return AffineOf(n.linear, n.translation);
        case SceneNode::ScaledRotation: {
            Mat3 l = RotationOf(n.rotation);
            for (auto& row : l.m)
                for (double& e : row) e *= n.scale;
            return AffineOf(l, n.translation);
        }
    }
    return Mat4{};
}

// The view volume of the culling benchmark: a symmetric perspective frustum with the eye at the
// origin looking down -z, vertical field of view 60 degrees, aspect 4:3, near 1, far 100.
constexpr double kNear = 1.0;
constexpr double kFar = 100.0;
constexpr double kFovY = 1.0471975511965976;  // 60 degrees
constexpr double kAspect = 4.0 / 3.0;

// Boxes scattered around the view volume: about half inside or crossing it, half outside.
inline std::vector<Box> CullBoxes(std::uint64_t seed) {
    Random r(seed);
    std::vector<Box> v(kCount);
    for (Box& b : v) {
        const double z = -r.Uniform(0.0, 110.0);
        const double half = -z * std::tan(kFovY / 2) + 1.0;
        const Vec3 c{r.Uniform(-2 * half * kAspect, 2 * half * kAspect),
                     r.Uniform(-2 * half, 2 * half), z};
        const Vec3 e = r.UniformVec(0.1, 3.0);
        b = Box{c, Vec3{c.x + e.x, c.y + e.y, c.z + e.z}};
    }
    return v;
}

// A million-triangle soup in the box [-50, 50)^2 x [-100, -1), each triangle up to 2 units wide.
constexpr std::size_t kSoupCount = 1000000;
inline std::vector<Triangle> Soup(std::uint64_t seed) {
    Random r(seed);
    std::vector<Triangle> v(kSoupCount);
    for (Triangle& t : v) {
        const Vec3 c{r.Uniform(-50, 50), r.Uniform(-50, 50), r.Uniform(-100, -1)};
        const Vec3 d1 = r.UniformVec(-1, 1), d2 = r.UniformVec(-1, 1);
        t = Triangle{c, Vec3{c.x + d1.x, c.y + d1.y, c.z + d1.z},
                     Vec3{c.x + d2.x, c.y + d2.y, c.z + d2.z}};
    }
    return v;
}

// Seeds: one per data set, the same for every library.
enum Seed : std::uint64_t {
    SeedMat3A = 101,
    SeedMat3B = 102,
    SeedMat4General = 201,
    SeedMat4Affine = 202,
    SeedMat4B = 203,
    SeedQuatA = 301,
    SeedQuatB = 302,
    SeedParam = 303,
    SeedPoints = 401,
    SeedBoxes = 501,
    SeedScene = 601,
    SeedCull = 701,
    SeedSoup = 801
};

}  // namespace bench

#endif
