// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>

#include <QTest>

#include <algorithm>
#include <limits>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace {

struct HostCurve
{
    SplineBase spline;
    std::unique_ptr<FunctionFloatBase> expression;
    FunctionFloatBase* holder = nullptr;

    void set(const std::string& text)
    {
        ParseMessage message;
        expression.reset(FunctionParserBase::instance()->parseString(text, message));
        holder = expression.get();
    }
};

class Host
{
public:
    Host() : variables(std::make_unique<CurveVariables>())
    {
        FunctionParserBase::instance()->setVarMapper(variables.get());
    }

    HostCurve& add(const std::string& name)
    {
        HostCurve& curve = curves_.emplace_back();
        variables->add(name, &curve.spline, &curve.holder);
        return curve;
    }

    std::unique_ptr<CurveVariables> variables;

private:
    std::list<HostCurve> curves_;
};

double valueAt(FunctionFloatBase& expression, double time)
{
    EvaluationTime now;
    now.set(time, 25.0);
    return expression.evaluate();
}

} // namespace

class tst_CurveVariables : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splineAndExpressionAreReadAtPresentTime()
    {
        Host host;
        HostCurve& ramp = host.add("g.ramp");
        ramp.spline.addPoint(10.0, 100.0);
        HostCurve& reader = host.add("g.reader");
        reader.set("g.ramp+t");
        QCOMPARE(valueAt(*reader.holder, 4.0), ramp.spline(4.0) + 4.0);
        QCOMPARE(valueAt(*reader.holder, 20.0), 100.0 + 20.0);

        ramp.set("f*2");
        QCOMPARE(valueAt(*reader.holder, 4.0), 200.0 + 4.0);
        ramp.holder = nullptr;
        QCOMPARE(valueAt(*reader.holder, 20.0), 100.0 + 20.0);

        host.variables->remove("g.ramp");
        QVERIFY(host.variables->add("g.ramp", nullptr, nullptr));
        QCOMPARE(valueAt(*reader.holder, 4.0), 4.0);
    }

    void namesFollowAddRemoveAndRename()
    {
        Host host;
        host.add("Cam 1.Left Eye").set("5");
        host.add("").set("6");
        HostCurve reader;
        reader.set("2CAM_1.left_eye");
        QVERIFY(reader.holder);
        QCOMPARE(reader.holder->evaluate(), 10.0);

        host.variables->rename("cam_1.left_eye", "cam_2.left_eye");
        host.variables->rename("nobody.x", "cam_1.left_eye");
        QCOMPARE(reader.holder->evaluate(), 0.0);
        host.variables->rename("Cam 2.left eye", "cam_1.left_eye");
        QCOMPARE(reader.holder->evaluate(), 10.0);
        host.add("CAM 1.LEFT_EYE").set("8");
        host.add("g.other");
        QVERIFY(host.variables->rename("cam_1.left_eye", "Cam_1.left_eye"));
        QVERIFY(!host.variables->rename("g.other", "cam_1.left_eye") && host.variables->hasName("g.other"));
        QCOMPARE(reader.holder->evaluate(), 10.0);
        QVERIFY(host.variables->hasName("Cam_1.left_eye") && !host.variables->hasName(""));
        QCOMPARE(host.variables->getValue("Cam_1.left_eye"), 5.0);
        QCOMPARE(host.variables->getValue(""), 0.0);

        host.variables->remove("cam_1.left_eye");
        host.variables->remove("cam_1.left_eye");
        QCOMPARE(reader.holder->evaluate(), 0.0);
        host.add("cam_1.left_eye").set("7");
        QCOMPARE(reader.holder->evaluate(), 14.0);
        host.variables.reset();
        QCOMPARE(reader.holder->evaluate(), 0.0);
    }

    void cycleIsHarmless()
    {
        Host host;
        HostCurve& a = host.add("g.a");
        HostCurve& b = host.add("g.b");
        HostCurve& own = host.add("g.own");
        a.set("g.b+1");
        b.set("g.a+10");
        own.set("g.own+3");
        HostCurve outside;
        outside.set("100g.a");
        QCOMPARE(outside.holder->evaluate(), 100.0 * (1.0 + 10.0));
        QCOMPARE(a.holder->evaluate(), 1.0 + 10.0);
        for (int round = 0; round < 2; ++round)
            QCOMPARE(own.holder->evaluate(), 3.0);
        QCOMPARE(host.variables->getValue("g.own"), 3.0);
        double values[]{1.0, 2.0};
        a.holder->evaluateBlock(values, 25.0, values, 2);
        QCOMPARE(values[1], 11.0);
        QCOMPARE(host.variables->getValue("g.a"), 11.0);
    }

    void chainIsReadOncePerCurve()
    {
        Host host;
        host.add("g.c0").set("t");
        constexpr int length = 1000;
        HostCurve* last = nullptr;
        for (int i = 1; i <= length; ++i) {
            last = &host.add("g.c" + std::to_string(i));
            const QString before = QString("g.c%1").arg(i - 1);
            last->set(QString("%1*.5+.5*%1").arg(before).toStdString());
        }
        // Read once for each occurrence this would take 2^1000 steps, also where the time equals nothing.
        QCOMPARE(valueAt(*last->holder, 3.0), 3.0);
        QCOMPARE(valueAt(*last->holder, 4.0), 4.0);
        QVERIFY(qIsNaN(valueAt(*last->holder, std::numeric_limits<double>::quiet_NaN())));
    }

    void endlessChainEnds()
    {
        Host host;
        host.add("g.c0").set("1");
        HostCurve* last = nullptr;
        const auto extendTo = [&](int first, int end) {
            for (int i = first; i <= end; ++i) {
                last = &host.add("g.c" + std::to_string(i));
                last->set("g.c" + std::to_string(i - 1));
            }
        };
        extendTo(1, CurveVariables::maximumDepth);
        QCOMPARE(last->holder->evaluate(), 1.0);
        extendTo(CurveVariables::maximumDepth + 1, 20000);
        QCOMPARE(last->holder->evaluate(), 0.0);
    }

    void blockEqualsOneByOne()
    {
        Host host;
        HostCurve& ramp = host.add("g.ramp");
        ramp.spline.addPoint(10.0, 100.0);
        ramp.spline.addPoint(13.0, -20.0);
        host.add("g.middle").set("g.ramp*f-cos(t)");
        HostCurve& reader = host.add("g.reader");
        reader.set("if(g.middle>t,g.ramp,g.middle/3)");
        std::vector<double> times(300);
        for (std::size_t i = 0; i < times.size(); ++i)
            times[i] = double(i) * 0.1 - 5.0;
        std::vector<double> values(times.size());
        reader.holder->evaluateBlock(times.data(), 25.0, values.data(), times.size());
        for (std::size_t i = 0; i < times.size(); ++i)
            QCOMPARE(values[i], valueAt(*reader.holder, times[i]));
    }

    void curvesMayShiftTime()
    {
        // An expression of the host's own that reads another one second earlier.
        struct Delay : FunctionFloatBase
        {
            FunctionFloatBase* delayed = nullptr;
            double evaluate() override
            {
                FunctionParserBase::keyStruct& t = *FunctionParserBase::instance()->getKey("t");
                const double now = t.getValue();
                t.setValue(now - 1.0);
                const double value = delayed->evaluate();
                t.setValue(now);
                return value;
            }
        };
        Host host;
        host.add("g.time").set("t");
        HostCurve reader;
        reader.set("g.time");
        Delay delay;
        delay.delayed = reader.holder;
        FunctionFloatBase* holder = &delay;
        host.variables->add("g.delayed", nullptr, &holder);
        HostCurve both;
        both.set("g.time+100g.delayed+10000g.time");
        HostCurve sum;
        host.variables->add("g.sum", nullptr, &both.holder);
        sum.set("g.sum");
        QCOMPARE(valueAt(*sum.holder, 5.0), 5.0 + 400.0 + 50000.0);
    }
};

QTEST_APPLESS_MAIN(tst_CurveVariables)
#include "tst_CurveVariables.moc"
