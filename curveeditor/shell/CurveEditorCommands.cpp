// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/canvas/ModalDialog.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/files/CurveFileStore.h>
#include <curveeditor/files/FileReplacement.h>
#include <curveeditor/files/NumberText.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/shell/DialogParts.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/ScaleDialog.h>
#include <curveeditor/shell/ViewportSettings.h>

#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QMessageBox>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace curveeditor;

namespace {

constexpr int shownDigits = 6;

double numberTypedIn(const QLineEdit& line)
{
    return NumberText::readFinite(line.text()).value_or(0.0);
}

/// Patterns of all formats that Qt reads here.
QString pictureNames()
{
    QStringList names;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        names.append(QStringLiteral("*.") + QString::fromLatin1(format));
    return names.join(u' ');
}

/// Digits that the line has no room for are left out, so that no exponent is cut off.
void showNumber(QLineEdit& line, double number, const QLocale& locale)
{
    int digits = shownDigits;
    QString text = QString::number(number, 'g', digits);
    while (text.size() > line.maxLength() && digits > 1)
        text = QString::number(number, 'g', --digits);
    line.setText(NumberText::inLocale(text, locale));
}

/// `actions` and the items of `combo` are in the order of the types.
void showChoice(const QList<QAction*>& actions, QComboBox& combo, int type)
{
    if (type < 0 || type >= actions.size())
        return;
    actions[type]->setChecked(true);
    combo.setCurrentIndex(type);
}

/// The file that the user chooses; null if there is none, or if `parent` was deleted meanwhile.
QString askForFile(QWidget* parent, EditorPart part, QFileDialog::AcceptMode mode, const QString& start,
                   const QString& filters)
{
    ModalDialog<QFileDialog> dialog(parent, QString(), start, filters);
    dialog->setProperty(partOfDialog, int(part));
    dialog->setAcceptMode(mode);
    dialog->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    return dialog.answer() == QDialog::Accepted ? dialog->selectedFiles().value(0) : QString();
}

bool isRange(double low, double high)
{
    return low < high && std::isfinite(high - low);
}

/// Limits that leave nothing to show are put in order, or, if that does not help, given up for the usual.
void mendLimits(double& low, double& high, double usualLow, double usualHigh)
{
    if (high < low)
        std::swap(low, high);
    if (!isRange(low, high)) {
        low = usualLow;
        high = usualHigh;
    }
}

} // namespace

void CurveEditor::resetAllCheckedF()
{
    d_->functionEdit->resetAllCurves();
    refreshCommandLine();
    update();
}

void CurveEditor::resetSelectedF()
{
    d_->functionEdit->resetCurrentCurve();
    refreshCommandLine();
    update();
}

/// While a dialog was open the host may have taken the curve away, or made another one current.
bool CurveEditor::Private::isCurrent(const QPointer<CurveNodeBase>& curve) const
{
    return curve && curve == functionEdit->canvas.getCurrentCurve();
}

void CurveEditor::loadFile()
{
    CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    if (canvas.noCurrentCurve())
        return;
    const QPointer<CurveNodeBase> curve(canvas.getCurrentCurve());
    const QString chosen =
        askForFile(this, EditorPart::Files, QFileDialog::AcceptOpen, QString(), QStringLiteral("*.crv"));
    if (chosen.isNull() || !d_->isCurrent(curve))
        return;
    const QString path = CurveFileStore::pathToLoad(chosen);
    if (!QFileInfo(path).isFile()) // to open a pipe would wait for its writer
        return;
    std::ifstream in(CurveFileStore::nativePath(path));
    if (!in.is_open())
        return;
    const bool isCurve = canvas.loadCurve(in);
    in.close();
    if (isCurve)
        refreshCommandLine();
    else
        showWarning(this, tr("Load curve"), tr("%1 holds no curve that can be read.").arg(path));
}

/// No, if the dialog was deleted meanwhile.
bool CurveEditor::Private::mayReplace(const QString& path)
{
    ModalDialog<QMessageBox> box(QMessageBox::Question, CurveEditor::tr("Save curve"),
                                 CurveEditor::tr("%1 already exists.\nDo you want to replace it?").arg(path),
                                 QMessageBox::Yes | QMessageBox::No, &editor);
    box->setDefaultButton(QMessageBox::No);
    makeRoomForTitle(*box);
    box->setProperty(partOfDialog, int(EditorPart::Files));
    return box.answer() == QMessageBox::Yes;
}

void CurveEditor::saveFile()
{
    const CanvasFunctionBase& canvas = d_->functionEdit->canvas;
    if (canvas.noCurrentCurve())
        return;
    const QPointer<CurveNodeBase> curve(canvas.getCurrentCurve());
    const QString chosen = askForFile(this, EditorPart::Files, QFileDialog::AcceptSave,
                                      canvas.getCurrentCurveName(), QStringLiteral("*.crv"));
    if (chosen.isNull())
        return;
    const QString path = CurveFileStore::pathToSave(chosen);
    if (CurveFileStore::replacesAnotherFile(chosen) && !d_->mayReplace(path))
        return;
    std::ostringstream content;
    std::error_code fault = std::make_error_code(std::errc::io_error);
    if (d_->isCurrent(curve) && canvas.saveCurve(content))
        fault = FileReplacement::write(CurveFileStore::nativePath(path), content.str());
    if (!FileReplacement::isSaved(fault))
        showWarning(this, tr("Save curve"), tr("The curve could not be saved to %1.").arg(path));
    else if (fault)
        showWarning(this, tr("Save curve"),
                    tr("The curve was saved to %1, but is perhaps not yet on the disk.").arg(path));
}

void CurveEditor::loadImage()
{
    const QString name = askForFile(this, EditorPart::Pictures, QFileDialog::AcceptOpen, QString(),
                                    QStringLiteral("*.jpg;;") + tr("All pictures (%1)").arg(pictureNames()) +
                                        QStringLiteral(";;") + tr("All files (*)"));
    if (!QFileInfo(name).isFile()) // to open a pipe would wait for its writer
        return;
    if (d_->functionEdit->canvas.loadImage(name))
        d_->functionEdit->canvas.paint();
    else
        showWarning(this, tr("Load image"), tr("%1 holds no picture that can be read.").arg(name));
}

void CurveEditor::clearImage()
{
    d_->functionEdit->canvas.clearImage();
    d_->functionEdit->canvas.paint();
}

void CurveEditor::setImageStrength(double share)
{
    d_->functionEdit->canvas.setImageStrength(share);
}

void CurveEditor::setRange()
{
    d_->functionEdit->setFocus(); // where it is when the dialog closes
    ModalDialog<ViewportSettings> dialog(this);
    d_->showPanelFont(*dialog);
    showNumber(*dialog->minX, d_->functionEdit->timeMin, locale());
    showNumber(*dialog->minY, d_->functionEdit->valueMin, locale());
    showNumber(*dialog->maxX, d_->functionEdit->timeMax, locale());
    showNumber(*dialog->maxY, d_->functionEdit->valueMax, locale());
    if (dialog.answer() != QDialog::Accepted)
        return;
    d_->functionEdit->setLimitTimeMin(numberTypedIn(*dialog->minX));
    d_->functionEdit->setLimitTimeMax(numberTypedIn(*dialog->maxX));
    if (!d_->functionEdit->ownScale.isOn()) { // else these values are those of one curve
        d_->functionEdit->setLimitValueMin(numberTypedIn(*dialog->minY));
        d_->functionEdit->setLimitValueMax(numberTypedIn(*dialog->maxY));
    }
    d_->showTimeBounds();
    d_->paintChangedView();
}

void CurveEditor::setScaleSelection()
{
    d_->functionEdit->setFocus(); // where it is when the dialog closes
    ModalDialog<ScaleDialog> dialog(this);
    d_->showPanelFont(*dialog);
    dialog->scaleX->setText(NumberText::inLocale(QStringLiteral("1.0"), locale()));
    dialog->scaleY->setText(NumberText::inLocale(QStringLiteral("1.0"), locale()));
    dialog->pivotX->setText(NumberText::inLocale(QStringLiteral("0.0"), locale()));
    dialog->pivotY->setText(NumberText::inLocale(QStringLiteral("0.0"), locale()));
    const QPointer<CurveNodeBase> curve(d_->functionEdit->canvas.getCurrentCurve());
    if (dialog.answer() != QDialog::Accepted || !d_->isCurrent(curve))
        return;
    d_->functionEdit->canvas.scaleSelection(numberTypedIn(*dialog->scaleX), numberTypedIn(*dialog->scaleY),
                                            numberTypedIn(*dialog->pivotX), numberTypedIn(*dialog->pivotY));
    d_->functionEdit->showSelection(false);
}

void CurveEditor::setPanSelection()
{
    d_->functionEdit->setFocus(); // where it is when the dialog closes
    ModalDialog<PanDialog> dialog(this);
    d_->showPanelFont(*dialog);
    dialog->panX->setText(NumberText::inLocale(QStringLiteral("0.0"), locale()));
    dialog->panY->setText(NumberText::inLocale(QStringLiteral("0.0"), locale()));
    const QPointer<CurveNodeBase> curve(d_->functionEdit->canvas.getCurrentCurve());
    if (dialog.answer() != QDialog::Accepted || !d_->isCurrent(curve))
        return;
    d_->functionEdit->canvas.panSelection(numberTypedIn(*dialog->panX), numberTypedIn(*dialog->panY));
    d_->functionEdit->showSelection(false);
}

void CurveEditor::resetViewport()
{
    const ViewPort usual(0, 0);
    mendLimits(d_->functionEdit->limitTimeMin, d_->functionEdit->limitTimeMax, usual.limitTimeMin,
               usual.limitTimeMax);
    mendLimits(d_->functionEdit->limitValueMin, d_->functionEdit->limitValueMax, usual.valueMin,
               usual.valueMax);
    const bool wasTime = isModeTime();
    d_->functionEdit->reset();
    if (wasTime) {
        d_->showTimeLabel();
        d_->actionOf(&CurveEditor::setShowFrames)->setChecked(true);
        posX->setValue(d_->functionEdit->shownTime(d_->timeTyped()));
    }
    d_->showTimeBounds();
    d_->functionEdit->showSelection(false);
    d_->functionEdit->canvas.paint();
}

void CurveEditor::completeViewport()
{
    d_->functionEdit->completeViewport();
    d_->functionEdit->canvas.paint();
}

void CurveEditor::completeViewportH()
{
    d_->functionEdit->completeViewportH();
    d_->functionEdit->canvas.paint();
}

void CurveEditor::completeViewportV()
{
    d_->functionEdit->completeViewportV();
    d_->functionEdit->canvas.paint();
}

void CurveEditor::setFirstNodeZero()
{
    d_->functionEdit->canvas.setFirstNodeZero();
    d_->showContent();
}

void CurveEditor::setFirstNodeConstant()
{
    d_->functionEdit->canvas.setFirstNodeConstant();
    d_->showContent();
}

void CurveEditor::setLastNodeZero()
{
    d_->functionEdit->canvas.setLastNodeZero();
    d_->showContent();
}

void CurveEditor::setLastNodeConstant()
{
    d_->functionEdit->canvas.setLastNodeConstant();
    d_->showContent();
}

void CurveEditor::setLastNodeLoop()
{
    d_->functionEdit->canvas.setLastNodeLoop();
    d_->showContent();
}

void CurveEditor::setLastNodeLoopOffset()
{
    d_->functionEdit->canvas.setLastNodeLoopOffset();
    d_->showContent();
}

void CurveEditor::setLastNodeFollowTangent()
{
    d_->functionEdit->canvas.setLastNodeFollowTangent();
    d_->showContent();
}

void CurveEditor::changeNodeFirstType(int index)
{
    switch (index) {
    case SplineBase::Zero:
        return setFirstNodeZero();
    case SplineBase::Constant:
        return setFirstNodeConstant();
    default:
        return;
    }
}

void CurveEditor::changeNodeLastType(int index)
{
    switch (index) {
    case SplineBase::Zero:
        return setLastNodeZero();
    case SplineBase::Constant:
        return setLastNodeConstant();
    case SplineBase::Loop:
        return setLastNodeLoop();
    case SplineBase::LoopOffset:
        return setLastNodeLoopOffset();
    case SplineBase::FollowTangent:
        return setLastNodeFollowTangent();
    default:
        return;
    }
}

void CurveEditor::Private::showFirstType(int type)
{
    showChoice(firstNodeMenu->actions(), *editor.nodeFirst, type);
}

void CurveEditor::Private::showLastType(int type)
{
    showChoice(lastNodeMenu->actions(), *editor.nodeLast, type);
}
