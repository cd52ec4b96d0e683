// SPDX-License-Identifier: MIT
#include "CanvasScene.h"

#include <curveeditor/canvas/CanvasExpression.h>
#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/CurveColors.h>
#include <curveeditor/canvas/ShortenedName.h>

/// Who does not hold the door open reads.
template <auto getter, typename Owner>
constexpr bool givesToRead = std::is_same_v<decltype((std::declval<Owner&>().*getter)()), const SplineBase*>;
static_assert(givesToRead<&EditedCurve::spline, EditedCurve> &&
              givesToRead<&CurveNodeBase::getSpline, CurveNodeBase> &&
              givesToRead<&ControlSplineNode::getSpline, ControlSplineNode> &&
              givesToRead<&CanvasFunctionBase::currentSplineBase, CanvasFunctionBase>);

/// Two curves in view: the spline "a.x" along value 0 from 5 to 15, which is current, and an expression "a.y".
struct CurvesScene : CanvasScene
{
    explicit CurvesScene(const QString& text = "2")
    {
        add(formula, "a.y", text);
        add(spline, "a.x");
    }
    void select(const QList<unsigned>& points)
    {
        for (const unsigned point : points)
            canvas.currentControl()->toggleSelected(spline.spline.modify(point));
    }
    HostCurve spline, formula;
};

class tst_CanvasFunctionBase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reportsGroupAndCurve()
    {
        HostCurve curve;
        CanvasScene scene;
        CurveNodeBase* const node = scene.add(curve, "a");
        QString heard;
        connect(node, &CurveNodeBase::curveHasChanged,
                [&](QString& group, QString& name) { heard = group + '|' + name; });
        for (const auto& [name, parts] :
             {std::pair("a.x", "a|x"), {"..a.b..x.", "a|x"}, {"plain", "plain|plain"}, {"..", "..|.."}}) {
            node->setName(name);
            node->emitCurveChanged();
            QCOMPARE(heard, QString(parts));
        }
    }

    void valuesAreClampedAndVariablesComeBack()
    {
        FunctionParserBase::keyStruct& time = *FunctionParserBase::instance()->getKey("t");
        time.setValue(77.0);
        HostCurve formula, reversed;
        CanvasScene scene;
        CurveNodeBase* const node = scene.add(formula, "a.x", "f");
        for (const auto& [at, value] : {std::pair(0.25, 2.5), {0.3, 3.0}, {9.0, 3.0}, {-9.0, -3.0}})
            QCOMPARE(node->getClampedValue(at), value);
        AxisRange values{0.0, 0.0};
        node->includeValues({-20.0, 20.0}, values);
        QCOMPARE(QPointF(values.low, values.high), QPointF(-3.0, 3.0));
        QCOMPARE(time.getValue(), 77.0);
        QCOMPARE(scene.add(reversed, "a.y", {}, 3.0f, -3.0f)->getClampedValue(5.0), 3.0);
    }

    void expressionIsDrawnWithinItsRangeAndTheCanvas()
    {
        const QByteArray huge = QByteArray("t+").repeated(20000) + 't'; // 40001 nodes
        ReadCurves variables;
        HostCurve other, chain;
        variables.add("g.huge", nullptr, &other.expression);
        variables.add("g.chain", nullptr, &chain.expression);
        other.expression = parsed(huge.toStdString() + "+g.chain").release();
        chain.expression = parsed("g.huge+g.chain").release(); // a circle
        for (const auto& [text, range, points, breaks, lastRow] :
             {std::tuple{"4", 3.0f, 5000, 0, 20},
              {"t-20", 3.0f, 5000, 0, 50},
              {"1e300", HUGE_VALF, 5000, 0, -1},
              {"-1e300", HUGE_VALF, 5000, 0, 100},
              {"log(0)", HUGE_VALF, 0, 0, 0},
              {"if((t>5)*(t<10), 0/0, 0)", 3.0f, 3751, 1, 50},
              {huge.data(), 3.0f, 2048, 0, 20},
              {"g.huge", 3.0f, 2048, 0, 20},
              {"g.chain+g.chain", 3.0f, 1024, 0, 20}}) {
            HostCurve curve;
            CanvasScene scene;
            const CurveNodeBase* const node = scene.add(curve, "a.x", text, -range, range);
            scene.canvas.updateCurves();
            const CanvasExpression& picture = *node->getCanvasExpression();
            QCOMPARE(int(picture.curveLine.points.size()), points);
            QCOMPARE(int(picture.curveLine.gaps.size()), breaks);
            QCOMPARE(picture.curveLine.points.value(points - 1).y(), lastRow);
            QCOMPARE(picture.unselectedPen.color(), QColor(127, 0, 0));
        }
    }

    void whatExpressionsReadIsEvaluatedOnceForAllAndNotForAnEdit()
    {
        struct Counter : FunctionFloatBase
        {
            int count = 0;
            double evaluate() override { return ++count; }
        } counter;
        FunctionFloatBase* holder = &counter;
        ReadCurves variables;
        variables.add("g.n", nullptr, &holder);
        HostCurve curves[3];
        CanvasScene scene;
        scene.add(curves[0], "a.x",
                  QString("t-(").repeated(200) + "g.n" + QString(")").repeated(200)); // short blocks
        scene.add(curves[1], "a.y", "2*g.n");
        scene.add(curves[2], "a.z")->control().selectOnly(curves[2].spline.modify(1u));
        counter.count = 0;
        scene.setTimes(0.0, 30.0);
        scene.canvas.paint();
        scene.canvas.paint();
        QCOMPARE(counter.count, 0);
        scene.picture();
        QCOMPARE(counter.count, 5000);
        scene.canvas.panSelection(1.0, 1.0);
        scene.picture();
        QCOMPARE(counter.count, 5000);
    }

    void pictureHasItsLayers()
    {
        CurvesScene s;
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

    void sensorTableIsTheSameInEveryLocale()
    {
        CurvesScene s("0/(t>-1)-1234.5*(t+1)");
        s.setTimes(-1.5, 0.5);
        FunctionParserBase::instance()->getKey("t")->setValue(42.0);
        QLocale::setDefault(QLocale(QLocale::German));
        QString text;
        QTextStream out(&text);
        QVERIFY(s.canvas.exportSensorData(out));
        QLocale::setDefault(QLocale::c());
        QCOMPARE(text, "# KVTR Corvane Sensor Sensibility Data File\n"
                       "# file exported with Curve Editor v0.1\n\n"
                       "version \t\t 1.0\ntype \t\t\t cye64\nnum_curves \t\t 2\nnum_lambdas \t 2\n\n"
                       "-1,\t0.000000,\t0.000000,\t\n0,\t-1234.500000,\t0.000000,\t\n");
        QCOMPARE(FunctionParserBase::instance()->getKey("t")->getValue(), 42.0);
        s.setTimes(0.0, 1e300);
        QVERIFY(!s.canvas.exportSensorData(out));
    }

    void contrastIsThatOfTheGuidelinesAndAdaptedColorsKeepTheirHue()
    {
        const auto percent = [](const QColor& left, const QColor& right) {
            return int(100.0 * contrastOf(left, right));
        };
        QCOMPARE(percent(Qt::white, Qt::black), 2100);
        QCOMPARE(percent(QColor(119, 119, 119), Qt::white), 447);
        QCOMPARE(percent(Qt::blue, Qt::white), 859);
        QCOMPARE(percent(Qt::yellow, Qt::white), 107);
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
        QCOMPARE(contrastingColor(Qt::red, {Qt::gray, Qt::white}, 9.0),
                 QColor(Qt::black)); // as near as can be
        QCOMPARE(contrastingColor(Qt::red, {Qt::gray, Qt::black}, 9.0), QColor(Qt::white));
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
        const QColor grid[] = {theme.canvas, theme.fineGridLines, theme.gridLines, theme.frameVLine};
        for (int i = 1; i < 4; ++i)
            QVERIFY(contrastOf(grid[i - 1], grid[i]) >= 1.08);
        QList<QColor> parts{theme.controlPoint, theme.controlPointSelected,
                            theme.controller,   theme.controllerSelected,
                            theme.timeLine,     theme.mark};
        const bool isHard = theme.canvas == QColor(Qt::darkGreen); // few colours stand out of it
        for (unsigned seed = 0; seed < 8; ++seed) {
            QRandomGenerator random(seed);
            CurveColors colors(theme);
            QList<QColor> hosts, lines;
            for (int i = 0; i < 24; ++i) {
                hosts << QColor::fromRgb(random.generate() | (seed % 3 == 0 ? 0x00a0a0a0u : 0u));
                colors.add(hosts.back());
                lines << colors.lineOf(hosts.back());
                for (int j = 0; j < i; ++j) {
                    const double apart = distance(Oklab::of(hosts[i]), Oklab::of(hosts[j]));
                    const double least = apart >= 0.08 ? 0.08 : apart > 0.0 ? 0.05 : 0.0;
                    QVERIFY(distance(Oklab::of(lines[i]), Oklab::of(lines[j])) >= least || isHard);
                    QCOMPARE(colors.lineOf(hosts[j]), lines[j]);
                }
                const auto [current, other] = curveColors(lines.back(), theme.canvas, theme);
                parts << current << other;
                QCOMPARE(current, lines.back());
            }
            colors.add(hosts[0]);
            colors.remove(hosts[0]);
            QCOMPARE(colors.lineOf(hosts[0]), lines[0]);
            CurveColors alone(CurveEditorTheme::described());
            alone.add(Qt::red);
            alone.add(hosts[5]);
            QCOMPARE(alone.lineOf(hosts[5]), hosts[5]);
            alone.remove(Qt::red);
            alone.setTheme(theme);
            QCOMPARE(alone.lineOf(hosts[5]),
                     contrastingColor(hosts[5], {theme.canvas, theme.selection}, 3.0));
        }
        CurveColors hues(theme);
        for (int hue = 0; hue < 360; hue += 15) {
            hues.add(QColor::fromHsv(hue, 160, 255));
            QVERIFY(Oklab::of(hues.lineOf(QColor::fromHsv(hue, 160, 255))).chroma() >= 0.02 || isHard);
        }
        for (const QColor& part : parts) {
            for (const QColor& background : {theme.canvas, theme.selection})
                QVERIFY2(contrastOf(part, background) >= 3.0, qPrintable(part.name()));
        }
    }

    void twelveNamesAreEnough()
    {
        CanvasScene scene;
        std::array<HostCurve, 16> curves;
        scene.widget.resize(400, 800);
        scene.view.setSize(400, 800);
        CurveEditorTheme theme = CurveEditorTheme::dark();
        scene.canvas.setTheme(theme);
        for (std::size_t i = 0; i < curves.size(); ++i) {
            curves[i].spline.setPos(curves[i].spline.modify(2u), 0.6 * double(i) - 4.8);
            const QString name = QString("a.%1").arg(i);
            scene.add(curves[i], name, {}, -5.0f, 5.0f);
            scene.canvas.setCurveColor(name, QColor::fromHsv(int(i) * 22, 255, 255));
        }
        const QImage with = scene.picture();
        theme.namesCurves = false;
        scene.canvas.setTheme(theme);
        const QImage without = scene.picture();
        int named = 0;
        for (CurveNodeBase* const node : scene.canvas.curves().nodes())
            named += placesOf(node->nameColor(), with) != placesOf(node->nameColor(), without) ? 1 : 0;
        QCOMPARE(named, 12);
        theme.namesCurves = true;
        scene.canvas.setTheme(theme);
        const QFont usual = QApplication::font();
        QFont huge = usual;
        huge.setPointSize(600); // whose names are wider than the canvas
        QApplication::setFont(huge);
        QVERIFY(!scene.picture().isNull());
        QApplication::setFont(usual);
    }

    void manyPointsHideNeitherTheirLineNorTheSelected()
    {
        CanvasScene scene;
        HostCurve curve;
        scene.add(curve, "a.x");
        const CurveEditorTheme theme = CurveEditorTheme::light();
        scene.canvas.setTheme(theme);
        for (int i = 0; i < 400; ++i)
            curve.spline.addPoint(0.05 * i, std::sin(0.02 * i) + 0.2 * std::sin(i * i));
        const auto columnsWith = [&](const QColor& color) {
            const QRegion places = placesOf(color, scene.picture());
            int columns = 0;
            for (int x = 0; x < 200; ++x)
                columns += places.intersects(QRect(x, 0, 1, 100)) ? 1 : 0;
            return columns;
        };
        const QColor line = scene.canvas.getCurrentCurve()->getCanvasSpline()->getColor();
        QVERIFY(columnsWith(line) >= 180);
        std::vector<int> all(curve.spline.getControlPointsNumber());
        std::iota(all.begin(), all.end(), 0);
        scene.canvas.selectPoints("a.x", all);
        QVERIFY(columnsWith(line) >= 180);
        QVERIFY(columnsWith(theme.controlPointSelected) >= 20);
    }

    void namesStandWhereTheirCurvesLeaveTheCanvas()
    {
        CanvasScene scene;
        HostCurve first, second, third;
        second.spline.setPos(second.spline.modify(2u), 2.0);
        third.spline.setPos(third.spline.modify(2u), 2.1);
        for (const auto& [curve, name] :
             {std::pair(&first, "a.x"), {&second, "a.y"}, {&third, "a.long name of a curve"}})
            scene.add(*curve, name);
        scene.canvas.setCurveColor("a.long name of a curve", Qt::blue);
        CurveEditorTheme theme = CurveEditorTheme::light();
        for (const auto& [width, value, expected] : {std::tuple{400, 0.0, QList{true, true, true, false}},
                                                     {200, 0.0, QList{false, false, false, false}},
                                                     {400, 3.0, QList{true, false, false, true}}}) {
            first.spline.setPos(first.spline.modify(2u), value);
            scene.widget.resize(width, 100);
            scene.view.setSize(width, 100);
            theme.namesCurves = false;
            scene.canvas.setTheme(theme);
            const QImage without = scene.picture();
            theme.namesCurves = true;
            scene.canvas.setTheme(theme);
            const QImage with = scene.picture();
            for (int pixel = 0; pixel < width * 100; ++pixel) {
                const QPoint place(pixel % width, pixel / width);
                const bool isLine = without.pixelColor(place).hsvSaturation() > 200;
                QVERIFY(!isLine || with.pixel(place) == without.pixel(place)); // names cover no line
            }
            const QColor current = scene.canvas.getCurrentCurve()->nameColor(); // whose name comes first
            QList rows{!placesOf(current, with.copy(width - 40, 0, 40, 100)).isEmpty()};
            for (const int row : {26, 46, 58})
                rows << (with.copy(width - 40, row - 10, 40, 10) !=
                         without.copy(width - 40, row - 10, 40, 10));
            QCOMPARE(rows, expected);
        }
    }

    void nameLosesTheEndOfItsGroupFirst()
    {
        const QFontMetrics metrics{QFont()};
        for (const auto& [name, start, end] : {std::tuple("mmmmmmmm.i", "mmmm", ".i"),
                                               {"i.mmmmmmmm", "i.m", "m"},
                                               {"mmmmmmmm.mmmmmmmm", "m", "m"},
                                               {"mmmmmmm.i.i", "mmm", ".i.i"},
                                               {"mmmmmmmm", "mm", "mm"},
                                               {"m.i", "m.i", "m.i"}}) {
            const int room = metrics.horizontalAdvance("mmmmmmm");
            const QString text = shortenedName(metrics, name, room);
            QVERIFY2(text.startsWith(start) && text.endsWith(end), qPrintable(text));
            QVERIFY2(metrics.horizontalAdvance(text) <= room, qPrintable(text));
        }
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
};

QTEST_MAIN(tst_CanvasFunctionBase)
#include "tst_CanvasFunctionBase.moc"
