// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/ControlSplineNode.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/panel/TcbEditorForm.h>

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

#include <cmath>
#include <optional>

namespace {

/// A node page with its form, for a curve of the points (0, 0), (1, 10) and (2, 30).
struct Scene : NodePage
{
    Scene()
    {
        nodeTypeCombo.addItems({"Tcb node", "Bezier node", "Linear node"});
        stack.addWidget(new QWidget);
        stack.addWidget(new QWidget);
        spline.addPoint(1.0, 10.0);
        spline.addPoint(2.0, 30.0);
    }
    SplineBase::PointInfo* select(unsigned index)
    {
        control->selectOnly(spline.modify(index));
        form.updateForm(&*control, true);
        return spline.modify(index);
    }
    NodePageWidgets nodePageWidgets() const override { return widgets; }
    void setPosInfo(const double& valueX, const double& valueY) override
    {
        posX.setValue(frames ? valueX * fps : valueX);
        posY.setValue(valueY);
    }
    bool isModeFrames() const override { return frames; }
    double getFps() const override { return fps; }

    bool frames = false;
    double fps = 10.0;
    QPushButton prev, next;
    CustomEditLine node, posX, posY, tension, continuity, bias, incoming, outgoing, easeFrom, easeTo;
    QComboBox nodeTypeCombo;
    QStackedWidget stack;
    TcbCurveFrame preview;
    NodePageWidgets widgets{&prev,     &next,       &node,          &posX,     &posY,
                            &tension,  &continuity, &bias,          &incoming, &outgoing,
                            &easeFrom, &easeTo,     &nodeTypeCombo, &stack,    &preview};
    SplineBase spline;
    CurveEdit door;
    std::optional<ControlSplineNode> control{std::in_place, door,
                                             door.history().curve("a.x", &spline, nullptr)};
    TcbEditorForm form{this};
};

} // namespace

class tst_TcbEditorForm : public QObject
{
    Q_OBJECT

    std::optional<Scene> s;

private Q_SLOTS:
    void init() { s.emplace(); }

    void opensForASinglePointOnly()
    {
        s->control->selectOnly(s->spline.modify(1u));
        s->form.updateForm(&*s->control, false);
        QCOMPARE(s->posY.text(), "10.000");
        QVERIFY(!s->form.isActive() && !s->posX.isEnabled());
        s->form.updateForm(&*s->control, true);
        QVERIFY(s->form.isActive() && s->posX.isEnabled() && s->next.isEnabled());
        for (const char* selected : {"two points", "one listed point without a current one"}) {
            s->control->toggleSelected(s->spline.modify(2u));
            s->form.updateForm(&*s->control, true);
            QVERIFY2(!s->form.isActive() && !s->nodeTypeCombo.isEnabled(), selected);
        }
        QCOMPARE(s->posY.text(), "10.000");
    }

    void showsThePointOfEachType()
    {
        for (const auto& [type, entry] : {std::pair{2, 0}, {1, 1}, {0, 2}, {77, 2}}) {
            *s->spline.modify(1u) = {1.0, 10.0, 1.5, 2.5, 12.0, 4.5, 5.5, 0.25, 0.75, type, 77};
            s->select(1);
            QString shown;
            for (const CustomEditLine* field :
                 {&s->node, &s->posX, &s->posY, &s->incoming, &s->outgoing, &s->tension, &s->continuity,
                  &s->bias, &s->easeTo, &s->easeFrom})
                shown += field->text() + ' ';
            QCOMPARE(shown, "1 1.000 10.000 1.500 2.500 12.000 4.500 5.500 0.250 0.750 ");
            QCOMPARE(s->nodeTypeCombo.currentIndex(), entry);
            QCOMPARE(s->stack.currentIndex(), entry == 1 ? 1 : 0);
        }
    }

    void typedNumberReachesThePointAndIsReported()
    {
        using Point = SplineBase::PointInfo;
        const Point* point = s->select(1);
        QSignalSpy changed(&s->form, &TcbEditorForm::nodeTcbChanged);
        for (const auto& [field, number, bound] : {std::tuple{&s->posY, &Point::pos, 11.0},
                                                   {&s->tension, &Point::tension, 10.0},
                                                   {&s->continuity, &Point::continuity, 10.0},
                                                   {&s->bias, &Point::bias, 10.0},
                                                   {&s->incoming, &Point::tanLeft, 11.0},
                                                   {&s->outgoing, &Point::tanRight, 11.0},
                                                   {&s->easeFrom, &Point::easeFrom, 1.0},
                                                   {&s->easeTo, &Point::easeTo, 1.0}}) {
            field->clear();
            QTest::keyClicks(field, "11");
            QCOMPARE(point->*number, bound);
            s->form.valueChanged(std::nan(""), field);
            QCOMPARE(point->*number, bound);
        }
        QCOMPARE(changed.count(), 16);
    }

    void textThatIsNoNumberLeavesThePointAlone()
    {
        s->frames = true;
        s->fps = 29.97;
        SplineBase::PointInfo* const point = s->select(1);
        point->time = 0.123456789;
        point->pos = 1.00049;
        const SplineBase::PointInfo before = *point;
        s->form.updateForm(&*s->control, true);
        for (CustomEditLine* field : {&s->posX, &s->posY}) {
            field->selectAll();
            QTest::keyClicks(field, "x");
            QTest::keyClick(field, Qt::Key_Backspace);
            QTest::keyClick(field, Qt::Key_Return);
        }
        QCOMPARE(QPointF(point->time, point->pos), QPointF(before.time, before.pos));
    }

    void nodeFieldKeepsWhatIsTypedUntilTheIndexIsShownAgain()
    {
        s->select(1);
        s->node.setText("7");
        QTest::keyClicks(&s->posY, "1");
        QCOMPARE(s->node.text(), "7");
        QTest::keyClicks(&s->posX, "1");
        QCOMPARE(s->node.text(), "1");
    }

    void typedTimeIsInTheUnitOnShow()
    {
        const SplineBase::PointInfo* point = s->select(1);
        s->form.setTimeBounds(20.0, -1.0);
        for (const auto& [frames, fps, time, index] : {std::tuple{false, 10.0, 5.0, "2"},
                                                       {true, 10.0, 0.5, "1"},
                                                       {true, -2.0, -2.5, "0"},
                                                       {true, 0.0, -2.5, "0"}}) {
            s->frames = frames;
            s->fps = fps;
            s->posX.clear();
            QTest::keyClicks(&s->posX, "5");
            QCOMPARE(point->time, time);
            QCOMPARE(s->node.text(), index);
        }
    }

    void buttonsWrapAtTheEnds()
    {
        QSignalSpy changed(&s->form, &TcbEditorForm::nodeTcbChanged);
        s->select(1);
        for (const auto& [button, shown] :
             {std::pair{&s->next, "2"}, {&s->next, "0"}, {&s->prev, "2"}, {&s->prev, "1"}}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(s->node.text(), shown);
        }
        QCOMPARE(s->control->getCurrent(), s->spline[1]);
        QCOMPARE(changed.count(), 4);
    }

    void comboConvertsThePoint()
    {
        const SplineBase::PointInfo* point = s->select(1);
        double length = 0.0;
        const double slope = s->spline.getTangentLeftAtNode(1, length);
        for (const auto& [key, type] : {std::pair{Qt::Key_Down, 1}, {Qt::Key_Down, 0}, {Qt::Key_Home, 2}}) {
            QTest::keyClick(&s->nodeTypeCombo, key);
            QCOMPARE(point->type, type);
            QCOMPARE(s->stack.currentIndex(), type == SplineBase::Bezier ? 1 : 0);
        }
        QCOMPARE(s->incoming.text(), QString::asprintf("%.3f", slope));
    }

    void pointThatIsGoneIsNotTouched()
    {
        const std::function<void()> losses[] = {
            [this] { s->spline.remove(s->spline.modify(1u)); },
            [this] { s->spline.reset(); },
            [this] { s->control->selectOnly(nullptr); },
            [this] { s->form.disableFields(); },
            [this] { s->control.reset(); },
        };
        for (const std::function<void()>& loseThePoint : losses) {
            init();
            s->select(1);
            loseThePoint();
            QSignalSpy changed(&s->form, &TcbEditorForm::nodeTcbChanged);
            s->form.clickedNext();
            s->form.clickedPrev();
            s->form.changeNodeType(1);
            s->form.valueChanged(7.0, &s->posX);
            QCOMPARE(changed.count(), 0);
            QVERIFY(s->spline.getLast()->time < 7.0);
        }
    }

    void previewMarksItsMiddleAndFollowsTheParameters()
    {
        s->preview.resize(305, 205);
        const QImage atRest = s->preview.grab().toImage();
        QCOMPARE(atRest.pixelColor(150, 60), QColor(Qt::darkRed));
        QCOMPARE(atRest.pixelColor(10, 188), QColor(Qt::black));
        SplineBase::PointInfo point{50.0, -80.0};
        s->preview.setFromPoint(&point);
        QCOMPARE(s->preview.grab().toImage(), atRest);
        point = {0.0, 0.0, 1e300, -1e300, -1e300, 1e300, 1e300, 1e300, -1e300, SplineBase::Bezier};
        s->preview.setFromPoint(&point);
        QVERIFY(s->preview.grab().toImage() != atRest);
    }
};

QTEST_MAIN(tst_TcbEditorForm)
#include "tst_TcbEditorForm.moc"
