// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/AxisText.h>

#include <QLineEdit>

#include <optional>

using namespace curveeditor;

/// A line for one number. It shows three decimals, reports every change at once, keeps what it reports
/// between two bounds, and changes its number when the mouse is dragged up or down over it. Typing leaves the text as
/// typed; a drag, Return and leaving the line show the number that it stands for.
///
/// What the user types is read as `NumberText` says; an infinity counts as the bound on its side. While the text is
/// no number the line is marked and reports the last number that it held, which Return or leaving puts back, so
/// that a slip destroys nothing. The decimal sign on show is that of the widget's locale. Undo and redo keys are left
/// to the window, since it is edits that they take back and not their typing.
///
/// Where a host writes the number, its text stands for that very number, and takes the place of three decimals everywhere.
class CustomEditLine : public QLineEdit
{
    Q_OBJECT

public:
    /// Starts with bounds of -100000000.0 and 100000000.0, an empty text and room for 9 characters.
    explicit CustomEditLine(QWidget* parent = nullptr, const QString& name = QString());

    /// The colours while the line is enabled, and while it is not. Those of the latter that are invalid are the
    /// application's. A marked line looks the same in all themes.
    void setColors(const QColor& field, const QColor& text, const QColor& disabledField = QColor(),
                   const QColor& disabledText = QColor());

    /// Sets both bounds and leaves the text alone. They are not checked against each other.
    void setBounds(double low, double high);

    /// Returns `value`, or the bound that it lies beyond. Not-a-number passes through.
    double clampToBounds(double value) const;

    /// Lets a host write and read the number from now on, or again this class, with the room that it had. The text changes
    /// at the next `setValue`.
    void setAxisText(const AxisText& text);
    /// What the text stands for; nothing if it is no number.
    std::optional<double> number() const { return numberIn(text()); }

    /// Shows `value` with three decimals, without clamping it and without a signal. Decimals that don't fit
    /// the maximum length are cut off; a number whose whole part doesn't fit is shown with an exponent, so
    /// that no false number ever stands in the line. A text that the user is typing stays as typed if it
    /// stands for the same number: who shows a reported number again does not get in the way.
    void setValue(double value);

    /// The text that `setValue` shows for a number.
    QString textFor(double value) const;
    /// Whether the text is what `setValue` shows for that number, with whichever decimal sign.
    bool shows(double value) const;
    /// Whether the text is a number, if only an infinite one.
    bool isNumber() const;

    /// Shows `value` with three decimals and the label, in UTF-8, in brackets, "1.000 [Time]". Where that does not fit, the
    /// number is rounded to two decimals or one, else it stands without the label, with an exponent if it must. The
    /// same where the line is too narrow.
    void setValue(double value, const char* label);

    /// Wide enough for the longest number that the maximum length lets in; the minimum too, so that no layout
    /// cuts one off. What a host writes gets room for 12 digits.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// The width of a line with that many digits in sight.
    int widthOf(int digits) const;

    /// Ends a drag on the line, if there is one, where it is.
    void stopDrag();

public Q_SLOTS:
    /// Rewrites the text as its number, clamped and with three decimals. Emits nothing.
    void checkTextBounds();

Q_SIGNALS:
    /// A key was pressed in `sender`, the user changed its text in another way (pasted, dropped, an input
    /// method), or a drag moved it. `value` lies within the bounds and is not rounded to what is on show.
    void newValueSet(const double& value, CustomEditLine* sender);
    /// The line got the focus.
    void editBegun(CustomEditLine* sender);
    /// Escape was pressed after the user touched the number: whoever keeps it shows the one of before. `newValueSet`
    /// follows. The key goes no further.
    void editCancelled(CustomEditLine* sender);
    /// Return was pressed, the line lost the focus, or a drag came to its end.
    void editFinished(CustomEditLine* sender);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showNumber(double value);
    void showWritten(double value, const QString& tag);
    std::optional<double> numberIn(const QString& text) const;
    void noteNumber();
    void setMarked(bool isMarked);
    int edgeWidth() const;
    bool isInSight(const QString& text) const;
    void reportText();
    bool canCancel() const;
    void cancelEdit();

    int pressGlobalY_ = 0;
    double pressValue_ = 0.0;
    bool dragging_ = false;
    bool isTouched_ = false; ///< by typing or a drag, since it got the focus or Escape
    double maxValue_ = 0.0;
    double minValue_ = 0.0;
    double number_ = 0.0; ///< the last that the text was
    AxisText axisText_;
    int plainLength_ = 0;      ///< the maximum length without it
    QString shownText_;        ///< what the host has written, ...
    double shownNumber_ = 0.0; ///< ... and for which number
    bool handlingKey_ = false;
    bool isMarked_ = false;
    QString sign_; ///< the decimal sign on show
    QPalette colors_;
};
