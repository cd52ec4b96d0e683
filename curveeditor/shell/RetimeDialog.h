// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveTrial.h>
#include <curveeditor/edit/PointTransform.h>
#include <curveeditor/shell/FitDialog.h>

#include <memory>
#include <vector>

class QComboBox;

namespace curveeditor {

/// Scales the selected points of all curves in reach, and the curves between them, by factors about a place, as the
/// transform box does with the mouse. The canvas shows the result while the factors are typed.
class RetimeDialog final : public FitDialog
{
    Q_OBJECT

public:
    /// A point must be selected.
    RetimeDialog(QWidget* editor, CanvasFunctionBase& canvas);

protected:
    Outcome work() override;
    void apply() override;
    void takeBack() override;
    bool isStale() const override;
    void translate() override;

private:
    enum class Pivot { FirstPoint, TimeLine, Middle };

    /// A curve as it was, and its points that are scaled.
    struct Part
    {
        std::unique_ptr<SplineBase> original;
        PointTransform points;
        PlaneMapping plane; ///< in which the curve was seen
    };

    void addParts(const CanvasCurves::Nodes& nodes);
    PointDrag::Place pivot() const;
    void showBefore();
    Outcome transform(double timeFactor, double valueFactor);
    QString summary(bool mayBend) const;
    void showTrial();

    CurveTrial trial_;
    std::vector<Part> parts_; ///< one for each curve of the trial
    PlaneMapping view_;       ///< at first
    PlaneFrame frame_;        ///< about the points, in the view
    PointDrag::Place first_;  ///< the first of the points, there too
    NumberLine* timeFactor_;
    NumberLine* valueFactor_;
    QComboBox* pivot_;
};

} // namespace curveeditor
