// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// The outcome of parsing one expression, a value type. The expression is good exactly when `errors` is
/// empty.
class CURVEEDITOR_EXPORT ParseMessage
{
public:
    /// What went wrong. Only of meaning while `errors` is not empty.
    enum Code : std::int32_t {
        UnknownVariable = 1,      ///< the first span covers the name
        CyclicDependency = 2,     ///< the expression makes its curve depend on itself
        UnmatchedParenthesis = 3, ///< a parenthesis has no partner
        OtherError = 4            ///< the span covers what could not be read
    };

    /// @{
    /// A value like any other; a new one tells of no error.
    ParseMessage() = default;
    ParseMessage(const ParseMessage&) = default;
    ParseMessage& operator=(const ParseMessage&) = default;
    ~ParseMessage();
    /// @}

    std::uint32_t flags = 0;  ///< the parser leaves 0
    std::int32_t code = 0;    ///< a `Code`
    std::uint32_t detail = 0; ///< the parser leaves 0
    std::string text;         ///< the expression as the parser read it, UTF-8

    /// Offset and length of each faulty place in `text`, in bytes.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> errors;
};
