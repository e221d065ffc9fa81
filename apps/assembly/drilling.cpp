// SPDX-License-Identifier: MIT
// The path of a drill from bolt to bolt.

#include "check_result.h"

#include <vexmath/mg_queries.h>
#include <vexmath/mg_vector.h>
#include <vexmath/su_dynamic_array.h>

namespace assembly {

DrillingPath findDrillingPath(std::vector<Part> const &parts) {
    std::vector<std::size_t> bolts;
    suDynamicArray<mgPoint_c> centres;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].name.rfind("bolt", 0) != 0) continue;
        bolts.push_back(i);
        centres.Add(parts[i].placed.center());
    }
    suDynamicArray<int> order;
    mg_OpenTSP(centres, order);

    DrillingPath path;
    for (int i = 0; i < order.Count(); ++i) {
        path.bolts.push_back(bolts[static_cast<std::size_t>(order[i])]);
        path.centres.push_back(centres[order[i]]);
        if (i > 0) path.length += dist(centres[order[i - 1]], centres[order[i]]);
    }
    return path;
}

} // namespace assembly
