// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/TableReader.h>

#include <QString>
#include <QWidget>

#include <optional>
#include <string_view>

/// Asks the user in a window of its own which sign is the decimal one in a table that `TableReader` can read in two
/// ways, and shows the first rows of each. Nothing if the user doesn't say, or if `parent`, which may be
/// null, was deleted meanwhile.
CURVEEDITOR_EXPORT std::optional<TableReader::Decimal> askForDecimal(QWidget* parent, const QString& title,
                                                                     std::string_view text);
