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
#include <memory>

namespace {

struct FakePage : NodePage
{
    FakePage()
    {
        nodeTypeCombo.addItems({"Tcb node", "Bezier node", "Linear node"});
        stack.addWidget(new QWidget);
        stack.addWidget(new QWidget);
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
};

} // namespace

class tst_TcbEditorForm : public QObject
{
    Q_OBJECT

    std::unique_ptr<SplineBase> spline;
    std::unique_ptr<CurveEdit> door;
    std::unique_ptr<ControlSplineNode> control;
    std::unique_ptr<FakePage> page;
    std::unique_ptr<TcbEditorForm> form;

    SplineBase::PointInfo* select(unsigned index)
    {
        control->selectOnly(spline->modify(index));
        form->updateForm(control.get(), true);
        return spline->modify(index);
    }

private Q_SLOTS:
    void init()
    {
        page = std::make_unique<FakePage>();
        spline = std::make_unique<SplineBase>();
        spline->addPoint(1.0, 10.0);
        spline->addPoint(2.0, 30.0);
        door = std::make_unique<CurveEdit>();
        control =
            std::make_unique<ControlSplineNode>(*door, door->history().curve("a.x", spline.get(), nullptr));
        form = std::make_unique<TcbEditorForm>(page.get());
    }

    void opensForASinglePointOnly()
    {
        control->selectOnly(spline->modify(1u));
        form->updateForm(control.get(), false);
        QCOMPARE(page->posY.text(), "10.000");
        QVERIFY(!form->isActive() && !page->posX.isEnabled());
        form->updateForm(control.get(), true);
        QVERIFY(form->isActive() && page->posX.isEnabled() && page->next.isEnabled());
        for (const char* selected : {"two points", "one listed point without a current one"}) {
            control->toggleSelected(spline->modify(2u));
            form->updateForm(control.get(), true);
            QVERIFY2(!form->isActive() && !page->nodeTypeCombo.isEnabled(), selected);
        }
        QCOMPARE(page->posY.text(), "10.000");
    }

    void showsThePointOfEachType()
    {
        for (const auto& [type, entry] : {std::pair{2, 0}, {1, 1}, {0, 2}, {77, 2}}) {
            *spline->modify(1u) = {1.0, 10.0, 1.5, 2.5, 12.0, 4.5, 5.5, 0.25, 0.75, type, 77};
            select(1);
            QString shown;
            for (const CustomEditLine* field :
                 {&page->node, &page->posX, &page->posY, &page->incoming, &page->outgoing, &page->tension,
                  &page->continuity, &page->bias, &page->easeTo, &page->easeFrom})
                shown += field->text() + ' ';
            QCOMPARE(shown, "1 1.000 10.000 1.500 2.500 12.000 4.500 5.500 0.250 0.750 ");
            QCOMPARE(page->nodeTypeCombo.currentIndex(), entry);
            QCOMPARE(page->stack.currentIndex(), entry == 1 ? 1 : 0);
        }
    }

    void typedNumberReachesThePointAndIsReported()
    {
        using Point = SplineBase::PointInfo;
        const Point* point = select(1);
        QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
        for (const auto& [field, number, bound] : {std::tuple{&page->posY, &Point::pos, 11.0},
                                                   {&page->tension, &Point::tension, 10.0},
                                                   {&page->continuity, &Point::continuity, 10.0},
                                                   {&page->bias, &Point::bias, 10.0},
                                                   {&page->incoming, &Point::tanLeft, 11.0},
                                                   {&page->outgoing, &Point::tanRight, 11.0},
                                                   {&page->easeFrom, &Point::easeFrom, 1.0},
                                                   {&page->easeTo, &Point::easeTo, 1.0}}) {
            field->clear();
            QTest::keyClicks(field, "11");
            QCOMPARE(point->*number, bound);
            form->valueChanged(std::nan(""), field);
            QCOMPARE(point->*number, bound);
        }
        QCOMPARE(changed.count(), 16);
    }

    void typedTimeIsInTheUnitOnShow()
    {
        const SplineBase::PointInfo* point = select(1);
        form->setTimeBounds(20.0, -1.0);
        for (const auto& [frames, fps, time, index] : {std::tuple{false, 10.0, 5.0, "2"},
                                                       {true, 10.0, 0.5, "1"},
                                                       {true, -2.0, -2.5, "0"},
                                                       {true, 0.0, -2.5, "0"}}) {
            page->frames = frames;
            page->fps = fps;
            page->posX.clear();
            QTest::keyClicks(&page->posX, "5");
            QCOMPARE(point->time, time);
            QCOMPARE(page->node.text(), index);
        }
    }

    void buttonsWrapAtTheEnds()
    {
        QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
        select(1);
        for (const auto& [button, shown] :
             {std::pair{&page->next, "2"}, {&page->next, "0"}, {&page->prev, "2"}, {&page->prev, "1"}}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QCOMPARE(page->node.text(), shown);
        }
        QCOMPARE(control->getCurrent(), (*spline)[1]);
        QCOMPARE(changed.count(), 4);
    }

    void comboConvertsThePoint()
    {
        const SplineBase::PointInfo* point = select(1);
        double length = 0.0;
        const double slope = spline->getTangentLeftAtNode(1, length);
        for (const auto& [key, type] : {std::pair{Qt::Key_Down, 1}, {Qt::Key_Down, 0}, {Qt::Key_Home, 2}}) {
            QTest::keyClick(&page->nodeTypeCombo, key);
            QCOMPARE(point->type, type);
            QCOMPARE(page->stack.currentIndex(), type == SplineBase::Bezier ? 1 : 0);
        }
        QCOMPARE(page->incoming.text(), QString::asprintf("%.3f", slope));
    }

    void pointThatIsGoneIsNotTouched()
    {
        const std::function<void()> losses[] = {
            [this] { spline->remove(spline->modify(1u)); },
            [this] { spline->reset(); },
            [this] { control->selectOnly(nullptr); },
            [this] { form->disableFields(); },
            [this] { control.reset(); },
        };
        for (const std::function<void()>& loseThePoint : losses) {
            init();
            select(1);
            loseThePoint();
            QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
            form->clickedNext();
            form->clickedPrev();
            form->changeNodeType(1);
            form->valueChanged(7.0, &page->posX);
            QCOMPARE(changed.count(), 0);
            QVERIFY(spline->getLast()->time < 7.0);
        }
    }

    void previewMarksItsMiddleAndFollowsTheParameters()
    {
        page->preview.resize(305, 205);
        const QImage atRest = page->preview.grab().toImage();
        QCOMPARE(atRest.pixelColor(150, 60), QColor(Qt::darkRed));
        QCOMPARE(atRest.pixelColor(10, 188), QColor(Qt::black));
        SplineBase::PointInfo point{50.0, -80.0};
        page->preview.setFromPoint(&point);
        QCOMPARE(page->preview.grab().toImage(), atRest);
        point = {0.0, 0.0, 1e300, -1e300, -1e300, 1e300, 1e300, 1e300, -1e300, SplineBase::Bezier};
        page->preview.setFromPoint(&point);
        QVERIFY(page->preview.grab().toImage() != atRest);
    }
};

QTEST_MAIN(tst_TcbEditorForm)
#include "tst_TcbEditorForm.moc"
