// SPDX-License-Identifier: MIT
// Any bytes as stored records: they are read or refused, and what was read can be written again.

#include <vexmath/vexmath.h>

#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size) {
    std::stringstream stream(std::string(reinterpret_cast<char const *>(data), size)), copy;
    su_CArchive in(stream), out(copy);
    mgPoint_c point;
    mgMatrix_c matrix;
    mgXform_c xform;
    mgBBox_c box;
    mgPerspInfo_c perspective;
    mgCone_c cone;
    mgPrimitiveBodyData_c body;
    auto const restoreAll = [&in](auto &...records) { (records.restore(in), ...); };
    auto const saveAll = [&out](auto &...records) { (records.save(out), ...); };
    try {
        in >> point;
        restoreAll(matrix, xform, box, perspective, cone, body);
        in >> xform;
    } catch (su_CArchiveError const &) {
        // The bytes ran out: what was read so far is written all the same.
    }
    out << point;
    saveAll(matrix, xform, box, perspective, cone, body);
    out << xform;
    return 0;
}
