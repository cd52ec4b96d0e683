// SPDX-License-Identifier: MIT
#include <curveeditor/shell/EaseDialog.h>

#include <curveeditor/canvas/PointCommands.h>
#include <curveeditor/shell/DialogParts.h>

#include <limits>

namespace curveeditor {

namespace {

constexpr std::array<const char*, 4> cssNames = {"x1", "y1", "x2", "y2"};

} // namespace

EaseDialog::EaseDialog(QWidget* editor, CanvasFunctionBase& canvas, const Ease::CssNumbers& numbers)
    : FitDialog(editor, canvas, editable(canvas).front()), numbers_(numbers)
{
    setProperty(partOfDialog, QVariant()); // of none
    for (std::size_t i = 0; i < cssNames.size(); ++i)
        lines_[i] = addNumber(cssNames[i], numbers[i]);
    lines_[0]->selectAll();
    lines_[0]->setFocus();
    addOutcome();
}

void EaseDialog::translate()
{
    setWindowTitle(tr("CSS ease"));
    for (std::size_t i = 0; i < cssNames.size(); ++i)
        setLabel(lines_[i], QLatin1String(cssNames[i]));
}

FitDialog::Outcome EaseDialog::work()
{
    for (std::size_t i = 0; i < cssNames.size(); ++i)
        numbers_[i] = lines_[i]->number().value_or(std::numeric_limits<double>::quiet_NaN());
    if (!Ease::isCss(numbers_))
        return {tr("x1 and x2 are numbers from 0 to 1, y1 and y2 from %1 to %2.")
                    .arg(-Ease::greatestHeight)
                    .arg(Ease::greatestHeight),
                false};
    if (const QString refusal = PointCommands(canvas()).easeRefusal(); !refusal.isEmpty())
        return {refusal, false};
    return {tr("Points added to a segment: %1").arg(Ease::css(numbers_).points().size() - 2), true};
}

void EaseDialog::apply()
{
    Q_EMIT chosen(numbers_);
}

} // namespace curveeditor

#include "moc_EaseDialog.cpp"
