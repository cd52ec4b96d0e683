// SPDX-License-Identifier: MIT
#include "TableText.h"

#include "Fault.h"
#include "Progress.h"
#include "TextNumber.h"

#include <curveeditor/files/SensorTable.h>

#include <algorithm>
#include <optional>

namespace {

// Several values at one time are no curve.
void requireRising(const TableReader::Table& read)
{
    const auto twice = std::adjacent_find(read.times.begin(), read.times.end());
    if (twice != read.times.end())
        throw TextFault(read.lines[std::size_t(twice - read.times.begin()) + 1],
                        "time " + toText(*twice) + " is there twice");
}

bool isPlain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.' || c == '-';
}

std::string toField(const std::string& name)
{
    if (!name.empty() && std::all_of(name.begin(), name.end(), isPlain))
        return name;
    std::string field = "\"";
    for (const char c : name) {
        if (c == '"')
            field += c;
        field += c;
    }
    return field + '"';
}

} // namespace

SampleTable TableText::read(std::string_view text, TableReader::Decimal decimal, Progress& progress)
{
    TableReader reader(text, decimal);
    const bool hasHead = reader.hasHead();
    std::optional<TableReader::Table> read =
        reader.readAll([&] { progress.at(reader.place(), text.size()); });
    const TableReader::Fault& fault = reader.fault();
    const bool isAmbiguous = fault.kind == TableReader::Fault::Kind::Ambiguous;
    if (!read)
        throw TextFault(fault.line,
                        fault.message() + (isAmbiguous ? "; say --decimal comma or --decimal point" : ""));
    requireRising(*read);
    SampleTable table;
    if (hasHead)
        table.timeName = read->names[0];
    table.times = std::move(read->times);
    for (std::size_t i = 0; i < read->columns.size(); ++i)
        table.curves.push_back({read->names[i + 1], std::move(read->columns[i])});
    return table;
}

std::string TableText::write(const SampleTable& table, char separator)
{
    std::string text = toField(table.timeName);
    for (const SampleTable::Curve& curve : table.curves)
        text += separator + toField(curve.name);
    text += '\n';
    for (std::size_t row = 0; row < table.times.size(); ++row) {
        text += toText(table.times[row]);
        for (const SampleTable::Curve& curve : table.curves)
            text += separator + toText(curve.values[row]);
        text += '\n';
    }
    return text;
}

std::string TableText::writeSensor(const SampleTable& table)
{
    std::string text = SensorTable::head(table.curves.size(), std::int64_t(table.times.size()));
    std::vector<double> values(table.curves.size());
    for (std::size_t row = 0; row < table.times.size(); ++row) {
        std::transform(table.curves.begin(), table.curves.end(), values.begin(),
                       [row](const SampleTable::Curve& curve) { return curve.values[row]; });
        text += SensorTable::row(std::int32_t(table.times[row]), values);
    }
    return text;
}
