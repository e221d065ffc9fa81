// SPDX-License-Identifier: MIT
// Contacts: which parts clash, touch and contain each other, and what changed of that since an
// earlier document.

#include "contacts.h"

#include "document.h"
#include "files.h"
#include "report.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>
#include <unordered_map>
#include <utility>

#include <vexmath/box_index.h>
#include <vexmath/bulk.h>
#include <vexmath/mg_transform.h>
#include <vexmath/su_dynamic_array.h>

namespace assembly {

namespace {

using IndexPairs = suDynamicArray<mgIndexPair_c>;

/// The parts prepared for tests against each other: their bounds in their own frames at their final
/// size, and the rigid motions, mirrored or not, from these frames into the assembly.
///
/// The scale leaves the placement because the placed clash compares the two spheres at the size at
/// which they are given, and because the tolerance is a length of the assembly.
struct Bodies {
    /// Unset bodies, which meet nothing.
    explicit Bodies(std::size_t count)
        : sized(count), grown(count), shrunk(count), motions(count) {}

    void set(std::size_t i, mgBBox_c const &bounds, mgXform_c const &placement, double tolerance);
    void unset(std::size_t i) { sized[i] = grown[i] = shrunk[i] = mgBBox_c(); }
    int count() const { return static_cast<int>(sized.size()); }

    std::vector<mgBBox_c> sized;
    std::vector<mgBBox_c> grown;  ///< by half the tolerance: two that do not meet are farther apart
    std::vector<mgBBox_c> shrunk; ///< by half the tolerance: two that meet overlap by more than it
    std::vector<mgXform_c> motions;
};

void Bodies::set(std::size_t i, mgBBox_c const &bounds, mgXform_c const &placement,
                 double tolerance) {
    sized[i] = bounds;
    sized[i] *= mg_ScaleXform(placement.scaling());
    grown[i] = sized[i];
    grown[i] += 0.5 * tolerance;
    shrunk[i] = sized[i];
    shrunk[i] += -0.5 * tolerance;
    motions[i] = mg_ScaleXform(placement, 1.0); // replaces the scale
}

/// Asked in the frame of the outer part, where its box fits best.
bool contains(Bodies const &bodies, std::size_t outer, std::size_t inner) {
    constexpr double kNoShrink = 0.0; // the inner box keeps its size
    mgBBox_c inOuterFrame = bodies.sized[inner];
    inOuterFrame *= bodies.motions[inner] * bodies.motions[outer].inverse();
    return bodies.sized[outer].containsBBox(&inOuterFrame, kNoShrink) != 0;
}

/// Tells what the pairs of grown bodies that meet do.
Contacts contactsAmong(IndexPairs const &meeting, Bodies const &bodies) {
    Contacts contacts;
    Progress progress("checking pairs", static_cast<std::size_t>(meeting.Count()));
    for (int k = 0; k < meeting.Count(); ++k) {
        progress.step();
        auto const i = static_cast<std::size_t>(meeting[k].first);
        auto const j = static_cast<std::size_t>(meeting[k].second);
        bool const overlap = mgBBox_c::clash(bodies.shrunk[i], bodies.motions[i], bodies.shrunk[j],
                                             bodies.motions[j])
                             != 0;
        (overlap ? contacts.clashing : contacts.touching).push_back({i, j});
        if (contains(bodies, i, j)) contacts.containing.push_back({i, j});
        if (contains(bodies, j, i)) contacts.containing.push_back({j, i});
    }
    return contacts;
}

/// The library reports exhausted memory by a number of -1.
void refuseExhausted(bool isExhausted, std::string const &file) {
    if (isExhausted) throw Failure(file, "has more contacts than fit into the memory");
}

// The update.

/// All numbers that the contacts of a part depend on.
std::array<double, 24> numbersOf(mgBBox_c const &bounds, mgXform_c const &placement) {
    std::array<double, 24> numbers{};
    auto next = numbers.begin();
    for (mgPoint_c const &p :
         {bounds.low(), bounds.high(), bounds.sphCenter(), mgPoint_c(placement.translation())}) {
        for (double const coordinate : {p.x(), p.y(), p.z()}) *next++ = coordinate;
    }
    for (int k = 0; k < 9; ++k) *next++ = placement.rotation()[k];
    *next++ = bounds.sphRadius();
    *next++ = placement.scaling();
    *next++ = placement.isReflection();
    return numbers;
}

std::tuple<std::size_t, std::size_t, std::size_t> orderOf(PartPair const &pair) {
    auto const [low, high] = std::minmax(pair.first, pair.second);
    return {low, high, pair.first};
}

bool isBefore(PartPair const &a, PartPair const &b) { return orderOf(a) < orderOf(b); }

/// Calls a function with the lists of each kind.
template <class Function, class... AnyContacts>
void forEachKind(Function function, AnyContacts &...contacts) {
    function(contacts.clashing...);
    function(contacts.touching...);
    function(contacts.containing...);
}

/// Moves an assembly from the state of a document to that of an assembly file. Its parts have
/// slots: first those of the file, then those that only the document has.
class ContactUpdater {
public:
    ContactUpdater(Document const &earlier, Assembly const &assembly);

    ContactUpdate update();

private:
    std::vector<int> changedSlots() const;
    Contacts contactsBefore() const;
    void move(std::vector<int> const &slots);

    Document const &earlier_;
    Assembly const &assembly_;
    std::vector<std::size_t> slotOfEarlier_;   // by the parts of the document
    std::vector<DocumentPart const *> before_; // by slots; null for a new part
    std::vector<std::string> names_;           // by slots
    Bodies bodies_{0};
    mgBoxIndex_c index_; // of the grown bodies
};

ContactUpdater::ContactUpdater(Document const &earlier, Assembly const &assembly)
    : earlier_(earlier), assembly_(assembly) {
    std::unordered_map<std::string, std::size_t> slotOf;
    for (Part const &part : assembly.parts) {
        slotOf.emplace(part.name, names_.size());
        names_.push_back(part.name);
    }
    before_.resize(names_.size());
    for (DocumentPart const &part : earlier.parts) {
        auto const found = slotOf.find(part.name);
        bool const isNewSlot = found == slotOf.end() || before_[found->second] != nullptr;
        if (isNewSlot) {
            names_.push_back(part.name);
            before_.emplace_back();
        }
        slotOfEarlier_.push_back(isNewSlot ? names_.size() - 1 : found->second);
        before_[slotOfEarlier_.back()] = &part;
    }
    bodies_ = Bodies(names_.size());
    for (std::size_t i = 0; i < names_.size(); ++i) {
        if (before_[i] == nullptr) continue;
        bodies_.set(i, before_[i]->bounds, before_[i]->placement, earlier.clashTolerance);
    }
}

std::vector<int> ContactUpdater::changedSlots() const {
    bool const isOtherTolerance = earlier_.clashTolerance != assembly_.clashTolerance;
    auto const isUnchanged = [&](std::size_t i) {
        if (isOtherTolerance || i >= assembly_.parts.size() || !before_[i]) return false;
        Part const &part = assembly_.parts[i];
        return numbersOf(before_[i]->bounds, before_[i]->placement)
               == numbersOf(part.mesh->bounds, part.placement);
    };
    std::vector<int> slots;
    for (std::size_t i = 0; i < names_.size(); ++i) {
        if (!isUnchanged(i)) slots.push_back(static_cast<int>(i));
    }
    return slots;
}

Contacts ContactUpdater::contactsBefore() const {
    if (!earlier_.contacts) {
        IndexPairs meeting;
        refuseExhausted(index_.clashes(0.0, meeting) < 0, assembly_.file);
        return contactsAmong(meeting, bodies_);
    }
    Contacts contacts = *earlier_.contacts;
    for (auto *const pairs : {&contacts.clashing, &contacts.touching, &contacts.containing}) {
        for (PartPair &pair : *pairs) {
            pair = {slotOfEarlier_[pair.first], slotOfEarlier_[pair.second]};
            bool const hasOrder = pairs == &contacts.containing;
            if (!hasOrder && pair.first > pair.second) std::swap(pair.first, pair.second);
        }
        std::sort(pairs->begin(), pairs->end(), isBefore);
    }
    return contacts;
}

void ContactUpdater::move(std::vector<int> const &slots) {
    for (int const slot : slots) {
        auto const i = static_cast<std::size_t>(slot);
        if (i < assembly_.parts.size()) {
            Part const &part = assembly_.parts[i];
            bodies_.set(i, part.mesh->bounds, part.placement, assembly_.clashTolerance);
        } else {
            bodies_.unset(i);
        }
        index_.move(slot, bodies_.grown[i]);
        index_.place(slot, bodies_.motions[i]);
    }
}

ContactUpdate ContactUpdater::update() {
    bool const isBuilt =
        index_.build(bodies_.grown.data(), bodies_.motions.data(), bodies_.count()) != 0;
    refuseExhausted(!isBuilt, assembly_.file);
    Contacts const before = contactsBefore();
    std::vector<int> const changed = changedSlots();
    move(changed);
    IndexPairs meeting;
    int const count =
        index_.clashesOf(changed.data(), static_cast<int>(changed.size()), 0.0, meeting);
    refuseExhausted(count < 0, assembly_.file);
    Contacts const after = contactsAmong(meeting, bodies_); // of the changed parts

    std::vector<bool> isChanged(names_.size(), false);
    for (int const slot : changed) isChanged[static_cast<std::size_t>(slot)] = true;
    using Pairs = std::vector<PartPair>;
    auto const compare = [&](Pairs const &was, Pairs const &is, Pairs &now, Pairs &added,
                             Pairs &gone) {
        Pairs ofChanged;
        Pairs others;
        for (PartPair const &pair : was) {
            (isChanged[pair.first] || isChanged[pair.second] ? ofChanged : others).push_back(pair);
        }
        std::merge(others.begin(), others.end(), is.begin(), is.end(), std::back_inserter(now),
                   isBefore);
        std::set_difference(is.begin(), is.end(), ofChanged.begin(), ofChanged.end(),
                            std::back_inserter(added), isBefore);
        std::set_difference(ofChanged.begin(), ofChanged.end(), is.begin(), is.end(),
                            std::back_inserter(gone), isBefore);
    };
    ContactUpdate update;
    forEachKind(compare, before, after, update.now, update.added, update.gone);
    update.names = std::move(names_);
    return update;
}

} // namespace

Contacts findContacts(Assembly const &assembly) {
    Bodies bodies(assembly.parts.size());
    for (std::size_t i = 0; i < assembly.parts.size(); ++i) {
        Part const &part = assembly.parts[i];
        bodies.set(i, part.mesh->bounds, part.placement, assembly.clashTolerance);
    }
    IndexPairs meeting;
    int const count =
        mg_FindClashes(bodies.grown.data(), bodies.motions.data(), bodies.count(), meeting);
    refuseExhausted(count < 0, assembly.file);
    return contactsAmong(meeting, bodies);
}

ContactUpdate updateContacts(Document const &earlier, Assembly const &assembly) {
    return ContactUpdater(earlier, assembly).update();
}

} // namespace assembly
