// SPDX-License-Identifier: MIT
#include "DemoWindow.h"

#include "CurveList.h"
#include "CurveStore.h"
#include "Output.h"
#include "Transport.h"

#include <curveeditor/shell/CurveEditor.h>

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize windowSize(330, 700);
constexpr int windowGap = 12;
constexpr int mostLogLines = 1000;
constexpr double usualTolerance = 0.1;

} // namespace

DemoWindow::DemoWindow(CurveStore& store)
    : store_(store), host_(store, this), list_(new CurveList), transport_(new Transport),
      log_(new QPlainTextEdit)
{
    setWindowTitle(tr("Curve Editor Demo"));
    createWidgets();
    createMenus();
    connectEditor();
    for (const auto& curve : store_.getCurves())
        list_->addCurve(curve->group, curve->name, curve->color);
    resize(windowSize);
}

void DemoWindow::showBoth()
{
    CurveEditor& editor = host_.getEditor();
    const QRect area = screen()->availableGeometry();
    editor.resize(std::min(editor.width(), area.width() - width() - windowGap), editor.height());
    const int freeWidth = area.width() - width() - windowGap - editor.width();
    const int freeHeight = area.height() - std::max(height(), editor.height());
    const QPoint corner = area.topLeft() + QPoint(std::max(0, freeWidth / 2), std::max(0, freeHeight / 3));
    move(corner);
    editor.move(corner + QPoint(width() + windowGap, 0));
    show();
    showEditor();
}

void DemoWindow::closeEvent(QCloseEvent* event)
{
    host_.getEditor().hide();
    QMainWindow::closeEvent(event);
}

void DemoWindow::createWidgets()
{
    auto* hint = new QLabel(tr("Double-click a curve, or drag it onto the list of the editor."));
    hint->setWordWrap(true);
    auto* filter = new QLineEdit;
    filter->setPlaceholderText(tr("Filter"));
    filter->setAccessibleName(tr("Filter of the curves"));
    list_->setAccessibleName(tr("Curves"));
    log_->setAccessibleName(tr("Reports of changes"));
    filter->setClearButtonEnabled(true);
    connect(filter, &QLineEdit::textChanged, list_, &CurveList::setFilter);
    log_->setReadOnly(true);
    log_->setMaximumBlockCount(mostLogLines);
    log_->setPlaceholderText(
        tr("Each change of a curve is reported here, with the value at the present time."));
    log_->setLineWrapMode(QPlainTextEdit::NoWrap);

    auto* curves = new QWidget;
    auto* curvesLayout = new QVBoxLayout(curves);
    curvesLayout->setContentsMargins(0, 0, 0, 0);
    curvesLayout->addWidget(hint);
    curvesLayout->addWidget(filter);
    curvesLayout->addWidget(list_);
    curvesLayout->addWidget(transport_);

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(curves);
    splitter->addWidget(log_);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    splitter->setContentsMargins(6, 6, 6, 6);
    setCentralWidget(splitter);
}

void DemoWindow::createMenus()
{
    const auto add = [this](QMenu* menu, const QString& text, auto work, const QKeySequence& keys = {}) {
        menu->addAction(text, this, work)->setShortcut(keys);
    };
    QMenu* fileMenu = menuBar()->addMenu(tr("&File"));
    add(fileMenu, tr("&Export table…"), &DemoWindow::exportTable, Qt::CTRL | Qt::SHIFT | Qt::Key_E);
    fileMenu->addSeparator();
    add(fileMenu, tr("&Quit"), &QWidget::close, QKeySequence::Quit);

    QMenu* curveMenu = menuBar()->addMenu(tr("&Curve"));
    add(curveMenu, tr("&Open"), &DemoWindow::openSelected, Qt::CTRL | Qt::Key_O);
    add(curveMenu, tr("&Rename…"), &DemoWindow::renameSelected, Qt::Key_F2);
    add(curveMenu, tr("Re&move"), &DemoWindow::removeSelected);
    add(curveMenu, tr("&Simplify…"), &DemoWindow::simplifySelected);
    list_->addActions(curveMenu->actions());

    QMenu* viewMenu = menuBar()->addMenu(tr("&View"));
    add(viewMenu, tr("&Editor"), &DemoWindow::showEditor, Qt::CTRL | Qt::Key_1);
}

void DemoWindow::connectEditor()
{
    connect(list_, &CurveList::itemDoubleClicked, this, &DemoWindow::openSelected);
    connect(list_, &CurveList::dragged, this, [this] {
        Curve* curve = selectedCurve();
        if (curve && host_.isOpen(*curve))
            host_.showRange(*curve);
    });
    connect(&host_, &EditorHost::rangeChanged, this,
            [this] { transport_->setRange(host_.getRange().timeMin, host_.getRange().timeMax); });
    connect(transport_, &Transport::timeChanged, this,
            [this](double time) { host_.getEditor().setTimeLine(time); });
    connect(&host_.getEditor(), &CurveEditor::timeLineDragged, transport_, &Transport::setTime);
    connect(&host_.getEditor(), &CurveEditor::curveHasChanged, this, &DemoWindow::logChange);
}

Curve* DemoWindow::selectedCurve() const
{
    const CurveList::CurveName name = CurveList::nameOf(list_->currentItem());
    return store_.find(name.group, name.curve);
}

std::vector<Curve*> DemoWindow::selectedCurves() const
{
    std::vector<Curve*> curves;
    const QTreeWidgetItem* row = list_->currentItem();
    if (Curve* curve = selectedCurve())
        curves.push_back(curve);
    for (const auto& curve : store_.getCurves()) {
        if (row && !row->parent() && curve->group == row->text(0))
            curves.push_back(curve.get());
    }
    return curves;
}

void DemoWindow::openSelected()
{
    Curve* curve = selectedCurve();
    if (!curve)
        return;
    host_.open(*curve);
    showEditor();
}

void DemoWindow::renameSelected()
{
    Curve* curve = selectedCurve();
    if (!curve)
        return;
    bool accepted = false;
    const QString name =
        QInputDialog::getText(this, tr("Rename Curve"), tr("New name of %1:").arg(curve->fullName()),
                              QLineEdit::Normal, curve->name, &accepted);
    if (!accepted || name.isEmpty() || name == curve->name)
        return;
    if (!host_.rename(*curve, name)) {
        QMessageBox::warning(this, tr("Rename Curve"), tr("The group has a curve \"%1\" already.").arg(name));
        return;
    }
    list_->currentItem()->setText(0, name);
}

void DemoWindow::removeSelected()
{
    Curve* curve = selectedCurve();
    if (!curve)
        return;
    host_.remove(*curve);
    delete list_->currentItem();
}

void DemoWindow::simplifySelected()
{
    if (selectedCurves().empty())
        return;
    bool accepted = false;
    const double percent = QInputDialog::getDouble(
        this, tr("Simplify"), tr("Tolerance in percent of the span of a curve's values:"), usualTolerance,
        0.0, 100.0, 4, &accepted);
    if (!accepted)
        return;
    for (Curve* curve : selectedCurves()) {
        const unsigned before = curve->spline.getControlPointsNumber();
        simplify(*curve, percent);
        log_->appendPlainText(tr("%1: %2 points, now %3")
                                  .arg(curve->fullName())
                                  .arg(before)
                                  .arg(curve->spline.getControlPointsNumber()));
    }
    host_.getEditor().updateCurves();
}

void DemoWindow::exportTable()
{
    const QString fileName = QFileDialog::getSaveFileName(this, tr("Export Table"), QString(),
                                                          tr("Tables (*.txt);;All files (*)"));
    if (fileName.isEmpty())
        return;
    const QString reason = Output::writeTable(host_.getEditor(), fileName);
    if (!reason.isEmpty())
        QMessageBox::warning(this, tr("Export Table"), reason);
}

void DemoWindow::showEditor()
{
    CurveEditor& editor = host_.getEditor();
    editor.show();
    editor.raise();
    editor.activateWindow();
}

void DemoWindow::logChange(const QString& group, const QString& name)
{
    const Curve* curve = store_.findReported(group, name);
    if (!curve)
        return;
    const double time = transport_->getTime();
    const double value = valueAt(*curve, time, host_.getEditor().getFps());
    log_->appendPlainText(
        tr("%1 = %2 at %3").arg(curve->fullName()).arg(value, 0, 'g', 6).arg(time, 0, 'g', 6));
}

#include "moc_DemoWindow.cpp"
