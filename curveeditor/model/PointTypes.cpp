// SPDX-License-Identifier: MIT
#include <curveeditor/model/PointTypes.h>

#include <curveeditor/model/SplineBase.h>

#include <algorithm>

namespace curveeditor {

#define QT_TRANSLATE_NOOP(context, text) text // by which lupdate finds the texts

namespace {

constexpr PointType builtInTypes[] = {
    {SplineBase::Linear, "Linear", QT_TRANSLATE_NOOP("PointType", "Linear"),
     QT_TRANSLATE_NOOP("PointType", "Linear node"), QT_TRANSLATE_NOOP("PointType", "Linear point"),
     QT_TRANSLATE_NOOP("PointType", "Selection to Linear"), 2, 1},
    {SplineBase::Bezier, "Bezier", QT_TRANSLATE_NOOP("PointType", "Bezier"),
     QT_TRANSLATE_NOOP("PointType", "Bezier node"), QT_TRANSLATE_NOOP("PointType", "Bezier point"),
     QT_TRANSLATE_NOOP("PointType", "Selection to Bezier"), 1, 2},
    {SplineBase::Tcb, "Tcb", QT_TRANSLATE_NOOP("PointType", "Tcb"),
     QT_TRANSLATE_NOOP("PointType", "Tcb node"), QT_TRANSLATE_NOOP("PointType", "Tcb point"),
     QT_TRANSLATE_NOOP("PointType", "Selection to Tcb"), 0, 3},
    {SplineBase::Hold, "Hold", QT_TRANSLATE_NOOP("PointType", "Hold"),
     QT_TRANSLATE_NOOP("PointType", "Hold node"), QT_TRANSLATE_NOOP("PointType", "Hold point"),
     QT_TRANSLATE_NOOP("PointType", "Selection to Hold"), 3, 6},
};

constexpr bool areSound(std::span<const PointType> types)
{
    unsigned entries = 0;
    unsigned ids = 1U << 4 | 1U << 5;
    for (const PointType& type : types) {
        if (ids >> type.menuId & 1U)
            return false;
        ids |= 1U << type.menuId;
        entries |= 1U << type.entry;
    }
    return entries + 1 == 1U << types.size();
}
static_assert(areSound(builtInTypes));

constinit std::span<const PointType> typesInUse = builtInTypes;

} // namespace

std::span<const PointType> PointTypes::all()
{
    return typesInUse;
}

const PointType& PointTypes::of(std::int32_t number)
{
    const auto found = std::find_if(typesInUse.begin(), typesInUse.end(),
                                    [number](const PointType& type) { return type.number == number; });
    return found == typesInUse.end() ? typesInUse.front() : *found;
}

void PointTypes::use(std::span<const PointType> types)
{
    typesInUse = types;
}

} // namespace curveeditor
