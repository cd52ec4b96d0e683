// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

class CurveStore;
struct Table;

/// Adds a curve for each column of the table, with one control point a row and straight lines between them.
/// With a tolerance, in percent of the span of a column's values, the fewest points within it are taken instead.
/// All have the range that the table fills, so that none is out of view.
void addTableCurves(CurveStore& store, const Table& table, std::optional<double> tolerance = std::nullopt);
