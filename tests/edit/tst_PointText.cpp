// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointText.h>
#include <curveeditor/model/SplineState.h>
#include <support/Test.h>

using namespace curveeditor;

using Points = std::vector<SplineBase::PointInfo>;

class tst_PointText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tableReadsBackToTheSameBits()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        Points points;
        for (int index = 0; index < 10'000; ++index) {
            const double number = (index + 1) / 3.0;
            points.push_back({number, -0.0, 1e300, -number, 0.1, number * 1e-300, 3, -1, 1, index % 3});
        }
        const QString text = PointText::write(points);
        QVERIFY(std::ranges::equal(PointText::read(text).points, points, isSamePoint));
        const QString head =
            "time\tvalue\ttype\tincoming\toutgoing\ttension\tcontinuity\tbias\teaseTo\teaseFrom\n";
        QVERIFY(text.startsWith(head + "0.3333333333333333\t-0\tLinear\t1e+300\t"));
        QVERIFY(PointText::write({{.type = 7}}).contains("\tLinear\t"));
    }

    void commaBehindAWholeNumberSeparates()
    {
        QCOMPARE(PointText::read("0, 1\n0.5, 2").points.size(), std::size_t(2));
    }

    void signOfDecimalsIsAskedForWhereItCannotBeTold()
    {
        for (const char* const text : {"1,234\t5", "1,5\n2,5"}) {
            const PointText::Result result = PointText::read(text);
            QVERIFY(result.isAmbiguous && result.points.empty());
            QVERIFY(result.message.endsWith(" can be read in two ways."));
        }
        QCOMPARE(PointText::read("1,234\t5", TableReader::Decimal::Comma).points.at(0).time, 1.234);
        QCOMPARE(PointText::read("1,5\n2,5", TableReader::Decimal::Point).points.at(1).pos, 5.0);
        const PointText::Result column = PointText::read("1,5\n2,5", TableReader::Decimal::Comma);
        QCOMPARE(column.message, "Line 1: Not 2 but 1 numbers.");
    }

    /// In each of the texts the points are (0.5, -2) and (1.5, 3000), if not said otherwise.
    void tablesOfOthersAreRead()
    {
        for (const QString text :
             {"0,5\t-2\r\n1,5\t3e3\r\n", "Seconds (s);Height\n0,5 ; -2\n\n1,5;+3000\n",
              "time,value\r0.5,-2\r1.5,3000", "0.5, -2\n1.5, 3000", "  0,5   -2,0\n1,5 3000",
              "\uFEFF1.5 3000\n0.5 -2", "Type;VALUE;Time\nbezier;-2;0.5\nTcb;3000;1.5"}) {
            const PointText::Result result = PointText::read(text);
            QCOMPARE(result.message, QString());
            const int type = text.contains("bezier") ? SplineBase::Bezier : SplineBase::Tcb;
            const Points expected = {{.time = 0.5, .pos = -2.0, .type = type}, {.time = 1.5, .pos = 3000.0}};
            QVERIFY2(std::ranges::equal(result.points, expected, isSamePoint), qPrintable(text));
        }
    }

    void faultIsToldWithItsLine_data()
    {
        const Rows<QString, QString> row;
        const QString noNumber = QStringLiteral("Line %1: \"%2\" is no number that a point can have.");
        row("empty", " \n\t\r\n", "The text holds no points.");
        row("head line alone", "time\tvalue\n", "The text holds no points.");
        row("words", "To be or not", "Line 1: \"To\" is no column of points.");
        row("two words", "To be\nor not", noNumber.arg(2).arg("or"));
        row("binary", QString::fromLatin1("\0\1 7\n", 5), noNumber.arg(1).arg("??"));
        row("not finite", "1\t2\n\n3\t1e999", noNumber.arg(3).arg("1e999"));
        row("infinite", "1\t2\r\n3\tinf", noNumber.arg(2).arg("inf"));
        row("number and more", "1\t2 m", noNumber.arg(1).arg("2 m"));
        row("two decimal signs", "1\t1.000,5", noNumber.arg(1).arg("1.000,5"));
        row("long", "1\t" + QString(99, 'x'), noNumber.arg(1).arg(QString(20, 'x') + "..."));
        row("other width", "1.0,2\n3", "Line 2: Not 2 but 1 numbers.");
        row("no head line", "1 2 3", "Line 1: Not 2 but 3 numbers.");
        row("twice", "time;value;TIME", "Line 1: The column \"time\" is there twice.");
        row("missing", "time;type", "Line 1: The column \"value\" is missing.");
        row("type", "time;value;type\n1;2;3", "Line 2: \"3\" is no type of a point.");
        row("too many", QStringLiteral("1 2\n").repeated(PointText::maximumRows + 1),
            "Line 1000001: More than 1000000 points.");
    }
    void faultIsToldWithItsLine()
    {
        const auto [text, message] = Rows<QString, QString>::present();
        const PointText::Result result = PointText::read(text);
        QVERIFY(result.message == message && result.points.empty());
    }
};

QTEST_APPLESS_MAIN(tst_PointText)
#include "tst_PointText.moc"
