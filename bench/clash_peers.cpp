// SPDX-License-Identifier: MIT
// The pairs of boxes that meet, as other libraries find them: in the order of their trees. What
// each makes of the boxes before the clock starts is a list of its own box type, without a tree.

#include "scenes.h"

#ifdef VEXMATH_BENCH_BOOST
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#endif
#ifdef VEXMATH_BENCH_CGAL
#include <CGAL/Box_intersection_d/Box_with_info_d.h>
#include <CGAL/box_intersection_d.h>
#endif
#ifdef VEXMATH_BENCH_EMBREE
#include <embree3/rtcore.h>
#endif
#if defined(VEXMATH_BENCH_FCL) && defined(VEXMATH_BENCH_EIGEN)
#include <fcl/broadphase/broadphase_dynamic_AABB_tree.h>
#include <fcl/geometry/shape/box.h>
#endif
#ifdef VEXMATH_BENCH_OCC
#include <BVH_BoxSet.hxx>
#include <BVH_LinearBuilder.hxx>
#include <BVH_Traverse.hxx>
#endif

namespace {

using scenes::Extents;

struct Pair {
    int first, second;
};
using Pairs = std::vector<Pair>;

/// With more boxes, or with more rods, it takes many seconds and is never the fastest.
struct Peer {
    char const *who;
    int most, mostRods;
};

/// `search(input, pairs)` on all scenes that are not too large.
template <class Prepare, class Search>
[[maybe_unused]] void addPeer(Peer const &peer, Prepare const &prepare, Search const &search) {
    for (auto const &scene : scenes::cases()) {
        if (scene->n > (scene->hasRods() ? peer.mostRods : peer.most)) continue;
        scenes::addSearch(*scene, peer.who, prepare, [search](auto &input) {
            Pairs pairs;
            search(input, pairs);
            benchmark::DoNotOptimize(pairs.data());
            return pairs.size();
        });
    }
}

#ifdef VEXMATH_BENCH_BOOST

namespace bg = boost::geometry;
using BoostPoint = bg::model::point<double, 3, bg::cs::cartesian>;
using BoostValue = std::pair<bg::model::box<BoostPoint>, int>;

std::vector<BoostValue> boostValues(Extents const &extents) {
    std::vector<BoostValue> values;
    for (auto const &[a, b] : extents)
        values.push_back({{{a.x, a.y, a.z}, {b.x, b.y, b.z}}, static_cast<int>(values.size())});
    return values;
}

void searchBoost(std::vector<BoostValue> const &values, Pairs &pairs) {
    bg::index::rtree<BoostValue, bg::index::rstar<16>> const tree(values);
    std::vector<BoostValue> met;
    for (auto const &[box, i] : values) {
        met.clear();
        tree.query(bg::index::intersects(box), std::back_inserter(met));
        for (auto const &other : met)
            if (i < other.second) pairs.push_back({i, other.second});
    }
}

#endif
#ifdef VEXMATH_BENCH_CGAL

using CgalBox = CGAL::Box_intersection_d::Box_with_info_d<double, 3, int>;

std::vector<CgalBox> cgalBoxes(Extents const &extents) {
    std::vector<CgalBox> boxes;
    for (auto const &[a, b] : extents)
        boxes.emplace_back(CGAL::Bbox_3(a.x, a.y, a.z, b.x, b.y, b.z),
                           static_cast<int>(boxes.size()));
    return boxes;
}

void searchCgal(std::vector<CgalBox> &boxes, Pairs &pairs) {
    constexpr std::ptrdiff_t cutoff = 1000; // with its default of 10 it is up to 4 times slower
    CGAL::box_self_intersection_d(
        boxes.begin(), boxes.end(),
        [&pairs](CgalBox const &a, CgalBox const &b) {
            pairs.push_back({a.info(), b.info()});
        },
        cutoff);
}

#endif
#ifdef VEXMATH_BENCH_EMBREE

class EmbreeScene {
public:
    explicit EmbreeScene(Extents const &extents) : extents_(&extents) {}

    void search(Pairs &pairs) {
        found_ = &pairs;
        RTCScene const scene = rtcNewScene(device());
        RTCGeometry const boxes = rtcNewGeometry(device(), RTC_GEOMETRY_TYPE_USER);
        rtcSetGeometryUserPrimitiveCount(boxes, static_cast<unsigned>(extents_->size()));
        rtcSetGeometryUserData(boxes, this);
        rtcSetGeometryBoundsFunction(boxes, bounds, nullptr);
        rtcCommitGeometry(boxes);
        rtcAttachGeometry(scene, boxes);
        rtcReleaseGeometry(boxes);
        rtcCommitScene(scene);
        rtcCollide(scene, scene, collide, this);
        rtcReleaseScene(scene);
    }

private:
    static RTCDevice device() {
        static RTCDevice const single = rtcNewDevice("threads=1");
        return single;
    }
    /// Rounding to floats does not decrease, so that boxes that meet still meet.
    static void bounds(RTCBoundsFunctionArguments const *asked) {
        auto const &[a, b] =
            (*static_cast<EmbreeScene const *>(asked->geometryUserPtr)->extents_)[asked->primID];
        RTCBounds &out = *asked->bounds_o;
        out.lower_x = static_cast<float>(a.x), out.upper_x = static_cast<float>(b.x);
        out.lower_y = static_cast<float>(a.y), out.upper_y = static_cast<float>(b.y);
        out.lower_z = static_cast<float>(a.z), out.upper_z = static_cast<float>(b.z);
    }
    /// Each pair comes twice, and floats that meet are no proof.
    static void collide(void *user, RTCCollision *found, unsigned count) {
        auto const &scene = *static_cast<EmbreeScene const *>(user);
        for (unsigned k = 0; k < count; ++k) {
            unsigned const i = found[k].primID0, j = found[k].primID1;
            if (i >= j) continue;
            auto const &[a, b] = (*scene.extents_)[i];
            auto const &[c, d] = (*scene.extents_)[j];
            if (a.x <= d.x && c.x <= b.x && a.y <= d.y && c.y <= b.y && a.z <= d.z && c.z <= b.z)
                scene.found_->push_back({static_cast<int>(i), static_cast<int>(j)});
        }
    }

    Extents const *extents_;
    Pairs *found_ = nullptr;
};

#endif
#if defined(VEXMATH_BENCH_FCL) && defined(VEXMATH_BENCH_EIGEN)

using FclObject = fcl::CollisionObjectd;

std::vector<std::unique_ptr<FclObject>> fclObjects(Extents const &extents) {
    std::vector<std::unique_ptr<FclObject>> objects;
    for (auto const &[a, b] : extents) {
        fcl::Vector3d const low(a.x, a.y, a.z), high(b.x, b.y, b.z);
        objects.push_back(std::make_unique<FclObject>(std::make_shared<fcl::Boxd>(high - low),
                                                      fcl::Matrix3d::Identity(),
                                                      (low + high) * 0.5));
        objects.back()->setUserData(reinterpret_cast<void *>(objects.size() - 1));
    }
    return objects;
}

bool keepFcl(FclObject *a, FclObject *b, void *pairs) {
    auto const number = [](FclObject const *object) {
        return static_cast<int>(reinterpret_cast<std::uintptr_t>(object->getUserData()));
    };
    static_cast<Pairs *>(pairs)->push_back({number(a), number(b)});
    return false; // goes on
}

void searchFcl(std::vector<std::unique_ptr<FclObject>> const &objects, Pairs &pairs) {
    std::vector<FclObject *> all;
    for (auto const &object : objects) all.push_back(object.get());
    fcl::DynamicAABBTreeCollisionManagerd tree;
    tree.registerObjects(all);
    tree.setup();
    tree.collide(&pairs, keepFcl);
}

#endif
#ifdef VEXMATH_BENCH_OCC

using OccBoxes = BVH_BoxSet<double, 3, int>;

std::unique_ptr<OccBoxes> occBoxes(Extents const &extents) {
    auto boxes = std::make_unique<OccBoxes>(new BVH_LinearBuilder<double, 3>());
    boxes->SetSize(extents.size());
    int next = 0;
    for (auto const &[a, b] : extents)
        boxes->Add(next++, {BVH_Vec3d(a.x, a.y, a.z), BVH_Vec3d(b.x, b.y, b.z)});
    return boxes;
}

/// A set with itself. Each pair comes twice.
class OccSearch : public BVH_PairTraverse<double, 3, OccBoxes> {
public:
    OccSearch(OccBoxes &boxes, Pairs &pairs) : pairs_(pairs) { SetBVHSets(&boxes, &boxes); }

    bool RejectNode(BVH_Vec3d const &low, BVH_Vec3d const &high, BVH_Vec3d const &otherLow,
                    BVH_Vec3d const &otherHigh, double & /*metric*/) const override {
        return BVH_Box<double, 3>(low, high).IsOut(otherLow, otherHigh);
    }
    bool Accept(int first, int second) override {
        int const i = myBVHSet1->Element(first), j = myBVHSet1->Element(second);
        if (i >= j || myBVHSet1->Box(first).IsOut(myBVHSet1->Box(second))) return false;
        pairs_.push_back({i, j});
        return true;
    }

private:
    Pairs &pairs_;
};

void searchOcc(std::unique_ptr<OccBoxes> const &boxes, Pairs &pairs) {
    boxes->Build();
    OccSearch(*boxes, pairs).Select();
}

#endif

[[maybe_unused]] bool const registered = [] {
#ifdef VEXMATH_BENCH_BOOST
    addPeer({"Boost", 1000000, 10000}, boostValues, searchBoost);
#endif
#ifdef VEXMATH_BENCH_CGAL
    addPeer({"CGAL", 1000000, 10000}, cgalBoxes, searchCgal);
#endif
#ifdef VEXMATH_BENCH_EMBREE
    addPeer(
        {"Embree", 1000000, 100000}, [](Extents const &extents) { return EmbreeScene(extents); },
        [](EmbreeScene &scene, Pairs &pairs) { scene.search(pairs); });
#endif
#if defined(VEXMATH_BENCH_FCL) && defined(VEXMATH_BENCH_EIGEN)
    addPeer({"FCL", 100000, 10000}, fclObjects, searchFcl);
#endif
#ifdef VEXMATH_BENCH_OCC
    addPeer({"Open CASCADE", 1000000, 100000}, occBoxes, searchOcc);
#endif
    return true;
}();

} // namespace
