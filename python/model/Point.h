// SPDX-License-Identifier: MIT
#pragma once

#include "Errors.h"
#include "Spline.h"

#include <cmath>
#include <cstdint>
#include <utility>

namespace curveeditor::python {

/// One point of a spline, which it keeps alive. The point may be gone; then everything but `serial` raises
/// ReferenceError.
class Point
{
public:
    Point(SplinePointer spline, const SplineBase::PointInfo& point)
        : spline_(std::move(spline)), serial_(point.serial), time_(point.time)
    {
    }

    std::uint32_t serial() const { return serial_; }
    bool isOf(const Spline& spline) const { return &spline == spline_.get(); }
    bool operator==(const Point& other) const { return spline_ == other.spline_ && serial_ == other.serial_; }

    bool isThere() const { return spline_->read().findIndex(serial_, time_) >= 0; }

    std::size_t index() const
    {
        const std::int32_t index = spline_->read().findIndex(serial_, time_);
        if (index < 0)
            raise(PyExc_ReferenceError, "the point is no longer in its spline");
        time_ = spline_->read()[unsigned(index)]->time;
        return std::size_t(index);
    }

    const SplineBase::PointInfo& read() const { return *spline_->read()[unsigned(index())]; }

    template <typename Work> void edit(Work&& work) const
    {
        const std::size_t place = index();
        spline_->edit([&](SplineBase& spline) { work(spline, spline.modify(place)); });
    }

private:
    SplinePointer spline_;
    std::uint32_t serial_;
    mutable double time_; ///< at which it was seen last
};

/// Raises ValueError for a number that is not finite.
inline double finite(double number, const char* name)
{
    if (!std::isfinite(number))
        raise(PyExc_ValueError, std::string(name) + " has to be finite");
    return number;
}

} // namespace curveeditor::python
