// SPDX-License-Identifier: MIT
// mgPerspInfo_c: the perspective of a view transform; mgModelPerspInfo_c: the same with a view
// direction in model space.

#ifndef VEXMATH_PERSP_INFO_H
#define VEXMATH_PERSP_INFO_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>

/// The perspective record of a view transform, in screen space: the space that a point reaches by
/// the view's rotation, scale and translation, and in which the eye looks along +z: what is seen
/// has a z above the eye's.
///
/// Four members: the eye point; the plane distance, at which the near clip plane lies in front of
/// the eye; the minimum distance of the far clip plane; and the distance of the camera's
/// field-of-view plane, whose sign classifies the record: negative no camera (the default, -1),
/// exactly 0 an orthographic camera, positive a perspective camera. Distances are in screen units;
/// none is checked.
///
/// The class has one virtual operation and, on purpose, no virtual destructor: destroy a derived
/// record as what it is.
class VEXMATH_API mgPerspInfo_c {
public:
    mgPerspInfo_c() = default; ///< eye (0, 0, 0), distances 0, no camera
    mgPerspInfo_c(double x, double y, double z, double planeDistance);

    bool isCamera() const { return fovPlaneDistance_ >= 0.0; }
    bool isOrthoCamera() const { return fovPlaneDistance_ == 0.0; }
    bool isPerspCamera() const { return fovPlaneDistance_ > 0.0; }

    double getPlaneDistance() const { return planeDistance_; }
    void setNearClipPlaneDistance(double d) { planeDistance_ = d; } ///< sets the plane distance
    double getMinFarClipPlaneDistance() const { return minFarClipDistance_; }
    void setMinFarClipPlaneDistance(double d) { minFarClipDistance_ = d; }
    double getCameraFOVPlaneDistance() const { return fovPlaneDistance_; }
    void setCameraFOVPlaneDistance(double d) { fovPlaneDistance_ = d; }
    /// The distance that the division uses: of the field-of-view plane when it is positive, else
    /// the plane distance.
    double getIsoPlaneDistance() const {
        return isPerspCamera() ? fovPlaneDistance_ : planeDistance_;
    }
    double getNearClipZ() const { return planeDistance_ + eye_.z(); }
    void getEyePoint(mgPoint_c *eye) const { *eye = eye_; }
    void setEyePoint(mgPoint_c const *eye) { eye_ = *eye; }

    /// The point at the plane distance in front of the eye.
    virtual void getFocusPoint(mgPoint_c *focus) const;

    /// Exact equality of all members.
    bool operator==(mgPerspInfo_c const &other) const;

    /// Pulls p towards the eye in x and y by the iso plane distance over its depth; z stays.
    /// Nothing for an orthographic camera; a record that is no camera divides, by the plane
    /// distance. A depth below 1e-08 counts as 1e-08 on p's side.
    void doScreenPointPerspectiveDivision(mgPoint_c &p) const;
    /// The way back. Does not guard an iso plane distance of 0.
    void doScreenPointInversePerspectiveDivision(mgPoint_c &p) const;
    /// Puts p on the near clip plane; for a perspective camera x and y move along the line of sight
    /// as if p had been on the field-of-view plane.
    void moveScreenPointToNearClipPlane(mgPoint_c &p) const;

    /// Archive record: the eye, then the three distances, six doubles. A failing read leaves the
    /// record as it was.
    void save(su_CArchive &ar) const;
    void restore(su_CArchive &ar);

private:
    void scaleFromEye(mgPoint_c &p, double k) const;

    mgPoint_c eye_;
    double planeDistance_ = 0.0;
    double minFarClipDistance_ = 0.0;
    double fovPlaneDistance_ = -1.0;
};

/// A perspective record that also knows the view direction in model space.
class VEXMATH_API mgModelPerspInfo_c : public mgPerspInfo_c {
public:
    mgModelPerspInfo_c(); ///< as the base record, looking along z
    mgModelPerspInfo_c(double x, double y, double z, double planeDistance);

    mgUnitVector_c const &getModelViewDir() const { return modelViewDir_; }
    void setModelViewDir(mgUnitVector_c const &dir) { modelViewDir_ = dir; }

    /// The point at the plane distance from the eye along the model view direction.
    void getFocusPoint(mgPoint_c *focus) const override;

    /// Archive record: that of the base, then the direction, nine doubles. The direction is not
    /// normalised on reading. A failing read leaves the record as it was.
    void save(su_CArchive &ar) const;
    void restore(su_CArchive &ar);

private:
    mgUnitVector_c modelViewDir_;
};

#endif
