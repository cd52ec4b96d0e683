// SPDX-License-Identifier: MIT

// Pastes any text. The points that are read are finite, ascend in time, and read back the same from the text that is
// written of them; a text that is refused has a message that shows.

#include "Require.h"

#include <curveeditor/edit/PointText.h>
#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

using namespace curveeditor;

namespace {

using PointInfo = SplineBase::PointInfo;
using Points = std::vector<PointInfo>;

void requirePoint(const PointInfo& point)
{
    for (const double number : {point.time, point.pos, point.tanLeft, point.tanRight, point.tension,
                                point.continuity, point.bias, point.easeTo, point.easeFrom})
        require(std::isfinite(number));
    require(point.type >= SplineBase::Linear && point.type <= SplineBase::Hold && point.serial == 0);
}

void paste(const QString& text, TableReader::Decimal decimal)
{
    const auto [points, message, isEmpty, isAmbiguous] = PointText::read(text, decimal);
    require(points.empty() != message.isEmpty());
    require(!isEmpty || (points.empty() && !isAmbiguous));
    require(!isAmbiguous || decimal == TableReader::Decimal::FromText);
    require(std::all_of(message.begin(), message.end(), [](QChar letter) { return letter.isPrint(); }));
    if (points.empty())
        return;
    std::for_each(points.begin(), points.end(), requirePoint);
    require(std::is_sorted(points.begin(), points.end(),
                           [](const auto& left, const auto& right) { return left.time < right.time; }));
    const Points again = PointText::read(PointText::write(points)).points;
    require(std::equal(again.begin(), again.end(), points.begin(), points.end(), isSamePoint));
}

void paste(const QString& text)
{
    for (const auto decimal :
         {TableReader::Decimal::FromText, TableReader::Decimal::Comma, TableReader::Decimal::Point})
        paste(text, decimal);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    paste(QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size)));
    // As it is on the clipboard of some systems: halves of letters may stand alone.
    QString units;
    for (std::size_t i = 1; i < size; i += 2)
        units += QChar(char16_t(data[i - 1] << 8 | data[i]));
    paste(units);
    return 0;
}
