// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr const char* screenshotOption = "screenshot";
constexpr const char* exportOption = "export";
constexpr const char* openOption = "open";
constexpr const char* languageOption = "language";
constexpr const char* simplifyOption = "simplify";
constexpr const char* decimalOption = "decimal";

[[noreturn]] void refuse(const QString& reason)
{
    std::fprintf(stderr, "%s\n", qPrintable(reason));
    std::exit(EXIT_FAILURE);
}

} // namespace

CommandLine::CommandLine(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        tr("Edits the sample curves of a film scene, or the columns of a table."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(
        "TABLE", tr("Text table: the first column is time, each other column a curve."), "[TABLE]");
    parser.addOptions({
        {screenshotOption, tr("Draw the editor into a PNG file, without a display, and end."), "FILE"},
        {exportOption, tr("Write the curves on the canvas as a table of samples and end."), "FILE"},
        {openOption, tr("Open this curve, or all curves of this group. May be given several times."), "NAME"},
        {simplifyOption,
         tr("Load each column of the table as few points, at most this far from its values: percent of their "
            "span."),
         "TOLERANCE"},
        {decimalOption, tr("The decimal sign of the table: comma or point."), "SIGN"},
        {languageOption, tr("Show the editor in this language: de, en, es, fr or ja."), "LANGUAGE"},
    });
    parser.process(application);

    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        refuse(tr("Only one table can be opened."));
    tableFile = files.value(0);
    names = parser.values(openOption);
    if (parser.isSet(simplifyOption))
        simplifyPercent = toleranceOf(parser.value(simplifyOption), tableFile);
    if (parser.isSet(decimalOption))
        decimal = decimalNamed(parser.value(decimalOption));
    language = parser.value(languageOption);
    screenshotFile = parser.value(screenshotOption);
    exportFile = parser.value(exportOption);
}

TableReader::Decimal CommandLine::decimalNamed(const QString& name)
{
    if (name != QLatin1String("comma") && name != QLatin1String("point"))
        refuse(tr("\"%1\" is neither comma nor point.").arg(name));
    return name == QLatin1String("comma") ? TableReader::Decimal::Comma : TableReader::Decimal::Point;
}

double CommandLine::toleranceOf(const QString& text, const QString& table)
{
    bool isNumber = false;
    const double percent = text.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(percent) || percent < 0.0)
        refuse(tr("\"%1\" is no tolerance in percent.").arg(text));
    if (table.isEmpty())
        refuse(tr("To simplify takes a table."));
    return percent;
}

bool CommandLine::needsNoDisplay(int argc, const char* const* argv)
{
    const auto asksForFile = [](const char* argument) {
        return std::strncmp(argument, "--screenshot", 12) == 0 || std::strncmp(argument, "--export", 8) == 0;
    };
    return std::any_of(argv + 1, argv + argc, asksForFile);
}
