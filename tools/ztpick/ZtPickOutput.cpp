// What ztpick prints and draws.
#include "ZtPickOutput.h"

#include <ztlinear/ZtLVersion.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <vector>

namespace {

// printf into a std::string.
void Append(std::string* out, const char* format, ...) {
    char buffer[512];
    va_list args;
    va_start(args, format);
    const int n = std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    if (n < 0) return;
    if (static_cast<std::size_t>(n) < sizeof buffer) {
        out->append(buffer, static_cast<std::size_t>(n));
        return;
    }
    std::vector<char> big(static_cast<std::size_t>(n) + 1);
    va_start(args, format);
    std::vsnprintf(big.data(), big.size(), format, args);
    va_end(args);
    out->append(big.data(), static_cast<std::size_t>(n));
}

std::string JsonString(const std::string& s) {
    std::string out = "\"";
    for (const char c : s) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            Append(&out, "\\u%04x", static_cast<unsigned>(static_cast<unsigned char>(c)));
        } else {
            out += c;
        }
    }
    return out + "\"";
}

std::string XmlText(const std::string& s) {
    std::string out;
    for (const char c : s) {
        switch (c) {
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '&':
                out += "&amp;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
    return out;
}

const char* SnapName(ZtPickSnap snap) {
    switch (snap) {
        case ZtPickSnap::Vertex:
            return "vertex";
        case ZtPickSnap::Edge:
            return "edge";
        default:
            return "none";
    }
}

unsigned long long U(std::uint64_t n) { return static_cast<unsigned long long>(n); }

}  // namespace

std::string ZtPickFormatText(const ZtPickScene& scene, const ZtPickSceneInfo& info,
                             const ZtPickCamera& camera, const ZtPickSettings& settings,
                             const ZtPickResult& result) {
    std::string s;
    const std::size_t triangles = scene.GetTriangleCount();
    Append(&s, "ztpick %s: %s, %zu models of %zu meshes, %zu triangles (built in %.1f ms)\n",
           ZTL_VERSION_STRING, info.source.c_str(), scene.models.size(), scene.meshes.size(),
           triangles, info.buildSeconds * 1e3);
    Append(&s,
           "camera: %s, eye (%.3f, %.3f, %.3f), target (%.3f, %.3f, %.3f), up (%g, %g, %g), "
           "fovy %g, %dx%d pixels\n",
           camera.ortho ? "orthographic" : "perspective", camera.eye[0], camera.eye[1],
           camera.eye[2], camera.target[0], camera.target[1], camera.target[2], camera.up[0],
           camera.up[1], camera.up[2], camera.fovy, camera.width, camera.height);
    Append(&s, "pick: pixel (%g, %g), window %g pixels, snap %s, nearest to the %s%s%s\n",
           settings.x, settings.y, settings.aperture, SnapName(settings.snap),
           settings.centreLine ? "centre line" : "eye",
           settings.cullBackFaces ? ", back faces culled" : "",
           settings.useCulling ? "" : ", no box culling");
    const ZtPickHit& hit = result.hit;
    if (hit.hit) {
        Append(&s, "hit: model %u '%s', triangle %u, %s\n", static_cast<unsigned>(hit.model),
               scene.models[hit.model].name.c_str(), static_cast<unsigned>(hit.triangle),
               ZtPickFeatureName(hit.result).c_str());
        Append(&s, "  position (%.6f, %.6f, %.6f)\n", hit.position[0], hit.position[1],
               hit.position[2]);
        Append(&s, "  distance %.6f from the pick window's near plane\n", hit.distance);
    } else {
        Append(&s, "no hit\n");
    }
    const ZtPickStats& w = result.stats;
    Append(&s,
           "work: %llu boxes tested, %llu culled; %llu of %zu models visited; %llu of %zu "
           "triangles tested; %.3f ms\n",
           U(w.boxesTested), U(w.boxesCulled), U(w.modelsVisited), scene.models.size(),
           U(w.trianglesTested), triangles, w.seconds * 1e3);
    return s;
}

std::string ZtPickFormatJson(const ZtPickScene& scene, const ZtPickSceneInfo& info,
                             const ZtPickCamera& camera, const ZtPickSettings& settings,
                             const ZtPickResult& result) {
    std::string s = "{\n";
    Append(&s,
           "  \"scene\": {\"source\": %s, \"models\": %zu, \"meshes\": %zu, \"triangles\": %zu, "
           "\"buildSeconds\": %.6f},\n",
           JsonString(info.source).c_str(), scene.models.size(), scene.meshes.size(),
           scene.GetTriangleCount(), info.buildSeconds);
    Append(&s,
           "  \"camera\": {\"projection\": \"%s\", \"eye\": [%.17g, %.17g, %.17g], "
           "\"target\": [%.17g, %.17g, %.17g], \"up\": [%.17g, %.17g, %.17g], \"fovy\": %.17g, "
           "\"width\": %d, \"height\": %d},\n",
           camera.ortho ? "orthographic" : "perspective", camera.eye[0], camera.eye[1],
           camera.eye[2], camera.target[0], camera.target[1], camera.target[2], camera.up[0],
           camera.up[1], camera.up[2], camera.fovy, camera.width, camera.height);
    Append(&s,
           "  \"pick\": {\"x\": %.17g, \"y\": %.17g, \"aperture\": %.17g, \"snap\": \"%s\", "
           "\"centreLine\": %s, \"cullBackFaces\": %s, \"boxCulling\": %s},\n",
           settings.x, settings.y, settings.aperture, SnapName(settings.snap),
           settings.centreLine ? "true" : "false", settings.cullBackFaces ? "true" : "false",
           settings.useCulling ? "true" : "false");
    const ZtPickHit& hit = result.hit;
    if (hit.hit) {
        Append(&s,
               "  \"hit\": {\"model\": %u, \"name\": %s, \"triangle\": %u, "
               "\"position\": [%.17g, %.17g, %.17g], \"distance\": %.17g, \"feature\": \"%s\", "
               "\"result\": %d},\n",
               static_cast<unsigned>(hit.model), JsonString(scene.models[hit.model].name).c_str(),
               static_cast<unsigned>(hit.triangle), hit.position[0], hit.position[1],
               hit.position[2], hit.distance, ZtPickFeatureName(hit.result).c_str(), hit.result);
    } else {
        s += "  \"hit\": null,\n";
    }
    const ZtPickStats& w = result.stats;
    Append(&s,
           "  \"work\": {\"boxesTested\": %llu, \"boxesCulled\": %llu, \"modelsVisited\": %llu, "
           "\"trianglesTested\": %llu, \"seconds\": %.6f}\n}\n",
           U(w.boxesTested), U(w.boxesCulled), U(w.modelsVisited), U(w.trianglesTested), w.seconds);
    return s;
}

namespace {

// Appends the polyline through the given world points to an SVG path, broken where a point is
// behind the camera and left out where a piece lies wholly off the picture on one side.
class PathWriter {
public:
    PathWriter(const ZtPickCamera& camera, std::string* out) : m_camera(camera), m_out(out) {}

    void Line(const std::vector<ZtLPos3f>& points) {
        bool havePrevious = false;
        bool drawn = false;
        double px = 0.0;
        double py = 0.0;
        for (const ZtLPos3f& p : points) {
            double x;
            double y;
            if (!m_camera.Project(p, &x, &y)) {
                havePrevious = false;
                drawn = false;
                continue;
            }
            if (havePrevious && Visible(px, py, x, y)) {
                if (!drawn) Append(m_out, "M%.1f %.1f", px, py);
                Append(m_out, "L%.1f %.1f", x, y);
                drawn = true;
            } else {
                drawn = false;
            }
            px = x;
            py = y;
            havePrevious = true;
        }
    }

private:
    bool Visible(double x0, double y0, double x1, double y1) const {
        const double w = m_camera.width;
        const double h = m_camera.height;
        return !((x0 < 0 && x1 < 0) || (y0 < 0 && y1 < 0) || (x0 > w && x1 > w) ||
                 (y0 > h && y1 > h));
    }

    const ZtPickCamera& m_camera;
    std::string* m_out;
};

}  // namespace

std::string ZtPickFormatSvg(const ZtPickScene& scene, const ZtPickCamera& camera,
                            const ZtPickSettings& settings, const ZtPickResult& result) {
    std::string s;
    const int w = camera.width;
    const int h = camera.height;
    Append(&s,
           "<svg xmlns=\"http://www.w3.org/2000/svg\" "
           "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"%d\" height=\"%d\" "
           "viewBox=\"0 0 %d %d\">\n",
           w, h, w, h);
    Append(&s, "<rect width=\"%d\" height=\"%d\" fill=\"#fbfaf6\"/>\n", w, h);

    // Every edge of a mesh without wire lines, each once.
    std::vector<std::vector<std::vector<std::uint32_t>>> edges(scene.meshes.size());
    for (std::size_t m = 0; m < scene.meshes.size(); ++m) {
        const ZtPickMesh& mesh = scene.meshes[m];
        if (!mesh.wire.empty()) continue;
        std::vector<std::pair<std::uint32_t, std::uint32_t>> pairs;
        for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
            for (int k = 0; k < 3; ++k) {
                const std::uint32_t a = mesh.indices[i + k];
                const std::uint32_t b = mesh.indices[i + (k + 1) % 3];
                pairs.emplace_back(std::min(a, b), std::max(a, b));
            }
        }
        std::sort(pairs.begin(), pairs.end());
        pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
        for (const auto& e : pairs) edges[m].push_back({e.first, e.second});
    }

    // The wireframe and the hit triangle are defined once and shown twice: in the full view
    // and magnified round the pick window. Their stroke width comes from where they are shown.
    s += "<defs>\n<g id=\"scene\" fill=\"none\" stroke-linejoin=\"round\">\n";
    // Culled models first, so that the visited ones are drawn over them.
    for (int pass = 0; pass < 2; ++pass) {
        for (std::size_t i = 0; i < scene.models.size(); ++i) {
            const bool visited = result.visited.size() > i && result.visited[i];
            if (visited != (pass == 1)) continue;
            const ZtPickModel& model = scene.models[i];
            const ZtPickMesh& mesh = scene.meshes[model.mesh];
            std::string d;
            PathWriter writer(camera, &d);
            std::vector<ZtLPos3f> points;
            const auto& lines = mesh.wire.empty() ? edges[model.mesh] : mesh.wire;
            for (const std::vector<std::uint32_t>& line : lines) {
                points.clear();
                for (const std::uint32_t v : line) {
                    points.push_back(mesh.positions[v] * model.transform);
                }
                writer.Line(points);
            }
            if (d.empty()) continue;
            Append(&s, "<path stroke=\"%s\" d=\"", visited ? "#2f6db5" : "#a9b0b8");
            s += d;
            s += "\"/>\n";
        }
    }
    const ZtPickHit& hit = result.hit;
    if (hit.hit) {
        const ZtPickModel& model = scene.models[hit.model];
        const ZtPickMesh& mesh = scene.meshes[model.mesh];
        std::string points;
        bool all = true;
        for (int k = 0; k < 3; ++k) {
            const ZtLPos3f p = mesh.positions[mesh.indices[3 * hit.triangle + k]] * model.transform;
            double x = 0.0;
            double y = 0.0;
            all = all && camera.Project(p, &x, &y);
            Append(&points, "%s%.3f,%.3f", k ? " " : "", x, y);
        }
        if (all) {
            Append(&s, "<polygon points=\"%s\" fill=\"#f28c28\" stroke=\"#c0392b\"/>\n",
                   points.c_str());
        }
    }
    s += "</g>\n</defs>\n";
    s += "<use xlink:href=\"#scene\" stroke-width=\"0.7\"/>\n";

    double hitX = 0.0;
    double hitY = 0.0;
    const bool hitShown = hit.hit && camera.Project(hit.position, &hitX, &hitY);
    const double half = settings.aperture * 0.5;
    // The pick window and the hit point over a view whose picture point (cx, cy) is shown at
    // (ox, oy), magnified zoom times.
    const auto overlay = [&](double ox, double oy, double cx, double cy, double zoom) {
        const auto X = [&](double x) { return ox + (x - cx) * zoom; };
        const auto Y = [&](double y) { return oy + (y - cy) * zoom; };
        Append(&s,
               "<rect x=\"%.2f\" y=\"%.2f\" width=\"%.2f\" height=\"%.2f\" fill=\"none\" "
               "stroke=\"#1a9850\" stroke-width=\"1.5\"/>\n",
               X(settings.x - half), Y(settings.y - half), settings.aperture * zoom,
               settings.aperture * zoom);
        if (hitShown) {
            Append(&s,
                   "<circle cx=\"%.2f\" cy=\"%.2f\" r=\"5\" fill=\"none\" stroke=\"#c0392b\" "
                   "stroke-width=\"2\"/>\n<circle cx=\"%.2f\" cy=\"%.2f\" r=\"1.5\" "
                   "fill=\"#c0392b\"/>\n",
                   X(hitX), Y(hitY), X(hitX), Y(hitY));
        }
    };
    overlay(0.0, 0.0, 0.0, 0.0, 1.0);
    // A cross hair on the pick position in the full view.
    Append(&s,
           "<path stroke=\"#1a9850\" stroke-width=\"1\" "
           "d=\"M%.2f %.2fH%.2fM%.2f %.2fH%.2fM%.2f %.2fV%.2fM%.2f %.2fV%.2f\"/>\n",
           settings.x - half - 16, settings.y, settings.x - half - 6, settings.x + half + 6,
           settings.y, settings.x + half + 16, settings.x, settings.y - half - 16,
           settings.y - half - 6, settings.x, settings.y + half + 6, settings.y + half + 16);

    // The magnified view of the pick window's surroundings, in the top-right corner.
    const double inset = std::min(220.0, 0.35 * std::min(w, h));
    const double around = std::max(5.0 * settings.aperture, 15.0);
    const double zoom = inset / around;
    const double ix = w - inset - 10.0;
    const double iy = 10.0;
    const double ax = settings.x - 0.5 * around;
    const double ay = settings.y - 0.5 * around;
    Append(&s,
           "<svg x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\" "
           "viewBox=\"%.3f %.3f %.3f %.3f\">\n<rect x=\"%.3f\" y=\"%.3f\" width=\"%.3f\" "
           "height=\"%.3f\" fill=\"#fbfaf6\"/>\n<use xlink:href=\"#scene\" "
           "stroke-width=\"%.4f\"/>\n</svg>\n",
           ix, iy, inset, inset, ax, ay, around, around, ax, ay, around, around, 1.5 / zoom);
    Append(&s, "<svg x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\">\n", ix, iy, inset,
           inset);
    overlay(0.0, 0.0, ax, ay, zoom);
    s += "</svg>\n";
    Append(&s,
           "<rect x=\"%.1f\" y=\"%.1f\" width=\"%.1f\" height=\"%.1f\" fill=\"none\" "
           "stroke=\"#555\" stroke-width=\"1\"/>\n",
           ix, iy, inset, inset);
    Append(&s,
           "<text x=\"%.1f\" y=\"%.1f\" font-family=\"monospace\" font-size=\"11\" "
           "fill=\"#555\">pick window, x%.0f</text>\n",
           ix, iy + inset + 14, zoom);

    std::string label;
    if (hit.hit) {
        Append(&label, "hit: model '%s', triangle %u, %s, distance %.3f",
               scene.models[hit.model].name.c_str(), static_cast<unsigned>(hit.triangle),
               ZtPickFeatureName(hit.result).c_str(), hit.distance);
    } else {
        label = "no hit";
    }
    Append(&s,
           "<text x=\"10\" y=\"%d\" font-family=\"monospace\" font-size=\"13\" "
           "fill=\"#222\">pixel (%g, %g): %s</text>\n",
           h - 10, settings.x, settings.y, XmlText(label).c_str());
    s += "</svg>\n";
    return s;
}
