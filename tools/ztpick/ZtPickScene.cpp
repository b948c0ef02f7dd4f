// The scene of ztpick: box trees, meshes, models, and the built-in scene.
#include "ZtPickScene.h"

#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLVec.h>

#include <algorithm>
#include <cmath>
#include <numeric>

void ZtPickBoxTree::Build(const std::vector<ZtLBox3f>& itemBoxes, std::uint32_t leafSize) {
    const std::uint32_t n = static_cast<std::uint32_t>(itemBoxes.size());
    m_nodes.clear();
    m_order.resize(n);
    std::iota(m_order.begin(), m_order.end(), 0u);
    if (n == 0) return;
    std::vector<ZtLPos3f> centres;
    centres.reserve(n);
    for (const ZtLBox3f& b : itemBoxes) centres.push_back(b.GetCenter());
    m_nodes.reserve(2 * (n / std::max(leafSize, 1u)) + 2);
    m_nodes.push_back(ZtPickBoxNode());
    BuildNode(0, itemBoxes, centres, 0, n, std::max(leafSize, 1u));
}

void ZtPickBoxTree::BuildNode(std::uint32_t node, const std::vector<ZtLBox3f>& itemBoxes,
                              const std::vector<ZtLPos3f>& centres, std::uint32_t first,
                              std::uint32_t count, std::uint32_t leafSize) {
    ZtLBox3f box;
    ZtLBox3f centreBox;
    for (std::uint32_t i = first; i < first + count; ++i) {
        box.ExtendBy(itemBoxes[m_order[i]]);
        centreBox.ExtendBy(centres[m_order[i]]);
    }
    if (count <= leafSize) {
        m_nodes[node] = ZtPickBoxNode{box, first, count};
        return;
    }
    // Split at the median centre along the axis where the centres spread most.
    const ZtLVec3f spread = centreBox.GetSize();
    int axis = 0;
    if (spread[1] > spread[axis]) axis = 1;
    if (spread[2] > spread[axis]) axis = 2;
    const std::uint32_t mid = first + count / 2;
    std::nth_element(
        m_order.begin() + first, m_order.begin() + mid, m_order.begin() + first + count,
        [&](std::uint32_t a, std::uint32_t b) { return centres[a][axis] < centres[b][axis]; });
    // Both children are allocated before either subtree, so they sit side by side.
    const std::uint32_t left = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes[node] = ZtPickBoxNode{box, left, 0};
    m_nodes.push_back(ZtPickBoxNode());
    m_nodes.push_back(ZtPickBoxNode());
    BuildNode(left, itemBoxes, centres, first, mid - first, leafSize);
    BuildNode(left + 1, itemBoxes, centres, mid, first + count - mid, leafSize);
}

void ZtPickMesh::Finish() {
    bounds.MakeEmpty();
    for (const ZtLPos3f& p : positions) bounds.ExtendBy(p);
    std::vector<ZtLBox3f> boxes;
    boxes.reserve(GetTriangleCount());
    for (std::size_t t = 0; t < GetTriangleCount(); ++t) {
        ZtLBox3f b;
        for (int k = 0; k < 3; ++k) b.ExtendBy(positions[indices[3 * t + k]]);
        boxes.push_back(b);
    }
    tree.Build(boxes, 16);
}

void ZtPickScene::AddModel(const std::string& name, std::uint32_t mesh,
                           const ZtLTransform3f& transform) {
    ZtPickModel m;
    m.name = name;
    m.mesh = mesh;
    m.transform = transform;
    models.push_back(m);
}

std::size_t ZtPickScene::GetTriangleCount() const {
    std::size_t n = 0;
    for (const ZtPickModel& m : models) n += meshes[m.mesh].GetTriangleCount();
    return n;
}

void ZtPickScene::Finish() {
    bounds.MakeEmpty();
    std::vector<ZtLBox3f> boxes;
    boxes.reserve(models.size());
    // The world box of a model is grown by the coordinate tolerance, so that the rounding of
    // the transformed corners never leaves a transformed vertex just outside it.
    const double pad = ZtLVec::GetResabs();
    for (ZtPickModel& m : models) {
        m.inverse = m.transform.Inverse();
        const ZtLBox3f b = meshes[m.mesh].bounds.TransformedBy(m.transform);
        m.bounds = b.IsEmpty() ? b
                               : ZtLBox3f(b.GetMin() - ZtLVec3f(pad, pad, pad),
                                          b.GetMax() + ZtLVec3f(pad, pad, pad));
        bounds.ExtendBy(m.bounds);
        boxes.push_back(m.bounds);
    }
    tree.Build(boxes, 1);
}

namespace {

// A fixed sequence of pseudo-random numbers in [0, 1), the same on every platform.
class Sequence {
public:
    explicit Sequence(std::uint32_t seed) : m_state(seed) {}
    double Next() {
        m_state = m_state * 1664525u + 1013904223u;
        return static_cast<double>(m_state >> 8) / 16777216.0;
    }
    double Between(double lo, double hi) { return lo + (hi - lo) * Next(); }

private:
    std::uint32_t m_state;
};

const double kPi = 3.14159265358979323846;

// Appends a grid of (rows + 1) x (columns + 1) vertices p(i, j) and its triangles to the mesh.
// The triangles face along dp/dj x dp/di. collapsedFirst / collapsedLast: the first / last row
// is a single point (a pole), so the triangles that would have no area there are left out.
// Wire lines run along every rowStride-th row and every columnStride-th column, through every
// sample-th vertex.
template <class F>
void AddGrid(ZtPickMesh* mesh, std::uint32_t rows, std::uint32_t columns, bool collapsedFirst,
             bool collapsedLast, std::uint32_t rowStride, std::uint32_t columnStride,
             std::uint32_t sample, F p) {
    const std::uint32_t base = static_cast<std::uint32_t>(mesh->positions.size());
    for (std::uint32_t i = 0; i <= rows; ++i) {
        for (std::uint32_t j = 0; j <= columns; ++j) mesh->positions.push_back(p(i, j));
    }
    const auto at = [&](std::uint32_t i, std::uint32_t j) { return base + i * (columns + 1) + j; };
    for (std::uint32_t i = 0; i < rows; ++i) {
        for (std::uint32_t j = 0; j < columns; ++j) {
            if (!(collapsedFirst && i == 0)) {
                mesh->indices.insert(mesh->indices.end(), {at(i, j), at(i, j + 1), at(i + 1, j)});
            }
            if (!(collapsedLast && i == rows - 1)) {
                mesh->indices.insert(mesh->indices.end(),
                                     {at(i, j + 1), at(i + 1, j + 1), at(i + 1, j)});
            }
        }
    }
    for (std::uint32_t i = 0; i <= rows; i += rowStride) {
        if ((collapsedFirst && i == 0) || (collapsedLast && i == rows)) continue;
        std::vector<std::uint32_t> line;
        for (std::uint32_t j = 0; j <= columns; j += sample) line.push_back(at(i, j));
        if (line.back() != at(i, columns)) line.push_back(at(i, columns));
        mesh->wire.push_back(line);
    }
    for (std::uint32_t j = 0; j <= columns; j += columnStride) {
        std::vector<std::uint32_t> line;
        for (std::uint32_t i = 0; i <= rows; i += sample) line.push_back(at(i, j));
        if (line.back() != at(rows, j)) line.push_back(at(rows, j));
        mesh->wire.push_back(line);
    }
}

// The unit sphere about the origin.
ZtPickMesh MakeSphere(std::uint32_t stacks, std::uint32_t slices) {
    ZtPickMesh mesh;
    mesh.name = "sphere";
    AddGrid(&mesh, stacks, slices, true, true, stacks / 4, slices / 8, 4,
            [&](std::uint32_t i, std::uint32_t j) {
                const double phi = kPi * i / stacks;
                const double theta = 2.0 * kPi * j / slices;
                return ZtLPos3f(std::sin(phi) * std::cos(theta), std::cos(phi),
                                std::sin(phi) * std::sin(theta));
            });
    return mesh;
}

// A torus about the y axis: ring radius 1, tube radius 0.35.
ZtPickMesh MakeTorus(std::uint32_t tube, std::uint32_t ring) {
    ZtPickMesh mesh;
    mesh.name = "torus";
    AddGrid(&mesh, tube, ring, false, false, tube / 4, ring / 8, 4,
            [&](std::uint32_t i, std::uint32_t j) {
                const double phi = 2.0 * kPi * i / tube;
                const double theta = 2.0 * kPi * j / ring;
                const double r = 1.0 + 0.35 * std::cos(phi);
                return ZtLPos3f(r * std::cos(theta), -0.35 * std::sin(phi), r * std::sin(theta));
            });
    return mesh;
}

// The cube (-1, -1, -1)..(1, 1, 1), each face an n x n grid of squares.
ZtPickMesh MakeBox(std::uint32_t n) {
    ZtPickMesh mesh;
    mesh.name = "box";
    // Outward normal and one axis of each face; the other axis is normal x axis.
    const double faces[6][6] = {{1, 0, 0, 0, 0, -1}, {-1, 0, 0, 0, 0, 1}, {0, 1, 0, 1, 0, 0},
                                {0, -1, 0, 1, 0, 0}, {0, 0, 1, 1, 0, 0},  {0, 0, -1, -1, 0, 0}};
    for (const auto& f : faces) {
        const ZtLVec3f normal(f[0], f[1], f[2]);
        const ZtLVec3f u(f[3], f[4], f[5]);
        const ZtLVec3f v = normal.Cross(u);
        AddGrid(&mesh, n, n, false, false, n, n, n, [&](std::uint32_t i, std::uint32_t j) {
            const double a = 2.0 * j / n - 1.0;
            const double b = 2.0 * i / n - 1.0;
            return (normal + u * a + v * b).Pos();
        });
    }
    return mesh;
}

double TerrainHeight(double x, double z) {
    return 1.5 * std::sin(0.11 * x) * std::cos(0.07 * z) + 0.8 * std::sin(0.05 * (x + z));
}

// The terrain over -60..60 in x and z, facing up (+y), in world coordinates.
ZtPickMesh MakeTerrain(std::uint32_t n) {
    ZtPickMesh mesh;
    mesh.name = "terrain";
    const double size = 120.0;
    AddGrid(&mesh, n, n, false, false, n / 16, n / 16, 4, [&](std::uint32_t i, std::uint32_t j) {
        const double x = -0.5 * size + size * j / n;
        const double z = 0.5 * size - size * i / n;
        return ZtLPos3f(x, TerrainHeight(x, z), z);
    });
    return mesh;
}

}  // namespace

ZtPickScene ZtPickBuildBuiltinScene() {
    ZtPickScene scene;
    scene.meshes.push_back(MakeTerrain(256));
    scene.meshes.push_back(MakeSphere(32, 64));
    scene.meshes.push_back(MakeTorus(32, 64));
    scene.meshes.push_back(MakeBox(16));
    for (ZtPickMesh& m : scene.meshes) m.Finish();
    enum { Terrain, Sphere, Torus, Box };

    // The terrain is already in world coordinates.
    scene.AddModel("terrain", Terrain, ZtLTransform3f());
    Sequence random(20261122u);
    for (int row = 0; row < 7; ++row) {
        for (int column = 0; column < 7; ++column) {
            // The middle one stands exactly at the centre, where the default camera looks.
            const bool middle = row == 3 && column == 3;
            const double jitterX = random.Between(-3.0, 3.0);
            const double jitterZ = random.Between(-3.0, 3.0);
            const double x = -45.0 + 15.0 * column + (middle ? 0.0 : jitterX);
            const double z = -45.0 + 15.0 * row + (middle ? 0.0 : jitterZ);
            const double ground = TerrainHeight(x, z);
            const int index = static_cast<int>(scene.models.size());
            ZtLTransform3f t;
            switch ((row + column) % 3) {
                case 0: {
                    // Spheres: every other one only moved (unit radius), the rest also scaled.
                    const double scale = random.Between(1.5, 3.0);
                    const double s = middle ? 4.0 : (index % 2) ? 1.0 : scale;
                    if (s != 1.0) t.MakeUniformScale(s);
                    t.TranslateRight(ZtLVec3f(x, ground + s, z));
                    scene.AddModel("sphere-" + std::to_string(index), Sphere, t);
                    break;
                }
                case 1: {
                    // Tori: turned about a random axis, scaled by 2, moved.
                    const ZtLUnitVec3f axis(random.Between(-1.0, 1.0), random.Between(0.2, 1.0),
                                            random.Between(-1.0, 1.0));
                    t.MakeUniformScale(2.0);
                    t.RotateRight(ZtLRotation3f(axis, random.Between(0.0, kPi)));
                    t.TranslateRight(ZtLVec3f(x, ground + 2.8, z));
                    scene.AddModel("torus-" + std::to_string(index), Torus, t);
                    break;
                }
                default: {
                    // Boxes: scaled unevenly, turned about the vertical, moved.
                    const ZtLVec3f s(random.Between(1.0, 3.0), random.Between(1.0, 4.0),
                                     random.Between(1.0, 3.0));
                    t.MakeScale(s);
                    t.RotateRight(ZtLRotation3f(ZtLUnitVec3f::CreateY(), random.Between(0.0, kPi)));
                    t.TranslateRight(ZtLVec3f(x, ground + s[1], z));
                    scene.AddModel("box-" + std::to_string(index), Box, t);
                    break;
                }
            }
        }
    }
    scene.Finish();
    return scene;
}
