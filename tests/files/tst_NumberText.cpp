// SPDX-License-Identifier: MIT
#include <curveeditor/files/NumberText.h>
#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>
#include <support/Test.h>

using namespace curveeditor;

class tst_NumberText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedTextIsWhatTheParserMakesOfItWithoutCurves()
    {
        SplineBase spline;
        CurveVariables curves;
        for (const char* const name : {"pan", "pi", "1,5", "e"})
            curves.add(name, &spline, nullptr);
        FunctionParserBase::instance()->setVarMapper(&curves);
        const std::pair<double, QStringList> cases[] = {
            {1.5, {"1.5", "1,5", "1\u066B5"}},
            {-0.5, {" -,5 "}},
            {3.0, {"1+2"}},
            {std::acos(0.0), {"pi/2"}},
            {1.0, {"min(1,2)"}},
            {3.5, {"1,5+max(1,2)"}},
            {1000.0, {"1e3"}},
            {infinity, {"1/0"}},
            {-infinity, {"-1/0"}},
            {notANumber,
             {"2,5)", "(1,5)", "1,234,567", "0/0", "1e400", "1 2", "--", "", "nan", "inf", "t", "0*f", "pan",
              "0x10"}}};
        for (const auto& [number, texts] : cases) {
            for (const QString& text : texts) {
                const std::optional<double> read = NumberText::read(text);
                QVERIFY2(std::isnan(number) ? !read : read == number, qPrintable(text));
                QCOMPARE(NumberText::readFinite(text).has_value(), std::isfinite(number));
            }
        }
        QCOMPARE(NumberText::read("min(1,2)+,5"), std::optional(1.5));
        QCOMPARE(NumberText::read(QString("1+").repeated(10'000) + '1'), std::optional(10'001.0));
        QVERIFY(!NumberText::read(QString("(").repeated(10'000)));
        QCOMPARE(FunctionParserBase::instance()->getVarMapper(), &curves);
    }

    void textHasTheSignOfItsLocaleAndNoGroups()
    {
        const QLocale german(QLocale::German);
        QCOMPARE(NumberText::brief(1234.5678, german), "1234,57");
        QCOMPARE(NumberText::full(1.0 / 3.0, german), "0,3333333333333333");
        QCOMPARE(NumberText::full(12345678.25, QLocale(QLocale::English)), "12345678.25");
        QCOMPARE(NumberText::full(-1.5e300, QLocale("ar_EG")), "-1\u066B5e+300");
        QCOMPARE(NumberText::withPoint("-1\u066B5"), "-1.5");
    }
};

QTEST_APPLESS_MAIN(tst_NumberText)
#include "tst_NumberText.moc"
