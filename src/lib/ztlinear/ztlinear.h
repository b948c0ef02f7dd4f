#ifndef ZTLINEAR_ZTLINEAR_H
#define ZTLINEAR_ZTLINEAR_H

// Every public header of the ztlinear library.
#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLFunction.h>
#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLPick.h>
#include <ztlinear/ZtLPickSweep.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTwoVarFunction.h>
#include <ztlinear/ZtLVec.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztlinear/ZtLVersion.h>

#endif
