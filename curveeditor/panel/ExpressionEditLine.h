// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/ParseMessage.h>

#include <QLineEdit>
#include <QPalette>

/// The command line of the expression page. It shows the outcome of a parse, with the faulty span selected in
/// a warning colour until the next key or mouse button, and takes dropped names of curves. Undo and redo keys act
/// on its typing while there is some to take back, and are left to the window then. While it shows a formula that is
/// longer than itself, nothing changes its text and it is read-only. A text other than the formula that was shown
/// last is unfinished; Escape puts the formula in its place, which an undo key takes back, and goes no further then.
class ExpressionEditLine : public QLineEdit
{
public:
    /// Starts with an example as its text and room for 16384 characters.
    explicit ExpressionEditLine(QWidget* parent = nullptr, const QString& name = QString());

    /// The colours of the line, and of the faulty span of a formula in it.
    void setColors(const QColor& line, const QColor& text, const QColor& warning);

    /// Shows a formula to be edited. One that does not fit is shown without its end, with "…" behind, and
    /// read-only, as what stands in the line is not the formula then; the next one that fits ends that.
    void showFormula(const QString& formula);
    /// Whether what stands in the line is not the formula.
    bool isUnfinished() const;
    /// Shows, in italics, a text that was left unfinished, in the place of the formula.
    void showUnfinished(const QString& text);
    /// Shows what a menu made of the text. A text that does not fit, or any while the line is read-only, changes
    /// nothing and gives false. `insertText` puts `piece` at the cursor instead, under the same conditions.
    bool replaceText(const QString& text);
    bool insertText(const QString& piece);

    /// Shows the text of `message` as the parser read it; one that does not fit leaves what was typed. If it holds
    /// errors, the first of its spans is selected in the warning colour, and the next key replaces it.
    void showMessage(const ParseMessage& message);

    /// Inserts "_" at the cursor, if there is room, and takes the focus.
    void insertUnderscore();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void showErrorColors();
    void restoreColors();
    void setItalic(bool italic);
    void dropUnfinished();

    QString formula_;
    QPalette savedPalette_;
    QColor warning_;
    ParseMessage lastMessage_;
    bool errorShown_ = false;
};
