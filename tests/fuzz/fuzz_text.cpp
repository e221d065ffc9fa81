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
    std::wstring given;
    for (char const byte : in.rest()) {
        auto const c = static_cast<unsigned char>(byte);
        given += in.isTame() ? often[c % (std::size(often) - 1)] : static_cast<wchar_t>(c);
    }
    double numbers[16], gl[16];
    int const count = scan(given.c_str(), numbers);
    mgBBox_c box = oldBox;
    CHECK(box.restoreStringRep(given.c_str()) == (count >= 6 ? 1 : 0));
    CHECK(same(box, count >= 6 ? mgBBox_c(P(numbers), P(numbers + 3)) : oldBox));
    mgXform_c form(oldForm), expected(oldForm);
    CHECK(form.restoreStringRep(given.c_str()) == (count >= 16 ? 1 : 0));
    if (count >= 16) expected = mgXform_c::createFromGLData(numbers);
    CHECK(same(form, expected));
    CString text;
    text.Format(L"%ls|%d", given.c_str(), count);
    CHECK(given.c_str() + (L"|" + std::to_wstring(count)) == static_cast<wchar_t const *>(text));

    // 16 digits give a number back up to its last place; the largest numbers become infinite.
    auto const isNear = [](double a, double b) { return std::fabs(a - b) <= 6e-16 * std::fabs(a); };
    oldBox.saveStringRep(text);
    CHECK(box.restoreStringRep(text) == 1);
    for (int k = 0; k < 3 && in.isTame(); ++k)
        CHECK(isNear(oldBox.low()[k], box.low()[k]) && isNear(oldBox.high()[k], box.high()[k]));
    oldForm.getGLData(gl);
    oldForm.saveStringRep(text);
    CHECK(scan(text, numbers) == 16);
    for (int k = 0; k < 16 && in.isTame(); ++k) CHECK(isNear(gl[k], numbers[k]));
}
