#ifndef ZTPICK_ZTPICKOUTPUT_H
#define ZTPICK_ZTPICKOUTPUT_H

// What ztpick prints and draws: the pick as text or JSON, and a picture of it as SVG.

#include "ZtPickPick.h"
#include "ZtPickScene.h"

#include <string>

// What the report says about where the scene came from and how long it took to build.
struct ZtPickSceneInfo {
    // "built-in scene" or the OBJ files' names.
    std::string source;
    double buildSeconds = 0.0;
};

std::string ZtPickFormatText(const ZtPickScene& scene, const ZtPickSceneInfo& info,
                             const ZtPickCamera& camera, const ZtPickSettings& settings,
                             const ZtPickResult& result);

std::string ZtPickFormatJson(const ZtPickScene& scene, const ZtPickSceneInfo& info,
                             const ZtPickCamera& camera, const ZtPickSettings& settings,
                             const ZtPickResult& result);

// The scene's wireframe seen by the camera (models whose triangles the pick reached in blue,
// culled ones in grey), the pick window, the hit triangle filled and the hit point circled.
// Built-in meshes draw a few of their grid lines rather than every edge, to keep the picture
// small and readable; meshes read from files draw every edge.
std::string ZtPickFormatSvg(const ZtPickScene& scene, const ZtPickCamera& camera,
                            const ZtPickSettings& settings, const ZtPickResult& result);

#endif
