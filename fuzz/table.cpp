// SPDX-License-Identifier: MIT

// Feeds any text to the reader of table. What it takes must be whole and read back the same once it was written as a
// table; what it refuses must have a line within the text.

#include "TableChecks.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace {

std::optional<SampleTable> read(const std::string& text)
{
    Progress silent;
    try {
        return TableText::read(text, silent);
    } catch (const TextFault& fault) {
        requireLine(fault, text);
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (const auto table = read(std::string(reinterpret_cast<const char*>(data), size))) {
        requireWhole(*table);
        requireReadsBack(*table);
    }
    return 0;
}
