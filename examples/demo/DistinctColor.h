// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <cstddef>

/// A bright colour that stands out on black, and from those of the neighbouring indices.
QColor distinctColor(std::size_t index);
