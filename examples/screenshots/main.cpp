// SPDX-License-Identifier: MIT
// Draws the pictures of the user's guide: usage curve_editor_screenshots FOLDER
#include "CurveStore.h"
#include "EditorHost.h"
#include "SampleCurves.h"

#include <curveeditor/model/SplineBase.h>
#include <curveeditor/shell/CurveEditor.h>

#include <QApplication>
#include <QDir>
#include <QTabWidget>
#include <QTest>

#include <cstdio>

namespace {

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
        editor().resize(940, 640);
        editor().show();
        QApplication::processEvents();
    }

    CurveEditor& editor() { return host_.getEditor(); }

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
    QApplication::processEvents();
    return save(bezier.editor().grab(), folder.filePath("editor.png")) &&
           save(bezier.editor().tabWidget2->grab(), folder.filePath("page-bezier.png")) &&
           save(tcb.editor().tabWidget2->grab(), folder.filePath("page-tcb.png")) &&
           save(observer.editor().grab(), folder.filePath("expression.png"));
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "usage: curve_editor_screenshots FOLDER\n");
        return EXIT_FAILURE;
    }
    return drawPictures(QDir(arguments.at(1))) ? EXIT_SUCCESS : EXIT_FAILURE;
}
