// SPDX-License-Identifier: MIT
#include <curveeditor/edit/PointText.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace {

using PointInfo = SplineBase::PointInfo;
using Fields = std::vector<std::string_view>;

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

constexpr std::array<std::string_view, 3> typeNames = {"Linear", "Bezier", "Tcb"};
constexpr std::string_view blanks = " \t";
constexpr qsizetype quotedLength = 20;

std::string_view typeName(std::int32_t type)
{
    return type >= 0 && std::size_t(type) < typeNames.size() ? typeNames[std::size_t(type)] : typeNames[0];
}

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

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// The number that the whole field stands for, infinite where a double can't hold it.
std::optional<double> numberOf(std::string_view field)
{
    std::string text(field);
    std::replace(text.begin(), text.end(), ',', '.'); // two signs are no number any more
    const bool hasPlus = text[0] == '+' && text[1] != '-';
    const char* const end = text.data() + text.size();
    double number = 0.0;
    const auto [rest, error] = std::from_chars(text.data() + (hasPlus ? 1 : 0), end, number);
    if (error == std::errc::invalid_argument || rest != end)
        return std::nullopt;
    return error == std::errc() ? number : std::numeric_limits<double>::infinity();
}

Fields splitAtBlanks(std::string_view line)
{
    Fields fields;
    for (std::size_t end = 0;;) {
        const std::size_t begin = line.find_first_not_of(blanks, end);
        if (begin == std::string_view::npos)
            return fields;
        end = std::min(line.find_first_of(blanks, begin), line.size());
        fields.push_back(line.substr(begin, end - begin));
    }
}

Fields split(std::string_view line, char separator)
{
    if (separator == ' ')
        return splitAtBlanks(line);
    Fields fields;
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(line.find(separator, begin), line.size());
        fields.push_back(trimmed(line.substr(begin, end - begin)));
        if (end == line.size())
            return fields;
        begin = end + 1;
    }
}

char separatorOf(std::string_view line)
{
    for (const char separator : {'\t', ';'}) {
        if (line.find(separator) != std::string_view::npos)
            return separator;
    }
    if (line.find(',') == std::string_view::npos)
        return ' ';
    // In "0,5 1,5" the commas are decimal signs, in "0, 1", "0.5, 1.5" and "0.5,1.5" they separate.
    const Fields fields = splitAtBlanks(line);
    const bool areNumbers = std::all_of(fields.begin(), fields.end(), [](std::string_view field) {
        return field.back() != ',' && numberOf(field).has_value();
    });
    return fields.size() > 1 && areNumbers ? ' ' : ',';
}

void append(std::string& text, double number)
{
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    text.append(digits.data(), end);
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
                text.append(typeName(point.type));
            text.push_back(&column == &columns.back() ? '\n' : '\t');
        }
    }
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

class PointText::Reader
{
public:
    explicit Reader(std::string_view text) : text_(text) {}
    Result read();

private:
    bool nextLine(std::string_view& line);
    bool readHead(const Fields& fields);
    bool readRow(const Fields& fields);
    bool readField(std::string_view field, const Column& column, PointInfo& point);
    bool fail(const QString& what);
    bool fail(const QString& what, std::string_view field);

    std::string_view text_;
    std::size_t place_ = 0;
    int line_ = 0;
    std::vector<const Column*> columns_;
    Result result_;
};

PointText::Result PointText::read(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::string_view view(bytes.data(), std::size_t(bytes.size()));
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (view.substr(0, byteOrderMark.size()) == byteOrderMark)
        view.remove_prefix(byteOrderMark.size());
    return Reader(view).read();
}

PointText::Result PointText::Reader::read()
{
    char separator = 0;
    std::string_view line;
    bool isFine = true;
    while (isFine && nextLine(line)) {
        const bool isFirst = columns_.empty();
        if (isFirst)
            separator = separatorOf(line);
        const Fields fields = split(line, separator);
        const bool isHead = isFirst && std::none_of(fields.begin(), fields.end(), [](std::string_view field) {
                                return numberOf(field).has_value();
                            });
        if (isFirst && !isHead)
            columns_ = {columns.data(), columns.data() + 1};
        isFine = isHead ? readHead(fields) : readRow(fields);
    }
    if (isFine && result_.points.empty())
        result_.message = tr("The text holds no points.");
    if (!result_.message.isEmpty())
        result_.points.clear();
    std::stable_sort(result_.points.begin(), result_.points.end(),
                     [](const PointInfo& left, const PointInfo& right) { return left.time < right.time; });
    return std::move(result_);
}

/// The next line that holds anything.
bool PointText::Reader::nextLine(std::string_view& line)
{
    while (place_ < text_.size()) {
        const std::size_t end = std::min(text_.find_first_of("\r\n", place_), text_.size());
        line = text_.substr(place_, end - place_);
        place_ = end + (text_.substr(end, 2) == "\r\n" ? 2 : 1);
        ++line_;
        if (!trimmed(line).empty())
            return true;
    }
    return false;
}

bool PointText::Reader::readHead(const Fields& fields)
{
    const Column* unknown = nullptr;
    for (const std::string_view field : fields)
        columns_.push_back(columnOf(field));
    const bool areWords =
        std::count(columns_.begin(), columns_.end(), unknown) == std::ptrdiff_t(fields.size());
    if (areWords && fields.size() == 2) {
        columns_ = {columns.data(), columns.data() + 1};
        return true;
    }
    for (std::size_t index = 0; index < fields.size(); ++index) {
        if (!columns_[index])
            return fail(tr("\"%1\" is no column of points."), fields[index]);
        if (std::count(columns_.begin(), columns_.end(), columns_[index]) > 1)
            return fail(tr("The column \"%1\" is there twice."), fields[index]);
    }
    for (const Column* const needed : {columns.data(), columns.data() + 1}) {
        if (std::find(columns_.begin(), columns_.end(), needed) == columns_.end())
            return fail(tr("The column \"%1\" is missing."), needed->name);
    }
    return true;
}

bool PointText::Reader::readRow(const Fields& fields)
{
    if (fields.size() != columns_.size())
        return fail(tr("Not %2 but %1 numbers.").arg(fields.size()).arg(columns_.size()));
    if (result_.points.size() == std::size_t(maximumRows))
        return fail(tr("More than %1 points.").arg(maximumRows));
    PointInfo point;
    for (std::size_t index = 0; index < fields.size(); ++index) {
        if (!readField(fields[index], *columns_[index], point))
            return false;
    }
    result_.points.push_back(point);
    return true;
}

bool PointText::Reader::readField(std::string_view field, const Column& column, PointInfo& point)
{
    if (!column.member) {
        const auto* const found = std::find_if(typeNames.begin(), typeNames.end(),
                                               [field](auto name) { return isSameWord(name, field); });
        point.type = std::int32_t(found - typeNames.begin());
        return found != typeNames.end() || fail(tr("\"%1\" is no type of a point."), field);
    }
    const std::optional<double> number = numberOf(field);
    if (!number || !std::isfinite(*number))
        return fail(tr("\"%1\" is no number that a point can have."), field);
    point.*column.member = *number;
    return true;
}

bool PointText::Reader::fail(const QString& what)
{
    result_.message = tr("Line %1: %2").arg(line_).arg(what);
    return false;
}

bool PointText::Reader::fail(const QString& what, std::string_view field)
{
    QString quoted =
        QString::fromUtf8(field.data(), qsizetype(std::min(field.size(), std::size_t(quotedLength) * 4)));
    std::replace_if(
        quoted.begin(), quoted.end(), [](QChar letter) { return !letter.isPrint(); }, QChar(u'?'));
    if (quoted.size() > quotedLength)
        quoted = quoted.left(quotedLength) + QStringLiteral("...");
    return fail(what.arg(quoted));
}
