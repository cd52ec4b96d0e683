// SPDX-License-Identifier: MIT

// Feeds any text to the reader of keys. What it takes must be whole and read back the same once it was written, and as
// a spline it must be finite and come back as keys without a deviation; what it refuses must have a line within the text.

#include "TableChecks.h"

#include <KeysText.h>

#include <curveeditor/model/CurveKeys.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace {

std::optional<KeysText> read(const std::string& text)
{
    try {
        return KeysText::read(text);
    } catch (const TextFault& fault) {
        requireLine(fault, text);
        return std::nullopt;
    }
}

void requireCurve(const CurveKeys::Curve& curve)
{
    require(CurveKeys::isWhole(curve));
    SplineBase spline;
    require(spline.assign(CurveKeys::toSpline(curve, 1e-3).spline));
    const CurveKeys::Keys keys = CurveKeys::fromSpline(spline, 0.0);
    const CurveKeys::Points points = CurveKeys::toSpline(keys.curve, 0.0);
    require(keys.deviation == 0.0 && points.deviation == 0.0);
    require(points.spline.points.size() == spline.getControlPointsNumber());
    for (const SplineBase::PointInfo& point : points.spline.points)
        require(std::isfinite(spline(point.time)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto keys = read(std::string(reinterpret_cast<const char*>(data), size));
    if (!keys)
        return 0;
    const std::string written = keys->write();
    const auto again = read(written);
    require(again && again->write() == written);
    if (keys->formula.empty())
        requireCurve(keys->curve);
    return 0;
}
