// SPDX-License-Identifier: MIT
#include <curveeditor/shell/PanDialog.h>

#include <curveeditor/shell/DialogParts.h>

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int labelWidth = 40;
constexpr QSize dialogSize(180, 90);

} // namespace

PanDialog::PanDialog(QWidget* parent, const QString& name, bool /*modal*/, Qt::WindowFlags flags)
    : QDialog(parent, flags)
{
    setObjectName(name.isEmpty() ? QStringLiteral("PanDialog") : name);
    setModal(true);
    setDialogFamily(this);

    textLabel3_2_2 = numberLabel("textLabel3_2_2", this, labelWidth);
    panX = numberLine("panX", this, textLabel3_2_2);
    textLabel1_2 = numberLabel("textLabel1_2", this, labelWidth);
    panY = numberLine("panY", this, textLabel1_2);
    allDonePan = named<QPushButton>("allDonePan", this);
    cancelPan = named<QPushButton>("cancelPan", this);

    PanDialogLayout = outerLayout<QVBoxLayout>("PanDialogLayout", this);
    layout2_2 = widgetRow("layout2_2", PanDialogLayout, textLabel3_2_2, panX);
    layout5 = widgetRow("layout5", PanDialogLayout, textLabel1_2, panY);
    layout5_2 = widgetRow("layout5_2", PanDialogLayout, allDonePan, cancelPan);

    PanDialog::languageChange();
    fixSize(this, dialogSize);
    connect(allDonePan, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelPan, &QPushButton::clicked, this, &QDialog::reject);
}

void PanDialog::languageChange()
{
    setWindowTitle(tr("pan selection"));
    textLabel3_2_2->setText(tr("Pan X"));
    textLabel1_2->setText(tr("Pan Y"));
    allDonePan->setText(tr("Ok"));
    cancelPan->setText(tr("Cancel"));
}

void PanDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        languageChange();
    QDialog::changeEvent(event);
}
