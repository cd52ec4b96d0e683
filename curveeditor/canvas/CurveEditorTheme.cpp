// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveEditorTheme.h>

#include <curveeditor/canvas/ColorContrast.h>

#include <QPalette>

#include <algorithm>
#include <cmath>

using namespace curveeditor;

namespace {

constexpr double contrastOfTexts = 4.5;
const QRgb red = qRgb(229, 57, 64);
const QRgb orange = qRgb(217, 119, 6);

template <typename Number> void bound(Number& number, double low, double high)
{
    number = std::isfinite(double(number)) ? Number(std::clamp(double(number), low, high)) : Number(low);
}

/// All colours from three: that of the canvas, of what is written on it, and of what is selected.
CurveEditorTheme themeOf(const QColor& canvas, const QColor& text, const QColor& accent)
{
    CurveEditorTheme theme;
    const QColor ink = contrastingColor(text, {canvas}, contrastOfTexts);
    const QColor selection = mixedColor(accent, canvas, 0.16);
    const auto part = [&](const QColor& color) {
        return contrastingColor(color, {canvas, selection}, contrastOfParts);
    };
    theme.canvas = canvas;
    theme.selection = selection;
    theme.mark = part(mixedColor(ink, canvas, 0.55));
    theme.hint = contrastingColor(mixedColor(ink, canvas, 0.65), {canvas}, contrastOfTexts);

    theme.gridLines = mixedColor(ink, canvas, 0.16);
    theme.fineGridLines = mixedColor(ink, canvas, 0.06);
    theme.zeroLines = mixedColor(ink, canvas, 0.28);
    theme.frameVLine = theme.frameHLine = theme.zeroLines;
    theme.labels = contrastingColor(mixedColor(ink, canvas, 0.65), {canvas}, contrastOfTexts);
    theme.labelFamily.clear();
    theme.labelPoints = 0.0;
    theme.labelStretch = 100;
    theme.spacesLabels = true;
    theme.timeLine = part(red);
    theme.timeLineWidth = 1.0;
    theme.timeLineBlends = false;
    theme.timeLineGrip = 13;

    theme.namesCurves = true;
    theme.curveWidth = 2.5;
    theme.otherCurveWidth = 1.5;
    theme.otherCurveShare = 1.0;
    theme.smooth = true;
    theme.adaptsCurveColors = true;

    theme.controlPoint = part(mixedColor(ink, canvas, 0.85));
    theme.controlPointSelected = part(accent);
    theme.controlPointOutline = canvas;
    theme.guide = mixedColor(theme.controlPointSelected, canvas, 0.5);
    theme.pointShape = CurveEditorTheme::Shape::Circle;
    theme.selectedPointShape = CurveEditorTheme::Shape::Diamond;
    theme.pointSize = 7;
    theme.selectedPointSize = 11;
    theme.controller = part(mixedColor(ink, canvas, 0.6));
    theme.controllerSelected = part(orange);
    theme.handleSize = 7;
    theme.fixedHandleSize = 5;

    theme.panelFamily.clear();
    theme.field = theme.formula = theme.preview = canvas;
    theme.fieldText = theme.formulaText = ink;
    theme.formulaWarning = contrastingColor(red, {canvas}, contrastOfTexts);
    theme.previewCurve = part(mixedColor(ink, canvas, 0.85));
    theme.previewMiddle = theme.controlPointSelected;
    return theme;
}

} // namespace

CurveEditorTheme CurveEditorTheme::described()
{
    return {};
}

CurveEditorTheme CurveEditorTheme::light()
{
    return themeOf(QColor(252, 253, 254), QColor(31, 35, 40), QColor(9, 105, 218));
}

CurveEditorTheme CurveEditorTheme::dark()
{
    return themeOf(QColor(22, 25, 30), QColor(230, 237, 243), QColor(76, 155, 255));
}

CurveEditorTheme CurveEditorTheme::fromPalette(const QPalette& palette)
{
    CurveEditorTheme theme = themeOf(palette.color(QPalette::Active, QPalette::Base),
                                     palette.color(QPalette::Active, QPalette::Text),
                                     palette.color(QPalette::Active, QPalette::Highlight));
    theme.followsPalette = true;
    return theme;
}

CurveEditorTheme CurveEditorTheme::bounded() const
{
    CurveEditorTheme theme = *this;
    for (double* const width : {&theme.gridWidth, &theme.frameWidth, &theme.timeLineWidth, &theme.curveWidth,
                                &theme.otherCurveWidth, &theme.dottedWidth, &theme.handleWidth})
        bound(*width, 0.5, 20.0);
    for (int* const size :
         {&theme.pointSize, &theme.selectedPointSize, &theme.handleSize, &theme.fixedHandleSize,
          &theme.grabDistance, &theme.handleGrabDistance, &theme.curveGrabDistance})
        bound(*size, 1.0, 100.0);
    theme.canvas.setAlpha(255);
    bound(theme.labelPoints, 0.0, 100.0);
    bound(theme.handleLength, 1.0, 100.0);
    bound(theme.timeLineGrip, 0.0, 100.0);
    bound(theme.labelStretch, 50.0, 200.0);
    bound(theme.otherCurveShare, 0.0, 1.0);
    return theme;
}
