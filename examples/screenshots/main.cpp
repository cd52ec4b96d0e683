// SPDX-License-Identifier: MIT
// Draws the pictures of the user's guide: usage curve_editor_screenshots FOLDER
// With --matrix before the folder, the dialog with each page in several fonts and both directions, to be looked at. The
// ratio of pixels is that of QT_SCALE_FACTOR.
#include "CurveStore.h"
#include "EditorHost.h"
#include "SampleCurves.h"

#include <curveeditor/model/CurveFit.h>
#include <curveeditor/model/SplineBase.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QPainter>
#include <QTabWidget>
#include <QTest>

#include <cmath>
#include <cstdio>

namespace {

constexpr int pauseInTyping = 500; // milliseconds

// The sample curves in an editor on which a user has selected a point of the current one.
class Scene
{
public:
    explicit Scene(const QStringList& names) : host_(filledStore())
    {
        for (const QString& name : names) {
            current_ = store_.find(name.section(u'.', 0, 0), name.section(u'.', 1));
            if (current_)
                host_.open(*current_);
        }
        editor().setAttribute(Qt::WA_DontShowOnScreen);
        editor().resize(1060, 640);
        editor().show();
        QApplication::processEvents();
    }

    CurveEditor& editor() { return host_.getEditor(); }

    // The current curve as a sensor would give it.
    void takeSamples()
    {
        const auto sample = [this](double time) {
            return current_->spline(time) + 0.05 * std::sin(40.0 * time);
        };
        const PlaneRange range = host_.getRange();
        const CurveFit::Steps steps{range.timeMin, range.timeMax, (range.timeMax - range.timeMin) / 400.0};
        current_->spline.assign(CurveFit::bake(sample, steps, SplineBase::Linear).spline);
        editor().updateCurves();
    }

    // The editor with the dialog that this entry of the menu "Edit" opens, that tolerance typed in.
    QPixmap withDialog(const QString& entry, const QString& tolerance)
    {
        for (QAction* const action : editor().findChildren<QAction*>()) {
            if (action->text() == entry)
                action->trigger();
        }
        auto* const dialog = editor().findChild<QDialog*>();
        if (!dialog)
            return QPixmap();
        dialog->findChild<QLineEdit*>(QStringLiteral("tolerance"))->setText(tolerance);
        QTest::qWait(pauseInTyping);
        QPixmap picture = editor().grab();
        QRect place(editor().mapFromGlobal(dialog->pos()), dialog->size());
        QPainter painter(&picture);
        painter.drawPixmap(place, dialog->grab());
        painter.setPen(Qt::darkGray);
        painter.drawRect(place);
        return picture;
    }

    void selectPoint(unsigned index)
    {
        auto* const canvas = editor().findChild<QWidget*>(QStringLiteral("functionEdit"));
        const SplineBase::PointInfo* const point = current_ ? current_->spline[index] : nullptr;
        if (!canvas || !point)
            return;
        const PlaneRange range = host_.getRange();
        const double x = (point->time - range.timeMin) / (range.timeMax - range.timeMin) * canvas->width();
        const double y = (range.valueMax - point->pos) / (range.valueMax - range.valueMin) * canvas->height();
        QTest::mouseClick(canvas, Qt::LeftButton, {}, QPoint(int(x), int(y)));
    }

private:
    CurveStore& filledStore()
    {
        addSampleCurves(store_);
        return store_;
    }

    CurveStore store_;
    EditorHost host_;
    Curve* current_ = nullptr;
};

bool save(const QPixmap& picture, const QString& fileName)
{
    if (picture.save(fileName))
        return true;
    std::fprintf(stderr, "%s can't be written\n", qPrintable(fileName));
    return false;
}

bool drawPictures(const QDir& folder)
{
    const QStringList curves{"Camera.tilt", "Camera.zoom", "Camera.focus distance", "Light.flicker",
                             "Camera.pan"};
    Scene bezier(curves);
    bezier.selectPoint(1);
    Scene tcb({"Camera.pan", "Camera.tilt"});
    tcb.selectPoint(1);
    Scene observer({"Observer.x", "Observer.y", "Observer.z", "Observer.sensor"});
    observer.editor().tabWidget2->setCurrentIndex(1);
    Scene samples({"Camera.pan"});
    samples.takeSamples();
    QApplication::processEvents();
    return save(bezier.editor().grab(), folder.filePath("editor.png")) &&
           save(bezier.editor().tabWidget2->grab(), folder.filePath("page-bezier.png")) &&
           save(tcb.editor().tabWidget2->grab(), folder.filePath("page-tcb.png")) &&
           save(samples.withDialog(QStringLiteral("Simplify…"), QStringLiteral("0.1")),
                folder.filePath("simplify.png")) &&
           save(observer.editor().grab(), folder.filePath("expression.png"));
}

bool drawPages(const QDir& folder, const QString& suffix)
{
    Scene bezier({"Camera.tilt", "Camera.focus distance", "Light.flicker", "Camera.pan"});
    bezier.selectPoint(1);
    Scene tcb({"Camera.pan", "Camera.zoom", "Camera.tilt"});
    tcb.selectPoint(1);
    Scene formula({"Observer.x", "Observer.sensor"});
    formula.editor().tabWidget2->setCurrentIndex(1);
    Scene points({"Camera.pan", "Camera.tilt"});
    points.editor().tabWidget2->setCurrentIndex(2);
    points.selectPoint(1);
    QApplication::processEvents();
    return save(bezier.editor().grab(), folder.filePath("bezier-" + suffix)) &&
           save(tcb.editor().grab(), folder.filePath("tcb-" + suffix)) &&
           save(formula.editor().grab(), folder.filePath("expression-" + suffix)) &&
           save(points.editor().grab(), folder.filePath("points-" + suffix));
}

bool drawMatrix(const QDir& folder)
{
    const QString ratio = QString::number(qApp->devicePixelRatio());
    bool areSaved = true;
    for (const int points : {8, 12, 24}) {
        QFont font = QApplication::font();
        font.setPointSize(points);
        QApplication::setFont(font);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            QApplication::setLayoutDirection(direction);
            const QString name = direction == Qt::LeftToRight ? "ltr" : "rtl";
            areSaved =
                areSaved && drawPages(folder, QStringLiteral("%1pt-%2-%3x.png").arg(points).arg(name, ratio));
        }
    }
    return areSaved;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const bool isMatrix = arguments.value(1) == QStringLiteral("--matrix");
    if (arguments.size() != (isMatrix ? 3 : 2)) {
        std::fprintf(stderr, "usage: curve_editor_screenshots [--matrix] FOLDER\n");
        return EXIT_FAILURE;
    }
    const QDir folder(arguments.last());
    return (isMatrix ? drawMatrix(folder) : drawPictures(folder)) ? EXIT_SUCCESS : EXIT_FAILURE;
}
