// SPDX-License-Identifier: MIT
#pragma once

class CurveStore;
struct Table;

/// Adds a curve for each column of the table, with one control point a row and straight lines between them.
/// All have the range that the table fills, so that none is out of view.
void addTableCurves(CurveStore& store, const Table& table);
