// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QFrame>
#include <QList>

class QToolButton;

namespace curveeditor {

/// A frame around a row of buttons. Where there is no room for the last ones, a button at the end has them in a menu.
class ShrinkingBox : public QFrame
{
    Q_OBJECT

public:
    explicit ShrinkingBox(QWidget* parent);

    void add(QAbstractButton* button);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    void place();
    void placeAt(int left, QWidget& button);
    void offerHidden();
    void translate();

    QList<QAbstractButton*> row_;
    QToolButton* more_;
};

} // namespace curveeditor
