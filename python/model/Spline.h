// SPDX-License-Identifier: MIT
#pragma once

#include "GuiThread.h"
#include "NeverNull.h"

#include <curveeditor/model/SplineBase.h>
#include <curveeditor/model/SplineState.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <utility>

namespace curveeditor::python {

/// A spline of Python's, which is evaluated without the interpreter's lock while other threads go on.
///
/// Whoever holds the interpreter's lock may `read`. Without it, `evaluate` keeps edits waiting until it is done. While an
/// editor has the spline, which edits it without the lock, only the thread of that editor may use it.
class Spline
{
public:
    Spline() = default;
    /// `state` is whole.
    explicit Spline(const SplineState& state) { spline_.assign(state); }

    /// Raises RuntimeError on a thread that may not.
    const SplineBase& read() const
    {
        requireThread();
        return spline_;
    }

    /// What `work` does to the spline, while no thread evaluates it.
    template <typename Work> decltype(auto) edit(Work&& work)
    {
        requireThread();
        const std::unique_lock lock(mutex_);
        return std::forward<Work>(work)(spline_);
    }

    /// Without the interpreter's lock. Raises RuntimeError where an editor has got the spline meanwhile.
    void evaluate(const double* times, double* values, std::size_t count) const
    {
        std::shared_lock lock(mutex_);
        if (belongsToOther()) {
            lock.unlock(); // who holds the interpreter's lock may wait for this one
            const pybind11::gil_scoped_acquire locked;
            refuseThread(inEditor);
        }
        spline_.evaluate(times, values, count);
    }

    /// For an editor to read and write, or to read for its formulas, until it leaves. Waits for evaluations.
    SplineBase& enterEditor()
    {
        const std::unique_lock lock(mutex_);
        ++editors_;
        return spline_;
    }
    void leaveEditor() { --editors_; }

private:
    static constexpr const char* inEditor = "the spline is in an editor or in variables";

    bool belongsToOther() const { return editors_ > 0 && isOtherThread(); }
    void requireThread() const
    {
        if (belongsToOther())
            refuseThread(inEditor);
    }

    SplineBase spline_;
    mutable std::shared_mutex mutex_;
    std::atomic<int> editors_{0};
};

using SplinePointer = std::shared_ptr<Spline>;

/// What a fit has made, and how well.
class FittedSpline : public Spline
{
public:
    FittedSpline(const SplineState& state, double deviation, std::size_t samples)
        : Spline(state), deviation_(deviation), samples_(samples)
    {
    }

    double deviation() const { return deviation_; }
    std::size_t samples() const { return samples_; }

private:
    double deviation_;
    std::size_t samples_;
};

} // namespace curveeditor::python

template <>
class pybind11::detail::type_caster<curveeditor::python::SplinePointer>
    : public curveeditor::python::NeverNull<curveeditor::python::Spline>
{
};
