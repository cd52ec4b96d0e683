// SPDX-License-Identifier: MIT
#include "GuideScene.h"

#include "SampleCurves.h"

#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QTest>

#include <cmath>

namespace {

constexpr int pauseInTyping = 500;    // milliseconds
constexpr double handleLength = 45.0; // pixels
constexpr QSize editorSize(1060, 640);

} // namespace

GuideScene::GuideScene(const QStringList& names) : host_(filledStore())
{
    editor().resize(editorSize);
    editor().show();
    for (const QString& name : names)
        makeCurrent(name);
    editor().activateWindow();
    if (!QTest::qWaitForWindowActive(&editor()))
        qFatal("The editor does not become active.");
    canvas().setFocus();
}

CurveStore& GuideScene::filledStore()
{
    addSampleCurves(store_);
    return store_;
}

QWidget& GuideScene::canvas()
{
    return *editor().findChild<QWidget*>(QStringLiteral("functionEdit"));
}

Curve* GuideScene::current()
{
    return store_.find(current_.section(u'.', 0, 0), current_.section(u'.', 1));
}

QPoint GuideScene::pixel(double time, double value)
{
    const PlaneRange range = host_.getRange();
    const double x = (time - range.timeMin) / (range.timeMax - range.timeMin) * canvas().width();
    const double y = (range.valueMax - value) / (range.valueMax - range.valueMin) * canvas().height();
    return {int(x), int(y)};
}

void GuideScene::press(double time, double value)
{
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, pixel(time, value));
}

void GuideScene::move(double time, double value)
{
    moveTo(pixel(time, value));
}

void GuideScene::moveTo(const QPointF& place)
{
    QMouseEvent event(QEvent::MouseMove, place, canvas().mapToGlobal(place), Qt::NoButton, Qt::LeftButton,
                      {});
    QApplication::sendEvent(&canvas(), &event);
}

void GuideScene::hover(double time, double value)
{
    QTest::mouseMove(&canvas(), pixel(time, value));
}

void GuideScene::drag(double time, double value, double toTime, double toValue)
{
    press(time, value);
    move(toTime, toValue);
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, pixel(toTime, toValue));
}

void GuideScene::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&canvas(), key, modifiers);
}

const SplineBase::PointInfo* GuideScene::point(unsigned index)
{
    return current() ? current()->spline[index] : nullptr;
}

void GuideScene::selectPoint(unsigned index)
{
    if (const SplineBase::PointInfo* const found = point(index))
        QTest::mouseClick(&canvas(), Qt::LeftButton, {}, pixel(found->time, found->pos));
}

void GuideScene::dragHandle(unsigned index, double value)
{
    const SplineBase::PointInfo point = *current()->spline[index];
    const QPointF way = pixel(point.time + 1.0, point.pos + point.tanRight) - pixel(point.time, point.pos);
    const double share = handleLength / std::hypot(way.x(), way.y());
    const double time = point.time + share, from = point.pos + share * point.tanRight;
    drag(time, from, time, from + value);
}

void GuideScene::makeCurrent(const QString& name)
{
    current_ = name;
    if (current())
        host_.open(*current());
}

void GuideScene::takeSamples()
{
    Curve& curve = *current();
    const auto sample = [&curve](double time) {
        return curve.spline(time) + 0.05 * std::sin(40.0 * time);
    };
    const PlaneRange range = host_.getRange();
    const CurveFit::Steps steps{range.timeMin, range.timeMax, (range.timeMax - range.timeMin) / 400.0};
    curve.spline.assign(CurveFit::bake(sample, steps, SplineBase::Linear).spline);
    editor().updateCurves();
}

void GuideScene::choose(const QString& entry)
{
    for (QMenu* const menu : editor().findChildren<QMenu*>())
        Q_EMIT menu->aboutToShow(); // enables what can be done now
    for (QAction* const action : editor().findChildren<QAction*>()) {
        if (action->text() == entry)
            action->trigger();
    }
}

QPixmap GuideScene::wholeEditor()
{
    QApplication::processEvents();
    return editor().grab();
}

QPixmap GuideScene::canvasAlone()
{
    QApplication::processEvents();
    return canvas().grab();
}

QPixmap GuideScene::withDialog(const QString& entry, const QString& tolerance)
{
    choose(entry);
    auto* const dialog = editor().findChild<QDialog*>();
    if (!dialog)
        return QPixmap();
    dialog->findChild<QLineEdit*>(QStringLiteral("tolerance"))->setText(tolerance);
    QTest::qWait(pauseInTyping);
    QPixmap picture = editor().grab();
    const QRect place(editor().mapFromGlobal(dialog->pos()), dialog->size());
    QPainter painter(&picture);
    painter.drawPixmap(place, dialog->grab());
    painter.setPen(Qt::darkGray);
    painter.drawRect(place);
    return picture;
}
