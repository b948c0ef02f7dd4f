#include <ztlinear/ZtLAffine3f.h>
#include <ztlinear/ZtLMatrix3f.h>
#include <ztlinear/ZtLMatrix4f.h>
#include <ztlinear/ZtLTransform3f.h>
#include <ztlinear/ZtLViewCriteria.h>

void ZtLViewCriteria::Rotate(const ZtLMatrix3f& m) noexcept {
    m_position = m_position * m;
    m_viewDir.SetAndNormalize(m_viewDir.Vec() * m);
    m_upVector.SetAndNormalize(m_upVector.Vec() * m);
}

void ZtLViewCriteria::Transform(const ZtLAffine3f& a) noexcept {
    m_position = m_position * a;
    m_viewDir.SetAndNormalize(m_viewDir.Vec() * a);
    m_upVector.SetAndNormalize(m_upVector.Vec() * a);
}

void ZtLViewCriteria::Transform(const ZtLMatrix4f& m) noexcept {
    m_position = m_position * m;
    // A transform holding a 4x4 matrix maps free vectors by its upper 3x3 block: no translation
    // and no division.
    m_viewDir.SetAndNormalize(m.multVecAffineMatrix(m_viewDir.Vec()));
    m_upVector.SetAndNormalize(m.multVecAffineMatrix(m_upVector.Vec()));
}

void ZtLViewCriteria::Transform(const ZtLTransform3f& t) noexcept {
    m_position = m_position * t;
    m_viewDir.SetAndNormalize(m_viewDir.Vec() * t);
    m_upVector.SetAndNormalize(m_upVector.Vec() * t);
}
