// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The text of the sensor data file: a head, then a row for each lambda, a whole number on the time axis, with one
/// value for each curve. Each field ends in a comma and a tab, values have six decimals. No locale plays a part.
/// Needs no Qt. `TableReader` reads it.
namespace SensorTable {

/// The most rows that a table may have; with more a range of huge limits would fill the disk.
constexpr std::int64_t maximumRows = 1'000'000;

CURVEEDITOR_EXPORT std::string head(std::size_t curves, std::int64_t rows);
/// Not-a-number is written as 0.0.
CURVEEDITOR_EXPORT std::string row(std::int32_t lambda, const std::vector<double>& values);

} // namespace SensorTable
