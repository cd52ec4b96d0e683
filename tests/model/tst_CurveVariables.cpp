// SPDX-License-Identifier: MIT
#include <curveeditor/model/BlockReading.h>
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>
#include <support/Test.h>

#include <list>

using namespace curveeditor;

namespace {

struct HostCurve
{
    explicit HostCurve(const std::string& text = "") { set(text); }
    void set(const std::string& text)
    {
        ParseMessage message;
        expression.reset(FunctionParserBase::instance()->parseString(text, message));
        holder = expression.get();
    }

    SplineBase spline;
    std::unique_ptr<FunctionFloatBase> expression;
    FunctionFloatBase* holder = nullptr;
};

class Host
{
public:
    Host() : variables(std::make_unique<CurveVariables>())
    {
        FunctionParserBase::instance()->setVarMapper(variables.get());
    }

    HostCurve& add(const std::string& name, const std::string& text = "")
    {
        HostCurve& curve = curves_.emplace_back(text);
        variables->add(name, &curve.spline, &curve.holder);
        return curve;
    }

    /// Adds g.cN for each N, with `text` in which %1 is the one before it. Returns the last.
    HostCurve& addChain(int first, int last, const QString& text)
    {
        for (int i = first; i <= last; ++i)
            add("g.c" + std::to_string(i),
                QString(text).replace("%1", QString("g.c%1").arg(i - 1)).toStdString());
        return curves_.back();
    }

    std::unique_ptr<CurveVariables> variables;

private:
    std::list<HostCurve> curves_;
};

/// Infinite unless the expression has the same value by itself and in a block.
double valueAt(FunctionFloatBase& expression, double time)
{
    double values[]{time + 2.0, time, time - 2.0};
    expression.evaluateBlock(values, 25.0, values, 3);
    EvaluationTime now;
    now.set(time, 25.0);
    const double value = expression.evaluate();
    return std::bit_cast<quint64>(value) == std::bit_cast<quint64>(values[1]) ? value : HUGE_VAL;
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
        const HostCurve& reader = host.add("g.reader", "g.ramp+t");
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
        host.add("Cam 1.Left Eye", "5");
        host.add("", "6");
        const HostCurve reader("2CAM_1.left_eye");
        QVERIFY(reader.holder);
        QCOMPARE(reader.holder->evaluate(), 10.0);

        host.variables->rename("cam_1.left_eye", "cam_2.left_eye");
        host.variables->rename("nobody.x", "cam_1.left_eye");
        QCOMPARE(reader.holder->evaluate(), 0.0);
        host.variables->rename("Cam 2.left eye", "cam_1.left_eye");
        QCOMPARE(reader.holder->evaluate(), 10.0);
        host.add("CAM 1.LEFT_EYE", "8");
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
        host.add("cam_1.left_eye", "7");
        QCOMPARE(reader.holder->evaluate(), 14.0);
        host.variables.reset();
        QCOMPARE(reader.holder->evaluate(), 0.0);
    }

    void cycleIsHarmless()
    {
        Host host;
        HostCurve& a = host.add("g.a");
        HostCurve& b = host.add("g.b", "g.a+10");
        HostCurve& own = host.add("g.own");
        a.set("g.b+1");
        own.set("g.own+3");
        HostCurve outside("100g.a");
        QCOMPARE(valueAt(*outside.holder, 1.0), 100.0 * (1.0 + 10.0));
        QCOMPARE(valueAt(*a.holder, 1.0), 1.0 + 10.0);
        for (int round = 0; round < 2; ++round)
            QCOMPARE(valueAt(*own.holder, 1.0), 3.0);
        QCOMPARE(host.variables->getValue("g.own"), 3.0);
        host.add("g.both", "g.a+100g.b"); // reads g.b as g.a found it
        outside.set("g.both");
        QCOMPARE(valueAt(*outside.holder, 1.0), 11.0 + 1000.0);
        const double time = 1.0;
        const BlockReading reading(&time, 25.0, 1);
        double value = 0.0;
        for (const auto& [curve, expected] :
             {std::pair(&a, 11.0), {&b, 11.0}, {&own, 3.0}, {&outside, 1011.0}}) {
            curve->holder->evaluateBlock(&time, 25.0, &value, 1);
            QCOMPARE(value, expected);
        }
    }

    void chainIsReadOncePerCurve()
    {
        Host host;
        host.add("g.c0", "t");
        const HostCurve& last = host.addChain(1, 1000, "%1*.5+.5*%1");
        // Read once for each occurrence this would take 2^1000 steps, also where the time equals nothing.
        QCOMPARE(valueAt(*last.holder, 3.0), 3.0);
        QCOMPARE(valueAt(*last.holder, 4.0), 4.0);
        QVERIFY(qIsNaN(valueAt(*last.holder, NAN)));
    }

    void endlessChainEnds()
    {
        Host host;
        host.add("g.c0", "1");
        constexpr int depth = CurveVariables::maximumDepth;
        QCOMPARE(valueAt(*host.addChain(1, depth, "%1").holder, 1.0), 1.0);
        QCOMPARE(valueAt(*host.addChain(depth + 1, depth + 1, "%1").holder, 1.0), 0.0);
        QCOMPARE(valueAt(*host.addChain(depth + 2, 20000, "%1").holder, 1.0), 0.0);
    }

    void blockEqualsOneByOne()
    {
        Host host;
        HostCurve& ramp = host.add("g.ramp");
        ramp.spline.addPoint(10.0, 100.0);
        ramp.spline.addPoint(13.0, -20.0);
        host.add("g.middle", "g.ramp*f-mod(t,3)");
        std::vector<double> times(300);
        for (std::size_t i = 0; i < times.size(); ++i)
            times[i] = double(i) * 0.1 - 5.0;
        FunctionParserBase::keyStruct& t = *FunctionParserBase::instance()->getKey("t");
        const FunctionParserBase::keyStruct parsersOwn = t;
        for (const bool isParsersOwn : {true, false}) {
            float hostsTime = 7.0f;
            if (!isParsersOwn) {
                t.type = 2;
                t.value = &hostsTime;
            }
            const HostCurve reader("if(g.middle>t,g.ramp,g.middle/3)");
            std::vector<double> values(times.size());
            reader.holder->evaluateBlock(times.data(), 25.0, values.data(), times.size());
            QCOMPARE(hostsTime, 7.0f);
            for (std::size_t i = 0; i < times.size(); ++i)
                QCOMPARE(values[i], valueAt(*reader.holder, times[i]));
        }
        t = parsersOwn;
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
            void evaluateBlock(const double* times, double framesPerTimeUnit, double* values,
                               std::size_t count) override
            {
                std::vector<double> earlier(times, times + count);
                for (double& time : earlier)
                    time -= 1.0;
                delayed->evaluateBlock(earlier.data(), framesPerTimeUnit, values, count);
            }
        };
        Host host;
        host.add("g.time", "t");
        const HostCurve reader("g.time");
        Delay delay;
        delay.delayed = reader.holder;
        FunctionFloatBase* holder = &delay;
        host.variables->add("g.delayed", nullptr, &holder);
        host.add("g.sum", "g.time+100g.delayed+10000g.time");
        const HostCurve sum("g.sum");
        QCOMPARE(valueAt(*sum.holder, 5.0), 5.0 + 400.0 + 50000.0);
    }
};

QTEST_APPLESS_MAIN(tst_CurveVariables)
#include "tst_CurveVariables.moc"
