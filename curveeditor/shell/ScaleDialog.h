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

/// Asks for the two factors by which the selected points are scaled, of time and of value, and for the place that stays
/// where it is. The lines hold plain text without bounds; who opened the dialog fills and reads them. "Ok" accepts, "Cancel" rejects.
class CURVEEDITOR_EXPORT ScaleDialog : public QDialog
{
    Q_OBJECT

public:
    /// An empty `name` stands for the name of the class. The dialog is modal whatever `modal` says.
    explicit ScaleDialog(QWidget* parent = nullptr, const QString& name = QString(), bool modal = false,
                         Qt::WindowFlags flags = {});

    /// @{
    /// The lines, their labels and the two buttons, named as the objects are.
    QLabel* textLabel3_2 = nullptr;
    QLineEdit* scaleX = nullptr;
    QLabel* textLabel1 = nullptr;
    QLineEdit* scaleY = nullptr;
    QLabel* textPivotX = nullptr;
    QLineEdit* pivotX = nullptr;
    QLabel* textPivotY = nullptr;
    QLineEdit* pivotY = nullptr;
    QPushButton* allDoneScale = nullptr;
    QPushButton* cancelScale = nullptr;
    /// @}

    /// @{
    /// What lays them out; children of the dialog.
    QVBoxLayout* ScaleDialogLayout = nullptr;
    QHBoxLayout* layout2_2 = nullptr;
    QHBoxLayout* layout5 = nullptr;
    QHBoxLayout* layoutPivotX = nullptr;
    QHBoxLayout* layoutPivotY = nullptr;
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
