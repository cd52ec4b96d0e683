// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

class QTextStream;

/// Writes the sensor data file: a banner, then a row for each lambda (a whole number on the time axis) with
/// one value for each curve. Each field ends in a comma and a tab, values have six decimals. No locale plays
/// a part. The stream is the caller's, who calls `writeHeader`, then for each row `beginRow`, `addValue` once
/// a curve, and `endRow`.
class SensorTable
{
public:
    /// The most rows that a table may have; with more a range of huge limits would fill the disk.
    static constexpr qint64 maximumRows = 1000000;

    explicit SensorTable(QTextStream& out);

    void writeHeader(qint64 curves, qint64 lambdas);
    void beginRow(int lambda);
    /// Not-a-number is written as 0.0.
    void addValue(double value);
    void endRow();

private:
    QTextStream& out_;
};
