// A client of the installed ztlinear package: starts the components and does one pick, the way
// an interactive program does on a mouse click: the view's frustum narrowed to a few pixels
// round the cursor, the pick volume moved into a model's space, the model's box culled or kept,
// and the nearest point of a triangle found.
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLPickFrustum3f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ztlinear.h>
#include <ztutil/ztutil.h>

#include <cstdio>

int main() {
    ZtLMaths::Initialise();
    ZtLMatrix::Initialise();
    ZtLPick::Initialise();
    std::printf("ztlinear %s: ZtLMaths %s\n", ZTL_VERSION_STRING,
                ZtLMaths::IsInitialised() ? "initialised" : "NOT initialised");

    // The camera: 60 degrees of vertical field of view on an 800x600 viewport, looking along
    // -z from (0, 0, 10).
    const double pi = 3.14159265358979323846;
    ZtLFrustum3f view(60.0 * pi / 180.0, 800.0 / 600.0, 1.0, 100.0);
    view.Translate(ZtLVec3f(0.0, 0.0, 10.0));
    // The pick window: 5x5 pixels round pixel (400, 300), in fractions of the viewport from its
    // bottom-left corner.
    view.Narrow(397.5 / 800.0, 402.5 / 800.0, 297.5 / 600.0, 302.5 / 600.0);
    const ZtLPickFrustum3f world(view);

    // A model: one triangle in its own space, turned about y and moved (model to world; points
    // are row vectors on the left, so the rotation applies first).
    const ZtLPos3f a(-2.0, -2.0, 0.0), b(2.0, -2.0, 0.0), c(0.0, 2.0, 0.0);
    const ZtLTransform3f model(ZtLRotation3f(ZtLUnitVec3f(0.0, 1.0, 0.0), 0.5),
                               ZtLVec3f(0.5, 0.0, -1.0));
    ZtLBox3f bounds;
    bounds.ExtendBy(a);
    bounds.ExtendBy(b);
    bounds.ExtendBy(c);

    // The pick volume in model space: moved by the inverse of the model transform.
    ZtLPickFrustum3f local(world);
    local.Transform(model.Inverse(), model);
    int planes = 0x3f;
    int hit = 0;
    if (!local.CanCull(bounds, &planes)) {
        ZtLPickFrustumContext3f context(0, planes,
                                        ZtLPickEnum::WritePosition | ZtLPickEnum::WriteDistance);
        hit = local.FindNearest(&context, a, b, c);
        if (hit) {
            const ZtLPos3f p = context.position * model;
            std::printf("pick: hit at (%.4f, %.4f, %.4f), %.4f beyond the near plane\n", p[0], p[1],
                        p[2], context.distance);
        }
    }
    if (!hit) std::printf("pick: no hit\n");

    ZtLPick::Terminate();
    ZtLMatrix::Terminate();
    ZtLMaths::Terminate();
    return hit && !ZtLMaths::IsInitialised() ? 0 : 1;
}
