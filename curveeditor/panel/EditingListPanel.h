// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class EditingList;
class QAction;
class QLineEdit;
class QToolButton;

namespace curveeditor {

class CurveChooser;

/// The list of curves, above it a line that filters its rows and a button for more curves. The line shows itself while the
/// list has more than a dozen rows; with it goes its text, so no row is out of sight without a visible reason. Escape takes
/// the text back, Down goes on to the list.
class EditingListPanel : public QWidget
{
    Q_OBJECT

public:
    explicit EditingListPanel(QWidget* parent = nullptr);

    EditingList* list() const { return list_; }
    QLineEdit* filterLine() const { return filterLine_; }
    /// The command that asks for more curves, by its "+" and by Insert in the list.
    QAction* openAction() const { return openAction_; }
    QToolButton* openButton() const { return openButton_; }
    /// Opens the field in which the user chooses among these names, at the top of a widget, or closes it.
    void offer(const QStringList& names, const QWidget& over);
    void closeOffer();

Q_SIGNALS:
    void curvesWanted();
    void curvesChosen(const QStringList& names);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showFilterLine();
    void translate();

    QLineEdit* filterLine_;
    QToolButton* openButton_;
    QAction* openAction_;
    EditingList* list_;
    CurveChooser* chooser_;
};

} // namespace curveeditor
