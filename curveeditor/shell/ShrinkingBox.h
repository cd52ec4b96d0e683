// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QList>

namespace curveeditor {

/// A frame around a row of widgets, of which the last ones are out of sight where there is no room for them.
class ShrinkingBox : public QFrame
{
    Q_OBJECT

public:
    explicit ShrinkingBox(QWidget* parent);

    void add(QWidget* widget);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    void place();

    QList<QWidget*> row_;
};

} // namespace curveeditor
