// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFile.h>

#include <QtTest>

#include <cstring>
#include <limits>
#include <locale>
#include <sstream>

namespace {

using PointInfo = SplineBase::PointInfo;

struct CommaPunctuation : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    std::string do_grouping() const override { return "\1"; }
};

/// Makes streams write "1.2.3,5" for 123.5 while it lives.
class ForeignLocale
{
public:
    ~ForeignLocale() { std::locale::global(before_); }

private:
    std::locale before_ = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
};

void fill(SplineBase& spline)
{
    for (const double time :
         {0.1, 1e-300, std::numeric_limits<double>::denorm_min(), 1e300, 1234567.875, 0.1})
        spline.addPoint(time, -time / 3.0);
    PointInfo* const point = spline.modify(2u);
    point->tanLeft = -0.0;
    point->tension = 1.0 / 3.0;
    point->easeFrom = 0.7;
    point->type = SplineBase::Bezier;
    spline.firstType = SplineBase::Zero;
    spline.lastType = SplineBase::LoopOffset;
    spline.setDefaultValue(2.0 / 3.0);
}

std::string text(const CurveFile& file)
{
    std::ostringstream out;
    file.write(out);
    return out.str();
}

bool read(CurveFile& file, const std::string& content)
{
    std::istringstream in(content);
    return file.read(in);
}

} // namespace

class tst_CurveFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splineComesBackBitForBit()
    {
        const ForeignLocale locale;
        CurveFile written;
        written.color = {255, 128, 0};
        fill(written.spline);
        CurveFile reread;
        reread.kind = CurveFile::Expression;
        QVERIFY(read(reread, text(written)));

        QCOMPARE(reread.kind, CurveFile::Spline);
        QCOMPARE(reread.color.green, 128);
        QCOMPARE(reread.spline.firstType, written.spline.firstType);
        QCOMPARE(reread.spline.lastType, written.spline.lastType);
        QCOMPARE(reread.spline.getDefaultValue(), written.spline.getDefaultValue());
        QCOMPARE(reread.spline.getControlPointsNumber(), written.spline.getControlPointsNumber());
        for (unsigned i = 0; i < written.spline.getControlPointsNumber(); ++i) {
            QCOMPARE(std::memcmp(reread.spline[i], written.spline[i], offsetof(PointInfo, type)), 0);
            QCOMPARE(reread.spline[i]->type, written.spline[i]->type);
        }
    }

    void expressionIsFiveLines()
    {
        const ForeignLocale locale;
        CurveFile file;
        file.color = {255, 128, 0};
        file.kind = CurveFile::Expression;
        file.expression = "sin(t)";
        QCOMPARE(text(file), "255\n128\n0\n1\nsin(t)\n");
    }

    void takesWhatIsWhole_data()
    {
        QTest::addColumn<std::string>("content");
        QTest::newRow("other line ends") << std::string("1\r\n2\r\n3\r\n1\r\nt+1\r\n");
        QTest::newRow("blanks for line ends") << std::string("1 2 3 1 t+1");
        QTest::newRow("any character but 0") << std::string("1\n2\n3\n*\nt+1\n");
        QTest::newRow("bad colour") << std::string("-1\n256\n99999999999999999999\n1\nt+1\n");
        QTest::newRow("cut at a blank") << std::string("1\n2\n3\n1\nt+1 *2\n");
    }
    void takesWhatIsWhole()
    {
        QFETCH(const std::string, content);
        CurveFile file;
        QVERIFY(read(file, content));
        QCOMPARE(file.kind, CurveFile::Expression);
        QCOMPARE(file.expression, "t+1");
        QVERIFY(file.color.red >= 0 && file.color.green <= 255 && file.color.blue <= 255);
    }

    void refusesWhatIsNot_data()
    {
        QTest::addColumn<std::string>("content");
        QTest::newRow("empty") << std::string();
        QTest::newRow("prose") << std::string("Dear reader, this is no curve.");
        QTest::newRow("binary") << std::string("\x7f"
                                               "ELF\0\x01\xff\xfe",
                                               8);
        QTest::newRow("number with a rest") << std::string("1\n2.5\n3\n1\nt\n");
        QTest::newRow("no expression") << std::string("1\n2\n3\n1\n");
        QTest::newRow("endless expression") << "1\n2\n3\n1\n" + std::string((1u << 20) + 1, 't');
        QTest::newRow("endless number") << std::string(10000, '1') + "\n2\n3\n1\nt\n";
        QTest::newRow("spline that is none") << std::string("1\n2\n3\n0\n1000000000000 1 2 3\n");
    }
    void refusesWhatIsNot()
    {
        QFETCH(const std::string, content);
        CurveFile file;
        file.kind = CurveFile::Expression;
        fill(file.spline);
        file.expression = "f";
        file.color.red = 77;
        const std::string before = text(file);
        const double value = file.spline(0.05);
        QVERIFY(!read(file, content));
        QCOMPARE(text(file), before);
        QCOMPARE(file.spline(0.05), value);
    }

    void refusesEveryBeginningOfASpline()
    {
        CurveFile whole;
        fill(whole.spline);
        const std::string content = text(whole);
        const std::size_t end = content.find_last_not_of('\n');
        CurveFile file;
        for (std::size_t length = 0; length <= end; ++length)
            QVERIFY2(!read(file, content.substr(0, length)), std::to_string(length).c_str());
        QCOMPARE(file.spline.getControlPointsNumber(), 1u);
    }

    void tellsThatWritingFailed()
    {
        CurveFile file;
        std::ostringstream out;
        out.setstate(std::ios::badbit);
        QVERIFY(!file.write(out));
    }
};

QTEST_MAIN(tst_CurveFile)
#include "tst_CurveFile.moc"
