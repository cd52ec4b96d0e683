// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QSize>
#include <QStringList>

#include <functional>
#include <tuple>

class QDialog;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace curveeditor {

/// What the small dialogs that ask for numbers are made of: rows of a label, a line and what its number means,
/// and a last row of two buttons, the first of which accepts and the second rejects. It makes its dialog modal and gives it, in any
/// font and language, the one size that its texts take. It belongs to the dialog, and so do all widgets.
class NumbersForm : public QObject
{
    Q_OBJECT

public:
    /// Logical pixels below which nothing shrinks, however narrow the texts are.
    struct Smallest
    {
        int labelWidth = 0;
        QSize dialog;
    };

    /// An empty `name` stands for the name of the dialog's class. `translate` is called when the language has
    /// changed.
    NumbersForm(QDialog* dialog, const QString& name, const Smallest& smallest,
                std::function<void()> translate);

    QVBoxLayout* column() const { return rows_; }

    /// A row for a number of 9 characters, whose line is named to assistive tools by its label.
    std::tuple<QHBoxLayout*, QLabel*, QLineEdit*> addNumber(const char* layout, const char* label,
                                                            const char* line);
    std::tuple<QHBoxLayout*, QPushButton*, QPushButton*> addButtons(const char* layout, const char* accept,
                                                                    const char* reject);

    /// Whether each line holds a finite number, as `NumberText` reads it. Marks those that hold none, until they do,
    /// and gives the first the focus.
    bool checkNumbers();

    /// Sets every text the user sees; the labels and what the numbers mean are in the order of their rows.
    void setTexts(const QString& title, const QStringList& labelTexts, const QStringList& meanings,
                  const QString& accept, const QString& reject);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QHBoxLayout* addRow(const char* name, QWidget* left, QWidget* right);
    void fit();
    void showFault(QLineEdit& line, bool isFaulty) const;

    QDialog* const dialog_;
    const Smallest smallest_;
    const std::function<void()> translate_;
    QVBoxLayout* const rows_;
    QList<QLabel*> labels_;
    QList<QLabel*> meanings_;
    QList<QLineEdit*> lines_;
    QList<QPushButton*> buttons_;
};

} // namespace curveeditor
