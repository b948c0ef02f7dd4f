#ifndef ZTLINEAR_ZTLINEAR_H
#define ZTLINEAR_ZTLINEAR_H

// Every public header of the ztlinear library.
#include <ztlinear/ZtLAffine2f.h>
#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLBaseVec4f.h>
#include <ztlinear/ZtLBoEventPoint.h>
#include <ztlinear/ZtLBoPointList.h>
#include <ztlinear/ZtLBoSegment2f.h>
#include <ztlinear/ZtLBox2f.h>
#include <ztlinear/ZtLBox3f.h>
#include <ztlinear/ZtLColor3f.h>
#include <ztlinear/ZtLComponentAffine3f.h>
#include <ztlinear/ZtLExport.h>
#include <ztlinear/ZtLFrustum3f.h>
#include <ztlinear/ZtLFunction.h>
#include <ztlinear/ZtLFunction2d.h>
#include <ztlinear/ZtLHVec2f.h>
#include <ztlinear/ZtLHVec3f.h>
#include <ztlinear/ZtLIntersect.h>
#include <ztlinear/ZtLInterval.h>
#include <ztlinear/ZtLLine3f.h>
#include <ztlinear/ZtLMaths.h>
#include <ztlinear/ZtLMatrix.h>
#include <ztlinear/ZtLMatrix2f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLNewellMethod2f.h>
#include <ztlinear/ZtLNewellMethod3f.h>
#include <ztlinear/ZtLPick.h>
#include <ztlinear/ZtLPickFrustum3f.h>
#include <ztlinear/ZtLPickSweep.h>
#include <ztlinear/ZtLPlane2f.h>
#include <ztlinear/ZtLPlane3f.h>
#include <ztlinear/ZtLPos2fList.h>
#include <ztlinear/ZtLPos3fList.h>
#include <ztlinear/ZtLRotation2f.h>
#include <ztlinear/ZtLRotation3f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLTwoVarFunction.h>
#include <ztlinear/ZtLVec.h>
#include <ztlinear/ZtLVec2f.h>
#include <ztlinear/ZtLVec3f.h>
#include <ztlinear/ZtLVersion.h>
#include <ztlinear/ZtLViewCriteria.h>

#endif
