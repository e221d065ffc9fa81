// SPDX-License-Identifier: MIT
// mgPerspInfo_c: the perspective of a view transform; mgModelPerspInfo_c: the same with a view
// direction in model space.

#ifndef VEXMATH_PERSP_INFO_H
#define VEXMATH_PERSP_INFO_H

#include <vexmath/point.h>
#include <vexmath/unit_vector.h>

#include <vexmath_platform/archive.h>

/// The perspective record of a view transform, in screen space: the image of the view's rotation,
/// scale and translation. The eye looks along +z, so visible points have a z above the eye's.
///
/// Four members: the eye point; the plane distance, at which the near clip plane lies in front of
/// the eye; the minimum distance of the far clip plane; and the distance of the camera's
/// field-of-view plane. The sign of the last classifies the record: negative or NaN is no camera
/// (the default, -1), exactly 0 an orthographic camera, positive a perspective camera. Distances
/// are in screen units; none is checked. REQUIRES that no pointer given is null.
///
/// The class has one virtual operation and, on purpose, no virtual destructor: destroy a derived
/// record through its own type.
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
    /// The distance that the division uses: that of the field-of-view plane when it is positive,
    /// otherwise the plane distance.
    double getIsoPlaneDistance() const {
        return isPerspCamera() ? fovPlaneDistance_ : planeDistance_;
    }
    /// z of the near clip plane: the plane distance plus the eye's z.
    double getNearClipZ() const { return planeDistance_ + eye_.z(); }
    void getEyePoint(mgPoint_c *eye) const { *eye = eye_; }
    void setEyePoint(mgPoint_c const *eye) { eye_ = *eye; }

    /// The point at the plane distance in front of the eye.
    virtual void getFocusPoint(mgPoint_c *focus) const;

    /// True when all four members are exactly equal; NaN equals nothing.
    bool operator==(mgPerspInfo_c const &other) const;

    /// Moves x and y of p to eye + (p - eye) * k, where k is the iso plane distance over the depth
    /// p.z - eye.z; z stays. Does nothing for an orthographic camera. A record that is no camera
    /// divides too, by the plane distance; when that is 0, x and y become the eye's. A depth below
    /// 1e-08 in absolute value becomes 1e-08, or -1e-08 when p.z < eye.z. A point behind the eye is
    /// mirrored at the eye.
    void doScreenPointPerspectiveDivision(mgPoint_c &p) const;
    /// The inverse, with k the depth over the iso plane distance. A small depth is not replaced; at
    /// depth 0, x and y become the eye's. An iso plane distance of 0 is not detected and makes x
    /// and y infinite or NaN. Does nothing for an orthographic camera.
    void doScreenPointInversePerspectiveDivision(mgPoint_c &p) const;
    /// Sets z of p to the near clip plane's. For a perspective camera x and y become
    /// eye + (p - eye) * k with k = plane distance / field-of-view plane distance: p moves along
    /// its line of sight as if it were on the field-of-view plane.
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

/// A perspective record that also knows the view direction in model space. `==` is the base's and
/// ignores the direction.
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
