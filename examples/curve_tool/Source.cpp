// SPDX-License-Identifier: MIT
#include "Source.h"

#include "CurveText.h"
#include "Fault.h"
#include "KeysText.h"
#include "Progress.h"
#include "SpectrumText.h"
#include "TableText.h"
#include "TextFiles.h"

#include <curveeditor/files/TextFields.h>

#include <algorithm>

namespace {

constexpr std::size_t mostListed = 20;

std::string listOf(const SampleTable& table)
{
    std::string list;
    for (std::size_t i = 0; i < std::min(table.curves.size(), mostListed); ++i)
        list += "\n  " + std::to_string(i + 1) + "  " + TextFields::inQuotes(table.curves[i].name);
    if (table.curves.size() > mostListed)
        list += "\n  and " + std::to_string(table.curves.size() - mostListed) + " more";
    return list;
}

std::size_t lineOf(std::string_view text, std::size_t place)
{
    const std::string_view before = text.substr(0, place);
    return std::size_t(std::count(before.begin(), before.end(), '\n')) + 1;
}

} // namespace

Source::Source(const std::string& path, const Options& options, const Streams& streams) : path_(path)
{
    std::string text;
    {
        Progress progress(streams.terminal(), "reading " + getStem());
        text = TextFiles::read(path, streams.in, progress);
    }
    format_ = options.format ? *options.format : recognise(text, path);
    try {
        read(text, options, streams);
    } catch (const TextFault& fault) {
        throw Fault(TextFiles::shownName(path) + ':' + std::to_string(fault.getLine()) + ": " + fault.what());
    }
}

void Source::read(std::string_view text, const Options& options, const Streams& streams)
{
    const std::size_t nul = text.find('\0');
    if (nul != text.npos)
        throw TextFault(lineOf(text, nul), "there is a NUL byte, so this is no text in UTF-8");
    Progress progress(streams.terminal(), "understanding " + getStem());
    if (format_ == Format::Curve) {
        readCurveText(text, curve_);
        formulaLine_ = lineOf(text, text.rfind(curve_.expression));
    } else if (format_ == Format::Keys) {
        readKeys(text, options, streams);
    } else if (format_ == Format::Spectra) {
        SpectrumText spectra = SpectrumText::read(text, progress);
        table_ = std::move(spectra.table);
        norm_ = spectra.norm;
    } else {
        table_ = TableText::read(text, options.decimal, progress);
    }
}

void Source::readKeys(std::string_view text, const Options& options, const Streams& streams)
{
    KeysText read = KeysText::read(text);
    curve_.color = read.color;
    if (!read.formula.empty()) {
        curve_.kind = CurveFile::Expression;
        curve_.expression = read.formula;
        formulaLine_ = lineOf(text, text.find("\"formula\""));
        return;
    }
    const auto& keys = read.curve.keys;
    const auto [lowest, highest] =
        std::minmax_element(keys.begin(), keys.end(),
                            [](const auto& left, const auto& right) { return left.value < right.value; });
    const CurveKeys::Points points =
        CurveKeys::toSpline(read.curve, options.tolerance(lowest->value, highest->value));
    if (points.spline.points.empty())
        fail("the curve takes more than " + std::to_string(CurveKeys::pointLimit) + " points");
    curve_.spline.assign(points.spline);
    KeysText::tellDeviation(points.deviation, streams.messages);
}

SampleTable Source::getTableOf(const std::optional<std::string>& choice) const
{
    const auto& curves = table_.curves;
    const auto only = [this](std::size_t index) {
        return SampleTable{table_.timeName, table_.times, {table_.curves[index]}};
    };
    if (!choice && curves.size() == 1)
        return only(0);
    if (!choice)
        fail("there are " + std::to_string(curves.size()) +
             " curves; choose by --curve NAME_OR_NUMBER:" + listOf(table_));

    const auto isChosen = [&](const SampleTable::Curve& curve) {
        return curve.name == *choice;
    };
    const auto found = std::find_if(curves.begin(), curves.end(), isChosen);
    if (std::count_if(found, curves.end(), isChosen) > 1)
        fail("several curves are named " + TextFields::inQuotes(*choice) +
             "; choose by number:" + listOf(table_));
    if (found != curves.end())
        return only(std::size_t(found - curves.begin()));
    const double number = TextFields::number(*choice).value_or(0.0);
    for (std::size_t i = 0; i < curves.size(); ++i) {
        if (number == double(i + 1))
            return only(i);
    }
    fail("there is no curve " + TextFields::inQuotes(*choice) + "; there are:" + listOf(table_));
}

CurveValues Source::valuesOf(double framesPerTimeUnit) const
{
    try {
        return {curve_, framesPerTimeUnit};
    } catch (const Fault& fault) {
        failAtFormula(fault.what());
    }
}

std::string Source::getStem() const
{
    return path_ == "-" ? "standard input" : TextFiles::toName(TextFiles::toPath(path_).stem());
}

void Source::fail(const std::string& reason) const
{
    throw Fault(TextFiles::shownName(path_) + ": " + reason);
}

void Source::failAtFormula(const std::string& reason) const
{
    throw Fault(TextFiles::shownName(path_) + ':' + std::to_string(formulaLine_) + ": " + reason);
}
