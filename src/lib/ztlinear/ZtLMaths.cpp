#include <ztlinear/ZtLMaths.h>

#include "detail/ZtLComponentSupport.h"

namespace {
ZtUComponent g_record;
constexpr const char kIdent[] = "@(#)$Id: //depot/ztlinear/main/src/lib/ztlinear/ZtLMaths.cpp#1 $";
}  // namespace

void ZtLMaths::Initialise() { ztl_detail::StartComponent(g_record, "ZtLMaths", kIdent); }

void ZtLMaths::Terminate() { ztl_detail::StopComponent(g_record); }

int ZtLMaths::IsInitialised() { return g_record.IsInitialised(); }

ZtUComponent* ZtLMaths::GetComponent() { return &g_record; }
