// ztpick: picks the nearest triangle under a pixel, as an interactive 3D program does on a
// mouse click. See ZtPickMain.h and ztpick --help.
#include "ZtPickMain.h"

#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLPick.h>

#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    ZtLMaths::Initialise();
    ZtLMatrix::Initialise();
    ZtLPick::Initialise();

    const std::vector<std::string> args(argv + 1, argv + argc);
    std::string out;
    std::string err;
    const int status = ZtPickMain(args, &out, &err);
    std::fputs(out.c_str(), stdout);
    std::fflush(stdout);
    std::fputs(err.c_str(), stderr);

    ZtLPick::Terminate();
    ZtLMatrix::Terminate();
    ZtLMaths::Terminate();
    return status;
}
