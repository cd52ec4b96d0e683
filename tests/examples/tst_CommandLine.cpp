// SPDX-License-Identifier: MIT
#include "ReadTable.h"

#include <support/Files.h>
#include <support/Test.h>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faultEndsWithOneAndItsReason_data()
    {
        const Rows<QStringList, QString> row;
        const QString b = path("b");
        row("text", {written(path("a"), "# a\n0 1\n1 x\n")}, path("a:3: 'x' is no number"));
        row("two readings", {written(path("pairs"), "1,5\n2,5\n"), "--export", b},
            path("pairs:1: '1,5' can be read in two ways: the comma may be the decimal sign or not; say "
                 "--decimal comma or --decimal point"));
        row("no such sign", {"--decimal", "dot", "a", "--export", b}, "\"dot\" is neither comma nor point.");
        row("no file", {path("missing")}, path("missing: No such file or directory"));
        row("two tables", {"a", "b"}, "Only one table can be opened.");
        row("unknown option", {"--picture", "a"}, "Unknown option 'picture'.");
        row("unknown curve", {"--open", "Camera.none", "--export", b}, "named \"Camera.none\"");
        row("unknown language", {"--language", "xx", "--export", b}, "no translation into \"xx\"");
        row("no tolerance", {"--simplify", "x", "a", "--export", b}, "\"x\" is no tolerance");
        row("tolerance below 0", {"--simplify", "-1", "a", "--export", b}, "\"-1\" is no tolerance");
        row("endless tolerance", {"--simplify", "inf", "a", "--export", b}, "\"inf\" is no tolerance");
        row("nothing to simplify", {"--simplify", "1", "--export", b}, "To simplify takes a table.");
        row("picture nowhere", {"--screenshot", path("none/a.png")}, path("none/a.png: No such"));
        row("table nowhere", {"--export", path("none/a.txt")}, path("none/a.txt: No such"));
    }

    void faultEndsWithOneAndItsReason()
    {
        const auto [arguments, reason] = Rows<QStringList, QString>::present();
        QCOMPARE(run(arguments), 1);
        QVERIFY2(errors_.contains(reason) && !QFile::exists(path("b")), qPrintable(errors_));
    }

    void screenshotShowsTheCurves()
    {
        // The samples or a table, and the hue of the current curve, which the look keeps.
        for (const auto& [table, hue] :
             {std::pair("", 47), {"380 1000\n780 1001\n", 222}, {"-1e300 -1e300\n1e300 1e300\n", 222}}) {
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

    void exportedTableReadsBack()
    {
        const QString name = written(path("table"), "nm,a,b.c\n2,0.5,-1\n0,0,3\n");
        QCOMPARE(run({name, "--export", path("out.txt")}), 0);
        const QByteArray exported = contentOf(path("out.txt"));
        QVERIFY2(exported.endsWith("\n\n0,\t0.000000,\t3.000000,\t\n"
                                   "1,\t0.250000,\t1.000000,\t\n"
                                   "2,\t0.500000,\t-1.000000,\t\n"),
                 exported);
        QCOMPARE(run({path("out.txt"), "--export", path("again.txt")}), 0);
        QCOMPARE(contentOf(path("again.txt")), exported);
        const QString pairs = written(path("pairs"), "0,7\n1,8\n");
        QCOMPARE(run({pairs, "--decimal", "point", "--export", path("out.txt")}), 0);
        QVERIFY(contentOf(path("out.txt")).contains("1,\t8.000000"));
        QCOMPARE(
            run({written(path("comma"), "0;1,234\n"), "--decimal", "comma", "--export", path("out.txt")}), 0);
        QVERIFY(contentOf(path("out.txt")).contains("0,\t1.234000"));
    }

    void tableIsSimplifiedWithinTheTolerance()
    {
        const QString name = written(path("table"), "0 0\n1 1\n2 0\n3 1\n4 0\n5 1\n6 0\n");
        QList<QByteArray> tables;
        for (const char* const percent : {"0", "20", "100"}) {
            QCOMPARE(run({name, "--simplify", percent, "--export", path("out.txt")}), 0);
            tables.append(contentOf(path("out.txt")));
        }
        QVERIFY(tables[0] == tables[1] && tables[1] != tables[2] && tables[0].contains("3,\t1.000000"));
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
        errors_ = QString::fromUtf8(process.readAllStandardError());
        return ended ? process.exitCode() : -1;
    }

    QTemporaryDir folder_;
    QString errors_;
};

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
