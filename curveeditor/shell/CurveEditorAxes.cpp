// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QLabel>

#include <cmath>
#include <utility>

using namespace curveeditor;

void CurveEditor::setShowTime()
{
    d_->countFrames(false);
}

void CurveEditor::setShowFrames()
{
    d_->countFrames(true);
}

void CurveEditor::Private::countFrames(bool on)
{
    const bool isOther = editor.isModeFrames() != on;
    const double time = timeTyped();
    functionEdit->setShowFrames(on);
    showTimeLabel();
    if (isOther)
        showTimes(time);
}

void CurveEditor::setTimeText(std::function<QString(double)> write,
                              std::function<std::optional<double>(const QString&)> read)
{
    const bool isEmpty = posX->text().isEmpty();
    const double time = d_->timeTyped();
    d_->functionEdit->timeText = AxisText(std::move(write), std::move(read));
    posX->setAxisText(d_->functionEdit->timeText);
    d_->funcTimeEdit->setAxisText(d_->functionEdit->timeText);
    d_->showTimeLabel();
    d_->showTimes(time);
    if (isEmpty)
        posX->clear();
    d_->showAxes();
}

void CurveEditor::setValueText(std::function<QString(double)> write,
                               std::function<std::optional<double>(const QString&)> read)
{
    const std::optional<double> value = posY->number();
    const AxisText& text = d_->functionEdit->valueText = AxisText(std::move(write), std::move(read));
    for (CustomEditLine* const field : {posY, d_->funcCursorEdit, d_->funcValueEdit})
        field->setAxisText(text);
    if (value)
        posY->setValue(*value);
    d_->functionEdit->showSelection(false);
    d_->showAxes();
}

void CurveEditor::Private::showAxes()
{
    editor.fitToFont();
    showMousePlace();
    paintChangedView();
}

/// What stands in the field for the time of a point.
double CurveEditor::Private::timeTyped() const
{
    const double number = editor.posX->number().value_or(0.0);
    if (!std::isfinite(number))
        return 0.0;
    return functionEdit->writesFrames() ? timeOfFrame(number) : number;
}

void CurveEditor::Private::showTimes(double time)
{
    editor.posX->setValue(functionEdit->shownTime(time));
    showTimeBounds();
    functionEdit->showSelection(false);
    functionEdit->canvas.paint();
}

void CurveEditor::Private::showTimeLabel()
{
    editor.textLabel1->setText(functionEdit->writesFrames() ? CurveEditor::tr("Frame:")
                                                            : CurveEditor::tr("Time:"));
}

void CurveEditor::setPosInfo(const double& valueX, const double& valueY)
{
    posX->setValue(d_->functionEdit->shownTime(valueX));
    posY->setValue(valueY);
}

void CurveEditor::setFuncPosInfo(const double& valueX, const double& valueY, const double& val)
{
    d_->mousePlace = {valueX, valueY, std::isnan(val) ? 0.0 : val};
    d_->showMousePlace();
}

void CurveEditor::Private::showMousePlace()
{
    if (!mousePlace)
        return;
    const QString timeLabel =
        functionEdit->writesFrames() ? CurveEditor::tr("Frame") : CurveEditor::tr("Time");
    funcTimeEdit->setValue(functionEdit->shownTime(mousePlace->time), timeLabel.toUtf8());
    funcCursorEdit->setValue(mousePlace->value, CurveEditor::tr("Cursor").toUtf8());
    funcValueEdit->setValue(mousePlace->curveValue, CurveEditor::tr("Value").toUtf8());
}
