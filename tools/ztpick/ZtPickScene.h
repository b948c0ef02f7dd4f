#ifndef ZTPICK_ZTPICKSCENE_H
#define ZTPICK_ZTPICKSCENE_H

// The scene ztpick picks in: triangle meshes, models that place a mesh in the world with a
// ZtLTransform3f (several models may share one mesh), and two levels of box hierarchy.
//
// - Every mesh carries a box tree over its triangles, in the mesh's own (model) space. It is
//   shared by all the models that instance the mesh.
// - The scene carries a box tree over its models' world-space bounds.
//
// A pick walks the scene tree in world space, moves the pick volume into a model's space with
// the inverse of the model's transform, and walks the mesh tree there (see ZtPickPick.h).
// Transforms follow the library's convention: points are row vectors on the left
// (world = local * transform), the translation sits in the last row.

#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLVec3f.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// A node of a box tree. An inner node has count 0 and its two children at first and first + 1;
// a leaf holds the items order[first] .. order[first + count - 1] of its tree.
struct ZtPickBoxNode {
    ZtLBox3f box;
    std::uint32_t first;
    std::uint32_t count;
};

// A bounding-box hierarchy over a set of items (triangles or models), built by splitting at the
// median centre along the longest axis until a node holds at most leafSize items.
class ZtPickBoxTree {
public:
    void Build(const std::vector<ZtLBox3f>& itemBoxes, std::uint32_t leafSize);

    bool IsEmpty() const { return m_nodes.empty(); }
    const ZtPickBoxNode& GetRoot() const { return m_nodes[0]; }
    const ZtPickBoxNode& GetNode(std::uint32_t i) const { return m_nodes[i]; }
    std::size_t GetNodeCount() const { return m_nodes.size(); }
    // The item at position i of the leaves' order.
    std::uint32_t GetItem(std::uint32_t i) const { return m_order[i]; }

private:
    void BuildNode(std::uint32_t node, const std::vector<ZtLBox3f>& itemBoxes,
                   const std::vector<ZtLPos3f>& centres, std::uint32_t first, std::uint32_t count,
                   std::uint32_t leafSize);

    std::vector<ZtPickBoxNode> m_nodes;
    std::vector<std::uint32_t> m_order;
};

// A triangle mesh in its own space.
struct ZtPickMesh {
    std::string name;
    std::vector<ZtLPos3f> positions;
    // Three vertex indices per triangle.
    std::vector<std::uint32_t> indices;
    // The lines drawn for the mesh in a picture, as polylines of vertex indices. Empty: every
    // edge of every triangle is drawn.
    std::vector<std::vector<std::uint32_t>> wire;
    ZtLBox3f bounds;
    ZtPickBoxTree tree;

    std::size_t GetTriangleCount() const { return indices.size() / 3; }
    // The bounds and the triangle tree (call after the triangles are in).
    void Finish();
};

// A mesh placed in the world.
struct ZtPickModel {
    std::string name;
    std::uint32_t mesh;
    // Model space to world space, and back.
    ZtLTransform3f transform;
    ZtLTransform3f inverse;
    // The world-space box of the transformed mesh bounds.
    ZtLBox3f bounds;
};

struct ZtPickScene {
    std::vector<ZtPickMesh> meshes;
    std::vector<ZtPickModel> models;
    ZtLBox3f bounds;
    ZtPickBoxTree tree;

    // Adds a model of mesh with the given transform (its inverse and bounds are set by Finish).
    void AddModel(const std::string& name, std::uint32_t mesh, const ZtLTransform3f& transform);
    std::size_t GetTriangleCount() const;
    // Model inverses and bounds, the scene bounds and the model tree (call once everything is
    // in; the meshes must be finished).
    void Finish();
};

// The built-in scene: a terrain grid and a field of spheres, tori and boxes standing on it,
// placed by identities, translations, rotations and uniform and non-uniform scales; about 300
// thousand triangles. The same every time.
ZtPickScene ZtPickBuildBuiltinScene();

// Reads the triangles of a Wavefront OBJ file as one mesh and adds it to the scene as a model
// with the identity transform, named after the file. Polygons are split into fans of
// triangles. On failure returns false and sets *error to a message that names the file and,
// for a malformed statement, the line ("file:line: ..."); the scene is then unchanged.
bool ZtPickLoadObj(const std::string& path, ZtPickScene* scene, std::string* error);

#endif
