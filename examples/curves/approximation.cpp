// SPDX-License-Identifier: MIT
// How well a polyline follows its curve.

#include "approximation.h"

#include <algorithm>
#include <cstddef>

namespace example::curves {

std::vector<mgPoint_c> sampled(Shape const &shape, int count) {
    std::vector<mgPoint_c> points;
    for (int i = 0; i <= count; ++i) points.push_back(shape.exact(static_cast<double>(i) / count));
    return points;
}

Approximation approximate(Shape const &shape, double tolerance) {
    constexpr int kSamples = 20000; // some dozens a chord
    constexpr double kAsBad = 0.99; // part of the error that counts as the whole
    Approximation result{shape.polyline(tolerance), 0.0, {}};
    std::vector<mgPoint_c> const &points = result.points;
    if (points.empty()) return result;

    std::vector<mgPoint_c> const samples = sampled(shape, kSamples);
    std::vector<double> distances;
    std::size_t chord = 0; // the one beside the sample: both run along the curve
    for (mgPoint_c const &sample : samples) {
        double along = 0.0;
        double distance = sample.distToLine(points[chord], points[chord + 1], &along);
        while (along > 1.0 && chord + 2 < points.size()) {
            ++chord;
            distance = sample.distToLine(points[chord], points[chord + 1], &along);
        }
        distances.push_back(distance);
    }
    auto const worst = std::max_element(distances.begin(), distances.end());
    result.error = *worst;
    result.whereWorst = samples[static_cast<std::size_t>(worst - distances.begin())];
    for (std::size_t i = 0; i < samples.size(); ++i) {
        bool const isBad = distances[i] >= kAsBad * result.error;
        if (isBad && samples[i].x() > result.whereWorst.x()) result.whereWorst = samples[i];
    }
    return result;
}

} // namespace example::curves
