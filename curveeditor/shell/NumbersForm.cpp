// SPDX-License-Identifier: MIT
#include <curveeditor/shell/NumbersForm.h>

#include <curveeditor/canvas/TitleWidth.h>
#include <curveeditor/files/NumberText.h>
#include <curveeditor/panel/FaultColors.h>
#include <curveeditor/shell/DialogParts.h>

#include <QDialog>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace curveeditor {

namespace {

constexpr int rowHeight = 20;
constexpr int lineWidth = 60;
constexpr int lineLength = 9;

/// All digits, or two signs and an exponent beside them: which is wider depends on the font.
int widestNumber(const QFontMetrics& metrics)
{
    int width = 0;
    for (char digit = '0'; digit <= '9'; ++digit) {
        const QString digits(lineLength, QLatin1Char(digit));
        QString exponential = digits;
        exponential[0] = exponential[lineLength - 3] = QLatin1Char('+');
        exponential[lineLength - 4] = QLatin1Char('e');
        width = std::max({width, metrics.horizontalAdvance(digits), metrics.horizontalAdvance(exponential)});
    }
    return width;
}

/// Room for the text, the cursor behind it, the margins that every line has, and the frame.
QSize sizeOfLine(const QLineEdit& line)
{
    constexpr int marginBeside = 2;
    constexpr int marginAbove = 1;
    const int frame = line.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &line);
    const int cursor = line.style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, &line);
    const QFontMetrics metrics = line.fontMetrics();
    return QSize(widestNumber(metrics) + cursor + 2 * (frame + marginBeside),
                 metrics.height() + 2 * (frame + marginAbove))
        .expandedTo({lineWidth, rowHeight});
}

/// Narrower than buttons like to be: two of them fit below the lines.
QSize sizeOfButton(const QPushButton& button)
{
    const int margin = button.style()->pixelMetric(QStyle::PM_ButtonMargin, nullptr, &button);
    return button.fontMetrics().size(Qt::TextShowMnemonic, button.text()) + QSize(2 * margin, margin);
}

} // namespace

NumbersForm::NumbersForm(QDialog* owner, const QString& name, const Smallest& smallestSizes,
                         std::function<void()> translateTexts)
    : QObject(owner), dialog_(owner), smallest_(smallestSizes), translate_(std::move(translateTexts)),
      rows_(outerLayout<QVBoxLayout>("", owner))
{
    const QLatin1String ownName(dialog_->metaObject()->className());
    dialog_->setObjectName(name.isEmpty() ? ownName : name);
    dialog_->setModal(true);
    rows_->setObjectName(ownName + QLatin1String("Layout"));
    dialog_->installEventFilter(this);
}

std::tuple<QHBoxLayout*, QLabel*, QLineEdit*>
NumbersForm::addNumber(const char* layoutName, const char* labelName, const char* lineName)
{
    auto* label = named<QLabel>(labelName, dialog_);
    auto* line = named<QLineEdit>(lineName, dialog_);
    for (QWidget* widget : std::initializer_list<QWidget*>{label, line})
        widget->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    line->setMaxLength(lineLength);
    line->setAlignment(Qt::AlignRight);
    connect(line, &QLineEdit::textChanged, this, [this, line](const QString& text) {
        if (NumberText::readFinite(text))
            showFault(*line, false);
    });
    label->setBuddy(line);
    auto* const meaning = new QLabel(dialog_);
    labels_.append(label);
    lines_.append(line);
    meanings_.append(meaning);
    QHBoxLayout* const row = addRow(layoutName, label, line);
    row->addWidget(meaning, 1);
    return {row, label, line};
}

std::tuple<QHBoxLayout*, QPushButton*, QPushButton*>
NumbersForm::addButtons(const char* layoutName, const char* acceptName, const char* rejectName)
{
    auto* accept = named<QPushButton>(acceptName, dialog_);
    auto* reject = named<QPushButton>(rejectName, dialog_);
    connect(accept, &QPushButton::clicked, dialog_, &QDialog::accept);
    connect(reject, &QPushButton::clicked, dialog_, &QDialog::reject);
    buttons_ = {accept, reject};
    return {addRow(layoutName, accept, reject), accept, reject};
}

QHBoxLayout* NumbersForm::addRow(const char* name, QWidget* left, QWidget* right)
{
    auto* row = innerLayout<QHBoxLayout>(name, rows_);
    row->addWidget(left);
    row->addWidget(right);
    return row;
}

void NumbersForm::setTexts(const QString& title, const QStringList& labelTexts, const QStringList& meanings,
                           const QString& accept, const QString& reject)
{
    dialog_->setWindowTitle(title);
    for (qsizetype i = 0; i < labels_.size(); ++i) {
        labels_[i]->setText(labelTexts[i]);
        meanings_[i]->setText(meanings[i]);
        lines_[i]->setAccessibleDescription(meanings[i]);
    }
    buttons_[0]->setText(accept);
    buttons_[1]->setText(reject);
    fit();
}

bool NumbersForm::checkNumbers()
{
    QLineEdit* first = nullptr;
    for (QLineEdit* const line : std::as_const(lines_)) {
        const bool isFaulty = !NumberText::readFinite(line->text());
        showFault(*line, isFaulty);
        if (isFaulty && !first)
            first = line;
    }
    if (first) {
        first->setFocus();
        first->selectAll();
    }
    return !first;
}

void NumbersForm::showFault(QLineEdit& line, bool isFaulty) const
{
    line.setPalette(isFaulty ? faultColors(QPalette()) : QPalette());
    line.setToolTip(isFaulty ? tr("This is no number") : QString());
}

bool NumbersForm::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::LanguageChange:
        translate_();
        break;
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::Show:
        fit();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

// The labels get one width, else the lines would not stand below one another.
void NumbersForm::fit()
{
    QSize labelSize(smallest_.labelWidth, rowHeight);
    for (const QLabel* label : std::as_const(labels_))
        labelSize = labelSize.expandedTo(label->sizeHint());
    for (QLabel* label : std::as_const(labels_))
        label->setFixedSize(labelSize);
    for (QLineEdit* line : std::as_const(lines_))
        line->setFixedSize(sizeOfLine(*line));
    for (QPushButton* button : std::as_const(buttons_))
        button->setMinimumSize(sizeOfButton(*button));
    rows_->activate(); // a visible dialog's layout takes note of new sizes later only
    dialog_->setFixedSize(
        rows_->minimumSize().expandedTo(smallest_.dialog).expandedTo({titleWidth(*dialog_), 0}));
}

} // namespace curveeditor

#include "moc_NumbersForm.cpp"
