// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

enum class Format { Curve, Table, Sensor, Spectra, Keys };

/// The format that a person names: crv, table, sensor, cgats, sp or json.
std::optional<Format> formatNamed(std::string_view name);

/// The format that the ending of a file's name stands for.
std::optional<Format> formatByEnding(std::string_view fileName);

/// The format by the content, by the ending of the name where the content leaves it open; else `Table`.
Format recognise(std::string_view text, std::string_view fileName);

/// For a person to read.
std::string_view describe(Format format);
