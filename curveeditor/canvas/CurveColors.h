// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/Oklab.h>

#include <QColor>
#include <QHash>

#include <list>
#include <vector>

struct CurveEditorTheme;

namespace curveeditor {

/// In which colours the curves of an editor are drawn: the host's own, or where the theme adapts them, colours that
/// stand out of its canvas and of each other, in the order in which the host's came. A later one never changes an
/// earlier one.
///
/// Of up to 24 curves those of which the host's colours differ by 0.08 in Oklab do so as drawn, and by 0.05 if they
/// differ by less, where the colours that stand out of the canvas leave room for that; the same colour of the host is
/// always drawn alike. Beyond that number each stands out of the 23 that came before.
class CurveColors
{
public:
    explicit CurveColors(const CurveEditorTheme& theme);

    /// A curve of that colour is there; it is to be removed when it goes or has another colour.
    void add(const QColor& color);
    void remove(const QColor& color);
    /// What it is drawn in when it is current. One that was not added is kept apart from the canvas alone.
    QColor lineOf(const QColor& color) const;
    /// For another theme: gives all of them new colours, in the order in which they came.
    void setTheme(const CurveEditorTheme& theme);

private:
    struct Line
    {
        QColor color;
        Oklab place;
    };
    struct Assigned
    {
        Line host;
        Line drawn;
        int curves = 0;
    };
    using InOrder = std::list<Assigned>;

    void assign(InOrder::iterator which) const;

    bool adapts_ = false;
    std::vector<QColor> backgrounds_;
    std::vector<Line> candidates_;
    InOrder assigned_;
    QHash<QRgb, InOrder::iterator> ofColor_;
};

} // namespace curveeditor
