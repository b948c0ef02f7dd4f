// The command line of ztpick.
#include "ZtPickOptions.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

namespace {

// Reads exactly count finite numbers separated by commas (or an 'x' when times is set, as in
// 800x600).
bool ParseNumbers(const std::string& text, int count, bool times, double* out) {
    const char separator = times ? 'x' : ',';
    const char* p = text.c_str();
    for (int i = 0; i < count; ++i) {
        char* end = nullptr;
        errno = 0;
        out[i] = std::strtod(p, &end);
        if (end == p || errno != 0 || !std::isfinite(out[i])) return false;
        p = end;
        if (i + 1 < count) {
            if (*p != separator) return false;
            ++p;
        }
    }
    return *p == '\0';
}

}  // namespace

const char* ZtPickUsage() {
    return "usage: ztpick [options] [FILE.obj ...]\n"
           "Picks the nearest triangle under a pixel, in the OBJ files given or, with none, in\n"
           "a built-in scene of about 300 thousand triangles.\n"
           "\n"
           "  --size WxH          viewport in pixels (default 800x600)\n"
           "  --at X,Y            pixel to pick, from the top-left corner (default: the centre)\n"
           "  --aperture N        side of the pick window in pixels (default 5)\n"
           "  --eye X,Y,Z         camera position (default: frames the scene)\n"
           "  --target X,Y,Z      point looked at (default: the centre of the scene)\n"
           "  --up X,Y,Z          up direction (default 0,1,0)\n"
           "  --fovy DEGREES      vertical field of view (default 45)\n"
           "  --ortho             orthographic camera\n"
           "  --snap none|vertex|edge\n"
           "                      snap the picked point to a triangle corner or edge\n"
           "  --centre-line       pick the point nearest the pick window's centre line\n"
           "                      instead of the point nearest the eye\n"
           "  --cull-backfaces    ignore triangles that face away from the camera\n"
           "  --no-cull           test every triangle (no box culling; same answer, slower)\n"
           "  --json              print the result as JSON\n"
           "  --svg FILE          draw the scene, the pick window and the hit into FILE\n"
           "  --help              print this text\n"
           "\n"
           "Exit status: 0 hit, 1 no hit, 2 bad option or unreadable file.\n";
}

bool ZtPickParseOptions(const std::vector<std::string>& args, ZtPickOptions* o,
                        std::string* error) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        std::string name = args[i];
        std::string value;
        bool hasValue = false;
        if (name.size() > 2 && name.compare(0, 2, "--") == 0) {
            const std::size_t eq = name.find('=');
            if (eq != std::string::npos) {
                value = name.substr(eq + 1);
                name = name.substr(0, eq);
                hasValue = true;
            }
        } else if (!name.empty() && name[0] == '-' && name != "-") {
            *error = "unknown option '" + name + "'";
            return false;
        } else {
            o->files.push_back(name);
            continue;
        }

        const auto flag = [&](bool* out) {
            if (hasValue) {
                *error = "option " + name + " takes no value";
                return false;
            }
            *out = true;
            return true;
        };
        const auto take = [&]() {
            if (hasValue) return true;
            if (i + 1 >= args.size()) {
                *error = "option " + name + " needs a value";
                return false;
            }
            value = args[++i];
            return true;
        };
        const auto bad = [&](const char* expected) {
            *error = "option " + name + ": '" + value + "' is not " + expected;
            return false;
        };
        double v[3];
        if (name == "--help") {
            if (!flag(&o->help)) return false;
        } else if (name == "--ortho") {
            if (!flag(&o->ortho)) return false;
        } else if (name == "--centre-line" || name == "--center-line") {
            if (!flag(&o->centreLine)) return false;
        } else if (name == "--cull-backfaces") {
            if (!flag(&o->cullBackFaces)) return false;
        } else if (name == "--no-cull") {
            if (!flag(&o->noCull)) return false;
        } else if (name == "--json") {
            if (!flag(&o->json)) return false;
        } else if (name == "--svg") {
            if (!take()) return false;
            if (value.empty()) return bad("a file name");
            o->svg = value;
        } else if (name == "--size") {
            if (!take()) return false;
            if (!ParseNumbers(value, 2, true, v) || v[0] < 1 || v[1] < 1 || v[0] > 100000 ||
                v[1] > 100000 || v[0] != std::floor(v[0]) || v[1] != std::floor(v[1])) {
                return bad("a size WxH in whole pixels (1 to 100000)");
            }
            o->width = static_cast<int>(v[0]);
            o->height = static_cast<int>(v[1]);
        } else if (name == "--at") {
            if (!take()) return false;
            if (!ParseNumbers(value, 2, false, v)) return bad("a pixel position X,Y");
            o->hasAt = true;
            o->atX = v[0];
            o->atY = v[1];
        } else if (name == "--aperture") {
            if (!take()) return false;
            if (!ParseNumbers(value, 1, false, v) || !(v[0] > 0.0)) {
                return bad("a positive number of pixels");
            }
            o->aperture = v[0];
        } else if (name == "--eye" || name == "--target" || name == "--up") {
            if (!take()) return false;
            if (!ParseNumbers(value, 3, false, v)) return bad("a point or direction X,Y,Z");
            if (name == "--eye") {
                o->hasEye = true;
                o->eye = ZtLPos3f(v[0], v[1], v[2]);
            } else if (name == "--target") {
                o->hasTarget = true;
                o->target = ZtLPos3f(v[0], v[1], v[2]);
            } else {
                o->up = ZtLVec3f(v[0], v[1], v[2]);
            }
        } else if (name == "--fovy") {
            if (!take()) return false;
            if (!ParseNumbers(value, 1, false, v) || !(v[0] > 0.0 && v[0] < 180.0)) {
                return bad("an angle in degrees between 0 and 180");
            }
            o->fovy = v[0];
        } else if (name == "--snap") {
            if (!take()) return false;
            if (value == "none") {
                o->snap = ZtPickSnap::None;
            } else if (value == "vertex") {
                o->snap = ZtPickSnap::Vertex;
            } else if (value == "edge") {
                o->snap = ZtPickSnap::Edge;
            } else {
                return bad("none, vertex or edge");
            }
        } else {
            *error = "unknown option '" + name + "'";
            return false;
        }
    }
    return true;
}
