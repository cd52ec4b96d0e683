// SPDX-License-Identifier: MIT
#include <curveeditor/files/SensorTable.h>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

std::string SensorTable::head(std::size_t curves, std::int64_t rows)
{
    return "# KVTR Corvane Sensor Sensibility Data File\n"
           "# file exported with Curve Editor v0.1\n"
           "\n"
           "version \t\t 1.0\n"
           "type \t\t\t cye64\n"
           "num_curves \t\t " +
           std::to_string(curves) + "\nnum_lambdas \t " + std::to_string(rows) + "\n\n";
}

std::string SensorTable::row(std::int32_t lambda, const std::vector<double>& values)
{
    std::string text = std::to_string(lambda) + ",\t";
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> digits{};
    for (const double value : values) {
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                       std::isnan(value) ? 0.0 : value, std::chars_format::fixed, 6);
        text.append(digits.data(), end.ptr).append(",\t");
    }
    return text + '\n';
}
