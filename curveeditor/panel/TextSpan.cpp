// SPDX-License-Identifier: MIT
#include <curveeditor/panel/TextSpan.h>

#include <QString>

#include <algorithm>

namespace curveeditor {

namespace {

bool startsInsideCharacter(const std::string& utf8, std::size_t offset)
{
    constexpr unsigned continuationMask = 0xC0;
    constexpr unsigned continuation = 0x80;
    return offset < utf8.size() &&
           (static_cast<unsigned char>(utf8[offset]) & continuationMask) == continuation;
}

int unitsBefore(const std::string& utf8, std::size_t offset)
{
    return static_cast<int>(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(offset)).size());
}

} // namespace

TextSpan textSpan(const std::string& utf8, std::size_t offset, std::size_t length)
{
    std::size_t first = std::min(offset, utf8.size());
    std::size_t last = first + std::min(length, utf8.size() - first);
    while (first > 0 && startsInsideCharacter(utf8, first))
        --first;
    while (startsInsideCharacter(utf8, last))
        ++last;
    const int start = unitsBefore(utf8, first);
    return {start, unitsBefore(utf8, last) - start};
}

} // namespace curveeditor
