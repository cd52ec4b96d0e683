// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/TableReader.h>

#include <cstddef>
#include <string>
#include <vector>

/// Curves that are sampled at the same times.
struct SampleTable
{
    /// The most values that are read, those of all curves together.
    static constexpr std::size_t mostValues = TableReader::mostValues;

    struct Curve
    {
        std::string name;           ///< UTF-8; several curves may share one
        std::vector<double> values; ///< as many as there are times
    };

    std::string timeName = "time";
    std::vector<double> times; ///< each later than the one before it
    std::vector<Curve> curves;
};
