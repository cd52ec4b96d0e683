// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// A table of sampled curves. Rows rise in time; rows of equal time keep the order they had in the file.
struct Table
{
    /// One curve: `values` has as many entries as the table has rows.
    struct Column
    {
        QString group;
        QString curve;
        std::vector<double> values;
    };

    std::vector<double> times;
    std::vector<Column> columns;
};
