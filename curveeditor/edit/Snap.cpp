// SPDX-License-Identifier: MIT
#include <curveeditor/edit/Snap.h>

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

namespace curveeditor {

namespace {

std::vector<double> finite(std::vector<double> numbers)
{
    std::erase_if(numbers, [](double number) { return !std::isfinite(number); });
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

    /// The nearest of them, and of two the lower one.
    void attract(const std::vector<double>& candidates, Kind kind)
    {
        const auto nearest =
            std::min_element(candidates.begin(), candidates.end(), [this](double left, double right) {
                const double leftDistance = std::abs(left - coordinate_);
                const double rightDistance = std::abs(right - coordinate_);
                return leftDistance < rightDistance || (leftDistance == rightDistance && left < right);
            });
        if (nearest != candidates.end())
            attract(*nearest, kind);
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
    gridTimes_ = finite(std::move(times));
    gridValues_ = finite(std::move(values));
}

void Snap::setPoints(const std::vector<Source>& sources)
{
    std::vector<double> times;
    std::vector<double> values;
    for (const auto& [spline, moving, seenAt] : sources) {
        if (!spline)
            continue;
        const std::unordered_set<PointSerial> excluded(moving.begin(), moving.end());
        for (const SplineBase::PointInfo* const point : spline->getControlPoints()) {
            if (excluded.count(point->serial) > 0)
                continue;
            times.push_back(point->time);
            values.push_back(seenAt ? seenAt(point->pos) : point->pos);
        }
    }
    pointTimes_ = finite(std::move(times));
    pointValues_ = finite(std::move(values));
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
