#ifndef ZTLINEAR_ZTLINEAR_H
#define ZTLINEAR_ZTLINEAR_H

// Every public header of the ztlinear library.
#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBaseVec4f.h>
#include <ztlinear/ZtLBoEventPoint.h>
#include <ztlinear/ZtLBoPointList.h>
#include <ztlinear/ZtLBoSegment2f.h>
#include <ztlinear/ZtLColor3f.h>
#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLFunction.h>
#include <ztlinear/ZtLFunction2d.h>
#include <ztlinear/ZtLHVec2f.h>
#include <ztlinear/ZtLHVec3f.h>
#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLNewellMethod2f.h>
#include <ztlinear/ZtLNewellMethod3f.h>
#include <ztlinear/ZtLPick.h>
#include <ztlinear/ZtLPickSweep.h>
#include <ztlinear/ZtLPos2fList.h>
#include <ztlinear/ZtLPos3fList.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLTwoVarFunction.h>
#include <ztlinear/ZtLVec.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztlinear/ZtLVersion.h>

#endif
