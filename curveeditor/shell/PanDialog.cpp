// SPDX-License-Identifier: MIT
#include <curveeditor/shell/PanDialog.h>

#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/NumbersForm.h>

#include <tuple>

using namespace curveeditor;

PanDialog::PanDialog(QWidget* parent, const QString& name, bool /*modal*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setDialogFamily(this);
    form_ = new NumbersForm(this, name, {40, {180, 90}}, [this] { languageChange(); });
    PanDialogLayout = form_->column();
    std::tie(layout2_2, textLabel3_2_2, panX) = form_->addNumber("layout2_2", "textLabel3_2_2", "panX");
    std::tie(layout5, textLabel1_2, panY) = form_->addNumber("layout5", "textLabel1_2", "panY");
    std::tie(layout5_2, allDonePan, cancelPan) = form_->addButtons("layout5_2", "allDonePan", "cancelPan");
    PanDialog::languageChange();
}

void PanDialog::accept()
{
    if (form_->checkNumbers())
        QDialog::accept();
}

void PanDialog::languageChange()
{
    form_->setTexts(tr("pan selection"), {tr("Pan X"), tr("Pan Y")},
                    {tr("units of time"), tr("units of value")}, tr("Ok"), tr("Cancel"));
}

#include "moc_PanDialog.cpp"
