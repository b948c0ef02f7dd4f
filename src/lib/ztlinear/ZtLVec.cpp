#include <ztlinear/ZtLVec.h>

double ZtLVec::m_resabs = 1e-06;
double ZtLVec::m_resnor = 1e-12;
double ZtLVec::m_resop = 1e-10;
