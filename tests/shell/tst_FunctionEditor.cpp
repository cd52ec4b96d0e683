// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/panel/TcbCurveFrame.h>

using Point = SplineBase::PointInfo;

/// The scene, in which "a.x" is a curve of Tcb points, and whose second point is on the page.
struct PageScene : Scene
{
    PageScene()
    {
        x.modify(1u)->type = SplineBase::Tcb;
        show();
    }
    void show()
    {
        editor.updateCurves();
        control().selectOnly(x.modify(1u));
        canvas.showSelection(true);
    }
    TcbEditorForm& form = canvas.nodeForm;
    QSignalSpy changed{&form, &TcbEditorForm::nodeTcbChanged};
};

class tst_FunctionEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dragFillsThePageAndFreeMouseTheReadOutsOnly()
    {
        EditorFixture s({"cam.lens"});
        QTest::mousePress(&s.canvas, Qt::LeftButton, {}, s.pixel(5.0, 1.0));
        QVERIFY(s.canvas.nodeForm.isActive() && s.canvas.gesture.isAtPoints());
        s.sendMouse(s.canvas, QEvent::MouseMove, s.pixel(7.0, 2.0));
        QVERIFY(qAbs(s.editor.posY->text().toDouble() - 2.0) < 0.05 && s.changes.isEmpty());
        s.canvas.dirty = true;
        s.sendMouse(s.canvas, QEvent::MouseMove, s.pixel(2.0, -2.0), Qt::NoButton);
        QVERIFY(s.editor.findChild<CustomEditLine*>("funcCursorEdit")->text().startsWith('-'));
        QVERIFY(s.canvas.dirty);
        const QString selected = s.editor.posY->text();
        s.editor.setExpression();
        QVERIFY(s.canvas.canvas.isCurrentExpression() && s.canvas.canvas.hasSinglePoint());
        s.sendMouse(s.canvas, QEvent::MouseMove, s.pixel(3.0, -1.0), Qt::NoButton);
        QVERIFY(selected.startsWith('2') && s.editor.posY->text().startsWith('-'));
    }

    void keysOpenThePageAndTabLeadsIntoIt()
    {
        EditorFixture s({"cam.lens"});
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_T, Qt::Key_Left, Qt::Key_Tab}) {
            s.clickPoint(), s.canvas.closeNodeForm(), s.key(key);
            QCOMPARE(s.canvas.nodeForm.isActive(), key == Qt::Key_T || key == Qt::Key_Tab);
            QCOMPARE(s.editor.node->text(), key == Qt::Key_Left ? "0" : "1");
        }
        QCOMPARE(QApplication::focusWidget(), s.editor.node);
        QTest::keyClick(s.editor.node, Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), &s.canvas);
        QTest::mouseClick(&s.canvas, Qt::LeftButton, Qt::ShiftModifier, s.pixel(0.0, 0.0));
        QCOMPARE(s.editor.node->text(), "1"); // of several points the last that was alone is shown
    }

    void whatIsToldIsSeenUntilTheNextPressEditOrStep()
    {
        Scene s;
        const QAccessibleInterface* const canvas = QAccessible::queryAccessibleInterface(&s.canvas);
        s.clickPoint().key(Qt::Key_Up, alt).control().selectOnly(nullptr);
        const Deed deeds[] = {[](Scene& scene) { scene.press(5.0, 2.0); },
                              [](Scene& scene) { scene.key(Qt::Key_Right); },
                              [](Scene& scene) { scene.editor.undoStack()->undo(); },
                              [](Scene& scene) {
                                  scene.canvas.resetCurrentCurve();
                              }};
        for (const Deed& deed : deeds) {
            const QImage silent = s.shown();
            s.canvas.canvas.tell("Within 1 %");
            QVERIFY(canvas->text(QAccessible::Description).endsWith("selected Within 1 %"));
            const QImage spoken = s.shown();
            QVERIFY(spoken != silent);
            deed(s);
            QVERIFY(canvas->text(QAccessible::Description).endsWith("selected"));
            QVERIFY(s.showsWhatIsDrawnFromScratch());
        }
    }

    void slopeIsALineWithItsOwnScaleAndTold()
    {
        Scene s;
        SplineEdits::setType(s.x, {s.x[1]->serial, s.x[2]->serial}, SplineBase::Linear);
        s.x.setPos(s.x.modify(1), 1.25);
        s.updateCurves();
        const auto rowsThatDiffer = [&s](const QImage& image, double time) {
            const QImage now = s.shown();
            QList<double> rows;
            for (int row = 0; row < now.height(); ++row) {
                if (now.pixel(s.pixel(time, 0.0).x(), row) != image.pixel(s.pixel(time, 0.0).x(), row))
                    rows.append(double(row) / now.height());
            }
            return rows;
        };
        const auto isAt = [](const QList<double>& rows, double row) {
            return rows.size() == 1 && qAbs(rows[0] - row) < 0.005;
        };
        for (const char* const curve : {"a.x", "a.z"}) { // a formula by differences
            const QImage without = s.turnTo(curve).shown();
            s.key(Qt::Key_V);
            QVERIFY(isAt(rowsThatDiffer(without, 2.3), 0.35) && isAt(rowsThatDiffer(without, 6.3), 0.95));
            const QImage silent = s.shown();
            s.mouse(QEvent::MouseMove, s.pixel(6.5, 2.0), Qt::NoButton);
            QVERIFY(s.shown() != silent && s.showsWhatIsDrawnFromScratch());
            QEvent leaving(QEvent::Leave);
            QCoreApplication::sendEvent(&s.canvas, &leaving);
            s.key(Qt::Key_V);
            QVERIFY(s.shown() == without);
        }
        const auto slope = [&s](double time) {
            return s.canvas.canvas.getCurrentCurve()->slope(time, 0.01);
        };
        QVERIFY(qAbs(slope(2.5) - 0.25) < 1e-9);
        s.turnTo("a.x");
        QCOMPARE(slope(6.5), -0.75);
        s.x.setPos(s.x.modify(1), 500.0); // where the bound of the curve, 100, holds it
        QVERIFY(slope(4.0) == 0.0 && slope(0.5) == 100.0);
    }

    void fitShowsTheCurrentCurve()
    {
        EditorFixture s({"cam.lens"});
        QTest::mouseClick(s.button("Fit H"), Qt::LeftButton);
        QCOMPARE(s.sides(), (QList<double>{0.0, 5.0, -3.0, 3.0}));
        QTest::mouseClick(s.button("Fit V"), Qt::LeftButton);
        QCOMPARE(s.sides(), (QList<double>{0.0, 5.0, -0.1, 1.1}));
        s.editor.setExpression();
        s.editor.completeViewport();
        QCOMPARE(s.canvas.valueMax, 1.22);
        s.editor.setTcb();
        s.editor.resetViewport();
        for (const char* const keys : {"Alt+T", "Alt+C"})
            QTest::keySequence(&s.editor, QKeySequence(keys));
        QVERIFY(s.editor.isModeTime() && s.canvas.timeMax == 5.0);
    }

    void themeIsTheEditorsOwnOnceAHostHasSetIt()
    {
        EditorFixture s({"cam.lens"});
        CurveEditor& themed = s.editor;
        const CurveEditor other;
        themed.setControlPointColor(Qt::red);
        QCOMPARE(other.theme().controlPoint, QColor(Qt::red));
        CurveEditorTheme theme = CurveEditorTheme::light();
        theme.grabDistance = 20;
        theme.curveWidth = std::nan("");
        themed.setTheme(theme);
        QVERIFY(themed.theme().controlPoint == theme.controlPoint && themed.theme().curveWidth == 0.5);
        themed.setControlPointColor(Qt::black);
        QCOMPARE(other.theme().controlPoint, QColor(Qt::red));
        themed.setCanvasColor(Qt::blue);
        themed.updateCurves();
        QCOMPARE(themed.grab().toImage().pixelColor(s.canvas.mapTo(&themed, QPoint(10, 10))),
                 QColor(Qt::blue));
        QVERIFY(s.canvas.canvas.hands().hasPointAt(s.pixel(5.0, 1.0) + QPoint(19, 0)));
        CurveEditor().setControlPointColor(Qt::black); // for the other tests
    }

    void hostGivesEachPartItsColorAndAThemeOfAPaletteFollowsIt()
    {
        EditorFixture s({});
        using Theme = CurveEditorTheme;
        for (const auto& [give, part] :
             {std::pair{&CurveEditor::setSelectionColor, &Theme::selection},
              {&CurveEditor::setControllerColor, &Theme::controller},
              {&CurveEditor::setControllerSelectedColor, &Theme::controllerSelected},
              {&CurveEditor::setControlPointSelectedColor, &Theme::controlPointSelected},
              {&CurveEditor::setFrameFontColor, &Theme::labels},
              {&CurveEditor::setFrameLinesColor, &Theme::gridLines},
              {&CurveEditor::setFrameHLineColor, &Theme::frameHLine},
              {&CurveEditor::setFrameVLineColor, &Theme::frameVLine},
              {&CurveEditor::setTimeLineColor, &Theme::timeLine}}) {
            s.editor.setTheme(Theme::light());
            (s.editor.*give)(Qt::magenta);
            QCOMPARE(s.editor.theme().*part, QColor(Qt::magenta));
        }
        const auto canvasInPaletteOf = [&s](const QColor& base) {
            QPalette palette = s.editor.palette();
            palette.setColor(QPalette::Base, base);
            s.editor.setPalette(palette);
            return s.editor.theme().canvas;
        };
        QCOMPARE(canvasInPaletteOf(Qt::yellow), Theme::light().canvas);
        s.editor.setTheme(Theme::fromPalette(s.editor.palette()));
        QCOMPARE(canvasInPaletteOf(Qt::darkBlue), QColor(Qt::darkBlue));
        QCOMPARE(canvasInPaletteOf(Qt::white), QColor(Qt::white));
        s.editor.setTheme(Theme::light());
        QCOMPARE(canvasInPaletteOf(Qt::darkBlue), Theme::light().canvas);
    }

    void typedNumberReachesThePointAndIsReported()
    {
        PageScene s;
        for (const auto& [field, number, bound] : {std::tuple{s.editor.posY, &Point::pos, 11.0},
                                                   {s.editor.tension, &Point::tension, 10.0},
                                                   {s.editor.continuity, &Point::continuity, 10.0},
                                                   {s.editor.bias, &Point::bias, 10.0},
                                                   {s.editor.incoming, &Point::tanLeft, 11.0},
                                                   {s.editor.outgoing, &Point::tanRight, 11.0},
                                                   {s.editor.easeFrom, &Point::easeFrom, 1.0},
                                                   {s.editor.easeTo, &Point::easeTo, 1.0}}) {
            field->clear();
            QTest::keyClicks(field, "11");
            s.form.valueChanged(notANumber, field);
            QCOMPARE(s.x[1]->*number, bound);
        }
        QCOMPARE(s.changed.count(), 16);
    }

    void typedTimeIsInTheUnitOnShowAndNoNumberLeavesThePointAlone()
    {
        PageScene s;
        s.editor.setFps(29.97);
        s.x.modify(1u)->time = 0.123456789;
        s.x.modify(1u)->pos = 1.00049;
        s.show();
        for (CustomEditLine* field : {s.editor.posX, s.editor.posY}) {
            field->selectAll();
            QTest::keyClicks(field, "x");
            QTest::keyClick(field, Qt::Key_Backspace);
            QTest::keyClick(field, Qt::Key_Return);
        }
        QCOMPARE(QPointF(s.x[1]->time, s.x[1]->pos), QPointF(0.123456789, 1.00049));
        const Point* point = s.x[1];
        for (const auto& [frames, fps, time, index] : {std::tuple{false, 10.0, 5.0, "1"},
                                                       {true, 10.0, 0.5, "1"},
                                                       {true, -2.0, -2.5, "0"},
                                                       {true, 0.0, -2.5, "0"}}) {
            frames ? s.editor.setShowFrames() : s.editor.setShowTime();
            s.editor.setFps(fps);
            s.form.setTimeBounds(-20.0, 20.0);
            s.editor.posX->clear();
            QTest::keyClicks(s.editor.posX, "5");
            QCOMPARE(point->time, time);
            QCOMPARE(s.editor.node->text(), index);
        }
    }

    void buttonsWrapAtTheEndsAndComboConvertsThePoint()
    {
        PageScene s;
        for (const auto& [button, shown] : {std::pair{s.editor.nextNode, "2"},
                                            {s.editor.nextNode, "0"},
                                            {s.editor.prevNode, "2"},
                                            {s.editor.prevNode, "1"}}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(s.editor.node->text(), shown);
        }
        QCOMPARE(s.control().getCurrent(), s.x[1]);
        QCOMPARE(s.changed.count(), 4);
        double length = 0.0;
        const double slope = s.x.getTangentLeftAtNode(1, length);
        for (const auto& [key, type] : {std::pair{Qt::Key_Down, 1}, {Qt::Key_Down, 0}, {Qt::Key_Home, 2}}) {
            QTest::keyClick(s.editor.nodeTypeCombo, key);
            QCOMPARE(s.x[1]->type, type);
            QCOMPARE(s.editor.nodeTypeWidgetStack->currentIndex(), type == SplineBase::Bezier ? 1 : 0);
        }
        QCOMPARE(s.editor.incoming->text(), QString::asprintf("%.3f", slope));
    }

    void pointThatIsGoneIsNeitherShownNorTouched()
    {
        const Deed losses[] = {
            [](Scene& s) { s.x.remove(s.x.modify(1u)); },
            [](Scene& s) { s.x.reset(); },
            [](Scene& s) { s.editor.hide(), s.x.reset(); },
            [](Scene& s) { s.control().selectOnly(nullptr); },
            [](Scene& s) { s.turnTo("a.y"); },
            [](Scene& s) { s.turnTo("a.z"); },
            [](Scene& s) { s.remove("x"); },
        };
        for (const Deed& loseThePoint : losses) {
            PageScene s;
            QCOMPARE(s.editor.node->text(), "1");
            loseThePoint(s);
            s.form.clickedNext();
            s.form.clickedPrev();
            s.form.changeNodeType(1);
            s.form.valueChanged(70.0, s.editor.posX);
            QVERIFY(s.changed.isEmpty() && s.x.getLast()->time < 9.0);
            s.updateCurves();
            QVERIFY(!s.form.isActive() && !s.canvas.canvas.hasSinglePoint());
            QVERIFY(s.editor.node->text().isEmpty() && s.editor.tension->text().isEmpty());
            s.key(Qt::Key_T);
            QVERIFY(!s.form.isActive());
        }
    }

    void previewMarksItsMiddleAndFollowsTheParameters()
    {
        TcbCurveFrame preview;
        preview.resize(305, 205);
        const QImage atRest = preview.grab().toImage();
        QCOMPARE(atRest.pixelColor(150, 60), QColor(Qt::darkRed));
        QCOMPARE(atRest.pixelColor(10, 188), QColor(Qt::black));
        Point point{50.0, -80.0};
        preview.setFromPoint(&point);
        QCOMPARE(preview.grab().toImage(), atRest);
        point = {0.0, 0.0, 1e300, -1e300, -1e300, 1e300, 1e300, 1e300, -1e300, SplineBase::Bezier};
        preview.setFromPoint(&point);
        QVERIFY(preview.grab().toImage() != atRest);
    }
};

QTEST_MAIN(tst_FunctionEditor)
#include "tst_FunctionEditor.moc"
