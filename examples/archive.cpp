// SPDX-License-Identifier: MIT
// Archive: store boxes and transforms through the caller's stream, and read them back.

#include <cstdio>
#include <sstream>

#include <vexmath/bbox.h>
#include <vexmath/mg_transform.h>

#include <vexmath_platform/archive.h>

namespace {

void write(std::iostream &stream) {
    su_CArchive archive(stream);
    mgBBox_c const box(mgPoint_c(0, 0, 0), mgPoint_c(10, 20, 30));
    mgXform_c placement = mg_XReflectionXform() * mg_TranslateXform(mgVector_c(5, 0, 0));

    // Records hold numbers alone: no tag, no length, no version. The caller writes those.
    archive << 1; // version of this layout
    box.save(archive);
    placement.save(archive); // the record: without the mirror flag
    archive << placement;    // the raw form: with the mirror flag
}

void read(std::iostream &stream) {
    su_CArchive archive(stream);
    int version = 0;
    mgBBox_c box;
    mgXform_c fromRecord; // restore into a fresh transform
    mgXform_c fromRawForm;
    archive >> version;
    box.restore(archive);
    fromRecord.restore(archive);
    archive >> fromRawForm;
    std::printf("version %d, box to (%g, %g, %g)\n", version, box.high().x(), box.high().y(),
                box.high().z());
    std::printf("mirror flag from the record %d, from the raw form %d\n", fromRecord.isReflection(),
                fromRawForm.isReflection());
}

} // namespace

int main() {
    std::stringstream stream;
    write(stream);
    std::printf("%zu bytes\n", stream.str().size());
    read(stream);

    // A stream that ends too early throws. What was being read keeps its value.
    std::stringstream cutShort(stream.str().substr(0, 40));
    try {
        read(cutShort);
    } catch (su_CArchiveError const &error) {
        std::printf("cut short: %s\n", error.what());
    }
}
