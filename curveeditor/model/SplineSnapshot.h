// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveSnapshot.h>
#include <curveeditor/model/SplineBase.h>

#include <vector>

namespace curveeditor {

/// The points of a spline in chunks, which snapshots share and nobody writes to, and a spline over them that evaluates.
class SplineSnapshot final : public CurveSnapshot
{
public:
    using Chunk = std::vector<SplineBase::PointInfo>;
    using Chunks = std::vector<std::shared_ptr<Chunk>>;

    /// `previous` may be null.
    SplineSnapshot(const SplineBase& spline, const SplineSnapshot* previous);

    /// That all of `other`, which this one was taken after, is shared.
    bool isSame(const SplineSnapshot& other) const;
    const Chunks& chunks() const { return chunks_; }

    double operator()(double time) const override { return spline_(time); }
    void evaluate(const double* times, double* values, std::size_t count) const override
    {
        spline_.evaluate(times, values, count);
    }

private:
    Chunks chunks_;
    SplineBase spline_;
};

} // namespace curveeditor
