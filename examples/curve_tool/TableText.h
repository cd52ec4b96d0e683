// SPDX-License-Identifier: MIT
#pragma once

#include "SampleTable.h"

#include <curveeditor/files/TableReader.h>

#include <string>
#include <string_view>

class Progress;

/// Text tables, see `TableReader`: the first column is time, each other column a curve.
///
/// A sensor table is one with a head, a row for each whole number of time, and no names.
namespace TableText {

/// Either of both. Throws a `TextFault` for a text that is not a whole table, that can be read in two ways, or in
/// which a time is there twice.
SampleTable read(std::string_view text, TableReader::Decimal decimal, Progress& progress);

/// A line of names and a line for each row, in numbers that read back to the same. `separator` is a tab or a
/// comma. Every value is finite.
std::string write(const SampleTable& table, char separator);

/// The times are whole numbers of 32 bits. Values have six decimals; not-a-number is written as 0.0.
std::string writeSensor(const SampleTable& table);

} // namespace TableText
