// SPDX-License-Identifier: MIT

// Feeds any text to the reader of table. What it takes must be whole and read back the same once it was written as a
// table; what it refuses must have a line within the text, and no text is ambiguous once the decimal sign is given.

#include "TableChecks.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace {

std::optional<SampleTable> read(const std::string& text, TableReader::Decimal decimal)
{
    Progress silent;
    try {
        return TableText::read(text, decimal, silent);
    } catch (const TextFault& fault) {
        requireLine(fault, text);
        const bool isAmbiguous =
            TableReader(text, decimal).fault().kind == TableReader::Fault::Kind::Ambiguous;
        require(!isAmbiguous || decimal == TableReader::Decimal::FromText);
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const auto decimal :
         {TableReader::Decimal::FromText, TableReader::Decimal::Comma, TableReader::Decimal::Point}) {
        if (const auto table = read(text, decimal)) {
            requireWhole(*table);
            requireReadsBack(*table);
        }
    }
    return 0;
}
