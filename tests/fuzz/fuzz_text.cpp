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

std::wstring textFrom(Input &in) {
    wchar_t const often[] = L"0123456789  .-+eExXpP,naifINF\t\n";
    bool const isTame = in.isTame();
    std::wstring text;
    for (char const c : in.rest()) {
        auto const code = static_cast<unsigned char>(c);
        text += isTame ? often[code % (std::size(often) - 1)] : static_cast<wchar_t>(code);
    }
    return text;
}

} // namespace

void fuzzOne(Input &in) {
    mgBBox_c const oldBox = in.box();
    mgXform_c const oldForm = in.placement();

    std::wstring const text = textFrom(in);
    double numbers[16];
    int const count = scan(text.c_str(), numbers);
    mgBBox_c box = oldBox;
    CHECK(box.restoreStringRep(text.c_str()) == (count >= 6 ? 1 : 0));
    CHECK(same(box, count >= 6 ? mgBBox_c(P(numbers), P(numbers + 3)) : oldBox));
    mgXform_c form(oldForm), expected(oldForm);
    CHECK(form.restoreStringRep(text.c_str()) == (count >= 16 ? 1 : 0));
    if (count >= 16) expected = mgXform_c::createFromGLData(numbers);
    CHECK(same(form, expected));
    CString formatted(L"old");
    formatted.Format(L"%ls|%d", text.c_str(), count);
    CHECK(std::wcscmp(formatted, (text.c_str() + (L"|" + std::to_wstring(count))).c_str()) == 0);

    // 16 digits give the number back up to its last place, and then the same digits again.
    CString once, again;
    oldBox.saveStringRep(once);
    CHECK(box.restoreStringRep(once) == 1);
    box.saveStringRep(again);
    if (in.isTame()) CHECK(std::wcscmp(once, again) == 0);
    double gl[16];
    oldForm.getGLData(gl);
    oldForm.saveStringRep(once);
    CHECK(scan(once, numbers) == 16);
    for (int k = 0; k < 16; ++k)
        CHECK(!in.isTame() || std::fabs(numbers[k] - gl[k]) <= 6e-16 * std::fabs(gl[k]));
}
