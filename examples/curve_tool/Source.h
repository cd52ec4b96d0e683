// SPDX-License-Identifier: MIT
#pragma once

#include "CurveTool.h"
#include "Format.h"
#include "SampleTable.h"
#include "Sampling.h"

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/TableReader.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// What a command reads: one curve, of a curve file or of keys, or a table of samples.
class Source
{
public:
    /// How to read it.
    struct Options
    {
        std::optional<Format> format; ///< recognised unless it is given
        TableReader::Decimal decimal = TableReader::Decimal::FromText;
        /// How far the curve of keys may be away from them, by the least and the greatest of their values.
        std::function<double(double lowest, double highest)> tolerance;
    };

    /// Reads the file; "-" is standard input. Throws a `Fault` with the name of the file and the line.
    /// Tells how far a curve is from its keys, where it had to be fitted.
    Source(const std::string& path, const Options& options, const Streams& streams);

    Format getFormat() const { return format_; }
    bool isTable() const { return format_ != Format::Curve && format_ != Format::Keys; }

    const CurveFile& getCurve() const { return curve_; }    ///< if it is no table
    const SampleTable& getTable() const { return table_; }  ///< if it is one
    std::optional<double> getNorm() const { return norm_; } ///< of spectra, see `SpectrumText`

    /// The table with nothing but the curve of that name or, where none has it, of that number from 1 on. Without
    /// a choice, with the only curve. Throws a `Fault` that lists the curves if it can't be told which one.
    SampleTable getTableOf(const std::optional<std::string>& choice) const;

    /// The values of the curve, if it is no table.
    CurveValues valuesOf(double framesPerTimeUnit) const;

    /// The name of the file without folder and ending.
    std::string getStem() const;

    /// Throws a `Fault` about this file.
    [[noreturn]] void fail(const std::string& reason) const;
    /// The same, with the line of its formula.
    [[noreturn]] void failAtFormula(const std::string& reason) const;

private:
    void read(std::string_view text, const Options& options, const Streams& streams);
    void readKeys(std::string_view text, const Options& options, const Streams& streams);

    std::string path_;
    Format format_ = Format::Table;
    CurveFile curve_;
    std::size_t formulaLine_ = 0;
    SampleTable table_;
    std::optional<double> norm_;
};
