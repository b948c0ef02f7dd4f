#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLPickSweep.h>

#include <ztlinear_detail/ZtLComponentSupport.h>

namespace {
ZtUComponent g_record;
constexpr const char kIdent[] =
    "@(#)$Id: //depot/ztlinear/main/src/lib/ztlinear/ZtLPickSweep.cpp#1 $";
}  // namespace

// Its own record first, then the ZtLMaths it depends on; each transition is paired with its own
// start or stop of the error system.
void ZtLPickSweep::Initialise() {
    if (ztl_detail::StartComponent(g_record, "ZtLPickSweep", kIdent)) ZtLMaths::Initialise();
}

void ZtLPickSweep::Terminate() {
    if (!g_record.Terminate()) return;
    ZtLMaths::Terminate();
    ZtUError::Terminate();
}

int ZtLPickSweep::IsInitialised() { return g_record.IsInitialised(); }

ZtUComponent* ZtLPickSweep::GetComponent() { return &g_record; }
