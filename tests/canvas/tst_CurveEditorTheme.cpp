// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

#include <curveeditor/canvas/ColorContrast.h>

using namespace curveeditor;

class tst_CurveEditorTheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contrastIsThatOfTheGuidelines()
    {
        const auto percent = [](const QColor& left, const QColor& right) {
            return int(100.0 * contrastOf(left, right));
        };
        QCOMPARE(percent(Qt::white, Qt::black), 2100);
        QCOMPARE(percent(QColor(119, 119, 119), Qt::white), 447);
        QCOMPARE(percent(Qt::blue, Qt::white), 859);
        QCOMPARE(percent(Qt::yellow, Qt::white), 107);
    }

    void presetsStandOutOfTheCanvas_data()
    {
        const Rows<CurveEditorTheme> row;
        row("light", CurveEditorTheme::light());
        row("dark", CurveEditorTheme::dark());
        const QColor colors[][3] = {{Qt::white, Qt::black, Qt::blue},
                                    {Qt::black, Qt::white, Qt::black},
                                    {Qt::gray, Qt::darkGray, Qt::yellow},
                                    {QColor(118, 118, 118), QColor(118, 118, 118), Qt::red},
                                    {Qt::darkGreen, Qt::green, Qt::white}};
        for (const auto& [base, text, highlight] : colors) {
            QPalette palette;
            palette.setColor(QPalette::Base, base);
            palette.setColor(QPalette::Text, text);
            palette.setColor(QPalette::Highlight, highlight);
            row(qPrintable(base.name()), CurveEditorTheme::fromPalette(palette));
        }
    }
    void presetsStandOutOfTheCanvas()
    {
        const auto [theme] = Rows<CurveEditorTheme>::present();
        for (const auto& [text, background] : {std::pair(theme.labels, theme.canvas),
                                               {theme.hint, theme.canvas},
                                               {theme.fieldText, theme.field},
                                               {theme.formulaText, theme.formula},
                                               {theme.formulaWarning, theme.formula}})
            QVERIFY2(contrastOf(text, background) >= 4.5, qPrintable(text.name()));
        QList<QColor> parts{theme.controlPoint, theme.controlPointSelected,
                            theme.controller,   theme.controllerSelected,
                            theme.timeLine,     theme.mark};
        for (int hue = 0; hue < 360; hue += 20) {
            for (const auto& [saturation, value] :
                 {std::pair(255, 255), {255, 128}, {60, 255}, {0, hue / 2}}) {
                const auto [current, other] =
                    curveColors(QColor::fromHsv(hue, saturation, value), theme.canvas, theme);
                parts << current << other;
            }
        }
        for (const QColor& part : parts) {
            for (const QColor& background : {theme.canvas, theme.selection})
                QVERIFY2(contrastOf(part, background) >= 3.0, qPrintable(part.name()));
        }
    }

    void nearlyEmptyCanvasSaysWhatToDo()
    {
        CurveEditorTheme silent = CurveEditorTheme::dark();
        silent.hint = QColor();
        const auto saysSomething = [&silent](CanvasScene& scene) {
            scene.canvas.setTheme(silent);
            const QImage picture = scene.picture();
            scene.canvas.setTheme(CurveEditorTheme::dark());
            return scene.picture() != picture;
        };
        CanvasScene scene;
        HostCurve curve;
        QVERIFY(saysSomething(scene));
        scene.add(curve, "a.x");
        QVERIFY(!saysSomething(scene));
        for (int i = 0; i < 2; ++i)
            curve.spline.remove(curve.spline.getLast());
        QVERIFY(saysSomething(scene));
        QVERIFY(!CurveEditorTheme::described().hint.isValid());
    }

    void labelsHideNoPointsAndFollowTheFontOfTheApplication()
    {
        CanvasScene scene;
        HostCurve curve;
        scene.add(curve, "a.x");
        curve.spline.setPos(curve.spline.modify(0u), -2.7); // where the label of frame 50 is
        scene.canvas.setTheme(CurveEditorTheme::light());
        const QImage picture = scene.picture();
        QCOMPARE(picture.pixelColor(50, 77), CurveEditorTheme::light().controlPoint);
        const QFont usual = QApplication::font();
        QApplication::setFont(QFont(usual.family(), 2 * usual.pointSize()));
        QVERIFY(scene.picture() != picture);
        QApplication::setFont(usual);
    }

    void adaptedColorsKeepTheirHue()
    {
        for (const auto& [color, background] : {std::pair(Qt::yellow, Qt::white),
                                                {Qt::cyan, Qt::white},
                                                {Qt::green, Qt::white},
                                                {Qt::blue, Qt::black},
                                                {Qt::darkRed, Qt::black}}) {
            const QColor adapted = contrastingColor(color, {background}, 3.0);
            QVERIFY(std::abs(adapted.hslHue() - QColor(color).hslHue()) <= 20);
            QVERIFY(contrastOf(adapted, background) < 3.1);
        }
        QCOMPARE(contrastingColor(Qt::red, {Qt::black}, 3.0), QColor(Qt::red));
    }
};

QTEST_MAIN(tst_CurveEditorTheme)
#include "tst_CurveEditorTheme.moc"
