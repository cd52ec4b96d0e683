// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasSpline.h>
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/panel/TcbEditorForm.h>

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

namespace {

class FakePage : public QWidget, public NodePage
{
public:
    FakePage()
    {
        prevNode.setText("<<");
        nextNode.setText(">>");
        nodeTypeCombo.addItems({"Tcb node", "Bezier node", "Linear node"});
        stack.addWidget(new QWidget);
        stack.addWidget(new QWidget);
        show();
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
    QPushButton prevNode{this}, nextNode{this};
    CustomEditLine node{this}, posX{this}, posY{this}, tension{this}, continuity{this}, bias{this},
        incoming{this}, outgoing{this}, easeFrom{this}, easeTo{this};
    QComboBox nodeTypeCombo{this};
    QStackedWidget stack{this};
    TcbCurveFrame tcbCurve{this};
    NodePageWidgets widgets{&prevNode, &nextNode,   &node,          &posX,     &posY,
                            &tension,  &continuity, &bias,          &incoming, &outgoing,
                            &easeFrom, &easeTo,     &nodeTypeCombo, &stack,    &tcbCurve};
};

void type(CustomEditLine& field, const char* keys)
{
    field.clear();
    QTest::keyClicks(&field, keys);
}

int pixelsOf(TcbCurveFrame& frame, const QColor& color)
{
    const QImage image = frame.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    }
    return count;
}

} // namespace

class tst_TcbEditorForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void opensForASinglePointOnly();
    void showsThePointOfEachType_data();
    void showsThePointOfEachType();
    void typedNumberReachesThePointAndIsReported_data();
    void typedNumberReachesThePointAndIsReported();
    void storedNumberBeyondTheBoundsIsShownAndThenClamped();
    void typedTimeIsInTheUnitOnShow_data();
    void typedTimeIsInTheUnitOnShow();
    void timePastANeighbourChangesTheIndex();
    void buttonsWrapAtTheEnds();
    void comboConvertsThePoint();
    void pointThatIsGoneIsNotTouched_data();
    void pointThatIsGoneIsNotTouched();
    void previewMarksTheMiddleOnly();

private:
    void select(unsigned index)
    {
        canvasSpline->control.selectOnly(spline->modify(index));
        form->updateForm(canvasSpline.get(), true);
    }

    std::unique_ptr<SplineBase> spline;
    std::unique_ptr<CanvasSpline> canvasSpline;
    std::unique_ptr<FakePage> page;
    std::unique_ptr<TcbEditorForm> form;
};

void tst_TcbEditorForm::init()
{
    form.reset();
    page = std::make_unique<FakePage>();
    spline = std::make_unique<SplineBase>();
    spline->addPoint(1.0, 10.0);
    spline->addPoint(2.0, 30.0);
    canvasSpline = std::make_unique<CanvasSpline>(spline.get());
    form = std::make_unique<TcbEditorForm>(page.get());
}

void tst_TcbEditorForm::opensForASinglePointOnly()
{
    ControlSplineNode& control = canvasSpline->control;
    QVERIFY(!form->isActive() && !page->posX.isEnabled());
    control.selectOnly(spline->modify(1));
    form->updateForm(canvasSpline.get(), false);
    QVERIFY(!form->isActive());
    QCOMPARE(page->posY.text(), "10.000");
    form->updateForm(canvasSpline.get(), true);
    QVERIFY(form->isActive() && page->posX.isEnabled() && page->nextNode.isEnabled());
    control.toggleSelected(spline->modify(2));
    form->updateForm(canvasSpline.get(), true);
    QVERIFY(!form->isActive() && !page->nodeTypeCombo.isEnabled());
    QCOMPARE(page->posY.text(), "10.000");
    control.toggleSelected(spline->modify(2)); // leaves one listed point without a current one
    form->updateForm(canvasSpline.get(), true);
    QVERIFY(!form->isActive());
    select(0);
    form->updateForm(nullptr, true);
    QVERIFY(!form->isActive());
}

void tst_TcbEditorForm::showsThePointOfEachType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("entry");
    QTest::addColumn<int>("stackPage");
    QTest::newRow("Tcb") << int(SplineBase::Tcb) << 0 << 0;
    QTest::newRow("Bezier") << int(SplineBase::Bezier) << 1 << 1;
    QTest::newRow("Linear") << int(SplineBase::Linear) << 2 << 0;
    QTest::newRow("unknown") << 77 << 2 << 0;
}

void tst_TcbEditorForm::showsThePointOfEachType()
{
    QFETCH(int, type);
    SplineBase::PointInfo* point = spline->modify(1u);
    *point = {1.0, 10.0, 1.5, 2.5, 3.5, 4.5, 5.5, 0.25, 0.75, type};
    QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
    select(1);
    QStringList shown;
    for (const CustomEditLine* field :
         {&page->node, &page->posX, &page->posY, &page->incoming, &page->outgoing, &page->tension,
          &page->continuity, &page->bias, &page->easeTo, &page->easeFrom})
        shown << field->text();
    QCOMPARE(shown, (QStringList{"1", "1.000", "10.000", "1.500", "2.500", "3.500", "4.500", "5.500", "0.250",
                                 "0.750"}));
    QTEST(page->nodeTypeCombo.currentIndex(), "entry");
    QTEST(page->stack.currentIndex(), "stackPage");
    QCOMPARE(changed.count(), 0);
}

using Field = CustomEditLine FakePage::*;
using Number = double SplineBase::PointInfo::*;
Q_DECLARE_METATYPE(Field)
Q_DECLARE_METATYPE(Number)

void tst_TcbEditorForm::typedNumberReachesThePointAndIsReported_data()
{
    QTest::addColumn<Field>("field");
    QTest::addColumn<Number>("number");
    QTest::newRow("value") << &FakePage::posY << &SplineBase::PointInfo::pos;
    QTest::newRow("tension") << &FakePage::tension << &SplineBase::PointInfo::tension;
    QTest::newRow("continuity") << &FakePage::continuity << &SplineBase::PointInfo::continuity;
    QTest::newRow("bias") << &FakePage::bias << &SplineBase::PointInfo::bias;
    QTest::newRow("incoming") << &FakePage::incoming << &SplineBase::PointInfo::tanLeft;
    QTest::newRow("outgoing") << &FakePage::outgoing << &SplineBase::PointInfo::tanRight;
    QTest::newRow("ease from") << &FakePage::easeFrom << &SplineBase::PointInfo::easeFrom;
    QTest::newRow("ease to") << &FakePage::easeTo << &SplineBase::PointInfo::easeTo;
}

void tst_TcbEditorForm::typedNumberReachesThePointAndIsReported()
{
    QFETCH(Field, field);
    QFETCH(Number, number);
    select(1);
    QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
    SplineBase::PointInfo expected = *spline->modify(1u);
    type((*page).*field, "-.5");
    expected.*number = -0.5;
    QCOMPARE(changed.count(), 3);
    const SplineBase::PointInfo& point = *spline->modify(1u);
    for (const Number each :
         {&SplineBase::PointInfo::time, &SplineBase::PointInfo::pos, &SplineBase::PointInfo::tension,
          &SplineBase::PointInfo::continuity, &SplineBase::PointInfo::bias, &SplineBase::PointInfo::tanLeft,
          &SplineBase::PointInfo::tanRight, &SplineBase::PointInfo::easeFrom, &SplineBase::PointInfo::easeTo})
        QCOMPARE(point.*each, expected.*each);
    form->valueChanged(std::numeric_limits<double>::quiet_NaN(), &((*page).*field));
    QCOMPARE(point.*number, -0.5);
}

void tst_TcbEditorForm::storedNumberBeyondTheBoundsIsShownAndThenClamped()
{
    spline->modify(1u)->tension = 12.0;
    spline->modify(1u)->easeTo = -3.0;
    select(1);
    QCOMPARE(page->tension.text(), "12.000");
    QTest::keyClick(&page->tension, Qt::Key_End);
    QTest::keyClick(&page->easeTo, Qt::Key_End);
    QCOMPARE(spline->modify(1u)->tension, 10.0);
    QCOMPARE(spline->modify(1u)->easeTo, -1.0);
}

void tst_TcbEditorForm::typedTimeIsInTheUnitOnShow_data()
{
    QTest::addColumn<bool>("frames");
    QTest::addColumn<double>("fps");
    QTest::addColumn<double>("time");
    QTest::newRow("time") << false << 10.0 << 5.0;
    QTest::newRow("frames") << true << 10.0 << 0.5;
    QTest::newRow("negative frame rate") << true << -2.0 << -2.5;
    QTest::newRow("no frames at all") << true << 0.0 << 1.0;
}

void tst_TcbEditorForm::typedTimeIsInTheUnitOnShow()
{
    QFETCH(bool, frames);
    QFETCH(double, fps);
    page->frames = frames;
    page->fps = fps;
    select(1);
    form->setTimeBounds(20.0, -1.0);
    SplineBase::PointInfo* point = canvasSpline->control.getCurrent();
    type(page->posX, "5");
    QTEST(point->time, "time");
    QVERIFY(std::isfinite((*spline)(0.7)));
    type(page->posX, "99");
    QCOMPARE(page->posX.clampToBounds(99.0), 20.0);
}

void tst_TcbEditorForm::timePastANeighbourChangesTheIndex()
{
    select(1);
    SplineBase::PointInfo* point = spline->modify(1u);
    type(page->posX, "3");
    QCOMPARE(page->node.text(), "2");
    QCOMPARE(spline->modify(2u), point);
    QCOMPARE(canvasSpline->control.getCurrent(), point);
}

void tst_TcbEditorForm::buttonsWrapAtTheEnds()
{
    select(2);
    QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
    QTest::mouseClick(&page->nextNode, Qt::LeftButton);
    QCOMPARE(page->node.text(), "0");
    QTest::mouseClick(&page->nextNode, Qt::LeftButton);
    QCOMPARE(page->posY.text(), "10.000");
    QTest::mouseClick(&page->prevNode, Qt::LeftButton);
    QTest::mouseClick(&page->prevNode, Qt::LeftButton);
    QCOMPARE(page->node.text(), "2");
    QCOMPARE(canvasSpline->control.getCurrent(), spline->modify(2u));
    QCOMPARE(changed.count(), 4);
    spline->reset();
    select(0);
    QTest::mouseClick(&page->nextNode, Qt::LeftButton);
    QTest::mouseClick(&page->prevNode, Qt::LeftButton);
    QCOMPARE(page->node.text(), "0");
    QCOMPARE(changed.count(), 6);
}

void tst_TcbEditorForm::comboConvertsThePoint()
{
    select(1);
    double length = 0.0;
    const double leftSlope = spline->getTangentLeftAtNode(1, length);
    const double rightSlope = spline->getTangentRightAtNode(2, length);
    QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
    QTest::keyClick(&page->nodeTypeCombo, Qt::Key_Down);
    QCOMPARE(spline->modify(1u)->type, int(SplineBase::Bezier));
    QCOMPARE(page->stack.currentIndex(), 1);
    QCOMPARE(page->incoming.text(), QString::asprintf("%.3f", leftSlope));
    QCOMPARE(page->outgoing.text(), QString::asprintf("%.3f", rightSlope));
    QTest::keyClick(&page->nodeTypeCombo, Qt::Key_Down);
    QCOMPARE(spline->modify(1u)->type, int(SplineBase::Linear));
    QCOMPARE(page->stack.currentIndex(), 0);
    QTest::keyClick(&page->nodeTypeCombo, Qt::Key_Home);
    QCOMPARE(spline->modify(1u)->type, int(SplineBase::Tcb));
    QCOMPARE(changed.count(), 3);
}

void tst_TcbEditorForm::pointThatIsGoneIsNotTouched_data()
{
    QTest::addColumn<QString>("how");
    for (const char* how :
         {"removed by the host", "spline reset", "selection emptied", "curve taken off", "form off"})
        QTest::newRow(how) << how;
}

void tst_TcbEditorForm::pointThatIsGoneIsNotTouched()
{
    QFETCH(QString, how);
    select(1);
    if (how == "removed by the host")
        spline->remove(spline->modify(1u));
    else if (how == "spline reset")
        spline->reset();
    else if (how == "selection emptied")
        canvasSpline->control.selectOnly(nullptr);
    else if (how == "curve taken off")
        canvasSpline.reset();
    else
        form->disableFields();
    QSignalSpy changed(form.get(), &TcbEditorForm::nodeTcbChanged);
    form->clickedNext();
    form->clickedPrev();
    form->changeNodeType(1);
    form->valueChanged(7.0, &page->posX);
    form->valueChanged(7.0, &page->tension);
    QCOMPARE(changed.count(), 0);
    for (unsigned index = 0; index < spline->getControlPointsNumber(); ++index)
        QVERIFY(spline->modify(index)->time < 7.0 && spline->modify(index)->tension == 0.0);
    if (how != "form off") {
        form->updateForm(canvasSpline.get(), true);
        QVERIFY(!form->isActive());
    }
}

void tst_TcbEditorForm::previewMarksTheMiddleOnly()
{
    TcbCurveFrame frame;
    frame.resize(305, 205);
    QCOMPARE(pixelsOf(frame, Qt::darkRed), 9);
    const int black = pixelsOf(frame, Qt::black);
    QVERIFY2(black > 28 * 8 && black < 30 * 9, qPrintable(QString::number(black)));
    QCOMPARE(frame.grab().toImage().pixelColor(150, 60), QColor(Qt::darkRed));

    const QImage atRest = frame.grab().toImage();
    SplineBase::PointInfo point{50.0, -80.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, SplineBase::Tcb};
    frame.setFromPoint(&point);
    QCOMPARE(frame.grab().toImage(), atRest);
    point.continuity = 1.0;
    frame.setFromPoint(&point);
    QVERIFY(frame.grab().toImage() != atRest);
    point = {0.0, 0.0, 1e300, -1e300, -1e300, 1e300, 1e300, 1e300, -1e300, SplineBase::Bezier};
    for (const int type : {SplineBase::Bezier, SplineBase::Tcb, SplineBase::Linear}) {
        point.type = type;
        frame.setFromPoint(&point);
        QCOMPARE(frame.grab().size(), QSize(305, 205));
    }
    frame.setMinimumSize(0, 0);
    frame.resize(3, 2);
    QCOMPARE(frame.grab().size(), QSize(3, 2));
}

QTEST_MAIN(tst_TcbEditorForm)
#include "tst_TcbEditorForm.moc"
