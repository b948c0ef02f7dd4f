// The whole of ztpick: options, scene, camera, pick, report.
#include "ZtPickMain.h"

#include "ZtPickOptions.h"
#include "ZtPickOutput.h"
#include "ZtPickPick.h"
#include "ZtPickScene.h"

#include <chrono>
#include <cstdio>

namespace {

bool WriteFile(const std::string& path, const std::string& text) {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) return false;
    const bool written = std::fwrite(text.data(), 1, text.size(), f) == text.size();
    return std::fclose(f) == 0 && written;
}

}  // namespace

int ZtPickMain(const std::vector<std::string>& args, std::string* out, std::string* err) {
    ZtPickOptions options;
    std::string error;
    if (!ZtPickParseOptions(args, &options, &error)) {
        *err += "ztpick: " + error + "\n" + ZtPickUsage();
        return 2;
    }
    if (options.help) {
        *out += ZtPickUsage();
        return 0;
    }

    const auto start = std::chrono::steady_clock::now();
    ZtPickScene scene;
    ZtPickSceneInfo info;
    if (options.files.empty()) {
        scene = ZtPickBuildBuiltinScene();
        info.source = "built-in scene";
    } else {
        for (const std::string& file : options.files) {
            if (!ZtPickLoadObj(file, &scene, &error)) {
                *err += "ztpick: " + error + "\n";
                return 2;
            }
            info.source += (info.source.empty() ? "" : ", ") + file;
        }
        scene.Finish();
    }
    if (!scene.bounds.GetSize().IsFinite()) {
        *err += "ztpick: the scene is too large to view (its extent is not a finite number)\n";
        return 2;
    }
    info.buildSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    ZtPickCamera camera =
        ZtPickFrameScene(scene.bounds, options.width, options.height, options.fovy, options.ortho);
    if (options.hasEye) {
        camera.eye = options.eye;
        camera.target = options.hasTarget ? options.target : scene.bounds.GetCenter();
    } else if (options.hasTarget) {
        // Keep the framing distance and direction, looking at the given point.
        camera.eye = options.target + (camera.eye - camera.target);
        camera.target = options.target;
    }
    camera.up = options.up;
    if (!camera.Setup(scene.bounds, &error)) {
        *err += "ztpick: " + error + "\n" + ZtPickUsage();
        return 2;
    }

    ZtPickSettings settings;
    settings.x = options.hasAt ? options.atX : 0.5 * options.width;
    settings.y = options.hasAt ? options.atY : 0.5 * options.height;
    settings.aperture = options.aperture;
    settings.snap = options.snap;
    settings.centreLine = options.centreLine;
    settings.cullBackFaces = options.cullBackFaces;
    settings.useCulling = !options.noCull;
    const ZtPickResult result = ZtPickRun(scene, camera, settings);

    *out += options.json ? ZtPickFormatJson(scene, info, camera, settings, result)
                         : ZtPickFormatText(scene, info, camera, settings, result);
    if (!options.svg.empty()) {
        if (!WriteFile(options.svg, ZtPickFormatSvg(scene, camera, settings, result))) {
            *err += "ztpick: " + options.svg + ": cannot write the picture\n";
            return 2;
        }
        if (!options.json) *out += "picture: " + options.svg + "\n";
    }
    return result.hit.hit ? 0 : 1;
}
