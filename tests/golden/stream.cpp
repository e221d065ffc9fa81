// SPDX-License-Identifier: MIT
// The arguments of the golden program, the numbers of its results, and its tables of rows.

#include "golden/golden.h"

namespace golden {

double Stream::next() {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double sizes[] = {1.0, 1.0, 100.0, 1e-9, 1e7};
    constexpr double hostile[] = {0.0,   -0.0,  5e-324, 1e-300, 1e-17,    1e-8,      -1e-8,
                                  1e155, 1e308, -1e308, 3e9,    infinity, -infinity, nan};
    double const unit = generator_.unit();
    switch (numbers_) {
    case Numbers::wide:
        return (unit - 0.5) * sizes[(generator_.step() >> 33) % 5];
    case Numbers::ordinary:
        return (unit - 0.5) * 20.0;
    case Numbers::lattice:
        return below(5) - 2 + (below(8) == 0 ? (unit - 0.5) * 4e-8 : 0.0);
    case Numbers::hostile:
        return below(3) == 0 ? hostile[below(14)] : below(5) - 2;
    case Numbers::tame:
        break;
    }
    return (below(2) == 0 ? 1.0 : -1.0) * (0.5 + 1.5 * unit);
}

void Stream::fill(mgMatrix_c &m) {
    double numbers[9];
    fill(numbers);
    m = below(2) == 0 || numbers_ == Numbers::tame ? placement().rotation()
                                                   : mgMatrix_c(numbers, 0);
}

void Stream::fill(mgMatrix4_c &m) {
    mgVector_c const origin = vector(), x = vector(), y = vector();
    m = mgMatrix4_c::rigidTransform(origin, x, y);
    if (below(2) == 0 && numbers_ != Numbers::tame)
        for (int k = 0; k < 16; ++k) fill(m.getDataPtr()[k]);
}

// Hostile fields are those of a transform that was not copied, since a copy repairs them.
void Stream::fill(mgXform_c &x) {
    x = placement();
    if (numbers_ == Numbers::hostile) {
        mgXform_64BitHelper_c fields;
        fill(fields);
        x.SetHelper(fields);
    }
    if (below(4) != 0 || numbers_ == Numbers::tame) return;
    mgPerspInfo_c info;
    fill(info);
    x.addPerspectiveInfo(info);
}

void Stream::fill(mgPerspInfo_c &info) {
    info = mgPerspInfo_c{next(), next(), next(), next()};
    info.setMinFarClipPlaneDistance(next());
    info.setCameraFOVPlaneDistance(below(3) == 0 ? 0.0 : next());
}

void Stream::fill(mgGenXform_c &x) {
    mgXform_c placing, body;
    double scales[3];
    each(placing, body, scales);
    x = mgGenXform_c(placing);
    x.set(&body, scales);
}

void Stream::fill(mgArc_c &arc) {
    mgPoint_c const centre = point(), start = point(), end = point();
    mgUnitVector_c const normal = direction();
    double const radius = next(), from = next();
    arc = below(2) == 0 ? mgArc_c(normal, centre, start, end)
                        : mgArc_c(normal, centre, radius, from, next());
}

void Stream::fill(ellipseEdgeData &ellipse) {
    each(ellipse.center, ellipse.majorDir, ellipse.minorDir, ellipse.majorRadius,
         ellipse.minorRadius, ellipse.start, ellipse.end);
    mgUnitVector_c const major(ellipse.majorDir), minor(mgVector_c(ellipse.minorDir) * major, 0);
    major.get(ellipse.majorDir), minor.get(ellipse.minorDir);
    ellipse.majorRadius = std::fabs(ellipse.majorRadius);
    ellipse.minorRadius = std::fabs(ellipse.minorRadius);
}

void Bits::takeNumber(double value) {
    if (numbers != nullptr) numbers->push_back(value);
    std::uint64_t word = 0x7FF8000000000000u;
    if (!std::isnan(value)) std::memcpy(&word, &value, sizeof word);
    for (int shift = 0; shift < 64; shift += 8)
        hash_ = (hash_ ^ ((word >> shift) & 0xFF)) * 0x100000001B3u;
}

void Bits::take(mgXform_c const &x) {
    add(x.rotation(), x.translation(), x.scaling(), x.isReflection());
    mgPerspInfo_c info;
    if (x.getPerspectiveInfo(&info)) add(info);
}

void Bits::take(mgGenXform_c const &x) {
    double scales[3];
    x.getScale(scales);
    add(static_cast<mgXform_c const &>(x), x.getBodyXform());
    addAll(scales, 3);
}

void Bits::take(mgPerspInfo_c const &info) {
    mgPoint_c eye;
    info.getEyePoint(&eye);
    add(eye, info.getPlaneDistance(), info.getMinFarClipPlaneDistance(),
        info.getCameraFOVPlaneDistance());
}

void Bits::take(mgArc_c const &arc) {
    mgPoint_c centre, start, end;
    mgUnitVector_c normal;
    arc.getCenter(centre), arc.getStart(start), arc.getEnd(end), arc.getNormal(normal);
    add(centre, start, end, normal, arc.getRadius(), arc.getStartAngleInRadians(),
        arc.getEndAngleInRadians(), arc.is2D(), arc.matrix());
}

// It shows its fields by its extreme points alone.
void Bits::take(mgParallelogram_c const &area) {
    mgPoint_c low, high;
    add(area.isValid(), area.getExtremPts(mgUnitVector_c(1.0, 2.0, 3.0), low, high));
    add(low, high);
}

namespace {

int number(int index) { return index; }
int number(mgIndexPair_c const &pair) { return pair.first * 60 + pair.second; }

/// Adds what a search returns and, of its list, every index.
template <class T, class Find>
void addFound(Bits &out, Find const &find) {
    suDynamicArray<T> list;
    out.add(find(list));
    for (T const &item : list) out.add(number(item));
}

} // namespace

void addClashes(Bits &out, Box const *boxes, X const *placements, int n) {
    using Pair = mgIndexPair_c;
    addFound<Pair>(out, [&](auto &to) { return mg_FindClashes(boxes, n, 1e-8, to); });
    addFound<Pair>(out, [&](auto &to) { return mg_FindClashes(boxes, n, boxes, n, -0.1, to); });
    addFound<Pair>(out, [&](auto &to) { return mg_FindClashes(boxes, placements, n, to); });
}

void addSearches(Bits &out, mgBoxIndex_c const &index, Box const &box, P const &p, U const &dir) {
    Pairs all;
    P hit;
    int const some[] = {3, 7, 3};
    out.add(index.clashes(1e-8, all));
    addFound<mgIndexPair_c>(out, [&](auto &to) { return index.clashesOf(some, 3, 1e-8, to); });
    addFound<int>(out, [&](auto &to) { return index.clashesWith(box, 0.1, to); });
    addFound<int>(out, [&](auto &to) { return index.around(p, 1.0, to); });
    addFound<int>(out, [&](auto &to) { return index.onLine(p, dir, to); });
    out.add(index.firstOnRay(p, dir, &hit), hit);
}

void nameRows(Table &rows, std::string names) {
    for (std::size_t k = 0; k < rows.size(); ++k) {
        std::size_t const end = k + 1 < rows.size() ? names.find(", ") : names.size();
        std::string const name = names.substr(0, end);
        rows[k].name = name[0] == '&' ? name.substr(1) : name;
        names.erase(0, end + 2);
    }
}

Table joined(std::initializer_list<Table> tables) {
    Table all;
    for (Table const &table : tables) all.insert(all.end(), table.begin(), table.end());
    return all;
}

Table trigonometric(std::initializer_list<Table> tables) {
    Table rows = joined(tables);
    for (Row &row : rows) row.isExact = false;
    return rows;
}

Table allRows() { return joined({transformRows(), boundsRows(), queryRows(), supportRows()}); }

} // namespace golden
