// SPDX-License-Identifier: MIT
// The path of a typical request: move points, bound them, chain placements, test pairs for a clash.

#include <vexmath/bbox.h>
#include <vexmath/bulk.h>
#include <vexmath/mg_matrix.h>
#include <vexmath/mg_transform.h>
#include <vexmath/point.h>
#include <vexmath/xform.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "works.h"

#ifdef VEXMATH_BENCH_EIGEN
#include <Eigen/Geometry>
#endif
#if defined(VEXMATH_BENCH_FCL) && defined(VEXMATH_BENCH_EIGEN)
#include <fcl/math/bv/OBB.h>
#endif
#ifdef VEXMATH_BENCH_GLM
#include <glm/glm.hpp>
#include <glm/gtc/matrix_inverse.hpp>
#include <glm/gtc/matrix_transform.hpp>
#endif
#ifdef VEXMATH_BENCH_IMATH
#include <ImathMatrix.h>
#endif
#ifdef VEXMATH_BENCH_OCC
#include <Bnd_OBB.hxx>
#include <gp_Ax1.hxx>
#include <gp_Dir.hxx>
#include <gp_Pnt.hxx>
#include <gp_Trsf.hxx>
#endif

namespace {

using works::countItems;
using works::Numbers;
using works::Triple;

constexpr std::size_t placementCount = 1000;

template <class Point>
std::vector<Point> verticesAs(std::size_t count) {
    static auto const all =
        works::inputs([](Numbers &random) { return random.triple(100.0); }, 1000000);
    std::vector<Point> points;
    for (std::size_t i = 0; i < count; ++i) points.push_back({all[i].x, all[i].y, all[i].z});
    return points;
}

/// A placement as a user writes it: turned about an axis, scaled, moved.
struct Placement {
    Triple move, axis;
    double angle, scale;
};

/// Made from the same placements for everybody.
template <class Make>
auto placementsAs(Make const &make) {
    return works::inputs(
        [&make](Numbers &random) {
            Triple const move = random.triple(50.0), axis = random.triple(1.0);
            double const angle = random(0.1, 3.0);
            return make({move, axis, angle, random(0.5, 2.0)});
        },
        placementCount);
}

/// Each work on a mesh of a million vertices, and on one that stays in the second cache.
template <class Run>
void addForBothSizes(std::string const &work, char const *who, Run const &run) {
    for (auto const &[suffix, count] : {std::pair("", 1000000), std::pair(" in cache", 10000)}) {
        auto const n = static_cast<std::size_t>(count);
        works::add(work + suffix, who, [run, n](benchmark::State &state) { run(state, n); });
    }
}

/// Points are moved there and back in turn, so that they stay of ordinary size.
template <class Point, class Form>
void addTransform(char const *work, char const *who, Form const &there, Form const &back,
                  void (*moveAll)(std::vector<Point> &, Form const &)) {
    addForBothSizes(work, who, [=](benchmark::State &state, std::size_t count) {
        auto points = verticesAs<Point>(count);
        bool returns = false;
        for (auto _ : state) {
            moveAll(points, returns ? back : there);
            returns = !returns;
            benchmark::ClobberMemory();
        }
        countItems(state, count);
    });
}

template <class Box, class Point, class Bound>
void addBounds(char const *work, char const *who, Bound const &bound) {
    addForBothSizes(work, who, [bound](benchmark::State &state, std::size_t count) {
        auto const points = verticesAs<Point>(count);
        for (auto _ : state) {
            Box box = bound(points);
            benchmark::DoNotOptimize(box);
        }
        countItems(state, count);
    });
}

/// Placements that are multiplied by factors and by their inverses in turn, so that they keep their
/// size.
template <class Form>
struct Products {
    template <class Make, class Invert>
    Products(Make const &make, Invert const &invert)
        : forms(placementsAs(make)), there(forms.rbegin(), forms.rend()) {
        for (Form const &form : there) back.push_back(invert(form));
    }

    std::vector<Form> forms, there, back;
};

/// `multiplyAll` gets the placements, and as many factors.
template <class Make, class Invert, class MultiplyAll>
void addProducts(char const *work, char const *who, Make const &make, Invert const &invert,
                 MultiplyAll const &multiplyAll) {
    works::add(work, who, [=](benchmark::State &state) {
        Products<decltype(make(Placement()))> all(make, invert);
        bool returns = false;
        for (auto _ : state) {
            multiplyAll(all.forms, returns ? all.back : all.there);
            returns = !returns;
            benchmark::ClobberMemory();
        }
        countItems(state, all.forms.size());
    });
}

/// Products of neighbours, as new variables and assigned to one; inverses.
template <class Make, class Compose, class Invert>
void addPlacements(char const *who, Make const &make, Compose const &compose,
                   Invert const &invert) {
    works::add("compose", who, [=](benchmark::State &state) {
        auto const chain = placementsAs(make);
        for (auto _ : state) {
            for (std::size_t i = 1; i < chain.size(); ++i) {
                auto product = compose(chain[i - 1], chain[i]);
                benchmark::DoNotOptimize(product);
            }
        }
        countItems(state, chain.size() - 1);
    });
    works::add("compose and assign", who, [=](benchmark::State &state) {
        auto const chain = placementsAs(make);
        auto product = chain[0];
        for (auto _ : state) {
            for (std::size_t i = 1; i < chain.size(); ++i) {
                product = compose(chain[i - 1], chain[i]);
                benchmark::DoNotOptimize(product);
            }
        }
        countItems(state, chain.size() - 1);
    });
    works::add("inverse", who,
               [=](benchmark::State &state) { works::measure(state, placementsAs(make), invert); });
}

/// The peers' products: each placement by one factor, and by a factor of its own.
template <class Make, class Compose, class Invert>
void addLoops(char const *who, Make const &make, Compose const &compose, Invert const &invert) {
    auto const byOne = [compose](auto &forms, auto const &factors) {
        auto const factor = factors[0];
        for (auto &form : forms) form = compose(form, factor);
    };
    auto const byEach = [compose](auto &forms, auto const &factors) {
        for (std::size_t i = 0; i < forms.size(); ++i) forms[i] = compose(forms[i], factors[i]);
    };
    addProducts("compose array", who, make, invert, byOne);
    addProducts("compose arrays", who, make, invert, byEach);
    addProducts("compose in place", who, make, invert, byEach);
}

/// Boxes of parts, each placed somewhere: the first with the last, and so on.
template <class Make, class Clash>
void addClash(char const *who, Make const &make, Clash const &clash) {
    works::add("placed clash", who, [=](benchmark::State &state) {
        Numbers random;
        auto const placed = placementsAs([&](Placement const &p) {
            double const x = random(1.0, 20.0), y = random(1.0, 20.0);
            return make(p, Triple{x, y, random(1.0, 20.0)});
        });
        using Placed = typename decltype(placed)::value_type;
        std::vector<std::pair<Placed, Placed>> pairs;
        for (std::size_t i = 0; i < placed.size(); ++i)
            pairs.emplace_back(placed[i], placed[placed.size() - 1 - i]);
        works::measure(state, pairs,
                       [&](auto const &pair) { return clash(pair.first, pair.second); });
    });
}

// In each library, loops over points are functions of their own, as with most callers: they know
// nothing about their transform.

__attribute__((noinline)) void moveAll(std::vector<mgPoint_c> &points, mgXform_c const &x) {
    for (mgPoint_c &point : points) point *= x;
}

void moveArray(std::vector<mgPoint_c> &points, mgXform_c const &x) {
    mg_TransformPoints(points.data(), static_cast<int>(points.size()), x);
}

mgXform_c vexmathXform(Placement const &p) {
    mgUnitVector_c const axis(p.axis.x, p.axis.y, p.axis.z);
    mgVector_c const move(p.move.x, p.move.y, p.move.z);
    return mg_RestoreXform(mg_RotationMatrix(p.angle, axis, 0.0), move, p.scale);
}

void addVexmath() {
    mgXform_c const there = placementsAs(vexmathXform)[0], back = there.inverse();
    addTransform("transform points", "vexmath", there, back, moveAll);
    addTransform("transform array", "vexmath", there, back, moveArray);
    addBounds<mgBBox_c, mgPoint_c>("bounds", "vexmath", [](auto const &points) {
        mgBBox_c box;
        for (mgPoint_c const &point : points) box |= point;
        return box;
    });
    addBounds<mgBBox_c, mgPoint_c>("bounds of array", "vexmath", [](auto const &points) {
        mgBBox_c box;
        mg_BoundPoints(points.data(), static_cast<int>(points.size()), box);
        return box;
    });
    auto const invert = [](mgXform_c const &x) { return x.inverse(); };
    addPlacements(
        "vexmath", vexmathXform, [](auto const &a, auto const &b) { return a * b; }, invert);
    addProducts("compose array", "vexmath", vexmathXform, invert, [](auto &forms, auto const &by) {
        mg_MultiplyXforms(forms.data(), static_cast<int>(forms.size()), by[0]);
    });
    addProducts("compose arrays", "vexmath", vexmathXform, invert, [](auto &forms, auto const &by) {
        mg_MultiplyXforms(forms.data(), static_cast<int>(forms.size()), by.data());
    });
    addProducts("compose in place", "vexmath", vexmathXform, invert,
                [](auto &forms, auto const &by) {
                    for (std::size_t i = 0; i < forms.size(); ++i) forms[i] *= by[i];
                });
    addClash(
        "vexmath",
        [](Placement const &p, Triple const &half) {
            mgPoint_c const corner(half.x, half.y, half.z);
            return std::pair(mgBBox_c(mgPoint_c() - corner, corner), vexmathXform(p));
        },
        [](auto const &a, auto const &b) {
            return mgBBox_c::clash(a.first, a.second, b.first, b.second);
        });
}

/// A box and a sphere that trust themselves: what the union costs without its test of validity.
struct UncheckedBounds {
    Triple low, high, centre;
    double radius;

    void add(Triple const &p) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        Triple const v{p.x - centre.x, p.y - centre.y, p.z - centre.z};
        double const sq = v.x * v.x + v.y * v.y + v.z * v.z;
        if (sq <= radius * radius) return;
        double const distance = std::sqrt(sq);
        double const grown = (radius + distance) * 0.5;
        double const step = (grown - radius) / distance;
        centre = {centre.x + v.x * step, centre.y + v.y * step, centre.z + v.z * step};
        radius = grown;
    }
};

void addUnchecked() {
    addBounds<UncheckedBounds, Triple>("bounds", "unchecked", [](auto const &points) {
        UncheckedBounds bounds{points[0], points[0], points[0], 0.0};
        for (Triple const &point : points) bounds.add(point);
        return bounds;
    });
}

#ifdef VEXMATH_BENCH_EIGEN

Eigen::Affine3d eigenAffine(Placement const &p) {
    Eigen::Vector3d const axis = Eigen::Vector3d(p.axis.x, p.axis.y, p.axis.z).normalized();
    return Eigen::Translation3d(p.move.x, p.move.y, p.move.z) * Eigen::AngleAxisd(p.angle, axis)
           * Eigen::Scaling(p.scale);
}

__attribute__((noinline)) void moveAll(std::vector<Eigen::Vector3d> &points,
                                       Eigen::Affine3d const &x) {
    for (Eigen::Vector3d &point : points) point = x * point;
}

/// The whole list as one matrix, product and sum.
__attribute__((noinline)) void moveAsMatrix(std::vector<Eigen::Vector3d> &points,
                                            Eigen::Affine3d const &x) {
    Eigen::Map<Eigen::Matrix3Xd> all(points[0].data(), 3, static_cast<Eigen::Index>(points.size()));
    all = (x.linear() * all).colwise() + x.translation();
}

void addEigen() {
    Eigen::Affine3d const there = placementsAs(eigenAffine)[0], back = there.inverse();
    addTransform("transform points", "Eigen", there, back, moveAll);
    addTransform("transform array", "Eigen matrix", there, back, moveAsMatrix);
    addBounds<Eigen::AlignedBox3d, Eigen::Vector3d>("bounds", "Eigen box only",
                                                    [](auto const &points) {
                                                        Eigen::AlignedBox3d box;
                                                        for (auto const &p : points) box.extend(p);
                                                        return box;
                                                    });
    auto const compose = [](auto const &a, auto const &b) { return Eigen::Affine3d(b * a); };
    auto const invert = [](auto const &x) { return Eigen::Affine3d(x.inverse(Eigen::Affine)); };
    addPlacements("Eigen", eigenAffine, compose, invert);
    addLoops("Eigen", eigenAffine, compose, invert);
}

#endif

#if defined(VEXMATH_BENCH_FCL) && defined(VEXMATH_BENCH_EIGEN)

void addFcl() {
    addClash(
        "FCL prebuilt",
        [](Placement const &p, Triple const &half) {
            Eigen::Affine3d const x = eigenAffine(p);
            return fcl::OBBd(x.linear() / p.scale, x.translation(),
                             fcl::Vector3d(half.x, half.y, half.z) * p.scale);
        },
        [](auto const &a, auto const &b) { return a.overlap(b); });
}

#endif

#ifdef VEXMATH_BENCH_GLM

glm::dmat4 glmMatrix(Placement const &p) {
    glm::dmat4 const moved = glm::translate(glm::dmat4(1.0), {p.move.x, p.move.y, p.move.z});
    glm::dmat4 const turned =
        glm::rotate(moved, p.angle, glm::normalize(glm::dvec3(p.axis.x, p.axis.y, p.axis.z)));
    return glm::scale(turned, glm::dvec3(p.scale));
}

__attribute__((noinline)) void moveAll(std::vector<glm::dvec3> &points, glm::dmat4 const &m) {
    for (glm::dvec3 &point : points) point = glm::dvec3(m * glm::dvec4(point, 1.0));
}

void addGlm() {
    glm::dmat4 const there = placementsAs(glmMatrix)[0], back = glm::affineInverse(there);
    addTransform("transform points", "GLM", there, back, moveAll);
    addPlacements(
        "GLM", glmMatrix, [](auto const &a, auto const &b) { return b * a; },
        [](auto const &m) { return glm::affineInverse(m); });
}

#endif

#ifdef VEXMATH_BENCH_IMATH

Imath::M44d imathMatrix(Placement const &p) {
    Imath::M44d scaled, turned, moved;
    scaled.setScale(p.scale);
    turned.setAxisAngle(Imath::V3d(p.axis.x, p.axis.y, p.axis.z).normalized(), p.angle);
    moved.setTranslation(Imath::V3d(p.move.x, p.move.y, p.move.z));
    return scaled * turned * moved;
}

__attribute__((noinline)) void moveAll(std::vector<Imath::V3d> &points, Imath::M44d const &m) {
    for (Imath::V3d &point : points) point *= m; // divides by w
}

void addImath() {
    Imath::M44d const there = placementsAs(imathMatrix)[0], back = there.inverse();
    addTransform("transform points", "Imath", there, back, moveAll);
    addPlacements(
        "Imath", imathMatrix, [](auto const &a, auto const &b) { return a * b; },
        [](auto const &m) { return m.inverse(); });
}

#endif

#ifdef VEXMATH_BENCH_OCC

gp_Trsf occTrsf(Placement const &p) {
    gp_Trsf scaled, turned, moved;
    scaled.SetScale(gp_Pnt(), p.scale);
    turned.SetRotation(gp_Ax1(gp_Pnt(), gp_Dir(p.axis.x, p.axis.y, p.axis.z)), p.angle);
    moved.SetTranslation(gp_Vec(p.move.x, p.move.y, p.move.z));
    return moved * turned * scaled;
}

__attribute__((noinline)) void moveAll(std::vector<gp_Pnt> &points, gp_Trsf const &x) {
    for (gp_Pnt &point : points) point.Transform(x);
}

Bnd_OBB occBox(std::pair<gp_Trsf, Triple> const &placed) {
    auto const &[x, half] = placed;
    auto const axis = [&x](double a, double b, double c) { return gp_Dir(a, b, c).Transformed(x); };
    double const scale = x.ScaleFactor();
    return {gp_Pnt().Transformed(x), axis(1, 0, 0),  axis(0, 1, 0), axis(0, 0, 1),
            half.x * scale,          half.y * scale, half.z * scale};
}

void addOcc() {
    gp_Trsf const there = placementsAs(occTrsf)[0], back = there.Inverted();
    addTransform("transform points", "Open CASCADE", there, back, moveAll);
    addPlacements(
        "Open CASCADE", occTrsf, [](auto const &a, auto const &b) { return b * a; },
        [](auto const &x) { return x.Inverted(); });
    auto const placed = [](Placement const &p, Triple const &half) {
        return std::pair(occTrsf(p), half);
    };
    // Boxes placed for the test, as in an assembly that moves, and placed before.
    addClash("Open CASCADE", placed,
             [](auto const &a, auto const &b) { return occBox(a).IsOut(occBox(b)); });
    addClash(
        "Open CASCADE prebuilt",
        [placed](auto const &p, auto const &half) { return occBox(placed(p, half)); },
        [](auto const &a, auto const &b) { return a.IsOut(b); });
}

#endif

[[maybe_unused]] bool const registered = [] {
    addVexmath();
    addUnchecked();
#ifdef VEXMATH_BENCH_EIGEN
    addEigen();
#endif
#if defined(VEXMATH_BENCH_FCL) && defined(VEXMATH_BENCH_EIGEN)
    addFcl();
#endif
#ifdef VEXMATH_BENCH_GLM
    addGlm();
#endif
#ifdef VEXMATH_BENCH_IMATH
    addImath();
#endif
#ifdef VEXMATH_BENCH_OCC
    addOcc();
#endif
    return true;
}();

} // namespace
