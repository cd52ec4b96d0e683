// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/Ease.h>
#include <curveeditor/shell/FitDialog.h>

#include <array>

namespace curveeditor {

/// Asks for the four numbers of an ease of style sheets, and says how many points it takes.
class EaseDialog final : public FitDialog
{
    Q_OBJECT

public:
    EaseDialog(QWidget* editor, CanvasFunctionBase& canvas, const Ease::CssNumbers& numbers);

Q_SIGNALS:
    /// OK was pressed; they are CSS.
    void chosen(const curveeditor::Ease::CssNumbers& numbers);

protected:
    Outcome work() override;
    void apply() override;
    void translate() override;

private:
    std::array<NumberLine*, 4> lines_{};
    Ease::CssNumbers numbers_;
};

} // namespace curveeditor
