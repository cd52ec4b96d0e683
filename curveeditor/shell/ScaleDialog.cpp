// SPDX-License-Identifier: MIT
#include <curveeditor/shell/ScaleDialog.h>

#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/NumbersForm.h>

#include <tuple>

using namespace curveeditor;

ScaleDialog::ScaleDialog(QWidget* parent, const QString& name, bool /*modal*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setDialogFamily(this);
    form_ = new NumbersForm(this, name, {40, {180, 90}}, [this] { languageChange(); });
    ScaleDialogLayout = form_->column();
    std::tie(layout2_2, textLabel3_2, scaleX) = form_->addNumber("layout2_2", "textLabel3_2", "scaleX");
    std::tie(layout5, textLabel1, scaleY) = form_->addNumber("layout5", "textLabel1", "scaleY");
    std::tie(layoutPivotX, textPivotX, pivotX) = form_->addNumber("layoutPivotX", "textPivotX", "pivotX");
    std::tie(layoutPivotY, textPivotY, pivotY) = form_->addNumber("layoutPivotY", "textPivotY", "pivotY");
    std::tie(layout5_2, allDoneScale, cancelScale) =
        form_->addButtons("layout5_2", "allDoneScale", "cancelScale");
    ScaleDialog::languageChange();
}

void ScaleDialog::accept()
{
    if (form_->checkNumbers())
        QDialog::accept();
}

void ScaleDialog::languageChange()
{
    form_->setTexts(
        tr("scale selection"), {tr("Scale X"), tr("Scale Y"), tr("Pivot X"), tr("Pivot Y")},
        {tr("factor of times"), tr("factor of values"), tr("time that stays"), tr("value that stays")},
        tr("Ok"), tr("Cancel"));
}

#include "moc_ScaleDialog.cpp"
