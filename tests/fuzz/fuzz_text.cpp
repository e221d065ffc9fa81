// SPDX-License-Identifier: MIT
// Any text as a box or a transform, and any box or transform as text.

#include "fuzz.h"

#include <cwchar>

namespace {

/// Reads up to 16 numbers, one at a time; returns how many there are.
int scan(wchar_t const *text, double *numbers) {
    int count = 0, length = 0;
    for (; count < 16 && std::swscanf(text, L"%lf%n", numbers + count, &length) == 1; ++count)
        text += length;
    return count;
}

} // namespace

void fuzz(Input &in) {
    mgBBox_c const oldBox = in.box();
    mgXform_c const oldForm(in.placement());
    wchar_t const often[] = L"0123456789  .-+eExXpP,naifINF\t\n";
    std::wstring text;
    for (unsigned char const c : in.rest())
        text += in.isTame() ? often[c % (std::size(often) - 1)] : static_cast<wchar_t>(c);
    double numbers[16], gl[16];
    int const count = scan(text.c_str(), numbers);
    mgBBox_c box = oldBox;
    CHECK(box.restoreStringRep(text.c_str()) == (count >= 6 ? 1 : 0));
    CHECK(same(box, count >= 6 ? mgBBox_c(P(numbers), P(numbers + 3)) : oldBox));
    mgXform_c form(oldForm), expected(oldForm);
    CHECK(form.restoreStringRep(text.c_str()) == (count >= 16 ? 1 : 0));
    if (count >= 16) expected = mgXform_c::createFromGLData(numbers);
    CHECK(same(form, expected));
    CString once, again;
    once.Format(L"%ls|%d", text.c_str(), count);
    CHECK((text.c_str() + (L"|" + std::to_wstring(count))) == static_cast<wchar_t const *>(once));

    // 16 digits give a number back up to its last place, and the same digits again. The largest
    // numbers are read back as infinite.
    oldBox.saveStringRep(once);
    CHECK(box.restoreStringRep(once) == 1);
    box.saveStringRep(again);
    CHECK(!in.isTame() || std::wcscmp(once, again) == 0);
    oldForm.getGLData(gl);
    oldForm.saveStringRep(once);
    CHECK(scan(once, numbers) == 16);
    for (int k = 0; k < 16 && in.isTame(); ++k)
        CHECK(std::fabs(numbers[k] - gl[k]) <= 6e-16 * std::fabs(gl[k]));
}
