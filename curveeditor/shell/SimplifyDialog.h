// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveTrial.h>
#include <curveeditor/shell/FitDialog.h>

class QCheckBox;

namespace curveeditor {

/// Makes fewer points of the current spline, or of the part between its selected points if these are more than
/// two. The canvas shows the result while the tolerance is typed.
class SimplifyDialog final : public FitDialog
{
    Q_OBJECT

public:
    /// The current curve must be a spline.
    SimplifyDialog(QWidget* editor, CanvasFunctionBase& canvas);

protected:
    Outcome work() override;
    void apply() override;
    void takeBack() override;
    void translate() override;

private:
    void takeSpan();
    Outcome simplify(double tolerance);
    bool hasLostPoint() const;
    void showTrial(bool wasPointLost);

    CurveTrial trial_;
    SplineBase original_;
    std::size_t first_ = 0;
    std::size_t last_ = 0;
    bool isPart_ = false;
    NumberLine* tolerance_;
    QCheckBox* monotone_;
};

} // namespace curveeditor
