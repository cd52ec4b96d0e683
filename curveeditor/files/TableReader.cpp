// SPDX-License-Identifier: MIT
#include <curveeditor/files/TableReader.h>

#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

using Decimal = TableReader::Decimal;
using Kind = TableReader::Fault::Kind;
using TextFields::split;
using TextFields::trimmed;

namespace {

bool isDecimalDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool contains(std::string_view text, char c)
{
    return text.find(c) != text.npos;
}

/// "1,234" and "-12,345,678.9": a comma before every third digit, and no other.
bool isGrouped(std::string_view field)
{
    if (!field.empty() && (field[0] == '+' || field[0] == '-'))
        field.remove_prefix(1);
    const std::size_t first = std::min(field.find(','), field.size());
    if (first < 1 || first > 3 || field[0] == '0')
        return false;
    std::size_t place = first;
    while (place < field.size() && field[place] == ',') {
        const std::string_view group = field.substr(place + 1, 3);
        if (group.size() != 3 || !std::all_of(group.begin(), group.end(), isDecimalDigit))
            return false;
        place += 4;
    }
    return place > first && (place >= field.size() || !isDecimalDigit(field[place]));
}

std::optional<double> numberOf(std::string_view field, Decimal decimal)
{
    if (decimal == Decimal::Comma && (contains(field, '.') || (!field.empty() && field.back() == ',')))
        return std::nullopt;
    if (!contains(field, ','))
        return TextFields::number(field);
    std::string plain(field);
    if (decimal == Decimal::Comma)
        std::replace(plain.begin(), plain.end(), ',', '.'); // several signs are no number
    else if (isGrouped(field))
        plain.erase(std::remove(plain.begin(), plain.end(), ','), plain.end());
    return TextFields::number(plain);
}

/// What the commas of the field are; `FromText` if they can be either, nothing if it holds none or is no number.
std::optional<Decimal> decimalOf(std::string_view field)
{
    if (!contains(field, ','))
        return std::nullopt;
    const bool canBeComma = numberOf(field, Decimal::Comma).has_value();
    const bool canBePoint = numberOf(field, Decimal::Point).has_value();
    if (canBeComma && canBePoint)
        return Decimal::FromText;
    return canBeComma   ? std::optional(Decimal::Comma)
           : canBePoint ? std::optional(Decimal::Point)
                        : std::nullopt;
}

bool isNumber(std::string_view field, Decimal decimal)
{
    const auto canBe = [field](Decimal sign) {
        return numberOf(field, sign).has_value();
    };
    return decimal == Decimal::FromText ? canBe(Decimal::Comma) || canBe(Decimal::Point) : canBe(decimal);
}

/// A faulty number names no column.
bool beginsLikeNumber(std::string_view field)
{
    const std::size_t first = std::min(field.find_first_not_of("+-.,"), field.size());
    return first < field.size() && isDecimalDigit(field[first]);
}

/// One number with a decimal comma, or two whole ones.
bool isPairOrNumber(std::string_view line)
{
    const std::size_t comma = line.find(',');
    return comma != line.npos && comma > 0 && comma + 1 < line.size() && isDecimalDigit(line[comma - 1]) &&
           isDecimalDigit(line[comma + 1]) && numberOf(line, Decimal::Comma);
}

/// True if the sign stands in the line outside quotation marks.
bool holds(std::string_view line, char sign)
{
    bool isQuoted = false;
    return std::any_of(line.begin(), line.end(), [&](char c) {
        isQuoted ^= c == '"';
        return c == sign && !isQuoted;
    });
}

/// The comma or semicolon before each tab, if it is there; else the tab.
char separatorBeforeTabs(std::string_view line)
{
    char sign = 0;
    for (std::size_t tab = line.find('\t'); tab != line.npos; tab = line.find('\t', tab + 1)) {
        const std::string_view before = trimmed(line.substr(0, tab));
        const char last = before.empty() ? '\t' : before.back();
        if ((last != ',' && last != ';') || (sign != 0 && last != sign))
            return '\t';
        sign = last;
    }
    return sign;
}

template <typename Value> void permute(std::vector<Value>& values, const std::vector<std::size_t>& order)
{
    std::vector<Value> permuted(values.size());
    std::transform(order.begin(), order.end(), permuted.begin(), [&](std::size_t i) { return values[i]; });
    values = std::move(permuted);
}

void sortByTime(TableReader::Table& table)
{
    const std::vector<double>& times = table.times;
    if (std::is_sorted(times.begin(), times.end()))
        return;
    std::vector<std::size_t> order(times.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::stable_sort(order.begin(), order.end(),
                     [&times](std::size_t a, std::size_t b) { return times[a] < times[b]; });
    for (std::vector<double>& column : table.columns)
        permute(column, order);
    permute(table.lines, order);
    permute(table.times, order);
}

/// The lines of a text that hold anything.
class TableLines
{
public:
    explicit TableLines(std::string_view text) : rest_(TextFields::withoutByteOrderMark(text)) {}

    bool next()
    {
        while (!rest_.empty()) {
            line_ = TextFields::takeLine(rest_);
            ++number_;
            const std::string_view content = trimmed(line_);
            if (!content.empty() && content.front() != '#')
                return true;
        }
        return false;
    }

    std::string_view line() const { return line_; }
    std::size_t number() const { return number_; }
    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
    std::string_view line_;
    std::size_t number_ = 0;
};

} // namespace

class TableReader::Private
{
public:
    Private(std::string_view text, Decimal decimal)
        : size_(text.size()), firstRow_(text), lines_(text), decimal_(decimal)
    {
        readFirstLine();
        if (decimal_ == Decimal::FromText && !isFaulty())
            findDecimal();
        lines_ = firstRow_;
    }

    bool next()
    {
        if (isFaulty())
            return false;
        if (!nextLine()) {
            checkWhole();
            return false;
        }
        ++rows_;
        return splitLine() &&
               (fields_.size() == names_.size() || fail(Kind::FieldCount, {}, fields_.size(), names_.size()));
    }

    std::optional<double> number(std::size_t column)
    {
        const std::string& field = fields_[column];
        const std::optional<double> number = numberOf(field, decimal_);
        if (!number)
            fail(Kind::NoNumber, field);
        else if (!std::isfinite(*number))
            fail(Kind::NotFinite, field);
        return isFaulty() ? std::nullopt : number;
    }

    bool takeRow(Table& table)
    {
        if (table.columns.empty() && names_.size() < 2)
            return fail(Kind::NoValues);
        table.columns.resize(names_.size() - 1);
        if ((table.times.size() + 1) * table.columns.size() > mostValues)
            return fail(Kind::TooManyValues, {}, mostValues);
        for (std::size_t column = 0; column < names_.size(); ++column) {
            const std::optional<double> value = number(column);
            if (!value)
                return false;
            (column == 0 ? table.times : table.columns[column - 1]).push_back(*value);
        }
        table.lines.push_back(lines_.number());
        return true;
    }

    bool isFaulty() const { return fault_.kind != Kind::None; }

    /// At the present line.
    bool fail(Kind kind, std::string_view field = {}, std::size_t count = 0, std::size_t expected = 0)
    {
        fault_ = {kind, std::max(lines_.number(), std::size_t(1)), std::string(field), count, expected};
        return false;
    }

    std::size_t size_;
    TableLines firstRow_; // stands before it
    TableLines lines_;
    Decimal decimal_;
    char separator_ = ' ';
    bool hasHead_ = false;
    std::vector<std::string> names_;
    std::vector<std::string> fields_;
    std::size_t rows_ = 0;
    std::optional<std::size_t> announcedRows_;
    std::optional<std::size_t> announcedCurves_;
    Fault fault_;

private:
    bool nextLine() { return lines_.next() && (lines_.line().size() <= longestLine || fail(Kind::LongLine)); }

    bool splitLine() { return split(lines_.line(), separator_, fields_) || fail(Kind::Quotation); }

    void readFirstLine()
    {
        do {
            firstRow_ = lines_;
            if (!nextLine())
                return;
        } while (takesAnnouncement());
        separator_ = separator();
        if (isFaulty() || !splitLine())
            return;
        hasHead_ = !isNumber(fields_[0], decimal_) && !beginsLikeNumber(fields_[0]);
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            const bool isNamed = hasHead_ && !fields_[i].empty();
            names_.push_back(isNamed ? fields_[i] : "column" + std::to_string(i + 1));
        }
        if (hasHead_)
            firstRow_ = lines_;
    }

    /// A line of the head of a sensor table.
    bool takesAnnouncement()
    {
        if (!split(lines_.line(), ' ', fields_) || fields_.size() != 2)
            return false;
        if (fields_[0] == "num_lambdas")
            return takesCount(announcedRows_);
        if (fields_[0] == "num_curves")
            return takesCount(announcedCurves_);
        return fields_[0] == "version" || fields_[0] == "type";
    }

    bool takesCount(std::optional<std::size_t>& count)
    {
        const double number = TextFields::number(fields_[1]).value_or(-1.0);
        if (!(number >= 0.0 && number <= double(mostValues) && number == std::floor(number)))
            return fail(Kind::NoNumber, fields_[1]);
        count = std::size_t(number);
        return true;
    }

    char separator()
    {
        const std::string_view line = lines_.line();
        if (holds(line, '\t'))
            return separatorBeforeTabs(line);
        if (holds(line, ';'))
            return ';';
        if (!holds(line, ','))
            return ' ';
        if (!split(line, ' ', fields_))
            return ',';
        // In "0,5 1,5" the commas are decimal signs, in "0, 1", "0.5, 1.5" and "0.5,1.5" they separate.
        const bool areNumbers = std::all_of(fields_.begin(), fields_.end(),
                                            [this](const auto& field) { return isNumber(field, decimal_); });
        const bool canBeOne = decimal_ == Decimal::Comma;
        return areNumbers && (fields_.size() > 1 || canBeOne) ? ' ' : ',';
    }

    /// Settles `decimal_`, or fails where it can't be told.
    void findDecimal()
    {
        decimal_ = Decimal::Point;
        if (!contains(firstRow_.rest(), ',') || areAllPairs() || isFaulty())
            return;
        if (separator_ == ',' && !contains(firstRow_.rest(), '"'))
            return; // no comma within a field
        Fault ambiguous;
        for (lines_ = firstRow_; nextLine();) {
            if (!contains(lines_.line(), ',') || !split(lines_.line(), separator_, fields_))
                continue;
            for (const std::string& field : fields_) {
                const std::optional<Decimal> decimal = decimalOf(field);
                if (decimal && *decimal != Decimal::FromText) {
                    decimal_ = *decimal;
                    return;
                }
                if (decimal && ambiguous.kind == Kind::None)
                    ambiguous = {Kind::Ambiguous, lines_.number(), field, 0, 0};
            }
        }
        if (!isFaulty())
            fault_ = ambiguous;
    }

    /// True, and a fault, if every row is one number with a decimal comma or two whole ones.
    bool areAllPairs()
    {
        if (separator_ != ',' || hasHead_)
            return false;
        for (lines_ = firstRow_; nextLine();) {
            if (!isPairOrNumber(trimmed(lines_.line())))
                return false;
        }
        lines_ = firstRow_;
        nextLine();
        return isFaulty() || !fail(Kind::Ambiguous, trimmed(lines_.line()));
    }

    void checkWhole()
    {
        if (isFaulty())
            return;
        if (rows_ == 0)
            fail(Kind::NoRows);
        else if (announcedRows_ && *announcedRows_ != rows_)
            fail(Kind::RowCount, {}, rows_, *announcedRows_);
        else if (announcedCurves_ && *announcedCurves_ != names_.size() - 1)
            fail(Kind::CurveCount, {}, names_.size() - 1, *announcedCurves_);
    }
};

TableReader::TableReader(std::string_view text, Decimal decimal)
    : d_(std::make_unique<Private>(text, decimal))
{
}

TableReader::~TableReader() = default;

bool TableReader::next()
{
    return d_->next();
}

const std::vector<std::string>& TableReader::fields() const
{
    return d_->fields_;
}

std::optional<double> TableReader::number(std::size_t column)
{
    return d_->number(column);
}

std::size_t TableReader::line() const
{
    return d_->lines_.number();
}

std::size_t TableReader::place() const
{
    return d_->size_ - d_->lines_.rest().size();
}

bool TableReader::hasHead() const
{
    return d_->hasHead_;
}

const std::vector<std::string>& TableReader::names() const
{
    return d_->names_;
}

std::optional<TableReader::Table> TableReader::readAll(const std::function<void()>& atRow)
{
    Table table;
    table.names = d_->names_;
    while (next() && d_->takeRow(table)) {
        if (atRow)
            atRow();
    }
    if (d_->isFaulty())
        return std::nullopt;
    sortByTime(table);
    return table;
}

const TableReader::Fault& TableReader::fault() const
{
    return d_->fault_;
}

std::string TableReader::Fault::message() const
{
    const auto counted = [this](const char* what) {
        return "the head announces " + std::to_string(expected) + ' ' + what + ", but there are " +
               std::to_string(count);
    };
    switch (kind) {
    case Kind::None:
        return {};
    case Kind::Ambiguous:
        return TextFields::inQuotes(field) +
               " can be read in two ways: the comma may be the decimal sign or not";
    case Kind::NoRows:
        return "the table has no rows";
    case Kind::NoValues:
        return "there is no column beside the time";
    case Kind::FieldCount:
        return "the row has " + std::to_string(count) + " columns instead of " + std::to_string(expected);
    case Kind::RowCount:
        return counted("rows");
    case Kind::CurveCount:
        return counted("curves");
    case Kind::Quotation:
        return "a quotation mark has no partner";
    case Kind::LongLine:
        return "the line is longer than " + std::to_string(longestLine >> 20) + " MiB";
    case Kind::NoNumber:
        return field.empty() ? "a number is missing" : TextFields::inQuotes(field) + " is no number";
    case Kind::NotFinite:
        return TextFields::inQuotes(field) + " is no finite number";
    case Kind::TooManyValues:
        return "the table has more than " + std::to_string(count) + " values";
    }
    return {};
}
