// SPDX-License-Identifier: MIT
#include <curveeditor/shell/ScaleDialog.h>

#include <curveeditor/shell/DialogParts.h>

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int labelWidth = 40;
constexpr QSize dialogSize(180, 90);

} // namespace

ScaleDialog::ScaleDialog(QWidget* parent, const QString& name, bool /*modal*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(name.isEmpty() ? QStringLiteral("ScaleDialog") : name);
    setModal(true);
    setDialogFamily(this);

    textLabel3_2 = numberLabel("textLabel3_2", this, labelWidth);
    scaleX = numberLine("scaleX", this, textLabel3_2);
    textLabel1 = numberLabel("textLabel1", this, labelWidth);
    scaleY = numberLine("scaleY", this, textLabel1);
    allDoneScale = named<QPushButton>("allDoneScale", this);
    cancelScale = named<QPushButton>("cancelScale", this);

    ScaleDialogLayout = outerLayout<QVBoxLayout>("ScaleDialogLayout", this);
    layout2_2 = widgetRow("layout2_2", ScaleDialogLayout, textLabel3_2, scaleX);
    layout5 = widgetRow("layout5", ScaleDialogLayout, textLabel1, scaleY);
    layout5_2 = widgetRow("layout5_2", ScaleDialogLayout, allDoneScale, cancelScale);

    ScaleDialog::languageChange();
    fixSize(this, dialogSize);
    connect(allDoneScale, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelScale, &QPushButton::clicked, this, &QDialog::reject);
}

void ScaleDialog::languageChange()
{
    setWindowTitle(tr("scale selection"));
    textLabel3_2->setText(tr("Scale X"));
    textLabel1->setText(tr("Scale Y"));
    allDoneScale->setText(tr("Ok"));
    cancelScale->setText(tr("Cancel"));
}

void ScaleDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        languageChange();
    QDialog::changeEvent(event);
}
