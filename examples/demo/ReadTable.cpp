// SPDX-License-Identifier: MIT
#include "ReadTable.h"

#include <curveeditor/files/TextFields.h>

#include <QCoreApplication>
#include <QSet>

#include <string_view>

namespace {

constexpr auto groupOfPlainNames = "Table";

QString fullName(const Table::Column& column)
{
    return column.group + u'.' + column.curve;
}

Table::Column columnNamed(const QString& name)
{
    const qsizetype dot = name.indexOf(u'.');
    return {dot < 0 ? QString(groupOfPlainNames) : name.left(dot), name.mid(dot + 1), {}};
}

// Empty if all are names that curves can have.
QString faultOfNames(const std::vector<Table::Column>& columns)
{
    QSet<QString> known;
    for (const Table::Column& column : columns) {
        const QString name = fullName(column);
        const QString shown = QString::fromStdString(TextFields::inQuotes(name.toStdString()));
        if (column.group.isEmpty() || column.curve.isEmpty())
            return QCoreApplication::translate("ReadTable", "%1 is no name of a curve").arg(shown);
        if (known.contains(name))
            return QCoreApplication::translate("ReadTable", "the name %1 is there twice").arg(shown);
        known.insert(name);
    }
    return QString();
}

} // namespace

ReadTable readTable(const QByteArray& text, TableReader::Decimal decimal)
{
    TableReader reader(std::string_view(text.constData(), std::size_t(text.size())), decimal);
    const std::size_t firstLine = reader.line();
    std::optional<TableReader::Table> read = reader.readAll();
    const TableReader::Fault& fault = reader.fault();
    const auto refused = [](std::size_t line, const QString& reason, bool isAmbiguous = false) {
        return ReadTable{std::nullopt, QStringLiteral("%1: %2").arg(line).arg(reason), isAmbiguous};
    };
    if (!read)
        return refused(fault.line, QString::fromStdString(fault.message()),
                       fault.kind == TableReader::Fault::Kind::Ambiguous);
    Table table;
    table.times = std::move(read->times);
    for (std::size_t i = 0; i < read->columns.size(); ++i) {
        table.columns.push_back(columnNamed(QString::fromStdString(read->names[i + 1])));
        table.columns.back().values = std::move(read->columns[i]);
    }
    const QString wrongName = faultOfNames(table.columns);
    if (!wrongName.isEmpty())
        return refused(firstLine, wrongName);
    return {std::move(table), QString(), false};
}
