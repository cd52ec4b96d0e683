// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace curveeditor {
class NumbersForm;
} // namespace curveeditor

/// Asks for the two distances by which the selected points are shifted: time units and value units. The lines
/// hold plain text without bounds; who opened the dialog fills and reads them. "Ok" accepts, "Cancel"
/// rejects.
class CURVEEDITOR_EXPORT PanDialog : public QDialog
{
    Q_OBJECT

public:
    /// An empty `name` stands for the name of the class. The dialog is modal whatever `modal` says.
    explicit PanDialog(QWidget* parent = nullptr, const QString& name = QString(), bool modal = false,
                       Qt::WindowFlags flags = {});

    /// @{
    /// The lines, their labels and the two buttons, named as the objects are.
    QLabel* textLabel3_2_2 = nullptr;
    QLineEdit* panX = nullptr;
    QLabel* textLabel1_2 = nullptr;
    QLineEdit* panY = nullptr;
    QPushButton* allDonePan = nullptr;
    QPushButton* cancelPan = nullptr;
    /// @}

    /// @{
    /// What lays them out; children of the dialog.
    QVBoxLayout* PanDialogLayout = nullptr;
    QHBoxLayout* layout2_2 = nullptr;
    QHBoxLayout* layout5 = nullptr;
    QHBoxLayout* layout5_2 = nullptr;
    /// @}

public Q_SLOTS:
    /// Marks the lines that hold no number, and accepts only if there are none.
    void accept() override;

protected Q_SLOTS:
    /// Sets every text the user sees.
    virtual void languageChange();

private:
    curveeditor::NumbersForm* form_ = nullptr;
};
