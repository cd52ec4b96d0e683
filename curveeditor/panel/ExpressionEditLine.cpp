// SPDX-License-Identifier: MIT
#include <curveeditor/panel/ExpressionEditLine.h>

#include <curveeditor/canvas/StepKey.h>
#include <curveeditor/panel/TextDrop.h>
#include <curveeditor/panel/TextSpan.h>

#include <QKeyEvent>
#include <QMimeData>

using namespace curveeditor;

namespace {

constexpr int maximumLength = 16384;
constexpr float hintOpacity = 0.65F;
constexpr QColor lineColor(32, 32, 32);
constexpr QColor textColor(255, 255, 255);
constexpr QColor warningColor(255, 55, 33);

} // namespace

ExpressionEditLine::ExpressionEditLine(QWidget* parent, const QString& name) : QLineEdit(parent)
{
    setObjectName(name);
    setAlignment(Qt::AlignRight);
    setLayoutDirection(Qt::LeftToRight);
    setMaxLength(maximumLength);
    setFocusPolicy(Qt::StrongFocus);
    setSizeIncrement(1, 1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
    setAcceptDrops(true);
    setColors(lineColor, textColor, warningColor);
    showFormula(
        QStringLiteral("1/14 cos(t)+3*exp(-(t-520)^2/2000)+8*exp(-(t-600)^2/2000)+2*exp(-(t-700)^2/4000)"));
}

void ExpressionEditLine::setColors(const QColor& line, const QColor& text, const QColor& warning)
{
    QPalette colors;
    colors.setColor(QPalette::Base, line);
    colors.setColor(QPalette::Text, text);
    QColor hint = text;
    hint.setAlphaF(hintOpacity);
    colors.setColor(QPalette::PlaceholderText, hint);
    setPalette(colors);
    savedPalette_ = palette();
    warning_ = warning;
    if (errorShown_)
        showErrorColors();
}

void ExpressionEditLine::showFormula(const QString& formula)
{
    const bool fits = formula.size() <= maxLength();
    setReadOnly(!fits);
    setText(fits ? formula : formula.left(maxLength() - 1) + QChar(0x2026));
    if (!fits)
        home(false);
    formula_ = text();
    setItalic(false);
}

bool ExpressionEditLine::isUnfinished() const
{
    return text() != formula_;
}

void ExpressionEditLine::showUnfinished(const QString& text)
{
    setText(text);
    setItalic(true);
}

// As typing, so that it can be taken back.
void ExpressionEditLine::dropUnfinished()
{
    selectAll();
    insert(formula_);
    setItalic(false);
}

void ExpressionEditLine::setItalic(bool italic)
{
    QFont style; // all else is the parent's
    if (italic)
        style.setItalic(true);
    setFont(style);
}

bool ExpressionEditLine::replaceText(const QString& text)
{
    const bool isTaken = !isReadOnly() && text.size() <= maxLength();
    if (isTaken)
        setText(text);
    return isTaken;
}

bool ExpressionEditLine::insertText(const QString& piece)
{
    const qsizetype rest = text().size() - selectedText().size();
    const bool isTaken = !isReadOnly() && rest + piece.size() <= maxLength();
    if (isTaken)
        insert(piece);
    return isTaken;
}

void ExpressionEditLine::showMessage(const ParseMessage& message)
{
    lastMessage_ = message;
    const bool fits = replaceText(QString::fromStdString(message.text));
    if (!fits || message.errors.empty())
        return;
    showErrorColors();
    const auto& [offset, length] = message.errors.front();
    const TextSpan span = textSpan(message.text, offset, length);
    if (span.start <= text().size())
        setSelection(span.start, span.length);
}

void ExpressionEditLine::insertUnderscore()
{
    deselect();
    insertText(QStringLiteral("_"));
    setFocus();
}

void ExpressionEditLine::mousePressEvent(QMouseEvent* event)
{
    restoreColors();
    QLineEdit::mousePressEvent(event);
}

void ExpressionEditLine::mouseReleaseEvent(QMouseEvent* event)
{
    restoreColors();
    QLineEdit::mouseReleaseEvent(event);
}

void ExpressionEditLine::keyPressEvent(QKeyEvent* event)
{
    restoreColors();
    if (event->key() == Qt::Key_Escape && isUnfinished())
        return dropUnfinished();
    const StepKey step = stepKeyOf(*event);
    if (step == StepKey::Undo && isUndoAvailable())
        undo();
    else if (step == StepKey::Redo && isRedoAvailable())
        redo();
    else if (step != StepKey::None)
        event->ignore();
    else
        QLineEdit::keyPressEvent(event);
}

bool ExpressionEditLine::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (stepKeyOf(key) != StepKey::None)
            return false;
        if (key.key() == Qt::Key_Escape && isUnfinished())
            event->accept();
    }
    return QLineEdit::event(event);
}

void ExpressionEditLine::dragEnterEvent(QDragEnterEvent* event)
{
    answerDrag(event, event->mimeData()->hasText());
}

// The base would show a cursor under the mouse, but a drop goes to the cursor of the line.
void ExpressionEditLine::dragMoveEvent(QDragMoveEvent* event)
{
    answerDrag(event, event->mimeData()->hasText());
}

void ExpressionEditLine::dropEvent(QDropEvent* event)
{
    const bool hasText = event->mimeData()->hasText();
    answerDrag(event, hasText);
    if (hasText) {
        QString dropped = event->mimeData()->text();
        dropped.replace(QLatin1Char(' '), QLatin1Char('_'));
        deselect(); // what is selected is not replaced
        insertText(dropped);
        end(false);
    }
    setFocus();
    activateWindow(); // the drag may have come from another window, which would get the next key
}

void ExpressionEditLine::showErrorColors()
{
    QPalette colors = savedPalette_;
    colors.setColor(QPalette::HighlightedText, warning_);
    colors.setColor(QPalette::Highlight, colors.color(QPalette::Base));
    setPalette(colors);
    errorShown_ = true;
}

void ExpressionEditLine::restoreColors()
{
    if (!errorShown_)
        return;
    setPalette(savedPalette_);
    errorShown_ = false;
}
