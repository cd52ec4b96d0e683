// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Snap.h>

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

namespace curveeditor {

namespace {

std::vector<double> sorted(std::vector<double> numbers)
{
    std::erase_if(numbers, [](double number) { return !std::isfinite(number); });
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

/// Finds what is nearest to a coordinate.
class Snap::Nearest
{
public:
    /// Looks for what is less than `reach` away.
    Nearest(double coordinate, double reach) : coordinate_(coordinate), snapped_(coordinate), distance_(reach)
    {
    }

    void attract(double candidate, Kind kind)
    {
        const double distance = std::abs(candidate - coordinate_);
        if (kinds_ != Nothing && candidate == snapped_) {
            kinds_ |= kind;
        } else if (distance < distance_) {
            kinds_ = kind;
            snapped_ = candidate;
            distance_ = distance;
        }
    }

    void attract(const std::vector<double>& ascending, Kind kind)
    {
        const auto above = std::lower_bound(ascending.begin(), ascending.end(), coordinate_);
        if (above != ascending.begin())
            attract(*std::prev(above), kind);
        if (above != ascending.end())
            attract(*above, kind);
    }

    double coordinate() const { return coordinate_; }
    double snapped() const { return snapped_; }
    unsigned kinds() const { return kinds_; }

private:
    double coordinate_;
    double snapped_;
    double distance_;
    unsigned kinds_ = Nothing;
};

void Snap::setGridLines(std::vector<double> times, std::vector<double> values)
{
    gridTimes_ = sorted(std::move(times));
    gridValues_ = sorted(std::move(values));
}

void Snap::setPoints(const std::vector<Source>& sources)
{
    std::vector<double> times;
    std::vector<double> values;
    for (const auto& [spline, moving] : sources) {
        if (!spline)
            continue;
        const std::unordered_set<PointSerial> excluded(moving.begin(), moving.end());
        for (const SplineBase::PointInfo* const point : spline->getControlPoints()) {
            if (excluded.count(point->serial) > 0)
                continue;
            times.push_back(point->time);
            values.push_back(point->pos);
        }
    }
    pointTimes_ = sorted(std::move(times));
    pointValues_ = sorted(std::move(values));
}

Snap::Result Snap::snapped(const Gesture::Place& place, const PlaneMapping& mapping) const
{
    Result result{place};
    if (!mapping.canShow())
        return result;
    Nearest time(place.time, std::abs(mapping.timeOfPixels(reach)));
    Nearest value(place.value, std::abs(mapping.valueOfPixels(reach)));
    attractTime(time);
    if (kinds & GridLines)
        value.attract(gridValues_, GridLines);
    if (kinds & Points)
        value.attract(pointValues_, Points);
    result.place.time = time.snapped();
    result.place.value = value.snapped();
    result.timeKinds = time.kinds();
    result.valueKinds = value.kinds();
    return result;
}

void Snap::attractTime(Nearest& nearest) const
{
    if ((kinds & Frames) && fps > 0.0)
        nearest.attract(std::round(nearest.coordinate() * fps) / fps, Frames);
    if (kinds & GridLines)
        nearest.attract(gridTimes_, GridLines);
    if (kinds & Points)
        nearest.attract(pointTimes_, Points);
    if ((kinds & TimeLine) && timeLine)
        nearest.attract(*timeLine, TimeLine);
}

} // namespace curveeditor
