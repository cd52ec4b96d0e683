// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CustomEditLine.h>

#include <QSignalSpy>
#include <QTest>

using Values = std::vector<double>;

class tst_CustomEditLine : public QObject
{
    Q_OBJECT

    static Values valuesOf(const QSignalSpy& spy)
    {
        Values values;
        for (const QList<QVariant>& arguments : spy)
            values.push_back(arguments.at(0).toDouble());
        return values;
    }

private Q_SLOTS:
    void typingReportsTheClampedNumberAtEachKeyAndReturnRewritesIt_data()
    {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<Values>("reported");
        QTest::addColumn<QString>("rewritten");
        QTest::newRow("beyond a bound") << QString() << "12" << Values{1.0, 10.0} << "10.000";
        QTest::newRow("exponent") << QString() << "-2e0" << Values{0.0, -2.0, 0.0, -2.0} << "-2.000";
        QTest::newRow("not a number") << QString("na") << "n" << Values{0.0} << "0.000";
        QTest::newRow("infinity") << QString("-in") << "f" << Values{-10.0} << "-10.000";
        QTest::newRow("no room left") << QString("3.0005001") << "9" << Values{3.0005001} << "3.001";
    }

    void typingReportsTheClampedNumberAtEachKeyAndReturnRewritesIt()
    {
        QFETCH(QString, start);
        QFETCH(QString, keys);
        CustomEditLine line;
        line.setBounds(-10.0, 10.0);
        line.setText(start);
        QSignalSpy spy(&line, &CustomEditLine::newValueSet);
        QTest::keyClicks(&line, keys);
        QTEST(valuesOf(spy), "reported");
        QCOMPARE(line.text(), (start + keys).left(9));
        spy.clear();
        QTest::keyClick(&line, Qt::Key_Return);
        QTEST(line.text(), "rewritten");
        QCOMPARE(valuesOf(spy), Values{line.text().toDouble()});
        QCOMPARE(spy.at(0).at(1).value<CustomEditLine*>(), &line);
    }

    void textBeingEditedIsReportedAndStaysWhenItsNumberIsShownAgain()
    {
        CustomEditLine line;
        line.show();
        line.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&line));
        QSignalSpy spy(&line, &CustomEditLine::newValueSet);
        connect(&line, &CustomEditLine::newValueSet, &line, [&line](double value) { line.setValue(value); });
        line.insert("1"); // as a paste or a drop
        QTest::keyClicks(&line, "2.5");
        QCOMPARE(line.text(), "12.5");
        QCOMPARE(valuesOf(spy), (Values{1.0, 12.0, 12.0, 12.5}));
        line.setValue(12.0);
        QCOMPARE(line.text(), "12.000");
    }

    void showsNumbersWithinItsMaximumLength()
    {
        CustomEditLine line;
        for (const auto& [value, text] : {std::pair{-12345.678, "-12345.67"},
                                          {1e8, "100000000"},
                                          {-1e8, "-1.00e+08"},
                                          {-1e300, "-1.0e+300"}}) {
            line.setValue(value);
            QCOMPARE(line.text(), QString(text));
        }
        line.setMaxLength(15);
        line.setValue(-1234.5, "Cursor");
        QCOMPARE(line.text(), "-1234.500 [Curs");
    }

    void dragFollowsTheDistanceFromThePress_data()
    {
        constexpr double step = double(0.005f);
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<QString>("start");
        QTest::addColumn<std::vector<int>>("rows");
        QTest::addColumn<Values>("reported");
        QTest::newRow("click") << Qt::LeftButton << "1" << std::vector<int>{} << Values{};
        QTest::newRow("weight") << Qt::MiddleButton << "-3" << std::vector{1} << Values{-3.0 - 4.0 * step};
        QTest::newRow("past a bound and back") << Qt::LeftButton << "9" << std::vector{-200, 400, -10}
                                               << Values{10.0, -10.0, 9.0 + 10.0 * (10 * step)};
        QTest::newRow("right button") << Qt::RightButton << "1" << std::vector{-50} << Values{};
        QTest::newRow("no float holds it") << Qt::LeftButton << "1e300" << std::vector{0} << Values{10.0};
    }

    void dragFollowsTheDistanceFromThePress()
    {
        QFETCH(Qt::MouseButton, button);
        QFETCH(QString, start);
        QFETCH(std::vector<int>, rows);
        CustomEditLine line;
        line.setContextMenuPolicy(Qt::NoContextMenu);
        line.setBounds(-10.0, 10.0);
        line.setText(start);
        QSignalSpy spy(&line, &CustomEditLine::newValueSet);
        QTest::mousePress(&line, button, {}, QPoint(5, 5));
        for (const int row : rows)
            QTest::mouseMove(&line, QPoint(5, 5 + row));
        QTest::mouseRelease(&line, button, {}, QPoint(5, 5));
        QTEST(valuesOf(spy), "reported");
        QCOMPARE(line.text(), spy.isEmpty() ? start : QString::asprintf("%.3f", valuesOf(spy).back()));
    }

    void dragSurvivesTheRightButtonButNoDisabledFieldAndNoLostRelease()
    {
        CustomEditLine line;
        line.setContextMenuPolicy(Qt::NoContextMenu);
        QSignalSpy spy(&line, &CustomEditLine::newValueSet);
        QTest::mousePress(&line, Qt::LeftButton, {}, QPoint(5, 5));
        QTest::mouseClick(&line, Qt::RightButton, {}, QPoint(5, 60));
        QTest::mouseMove(&line, QPoint(5, 105));
        QCOMPARE(line.text(), "-0.500");
        line.setEnabled(false);
        line.setEnabled(true);
        QTest::mouseMove(&line, QPoint(5, 70));
        QTest::mouseRelease(&line, Qt::LeftButton);
        QTest::mousePress(&line, Qt::LeftButton);
        QMouseEvent hover(QEvent::MouseMove, QPointF(5, 50), QPointF(5, 50), Qt::NoButton, Qt::NoButton, {});
        QApplication::sendEvent(&line, &hover);
        QTest::mouseMove(&line, QPoint(5, 60));
        QTest::mouseRelease(&line, Qt::LeftButton);
        QCOMPARE(spy.count(), 1);
    }
};

QTEST_MAIN(tst_CustomEditLine)
#include "tst_CustomEditLine.moc"
