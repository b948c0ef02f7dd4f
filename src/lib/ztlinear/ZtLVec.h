#ifndef ZTLINEAR_ZTLVEC_H
#define ZTLINEAR_ZTLVEC_H

#include <ztlinear/ZtLExport.h>

// The empty root of the vector family, holding the three process-wide tolerances.
//
// - resabs (default 1e-06): absolute resolution of coordinates and lengths; two coordinates
//   closer than this are the same point.
// - resnor (default 1e-12): resolution of normals, determinants and denominators; a cross
//   product, determinant or normal length below it counts as zero.
// - resop (default 1e-10): resolution of operations on unit quantities; dot products within it of
//   1 or -1 count as parallel or anti-parallel.
//
// The operations that use them read them at each call. They are plain globals with no lock: set
// them before concurrent use. The setters store the value as given, without any check.
class ZTL_EXPORT ZtLVec {
public:
    static double GetResabs() noexcept { return m_resabs; }
    static double GetResnor() noexcept { return m_resnor; }
    static double GetResop() noexcept { return m_resop; }
    static void SetResabs(double value) noexcept { m_resabs = value; }
    static void SetResnor(double value) noexcept { m_resnor = value; }
    static void SetResop(double value) noexcept { m_resop = value; }

    static double m_resabs;
    static double m_resnor;
    static double m_resop;

protected:
    ZtLVec() = default;
};

#endif
