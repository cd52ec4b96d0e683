// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CustomEditLine.h>

#include <curveeditor/canvas/StepKey.h>
#include <curveeditor/files/NumberText.h>
#include <curveeditor/panel/FaultColors.h>

#include <QEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace curveeditor;

namespace {

constexpr double initialBound = 100000000.0;
constexpr int initialMaximumLength = 9;
constexpr int writtenLength = 32; // of what a host writes ...
constexpr int writtenDigits = 12; // ... and what has room in any case
constexpr double stepPerPixel = double(0.005f);
constexpr int sizeHintCharacters = 17; // what QLineEdit::sizeHint makes room for, in widths of an "x"

QString numberText(double value, int room)
{
    QString text = QString::asprintf("%.3f", value);
    const bool wholePartFits = text.indexOf(QLatin1Char('.')) <= room;
    if (wholePartFits)
        return text;
    int decimals = room;
    do {
        text = QString::number(value, 'e', decimals);
    } while (text.size() > room && --decimals >= 0);
    return text;
}

/// The number with at most `most` and at least `fewest` decimals, as many as fit; empty if none fits.
QString decimalsThatFit(double value, int most, int fewest, int room)
{
    for (int decimals = most; decimals >= fewest; --decimals) {
        QString text = QString::asprintf("%.*f", decimals, value);
        if (text.size() <= room)
            return text;
    }
    return QString();
}

QString taggedText(double value, const QString& tag, int room)
{
    const QString tagged = decimalsThatFit(value, 3, 1, room - static_cast<int>(tag.size()));
    const QString plain = tagged.isEmpty() ? decimalsThatFit(value, 3, 0, room) : tagged + tag;
    return plain.isEmpty() ? numberText(value, room) : plain;
}

double dragWeight(double pressValue)
{
    const double largest = std::numeric_limits<float>::max();
    return double(static_cast<float>(std::min(std::abs(pressValue), largest))) + 1.0;
}

bool holdsDragButton(Qt::MouseButtons buttons)
{
    buttons.setFlag(Qt::RightButton, false);
    return buttons != Qt::NoButton;
}

} // namespace

CustomEditLine::CustomEditLine(QWidget* parent, const QString& name)
    : QLineEdit(parent), sign_(locale().decimalPoint())
{
    setObjectName(name);
    setBounds(-initialBound, initialBound);
    setAlignment(Qt::AlignRight);
    setLayoutDirection(Qt::LeftToRight); // a sign stands before its number in every language
    setMaxLength(initialMaximumLength);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    connect(this, &QLineEdit::textChanged, this, &CustomEditLine::noteNumber);
    connect(this, &QLineEdit::returnPressed, this, &CustomEditLine::checkTextBounds);
    connect(this, &QLineEdit::returnPressed, this, [this] { Q_EMIT editFinished(this); });
    connect(this, &QLineEdit::textEdited, this, [this] {
        isTouched_ = true;
        if (!handlingKey_)
            reportText();
    });
}

void CustomEditLine::setBounds(double low, double high)
{
    minValue_ = low;
    maxValue_ = high;
}

void CustomEditLine::setColors(const QColor& field, const QColor& text, const QColor& disabledField,
                               const QColor& disabledText)
{
    QPalette colors;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        colors.setColor(group, QPalette::Base, field);
        colors.setColor(group, QPalette::Text, text);
    }
    if (disabledField.isValid())
        colors.setColor(QPalette::Disabled, QPalette::Base, disabledField);
    if (disabledText.isValid())
        colors.setColor(QPalette::Disabled, QPalette::Text, disabledText);
    colors_ = colors;
    setPalette(isMarked_ ? faultColors(colors_) : colors_);
}

void CustomEditLine::setAxisText(const AxisText& text)
{
    if (!axisText_)
        plainLength_ = maxLength();
    axisText_ = text;
    setMaxLength(text ? writtenLength : plainLength_);
    updateGeometry();
}

double CustomEditLine::clampToBounds(double value) const
{
    if (value < minValue_)
        return minValue_;
    return value > maxValue_ ? maxValue_ : value;
}

void CustomEditLine::setValue(double value)
{
    const QString shown = textFor(value);
    const bool isBeingTyped = hasFocus() && isModified() && shown == textFor(number_);
    if (!isBeingTyped)
        showNumber(value);
}

void CustomEditLine::showNumber(double value)
{
    shownText_ = textFor(value);
    shownNumber_ = value;
    setText(shownText_);
}

std::optional<double> CustomEditLine::numberIn(const QString& text) const
{
    return axisText_ && text == shownText_ ? shownNumber_ : axisText_.read(text);
}

QString CustomEditLine::textFor(double value) const
{
    return axisText_ ? axisText_.write(value).left(maxLength())
                     : NumberText::inLocale(numberText(value, maxLength()), locale());
}

bool CustomEditLine::shows(double value) const
{
    return axisText_ ? text() == textFor(value)
                     : NumberText::withPoint(text()) == numberText(value, maxLength());
}

bool CustomEditLine::isNumber() const
{
    return numberIn(text()).has_value();
}

void CustomEditLine::setValue(double value, const char* label)
{
    const QString tag = QStringLiteral(" [%1]").arg(QString::fromUtf8(label));
    if (axisText_)
        return showWritten(value, tag);
    int room = maxLength();
    while (room > 1 && !isInSight(taggedText(value, tag, room)))
        --room;
    const QSignalBlocker blocker(this); // there is no number to be noted
    setText(NumberText::inLocale(taggedText(value, tag, room), locale()));
}

void CustomEditLine::showWritten(double value, const QString& tag)
{
    const QString written = textFor(value);
    const QSignalBlocker blocker(this);
    setText(isInSight(written + tag) ? written + tag : isInSight(written) ? written : QString());
}

int CustomEditLine::edgeWidth() const
{
    return QLineEdit::sizeHint().width() -
           fontMetrics().horizontalAdvance(QLatin1Char('x')) * sizeHintCharacters;
}

bool CustomEditLine::isInSight(const QString& text) const
{
    return edgeWidth() + fontMetrics().horizontalAdvance(text) <= width();
}

int CustomEditLine::widthOf(int digits) const
{
    return edgeWidth() + fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits;
}

QSize CustomEditLine::sizeHint() const
{
    return {widthOf(axisText_ ? writtenDigits : maxLength()), QLineEdit::sizeHint().height()};
}

QSize CustomEditLine::minimumSizeHint() const
{
    return sizeHint();
}

void CustomEditLine::checkTextBounds()
{
    showNumber(isNumber() ? clampToBounds(number_) : number_);
}

/// What the program shows may lie beyond the bounds, and is no slip, be it empty.
void CustomEditLine::noteNumber()
{
    const std::optional<double> number = numberIn(text());
    if (number)
        number_ = isModified() || std::isinf(*number) ? clampToBounds(*number) : *number;
    if (number || !isModified())
        setMarked(false);
}

void CustomEditLine::setMarked(bool isMarked)
{
    if (std::exchange(isMarked_, isMarked) != isMarked)
        setPalette(isMarked ? faultColors(colors_) : colors_);
}

void CustomEditLine::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (event->button() == Qt::RightButton)
        return;
    dragging_ = true;
    pressGlobalY_ = event->globalPosition().toPoint().y();
    pressValue_ = isNumber() || isMarked_ ? number_ : 0.0;
}

// The base would paste the selection of the desktop at a middle release, over the number just dragged.
void CustomEditLine::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::MiddleButton)
        QLineEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::RightButton)
        stopDrag();
}

// A release can go astray, to a box that opened during the drag; the mouse then comes back without a button.
void CustomEditLine::mouseMoveEvent(QMouseEvent* event)
{
    QLineEdit::mouseMoveEvent(event);
    if (!holdsDragButton(event->buttons()))
        stopDrag();
    if (!dragging_)
        return;
    const double distance = event->globalPosition().toPoint().y() - pressGlobalY_;
    const double value = clampToBounds(pressValue_ - dragWeight(pressValue_) * (distance * stepPerPixel));
    isTouched_ = true;
    showNumber(value); // also over a text that stands for the same number
    Q_EMIT newValueSet(value, this);
}

void CustomEditLine::keyPressEvent(QKeyEvent* event)
{
    if (stepKeyOf(*event) != StepKey::None)
        return event->ignore();
    if (event->key() == Qt::Key_Escape)
        return canCancel() ? cancelEdit() : event->ignore();
    handlingKey_ = true;
    QLineEdit::keyPressEvent(event);
    handlingKey_ = false;
    reportText();
}

void CustomEditLine::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    isTouched_ = false;
    Q_EMIT editBegun(this);
}

void CustomEditLine::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (isMarked_ && event->reason() != Qt::PopupFocusReason)
        checkTextBounds();
    Q_EMIT editFinished(this);
}

bool CustomEditLine::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (stepKeyOf(key) != StepKey::None)
            return false;
        if (key.key() == Qt::Key_Escape && canCancel())
            event->accept();
    }
    return QLineEdit::event(event);
}

bool CustomEditLine::canCancel() const
{
    return dragging_ || isTouched_;
}

void CustomEditLine::cancelEdit()
{
    dragging_ = false;
    isTouched_ = false;
    Q_EMIT editCancelled(this);
    reportText();
}

void CustomEditLine::stopDrag()
{
    if (std::exchange(dragging_, false))
        Q_EMIT editFinished(this);
}

void CustomEditLine::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        stopDrag();
    if (event->type() != QEvent::LocaleChange)
        return;
    const QString before = std::exchange(sign_, locale().decimalPoint());
    if (!isModified() && !axisText_)
        setText(text().replace(before, sign_));
}

// A number that is cut is a false one. Only a line that shows where the mouse is can be that narrow.
void CustomEditLine::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    if (!isEnabled() && !isInSight(text()))
        clear();
}

void CustomEditLine::reportText()
{
    noteNumber();
    setMarked(!isNumber());
    Q_EMIT newValueSet(clampToBounds(number_), this);
}

#include "moc_CustomEditLine.cpp"
