// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QStringList>

class QLineEdit;
class QListView;
class QStringListModel;

namespace curveeditor {

/// A field that offers names of curves: a line that filters while it is typed into, and the names that contain its text
/// below it. The first one is chosen unless the user chooses others, with Shift and Ctrl several. Return or a double
/// click gives them, Escape and a press elsewhere close the field. Down leads into the names, a letter back into the line.
class CurveChooser : public QFrame
{
    Q_OBJECT

public:
    explicit CurveChooser(QWidget* parent);

    /// Opens the field at the top of a widget, in its font, with these names in ascending order.
    void open(const QStringList& names, const QWidget& over);

Q_SIGNALS:
    /// The field is closed by then.
    void chosen(const QStringList& names);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool takeKey(QObject* watched, QKeyEvent& key);
    void filter(const QString& part);
    void choose();
    void translate();

    QLineEdit* line_;
    QListView* list_;
    QStringListModel* model_;
    QStringList names_;
};

} // namespace curveeditor
