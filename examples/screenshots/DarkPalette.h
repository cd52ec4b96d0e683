// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

/// The colours of the pictures in the dark.
QPalette darkPalette();
