// SPDX-License-Identifier: MIT
#include <curveeditor/shell/FitDialog.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/TitleWidth.h>
#include <curveeditor/edit/PointLimits.h>
#include <curveeditor/files/NumberText.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/EditorPart.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>

#include <algorithm>
#include <cmath>

namespace curveeditor {

namespace {

constexpr int smallestWidth = 340;
constexpr int outcomeLines = 2;
constexpr int gapBelowCanvas = 4;
constexpr qint64 millisecondsPerKey = 50; // longer work waits for a pause in typing
constexpr int typingPause = 300;
constexpr double shareOfSpan = 0.001;
constexpr int toleranceDigits = 2;

/// Qt draws a text with an underlined letter without kerning, for which it makes no room.
void dropKerning(QWidget& widget)
{
    QFont style; // all else is the parent's
    style.setKerning(false);
    widget.setFont(style);
}

bool isLockedCurve(const CurveNodeBase* node)
{
    return node && node->curve()->isLocked();
}

} // namespace

FitDialog::FitDialog(QWidget* editor, CanvasFunctionBase& canvas, CurveNodeBase* curve)
    : QDialog(editor), canvas_(canvas), curve_(curve), form_(new QFormLayout), delay_(new QTimer(this))
{
    setLocale(editor->locale());
    auto* const column = outerLayout<QVBoxLayout>("column", this);
    column->addLayout(form_);
    setProperty(partOfDialog, int(EditorPart::Fitting));
    connect(this, &QDialog::finished, this, &QObject::deleteLater);
    // Queued, as the canvas is still at it.
    connect(curve_, &QObject::destroyed, this, &FitDialog::reject, Qt::QueuedConnection);
    delay_->setSingleShot(true);
    connect(delay_, &QTimer::timeout, this, &FitDialog::refresh);
    editor->installEventFilter(this);
}

// Fields come before buttons in the order of the Tab key.
void FitDialog::addOutcome()
{
    outcome_ = named<QLabel>("outcome", this);
    outcome_->setTextFormat(Qt::PlainText);
    outcome_->setWordWrap(true);
    outcome_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout()->addWidget(outcome_);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    layout()->addWidget(buttons);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    cancel_ = buttons->button(QDialogButtonBox::Cancel);
    ok_->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &FitDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &FitDialog::reject);
    showTexts();
}

void FitDialog::showTexts()
{
    translate();
    ok_->setText(tr("OK"));
    cancel_->setText(tr("Cancel"));
    outcome_->setMinimumSize(std::max(smallestWidth, titleWidth(*this)),
                             outcomeLines * outcome_->fontMetrics().lineSpacing());
    refresh();
}

CurveNodeBase* FitDialog::curve() const
{
    return curve_;
}

void FitDialog::accept()
{
    if (curve_ && !curve_->isShown())
        return reject();
    if (delay_->isActive() || isLockedCurve(curve_) || isStale())
        refresh();
    if (!ok_->isEnabled())
        return;
    QDialog::accept();
    apply();
}

void FitDialog::reject()
{
    delay_->stop();
    QDialog::reject();
    takeBack();
}

bool FitDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::LocaleChange)
        setLocale(parentWidget()->locale());
    if (watched == parent() && event->type() == QEvent::Hide && !event->spontaneous() && isVisible())
        reject();
    return QDialog::eventFilter(watched, event);
}

// Below the canvas, where it does not hide what it shows.
void FitDialog::showEvent(QShowEvent* event)
{
    const auto* const canvas = qobject_cast<QWidget*>(canvas_.parent());
    const QRect room = screen()->availableGeometry();
    if (canvas && !event->spontaneous()) {
        const QPoint corner = canvas->mapToGlobal(canvas->rect().bottomLeft()) + QPoint(0, gapBelowCanvas);
        move(std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - width())),
             std::clamp(corner.y(), room.top(), std::max(room.top(), room.bottom() - height())));
    }
    QDialog::showEvent(event);
}

void FitDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange && outcome_)
        showTexts();
}

void FitDialog::addField(const char* name, QWidget* field)
{
    field->setObjectName(QLatin1String(name));
    auto* const label = new QLabel(this);
    label->setBuddy(field);
    dropKerning(*label);
    form_->addRow(label, field);
}

void FitDialog::addBox(const char* name, QCheckBox* box)
{
    box->setObjectName(QLatin1String(name));
    dropKerning(*box);
    form_->addRow(box);
}

void FitDialog::setLabel(QWidget* field, const QString& text)
{
    static_cast<QLabel*>(form_->labelForField(field))->setText(text);
}

NumberLine* FitDialog::addNumber(const char* name, double number)
{
    auto* const line = new NumberLine(number);
    addField(name, line);
    connect(line, &QLineEdit::textChanged, this, &FitDialog::fieldChanged);
    return line;
}

void FitDialog::fieldChanged()
{
    if (!outcome_)
        return;
    if (workTime_ > millisecondsPerKey)
        delay_->start(typingPause);
    else
        refresh();
}

void FitDialog::refresh()
{
    delay_->stop();
    QElapsedTimer timer;
    timer.start();
    const Outcome outcome = isLockedCurve(curve_) ? Outcome{tr("The curve is locked."), false} : work();
    workTime_ = timer.elapsed();
    outcome_->setText(outcome.text);
    ok_->setEnabled(outcome.isPossible);
}

CanvasCurves::Nodes FitDialog::editable(const CanvasFunctionBase& canvas)
{
    CanvasCurves::Nodes nodes = canvas.curves().selected();
    const auto locked = std::stable_partition(nodes.begin(), nodes.end(),
                                              [](const CurveNodeBase* node) { return !isLockedCurve(node); });
    nodes.erase(locked == nodes.begin() ? locked + 1 : locked, nodes.end());
    return nodes;
}

QString FitDialog::toleranceHint()
{
    return tr("The tolerance must be a number, 0 or more.");
}

QString FitDialog::deviationText(double deviation, std::span<const SplineBase::PointInfo> points) const
{
    const double shift = curve_ ? PointLimits::greatestShift(curve_->curve()->options, points) : 0.0;
    return NumberText::inLocale(QString::number(deviation + shift, 'g', 3), locale());
}

double FitDialog::usualTolerance(double lowest, double highest)
{
    const double share = highest * shareOfSpan - lowest * shareOfSpan;
    return QString::number(share > 0.0 ? share : shareOfSpan, 'g', toleranceDigits).toDouble();
}

} // namespace curveeditor

#include "moc_FitDialog.cpp"
