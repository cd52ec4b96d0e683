// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/TableReader.h>

#include <QString>

#include <optional>
#include <string_view>

/// Asks the user in a window of its own which sign is the decimal one in a table that `TableReader` can read in two
/// ways, and shows the first rows of each. Nothing if the user doesn't say. The window needs no parent, and what a
/// host does meanwhile, such as to delete an editor, does it no harm.
CURVEEDITOR_EXPORT std::optional<TableReader::Decimal> askForDecimal(const QString& title,
                                                                     std::string_view text);
