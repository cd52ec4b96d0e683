// SPDX-License-Identifier: MIT
#include <curveeditor/files/SensorTable.h>

#include <QString>
#include <QTextStream>

#include <cmath>

SensorTable::SensorTable(QTextStream& out) : out_(out) {}

void SensorTable::writeHeader(qint64 curves, qint64 lambdas)
{
    out_ << "# KVTR Corvane Sensor Sensibility Data File\n"
            "# file exported with Curve Editor v0.1\n"
            "\n"
            "version \t\t 1.0\n"
            "type \t\t\t cye64\n"
         << QStringLiteral("num_curves \t\t %1\n").arg(curves)
         << QStringLiteral("num_lambdas \t %1\n").arg(lambdas) << '\n';
}

void SensorTable::beginRow(int lambda)
{
    out_ << QString::asprintf("%d,\t", lambda);
}

void SensorTable::addValue(double value)
{
    out_ << QString::asprintf("%lf,\t", std::isnan(value) ? 0.0 : value);
}

void SensorTable::endRow()
{
    out_ << '\n';
}
