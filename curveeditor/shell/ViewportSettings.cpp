// SPDX-License-Identifier: MIT
#include <curveeditor/shell/ViewportSettings.h>

#include <curveeditor/shell/DialogParts.h>

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int labelWidth = 30;
constexpr QSize dialogSize(180, 140);

} // namespace

ViewportSettings::ViewportSettings(QWidget* parent, const QString& name, bool /*modal*/,
                                   Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(name.isEmpty() ? QStringLiteral("ViewportSettings") : name);
    setModal(true);

    textLabel3 = numberLabel("textLabel3", this, labelWidth);
    minX = numberLine("minX", this, textLabel3);
    textLabel1 = numberLabel("textLabel1", this, labelWidth);
    minY = numberLine("minY", this, textLabel1);
    textLabel2 = numberLabel("textLabel2", this, labelWidth);
    maxX = numberLine("maxX", this, textLabel2);
    textLabel4 = numberLabel("textLabel4", this, labelWidth);
    maxY = numberLine("maxY", this, textLabel4);
    allDone = named<QPushButton>("allDone", this);
    cancel = named<QPushButton>("cancel", this);
    for (QWidget* widget : std::initializer_list<QWidget*>{textLabel3, minX, textLabel1, minY, textLabel2,
                                                           maxX, textLabel4, maxY, allDone, cancel})
        setDialogFamily(widget);

    ViewportSettingsLayout = outerLayout<QVBoxLayout>("ViewportSettingsLayout", this);
    layout2 = widgetRow("layout2", ViewportSettingsLayout, textLabel3, minX);
    layout5 = widgetRow("layout5", ViewportSettingsLayout, textLabel1, minY);
    layout4 = widgetRow("layout4", ViewportSettingsLayout, textLabel2, maxX);
    layout3 = widgetRow("layout3", ViewportSettingsLayout, textLabel4, maxY);
    layout5_2 = widgetRow("layout5_2", ViewportSettingsLayout, allDone, cancel);

    ViewportSettings::languageChange();
    fixSize(this, dialogSize);
    connect(allDone, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void ViewportSettings::languageChange()
{
    setWindowTitle(tr("viewPort Settings"));
    textLabel3->setText(tr("MinX"));
    textLabel1->setText(tr("MinY"));
    textLabel2->setText(tr("MaxX"));
    textLabel4->setText(tr("MaxY"));
    allDone->setText(tr("Ok"));
    cancel->setText(tr("Cancel"));
}

void ViewportSettings::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        languageChange();
    QDialog::changeEvent(event);
}
