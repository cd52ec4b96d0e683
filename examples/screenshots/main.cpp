// SPDX-License-Identifier: MIT
// Draws the pictures of the user's guide: usage curve_editor_screenshots FOLDER
// With --film before the folder, the frames of the moving picture; with --matrix all pages and dialogs in languages,
// widths, fonts, directions and colours, to be looked at. The ratio of pixels is that of QT_SCALE_FACTOR.
#include "DarkPalette.h"
#include "Film.h"
#include "GuideScene.h"
#include "Matrix.h"

#include <MainWindow.h>

#include <curveeditor/shell/CurveEditor.h>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPalette>
#include <QTabWidget>
#include <QTest>

#include <cmath>
#include <cstdio>

namespace {

bool save(const QPixmap& picture, const QString& fileName)
{
    if (picture.save(fileName))
        return true;
    std::fprintf(stderr, "%s can't be written\n", qPrintable(fileName));
    return false;
}

QPixmap besideEachOther(const QPixmap& left, const QPixmap& right)
{
    constexpr int gap = 8;
    QPixmap both(left.width() + gap + right.width(), left.height());
    both.fill(Qt::white);
    QPainter painter(&both);
    painter.drawPixmap(0, 0, left);
    painter.drawPixmap(left.width() + gap, 0, right);
    return both;
}

const QStringList& cameraCurves()
{
    static const QStringList names{"Camera.tilt", "Camera.zoom", "Camera.focus distance", "Light.flicker",
                                   "Camera.pan"};
    return names;
}

bool drawEditor(const QDir& folder)
{
    GuideScene bezier(cameraCurves());
    bezier.selectPoint(1);
    GuideScene tcb({"Camera.pan", "Camera.tilt"});
    tcb.selectPoint(1);
    GuideScene observer({"Observer.x", "Observer.y", "Observer.z", "Observer.sensor"});
    observer.editor().tabWidget2->setCurrentIndex(1);
    return save(bezier.wholeEditor(), folder.filePath("editor.png")) &&
           save(bezier.editor().tabWidget2->grab(), folder.filePath("page-bezier.png")) &&
           save(tcb.editor().tabWidget2->grab(), folder.filePath("page-tcb.png")) &&
           save(observer.wholeEditor(), folder.filePath("expression.png"));
}

bool drawDarkEditor(const QDir& folder)
{
    const QPalette usual = QApplication::palette();
    QApplication::setPalette(darkPalette());
    GuideScene scene(cameraCurves());
    scene.selectPoint(1);
    const bool isSaved = save(scene.wholeEditor(), folder.filePath("editor-dark.png"));
    QApplication::setPalette(usual);
    return isSaved;
}

bool drawView(const QDir& folder)
{
    GuideScene scene(cameraCurves());
    scene.drag(1.8, 4.0, 7.0, -3.0);
    scene.key(Qt::Key_F);
    return save(scene.canvasAlone(), folder.filePath("view.png"));
}

bool drawSelecting(const QDir& folder)
{
    GuideScene scene(cameraCurves());
    scene.key(Qt::Key_A, Qt::ShiftModifier);
    scene.drag(0.6, 4.1, 4.5, 1.0);
    QTest::keyPress(&scene.canvas(), Qt::Key_B);
    scene.press(5.4, 5.5);
    scene.move(9.6, -2.5);
    const bool isSaved = save(scene.canvasAlone(), folder.filePath("selecting.png"));
    QTest::keyRelease(&scene.canvas(), Qt::Key_B);
    return isSaved;
}

bool drawSpan(const QDir& folder)
{
    GuideScene scene({"Camera.tilt", "Camera.pan"});
    scene.drag(1.8, 4.0, 7.0, -3.0);
    QPixmap picture = scene.canvasAlone();
    QPainter painter(&picture);
    painter.setPen(scene.editor().theme().labels);
    const QPoint first = scene.pixel(2.5, 8.0);
    const QPoint last = scene.pixel(6.0, 5.0);
    const auto write = [&](int left, int right, const QString& text) {
        painter.drawText(QRect(QPoint(left, first.y()), QPoint(right, last.y())), Qt::AlignCenter, text);
    };
    write(0, first.x(), QStringLiteral("a press here\nselects anew"));
    write(first.x(), last.x(), QStringLiteral("a drag from anywhere in here\nmoves all selected points"));
    write(last.x(), picture.width(), QStringLiteral("a press here\nselects anew"));
    return save(picture, folder.filePath("span.png"));
}

bool drawMoving(const QDir& folder)
{
    GuideScene scene(cameraCurves());
    scene.key(Qt::Key_S);
    scene.press(2.5, 2.6);
    scene.move(3.01, 1.22);
    return save(scene.canvasAlone(), folder.filePath("moving.png"));
}

bool drawClipboard(const QDir& folder)
{
    GuideScene scene({"Camera.tilt", "Camera.pan"});
    scene.key(Qt::Key_A, Qt::ControlModifier);
    scene.key(Qt::Key_C, Qt::ControlModifier);
    scene.makeCurrent("Light.key intensity");
    scene.key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    return save(scene.canvasAlone(), folder.filePath("clipboard.png"));
}

bool drawTangents(const QDir& folder)
{
    GuideScene scene({"Camera.pan"});
    scene.editor().resize(640, 520);
    scene.key(Qt::Key_A, Qt::ControlModifier);
    scene.choose("Flatten");
    const QPixmap flat = scene.canvasAlone();
    scene.choose("Smooth without overshoot");
    return save(besideEachOther(flat, scene.canvasAlone()), folder.filePath("tangents.png"));
}

bool drawStroke(const QDir& folder)
{
    GuideScene scene(cameraCurves());
    QTest::keyPress(&scene.canvas(), Qt::Key_D);
    scene.press(1.0, 0.5);
    for (double time = 1.0; time < 5.0; time += 0.01)
        scene.move(time,
                   0.5 + std::sin(2.0 * time - 2.0) * (1.0 + 0.5 * time) + 0.02 * std::sin(60.0 * time));
    const bool isSaved = save(scene.canvasAlone(), folder.filePath("stroke.png"));
    QTest::keyRelease(&scene.canvas(), Qt::Key_D);
    return isSaved;
}

bool drawTypes(const QDir& folder)
{
    GuideScene scene({"Camera.tilt", "Specimens.mixed with hold"});
    scene.key(Qt::Key_F);
    return save(scene.canvasAlone(), folder.filePath("types.png"));
}

bool drawEases(const QDir& folder)
{
    GuideScene scene({"Camera.pan"});
    scene.editor().resize(640, 520);
    scene.key(Qt::Key_A, Qt::ControlModifier);
    scene.key(Qt::Key_E);
    const QPixmap smooth = scene.canvasAlone();
    scene.key(Qt::Key_Z, Qt::ControlModifier);
    scene.choose("Back out");
    return save(besideEachOther(smooth, scene.canvasAlone()), folder.filePath("eases.png"));
}

bool drawTransformBox(const QDir& folder)
{
    GuideScene scene({"Camera.tilt", "Camera.pan"});
    scene.editor().resize(760, 520);
    scene.key(Qt::Key_A, Qt::ControlModifier);
    scene.key(Qt::Key_T, Qt::ControlModifier);
    const QPixmap whole = scene.canvasAlone();
    scene.drag(10.0, 0.4, 5.0, 0.4);
    return save(besideEachOther(whole, scene.canvasAlone()), folder.filePath("transform.png"));
}

bool drawOwnScale(const QDir& folder)
{
    GuideScene scene(cameraCurves());
    scene.key(Qt::Key_F, Qt::ShiftModifier);
    return save(scene.canvasAlone(), folder.filePath("own-scale.png"));
}

bool drawMarks(const QDir& folder)
{
    GuideScene scene(cameraCurves());
    scene.key(Qt::Key_L);
    scene.makeCurrent(cameraCurves().at(1));
    scene.key(Qt::Key_H);
    scene.makeCurrent(cameraCurves().first());
    scene.key(Qt::Key_H, Qt::ShiftModifier);
    return save(scene.wholeEditor(), folder.filePath("marks.png"));
}

bool drawReplacing(const QDir& folder)
{
    GuideScene scene({"Camera.pan", "Camera.tilt"});
    scene.editor().resize(640, 520);
    scene.editor().setTimeLine(1.5);
    scene.editor().selectPoints("Camera", "tilt", {0, 1});
    scene.key(Qt::Key_C, Qt::ControlModifier);
    scene.makeCurrent("Camera.pan");
    const QPixmap before = scene.canvasAlone();
    scene.key(Qt::Key_V, Qt::ControlModifier | Qt::AltModifier);
    return save(besideEachOther(before, scene.canvasAlone()), folder.filePath("replacing.png"));
}

bool drawHandles(const QDir& folder)
{
    GuideScene scene({"Camera.pan"});
    scene.editor().resize(640, 520);
    scene.selectPoint(1);
    const QPixmap before = scene.canvasAlone();
    scene.key(Qt::Key_K);
    scene.dragHandle(1, 1.0);
    return save(besideEachOther(before, scene.canvasAlone()), folder.filePath("handles.png"));
}

bool drawSlope(const QDir& folder)
{
    GuideScene scene({"Camera.tilt", "Camera.pan"});
    scene.key(Qt::Key_V);
    scene.hover(4.0, 3.0);
    return save(scene.canvasAlone(), folder.filePath("slope.png"));
}

bool drawTable(const QDir& folder)
{
    GuideScene scene(cameraCurves());
    scene.editor().tabWidget2->setCurrentIndex(2);
    scene.canvas().setFocus();
    scene.drag(1.8, 4.0, 7.0, -3.0);
    return save(scene.wholeEditor(), folder.filePath("table.png"));
}

bool drawFitting(const QDir& folder)
{
    GuideScene samples({"Camera.pan"});
    samples.takeSamples();
    return save(samples.withDialog(QStringLiteral("Simplify…"), QStringLiteral("0.1")),
                folder.filePath("simplify.png"));
}

bool drawDockedHost(const QDir& folder)
{
    MainWindow host;
    host.show();
    auto* const stage = host.findChild<Stage*>();
    const bool isLit = QTest::qWaitForWindowExposed(&host) &&
                       QTest::qWaitFor([stage] { return stage->image().size() == stage->size(); });
    auto* const editor = host.findChild<CurveEditor*>();
    editor->selectPoints("Front", "01", {1});
    return isLit && save(host.grab(), folder.filePath("docked-host.png"));
}

bool drawPictures(const QDir& folder)
{
    return drawEditor(folder) && drawDarkEditor(folder) && drawView(folder) && drawSelecting(folder) &&
           drawSpan(folder) && drawMoving(folder) && drawClipboard(folder) && drawTangents(folder) &&
           drawStroke(folder) && drawTypes(folder) && drawSlope(folder) && drawEases(folder) &&
           drawTransformBox(folder) && drawMarks(folder) && drawReplacing(folder) && drawHandles(folder) &&
           drawOwnScale(folder) && drawTable(folder) && drawFitting(folder) && drawDockedHost(folder);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const bool isMatrix = arguments.value(1) == QStringLiteral("--matrix");
    const bool isFilm = arguments.value(1) == QStringLiteral("--film");
    if (arguments.size() != (isMatrix || isFilm ? 3 : 2)) {
        std::fprintf(stderr, "usage: curve_editor_screenshots [--matrix | --film] FOLDER\n");
        return EXIT_FAILURE;
    }
    const QDir folder(arguments.last());
    const bool isDrawn = isFilm     ? Film(folder).shoot()
                         : isMatrix ? Matrix(folder).draw()
                                    : drawPictures(folder);
    return isDrawn ? EXIT_SUCCESS : EXIT_FAILURE;
}
