// SPDX-License-Identifier: MIT
// An index of boxes: how long it takes to build it, to move one box, and to search with one.

#include <vexmath/box_index.h>

#include "scenes.h"

#ifdef VEXMATH_BENCH_BOOST
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#endif

namespace {

using scenes::Extent;
using scenes::Extents;

constexpr int kBoxes = 100000, kSteps = 1000;

Extents const &extents() {
    static Extents const all = [] {
        works::Numbers random;
        return scenes::uniform(random, kBoxes);
    }();
    return all;
}

struct Step {
    int which;
    Extent from, to;
};

/// Boxes moved by about their size.
std::vector<Step> const &steps() {
    static std::vector<Step> const all = [] {
        works::Numbers random;
        std::vector<Step> result;
        for (int k = 0; k < kSteps; ++k) {
            int const i = k * (kBoxes / kSteps);
            auto const &from = extents()[static_cast<std::size_t>(i)];
            works::Triple const by = random.triple(1.0);
            auto const moved = [&by](works::Triple const &p) {
                return works::Triple{p.x + by.x, p.y + by.y, p.z + by.z};
            };
            result.push_back({i, from, {moved(from.low), moved(from.high)}});
        }
        return result;
    }();
    return all;
}

/// Own types of boxes, `Index(list of boxes)`, `index.move(i, from, to)`, and `index.count(box)` of
/// those that meet a box.
template <class Index>
void addIndex(char const *who) {
    auto const boxes = [] { return Index::boxesOf(extents()); };
    works::addPrepared("index build", who, kBoxes, boxes, [](auto const &all) {
        Index const index(all);
        benchmark::DoNotOptimize(&index);
    })->Repetitions(5);
    static auto const each = [](benchmark::State &state, auto const &work) {
        Extents from, to;
        for (Step const &step : steps()) from.push_back(step.from), to.push_back(step.to);
        auto const old = Index::boxesOf(from), now = Index::boxesOf(to);
        Index index(Index::boxesOf(extents()));
        bool returns = false;
        for (auto _ : state) {
            for (std::size_t k = 0; k < kSteps; ++k)
                work(index, steps()[k].which, returns ? now[k] : old[k], returns ? old[k] : now[k]);
            returns = !returns;
        }
        works::countItems(state, kSteps);
    };
    works::add("index move", who, [](benchmark::State &state) {
        each(state, [](Index &index, int i, auto const &from, auto const &to) {
            index.move(i, from, to);
        });
    })->Repetitions(5);
    works::add("index clashesWith", who, [](benchmark::State &state) {
        each(state, [](Index &index, int /*i*/, auto const & /*from*/, auto const &box) {
            benchmark::DoNotOptimize(index.count(box));
        });
    })->Repetitions(5);
}

class Vexmath {
public:
    static auto boxesOf(Extents const &all) { return scenes::boxesOf(all); }
    explicit Vexmath(std::vector<mgBBox_c> const &boxes) {
        index_.build(boxes.data(), nullptr, static_cast<int>(boxes.size()));
    }
    void move(int i, mgBBox_c const & /*from*/, mgBBox_c const &to) { index_.move(i, to); }
    int count(mgBBox_c const &box) const {
        suDynamicArray<int> which;
        return index_.clashesWith(box, 0.0, which);
    }

private:
    mgBoxIndex_c index_;
};

#ifdef VEXMATH_BENCH_BOOST

namespace bg = boost::geometry;

class Boost {
public:
    using Point = bg::model::point<double, 3, bg::cs::cartesian>;
    using Box = bg::model::box<Point>;
    using Value = std::pair<Box, int>;

    static std::vector<Box> boxesOf(Extents const &all) {
        std::vector<Box> boxes;
        for (auto const &[a, b] : all) boxes.push_back({{a.x, a.y, a.z}, {b.x, b.y, b.z}});
        return boxes;
    }
    explicit Boost(std::vector<Box> const &boxes) {
        std::vector<Value> values;
        for (Box const &box : boxes) values.emplace_back(box, static_cast<int>(values.size()));
        tree_ = Tree(values);
    }
    void move(int i, Box const &from, Box const &to) {
        tree_.remove(Value(from, i));
        tree_.insert(Value(to, i));
    }
    std::size_t count(Box const &box) const {
        std::vector<Value> which;
        return tree_.query(bg::index::intersects(box), std::back_inserter(which));
    }

private:
    using Tree = bg::index::rtree<Value, bg::index::rstar<16>>;
    Tree tree_;
};

#endif

[[maybe_unused]] bool const registered = [] {
    addIndex<Vexmath>("vexmath");
#ifdef VEXMATH_BENCH_BOOST
    addIndex<Boost>("Boost");
#endif
    return true;
}();

} // namespace
