// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <cstdint>

namespace curveeditor {

/// A block of times at which several expressions are evaluated, one after the other. While it lives,
/// `CurveVariables` evaluates each curve that they read once for all of them, so nothing that they read may
/// change. One is in force at a time.
class CURVEEDITOR_EXPORT BlockReading
{
public:
    /// How many times a block may have.
    static constexpr std::size_t longest = 256;

    /// The times must live as long; the expressions are given this array or parts of it.
    BlockReading(const double* times, double framesPerTimeUnit, std::size_t count);
    ~BlockReading();
    BlockReading(const BlockReading&) = delete;
    BlockReading& operator=(const BlockReading&) = delete;

    /// The one in force; null if there is none.
    static const BlockReading* present();

    const double* times() const { return times_; }
    double framesPerTimeUnit() const { return framesPerTimeUnit_; }
    std::size_t count() const { return count_; }
    /// Another one for each; never 0.
    std::uint64_t number() const { return number_; }

private:
    const double* times_;
    double framesPerTimeUnit_;
    std::size_t count_;
    std::uint64_t number_;
};

} // namespace curveeditor
