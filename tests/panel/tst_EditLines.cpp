// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/TextSpan.h>
#include <support/Drop.h>
#include <support/Test.h>

using Values = std::vector<double>;

/// A line with bounds of -10 and 10 that notes the numbers it reports.
struct NotingLine : CustomEditLine
{
    NotingLine()
    {
        setBounds(-10.0, 10.0);
        setContextMenuPolicy(Qt::NoContextMenu);
        connect(this, &CustomEditLine::newValueSet, this, [this](double value, CustomEditLine* sender) {
            QCOMPARE(sender, this);
            reported.push_back(value);
        });
    }
    Values reported;
};

static ParseMessage messageOf(const std::string& text, std::uint32_t offset, std::uint32_t length)
{
    ParseMessage message;
    message.text = text;
    message.errors = {{offset, length}, {0, 1}};
    return message;
}

class tst_EditLines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typingReportsTheClampedNumberAtEachKeyAndReturnRewritesIt()
    {
        for (const auto& [start, keys, reported, rewritten] :
             {std::tuple{"", "12", Values{1.0, 10.0}, "10.000"},
              {"", "-2e0", Values{0.0, -2.0, -2.0, -2.0}, "-2.000"}, // "-" and "-2e" are no numbers
              {"", "1,5", Values{1.0, 1.0, 1.5}, "1.500"},
              {"2*", "pi", Values{0.0, 6.283185307179586}, "6.283"},
              {"5", "--", Values{5.0, 5.0}, "5.000"},
              {"", "12-t", Values{1.0, 10.0, 10.0, 10.0}, "10.000"},
              {"-1/", "0", Values{-10.0}, "-10.000"},
              {"0/", "0", Values{0.0}, "0.000"},
              {"(1,5", ")", Values{0.0}, "0.000"},
              {"na", "n", Values{0.0}, "0.000"},
              {"3.0005001", "9", Values{3.0005001}, "3.001"}}) { // no room left
            NotingLine line;
            line.setText(start);
            QTest::keyClicks(&line, keys);
            QCOMPARE(line.reported, reported);
            QCOMPARE(line.text(), (QString(start) + keys).left(9));
            line.reported.clear();
            QTest::keyClick(&line, Qt::Key_Return);
            QCOMPARE(line.text(), rewritten);
            QCOMPARE(line.reported, Values{line.text().toDouble()});
        }
    }

    void textThatIsNoNumberIsMarkedAndReplacedByTheLastOneWhenLeft()
    {
        NotingLine line;
        line.show();
        line.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&line));
        const QPalette usual = line.palette();
        line.setValue(12.0); // beyond the bounds, as a host may have it
        line.selectAll();
        QTest::keyClick(&line, Qt::Key_Delete);
        QVERIFY(line.text().isEmpty() && line.palette() != usual);
        QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
        QApplication::sendEvent(&line, &menu);
        line.setValue(12.0); // shown again meanwhile
        QVERIFY(line.text().isEmpty() && line.palette() != usual);
        line.clearFocus();
        QVERIFY(line.text() == "12.000" && line.palette() == usual);
        line.setFocus();
        line.selectAll();
        QTest::keyClicks(&line, "4x");
        QVERIFY(line.palette() != usual);
        line.setValue(7.0); // the host has moved the point
        QVERIFY(line.text() == "7.000" && line.palette() == usual);
        QCOMPARE(line.reported, (Values{10.0, 4.0, 4.0}));
    }

    void signIsThatOfTheLocale()
    {
        NotingLine line;
        line.setMaxLength(15);
        line.setValue(1.5);
        line.setLocale(QLocale(QLocale::German));
        QCOMPARE(line.text(), "1,500");
        QVERIFY(line.shows(1.5) && !line.shows(1.6));
        line.setValue(2000.5, "Time");
        QCOMPARE(line.text(), "2000,500 [Time]");
        line.setText({});
        QTest::keyClicks(&line, "1.25");
        line.setLocale(QLocale(QLocale::French)); // typing goes on
        QCOMPARE(line.text(), "1.25");
        QTest::keyClick(&line, Qt::Key_Return);
        QCOMPARE(line.text(), "1,250");
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
        for (const auto& [value, text] : {std::pair{-10.126, "-10.13 [Cursor]"},
                                          {-1234.5, "-1234.500"},
                                          {123456789012345.75, "123456789012346"},
                                          {-1.25e15, "-1.25000000e+15"}}) {
            line.setValue(value, "Cursor");
            QCOMPARE(line.text(), QString(text));
        }
        line.show(); // a hidden one is told of its size later
        line.resize(line.widthOf(7), 20);
        for (const double value : {2.5, -12345.678, -1e300}) {
            line.setValue(value, "Cursor");
            QVERIFY(qAbs(line.text().toDouble() - value) < 0.001 * qAbs(value));
            QVERIFY(line.widthOf(0) + line.fontMetrics().horizontalAdvance(line.text()) <= line.width());
        }
        for (const bool isEnabled : {true, false}) {
            line.setEnabled(isEnabled);
            line.resize(line.widthOf(isEnabled ? 5 : 4), 20);
            QCOMPARE(line.text().isEmpty(), !isEnabled);
        }
    }

    void dragFollowsTheDistanceFromThePress()
    {
        constexpr double step = double(0.005f);
        for (const auto& [button, start, rows, reported] :
             {std::tuple{Qt::LeftButton, "1", std::vector<int>{}, Values{}},
              {Qt::RightButton, "1", {-50}, Values{}},
              {Qt::MiddleButton, "-3", {1}, Values{-3.0 - 4.0 * step}},
              {Qt::LeftButton, "9", {-200, 400, -10}, Values{10.0, -10.0, 9.0 + 10.0 * (10 * step)}},
              {Qt::LeftButton, "1e300", {0}, Values{10.0}}}) {
            NotingLine line;
            line.setText(start);
            QTest::mousePress(&line, button, {}, QPoint(5, 5));
            for (const int row : rows)
                QTest::mouseMove(&line, QPoint(5, 5 + row));
            QTest::mouseRelease(&line, button, {}, QPoint(5, 5));
            QCOMPARE(line.reported, reported);
            QCOMPARE(line.text(), reported.empty() ? start : QString::asprintf("%.3f", reported.back()));
        }
    }

    void dragSurvivesTheRightButtonButNoDisabledFieldAndNoLostRelease()
    {
        NotingLine line;
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
        QCOMPARE(line.reported.size(), 1U);
        line.setText("2");
        QTest::keyClicks(&line, "+"); // no number: a drag begins at the last one
        QTest::mousePress(&line, Qt::LeftButton, {}, QPoint(5, 5));
        QTest::mouseMove(&line, QPoint(5, 105));
        QCOMPARE(line.text(), "0.500");
    }

    void spansOfBytesBecomeSpansOfCharacters()
    {
        for (const auto& [utf8, offset, length, start, characters] :
             {std::tuple{"é+öä*t", 3u, 4u, 2, 2},
              {"😀+x😀", 5u, 5u, 3, 3},
              {"a😀b", 1u, 1u, 1, 2}, // parts of a character
              {"a😀b", 2u, 3u, 1, 2},
              {"é1", 2u, ~0u, 1, 1},
              {"é", 7u, ~0u, 1, 0},
              {"\xFF\x80+x", 3u, 1u, 3, 1}}) {
            const TextSpan span = textSpan(utf8, offset, length);
            QCOMPARE(QPoint(span.start, span.length), QPoint(start, characters));
        }
    }

    void firstSpanIsSelectedInTheWarningColorUntilTheNextKey()
    {
        ExpressionEditLine line;
        const QPalette saved = line.palette();
        line.showMessage(messageOf("größe + fuß", 10, 4));
        QCOMPARE(line.selectedText(), QString::fromUtf8("fuß"));
        QCOMPARE(line.palette().color(QPalette::HighlightedText), QColor(255, 55, 33));
        QCOMPARE(line.palette().color(QPalette::Highlight), saved.color(QPalette::Base));
        line.setColors(saved.color(QPalette::Base), saved.color(QPalette::Text), Qt::blue);
        QCOMPARE(line.palette().color(QPalette::HighlightedText), QColor(Qt::blue));
        QTest::keyClicks(&line, "t");
        QCOMPARE(line.text(), QString::fromUtf8("größe + t"));
        QCOMPARE(line.palette(), saved);
        QVERIFY(saved.color(QPalette::Text).lightness() - saved.color(QPalette::Base).lightness() > 128);
        line.showMessage(messageOf("1", 0, 1));
        line.showMessage(messageOf(std::string(20000, '1'), 17000, 5));
        QCOMPARE(line.text(), "1");
        QTest::mouseClick(&line, Qt::LeftButton, {}, QPoint(1, 5));
        QVERIFY(line.palette() == saved && line.cursorPosition() == 0);
    }

    void dropInsertsAtTheCursorWithUnderscores()
    {
        ExpressionEditLine line;
        line.setText("1+2");
        line.setSelection(0, 2);
        line.show();
        QVERIFY(QTest::qWaitForWindowActive(&line));
        line.clearFocus();
        QVERIFY(!dropOn(line, {}) && dropOn(line, "Camera.focus pull"));
        QTRY_VERIFY(line.hasFocus() && line.cursorPosition() == line.text().size());
        QCOMPARE(line.text(), "1+Camera.focus_pull2");
    }
};

QTEST_MAIN(tst_EditLines)
#include "tst_EditLines.moc"
