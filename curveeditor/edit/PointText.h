// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/TableReader.h>
#include <curveeditor/model/SplineBase.h>

#include <QCoreApplication>
#include <QString>

#include <vector>

namespace curveeditor {

/// Points as text, for the clipboard: a table of a head line and one row for each point, which a spreadsheet reads.
///
/// Written are columns separated by tabs, every number in the shortest form that reads back to the same bits, with
/// "." as decimal sign whatever the locale. A type is its word in `PointTypes`.
///
/// Read is what `TableReader` reads: that table, with any of its columns in any order as long as time and value are
/// among them, and a table of two columns, time and value, without a head line or under one with other words.
/// Capitals in the words make no difference.
class PointText
{
    Q_DECLARE_TR_FUNCTIONS(PointText)

public:
    /// More rows are not read.
    static constexpr int maximumRows = 1'000'000;

    /// Either points, ascending in time and without serials, or what is wrong with the text, for the user.
    struct Result
    {
        std::vector<SplineBase::PointInfo> points;
        QString message;          ///< names the line, the first is 1; empty if there are points
        bool isEmpty = false;     ///< that is what is wrong: there is nothing but perhaps a head line
        bool isAmbiguous = false; ///< that is what is wrong: with a decimal sign it can be read in one way
    };

    static QString write(const std::vector<SplineBase::PointInfo>& points);
    /// Any text may be given. What the columns leave open is as in a new `SplineBase::PointInfo`.
    static Result read(const QString& text, TableReader::Decimal decimal = TableReader::Decimal::FromText);

private:
    class Reader;
};

} // namespace curveeditor
