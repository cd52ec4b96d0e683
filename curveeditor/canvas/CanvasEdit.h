// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasCurves.h>

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <optional>

namespace curveeditor {

/// One edit of curves of a canvas, as `CanvasFunctionBase::edit` does it: at which curves, what it is called, what is
/// done, and who is told. A value.
struct CanvasEdit
{
    Q_DECLARE_TR_FUNCTIONS(CanvasEdit)

public:
    using Nodes = CanvasCurves::Nodes;
    using Text = std::function<QString(const Nodes&)>;
    using Work = std::function<void(CurveNodeBase&)>;

    /// Whose `curveHasChanged` is emitted.
    enum class Told {
        Nobody,
        Targets,       ///< all targets, whether they have changed or not
        Current,       ///< the current curve in any case, then each other one that has changed
        ChangedOfMany, ///< each that has changed, unless it is the only one
    };

    /// What the user reads in the undo stack.
    Text text;
    /// The curves to be edited. Asked when all that was open has ended, as that may take curves away; with none
    /// nothing is done.
    std::function<Nodes(const CanvasCurves&)> targets = &CanvasCurves::currentOnly;
    /// What is done with each of them. It runs nothing foreign.
    Work work;
    Told told = Told::Nobody;
    /// The formula line may show another text afterwards.
    bool changesFormula = false;
    /// The selection, or a point of it, is to be shown anew; true opens the node page.
    std::optional<bool> showsSelection = std::nullopt;

    /// The name of the first target in the place of `text`.
    static Text ofCurve(const QString& text);
    /// `one` with the curve's name, or `many` with the number of selected points and the name or number of the curves.
    static Text ofPoints(const QString& one, const QString& many);
};

} // namespace curveeditor
