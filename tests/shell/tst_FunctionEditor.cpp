// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/panel/ExpressionEditLine.h>

class tst_FunctionEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture = std::make_unique<EditorFixture>(QStringList{"cam.lens"}); }
    void cleanup() { fixture.reset(); }

    void dragFillsThePageAndFreeMouseTheReadOutsOnly()
    {
        QTest::mousePress(&fixture->canvas, Qt::LeftButton, {}, fixture->pixel(5.0, 1.0));
        QVERIFY(fixture->canvas.nodeForm.isActive() && fixture->canvas.gesture.isAtPoints());
        fixture->sendMouse(fixture->canvas, QEvent::MouseMove, fixture->pixel(7.0, 2.0));
        QVERIFY(qAbs(fixture->editor.posY->text().toDouble() - 2.0) < 0.05);
        QVERIFY(fixture->changes.isEmpty());
        fixture->canvas.dirty = true;
        fixture->sendMouse(fixture->canvas, QEvent::MouseMove, fixture->pixel(2.0, -2.0), Qt::NoButton);
        QVERIFY(fixture->editor.findChild<CustomEditLine*>("funcCursorEdit")->text().startsWith('-'));
        QVERIFY(fixture->canvas.dirty);
        const QString selected = fixture->editor.posY->text();
        fixture->editor.setExpression();
        QVERIFY(fixture->canvas.canvas.isCurrentExpression() && fixture->canvas.canvas.hasSinglePoint());
        fixture->sendMouse(fixture->canvas, QEvent::MouseMove, fixture->pixel(3.0, -1.0), Qt::NoButton);
        QVERIFY(selected.startsWith('2') && fixture->editor.posY->text().startsWith('-'));
    }

    void keysOpenThePageAndTabLeadsIntoIt()
    {
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_T, Qt::Key_Left, Qt::Key_Tab}) {
            fixture->clickPoint();
            fixture->canvas.closeNodeForm();
            fixture->key(key);
            QCOMPARE(fixture->canvas.nodeForm.isActive(), key == Qt::Key_T || key == Qt::Key_Tab);
            QCOMPARE(fixture->editor.node->text(), key == Qt::Key_Left ? "0" : "1");
        }
        QCOMPARE(QApplication::focusWidget(), fixture->editor.node);
        QTest::keyClick(fixture->editor.node, Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), &fixture->canvas);
    }

    void fitShowsTheCurrentCurve()
    {
        QTest::mouseClick(fixture->button("Fit H"), Qt::LeftButton);
        QCOMPARE(fixture->sides(), (QList<double>{0.0, 5.0, -3.0, 3.0}));
        QTest::mouseClick(fixture->button("Fit V"), Qt::LeftButton);
        QCOMPARE(fixture->sides(), (QList<double>{0.0, 5.0, -0.1, 1.1}));
        fixture->editor.setExpression();
        fixture->editor.completeViewport();
        QCOMPARE(fixture->canvas.valueMax, 1.22);
        fixture->editor.setTcb();
        fixture->editor.resetViewport();
        for (const char* const keys : {"Alt+T", "Alt+C"})
            QTest::keySequence(&fixture->editor, QKeySequence(keys));
        QVERIFY(fixture->editor.isModeTime() && fixture->canvas.timeMax == 5.0);
    }

    void themeIsTheEditorsOwnOnceAHostHasSetIt()
    {
        CurveEditor& themed = fixture->editor;
        const CurveEditor other;
        themed.setControlPointColor(Qt::red);
        QCOMPARE(other.theme().controlPoint, QColor(Qt::red));
        CurveEditorTheme theme = CurveEditorTheme::light();
        theme.grabDistance = 20;
        theme.curveWidth = std::nan("");
        themed.setTheme(theme);
        QCOMPARE(themed.theme().controlPoint, theme.controlPoint);
        QCOMPARE(themed.theme().curveWidth, 0.5);
        themed.setControlPointColor(Qt::black);
        QCOMPARE(other.theme().controlPoint, QColor(Qt::red));
        themed.setCanvasColor(Qt::blue);
        themed.updateCurves();
        QCOMPARE(themed.theme().canvas, QColor(Qt::blue));
        QCOMPARE(themed.grab().toImage().pixelColor(fixture->canvas.mapTo(&themed, QPoint(10, 10))),
                 QColor(Qt::blue));
        QVERIFY(fixture->canvas.canvas.hands().hasPointAt(fixture->pixel(5.0, 1.0) + QPoint(19, 0)));
        CurveEditor().setControlPointColor(Qt::black); // for the other tests
    }

    void themeOfAPaletteFollowsIt()
    {
        CurveEditor& editor = fixture->editor;
        const auto canvasInPaletteOf = [&editor](const QColor& base) {
            QPalette palette = editor.palette();
            palette.setColor(QPalette::Base, base);
            editor.setPalette(palette);
            return editor.theme().canvas;
        };
        QCOMPARE(canvasInPaletteOf(Qt::yellow), QColor(Qt::black));
        editor.setTheme(CurveEditorTheme::fromPalette(editor.palette()));
        QCOMPARE(canvasInPaletteOf(Qt::darkBlue), QColor(Qt::darkBlue));
        QCOMPARE(canvasInPaletteOf(Qt::white), QColor(Qt::white));
        editor.setTheme(CurveEditorTheme::light());
        QCOMPARE(canvasInPaletteOf(Qt::darkBlue), CurveEditorTheme::light().canvas);
    }

private:
    std::unique_ptr<EditorFixture> fixture;
};

QTEST_MAIN(tst_FunctionEditor)
#include "tst_FunctionEditor.moc"
