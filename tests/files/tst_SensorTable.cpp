// SPDX-License-Identifier: MIT
#include <curveeditor/files/SensorTable.h>

#include <QtTest>

#include <cmath>

class tst_SensorTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writesTheFormatInEveryLocale()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        QString text;
        QTextStream out(&text);
        SensorTable table(out);
        table.writeHeader(4, 1234567);
        table.beginRow(-520);
        for (const double value : {0.25, -1234567.875, std::nan(""), 1e20})
            table.addValue(value);
        table.endRow();
        out.flush();
        QLocale::setDefault(QLocale::c());
        QCOMPARE(text, "# KVTR Corvane Sensor Sensibility Data File\n"
                       "# file exported with Curve Editor v0.1\n"
                       "\n"
                       "version \t\t 1.0\n"
                       "type \t\t\t cye64\n"
                       "num_curves \t\t 4\n"
                       "num_lambdas \t 1234567\n"
                       "\n"
                       "-520,\t0.250000,\t-1234567.875000,\t0.000000,\t100000000000000000000.000000,\t\n");
    }
};

QTEST_MAIN(tst_SensorTable)
#include "tst_SensorTable.moc"
