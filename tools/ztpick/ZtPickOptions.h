#ifndef ZTPICK_ZTPICKOPTIONS_H
#define ZTPICK_ZTPICKOPTIONS_H

// The command line of ztpick.

#include "ZtPickPick.h"

#include <ztlinear/ZtLVec3f.h>

#include <string>
#include <vector>

struct ZtPickOptions {
    // OBJ files; none: the built-in scene.
    std::vector<std::string> files;
    int width = 800;
    int height = 600;
    // Unset: the centre of the viewport.
    bool hasAt = false;
    double atX = 0.0;
    double atY = 0.0;
    double aperture = 5.0;
    // Unset: the camera frames the scene. The target defaults to the scene's centre and up to +y.
    bool hasEye = false;
    bool hasTarget = false;
    ZtLPos3f eye = ZtLPos3f(0.0, 0.0, 0.0);
    ZtLPos3f target = ZtLPos3f(0.0, 0.0, 0.0);
    ZtLVec3f up = ZtLVec3f(0.0, 1.0, 0.0);
    double fovy = 45.0;
    bool ortho = false;
    ZtPickSnap snap = ZtPickSnap::None;
    bool centreLine = false;
    bool cullBackFaces = false;
    bool noCull = false;
    bool json = false;
    std::string svg;
    bool help = false;
};

// Reads the arguments (without the program name). False with *error set on a bad option.
bool ZtPickParseOptions(const std::vector<std::string>& args, ZtPickOptions* options,
                        std::string* error);

// The usage text.
const char* ZtPickUsage();

#endif
