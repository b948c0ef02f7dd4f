#include <ztlinear/ZtLPick.h>

#include <ztlinear_detail/ZtLComponentSupport.h>

namespace {
ZtUComponent g_record;
constexpr const char kIdent[] = "@(#)$Id: //depot/ztlinear/main/src/lib/ztlinear/ZtLPick.cpp#1 $";
}  // namespace

void ZtLPick::Initialise() { ztl_detail::StartComponent(g_record, "ZtLPick", kIdent); }

void ZtLPick::Terminate() { ztl_detail::StopComponent(g_record); }

int ZtLPick::IsInitialised() { return g_record.IsInitialised(); }

ZtUComponent* ZtLPick::GetComponent() { return &g_record; }
