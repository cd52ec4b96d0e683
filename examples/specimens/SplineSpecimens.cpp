// SPDX-License-Identifier: MIT
#include <specimens/SplineSpecimens.h>

#include <initializer_list>
#include <utility>

namespace {

using PointInfo = SplineBase::PointInfo;
using Points = std::vector<PointInfo>;

Points pointsOfType(std::int32_t type, std::initializer_list<std::pair<double, double>> places)
{
    Points points;
    for (const auto& [time, value] : places) {
        PointInfo& point = points.emplace_back();
        point.time = time;
        point.pos = value;
        point.type = type;
    }
    return points;
}

/// Five points at uneven distances, up, down and level.
Points wave(std::int32_t type)
{
    return pointsOfType(type, {{0.0, 0.0}, {1.0, 2.0}, {1.5, 1.0}, {4.0, 1.0}, {5.0, 3.0}});
}

Points waveWith(std::int32_t type, double PointInfo::*field, double value)
{
    Points points = wave(type);
    for (PointInfo& point : points)
        point.*field = value;
    return points;
}

Points waveWithSlopes(double arriving, double leaving)
{
    Points points = waveWith(SplineBase::Bezier, &PointInfo::tanLeft, arriving);
    for (PointInfo& point : points)
        point.tanRight = leaving;
    return points;
}

Points mixed()
{
    Points points = waveWithSlopes(1.0, -1.0);
    const std::int32_t types[] = {SplineBase::Tcb, SplineBase::Linear, SplineBase::Bezier, SplineBase::Tcb,
                                  SplineBase::Linear};
    for (std::size_t i = 0; i < points.size(); ++i)
        points[i].type = types[i];
    return points;
}

Points mixedWithHold()
{
    Points points = mixed();
    points[2].type = points[4].type = SplineBase::Hold;
    return points;
}

std::vector<SplineSpecimen> makeSpecimens()
{
    using enum SplineBase::NodeType;
    std::vector<SplineSpecimen> specimens = {
        {"linear", wave(Linear)},
        {"bezier", waveWithSlopes(1.5, -0.5)},
        {"tcb", wave(Tcb)},
        {"hold", wave(Hold)},
        {"mixed types", mixed()},
        {"mixed with hold", mixedWithHold(), SplineBase::Constant, SplineBase::LoopOffset},
        {"before zero", wave(Tcb), SplineBase::Zero},
        {"after zero", wave(Tcb), SplineBase::Constant, SplineBase::Zero},
        {"after constant", wave(Tcb), SplineBase::Constant, SplineBase::Constant},
        {"after loop", wave(Tcb), SplineBase::Constant, SplineBase::Loop},
        {"after loop offset", wave(Tcb), SplineBase::Constant, SplineBase::LoopOffset},
        {"after follow tangent", wave(Tcb), SplineBase::Constant, SplineBase::FollowTangent},
        {"one point", pointsOfType(Tcb, {{1.0, 2.0}}), SplineBase::Constant, SplineBase::LoopOffset},
        {"two points", pointsOfType(Tcb, {{1.0, 2.0}, {3.0, -1.0}}), SplineBase::Constant,
         SplineBase::FollowTangent},
        {"step of equal times",
         pointsOfType(Tcb, {{0.0, 0.0}, {1.0, 0.0}, {1.0, 2.0}, {1.0, 1.0}, {2.0, 1.0}})},
        {"no span", pointsOfType(Bezier, {{1.0, 0.0}, {1.0, 3.0}, {1.0, 2.0}}), SplineBase::Zero,
         SplineBase::Loop},
        {"vertical tangents", waveWithSlopes(1000.0, 1000.0)},
        {"overhanging tangents", waveWithSlopes(-1000.0, 1000.0)},
        {"huge numbers", pointsOfType(Tcb, {{-1e300, 1e300}, {0.0, -1e300}, {1e300, 1e300}}),
         SplineBase::Constant, SplineBase::LoopOffset},
        {"tiny numbers", pointsOfType(Tcb, {{-3e-308, 100.0}, {0.0, -1e-300}, {3e-308, 100.0}}),
         SplineBase::Constant, SplineBase::FollowTangent},
    };
    const std::pair<const char*, double PointInfo::*> shapes[] = {
        {"tension", &PointInfo::tension}, {"continuity", &PointInfo::continuity}, {"bias", &PointInfo::bias}};
    for (const auto& [name, field] : shapes) {
        for (const int value : {-10, -1, 1, 10}) {
            const std::string title = std::string(name) + ' ' + std::to_string(value);
            specimens.push_back({title, waveWith(Tcb, field, value)});
        }
    }
    const std::pair<const char*, double PointInfo::*> eases[] = {{"ease to", &PointInfo::easeTo},
                                                                 {"ease from", &PointInfo::easeFrom}};
    for (const auto& [name, field] : eases) {
        for (const int value : {-1, 1}) {
            const std::string suffix = std::string(name) + ' ' + std::to_string(value);
            specimens.push_back({"linear " + suffix, waveWith(Linear, field, value)});
            specimens.push_back({"tcb " + suffix, waveWith(Tcb, field, value), SplineBase::Constant,
                                 SplineBase::FollowTangent});
        }
    }
    return specimens;
}

} // namespace

void SplineSpecimen::fill(SplineBase& spline) const
{
    spline.reset();
    spline.setTime(spline.modify(0), points.front().time);
    for (std::size_t i = 1; i < points.size(); ++i)
        spline.addPoint(points[i].time, points[i].pos);
    for (unsigned i = 0; i < points.size(); ++i)
        *spline.modify(i) = points[i];
    spline.firstType = firstType;
    spline.lastType = lastType;
}

const std::vector<SplineSpecimen>& splineSpecimens()
{
    static const std::vector<SplineSpecimen> specimens = makeSpecimens();
    return specimens;
}
