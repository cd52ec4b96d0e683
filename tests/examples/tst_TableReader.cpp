// SPDX-License-Identifier: MIT
#include "TableReader.h"

#include <QBuffer>
#include <QtTest>

namespace {

// The table as "time: 0 1; group/curve: 2 3", or why it is refused as "line: reason".
QString readFrom(QByteArray text)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    TableReader reader(buffer);
    const std::optional<Table> table = reader.read();
    if (!table)
        return QStringLiteral("%1: %2").arg(reader.getLine()).arg(reader.getReason());
    const auto numbers = [](const std::vector<double>& values) {
        QString list;
        for (const double value : values)
            list += u' ' + QString::number(value);
        return list;
    };
    QString shown = QStringLiteral("time:") + numbers(table->times);
    for (const Table::Column& column : table->columns)
        shown += QStringLiteral("; %1/%2:").arg(column.group, column.curve) + numbers(column.values);
    return shown;
}

} // namespace

class tst_TableReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatPeopleWriteOrTellsLineAndReason_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("result");
        const auto row = [](const char* name, const QByteArray& text, const char* result) {
            QTest::newRow(name) << text << QString::fromUtf8(result);
        };
        row("blanks", "0 1.5\n 1   -2e3 \n", "time: 0 1; Table/column2: 1.5 -2000");
        row("tabs and CRLF", "0\t1\r\n1\t+2\r\n", "time: 0 1; Table/column2: 1 2");
        row("sensor rows", "520,\t0.25,\t1,\t\n521,\t0.5,\t2,\t",
            "time: 520 521; Table/column2: 0.25 0.5; Table/column3: 1 2");
        row("sensor table",
            "# a\n\nversion\t 1.0\ntype\t cye64\nnum_curves\t 1\nnum_lambdas\t 1\n\n5,\t2,\t\n",
            "time: 5; Table/column2: 2");
        row("comments and empty lines", "# a\n\n0 1\n  # b\n1 2", "time: 0 1; Table/column2: 1 2");
        row("times in any order", "2 20\n0 0\n1 10\n", "time: 0 1 2; Table/column2: 0 10 20");
        row("equal times stay in order", "1 3\n0 0\n1 1\n1 2\n", "time: 0 1 1 1; Table/column2: 0 3 1 2");
        row("names", "time Camera.pan zoom\n0 1 2\n", "time: 0; Camera/pan: 1; Table/zoom: 2");
        row("numbers as names", "nm,1,2.5\n0,1,2\n", "time: 0; Table/1: 1; 2/5: 2");
        row("name with dots", "t,a.b.c\n0,1\n", "time: 0; a/b.c: 1");
        row("blanks in names, commas", ", key light ,Übergang.Größe\n0,1,2",
            "time: 0; Table/key light: 1; Übergang/Größe: 2");
        row("blanks in names, tabs", "t\tkey light\t\tb\t\n0\t1\t2\t\n",
            "time: 0; Table/key light: 1; Table/b: 2");
        row("quotes", "\"t\" ,\"a, \"\"b\"\" c\" , d\n0, \"1\",2",
            "time: 0; Table/a, \"b\" c: 1; Table/d: 2");
        row("byte order mark", "\xEF\xBB\xBF-1,2\n", "time: -1; Table/column2: 2");
        row("extremes", "1e300 -1e-300\n", "time: 1e+300; Table/column2: -1e-300");
        row("empty file", "", "0: the table has no rows");
        row("names alone", "# x\nt a\n\n", "3: the table has no rows");
        row("time alone", "1\n2\n", "1: there is no column beside the time");
        row("short row", "0 1 2\n\n1 2\n", "3: the row has 2 columns instead of 3");
        row("long row", "t a\n1 2 3\n", "2: the row has 3 columns instead of 2");
        row("empty field", "0,1,2\n1,,3\n", "2: column 2 is empty");
        row("decimal comma", "0,5\t1,5\n", "1: column 2: \"5 1\" is not a number");
        row("text", "0 1\n1 2x\n", "2: column 2: \"2x\" is not a number");
        row("hexadecimal", "0 0x10\n", "1: column 2: \"0x10\" is not a number");
        row("two signs", "0 +-1\n", "1: column 2: \"+-1\" is not a number");
        row("not a number", "0 nan\n", "1: column 2: \"nan\" is not a finite number");
        row("infinite time", "inf 1\n", "1: column 1: \"inf\" is not a finite number");
        row("too large", "0 1e999\n", "1: column 2: \"1e999\" is not a finite number");
        row("name twice", "t,a,Table.a\n0,1,2\n", "1: column 3: the name \"Table.a\" is there twice");
        row("no group", "t,.a\n0,1\n", "1: column 2: \".a\" is no name of a curve");
        row("open quotation", "t,\"a\n0,1\n", "1: a quotation mark has no partner");
        row("carriage returns alone", "0 0\r1 1\r", "1: lines have to end in a line feed");
        row("binary", QByteArray("\x89PNG \0\x01\n", 8), "1: the table has no rows");
        row("endless line", QByteArray(20 << 20, '7'), "1: the line is too long");
    }

    void readsWhatPeopleWriteOrTellsLineAndReason()
    {
        QFETCH(QByteArray, text);
        QTEST(readFrom(text), "result");
    }
};

QTEST_GUILESS_MAIN(tst_TableReader)
#include "tst_TableReader.moc"
