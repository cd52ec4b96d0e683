// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>
#include <curveeditor/model/ParseMessage.h>

#include <string>

/// What is wrong with a formula, in English; empty if nothing is. Needs no Qt.
CURVEEDITOR_EXPORT std::string formulaFault(const ParseMessage& message);
