// Uses the installed ztlinear package: starts the maths component and checks that it is up.
#include <ztlinear/ztlinear.h>
#include <ztutil/ztutil.h>

#include <cstdio>

int main() {
    ZtLMaths::Initialise();
    const int up = ZtLMaths::IsInitialised();
    std::printf("ztlinear %s: ZtLMaths %s\n", ZTL_VERSION_STRING, up ? "initialised" : "NOT initialised");
    ZtLMaths::Terminate();
    return up && !ZtLMaths::IsInitialised() ? 0 : 1;
}
