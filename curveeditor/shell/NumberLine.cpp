// SPDX-License-Identifier: MIT
#include <curveeditor/shell/NumberLine.h>

#include <curveeditor/files/NumberText.h>
#include <curveeditor/panel/FaultColors.h>

#include <QFocusEvent>
#include <QSignalBlocker>

namespace curveeditor {

NumberLine::NumberLine(double number, QWidget* parent) : QLineEdit(parent)
{
    setAlignment(Qt::AlignRight);
    setNumber(number);
    connect(this, &QLineEdit::textChanged, this,
            [this] { setPalette(NumberLine::number() ? QPalette() : faultColors(QPalette())); });
}

std::optional<double> NumberLine::number() const
{
    return text() == shown_ ? std::optional(number_) : NumberText::readFinite(text());
}

void NumberLine::setNumber(double number)
{
    number_ = number;
    showNumber();
}

void NumberLine::showNumber()
{
    shown_ = hasFocus() ? NumberText::full(number_, locale()) : NumberText::brief(number_, locale());
    setText(shown_);
}

void NumberLine::focusInEvent(QFocusEvent* event)
{
    const bool isAllSelected = hasSelectedText() && selectedText() == text();
    if (text() == shown_) {
        const QSignalBlocker silence(this);
        showNumber();
    }
    if (isAllSelected) // to be typed over
        selectAll();
    QLineEdit::focusInEvent(event);
}

void NumberLine::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    const std::optional<double> typed = number();
    if (!typed || event->reason() == Qt::PopupFocusReason)
        return;
    const QSignalBlocker silence(this);
    setNumber(*typed);
}

void NumberLine::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LocaleChange && text() == shown_) {
        const QSignalBlocker silence(this);
        showNumber();
    }
}

} // namespace curveeditor
