// SPDX-License-Identifier: MIT
#include "ReadTable.h"

#include <support/Test.h>
#include <support/Transcript.h>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("QT_LOGGING_RULES", "*=false"); } // what Qt says is of no interest
    void nothingElseIsWritten()
    {
        Transcript::play(QFINDTESTDATA("demo.txt"), path(""),
                         [this](const QByteArray&, const QString& command) {
                             const int code = run(QProcess::splitCommand(command));
                             return Transcript::Outcome{code, output_, errors_};
                         });
    }

    void screenshotShowsTheCurves()
    {
        // The samples or a table, and the hue of the current curve, which the look keeps.
        for (const auto& [table, hue] : {std::pair("", 47),
                                         {"380 1000\n780 1001\n", 222},
                                         {"-1e300 -1e300\n1e300 1e300\n", 222},
                                         {"0 1e20\n1 1e20\n", 222}}) {
            QStringList arguments{"--screenshot", path("a.png")};
            if (*table)
                arguments << written(path("table"), table);
            QCOMPARE(run(arguments), 0);
            const QImage image = QImage(path("a.png")).convertToFormat(QImage::Format_RGB32);
            QVERIFY(image.width() >= 800 && image.height() >= 500);
            const auto* const pixels = reinterpret_cast<const QRgb*>(image.constBits());
            const auto ofCurve = std::count_if(
                pixels, pixels + image.width() * image.height(), [hue = hue](const QColor& pixel) {
                    return pixel.saturation() > 90 && std::abs(pixel.hue() - hue) < 5;
                });
            QVERIFY2(ofCurve > 300, table);
        }
    }

    void columnsBecomeCurvesOfGroups_data()
    {
        const Rows<QByteArray, QString> row;
        row("names", "t,Camera.pan,zoom,a.b.c\n2,1,2,3\n", "Camera/pan Table/zoom a/b.c");
        row("no names", "0 1\n", "Table/column2");
        row("name twice", "\nt,a,Table.a\n0,1,2\n", "2: the name 'Table.a' is there twice");
        row("no group", "t,.a\n0,1\n", "1: '.a' is no name of a curve");
        row("fault", "0 1\n1 x\n", "2: 'x' is no number");
    }

    void columnsBecomeCurvesOfGroups()
    {
        const auto [text, result] = Rows<QByteArray, QString>::present();
        const ReadTable read = readTable(text);
        QStringList names;
        for (const Table::Column& column : read.table.value_or(Table()).columns) {
            names.append(column.group + '/' + column.curve);
            QCOMPARE(column.values, std::vector<double>{double(names.size())});
        }
        QCOMPARE(read.table ? names.join(' ') : read.reason, result);
        QVERIFY(!read.isAmbiguous && read.reason.isEmpty() == read.table.has_value());
    }

    void decimalSignCanBeGiven()
    {
        QVERIFY(readTable("0\t1,234").isAmbiguous);
        QCOMPARE(readTable("0\t1,234", TableReader::Decimal::Point).table->columns[0].values[0], 1234.0);
    }

private:
    QString path(const QString& name) const { return folder_.filePath(name); }

    // The exit status; -1 after a crash or a minute.
    int run(const QStringList& arguments)
    {
        QProcess process;
        process.start(QStringLiteral(DEMO), arguments);
        const bool ended = process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit;
        output_ = process.readAllStandardOutput();
        errors_ = process.readAllStandardError();
        return ended ? process.exitCode() : -1;
    }

    QTemporaryDir folder_;
    QByteArray output_, errors_;
};

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
