// SPDX-License-Identifier: MIT
// Other forms of transforms: graphics arrays and text.

#include <vexmath/mg_transform.h>
#include <vexmath/xform.h>

#include <cwchar>

void mgXform_c::getGLData(double *gl) const {
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) gl[4 * i + j] = scale_ * rotation_(i, j);
        gl[4 * i + 3] = 0.0;
    }
    translation_.get(gl + 12);
    gl[15] = 1.0;
}

void mgXform_c::getGLData(float *gl) const {
    double wide[16];
    getGLData(wide);
    for (int k = 0; k < 16; ++k) gl[k] = static_cast<float>(wide[k]);
}

mgXform_c mgXform_c::createFromGLData(double const *gl) {
    auto const row = [gl](int i) { return mgUnitVector_c(mgVector_c(gl + 4 * i), 0); };
    // QUIRK: xform.h, mgXform_c::createFromGLData, mgXform_c::restoreStringRep: the scale is not
    // taken from the lengths of the rows and becomes 1. Expected: the inverse of getGLData and
    // saveStringRep. Kept: callers and stored data depend on it.
    // (test: TheScaleOfAnArrayIsNotReadBack)
    return mg_RestoreXform(mgMatrix_c(row(0), row(1), row(2)), mgVector_c(gl + 12), 1.0);
}

void mgXform_c::saveStringRep(CString &s) const {
    double gl[16];
    getGLData(gl);
    s.Format(L"%.16g %.16g %.16g %.16g %.16g %.16g %.16g %.16g "
             L"%.16g %.16g %.16g %.16g %.16g %.16g %.16g %.16g",
             gl[0], gl[1], gl[2], gl[3], gl[4], gl[5], gl[6], gl[7], gl[8], gl[9], gl[10], gl[11],
             gl[12], gl[13], gl[14], gl[15]);
}

int mgXform_c::restoreStringRep(CString const &s) {
    double gl[16];
    int const read =
        std::swscanf(static_cast<wchar_t const *>(s),
                     L"%lf %lf %lf %lf %lf %lf %lf %lf "
                     L"%lf %lf %lf %lf %lf %lf %lf %lf",
                     &gl[0], &gl[1], &gl[2], &gl[3], &gl[4], &gl[5], &gl[6], &gl[7], &gl[8], &gl[9],
                     &gl[10], &gl[11], &gl[12], &gl[13], &gl[14], &gl[15]);
    if (read != 16) return 0;
    *this = createFromGLData(gl);
    return 1;
}
