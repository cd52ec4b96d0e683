// SPDX-License-Identifier: MIT
#include "Format.h"

#include "TextNumber.h"

#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace {

constexpr std::size_t lookedAt = std::size_t(1) << 16; // bytes
constexpr std::size_t bodyOfCurve = 4;                 // words before it

using Named = std::pair<std::string_view, Format>;

template <std::size_t count>
std::optional<Format> find(const std::array<Named, count>& names, std::string_view name)
{
    const auto found =
        std::find_if(names.begin(), names.end(), [name](const Named& n) { return n.first == name; });
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

std::string_view takeWord(std::string_view& text)
{
    const auto begin = std::find_if_not(text.begin(), text.end(), TextFields::isWhiteSpace);
    const auto end = std::find_if(begin, text.end(), TextFields::isWhiteSpace);
    const std::string_view word = text.substr(std::size_t(begin - text.begin()), std::size_t(end - begin));
    text.remove_prefix(std::size_t(end - text.begin()));
    return word;
}

bool isWholeNumber(std::string_view word)
{
    return !word.empty() &&
           std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// The first number stands alone in its line, as it never does in a table, or a spline begins where it must.
bool isCurve(std::string_view text)
{
    if (!isWholeNumber(takeWord(text)))
        return false;
    const std::size_t next = text.find_first_not_of(" \t");
    if (next == text.npos || text[next] == '\n' || text[next] == '\r')
        return true;
    for (std::size_t i = 1; i < bodyOfCurve; ++i)
        takeWord(text);
    return takeWord(text) == "spline";
}

std::optional<Format> formatByContent(std::string_view text)
{
    text = TextFields::withoutByteOrderMark(text).substr(0, lookedAt);
    if (TextFields::trimmed(text).substr(0, 1) == "{")
        return Format::Keys;
    if (isCurve(text))
        return Format::Curve;
    const std::string start = toUpper(text.substr(0, 5));
    if (start == "CGATS" || start == "SPECT" || text.find("\nBEGIN_DATA") != text.npos)
        return Format::Spectra;
    if (text.find("\nnum_lambdas") != text.npos)
        return Format::Sensor;
    return std::nullopt;
}

} // namespace

std::optional<Format> formatNamed(std::string_view name)
{
    constexpr std::array names{Named{"crv", Format::Curve},     Named{"table", Format::Table},
                               Named{"sensor", Format::Sensor}, Named{"cgats", Format::Spectra},
                               Named{"sp", Format::Spectra},    Named{"json", Format::Keys}};
    return find(names, name);
}

std::optional<Format> formatByEnding(std::string_view fileName)
{
    constexpr std::array endings{
        Named{"CRV", Format::Curve},     Named{"CSV", Format::Table},   Named{"TSV", Format::Table},
        Named{"TXT", Format::Table},     Named{"DAT", Format::Table},   Named{"SP", Format::Spectra},
        Named{"CGATS", Format::Spectra}, Named{"CGT", Format::Spectra}, Named{"JSON", Format::Keys}};
    const std::size_t dot = fileName.rfind('.');
    return dot == fileName.npos ? std::nullopt : find(endings, toUpper(fileName.substr(dot + 1)));
}

Format recognise(std::string_view text, std::string_view fileName)
{
    if (const auto format = formatByContent(text))
        return *format;
    return formatByEnding(fileName).value_or(Format::Table);
}

std::string_view describe(Format format)
{
    constexpr std::array names{"curve file", "table", "sensor table", "spectra", "keys"};
    return names.at(std::size_t(format));
}
