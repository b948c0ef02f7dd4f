// ztpick: initialises the library's components and reports the library's version and the
// process-wide tolerances.
#include <ztlinear/ztlinear.h>
#include <ztutil/ztutil.h>

#include <cstdio>

int main() {
    ZtLMaths::Initialise();
    ZtLMatrix::Initialise();
    ZtLPick::Initialise();
    ZtLPickSweep::Initialise();

    std::printf("ztlinear %s\n", ZTL_VERSION_STRING);
    std::printf("tolerances: resabs %g, resnor %g, resop %g\n", ZtLVec::GetResabs(),
                ZtLVec::GetResnor(), ZtLVec::GetResop());

    ZtLPickSweep::Terminate();
    ZtLPick::Terminate();
    ZtLMatrix::Terminate();
    ZtLMaths::Terminate();
    return 0;
}
