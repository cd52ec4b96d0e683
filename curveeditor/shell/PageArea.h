// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace curveeditor {

/// A page that scrolls where there is no room for its content. It takes the height of the content as long as that is not
/// much, and shows whatever gets the focus. It stands in a tab widget that stands in a vertical splitter.
class PageArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit PageArea(QWidget* parent);

    /// Whether it may be smaller than its content, as it may at first.
    void setScrolls(bool scrolls);

    /// At which all of the content is seen, with the bar that a narrow page has.
    int wholeHeight() const { return widget()->minimumSizeHint().height() + barHeight(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// So wide is what is seen of the content now.
    void widthChanged(int width);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void bringIntoSight(QWidget& part);
    int barHeight() const;

    bool scrolls_ = true;
};

} // namespace curveeditor
