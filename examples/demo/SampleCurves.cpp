// SPDX-License-Identifier: MIT
#include "SampleCurves.h"

#include "CurveStore.h"
#include "DistinctColor.h"

#include <specimens/SplineSpecimens.h>

namespace {

using Points = std::vector<SplineBase::PointInfo>;

constexpr auto linear = SplineBase::Linear;
constexpr auto bezier = SplineBase::Bezier;
constexpr auto tcb = SplineBase::Tcb;

constexpr PlaneRange sceneRange{-0.5, 10.5, -4.0, 10.0};     // seconds
constexpr PlaneRange spectrumRange{380.0, 780.0, -1.0, 9.0}; // nanometres

struct Clamp
{
    float low = 0.0F;
    float high = 0.0F;
};

struct SampleSpline
{
    const char* group = nullptr;
    QRgb color = 0;
    Clamp clamp;
    SplineSpecimen shape;
};

struct SampleExpression
{
    const char* group = nullptr;
    const char* name = nullptr;
    QRgb color = 0;
    Clamp clamp;
    PlaneRange range;
    const char* text = nullptr;
};

std::vector<SampleSpline> cameraCurves()
{
    constexpr Clamp degrees{-180.0F, 180.0F};
    return {
        {"Camera",
         0xffffd54f,
         degrees,
         {"pan",
          {{.time = 0.0, .pos = -1.0, .type = bezier},
           {.time = 2.5, .pos = 2.6, .tanLeft = 0.4, .tanRight = 0.4, .type = bezier},
           {.time = 6.0, .pos = -1.8, .tanLeft = -1.6, .tanRight = -1.6, .type = bezier},
           {.time = 10.0, .pos = 1.2, .type = bezier}}}},
        {"Camera",
         0xff4fc3f7,
         degrees,
         {"tilt",
          {{.time = 0.0, .pos = -2.6, .type = tcb},
           {.time = 2.0, .pos = -1.4, .type = tcb},
           {.time = 4.0, .pos = -3.4, .tension = 0.6, .type = tcb},
           {.time = 7.0, .pos = -2.2, .bias = -0.7, .type = tcb},
           {.time = 10.0, .pos = -3.0, .type = tcb}}}},
        {"Camera",
         0xff81c784,
         {0.5F, 20.0F},
         {"zoom",
          {{.time = 1.0, .pos = 3.4, .easeFrom = 0.9, .type = linear},
           {.time = 4.0, .pos = 4.8, .easeTo = 0.9, .type = linear},
           {.time = 6.0, .pos = 4.8, .easeFrom = 0.9, .type = linear},
           {.time = 9.0, .pos = 3.6, .easeTo = 0.9, .type = linear}}}},
        {"Camera",
         0xfff06292,
         {0.1F, 100.0F},
         {"focus distance",
          {{.time = 0.0, .pos = 8.6, .type = tcb},
           {.time = 3.0, .pos = 6.4, .continuity = -0.6, .type = tcb},
           {.time = 5.5, .pos = 7.2, .type = tcb},
           {.time = 8.0, .pos = 9.0, .tension = 0.5, .type = bezier},
           {.time = 10.0, .pos = 8.2, .type = linear}}}},
        {"Camera",
         0xffba68c8,
         {-1.0F, 1.0F},
         {"shake",
          {{.time = 0.0, .pos = 0.0, .type = tcb},
           {.time = 0.2, .pos = 0.4, .type = tcb},
           {.time = 0.5, .pos = -0.5, .type = tcb},
           {.time = 0.7, .pos = 0.2, .type = tcb},
           {.time = 1.0, .pos = 0.0, .type = tcb}},
          SplineBase::Zero,
          SplineBase::Loop}},
    };
}

std::vector<SampleSpline> lightCurves()
{
    constexpr Clamp stops{0.0F, 12.0F};
    return {
        {"Light",
         0xffffb74d,
         stops,
         {"key intensity",
          {{.time = 1.0, .pos = 0.4, .tanRight = 2.0, .type = bezier},
           {.time = 3.0, .pos = 1.9, .type = bezier},
           {.time = 7.0, .pos = 1.6, .type = bezier},
           {.time = 9.0, .pos = 0.6, .tanLeft = -1.4, .type = bezier}},
          SplineBase::Zero,
          SplineBase::Zero}},
        {"Light",
         0xffaed581,
         stops,
         {"rim intensity",
          {{.time = 0.0, .pos = 0.2, .type = linear},
           {.time = 4.0, .pos = 2.2, .type = linear},
           {.time = 8.0, .pos = 1.0, .type = tcb}},
          SplineBase::Constant,
          SplineBase::FollowTangent}},
    };
}

std::vector<SampleSpline> characterCurves()
{
    return {
        {"Character",
         0xff4db6ac,
         {0.0F, 100.0F},
         {"distance walked",
          {{.time = 0.0, .pos = 0.0, .type = tcb},
           {.time = 0.5, .pos = 0.5, .easeTo = 0.5, .type = tcb},
           {.time = 1.0, .pos = 0.8, .type = tcb}},
          SplineBase::Constant,
          SplineBase::LoopOffset}},
        {"Character",
         0xffe57373,
         {-10.0F, 10.0F},
         {"hip height",
          {{.time = 0.0, .pos = 1.0, .type = tcb},
           {.time = 0.25, .pos = 1.15, .type = tcb},
           {.time = 0.5, .pos = 1.0, .type = tcb}},
          SplineBase::Constant,
          SplineBase::Loop}},
    };
}

// The colour matching functions are the multi-lobe fit of Wyman, Sloan and Shirley, "Simple Analytic
// Approximations to the CIE XYZ Color Matching Functions", JCGT 2(2), 2013: sums of Gaussians with one width
// on each side.
const SampleExpression sampleExpressions[] = {
    {"Light", "flicker", 0xffff8a65, {0.0F, 12.0F}, sceneRange, "5.8+0.2*sin(f/3)*sin(f/7.3)+0.1*sin(f/1.9)"},
    {"Light",
     "fill intensity",
     0xff90a4ae,
     {0.0F, 12.0F},
     sceneRange,
     "if(light.key_intensity>0, 0.4*light.key_intensity+0.05*camera.pan, 0.1)"},
    {"Observer",
     "x",
     0xffff5252,
     {-1.0F, 10.0F},
     spectrumRange,
     "1.056*exp(-((t-599.8)/if(t<599.8,37.9,31.0))^2/2)"
     "+0.362*exp(-((t-442.0)/if(t<442.0,16.0,26.7))^2/2)"
     "-0.065*exp(-((t-501.1)/if(t<501.1,20.4,26.2))^2/2)"},
    {"Observer",
     "y",
     0xff69f0ae,
     {-1.0F, 10.0F},
     spectrumRange,
     "0.821*exp(-((t-568.8)/if(t<568.8,46.9,40.5))^2/2)"
     "+0.286*exp(-((t-530.9)/if(t<530.9,16.3,31.1))^2/2)"},
    {"Observer",
     "z",
     0xff82b1ff,
     {-1.0F, 10.0F},
     spectrumRange,
     "1.217*exp(-((t-437.0)/if(t<437.0,11.8,36.0))^2/2)"
     "+0.681*exp(-((t-459.0)/if(t<459.0,26.0,13.8))^2/2)"},
    {"Observer",
     "sensor",
     0xffeeeeee,
     {-1.0F, 10.0F},
     spectrumRange,
     "1/14 cos(t)+3*exp(-(t-520)^2/2000)+8*exp(-(t-600)^2/2000)+2*exp(-(t-700)^2/4000)"},
};

Curve* addCurve(CurveStore& store, const char* group, const std::string& name, const QColor& color,
                Clamp clamp, const PlaneRange& range)
{
    Curve* curve = store.add(group, QString::fromStdString(name));
    curve->color = color;
    curve->minValue = clamp.low;
    curve->maxValue = clamp.high;
    curve->range = range;
    return curve;
}

void addSplines(CurveStore& store, const std::vector<SampleSpline>& samples)
{
    for (const SampleSpline& sample : samples) {
        Curve* curve =
            addCurve(store, sample.group, sample.shape.name, sample.color, sample.clamp, sceneRange);
        sample.shape.fill(curve->spline);
        curve->defaultValue = float(sample.shape.points.front().pos);
    }
}

} // namespace

void addSampleCurves(CurveStore& store)
{
    addSplines(store, cameraCurves());
    addSplines(store, lightCurves());
    addSplines(store, characterCurves());
    for (const SampleExpression& sample : sampleExpressions) {
        Curve* curve = addCurve(store, sample.group, sample.name, sample.color, sample.clamp, sample.range);
        store.setExpression(*curve, sample.text);
    }
    for (const SplineSpecimen& specimen : splineSpecimens()) {
        Curve* curve = addCurve(store, "Specimens", specimen.name, distinctColor(store.getCurves().size()),
                                {-1e6F, 1e6F}, sceneRange);
        specimen.fill(curve->spline);
    }
}

QStringList curvesOpenAtStart()
{
    return {QStringLiteral("Light.flicker"),         QStringLiteral("Light.key intensity"),
            QStringLiteral("Camera.focus distance"), QStringLiteral("Camera.zoom"),
            QStringLiteral("Camera.tilt"),           QStringLiteral("Camera.pan")};
}
