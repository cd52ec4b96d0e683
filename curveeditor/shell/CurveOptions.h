// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveOptions.h>
