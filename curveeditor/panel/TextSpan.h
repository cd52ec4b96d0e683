// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace curveeditor {

/// A run of characters of a `QString`, counted in its UTF-16 units.
struct TextSpan
{
    int start = 0;
    int length = 0;
};

/// The run of characters that `length` bytes from `offset` on stand for, once the UTF-8 text `utf8` is a
/// `QString`. A character that the bytes cover only in part belongs to the run. Bytes behind the end of the
/// text count as none.
TextSpan textSpan(const std::string& utf8, std::size_t offset, std::size_t length);

} // namespace curveeditor
