// SPDX-License-Identifier: MIT
// Any bytes as stored records: a record is refused, and its target kept, or it is read, and written
// as it was.

#include "fuzz.h"

#include <sstream>

#include "common/records.h"

namespace {

using namespace common;

/// What becomes of a record that is read and written: the same bytes, others that then stay the
/// same, or those of a repaired object.
enum Form { kExact, kAsIs, kRepaired };

template <class T, class Read = decltype(restore), class Write = decltype(save)>
void check(std::string const &bytes, Form form = kExact, Read read = restore, Write write = save) {
    auto const stored = [&](T &object) {
        std::stringstream stream;
        su_CArchive ar(stream);
        write(ar, object);
        return stream.str();
    };
    T object, again;
    std::string const before = stored(object);
    std::stringstream stream(bytes);
    su_CArchive ar(stream);
    try {
        read(ar, object);
    } catch (su_CArchiveError const &) {
        return CHECK(stored(object) == before);
    }
    std::string const once = stored(object);
    CHECK(form != kExact || once == bytes.substr(0, static_cast<std::size_t>(stream.tellg())));
    stream.str(once);
    read(ar, again); // throws when too little was written
    CHECK(form == kRepaired || stored(again) == once);
}

} // namespace

void fuzz(Input &in) {
    std::string const bytes = in.rest();
    check<P>(bytes), check<P>(bytes, kExact, get, put), check<P>(bytes, kExact, restore2D, save2D);
    check<V>(bytes, kExact, restore, writeXyz), check<U>(bytes, kExact, restore, writeXyz);
    check<mg2DPoint_c>(bytes, kExact, restore, writeUv);
    check<mgLine_c>(bytes), check<mgPlane_c>(bytes), check<mgBBox_c>(bytes);
    check<mgPerspInfo_c>(bytes), check<mgModelPerspInfo_c>(bytes), check<mgCone_c>(bytes);
    check<mgCylinder_c>(bytes), check<mgPrimitiveBodyData_c>(bytes);
    check<mgMatrix_c>(bytes, kRepaired), check<mgMatrix_c>(bytes, kExact, restoreAsIs);
    check<mgXform_c>(bytes, kRepaired), check<mgXform_c>(bytes, kAsIs, restoreAsIs);
    check<mgXform_c>(bytes, kAsIs, get, put);
}
