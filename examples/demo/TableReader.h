// SPDX-License-Identifier: MIT
#pragma once

#include "Table.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QIODevice;

/// Reads a text table of UTF-8: the first column is time, each other column a curve.
///
/// Columns stand apart by commas; in a line without commas by tabs or blanks. One separator may end a line.
/// Empty lines and lines that begin with "#" are comments. A first line whose first field is no number names
/// the columns, as "group.curve" or plain; names may be quoted and, where commas or tabs stand between them,
/// hold blanks. Numbers are written as in C, whatever the locale. Times may come in any order. The head of a
/// sensor table is passed over, so that what the editor exports can be read here.
///
/// A table is whole or refused: the first fault ends the reading.
class TableReader
{
    Q_DECLARE_TR_FUNCTIONS(TableReader)

public:
    /// `device` is open for reading, and outlives the reader.
    explicit TableReader(QIODevice& device);

    /// The table, or nothing if it has a fault; `getLine` and `getReason` then tell which. To be called once.
    std::optional<Table> read();

    /// Number of the line with the fault, from 1 on; 0 for a file without lines.
    qint64 getLine() const { return line_; }

    /// What is wrong, for a person to read. Empty after a good read.
    QString getReason() const { return reason_; }

private:
    bool readLine();
    bool takeLine();
    bool takeFirstLine();
    bool takeNames();
    bool takeRow();
    bool takeNumber(std::size_t column, double& number);
    bool split(char separator);
    bool fail(const QString& reason);

    QIODevice& device_;
    QByteArray buffer_;
    std::string_view text_;           // the present line without the white space around it
    std::vector<std::string> fields_; // its columns
    Table table_;
    qint64 line_ = 0;
    QString reason_;
};
