// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/CurveFile.h>

#include <string>
#include <string_view>

/// Reads a curve file as `CurveFile` does, into `curve`; throws a `TextFault` about the line where it is none.
void readCurveText(std::string_view text, CurveFile& curve);

std::string writeCurveText(const CurveFile& curve);
