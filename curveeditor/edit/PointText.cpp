// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointText.h>

#include <curveeditor/files/TextFields.h>
#include <curveeditor/model/PointTypes.h>
#include <curveeditor/model/SplineState.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

namespace curveeditor {

namespace {

using PointInfo = SplineBase::PointInfo;
using Kind = TableReader::Fault::Kind;

/// A column of the table; the one without a member holds the type.
struct Column
{
    std::string_view name;
    double PointInfo::*member;
};

constexpr std::array<Column, 10> columns = {{{"time", &PointInfo::time},
                                             {"value", &PointInfo::pos},
                                             {"type", nullptr},
                                             {"incoming", &PointInfo::tanLeft},
                                             {"outgoing", &PointInfo::tanRight},
                                             {"tension", &PointInfo::tension},
                                             {"continuity", &PointInfo::continuity},
                                             {"bias", &PointInfo::bias},
                                             {"easeTo", &PointInfo::easeTo},
                                             {"easeFrom", &PointInfo::easeFrom}}};

constexpr qsizetype quotedLength = 20;

char lowerLetter(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? char(letter - 'A' + 'a') : letter;
}

bool isSameWord(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return lowerLetter(a) == lowerLetter(b); });
}

const Column* columnOf(std::string_view name)
{
    const auto* const found = std::find_if(columns.begin(), columns.end(), [name](const Column& column) {
        return isSameWord(column.name, name);
    });
    return found == columns.end() ? nullptr : found;
}

void append(std::string& text, double number)
{
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), end);
}

QString shown(std::string_view field)
{
    QString quoted =
        QString::fromUtf8(field.data(), qsizetype(std::min(field.size(), std::size_t(quotedLength) * 4)));
    std::replace_if(
        quoted.begin(), quoted.end(), [](QChar letter) { return !letter.isPrint(); }, QChar(u'?'));
    return quoted.size() > quotedLength ? quoted.left(quotedLength) + QStringLiteral("...") : quoted;
}

} // namespace

QString PointText::write(const std::vector<PointInfo>& points)
{
    std::string text;
    for (const Column& column : columns)
        text.append(column.name).push_back(&column == &columns.back() ? '\n' : '\t');
    for (const PointInfo& point : points) {
        for (const Column& column : columns) {
            if (column.member)
                append(text, point.*column.member);
            else
                text.append(PointTypes::of(point.type).word);
            text.push_back(&column == &columns.back() ? '\n' : '\t');
        }
    }
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

class PointText::Reader
{
public:
    Reader(std::string_view text, TableReader::Decimal decimal) : table_(text, decimal) {}
    Result read();

private:
    bool readHead();
    bool readRow();
    bool readField(std::size_t index, PointInfo& point);
    bool fail(const QString& what);
    bool fail(const QString& what, std::string_view field);
    void tellFault();
    QString faultText() const;
    static QString noNumber(std::string_view field);

    TableReader table_;
    std::vector<const Column*> columns_;
    Result result_;
};

PointText::Result PointText::read(const QString& text, TableReader::Decimal decimal)
{
    const QByteArray bytes = text.toUtf8();
    return Reader({bytes.constData(), std::size_t(bytes.size())}, decimal).read();
}

PointText::Result PointText::Reader::read()
{
    const bool isFine = readHead();
    while (isFine && table_.next() && readRow()) {
    }
    tellFault();
    if (!result_.message.isEmpty())
        result_.points.clear();
    std::stable_sort(result_.points.begin(), result_.points.end(), isEarlierPoint);
    return std::move(result_);
}

bool PointText::Reader::readHead()
{
    const std::vector<std::string>& names = table_.names();
    const std::vector<const Column*> timeAndValue = {columns.data(), columns.data() + 1};
    std::transform(names.begin(), names.end(), std::back_inserter(columns_), columnOf);
    const Column* const unknown = nullptr;
    const bool knowsNone =
        std::count(columns_.begin(), columns_.end(), unknown) == std::ptrdiff_t(names.size());
    if (!table_.hasHead() || (knowsNone && names.size() == 2)) {
        columns_ = timeAndValue;
        const bool isRow = table_.hasHead() && TextFields::number(names[1]);
        return !isRow || fail(noNumber(names[0]));
    }
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (!columns_[index])
            return fail(tr("\"%1\" is no column of points."), names[index]);
        if (std::count(columns_.begin(), columns_.end(), columns_[index]) > 1)
            return fail(tr("The column \"%1\" is there twice."), names[index]);
    }
    for (const Column* const needed : timeAndValue) {
        if (std::find(columns_.begin(), columns_.end(), needed) == columns_.end())
            return fail(tr("The column \"%1\" is missing."), needed->name);
    }
    return true;
}

bool PointText::Reader::readRow()
{
    if (table_.fields().size() != columns_.size())
        return fail(tr("Numbers expected: %2, found: %1.").arg(table_.fields().size()).arg(columns_.size()));
    if (result_.points.size() == std::size_t(maximumRows))
        return fail(tr("More than %1 points.").arg(maximumRows));
    PointInfo point;
    for (std::size_t index = 0; index < columns_.size(); ++index) {
        if (!readField(index, point))
            return false;
    }
    result_.points.push_back(point);
    return true;
}

bool PointText::Reader::readField(std::size_t index, PointInfo& point)
{
    const Column& column = *columns_[index];
    if (column.member) {
        const std::optional<double> number = table_.number(index);
        point.*column.member = number.value_or(0.0);
        return number.has_value();
    }
    const std::string& word = table_.fields()[index];
    for (const PointType& type : PointTypes::all()) {
        if (isSameWord(type.word, word)) {
            point.type = type.number;
            return true;
        }
    }
    return fail(tr("\"%1\" is no type of a point."), word);
}

void PointText::Reader::tellFault()
{
    const TableReader::Fault& fault = table_.fault();
    if (fault.kind == Kind::None || !result_.message.isEmpty())
        return;
    result_.isAmbiguous = fault.kind == Kind::Ambiguous;
    result_.isEmpty = fault.kind == Kind::NoRows;
    if (result_.isEmpty)
        result_.message = tr("The text holds no points.");
    else
        result_.message = tr("Line %1: %2").arg(fault.line).arg(faultText());
}

QString PointText::Reader::faultText() const
{
    const TableReader::Fault& fault = table_.fault();
    switch (fault.kind) {
    case Kind::Ambiguous:
        return tr("\"%1\" can be read in two ways.").arg(shown(fault.field));
    case Kind::FieldCount:
    case Kind::CurveCount:
        return tr("Numbers expected: %2, found: %1.").arg(fault.count).arg(fault.expected);
    case Kind::RowCount:
        return tr("Rows expected: %2, found: %1.").arg(fault.count).arg(fault.expected);
    case Kind::Quotation:
        return tr("A quotation mark has no partner.");
    case Kind::LongLine:
        return tr("The line is too long.");
    default:
        return noNumber(fault.field);
    }
}

QString PointText::Reader::noNumber(std::string_view field)
{
    return tr("\"%1\" is no number that a point can have.").arg(shown(field));
}

bool PointText::Reader::fail(const QString& what)
{
    result_.message = tr("Line %1: %2").arg(table_.line()).arg(what);
    return false;
}

bool PointText::Reader::fail(const QString& what, std::string_view field)
{
    return fail(what.arg(shown(field)));
}

} // namespace curveeditor
