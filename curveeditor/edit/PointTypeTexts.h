// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/PointTypes.h>

#include <QStringList>

namespace curveeditor {

/// The texts of `PointTypes` for the user, in the language of the moment.
namespace PointTypeTexts {

/// A text of a `PointType`.
QString shown(const char* text);
/// In the order of `PointTypes::all`.
QStringList names();
/// The entries of the combo box of the node page.
QStringList nodes();

} // namespace PointTypeTexts

} // namespace curveeditor
