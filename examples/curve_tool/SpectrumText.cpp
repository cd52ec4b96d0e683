// SPDX-License-Identifier: MIT
#include "SpectrumText.h"

#include "Fault.h"
#include "Progress.h"
#include "TextNumber.h"

#include <curveeditor/files/TableReader.h>
#include <curveeditor/files/TextFields.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr double greatestRounding = 1.0; // of a wavelength in the name of a field, in nm

std::optional<double> wavelengthOf(std::string_view field)
{
    const std::string name = toUpper(field);
    for (const std::string_view prefix : {"SPECTRAL_NM_", "SPECTRAL_NM", "SPECTRAL_", "SPEC_", "NM_", "NM"}) {
        if (name.compare(0, prefix.size(), prefix) != 0)
            continue;
        const std::optional<double> wavelength =
            TextFields::number(std::string_view(name).substr(prefix.size()));
        if (wavelength && std::isfinite(*wavelength))
            return wavelength;
    }
    return std::nullopt;
}

class SpectrumReader
{
public:
    SpectrumReader(std::string_view text, Progress& progress)
        : rest_(TextFields::withoutByteOrderMark(text)), size_(text.size()), progress_(progress)
    {
    }

    SpectrumText read()
    {
        while (nextLine()) {
            const std::string key = firstWord();
            if (key == "BEGIN_DATA_FORMAT") {
                takeFormat();
            } else if (key == "BEGIN_DATA") {
                takeData();
            } else {
                takeKeyword(key);
            }
        }
        if (spectra_.table.curves.empty() && !bands_.empty())
            fail("the file ends before BEGIN_DATA");
        if (spectra_.table.curves.empty())
            fail("there are no spectra: no field has a name such as SPECTRAL_NM_380 or SPEC_380");
        return std::move(spectra_);
    }

private:
    bool nextLine()
    {
        while (!rest_.empty()) {
            line_ = TextFields::trimmed(TextFields::takeLine(rest_));
            ++number_;
            progress_.at(size_ - rest_.size(), size_);
            if (line_.size() > TableReader::longestLine)
                fail("the line is longer than " + std::to_string(TableReader::longestLine >> 20) + " MiB");
            if (!line_.empty() && line_.front() != '#')
                return true;
        }
        return false;
    }

    [[noreturn]] void fail(const std::string& reason) const
    {
        throw TextFault(std::max(number_, std::size_t(1)), reason);
    }

    void split(std::vector<std::string>& fields) const
    {
        if (!TextFields::split(line_, ' ', fields))
            fail("a quotation mark has no partner");
    }

    double numberOf(const std::string& field) const
    {
        const std::optional<double> number = TextFields::number(field);
        if (!number)
            fail(TextFields::inQuotes(field) + " is no number");
        if (!std::isfinite(*number))
            fail(TextFields::inQuotes(field) + " is no finite number");
        return *number;
    }

    void nextLineBefore(const char* end)
    {
        if (!nextLine())
            fail(std::string("the file ends before ") + end);
    }

    std::string firstWord() const
    {
        const auto end = std::find_if(line_.begin(), line_.end(), TextFields::isWhiteSpace);
        return toUpper(line_.substr(0, std::size_t(end - line_.begin())));
    }

    void takeKeyword(const std::string& key)
    {
        const bool isCount = key == "NUMBER_OF_FIELDS" || key == "NUMBER_OF_SETS" ||
                             key == "SPECTRAL_BANDS" || key == "SPECTRAL_START_NM" ||
                             key == "SPECTRAL_END_NM" || key == "SPECTRAL_NORM";
        if (!isCount)
            return;
        split(row_);
        if (row_.size() != 2)
            fail(key + " takes one number");
        announced_[key] = numberOf(row_[1]);
    }

    std::optional<double> announced(const std::string& key) const
    {
        const auto found = announced_.find(key);
        return found == announced_.end() ? std::nullopt : std::optional(found->second);
    }

    void checkAnnounced(const std::string& key, std::size_t found) const
    {
        const std::optional<double> number = announced(key);
        if (number && *number != double(found))
            fail(key + " is " + toText(*number) + ", but there are " + std::to_string(found));
    }

    void takeFormat()
    {
        fields_.clear();
        for (nextLineBefore("END_DATA_FORMAT"); firstWord() != "END_DATA_FORMAT";
             nextLineBefore("END_DATA_FORMAT")) {
            split(row_);
            fields_.insert(fields_.end(), row_.begin(), row_.end());
        }
        checkAnnounced("NUMBER_OF_FIELDS", fields_.size());
        findBands();
        nameColumn_ = columnOf({"SAMPLE_NAME", "SAMPLE_ID", "SAMPLEID"});
    }

    void findBands()
    {
        bands_.clear();
        wavelengths_.clear();
        for (std::size_t i = 0; i < fields_.size(); ++i) {
            const std::optional<double> wavelength = wavelengthOf(fields_[i]);
            if (!wavelength)
                continue;
            bands_.push_back(i);
            wavelengths_.push_back(*wavelength);
        }
    }

    std::optional<std::size_t> columnOf(std::initializer_list<const char*> names) const
    {
        for (const char* name : names) {
            const auto found = std::find_if(fields_.begin(), fields_.end(), [name](const std::string& field) {
                return toUpper(field) == name;
            });
            if (found != fields_.end())
                return std::size_t(found - fields_.begin());
        }
        return std::nullopt;
    }

    // The keywords may stand behind the format, so this waits for the data.
    void settleWavelengths()
    {
        const std::optional<double> count = announced("SPECTRAL_BANDS");
        const std::optional<double> start = announced("SPECTRAL_START_NM");
        const std::optional<double> end = announced("SPECTRAL_END_NM");
        checkAnnounced("SPECTRAL_BANDS", wavelengths_.size());
        for (std::size_t i = 0; count && start && end && i < wavelengths_.size(); ++i) {
            const double share = i > 0 ? double(i) / double(wavelengths_.size() - 1) : 0.0;
            const double exact = *start * (1.0 - share) + *end * share;
            if (!(std::abs(exact - wavelengths_[i]) <= greatestRounding))
                fail("the field " + TextFields::inQuotes(fields_[bands_[i]]) + " should be at " +
                     toText(exact) + " nm");
            wavelengths_[i] = exact;
        }
        for (std::size_t i = 1; i < wavelengths_.size(); ++i) {
            if (!(wavelengths_[i] > wavelengths_[i - 1]))
                fail("wavelength " + toText(wavelengths_[i]) + " comes after " + toText(wavelengths_[i - 1]));
        }
    }

    void takeData()
    {
        if (fields_.empty())
            fail("the data comes before its format");
        const bool isSpectral = !bands_.empty();
        if (isSpectral && !spectra_.table.curves.empty())
            fail("this is a second table of spectra; only one can be read");
        if (isSpectral)
            settleWavelengths();
        std::size_t rows = 0;
        for (nextLineBefore("END_DATA"); firstWord() != "END_DATA"; nextLineBefore("END_DATA")) {
            ++rows;
            if (isSpectral)
                takeRow(rows);
        }
        checkAnnounced("NUMBER_OF_SETS", rows);
        if (isSpectral) {
            if (rows == 0)
                fail("the table has no rows");
            spectra_.table.timeName = "nm";
            spectra_.table.times = wavelengths_;
            spectra_.norm = announced("SPECTRAL_NORM");
        }
        announced_.clear();
    }

    void takeRow(std::size_t number)
    {
        split(row_);
        if (row_.size() != fields_.size())
            fail("the row has " + std::to_string(row_.size()) + " fields instead of " +
                 std::to_string(fields_.size()));
        if (number * bands_.size() > SampleTable::mostValues)
            fail("the table has more than " + std::to_string(SampleTable::mostValues) + " values");
        SampleTable::Curve curve;
        if (nameColumn_)
            curve.name = row_[*nameColumn_];
        if (curve.name.empty())
            curve.name = std::to_string(number);
        for (const std::size_t band : bands_)
            curve.values.push_back(numberOf(row_[band]));
        spectra_.table.curves.push_back(std::move(curve));
    }

    std::string_view rest_;
    std::string_view line_;
    std::size_t number_ = 0;
    std::size_t size_;
    Progress& progress_;
    std::map<std::string, double> announced_; // by keyword, of the present table
    std::vector<std::string> fields_;
    std::vector<std::size_t> bands_; // which fields hold the values
    std::vector<double> wavelengths_;
    std::optional<std::size_t> nameColumn_;
    std::vector<std::string> row_;
    SpectrumText spectra_;
};

} // namespace

SpectrumText SpectrumText::read(std::string_view text, Progress& progress)
{
    return SpectrumReader(text, progress).read();
}
