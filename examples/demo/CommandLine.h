// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/files/TableReader.h>

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

/// What the demo was asked for on its command line.
class CommandLine
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    /// Reads the arguments of the application. Prints help, version or a fault, and ends the process, where
    /// they ask for that.
    explicit CommandLine(const QCoreApplication& application);

    /// Whether these arguments ask for files alone, so that no display is needed.
    static bool needsNoDisplay(int argc, const char* const* argv);

    /// Whether the demo ends after it has written files.
    bool isBatch() const { return !screenshotFile.isEmpty() || !exportFile.isEmpty(); }

    QString tableFile; ///< empty for the sample curves
    QStringList names; ///< groups and full names of curves to open; empty for the demo's own choice
    std::optional<double> simplifyPercent;                         ///< tolerance for the columns of the table
    TableReader::Decimal decimal = TableReader::Decimal::FromText; ///< decimal sign of the table
    QString language; ///< of the editor, as in "de"; empty for English
    QString screenshotFile;
    QString exportFile;

private:
    static TableReader::Decimal decimalNamed(const QString& name);
    static double toleranceOf(const QString& text, const QString& table);
};
