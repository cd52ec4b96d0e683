// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/panel/TcbCurveFrame.h>

using Point = SplineBase::PointInfo;

namespace {

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

} // namespace

class tst_NodePage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsThePointOfEachType()
    {
        PageScene s;
        for (const auto& [type, entry] : {std::pair{2, 0}, {1, 1}, {0, 2}, {77, 2}}) {
            *s.x.modify(1u) = {5.0, 1.0, 1.5, 2.5, 12.0, 4.5, 5.5, 0.25, 0.75, type, s.x[1]->serial};
            s.show();
            QString shown;
            for (const CustomEditLine* field :
                 {s.editor.node, s.editor.posX, s.editor.posY, s.editor.incoming, s.editor.outgoing,
                  s.editor.tension, s.editor.continuity, s.editor.bias, s.editor.easeTo, s.editor.easeFrom})
                shown += field->text() + ' ';
            QCOMPARE(shown, "1 50.000 1.000 1.500 2.500 12.000 4.500 5.500 0.250 0.750 ");
            QCOMPARE(s.editor.nodeTypeCombo->currentIndex(), entry);
            QCOMPARE(s.editor.nodeTypeWidgetStack->currentIndex(), entry == 1 ? 1 : 0);
        }
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

    void textThatIsNoNumberLeavesThePointAlone()
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
    }

    void typedTimeIsInTheUnitOnShow()
    {
        PageScene s;
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

    void buttonsWrapAtTheEnds()
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
    }

    void comboConvertsThePoint()
    {
        PageScene s;
        double length = 0.0;
        const double slope = s.x.getTangentLeftAtNode(1, length);
        for (const auto& [key, type] : {std::pair{Qt::Key_Down, 1}, {Qt::Key_Down, 0}, {Qt::Key_Home, 2}}) {
            QTest::keyClick(s.editor.nodeTypeCombo, key);
            QCOMPARE(s.x[1]->type, type);
            QCOMPARE(s.editor.nodeTypeWidgetStack->currentIndex(), type == SplineBase::Bezier ? 1 : 0);
        }
        QCOMPARE(s.editor.incoming->text(), QString::asprintf("%.3f", slope));
    }

    void pointThatIsGoneIsNotTouched()
    {
        const std::function<void(PageScene&)> losses[] = {
            [](PageScene& s) { s.x.remove(s.x.modify(1u)); },
            [](PageScene& s) { s.x.reset(); },
            [](PageScene& s) { s.control().selectOnly(nullptr); },
            [](PageScene& s) { s.form.disableFields(); },
            [](PageScene& s) { s.canvas.canvas.removeCurve("a.x"); },
        };
        for (const auto& loseThePoint : losses) {
            PageScene s;
            loseThePoint(s);
            s.form.clickedNext();
            s.form.clickedPrev();
            s.form.changeNodeType(1);
            s.form.valueChanged(70.0, s.editor.posX);
            QVERIFY(s.changed.isEmpty() && s.x.getLast()->time < 9.0);
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

QTEST_MAIN(tst_NodePage)
#include "tst_NodePage.moc"
