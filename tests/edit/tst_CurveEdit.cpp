// SPDX-License-Identifier: MIT
#include <curveeditor/edit/CurveEdit.h>
#include <curveeditor/edit/PointDrag.h>
#include <support/Formulas.h>
#include <support/Test.h>

/// A curve "a.x" with points at (0, 0), (1, 1), (2, 4) and (3, 9), and the door to it.
struct Fixture
{
    Fixture()
    {
        for (const double time : {1.0, 2.0, 3.0})
            spline.addPoint(time, time * time);
        QObject::connect(&door.history(), &EditHistory::reported, [this](const EditReport& report) {
            const QStringList phases = {"preview", "commit"}, causes = {"edit", "undo", "redo", "cancel"};
            reports << phases[int(report.phase)] + ' ' + causes[int(report.cause)] + ' ' + report.curve->name;
            if (whenReported)
                std::exchange(whenReported, {})(*this);
        });
    }
    ~Fixture() { delete expression; }
    PointSerial serial(unsigned index) const { return spline[index]->serial; }
    void set(unsigned index, double value) { spline.setPos(spline.modify(index), value); }
    /// One edit as a whole.
    void move(unsigned index, double value)
    {
        door.begin("move", {curve});
        set(index, value);
        door.commit();
    }
    /// Opens an edit of the point at index 1.
    CurveEdit::Id begin(const char* name) { return door.begin(name, {{curve, {serial(1)}}}); }
    void type(double value)
    {
        set(1, value);
        door.checkpoint();
    }
    QUndoStack& stack() { return *door.history().stack(); }

    SplineBase spline;
    FunctionFloatBase* expression = nullptr;
    CurveEdit door;
    std::shared_ptr<EditedCurve> curve = door.history().curve("a.x", &spline, &expression);
    SplineBase otherSpline;
    std::shared_ptr<EditedCurve> other = door.history().curve("a.y", &otherSpline, nullptr);
    QStringList reports;
    std::function<void(Fixture&)> whenReported;
};

bool isSame(const SplineBase& left, const SplineBase& right)
{
    std::ostringstream texts[2];
    SplineBase::save(left, texts[0]);
    SplineBase::save(right, texts[1]);
    return texts[0].str() == texts[1].str();
}

class tst_CurveEdit : public QObject
{
    Q_OBJECT

    using Edit = std::function<void(Fixture&)>;

private Q_SLOTS:
    void curvesOfOneNameAreToldApart()
    {
        Fixture f;
        EditHistory& history = f.door.history();
        const auto twin = history.curve("a.x", &f.otherSpline, &f.expression);
        history.rename("a.x", "a.w");
        QVERIFY(history.curve("a.w", &f.otherSpline, &f.expression) == twin);
        QVERIFY(history.curve("a.w", &f.spline, &f.expression) == f.curve && twin != f.curve);
        QVERIFY(!history.find("a.x", &f.spline, &f.expression));
        history.forget({"a.w"});
        QVERIFY(!twin->spline() && !f.curve->spline() && f.other->spline());
        QVERIFY(!history.find("a.w", &f.spline, &f.expression));
    }

    void whatTheHostChangedIsNeverOverwritten()
    {
        Fixture f;
        f.move(1, 7.0);
        f.door.begin("other", {f.other});
        f.otherSpline.addPoint(1.0, 1.0);
        f.door.commit();
        f.move(1, 8.0);
        f.set(3, 0.0);
        const CurveState left = f.curve->state();
        f.stack().undo();
        QVERIFY(f.curve->state() == left);
        QCOMPARE(f.stack().undoText(), "other");
        f.stack().undo();
        QCOMPARE(f.otherSpline.getControlPointsNumber(), 1u);
        QCOMPARE(f.stack().count(), 1);
        QVERIFY(!f.stack().canUndo() && f.stack().undoLimit() == 1000);
    }

    void hostMayChangeOtherPointsDuringADrag()
    {
        const Edit works[] = {[](Fixture& f) { f.spline.addPoint(2.5, 5.0); },
                              [](Fixture& f) { f.spline.remove(f.spline[1]); },
                              [](Fixture& f) { f.spline.setTime(f.spline.modify(2), 0.5); },
                              [](Fixture& f) {
                                  f.spline.lastType = SplineBase::Zero;
                              }};
        for (const Edit& work : works) {
            for (const bool isTakenBack : {false, true}) {
                Fixture f, host;
                const PointSerial own = f.serial(1);
                f.begin("drag");
                f.set(1, 7.0);
                work(f);
                work(host);
                isTakenBack ? f.door.cancel() : void(f.door.commit());
                if (const SplineBase::PointInfo* const point = f.spline.modify(f.spline.findIndex(own, 1.0)))
                    QCOMPARE(point->pos, isTakenBack ? 1.0 : 7.0);
                f.stack().undo();
                QVERIFY(isSame(f.spline, host.spline));
            }
        }
    }

    void pointComesBackAmongThoseOfItsTime()
    {
        Fixture f;
        f.spline.addPoint(1.0, 5.0);
        const SplineState before = f.spline.state();
        f.begin("drag");
        f.spline.setTime(f.spline.modify(1), 2.5);
        f.door.commit();
        f.stack().undo();
        QVERIFY(f.spline.state() == before);
    }

    void typingIsOneEntryThatCanBeTakenBackAtAnyTime()
    {
        Fixture f;
        const CurveState before = f.curve->state();
        const CurveEdit::Id id = f.begin("type");
        for (const double value : {5.0, 55.0, 1.0, 6.0}) {
            f.type(value);
            QCOMPARE(f.stack().count(), value == 1.0 ? 0 : 1);
        }
        QCOMPARE(f.reports, QStringList(4, "preview edit a.x"));
        f.stack().undo();
        QVERIFY(f.curve->state() == before && !f.door.isOpen(id));
        f.stack().redo();
        QCOMPARE(f.spline[1]->pos, 6.0);
        f.begin("type");
        f.type(7.0);
        f.type(6.0);
        QVERIFY(f.door.commit().empty());
        f.begin("type");
        f.type(7.0);
        f.door.cancel();
        QCOMPARE(f.spline[1]->pos, 6.0);
        QCOMPARE(f.stack().count(), 1);
    }

    void whoHearsOfAStepMayDoAnythingWithTheStack()
    {
        const std::function<void(Fixture&)> replies[] = {
            [](Fixture& f) { f.stack().clear(); },
            [](Fixture& f) { f.door.history().forget({"a.x"}); },
            [](Fixture& f) { f.stack().undo(); },
            [](Fixture& f) { f.stack().push(new QUndoCommand("host")); },
            [](Fixture& f) { f.set(1, 1.0); },
        };
        for (const auto& reply : replies) {
            for (const bool isTyping : {false, true}) {
                Fixture f;
                f.move(1, 7.0);
                f.begin("drag");
                isTyping ? f.type(9.0) : f.set(1, 9.0);
                f.whenReported = reply;
                f.stack().undo();
                QVERIFY(!f.door.isOpen() && f.stack().index() <= f.stack().count());
            }
        }
    }

    void nothingIsPushedWhileTheStackSteps()
    {
        Fixture f;
        f.begin("type");
        f.type(2.0);
        f.stack().push(new QUndoCommand("host"));
        f.stack().undo();
        f.set(1, 9.0); // the host does
        int highest = 0;
        QObject::connect(&f.stack(), &QUndoStack::indexChanged, &f.door,
                         [&](int index) { highest = std::max(highest, index); });
        f.stack().undo();
        QCOMPARE(highest, 0);
        QVERIFY(f.spline[1]->pos == 9.0 && !f.door.isOpen());
    }

    void curvesMayShareASpline()
    {
        Fixture f;
        const auto twin = f.door.history().curve("a.y", &f.spline, nullptr);
        const CurveState before = f.curve->state();
        f.door.begin("reset", {twin, f.curve});
        twin->reset(0.5);
        f.curve->reset(1.5);
        f.door.commit();
        f.stack().undo();
        QVERIFY(f.curve->state() == before && f.reports.filter("undo").size() == 2);
        f.stack().redo();
        QCOMPARE(f.spline.getFirst()->pos, 1.5);
    }

    void stacksAndCurvesMayGoAtAnyTime()
    {
        auto shared = std::make_unique<QUndoStack>();
        SplineBase spline;
        {
            Fixture f, second;
            f.move(3, 0.0);
            f.door.history().setStack(shared.get());
            second.door.history().setStack(shared.get());
            f.move(1, 7.0);
            second.move(1, 5.0);
            shared->push(new QUndoCommand("host's own"));
            f.move(2, 7.0);
            f.door.history().rename("a.x", "b.x");
            f.door.history().forget({"a.x"});
            QCOMPARE(shared->undoText(), "move");
            shared->undo();
            QCOMPARE(f.reports.last(), "commit undo b.x");
            f.door.history().forget({"b.x"});
            QCOMPARE(shared->undoText(), "host's own");
            shared->undo();
            shared->undo();
            QCOMPARE(second.spline[1]->pos, 1.0);
            shared->redo();
            second.whenReported = [&](Fixture&) {
                shared.reset();
            };
            second.move(1, 3.0);
            QVERIFY(!shared && second.spline[1]->pos == 3.0);
            shared = std::make_unique<QUndoStack>();
            second.door.history().setStack(shared.get());
            second.move(1, 8.0);
            second.move(2, 8.0);
            shared->undo(); // the other one waits to be done again
            QCOMPARE(shared->count(), 2);
            QVERIFY(!f.stack().canUndo()); // what was done before it left its own stack is no step any more
        }
        QCOMPARE(shared->count(), 0);
    }

    void entriesOfAGoneEditorDoNotPileUpOnTheStackOfCalls()
    {
        QUndoStack stack;
        {
            Fixture f;
            f.door.history().setStack(&stack);
            for (int i = 0; i < 20000; ++i)
                f.move(1, i);
            stack.push(new QUndoCommand("host"));
        }
        stack.undo();
        QCOMPARE(stack.index(), 0);
    }

    void formulaWhoseVariableIsGoneComesBackOrLeavesTheCurve()
    {
        ReadCurves variables;
        variables.add("b.y", nullptr, nullptr);
        Fixture f;
        f.expression = parsed("b.y").release();
        const auto enter = [&f](const char* text) {
            f.door.begin(text, {f.curve});
            f.curve->setExpression(parsed(text), text);
            f.door.commit();
        };
        variables.remove("b.y");
        enter("t");
        QStringList lost;
        QObject::connect(&f.door.history(), &EditHistory::formulaLost,
                         [&](const QString& curve, const QString& formula) { lost << curve << formula; });
        f.door.history().undo();
        QVERIFY(f.curve->formula() == "b.y" && f.expression->evaluate() == 0.0);
        for (int i = 0; i < 20; ++i)
            enter(i % 2 == 0 ? "t" : "2*t");
        for (int i = 0; i < 20; ++i)
            f.door.history().undo();
        QVERIFY(f.curve->formula() == "b.y" && lost.isEmpty());
        variables.add("b.y", nullptr, nullptr);
        enter("t"); // what can be parsed is not kept
        variables.remove("b.y");
        f.door.history().undo();
        QCOMPARE(lost, (QStringList{"a.x", "b.y"}));
        QVERIFY(f.curve->formula() == "t" && f.stack().count() == 0);
    }

    void expressionsOfTheHostGoWhenItAsksForThat()
    {
        int living = 0;
        Fixture f;
        f.expression = new CountedNode(living);
        f.door.begin("delete", {f.curve});
        f.curve->setExpression(nullptr, {});
        f.door.commit();
        f.move(1, 7.0);
        f.stack().undo();
        f.stack().undo();
        QCOMPARE(f.expression->evaluate(), 7.0);
        f.stack().redo();
        f.stack().redo();
        QCOMPARE(living, 1);
        f.door.history().forgetRetired(&f.expression);
        QCOMPARE(living, 0);
        f.stack().undo();
        QCOMPARE(f.spline[1]->pos, 1.0);
        QVERIFY(!f.stack().canUndo());
    }

    void dragDoesNotAccumulateAndBeginsALegWithShiftAndAnotherView()
    {
        Fixture f;
        const PlaneMapping view(0.0, 10.0, 0.0, 20.0, 100, 100);
        Selection selection;
        selection.selectAll({f.serial(1), f.serial(2)});
        PointDrag drag(f.spline, selection, SplineEdits::Part::Point, {1.0, 1.0}, view, true);
        const PointSerial first = f.serial(1);
        for (int i = 0; i < 1000; ++i)
            drag.step(f.spline, {1.0 + 0.1 * (i % 7), 1.0 / 3.0 * i}, false, view);
        drag.step(f.spline, {1.5, 1.5}, false, view);
        QCOMPARE(f.spline[1]->time, 1.5);
        QCOMPARE(f.spline[2]->pos, 4.5);
        drag.step(f.spline, {11.5, 21.5}, true, view);
        QCOMPARE(f.spline.findIndex(first, 0.0), 2);
        QCOMPARE(QPointF(f.spline[2]->time, f.spline[2]->pos), QPointF(7.5, 7.5));
        const PlaneMapping wider(-5.0, 45.0, 0.0, 20.0, 100, 100);
        drag.step(f.spline, {52.5, 21.5}, true, wider); // the mouse has not moved
        QVERIFY(qAbs(f.spline[2]->time - 7.5) < 1e-9);
        drag.step(f.spline, {52.5 - 50.0, 21.5}, true, wider);
        QVERIFY(qAbs(f.spline[1]->time - 1.5) < 1e-9);
        f.spline.remove(f.spline[2]);
        drag.step(f.spline, {1.5, 1.5}, true, view);
        QCOMPARE(f.spline.getControlPointsNumber(), 3u);
    }

    /// A share of few points is moved one by one, a large one at once.
    void manyPointsMoveAsFewDo()
    {
        std::mt19937 random(1);
        const PlaneMapping view(0.0, 10.0, 0.0, 20.0, 100, 100);
        for (int round = 0; round < 200; ++round) {
            SplineBase one, other;
            Selection selection;
            std::vector<PointSerial> chosen;
            for (int i = 1; i < 7; ++i)
                one.addPoint(int(random() % 8), i);
            other.assign(one.state());
            for (int i = 0; i < 1000; ++i)
                other.addPoint(1e6 + i, 0.0);
            for (unsigned i = 0; i < 7; ++i) {
                if (random() % 4 != 0)
                    chosen.push_back(one[i]->serial);
            }
            selection.selectAll(chosen);
            PointDrag drag(one, selection, SplineEdits::Part::Point, {0.0, 0.0}, view, true);
            PointDrag same(other, selection, SplineEdits::Part::Point, {0.0, 0.0}, view, true);
            for (int step = 0; step < 5; ++step) {
                const PointDrag::Place place{double(random() % 9) - 4.0, double(step)};
                const TimeInterval touched = drag.step(one, place, step == 3, view);
                QCOMPARE(touched.first, same.step(other, place, step == 3, view).first);
                for (const PointSerial point : chosen)
                    QVERIFY(influenceOf(one, std::size_t(one.findIndex(point, 0.0))).last <= touched.last);
                for (unsigned i = 0; i < 7; ++i)
                    QVERIFY(isSamePoint(*one[i], *other[i]));
            }
        }
    }
};

QTEST_MAIN(tst_CurveEdit)
#include "tst_CurveEdit.moc"
