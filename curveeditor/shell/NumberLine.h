// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

#include <optional>

namespace curveeditor {

/// A line for a number of a dialog. It shows six digits of it, and all of them while it has the focus. A text that is
/// no finite number is marked; it stays, and the line has no number then.
class NumberLine : public QLineEdit
{
public:
    explicit NumberLine(double number, QWidget* parent = nullptr);

    /// As `NumberText` reads it; that which was given to the last bit while its text is untouched.
    std::optional<double> number() const;
    void setNumber(double number);

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showNumber();

    double number_ = 0.0;
    QString shown_;
};

} // namespace curveeditor
