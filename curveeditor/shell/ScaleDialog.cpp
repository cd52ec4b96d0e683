// SPDX-License-Identifier: MIT
#include <curveeditor/shell/ScaleDialog.h>

#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/NumbersForm.h>

#include <tuple>

ScaleDialog::ScaleDialog(QWidget* parent, const QString& name, bool /*modal*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setDialogFamily(this);
    form = new NumbersForm(this, name, {40, {180, 90}}, [this] { languageChange(); });
    ScaleDialogLayout = form->column();
    std::tie(layout2_2, textLabel3_2, scaleX) = form->addNumber("layout2_2", "textLabel3_2", "scaleX");
    std::tie(layout5, textLabel1, scaleY) = form->addNumber("layout5", "textLabel1", "scaleY");
    std::tie(layout5_2, allDoneScale, cancelScale) =
        form->addButtons("layout5_2", "allDoneScale", "cancelScale");
    ScaleDialog::languageChange();
}

void ScaleDialog::languageChange()
{
    form->setTexts(tr("scale selection"), {tr("Scale X"), tr("Scale Y")}, tr("Ok"), tr("Cancel"));
}
