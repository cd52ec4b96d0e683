// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/CurveFit.h>
#include <curveeditor/shell/FitDialog.h>

class QComboBox;

namespace curveeditor {

/// Makes points of the current curve, be it a formula or a spline, at times of equal distance. The values are those
/// that are not clamped: the limits of the curve act on its points as they did on the formula. Times are shown as
/// the axis shows them.
class BakeDialog final : public FitDialog
{
    Q_OBJECT

public:
    BakeDialog(QWidget* editor, CanvasFunctionBase& canvas);

    void accept() override;

protected:
    Outcome work() override;
    void apply() override;
    void translate() override;

private:
    void addTimes();
    void addKinds();
    bool areFrames() const;
    bool isFitted() const;
    /// In the times that are shown.
    std::optional<CurveFit::Steps> steps() const;
    CurveFit::Options fitOptions() const;
    std::vector<CurveFit::Jump> jumps() const;
    CurveFit::Result bake(CurveFit::Steps steps);
    Outcome outcomeOf(const CurveFit::Steps& steps) const;

    double fps_;
    double shownPerTime_; ///< frames, or 1.0
    CurveFit::Result result_;
    bool isLate_ = false; ///< the curve took too long to evaluate
    NumberLine* from_ = nullptr;
    NumberLine* to_ = nullptr;
    NumberLine* every_ = nullptr;
    QComboBox* kind_ = nullptr;
    NumberLine* tolerance_ = nullptr;
};

} // namespace curveeditor
