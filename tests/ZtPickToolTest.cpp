// Tests of the ztpick tool: picks on the built-in scene and on OBJ files, culling, bad input.
#include "ZtPickMain.h"
#include "ZtPickPick.h"
#include "ZtPickScene.h"

#include <ztlinear/ZtLPick.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

const ZtPickScene& BuiltinScene() {
    static const ZtPickScene scene = ZtPickBuildBuiltinScene();
    return scene;
}

std::string WriteTemp(const std::string& name, const std::string& text) {
    const std::string path = ::testing::TempDir() + name;
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

struct ToolRun {
    int status;
    std::string out;
    std::string err;
};

ToolRun RunTool(const std::vector<std::string>& args) {
    ToolRun r;
    r.status = ZtPickMain(args, &r.out, &r.err);
    return r;
}

// From straight above a box, the pixel under the camera is on the box's top face: the pick
// there must find the top-face triangle under the eye, on the face's plane, at the eye's height
// above it less the near distance.
TEST(ZtPickBuiltin, KnownTriangleFromTheCentrePixelAboveEachBox) {
    const ZtPickScene& scene = BuiltinScene();
    int boxes = 0;
    for (std::uint32_t m = 0; m < scene.models.size(); ++m) {
        const ZtPickModel& model = scene.models[m];
        if (model.name.compare(0, 4, "box-") != 0) continue;
        ++boxes;
        const ZtPickMesh& mesh = scene.meshes[model.mesh];
        // The top-face triangle (local y = 1) whose centre is nearest local (0.3, 1, 0.55).
        std::uint32_t expected = 0;
        double best = 1e300;
        ZtLPos3f centre;
        for (std::uint32_t t = 0; t < mesh.GetTriangleCount(); ++t) {
            const ZtLPos3f& a = mesh.positions[mesh.indices[3 * t]];
            const ZtLPos3f& b = mesh.positions[mesh.indices[3 * t + 1]];
            const ZtLPos3f& c = mesh.positions[mesh.indices[3 * t + 2]];
            if (a[1] != 1.0 || b[1] != 1.0 || c[1] != 1.0) continue;
            const ZtLPos3f g((a[0] + b[0] + c[0]) / 3, 1.0, (a[2] + b[2] + c[2]) / 3);
            const double d = (g - ZtLPos3f(0.3, 1.0, 0.55)).Length();
            if (d < best) {
                best = d;
                expected = t;
                centre = g;
            }
        }
        const ZtLPos3f target = centre * model.transform;

        ZtPickCamera camera;
        camera.eye = target + ZtLVec3f(0.0, 30.0, 0.0);
        camera.target = target;
        camera.up = ZtLVec3f(0.0, 0.0, -1.0);
        std::string error;
        ASSERT_TRUE(camera.Setup(scene.bounds, &error)) << error;
        ZtPickSettings settings;
        settings.aperture = 1.0;
        const ZtPickResult r = ZtPickRun(scene, camera, settings);
        ASSERT_TRUE(r.hit.hit) << model.name;
        EXPECT_EQ(r.hit.model, m) << model.name;
        EXPECT_EQ(r.hit.triangle, expected) << model.name;
        EXPECT_NEAR(r.hit.position[1], target[1], 1e-9) << model.name;
        EXPECT_LT((r.hit.position - target).Length(), 0.05) << model.name;
        EXPECT_NEAR(r.hit.distance, 30.0 - camera.nearDist, 1e-9) << model.name;
        EXPECT_EQ(ZtPickFeatureName(r.hit.result), "face");
    }
    EXPECT_GE(boxes, 10);
}

TEST(ZtPickBuiltin, DefaultRunPicksTheSphereInTheMiddle) {
    const ToolRun r = RunTool({});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(r.out.find("hit: model 25 'sphere-25', triangle "), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("313216 triangles"), std::string::npos) << r.out;
}

// Box culling only skips what cannot be hit and only drops planes a box lies wholly inside:
// with and without it the pick is the same, bit for bit, over the whole viewport and in every
// mode, while the culled pick tests far fewer triangles.
TEST(ZtPickBuiltin, CullingNeverChangesTheAnswer) {
    const ZtPickScene& scene = BuiltinScene();
    struct Mode {
        ZtPickSnap snap;
        bool centreLine;
        bool cullBackFaces;
        bool ortho;
        double aperture;
    };
    const Mode modes[] = {{ZtPickSnap::None, false, false, false, 5.0},
                          {ZtPickSnap::Vertex, false, true, false, 25.0},
                          {ZtPickSnap::Edge, true, false, false, 9.0},
                          {ZtPickSnap::None, true, false, true, 15.0}};
    int hits = 0;
    for (const Mode& mode : modes) {
        ZtPickCamera camera = ZtPickFrameScene(scene.bounds, 800, 600, 45.0, mode.ortho);
        std::string error;
        ASSERT_TRUE(camera.Setup(scene.bounds, &error)) << error;
        std::uint64_t culledTests = 0;
        std::uint64_t allTests = 0;
        for (int i = 0; i < 5; ++i) {
            for (int j = 0; j < 4; ++j) {
                ZtPickSettings settings;
                settings.x = 80.0 + 160.0 * i;
                settings.y = 75.0 + 150.0 * j;
                settings.aperture = mode.aperture;
                settings.snap = mode.snap;
                settings.centreLine = mode.centreLine;
                settings.cullBackFaces = mode.cullBackFaces;
                const ZtPickResult culled = ZtPickRun(scene, camera, settings);
                settings.useCulling = false;
                const ZtPickResult all = ZtPickRun(scene, camera, settings);
                const std::string where = "pixel " + std::to_string(i) + "," + std::to_string(j);
                ASSERT_EQ(culled.hit.hit, all.hit.hit) << where;
                culledTests += culled.stats.trianglesTested;
                allTests += all.stats.trianglesTested;
                EXPECT_EQ(all.stats.boxesTested, 0u);
                if (!all.hit.hit) continue;
                ++hits;
                EXPECT_EQ(culled.hit.model, all.hit.model) << where;
                EXPECT_EQ(culled.hit.triangle, all.hit.triangle) << where;
                EXPECT_EQ(culled.hit.result, all.hit.result) << where;
                EXPECT_EQ(culled.hit.distance, all.hit.distance) << where;
                for (int k = 0; k < 3; ++k) {
                    EXPECT_EQ(culled.hit.position[k], all.hit.position[k]) << where;
                }
            }
        }
        EXPECT_LT(culledTests * 50, allTests);
    }
    EXPECT_GT(hits, 30);
}

// Every item sits in exactly one leaf, and every box holds its children's boxes or items: what
// CanCull relies on to skip a subtree.
TEST(ZtPickBuiltin, BoxTreesHoldWhatTheyCull) {
    const ZtPickScene& scene = BuiltinScene();
    const auto check = [](const ZtPickBoxTree& tree, const std::vector<ZtLBox3f>& items) {
        std::vector<int> seen(items.size(), 0);
        std::vector<std::uint32_t> stack = {0};
        while (!stack.empty()) {
            const ZtPickBoxNode& node = tree.GetNode(stack.back());
            stack.pop_back();
            if (node.count == 0) {
                for (std::uint32_t c = node.first; c < node.first + 2; ++c) {
                    ASSERT_TRUE(node.box.Contains(tree.GetNode(c).box));
                    stack.push_back(c);
                }
                continue;
            }
            for (std::uint32_t i = node.first; i < node.first + node.count; ++i) {
                ++seen[tree.GetItem(i)];
                ASSERT_TRUE(node.box.Contains(items[tree.GetItem(i)]));
            }
        }
        for (const int n : seen) ASSERT_EQ(n, 1);
    };
    std::vector<ZtLBox3f> boxes;
    for (const ZtPickModel& m : scene.models) {
        boxes.push_back(m.bounds);
        // The world box holds every transformed vertex.
        const ZtPickMesh& mesh = scene.meshes[m.mesh];
        for (std::size_t v = 0; v < mesh.positions.size(); v += 7) {
            ASSERT_TRUE(m.bounds.Contains(mesh.positions[v] * m.transform)) << m.name;
        }
    }
    check(scene.tree, boxes);
    for (const ZtPickMesh& mesh : scene.meshes) {
        boxes.clear();
        for (std::size_t t = 0; t < mesh.GetTriangleCount(); ++t) {
            ZtLBox3f b;
            for (int k = 0; k < 3; ++k) b.ExtendBy(mesh.positions[mesh.indices[3 * t + k]]);
            boxes.push_back(b);
        }
        check(mesh.tree, boxes);
    }
}

// The pick window is the view volume narrowed round the pixel a point projects to: it holds the
// point, and a window a few pixels aside does not. Perspective and orthographic, on a viewport
// that is not square.
TEST(ZtPickCamera, ThePickWindowHoldsWhatProjectsIntoIt) {
    ZtPickScene scene;
    ZtPickMesh mesh;
    mesh.positions = {ZtLPos3f(-10, -10, -10), ZtLPos3f(10, -10, -10), ZtLPos3f(0, 10, 10)};
    mesh.indices = {0, 1, 2};
    mesh.Finish();
    scene.meshes.push_back(mesh);
    scene.AddModel("triangle", 0, ZtLTransform3f());
    scene.Finish();
    for (const bool ortho : {false, true}) {
        ZtPickCamera camera;
        camera.eye = ZtLPos3f(3.0, 25.0, 30.0);
        camera.target = ZtLPos3f(1.0, -2.0, 0.5);
        camera.up = ZtLVec3f(0.2, 1.0, 0.0);
        camera.width = 640;
        camera.height = 360;
        camera.fovy = 50.0;
        camera.ortho = ortho;
        std::string error;
        ASSERT_TRUE(camera.Setup(scene.bounds, &error)) << error;
        for (int i = 0; i < 27; ++i) {
            const ZtLPos3f p(-8.0 + 8.0 * (i % 3), -8.0 + 8.0 * (i / 3 % 3), -8.0 + 8.0 * (i / 9));
            ZtPickSettings settings;
            ASSERT_TRUE(camera.Project(p, &settings.x, &settings.y));
            settings.aperture = 2.0;
            EXPECT_TRUE(ZtPickRun(scene, camera, settings).window.ContainsPoint(p)) << i;
            settings.x += 3.0;
            EXPECT_FALSE(ZtPickRun(scene, camera, settings).window.ContainsPoint(p)) << i;
            settings.x -= 3.0;
            settings.y -= 3.0;
            EXPECT_FALSE(ZtPickRun(scene, camera, settings).window.ContainsPoint(p)) << i;
        }
    }
}

// A unit square at z = 0 seen from (0, 0, 5): the quad is split into (1, 2, 3) and (1, 3, 4).
const char* const kQuad =
    "# a square\n"
    "v -1 -1 0\n"
    "v 1 -1 0\n"
    "v 1 1 0\n"
    "v -1 1 0\n"
    "f 1 2 3 4\n";

TEST(ZtPickObj, HitAndMissOnAFileMadeHere) {
    const std::string quad = WriteTemp("ztpick_quad.obj", kQuad);
    // The same square as two triangles, with texture and normal indices counted backwards.
    const std::string tris = WriteTemp("ztpick_tris.obj",
                                       "v -1 -1 0\nv 1 -1 0\nv 1 1 0\nvt 0 0\nvt 1 0\nvt 1 1\n"
                                       "vn 0 0 1\nf -3/1/1 -2/2/1 -1/3/1\nv -1 1 0\n"
                                       "f 1//1 3//1 4//1\n");
    const std::vector<std::string> camera = {"--eye", "0,0,5",  "--target",
                                             "0,0,0", "--size", "100x100"};
    struct Row {
        std::string file;
        std::string at;
        int status;
        std::string expected;
    };
    const Row rows[] = {
        {quad, "70,70", 0, "triangle 0, face"},  // below the diagonal: x > 0, y < 0
        {quad, "30,30", 0, "triangle 1, face"},
        {quad, "50.5,40", 0, "triangle 1, face"},
        {quad, "5,50", 1, "no hit"},   // left of the square
        {quad, "50,97", 1, "no hit"},  // below it
        {tris, "70,70", 0, "triangle 0, face"},
        {tris, "30,30", 0, "triangle 1, face"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> args = camera;
        args.insert(args.end(), {"--at", row.at, row.file});
        const ToolRun r = RunTool(args);
        EXPECT_EQ(r.status, row.status) << row.at << "\n" << r.out << r.err;
        EXPECT_NE(r.out.find(row.expected), std::string::npos) << row.at << "\n" << r.out;
    }

    // Snapping to a corner from near the corner (1, 1): vertex 2 of triangle 0 (or 1 of 1).
    const ToolRun snapped = RunTool({"--eye", "0,0,5", "--size", "100x100", "--at", "70,31",
                                     "--aperture", "12", "--snap", "vertex", "--json", quad});
    EXPECT_EQ(snapped.status, 0) << snapped.err;
    EXPECT_NE(snapped.out.find("\"position\": [1, 1, 0]"), std::string::npos) << snapped.out;

    // The picture: the hit triangle is filled in it.
    const std::string svg = ::testing::TempDir() + "ztpick_quad.svg";
    std::remove(svg.c_str());
    std::vector<std::string> args = camera;
    args.insert(args.end(), {"--svg", svg, quad});
    EXPECT_EQ(RunTool(args).status, 0);
    std::ifstream in(svg);
    const std::string picture((std::istreambuf_iterator<char>(in)),
                              std::istreambuf_iterator<char>());
    EXPECT_EQ(picture.compare(0, 4, "<svg"), 0);
    EXPECT_NE(picture.find("<polygon points="), std::string::npos);
    EXPECT_NE(picture.find("</svg>"), std::string::npos);
}

// Bad input: the status, and a message that says what and where.
TEST(ZtPickErrors, BadFilesAndOptionsExitWithStatusTwo) {
    struct Row {
        std::string file;  // written to a temporary file and passed last when not empty
        std::vector<std::string> args;
        std::vector<std::string> expected;  // in the error output
        bool usage;
    };
    const std::string dir = ::testing::TempDir();
    const std::string missing = dir + "ztpick_missing.obj";
    std::remove(missing.c_str());
    const Row rows[] = {
        {"", {missing}, {missing + ": cannot open the file"}, false},
        {"v 0 0 0\nv 1 two 0\n", {}, {"ztpick_bad.obj:2: malformed vertex", "'v 1 two 0'"}, false},
        {"v 0 0 0\r\n# note\r\nv 1 2\r\n", {}, {"ztpick_bad.obj:3: malformed vertex"}, false},
        {"v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 4\n",
         {},
         {"ztpick_bad.obj:4: vertex index 4 out of range (3 vertices read so far)"},
         false},
        {"v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 -4 3\n", {}, {"ztpick_bad.obj:4: vertex index -4"}, false},
        {"v 0 0 0\nv 1 0 0\nf 1 2\n", {}, {"ztpick_bad.obj:3: a face needs at least 3"}, false},
        {"v 0 0 0\nv 1 0 0\nv 0 1 0\n\nf 1 x 3\n",
         {},
         {"ztpick_bad.obj:5: malformed face vertex 'x'"},
         false},
        {"v 0 0 0\nv 1 0 0\nv 0 1 0\n", {}, {"ztpick_bad.obj: no faces"}, false},
        {"v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 99999999999\n",
         {},
         {"ztpick_bad.obj:4: malformed face vertex '99999999999'"},
         false},
        {"v 1e308 1e308 0\nv -1e308 -1e308 0\nv 0 1 0\nf 1 2 3\n",
         {},
         {"the scene is too large to view"},
         false},
        // A directory: Linux opens it and fails to read it, Windows refuses to open it.
        {"", {dir}, {": cannot "}, false},
        {"", {"--frob"}, {"ztpick: unknown option '--frob'"}, true},
        {"", {"-x"}, {"unknown option '-x'"}, true},
        {"", {"--at", "10"}, {"option --at: '10' is not a pixel position"}, true},
        {"", {"--snap", "corner"}, {"'corner' is not none, vertex or edge"}, true},
        {"", {"--size", "0x5"}, {"option --size"}, true},
        {"", {"--aperture=-2"}, {"option --aperture: '-2'"}, true},
        {"", {"--fovy", "180"}, {"option --fovy"}, true},
        {"", {"--eye"}, {"option --eye needs a value"}, true},
        {"", {"--json=yes"}, {"option --json takes no value"}, true},
        {"", {"--eye", "1,1,1", "--target", "1,1,1"}, {"camera: the eye and the target"}, true},
        {"", {"--up", "0,0,0"}, {"camera: the up direction"}, true},
        {"", {"--svg", dir + "no/such/dir/x.svg"}, {"cannot write the picture"}, false},
    };
    for (const Row& row : rows) {
        std::vector<std::string> args = row.args;
        if (!row.file.empty()) args.push_back(WriteTemp("ztpick_bad.obj", row.file));
        const ToolRun r = RunTool(args);
        const std::string what = row.args.empty() ? row.file : row.args[0];
        EXPECT_EQ(r.status, 2) << what;
        for (const std::string& e : row.expected) {
            EXPECT_NE(r.err.find(e), std::string::npos) << what << "\n" << r.err;
        }
        EXPECT_EQ(r.err.find("usage: ztpick") != std::string::npos, row.usage) << what;
    }
}

}  // namespace
