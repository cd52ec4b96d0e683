// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

/// The view of this host: the picture that the thread has drawn last.
class Stage : public QWidget
{
    Q_OBJECT

public:
    explicit Stage(QWidget* parent = nullptr);

    void setImage(const QImage& image);
    const QImage& image() const { return image_; }

Q_SIGNALS:
    void resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QImage image_;
};
