// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <QComboBox>

#include <optional>

class tst_FunctionEditor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture.emplace(QStringList{"cam.lens"}); }
    void cleanup() { fixture.reset(); }

    void freeMoveReportsTheMouseAndPaintsNothing()
    {
        EditorFixture empty;
        int reports = 0;
        connect(&empty.canvas, &FunctionEditor::setFuncPosInfo, this,
                [&](double time, double value, double curve) {
                    ++reports;
                    QVERIFY(qAbs(time - 2.0) < 0.05 && qAbs(value - 1.0) < 0.05);
                    QCOMPARE(curve, 0.0);
                });
        connect(&empty.canvas, &FunctionEditor::setPosInfo, this, [&] { ++reports; });
        empty.canvas.dirty = true;
        empty.move(2.0, 1.0, Qt::NoButton);
        QCOMPARE(reports, 2);
        QVERIFY(empty.canvas.dirty);
        empty.move(2.0, 1.0, Qt::NoButton, Qt::ShiftModifier);
        QVERIFY(!empty.canvas.dirty);
    }

    void selectedPointStaysInThePositionFields()
    {
        fixture->click(5.0, 1.0);
        fixture->move(2.0, -2.0, Qt::NoButton);
        QCOMPARE(fixture->editor.posX->text(), "50.000");
        QCOMPARE(fixture->editor.posY->text(), "1.000");
    }

    void pressOnPointStartsNoGesture()
    {
        QTest::mousePress(&fixture->canvas, Qt::LeftButton, {}, fixture->pixel(5.0, 1.0));
        QVERIFY(!fixture->canvas.bandDrag);
        QTest::mouseRelease(&fixture->canvas, Qt::LeftButton, {}, fixture->pixel(5.0, 1.0));
        QTest::mousePress(&fixture->canvas, Qt::LeftButton, {}, fixture->pixel(8.0, -2.0));
        QVERIFY(fixture->canvas.bandDrag);
    }

    void altBandZoomsAnEmptyCanvas()
    {
        EditorFixture empty;
        QTest::mousePress(&empty.canvas, Qt::LeftButton, Qt::AltModifier, empty.pixel(1.0, 2.0));
        empty.move(6.0, -1.0, Qt::LeftButton, Qt::AltModifier);
        QTest::mouseRelease(&empty.canvas, Qt::LeftButton, Qt::AltModifier, empty.pixel(6.0, -1.0));
        QVERIFY(qAbs(empty.canvas.timeMin - 1.0) < 0.05 && qAbs(empty.canvas.timeMax - 6.0) < 0.05);
        QVERIFY(!empty.canvas.nodeForm.isActive());
    }

    void dragUpdatesThePageAtEachMove()
    {
        QTest::mousePress(&fixture->canvas, Qt::LeftButton, {}, fixture->pixel(5.0, 1.0));
        fixture->move(7.0, 2.0, Qt::LeftButton);
        QVERIFY(qAbs(fixture->editor.posY->text().toDouble() - 2.0) < 0.05);
        QVERIFY(fixture->changes.isEmpty());
        QTest::mouseRelease(&fixture->canvas, Qt::LeftButton, {}, fixture->pixel(7.0, 2.0));
        QCOMPARE(fixture->changes, QStringList{"cam/lens"});
    }

    void keyOpensThePage_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<bool>("opens");
        QTest::newRow("T") << Qt::Key_T << true;
        QTest::newRow("C") << Qt::Key_C << true;
        QTest::newRow("Tab") << Qt::Key_Tab << true;
        QTest::newRow("other letter") << Qt::Key_A << false;
        QTest::newRow("left arrow") << Qt::Key_Left << false;
    }
    void keyOpensThePage()
    {
        QFETCH(Qt::Key, key);
        fixture->click(5.0, 1.0);
        fixture->canvas.closeNodeForm();
        QTest::keyClick(&fixture->canvas, key);
        QTEST(fixture->canvas.nodeForm.isActive(), "opens");
        QCOMPARE(fixture->editor.node->text(), key == Qt::Key_Left ? "0" : "1");
    }

    void tabLeadsIntoThePageAndBack()
    {
        fixture->click(5.0, 1.0);
        fixture->canvas.closeNodeForm();
        QTest::keyClick(&fixture->canvas, Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), fixture->editor.node);
        QTest::keyClick(fixture->editor.node, Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), &fixture->canvas);
    }

    void expressionLeavesThePageClosed()
    {
        fixture->click(5.0, 1.0);
        fixture->editor.setExpression();
        fixture->click(5.0, 1.0);
        QVERIFY(!fixture->canvas.nodeForm.isActive());
    }

    void doubleClickWithoutCurveDoesNothing()
    {
        EditorFixture empty;
        empty.canvas.dirty = true;
        QTest::mouseDClick(&empty.canvas, Qt::LeftButton, {}, empty.pixel(2.0, 1.0));
        QVERIFY(empty.changes.isEmpty());
    }

    void fitShowsTheCurrentSpline_data()
    {
        QTest::addColumn<double>("lastValue");
        QTest::addColumn<bool>("isExpression");
        QTest::addColumn<QList<double>>("view");
        QTest::newRow("spline") << 1.0 << false << QList<double>{0.0, 5.0, -0.1, 1.1};
        QTest::newRow("level spline") << 0.0 << false << QList<double>{0.0, 5.0, -3.0, 3.0};
        QTest::newRow("beyond the limits") << 1e300 << false << QList<double>{0.0, 5.0, -3.0, 3.0};
        QTest::newRow("expression") << 1.0 << true << QList<double>{-1.0, 10.0, -3.6, 3.6};
    }
    void fitShowsTheCurrentSpline()
    {
        QFETCH(double, lastValue);
        QFETCH(bool, isExpression);
        SplineBase& spline = fixture->curves["cam.lens"].spline;
        spline.setPos(spline.modify(1U), lastValue);
        if (isExpression)
            fixture->editor.setExpression();
        fixture->editor.completeViewport();
        const FunctionEditor& view = fixture->canvas;
        const QList<double> shown = {view.timeMin, view.timeMax, view.valueMin, view.valueMax};
        QTEST(shown, "view");
    }

    void hugePointsAndViewsDoNoHarm_data()
    {
        QTest::addColumn<double>("number");
        for (double number : {1e300, -1e300, 1e-300, 1.7e308})
            QTest::addRow("%g", number) << number;
    }
    void hugePointsAndViewsDoNoHarm()
    {
        QFETCH(double, number);
        fixture->curves["cam.lens"].spline.addPoint(number, number);
        fixture->editor.updateCurves();
        fixture->click(3.0, 0.0);
        fixture->editor.setTimeRange(-number, number);
        fixture->editor.setMaxValue(number);
        fixture->editor.completeViewport();
        fixture->drag(0.0, 0.0, number, number);
        QTest::keyClick(&fixture->canvas, Qt::Key_Right);
        fixture->canvas.resize(0, 0);
        fixture->drag(0.0, 0.0, 1.0, 1.0);
        QVERIFY(fixture->curves["cam.lens"].spline.getControlPointsNumber() >= 3);
    }

private:
    std::optional<EditorFixture> fixture;
};

QTEST_MAIN(tst_FunctionEditor)
#include "tst_FunctionEditor.moc"
