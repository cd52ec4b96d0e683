// SPDX-License-Identifier: MIT
#include "Film.h"

#include "DarkPalette.h"

#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QTabWidget>
#include <QTest>

namespace {

constexpr QSize filmSize(1060, 640);
constexpr int stepsOfReach = 9;
constexpr int frameTime = 50; // milliseconds
constexpr int lookTime = 900;

QPainterPath arrow()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{0, 0}, {0, 17}, {4, 13}, {7, 20}, {10, 19}, {7, 12}, {12, 12}, {0, 0}}));
    return path;
}

void drawCaption(QPainter& painter, const QString& caption, const QPoint& middle)
{
    QFont font = painter.font();
    font.setPointSize(15);
    painter.setFont(font);
    QRect place = painter.fontMetrics().boundingRect(caption).adjusted(-14, -7, 14, 7);
    place.moveCenter(middle);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(30, 34, 40, 220));
    painter.drawRoundedRect(place, 6, 6);
    painter.setPen(Qt::white);
    painter.drawText(place, Qt::AlignCenter, caption);
}

} // namespace

Film::Film(const QDir& folder)
    : folder_(folder), scene_({"Camera.tilt", "Camera.zoom", "Camera.shake", "Camera.pan"})
{
    scene_.editor().resize(filmSize);
    QApplication::processEvents();
    hand_ = scene_.pixel(8.5, 6.0);
}

bool Film::shoot()
{
    frame(lookTime);
    drag();
    ease();
    formula();
    takeBack();
    darken();
    QFile list(folder_.filePath("frames.txt"));
    return isWritten_ && list.open(QIODevice::WriteOnly) && list.write(options_.join(u'\n').toUtf8()) > 0;
}

void Film::drag()
{
    const auto* const point = scene_.point(1);
    const double time = point->time, value = point->pos;
    reach(time, value);
    scene_.press(time, value);
    isHolding_ = true;
    frame(200);
    reach(time + 1.0, value + 2.5);
    reach(time + 0.6, value + 1.4);
    isHolding_ = false;
    QTest::mouseRelease(&scene_.canvas(), Qt::LeftButton, {}, hand_.toPoint());
    frame(lookTime);
}

void Film::ease()
{
    const auto* const last = scene_.point(2);
    reach(last->time, last->pos);
    QTest::mouseClick(&scene_.canvas(), Qt::LeftButton, Qt::ControlModifier, hand_.toPoint());
    frame(lookTime, "Ctrl + click");
    press(Qt::Key_E, Qt::NoModifier, "E: ease");
}

void Film::formula()
{
    scene_.makeCurrent("Camera.tilt");
    scene_.editor().tabWidget2->setCurrentIndex(1);
    auto& line = *scene_.editor().commandLine;
    line.setFocus();
    line.clear();
    for (const QChar letter : QStringLiteral("2 sin(3t) - 1")) {
        QTest::keyClick(&line, letter.toLatin1());
        frame(2 * frameTime);
    }
    QTest::keyClick(&line, Qt::Key_Return);
    frame(2 * lookTime, "Return");
    scene_.canvas().setFocus();
}

void Film::takeBack()
{
    for (int step = 0; step < 3; ++step)
        press(Qt::Key_Z, Qt::ControlModifier, "Ctrl+Z");
    scene_.editor().tabWidget2->setCurrentIndex(0);
}

void Film::darken()
{
    QApplication::setPalette(darkPalette());
    scene_.makeCurrent("Camera.pan");
    scene_.selectPoint(1);
    frame(2 * lookTime);
}

void Film::reach(double time, double value)
{
    const QPointF from = hand_;
    const QPointF to = scene_.pixel(time, value);
    for (int step = 1; step <= stepsOfReach; ++step) {
        const double share = double(step) / stepsOfReach;
        hand_ = from + (to - from) * share * share * (3.0 - 2.0 * share);
        if (isHolding_)
            scene_.moveTo(hand_);
        else
            QTest::mouseMove(&scene_.canvas(), hand_.toPoint());
        frame(frameTime);
    }
}

void Film::press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& caption)
{
    scene_.key(key, modifiers);
    frame(lookTime, caption);
}

void Film::frame(int milliseconds, const QString& caption)
{
    const QString name = QStringLiteral("%1.png").arg(options_.size(), 4, 10, QLatin1Char('0'));
    isWritten_ = picture(caption).save(folder_.filePath(name)) && isWritten_;
    options_ << QStringLiteral("-d %1 %2").arg(milliseconds).arg(name);
}

QPixmap Film::picture(const QString& caption)
{
    QPixmap picture = scene_.wholeEditor();
    QWidget& canvas = scene_.canvas();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!caption.isEmpty())
        drawCaption(painter, caption, canvas.mapTo(&scene_.editor(), QPoint(canvas.width() / 2, 40)));
    painter.translate(canvas.mapTo(&scene_.editor(), hand_.toPoint()));
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(Qt::black);
    painter.drawPath(arrow());
    return picture;
}
