// SPDX-License-Identifier: MIT
#pragma once

#include "Require.h"

#include <Fault.h>
#include <Progress.h>
#include <SampleTable.h>
#include <TableText.h>

#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

/// What a reader gave is whole: times rise, all numbers are finite, and no curve is shorter than its times.
inline void requireWhole(const SampleTable& table)
{
    const auto isFinite = [](double number) {
        return std::isfinite(number);
    };
    require(!table.times.empty() && !table.curves.empty());
    require(std::all_of(table.times.begin(), table.times.end(), isFinite));
    for (std::size_t i = 1; i < table.times.size(); ++i)
        require(table.times[i] > table.times[i - 1]);
    for (const SampleTable::Curve& curve : table.curves) {
        require(curve.values.size() == table.times.size() && !curve.name.empty());
        require(std::all_of(curve.values.begin(), curve.values.end(), isFinite));
    }
}

/// Written as a table, it reads back the same. A time named as a line of the head of a sensor table is passed over.
inline void requireReadsBack(const SampleTable& table)
{
    for (const std::string_view head : {"version", "type", "num_curves", "num_lambdas"}) {
        if (table.timeName == head)
            return;
    }
    Progress silent;
    for (const char separator : {'\t', ','}) {
        const SampleTable again =
            TableText::read(TableText::write(table, separator), TableReader::Decimal::FromText, silent);
        require(again.timeName == table.timeName && again.times == table.times);
        require(again.curves.size() == table.curves.size());
        for (std::size_t i = 0; i < table.curves.size(); ++i) {
            require(again.curves[i].name == table.curves[i].name);
            require(again.curves[i].values == table.curves[i].values);
        }
    }
}

/// A refusal names a line of the text.
inline void requireLine(const TextFault& fault, std::string_view text)
{
    std::size_t lines = 1;
    while (!text.empty()) {
        TextFields::takeLine(text);
        ++lines;
    }
    require(fault.getLine() >= 1 && fault.getLine() <= lines);
}
