// SPDX-License-Identifier: MIT
#include "TableReader.h"

#include <QFileDevice>
#include <QSet>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <string_view>

namespace {

constexpr qint64 longestLine = 16 << 20;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t mostValues = 10'000'000;
constexpr std::size_t longestQuote = 40;
constexpr auto groupOfPlainNames = "Table";

bool isWhiteSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool contains(std::string_view text, char c)
{
    return text.find(c) != std::string_view::npos;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::from_chars_result parseNumber(std::string_view text, double& number)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc() && result.ptr != text.data() + text.size())
        result.ec = std::errc::invalid_argument;
    return result;
}

bool isNumber(std::string_view text)
{
    double number = 0.0;
    return parseNumber(text, number).ec != std::errc::invalid_argument;
}

bool isHeadOfSensorTable(const std::vector<std::string>& fields)
{
    constexpr std::string_view keys[] = {"version", "type", "num_curves", "num_lambdas"};
    return fields.size() == 2 && std::find(std::begin(keys), std::end(keys), fields[0]) != std::end(keys);
}

QString quoted(std::string_view text)
{
    QString shown = QString::fromUtf8(text.data(), qsizetype(std::min(text.size(), longestQuote)));
    for (QChar& c : shown) {
        if (!c.isPrint())
            c = c.isSpace() ? u' ' : u'?';
    }
    return QStringLiteral("\"%1%2\"")
        .arg(shown, text.size() > longestQuote ? QStringLiteral("...") : QString());
}

void permute(std::vector<double>& values, const std::vector<std::size_t>& order)
{
    std::vector<double> permuted(values.size());
    std::transform(order.begin(), order.end(), permuted.begin(), [&](std::size_t i) { return values[i]; });
    values = std::move(permuted);
}

void sortByTime(Table& table)
{
    if (std::is_sorted(table.times.begin(), table.times.end()))
        return;
    std::vector<std::size_t> order(table.times.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return table.times[a] < table.times[b]; });
    permute(table.times, order);
    for (Table::Column& column : table.columns)
        permute(column.values, order);
}

} // namespace

TableReader::TableReader(QIODevice& device) : device_(device), buffer_(longestLine + 2, '\0') {}

std::optional<Table> TableReader::read()
{
    while (readLine()) {
        if (!text_.empty() && text_.front() != '#' && !takeLine())
            return std::nullopt;
    }
    if (reason_.isEmpty() && table_.times.empty())
        fail(tr("the table has no rows"));
    if (!reason_.isEmpty())
        return std::nullopt;
    sortByTime(table_);
    return std::move(table_);
}

// False at the end of the file and after a fault.
bool TableReader::readLine()
{
    const qint64 length = device_.readLine(buffer_.data(), buffer_.size());
    if (length <= 0) {
        const auto* file = qobject_cast<QFileDevice*>(&device_);
        return file && file->error() != QFileDevice::NoError ? fail(file->errorString()) : false;
    }
    ++line_;
    text_ = std::string_view(buffer_.constData(), std::size_t(length));
    if (length > longestLine)
        return fail(tr("the line is too long"));
    if (line_ == 1 && text_.substr(0, byteOrderMark.size()) == byteOrderMark)
        text_.remove_prefix(byteOrderMark.size());
    text_ = trimmed(text_);
    return !contains(text_, '\r') || fail(tr("lines have to end in a line feed"));
}

bool TableReader::takeLine()
{
    if (table_.columns.empty())
        return takeFirstLine();
    return split(contains(text_, ',') ? ',' : ' ') && takeRow();
}

bool TableReader::takeFirstLine()
{
    if (!split(contains(text_, ',') ? ',' : ' '))
        return false;
    if (isHeadOfSensorTable(fields_))
        return true;
    const bool isRow = isNumber(fields_[0]);
    if (!isRow && !contains(text_, ',') && contains(text_, '\t'))
        split('\t');
    if (fields_.size() < 2)
        return fail(tr("there is no column beside the time"));

    table_.columns.resize(fields_.size() - 1);
    if (!isRow)
        return takeNames();
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        table_.columns[i].group = groupOfPlainNames;
        table_.columns[i].curve = QStringLiteral("column%1").arg(i + 2);
    }
    return takeRow();
}

bool TableReader::takeNames()
{
    QSet<QString> known;
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        const QString name = QString::fromStdString(fields_[i + 1]);
        const qsizetype dot = name.indexOf(u'.');
        Table::Column& column = table_.columns[i];
        column.group = dot < 0 ? QString(groupOfPlainNames) : name.left(dot);
        column.curve = name.mid(dot + 1);
        if (column.group.isEmpty() || column.curve.isEmpty())
            return fail(tr("column %1: %2 is no name of a curve").arg(i + 2).arg(quoted(fields_[i + 1])));
        const QString fullName = column.group + u'.' + column.curve;
        if (known.contains(fullName))
            return fail(tr("column %1: the name %2 is there twice").arg(i + 2).arg(quoted(fields_[i + 1])));
        known.insert(fullName);
    }
    return true;
}

bool TableReader::takeRow()
{
    const std::size_t columns = table_.columns.size() + 1;
    if (fields_.size() != columns)
        return fail(tr("the row has %1 columns instead of %2").arg(fields_.size()).arg(columns));
    if ((table_.times.size() + 1) * table_.columns.size() > mostValues)
        return fail(tr("the table has more than %1 values").arg(mostValues));

    double number = 0.0;
    if (!takeNumber(0, number))
        return false;
    table_.times.push_back(number);
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        if (!takeNumber(i + 1, number))
            return false;
        table_.columns[i].values.push_back(number);
    }
    return true;
}

bool TableReader::takeNumber(std::size_t column, double& number)
{
    const std::string& field = fields_[column];
    if (field.empty())
        return fail(tr("column %1 is empty").arg(column + 1));
    const auto result = parseNumber(field, number);
    if (result.ec == std::errc::invalid_argument)
        return fail(tr("column %1: %2 is not a number").arg(column + 1).arg(quoted(field)));
    if (result.ec != std::errc() || !std::isfinite(number))
        return fail(tr("column %1: %2 is not a finite number").arg(column + 1).arg(quoted(field)));
    return true;
}

// Fills fields_ from text_. A blank as separator stands for a run of white space, a tab for a run of tabs.
bool TableReader::split(char separator)
{
    fields_.clear();
    std::string_view rest = text_;
    const auto isSeparator = [&](char c) {
        return separator == ' ' ? isWhiteSpace(c) : c == separator;
    };
    while (!rest.empty()) {
        std::string field;
        if (rest.front() == '"') {
            std::size_t i = 1;
            for (; i < rest.size() && (rest[i] != '"' || (i + 1 < rest.size() && rest[i + 1] == '"')); ++i) {
                i += rest[i] == '"';
                field += rest[i];
            }
            if (i == rest.size())
                return fail(tr("a quotation mark has no partner"));
            rest.remove_prefix(i + 1);
        }
        const auto end = std::size_t(std::find_if(rest.begin(), rest.end(), isSeparator) - rest.begin());
        field += trimmed(rest.substr(0, end));
        fields_.push_back(std::move(field));
        rest = trimmed(rest.substr(std::min(end + 1, rest.size())));
    }
    return true;
}

bool TableReader::fail(const QString& reason)
{
    reason_ = reason;
    return false;
}
