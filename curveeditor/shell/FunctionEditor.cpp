// SPDX-License-Identifier: MIT
#include <curveeditor/shell/FunctionEditor.h>

#include <curveeditor/canvas/MouseState.h>
#include <curveeditor/canvas/StepKey.h>
#include <curveeditor/shell/CanvasAccessible.h>

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputDevice>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyleHints>

using namespace curveeditor;

namespace {

constexpr double fitMargin = 0.1; // share of the value span above and below the fitted curve

bool isPlainTab(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Tab && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

} // namespace

FunctionEditor::FunctionEditor(QWidget* parent, DependencyCheck* check, const NodePageWidgets& page)
    : QWidget(parent), ViewPort(0, 0), canvas(this, check), nodeForm(page, *this), hoverLight(this, canvas),
      viewGestures(this, canvas, *this), timeLineDrag(this, canvas, *this), freehandDrag(this, canvas, *this),
      transformBox(this, canvas, *this)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    setMinimumSize(parent->minimumSize());
    setMaximumSize(parent->maximumSize());
    QPalette background = palette();
    background.setColor(QPalette::Window, QColor(192, 192, 192));
    setPalette(background);
    canvas.setViewport(this);
    nodeForm.setTimeBounds(timeMin, timeMax);
    connect(&nodeForm, &TcbEditorForm::nodeTcbChanged, &canvas, &CanvasFunctionBase::nodeHasChanged);
    connect(&canvas.door().history(), &EditHistory::aboutToStep, &nodeForm, &TcbEditorForm::stopDrags);
    connect(&canvas, &CanvasFunctionBase::selectionChanged, this, &FunctionEditor::showSelection);
    setMouseTracking(true);
    CanvasAccessible::install();
    new CanvasAnnouncer(this);
}

FunctionEditor::~FunctionEditor() = default;

CurveNodeBase* FunctionEditor::setCurveEditableOn(QWidget* menu, const QString& name, const QColor& color,
                                                  float defaultValue, SplineBase* spline,
                                                  FunctionFloatBase** expression, float minValue,
                                                  float maxValue)
{
    return canvas.addCurve(menu, name, color, defaultValue, spline, expression, minValue, maxValue);
}

void FunctionEditor::setCurveEditableOff(const QString& name)
{
    canvas.removeCurve(name);
}

void FunctionEditor::setCurveColor(const QString& name, const QColor& color)
{
    canvas.setCurveColor(name, color);
}

void FunctionEditor::setCurrentToSpline(const bool& dropExpression)
{
    canvas.setCurrentToSpline(dropExpression);
    update();
}

void FunctionEditor::setCurrentToExpression()
{
    closeNodeForm();
    canvas.setCurrentToExpression();
    update();
}

void FunctionEditor::deleteExpression()
{
    canvas.deleteExpression();
    update();
}

void FunctionEditor::closeNodeForm()
{
    if (nodeForm.isActive())
        nodeForm.disableFields();
}

void FunctionEditor::showSelection(bool enable)
{
    nodeForm.updateForm(canvas.currentSplineControl(), enable);
    Q_EMIT selectionShown();
}

void FunctionEditor::resetAllCurves()
{
    closeNodeForm();
    canvas.resetAllCurves();
}

void FunctionEditor::resetCurrentCurve()
{
    closeNodeForm();
    canvas.resetCurrentCurve();
}

void FunctionEditor::completeViewportH()
{
    if (canvas.noCurrentCurve())
        return;
    loadBand();
    double valueLowest = 0.0;
    double valueHighest = 0.0;
    canvas.getExtent(bandX0, bandX1, valueLowest, valueHighest);
    applyBand(false);
}

void FunctionEditor::completeViewportV()
{
    if (canvas.noCurrentCurve())
        return;
    loadBand();
    double timeFirst = 0.0;
    double timeLast = 0.0;
    canvas.getExtent(timeFirst, timeLast, bandY1, bandY0);
    const double margin = fitMargin * (bandY0 - bandY1);
    bandY0 += margin;
    bandY1 -= margin;
    applyBand(false);
}

void FunctionEditor::completeViewport()
{
    completeViewportH();
    completeViewportV();
}

/// Inside the widget they act before those of a host in whose window it is docked.
bool FunctionEditor::isOwnKey(const QKeyEvent& event) const
{
    const int key = event.key();
    const bool isArrow = key == Qt::Key_Left || key == Qt::Key_Right;
    const bool isPlain = !(event.modifiers() & ~Qt::KeypadModifier);
    const bool opensPage = key == Qt::Key_T || key == Qt::Key_C;
    return isPlain && (isArrow || opensPage);
}

bool FunctionEditor::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && isOwnKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    // Tab moves the focus without ever becoming a key press, so it is handled before the focus goes.
    if (event->type() == QEvent::KeyPress) {
        auto* const key = static_cast<QKeyEvent*>(event);
        if (isPlainTab(*key))
            keyPressEvent(key);
    }
    return QWidget::event(event);
}

void FunctionEditor::keyPressEvent(QKeyEvent* event)
{
    if (stepKeyOf(*event) != StepKey::None)
        return event->ignore(); // the dialog steps
    const bool takesBack = gesture.isAtPoints() || gesture.isAtView();
    const int key = event->key();
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter; // comes here from the formula line
    if (!isReturn)
        canvas.tell({});
    canvas.keyPress(event, hasFocus());
    showSelection(key == Qt::Key_T || key == Qt::Key_C || key == Qt::Key_Tab);
    canvas.paint();
    if (key == Qt::Key_Escape)
        event->setAccepted(takesBack); // else the dialog has a use for it
}

void FunctionEditor::mousePressEvent(QMouseEvent* event)
{
    const QPointer<FunctionEditor> guard(this); // the menu over the points runs its own loop
    clearDrag();
    const bool isTaken = canvas.mousePress(event);
    if (!guard)
        return;
    if (!isTaken)
        ViewPort::mousePress(event);
    if (!canvas.noCurrentCurve())
        showSelection(isCurrentSpline());
    setFocus();
    reportPosition(*event);
    canvas.paint();
}

void FunctionEditor::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!isAtLastPress(*event))
        return mousePressEvent(event);
    if (canvas.noCurrentCurve())
        return;
    canvas.mouseDoubleClick(event);
    showSelection(isCurrentSpline());
    canvas.paint();
}

void FunctionEditor::mouseReleaseEvent(QMouseEvent* event)
{
    ViewPort::mouseRelease(event);
    canvas.mouseRelease(event);
    if (!canvas.noCurrentCurve())
        showSelection(isCurrentSpline());
    canvas.paint();
}

void FunctionEditor::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() == Qt::NoButton && gesture.kind() == Gesture::Kind::Cancelled)
        gesture.end(); // its release went astray
    const bool isAtWork = !stateBefore(*event).isEmpty();
    if (isAtWork) {
        canvas.mouseMove(event);
        ViewPort::mouseMove(event);
        showSelection(false);
    }
    reportPosition(*event);
    if (isAtWork)
        canvas.paint();
}

// The mouse has opened the menu at its press.
void FunctionEditor::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        canvas.openPointMenuByKey();
}

void FunctionEditor::paintEvent(QPaintEvent* /*event*/)
{
    {
        QPainter painter(this);
        canvas.showBuffer(&painter);
        hoverLight.draw(painter);
        transformBox.draw(painter);
    }
    canvas.showOverlay();
    if (hasFocus())
        paintFocusFrame();
}

void FunctionEditor::paintFocusFrame()
{
    QPainter painter(this);
    const CurveEditorTheme& theme = canvas.theme();
    painter.setPen(QPen(theme.mark, 2.0 * theme.frameWidth)); // the outer half lies beyond the edge
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(rect()));
}

void FunctionEditor::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    setSize(width(), height());
    canvas.resizeBuffer();
    canvas.paint();
}

// No release comes any more.
void FunctionEditor::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (gesture.isAtPoints())
        canvas.finishDrag();
}

void FunctionEditor::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    canvas.setMouseTime(std::nullopt);
}

/// As near as the two presses of a double click are.
bool FunctionEditor::isAtLastPress(const QMouseEvent& event) const
{
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const bool isTouch = event.deviceType() == QInputDevice::DeviceType::TouchScreen;
    const int reach = isTouch ? hints.touchDoubleTapDistance() : hints.mouseDoubleClickDistance();
    const QPoint here = event.position().toPoint();
    const QPoint way = here - gesture.press.pixel.value_or(here);
    return qAbs(way.x()) <= reach && qAbs(way.y()) <= reach;
}

bool FunctionEditor::isCurrentSpline() const
{
    return !canvas.isCurrentExpression();
}

void FunctionEditor::reportPosition(const QMouseEvent& event)
{
    const QPoint pixel = event.position().toPoint();
    const double time = pixelToTime(pixel.x());
    const double value = pixelToValue(pixel.y());
    double curveValue = 0.0;
    canvas.getCurrentValue(time, curveValue);
    canvas.setMouseTime(time);
    Q_EMIT setFuncPosInfo(time, value, curveValue);
    if (!isCurrentSpline() || !canvas.hasSinglePoint())
        Q_EMIT setPosInfo(time, value);
}

void FunctionEditor::loadBand()
{
    bandX0 = timeMin;
    bandX1 = timeMax;
    bandY0 = valueMax;
    bandY1 = valueMin;
}

#include "moc_FunctionEditor.cpp"
