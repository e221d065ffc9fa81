// SPDX-License-Identifier: MIT
// Any bytes as stored records: they are read or refused, and what was read can be written again.

#include <vexmath/bbox.h>
#include <vexmath/cone.h>
#include <vexmath/matrix.h>
#include <vexmath/persp_info.h>
#include <vexmath/point.h>
#include <vexmath/primitive_body_data.h>
#include <vexmath/xform.h>

#include <vexmath_platform/archive.h>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
    std::stringstream stream(std::string(reinterpret_cast<char const *>(data), size));
    su_CArchive in(stream);
    std::stringstream copy;
    su_CArchive out(copy);

    mgPoint_c point;
    mgMatrix_c matrix;
    mgXform_c xform;
    mgBBox_c box;
    mgPerspInfo_c perspective;
    mgCone_c cone;
    mgPrimitiveBodyData_c body;
    try {
        in >> point;
        matrix.restore(in);
        xform.restore(in);
        box.restore(in);
        perspective.restore(in);
        cone.restore(in);
        body.restore(in);
        in >> xform;
    } catch (su_CArchiveError const &) {
        // The bytes ran out: what was read so far is written all the same.
    }
    out << point;
    matrix.save(out);
    xform.save(out);
    box.save(out);
    perspective.save(out);
    cone.save(out);
    body.save(out);
    out << xform;
    return 0;
}
