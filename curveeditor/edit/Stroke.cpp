// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Stroke.h>

#include <curveeditor/model/CurveFit.h>

#include <algorithm>
#include <cmath>

namespace curveeditor {

namespace {

constexpr int mostPlaces = 16384; // of one step, for a view that has changed in between

bool isEarlier(const Stroke::Place& left, const Stroke::Place& right)
{
    return left.time < right.time;
}

} // namespace

void Stroke::drawTo(const Place& place, double step)
{
    isDot_ = isDot_ && place.time == last_.time && place.value == last_.value;
    const auto [first, last] = std::minmax(last_, place, isEarlier);
    const auto from = std::lower_bound(places_.begin(), places_.end(), first, isEarlier);
    const auto to = std::upper_bound(from, places_.end(), last, isEarlier);
    std::vector<Place> drawn{first};
    const double span = last.time - first.time;
    const int count = int(std::min(span / step, double(mostPlaces)));
    for (int i = 1; i < count; ++i) {
        const double share = double(i) / count;
        drawn.push_back({std::lerp(first.time, last.time, share), std::lerp(first.value, last.value, share)});
    }
    if (span > 0.0)
        drawn.push_back(last);
    else
        drawn = {place};
    places_.insert(places_.erase(from, to), drawn.begin(), drawn.end());
    last_ = place;
}

std::vector<SplineBase::PointInfo> Stroke::points(double tolerance, SplineBase::NodeType type) const
{
    std::vector<double> times, values;
    for (const Place& place : places_) {
        times.push_back(place.time);
        values.push_back(place.value);
    }
    CurveFit::Options options;
    options.tolerance = tolerance;
    options.type = type;
    return CurveFit::fit(times, values, options).spline.points;
}

} // namespace curveeditor
