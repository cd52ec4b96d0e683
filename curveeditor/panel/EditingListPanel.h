// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class EditingList;
class QLineEdit;

namespace curveeditor {

/// The list of curves with a line above it that filters its rows. The line shows itself while the list has more than
/// a dozen rows; with it goes its text, so no row is out of sight without a visible reason. Escape takes the text
/// back, Down goes on to the list.
class EditingListPanel : public QWidget
{
    Q_OBJECT

public:
    explicit EditingListPanel(QWidget* parent = nullptr);

    EditingList* list() const { return list_; }
    QLineEdit* filterLine() const { return filterLine_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showFilterLine();
    void translate();

    QLineEdit* filterLine_;
    EditingList* list_;
};

} // namespace curveeditor
