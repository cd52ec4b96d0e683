// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CustomEditLine.h>

#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include <limits>
#include <vector>

namespace {

constexpr double pixelStep = double(0.005f);

std::vector<double> valuesOf(const QSignalSpy& spy)
{
    std::vector<double> values;
    for (const QList<QVariant>& arguments : spy)
        values.push_back(arguments.at(0).toDouble());
    return values;
}

} // namespace

class tst_CustomEditLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typingReportsTheClampedNumberAtEachKey_data();
    void typingReportsTheClampedNumberAtEachKey();
    void returnReportsTheRewrittenNumberOnce();
    void decimalSignIsAPointInEveryLocale();
    void showsNumbersWithinItsMaximumLength_data();
    void showsNumbersWithinItsMaximumLength();
    void longestNumberFitsTheWidth();
    void dragFollowsTheDistanceFromThePress_data();
    void dragFollowsTheDistanceFromThePress();
    void rightButtonNeitherStartsNorEndsADrag();
    void dragEndsWhenTheFieldIsDisabledOrTheReleaseIsLost();
};

void tst_CustomEditLine::typingReportsTheClampedNumberAtEachKey_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<std::vector<double>>("reported");
    QTest::newRow("beyond a bound") << ""
                                    << "12" << std::vector<double>{1.0, 10.0};
    QTest::newRow("lone minus, then a number") << ""
                                               << "-3" << std::vector<double>{0.0, -3.0};
    QTest::newRow("exponent") << ""
                              << "2e0" << std::vector<double>{2.0, 0.0, 2.0};
    QTest::newRow("not a number") << "na"
                                  << "n" << std::vector<double>{0.0};
    QTest::newRow("infinity") << "-in"
                              << "f" << std::vector<double>{-10.0};
    QTest::newRow("text with a label") << "1.000 [T"
                                       << "]" << std::vector<double>{0.0};
    QTest::newRow("no room left") << "3.0000001"
                                  << "9" << std::vector<double>{3.0000001};
}

void tst_CustomEditLine::typingReportsTheClampedNumberAtEachKey()
{
    QFETCH(QString, start);
    QFETCH(QString, keys);
    CustomEditLine line;
    line.setBounds(-10.0, 10.0);
    line.setText(start);
    QSignalSpy spy(&line, &CustomEditLine::newValueSet);
    QTest::keyClicks(&line, keys);
    QTEST(valuesOf(spy), "reported");
    QCOMPARE(line.text(), (start + keys).left(line.maxLength()));
}

void tst_CustomEditLine::returnReportsTheRewrittenNumberOnce()
{
    CustomEditLine line;
    line.setBounds(-10.0, 10.0);
    QSignalSpy spy(&line, &CustomEditLine::newValueSet);
    for (const auto& [typed, shown] : {std::pair{"1.23456", "1.235"}, {"12", "10.000"}, {"", "0.000"}}) {
        line.setText(typed);
        spy.clear();
        QTest::keyClick(&line, Qt::Key_Return);
        QCOMPARE(line.text(), QString(shown));
        QCOMPARE(valuesOf(spy), std::vector<double>{QString(shown).toDouble()});
        QCOMPARE(spy.at(0).at(1).value<CustomEditLine*>(), &line);
    }
    QTest::keyClick(&line, Qt::Key_Left);
    QCOMPARE(spy.count(), 2);
}

void tst_CustomEditLine::decimalSignIsAPointInEveryLocale()
{
    QLocale::setDefault(QLocale::German);
    CustomEditLine line;
    line.setText("1.5");
    line.checkTextBounds();
    QLocale::setDefault(QLocale::c());
    QCOMPARE(line.text(), "1.500");
}

void tst_CustomEditLine::showsNumbersWithinItsMaximumLength_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("three decimals") << 0.12345 << "0.123";
    QTest::newRow("decimals cut") << -12345.678 << "-12345.67";
    QTest::newRow("upper bound") << 100000000.0 << "100000000";
    QTest::newRow("lower bound keeps its size") << -100000000.0 << "-1.00e+08";
    QTest::newRow("huge") << -1e300 << "-1.0e+300";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "inf";
}

void tst_CustomEditLine::showsNumbersWithinItsMaximumLength()
{
    QFETCH(double, value);
    CustomEditLine line;
    QSignalSpy spy(&line, &CustomEditLine::newValueSet);
    line.setValue(value);
    QTEST(line.text(), "text");
    line.setMaxLength(15);
    line.setValue(1.0, "Time");
    QCOMPARE(line.text(), "1.000 [Time]");
    line.setValue(-1234.5, "Cursor");
    QCOMPARE(line.text(), "-1234.500 [Curs");
    QCOMPARE(spy.count(), 0);
}

void tst_CustomEditLine::longestNumberFitsTheWidth()
{
    CustomEditLine line;
    line.setFont(QFont("Arial", 20));
    line.resize(line.minimumSizeHint());
    line.setText("-0000.000");
    const QMargins style(4, 0, 4, 0); // what any style takes at the least, frame and text margin
    QVERIFY(line.fontMetrics().horizontalAdvance(line.text()) <= line.rect().marginsRemoved(style).width());
}

void tst_CustomEditLine::dragFollowsTheDistanceFromThePress_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<QString>("start");
    QTest::addColumn<std::vector<int>>("rows");
    QTest::addColumn<std::vector<double>>("reported");
    const std::vector<double> none;
    QTest::newRow("click") << Qt::LeftButton << "1.000" << std::vector<int>{} << none;
    QTest::newRow("up raises") << Qt::LeftButton << "0.000" << std::vector<int>{-200}
                               << std::vector{200 * pixelStep};
    QTest::newRow("step grows with the number")
        << Qt::MiddleButton << "-3.000" << std::vector<int>{1} << std::vector{-3.0 - 4.0 * pixelStep};
    QTest::newRow("past the bound and back") << Qt::LeftButton << "9.000" << std::vector<int>{-200, 400, -10}
                                             << std::vector{10.0, -10.0, 9.0 + 10.0 * (10 * pixelStep)};
    QTest::newRow("right button") << Qt::RightButton << "1.000" << std::vector<int>{-50} << none;
    QTest::newRow("no single-precision number")
        << Qt::LeftButton << "1e300" << std::vector<int>{0} << std::vector{10.0};
}

void tst_CustomEditLine::dragFollowsTheDistanceFromThePress()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(QString, start);
    QFETCH(std::vector<int>, rows);
    CustomEditLine line;
    line.setContextMenuPolicy(Qt::NoContextMenu);
    line.setBounds(-10.0, 10.0);
    line.setText(start);
    line.show();
    QSignalSpy spy(&line, &CustomEditLine::newValueSet);
    QTest::mousePress(&line, button, {}, QPoint(5, 5));
    for (const int row : rows)
        QTest::mouseMove(&line, QPoint(5, 5 + row));
    QTest::mouseRelease(&line, button, {}, QPoint(5, 5));
    QTEST(valuesOf(spy), "reported");
    if (spy.isEmpty())
        QCOMPARE(line.text(), start);
    else
        QCOMPARE(line.text(), QString::asprintf("%.3f", valuesOf(spy).back()));
}

void tst_CustomEditLine::rightButtonNeitherStartsNorEndsADrag()
{
    CustomEditLine line;
    line.setContextMenuPolicy(Qt::NoContextMenu);
    line.setText("0.000");
    line.show();
    QSignalSpy spy(&line, &CustomEditLine::newValueSet);
    QTest::mousePress(&line, Qt::LeftButton, {}, QPoint(5, 100));
    QTest::mousePress(&line, Qt::RightButton, {}, QPoint(5, 90));
    QTest::mouseRelease(&line, Qt::RightButton, {}, QPoint(5, 90));
    QTest::mouseMove(&line, QPoint(5, 80));
    QCOMPARE(valuesOf(spy), std::vector{20 * pixelStep});
    QTest::mouseRelease(&line, Qt::LeftButton, {}, QPoint(5, 80));
}

void tst_CustomEditLine::dragEndsWhenTheFieldIsDisabledOrTheReleaseIsLost()
{
    CustomEditLine line;
    line.setText("1.000");
    line.show();
    QSignalSpy spy(&line, &CustomEditLine::newValueSet);
    QTest::mousePress(&line, Qt::LeftButton, {}, QPoint(5, 5));
    line.setEnabled(false);
    line.setEnabled(true);
    QTest::mouseMove(&line, QPoint(5, 20));
    QTest::mouseRelease(&line, Qt::LeftButton, {}, QPoint(5, 20));
    QCOMPARE(spy.count(), 0);

    QTest::mousePress(&line, Qt::LeftButton, {}, QPoint(5, 5));
    QMouseEvent hover(QEvent::MouseMove, QPointF(5, 50), line.mapToGlobal(QPointF(5, 50)), Qt::NoButton,
                      Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&line, &hover);
    QTest::mouseMove(&line, QPoint(5, 60));
    QCOMPARE(spy.count(), 0);
    QTest::mouseRelease(&line, Qt::LeftButton, {}, QPoint(5, 60));
}

QTEST_MAIN(tst_CustomEditLine)
#include "tst_CustomEditLine.moc"
