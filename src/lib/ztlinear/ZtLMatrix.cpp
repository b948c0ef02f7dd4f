#include <ztlinear/ZtLMatrix.h>

#include <ztlinear_detail/ZtLComponentSupport.h>

namespace {
ZtUComponent g_record;
constexpr const char kIdent[] = "@(#)$Id: //depot/ztlinear/main/src/lib/ztlinear/ZtLMatrix.cpp#1 $";
}  // namespace

void ZtLMatrix::Initialise() { ztl_detail::StartComponent(g_record, "ZtLMatrix", kIdent); }

void ZtLMatrix::Terminate() { ztl_detail::StopComponent(g_record); }

int ZtLMatrix::IsInitialised() { return g_record.IsInitialised(); }

ZtUComponent* ZtLMatrix::GetComponent() { return &g_record; }
