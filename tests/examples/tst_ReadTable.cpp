// SPDX-License-Identifier: MIT
#include "ReadTable.h"

#include <QtTest>

class tst_ReadTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsBecomeCurvesOfGroups_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("result");
        QTest::newRow("names") << QByteArray("t,Camera.pan,zoom,a.b.c\n2,1,2,3\n")
                               << "Camera/pan Table/zoom a/b.c";
        QTest::newRow("no names") << QByteArray("0 1\n") << "Table/column2";
        QTest::newRow("name twice") << QByteArray("\nt,a,Table.a\n0,1,2\n")
                                    << "2: the name 'Table.a' is there twice";
        QTest::newRow("no group") << QByteArray("t,.a\n0,1\n") << "1: '.a' is no name of a curve";
        QTest::newRow("fault") << QByteArray("0 1\n1 x\n") << "2: 'x' is no number";
    }

    void columnsBecomeCurvesOfGroups()
    {
        QFETCH(QByteArray, text);
        const ReadTable read = readTable(text);
        QStringList names;
        for (const Table::Column& column : read.table.value_or(Table()).columns) {
            names.append(column.group + '/' + column.curve);
            QCOMPARE(column.values, std::vector<double>{double(names.size())});
        }
        QTEST(read.table ? names.join(' ') : read.reason, "result");
        QVERIFY(!read.isAmbiguous && read.reason.isEmpty() == read.table.has_value());
    }

    void decimalSignCanBeGiven()
    {
        QVERIFY(readTable("0\t1,234").isAmbiguous);
        QCOMPARE(readTable("0\t1,234", TableReader::Decimal::Point).table->columns[0].values[0], 1234.0);
    }
};

QTEST_GUILESS_MAIN(tst_ReadTable)
#include "tst_ReadTable.moc"
