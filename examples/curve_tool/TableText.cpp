// SPDX-License-Identifier: MIT
#include "TableText.h"

#include "Progress.h"
#include "TextLines.h"
#include "TextNumber.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

class TableReader
{
public:
    TableReader(std::string_view text, Progress& progress)
        : lines_(text), size_(text.size()), progress_(progress)
    {
    }

    SampleTable read()
    {
        while (lines_.next()) {
            progress_.at(size_ - lines_.getRest(), size_);
            if (!lines_.line().empty() && lines_.line().front() != '#')
                takeLine();
        }
        if (table_.times.empty())
            lines_.fail("the table has no rows");
        checkAnnounced(rows_, table_.times.size(), "rows");
        checkAnnounced(curves_, table_.curves.size(), "curves");
        return std::move(table_);
    }

private:
    void takeLine()
    {
        lines_.split(lines_.separator(), fields_);
        if (!table_.curves.empty()) {
            takeRow();
        } else if (!takeHead()) {
            takeFirstLine();
        }
    }

    // A line of the head of a sensor table.
    bool takeHead()
    {
        if (fields_.size() != 2)
            return false;
        if (fields_[0] == "num_lambdas") {
            rows_ = lines_.toNumber(fields_[1]);
        } else if (fields_[0] == "num_curves") {
            curves_ = lines_.toNumber(fields_[1]);
        } else {
            return fields_[0] == "version" || fields_[0] == "type";
        }
        return true;
    }

    void takeFirstLine()
    {
        const bool isRow = parseNumber(fields_[0]).has_value();
        if (!isRow && lines_.separator() == ' ' && lines_.hasTab())
            lines_.split('\t', fields_);
        if (fields_.size() < 2)
            lines_.fail("there is no column beside the time");
        table_.curves.resize(fields_.size() - 1);
        for (std::size_t i = 0; i < table_.curves.size(); ++i) {
            const std::string& name = fields_[i + 1];
            table_.curves[i].name = isRow || name.empty() ? "column" + std::to_string(i + 2) : name;
        }
        if (isRow) {
            takeRow();
        } else {
            table_.timeName = fields_[0];
        }
    }

    void takeRow()
    {
        const double time = lines_.toNumber(fields_[0]);
        const std::size_t columns = table_.curves.size() + 1;
        if (fields_.size() != columns)
            lines_.fail("the row has " + std::to_string(fields_.size()) + " columns instead of " +
                        std::to_string(columns));
        if ((table_.times.size() + 1) * table_.curves.size() > SampleTable::mostValues)
            lines_.fail("the table has more than " + std::to_string(SampleTable::mostValues) + " values");
        if (!table_.times.empty() && !(time > table_.times.back()))
            lines_.fail(time < table_.times.back()
                            ? "time " + toText(time) + " comes after " + toText(table_.times.back())
                            : "time " + toText(time) + " is there twice");
        table_.times.push_back(time);
        for (std::size_t i = 0; i < table_.curves.size(); ++i)
            table_.curves[i].values.push_back(lines_.toNumber(fields_[i + 1]));
    }

    void checkAnnounced(const std::optional<double>& announced, std::size_t found, const char* what) const
    {
        if (announced && *announced != double(found))
            lines_.fail("the head announces " + toText(*announced) + ' ' + what + ", but there are " +
                        std::to_string(found));
    }

    TextLines lines_;
    std::size_t size_;
    Progress& progress_;
    std::vector<std::string> fields_;
    SampleTable table_;
    std::optional<double> rows_;
    std::optional<double> curves_;
};

bool isPlain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '.' || c == '-';
}

std::string toField(const std::string& name)
{
    if (!name.empty() && std::all_of(name.begin(), name.end(), isPlain))
        return name;
    std::string field = "\"";
    for (const char c : name) {
        if (c == '"')
            field += c;
        field += c;
    }
    return field + '"';
}

} // namespace

SampleTable TableText::read(std::string_view text, Progress& progress)
{
    return TableReader(text, progress).read();
}

std::string TableText::write(const SampleTable& table, char separator)
{
    std::string text = toField(table.timeName);
    for (const SampleTable::Curve& curve : table.curves)
        text += separator + toField(curve.name);
    text += '\n';
    for (std::size_t row = 0; row < table.times.size(); ++row) {
        text += toText(table.times[row]);
        for (const SampleTable::Curve& curve : table.curves)
            text += separator + toText(curve.values[row]);
        text += '\n';
    }
    return text;
}

std::string TableText::writeSensor(const SampleTable& table)
{
    std::string text = "# KVTR Corvane Sensor Sensibility Data File\n"
                       "# file exported with Curve Editor v0.1\n"
                       "\n"
                       "version \t\t 1.0\n"
                       "type \t\t\t cye64\n"
                       "num_curves \t\t " +
                       std::to_string(table.curves.size()) + "\nnum_lambdas \t " +
                       std::to_string(table.times.size()) + "\n\n";
    for (std::size_t row = 0; row < table.times.size(); ++row) {
        text += std::to_string(int(table.times[row])) + ",\t";
        for (const SampleTable::Curve& curve : table.curves)
            text += toSixDecimals(std::isnan(curve.values[row]) ? 0.0 : curve.values[row]) + ",\t";
        text += '\n';
    }
    return text;
}
