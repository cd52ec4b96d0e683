// SPDX-License-Identifier: MIT
#pragma once

#include "Table.h"

#include <curveeditor/files/TableReader.h>

#include <QByteArray>

#include <optional>

/// What a text table holds, or why it is refused.
struct ReadTable
{
    std::optional<Table> table;
    QString reason; ///< for a person to read, behind the number of the line; empty if there is a table
    bool isAmbiguous = false; ///< that is the reason: with a decimal sign it can be read in one way
};

/// The first column is time, each other column a curve, named as "group.curve" or plainly. See `TableReader` for
/// what a table is.
ReadTable readTable(const QByteArray& text, TableReader::Decimal decimal = TableReader::Decimal::FromText);
