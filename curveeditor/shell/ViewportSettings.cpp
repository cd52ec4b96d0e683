// SPDX-License-Identifier: MIT
#include <curveeditor/shell/ViewportSettings.h>

#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/NumbersForm.h>

#include <tuple>

using namespace curveeditor;

ViewportSettings::ViewportSettings(QWidget* parent, const QString& name, bool /*modal*/,
                                   Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    form_ = new NumbersForm(this, name, {30, {180, 140}}, [this] { languageChange(); });
    ViewportSettingsLayout = form_->column();
    std::tie(layout2, textLabel3, minX) = form_->addNumber("layout2", "textLabel3", "minX");
    std::tie(layout5, textLabel1, minY) = form_->addNumber("layout5", "textLabel1", "minY");
    std::tie(layout4, textLabel2, maxX) = form_->addNumber("layout4", "textLabel2", "maxX");
    std::tie(layout3, textLabel4, maxY) = form_->addNumber("layout3", "textLabel4", "maxY");
    std::tie(layout5_2, allDone, cancel) = form_->addButtons("layout5_2", "allDone", "cancel");
    const QList<QWidget*> widgets = findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        setDialogFamily(widget);
    ViewportSettings::languageChange();
}

void ViewportSettings::accept()
{
    if (form_->checkNumbers())
        QDialog::accept();
}

void ViewportSettings::languageChange()
{
    form_->setTexts(tr("viewPort Settings"), {tr("MinX"), tr("MinY"), tr("MaxX"), tr("MaxY")},
                    {tr("first time"), tr("lowest value"), tr("last time"), tr("highest value")}, tr("Ok"),
                    tr("Cancel"));
}

#include "moc_ViewportSettings.cpp"
