// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

#include <curveeditor/canvas/ControlMenu.h>

using namespace curveeditor;

namespace {

/// Two curves in view: the spline "a.x" along value 0 from 5 to 15, which is current, and an expression
/// "a.y", at value 2 from time 1 on. The operations are what a user does.
struct Scene : CanvasScene
{
    explicit Scene(const QString& text = "2+0*sqrt(t-1)") : second(add(formula, "a.y", text))
    {
        first = add(spline, "a.x");
        QObject::connect(first, &CurveNodeBase::curveHasChanged, [this] { ++reports; });
    }
    void send(QEvent::Type type, const QPoint& at, Qt::KeyboardModifiers keys, Qt::MouseButton button)
    {
        QMouseEvent event(type, at, widget.mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, keys);
        if (type == QEvent::MouseButtonPress && !canvas.mousePress(&event)) {
            view.mousePress(&event);
        } else if (type == QEvent::MouseMove) {
            canvas.mouseMove(&event);
            view.mouseMove(&event);
        } else if (type == QEvent::MouseButtonRelease) {
            view.mouseRelease(&event);
            canvas.mouseRelease(&event);
        }
        canvas.paint();
    }
    void press(const QPoint& at, Qt::KeyboardModifiers keys = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        send(QEvent::MouseButtonPress, at, keys, button);
    }
    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys = {},
              Qt::MouseButton button = Qt::LeftButton)
    {
        press(from, {}, button);
        send(QEvent::MouseMove, to, keys, button);
        send(QEvent::MouseButtonRelease, to, {}, button);
    }
    void click(const QPoint& at, Qt::KeyboardModifiers keys = {}, Qt::MouseButton button = Qt::LeftButton)
    {
        press(at, keys, button);
        send(QEvent::MouseButtonRelease, at, keys, button);
    }
    void doubleClick(const QPoint& at)
    {
        QMouseEvent event(QEvent::MouseButtonDblClick, at, at, Qt::LeftButton, Qt::LeftButton, {});
        canvas.mouseDoubleClick(&event);
    }
    /// Where the spline and the formula meet, so that the one that is picked has the other one in reach.
    void pickByDoubleClick(int secondRow)
    {
        setValues(1.8);
        click({70, 30});
        doubleClick({70, secondRow});
        setValues(0.0);
    }
    void setValues(double value)
    {
        for (SplineBase::PointInfo* const point : spline.spline.getControlPoints())
            point->pos = value;
    }
    void keys(const QList<Qt::Key>& list)
    {
        for (const Qt::Key key : list) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
            canvas.keyPress(&event);
        }
    }
    void menu(const std::function<void(ControlMenu&)>& act)
    {
        QTimer::singleShot(0, [act] { act(static_cast<ControlMenu&>(*QApplication::activePopupWidget())); });
        press({30, 80}, {}, Qt::RightButton);
    }
    Scene& select(const QList<unsigned>& points)
    {
        for (const unsigned point : points)
            canvas.currentControl()->toggleSelected(spline.spline.modify(point));
        return *this;
    }
    /// The times of the points, with values other than 0, in parentheses if selected, in brackets if that is
    /// the current point; the number of reports; the current curve if it is not "a.x".
    QString state() const
    {
        QStringList words;
        const ControlSplineNode& control = first->control();
        for (const auto* point : spline.spline.getControlPoints()) {
            const QString value = point->pos == 0.0 ? QString() : QStringLiteral("/%1").arg(point->pos);
            const QString selected = control.isSelected(point) ? "(%1%2)" : "%1%2";
            words
                << (point == control.getCurrent() ? QString("[%1%2]") : selected).arg(point->time).arg(value);
        }
        words << QStringLiteral("r%1").arg(reports);
        if (canvas.getCurrentCurve() != first)
            words << canvas.getCurrentCurveName();
        return words.join(' ');
    }

    HostCurve spline, formula;
    CurveNodeBase* second;
    CurveNodeBase* first;
    ParseMessage message;
    int reports = 0;
};

} // namespace

class tst_CanvasFunctionBase : public QObject
{
    Q_OBJECT

    using Gesture = std::function<void(Scene&)>;

private Q_SLOTS:
    void gesturesEditAndReportToAHostThatMayTakeTheCurveAway_data()
    {
        const Rows<QString, Gesture> row;
        constexpr auto shift = Qt::ShiftModifier;
        row("three pixels off", "5 10 15 r0 a.y", [](Scene& s) { s.press({20, 27}); });
        row("four pixels off", "5 10 15 r0", [](Scene& s) { s.press({20, 26}); });
        row("beside the begin", "5 10 15 r0 a.y", [](Scene& s) { s.press({9, 30}); });
        row("beside the end", "5 10 15 r0 a.y", [](Scene& s) {
            delete s.formula.expression;
            s.formula.expression = FunctionParserBase::instance()->parseString("2+0*sqrt(1-t)", s.message);
            s.press({11, 30});
        });
        row("not a number, at row 0", "5 10 15 r0", [](Scene& s) { s.press({5, 1}); });
        row("drag", "5 15 [17/2] r1", [](Scene& s) { s.drag({101, 50}, {170, 30}); });
        row("drag two", "10 (18/1) [28/1] r1", [](Scene& s) { s.select({0, 2}).drag({70, 80}, {200, 70}); });
        row("scale", "10 (25) [75] r1", [](Scene& s) { s.select({0, 2}).drag({70, 80}, {270, 80}, shift); });
        row("middle button", "10 (25) [75] r1", [](Scene& s) {
            s.select({0, 2}).drag({70, 80}, {270, 80}, {}, Qt::MiddleButton);
        });
        row("right edge of two", "5 10 15 r0", [](Scene& s) { s.select({0, 1}).press({100, 80}); });
        row("left edge of two", "5 10 15 r0", [](Scene& s) { s.select({0, 1}).press({50, 80}); });
        row("Shift beside two", "(5) (10) 15 r0", [](Scene& s) { s.select({0, 1}).press({180, 80}, shift); });
        row("Shift beside one", "5 10 15 r0", [](Scene& s) { s.select({0}).press({180, 80}, shift); });
        row("Shift on a point", "5 [10] 15 r1", [](Scene& s) { s.press({100, 50}, shift); });
        row("Ctrl", "5 10 15 18/-3 r1", [](Scene& s) { s.press({180, 80}, Qt::ControlModifier); });
        row("Alt", "5 10 15 r0", [](Scene& s) { s.press({100, 50}, Qt::AltModifier); });
        row("band", "5 (10) [15] r1", [](Scene& s) { s.drag({80, 90}, {190, 40}); });
        row("band around nothing", "5 10 15 r0", [](Scene& s) { s.drag({20, 90}, {40, 40}); });
        row("double click", "5 7/4 10 15 r1", [](Scene& s) { s.doubleClick({70, 10}); });
        row("double click on a point", "5 [10] 15 r0", [](Scene& s) { s.doubleClick({100, 50}); });
        row("double click picks a formula", "5 10 15 r0 a.y", [](Scene& s) { s.pickByDoubleClick(30); });
        row("double click picks a spline", "5 10 15 r0",
            [](Scene& s) { s.canvas.setCurrentCurve(s.second), s.pickByDoubleClick(30); });
        row("and adds nothing", "5 10 15 r0",
            [](Scene& s) { s.canvas.setCurrentCurve(s.second), s.pickByDoubleClick(36); });
        row("click between two", "5 10 15 r1", [](Scene& s) { s.select({0, 2}).click({80, 70}); });
        row("click on one of three", "5 [10] 15 r1", [](Scene& s) { s.select({0, 1, 2}).click({100, 50}); });
        row("click on one that is not selected", "5 [10] 15 r1", [](Scene& s) {
            s.select({0, 2}).click({100, 50});
        });
        row("Ctrl and click between two", "(5) 10 [15] r1", [](Scene& s) {
            s.select({0, 2}).canvas.currentControl()->selection().setCurrent(s.spline.spline[2]->serial);
            s.click({80, 70}, Qt::ControlModifier);
        });
        row("middle click between two", "(5) 10 (15) r1", [](Scene& s) {
            s.select({0, 2}).click({80, 70}, {}, Qt::MiddleButton);
        });
        row("Escape before the release", "(5) 10 (15) r0", [](Scene& s) {
            s.select({0, 2}).press({80, 70});
            s.keys({Qt::Key_Escape});
            s.send(QEvent::MouseButtonRelease, {80, 70}, {}, Qt::LeftButton);
        });
        row("arrows", "5 [10] 15 r0", [](Scene& s) {
            s.select({0}).keys({Qt::Key_Right, Qt::Key_Right, Qt::Key_Left});
        });
        row("right arrow begins", "[5] 10 15 r0", [](Scene& s) { s.keys({Qt::Key_Right}); });
        row("left arrow begins", "5 10 [15] r0", [](Scene& s) { s.keys({Qt::Key_Left}); });
        row("arrow, two selected", "(5) (10) 15 r0", [](Scene& s) {
            s.select({0, 1}).keys({Qt::Key_Right});
        });
        row("Delete", "15 r2", [](Scene& s) { s.select({0, 1}).keys({Qt::Key_Delete, Qt::Key_Delete}); });
        row("menu", "3/-3 5 10 15 r2", [](Scene& s) {
            s.menu([](ControlMenu& menu) {
                menu.setActiveAction(menu.actions()[5]);
                QTest::keyClick(&menu, Qt::Key_Return);
            });
        });
        row("change under the open menu", "5 10 15 r1",
            [](Scene& s) { s.menu([&s](ControlMenu& menu) { s.first->emitCurveChanged(), menu.close(); }); });
        row("change under an open box", "5 10 15 r1", [](Scene& s) {
            s.canvas.parseExpression("sin(", s.message);
            s.first->emitCurveChanged();
            QApplication::activeModalWidget()->close();
        });
        row("move after a drag", "[6] 10 15 r1", [](Scene& s) {
            s.drag({50, 50}, {60, 50});
            s.send(QEvent::MouseMove, {90, 10}, shift, Qt::NoButton);
        });
        row("lost points", "0 r0", [](Scene& s) {
            s.select({0, 1}).press({70, 80});
            s.spline.spline.reset();
            s.send(QEvent::MouseMove, {90, 80}, {}, Qt::LeftButton);
        });
        row("scale and pan", "(3.5/2) (8.5/2) 10 r0", [](Scene& s) {
            s.select({0, 2}).canvas.scaleSelection(0.5, 2.0);
            s.canvas.scaleSelection(std::nan(""), std::nan(""));
            s.canvas.panSelection(1.0, 2.0);
        });
        row("scale one of a list", "[2.5] 10 15 r0", [](Scene& s) {
            Selection& selection = s.canvas.currentControl()->selection();
            selection.selectAll({s.spline.spline[0]->serial});
            s.canvas.scaleSelection(0.25, 1.0);
            QVERIFY(selection.listed().empty());
            selection.selectAll({s.spline.spline[0]->serial});
            s.canvas.panSelection(1.25, 0.0);
            QVERIFY(selection.listed().empty());
        });
        row("scale one listed alone", "5 (10) 15 r0", [](Scene& s) {
            s.select({0, 1, 0}).canvas.scaleSelection(0.5, 2.0);
            s.canvas.panSelection(0.5, 2.0);
        });
        row("reset", "0/1.5 r1", [](Scene& s) { s.select({0, 1}).canvas.resetAllCurves(); });
        row("load a faulty expression", "[5] 10 15 r0", [](Scene& s) {
            std::istringstream file("255 0 0 1 sin(");
            QVERIFY(!s.select({0}).canvas.loadCurve(file) && s.first->isSpline());
        });
    }
    void gesturesEditAndReportToAHostThatMayTakeTheCurveAway()
    {
        const auto [state, gesture] = Rows<QString, Gesture>::present();
        Scene s, other, taken; // the last by a host that removes the curve as soon as it hears of it
        gesture(s);
        QCOMPARE(s.state(), state);
        QCOMPARE(other.spline.spline.getControlPointsNumber(), 3u);
        connect(taken.first, &CurveNodeBase::curveHasChanged, [&] { taken.canvas.removeCurve(taken.first); });
        gesture(taken);
        taken.picture();
        QCOMPARE(taken.canvas.findCurve("a.x") == nullptr, taken.reports > 0);
        taken.canvas.removeCurve("a.x");
        QCOMPARE(taken.canvas.getCurrentCurve(), taken.second);
    }

    void pictureHasItsLayers()
    {
        Scene s;
        s.canvas.setCanvasColor(QColor(0, 255, 0, 10));
        s.canvas.setSelectionColor(Qt::blue);
        s.canvas.loadImage("no such file");
        const auto shown = [&s](int x, int y) {
            return s.picture().pixelColor(x, y);
        };
        QCOMPARE(shown(70, 80), QColor(Qt::green));
        QCOMPARE(shown(70, 50), QColor(Qt::red));
        s.select({0, 1, 2});
        QCOMPARE(shown(120, 80), QColor(Qt::blue));
        QCOMPARE(shown(180, 80), QColor(Qt::green));
        s.view.beginBand(60, 60);
        s.view.extendBand(90, 90);
        QCOMPARE(shown(70, 80), QColor(Qt::blue));
        QCOMPARE(shown(120, 80), QColor(Qt::green));
        s.view.extendBand(68, 90);
        QCOMPARE(shown(64, 80), QColor(Qt::green));
        s.widget.hide();
        s.canvas.setCanvasColor(Qt::white);
        s.canvas.paint();
        s.widget.show();
        QCOMPARE(s.shown().pixelColor(120, 80), QColor(Qt::white));
    }

    void viewThatCannotBeShownIsOnlyErased()
    {
        for (const auto& [low, high] : {std::pair(3.0, 3.0), {std::nan(""), 3.0}, {-1.7e308, 1.7e308}}) {
            Scene s;
            s.select({0, 1}).setTimes(low, high);
            QCOMPARE(s.picture(), drawn(s.widget.size(), [](QPainter&) {}));
            s.drag({70, 80}, {90, 20});
        }
    }

    void sensorTableIsTheSameInEveryLocale()
    {
        Scene s("0/(t>0)-1234.5*t");
        s.setTimes(-0.5, 1.5);
        FunctionParserBase::instance()->getKey("t")->setValue(42.0);
        QLocale::setDefault(QLocale(QLocale::German));
        QString text;
        QTextStream out(&text);
        QVERIFY(s.canvas.exportSensorData(out));
        QLocale::setDefault(QLocale::c());
        QCOMPARE(text, "# KVTR Corvane Sensor Sensibility Data File\n"
                       "# file exported with Curve Editor v0.1\n\n"
                       "version \t\t 1.0\ntype \t\t\t cye64\nnum_curves \t\t 2\nnum_lambdas \t 2\n\n"
                       "0,\t0.000000,\t0.000000,\t\n1,\t-1234.500000,\t0.000000,\t\n");
        QCOMPARE(FunctionParserBase::instance()->getKey("t")->getValue(), 42.0);
        s.setTimes(0.0, 1e300);
        QVERIFY(!s.canvas.exportSensorData(out));
    }
};

QTEST_MAIN(tst_CanvasFunctionBase)
#include "tst_CanvasFunctionBase.moc"
