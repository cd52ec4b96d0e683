// SPDX-License-Identifier: MIT
#pragma once

#include "SampleTable.h"

#include <optional>
#include <string_view>

class Progress;

/// Spectra of colour measurement: the keyword tables of CGATS.17, and `.sp` files, which are such tables too.
///
/// Names of fields stand between BEGIN_DATA_FORMAT and END_DATA_FORMAT, the rows between BEGIN_DATA and
/// END_DATA. Each row is a curve over the wavelength in nm; its values stand in fields such as SPECTRAL_NM_380,
/// SPECTRAL_NM380, SPECTRAL_380, SPEC_380, NM_380 or NM380. Its name is its SAMPLE_NAME, else its SAMPLE_ID, else its
/// number. Tables without such fields are passed over.
///
/// SPECTRAL_BANDS, SPECTRAL_START_NM and SPECTRAL_END_NM, where all are there, tell the wavelengths exactly; the
/// fields then hold them rounded.
struct SpectrumText
{
    SampleTable table;          ///< the wavelengths are its times
    std::optional<double> norm; ///< SPECTRAL_NORM: which value stands for 1; it was not applied

    /// Throws a `TextFault` for a text without spectra, that ends too early, whose wavelengths do not rise, or in
    /// which numbers do not match what the keywords announce.
    static SpectrumText read(std::string_view text, Progress& progress);
};
