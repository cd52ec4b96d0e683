// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

/// The numbers that a byte stream stands for. Where it has ended, it goes on with zeros.
class Bytes
{
public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), end_(data + size) {}

    bool isAtEnd() const { return data_ == end_; }
    unsigned below(unsigned count) { return next() % count; }
    bool flag() { return below(2) == 1; }
    std::uint32_t word()
    {
        std::uint32_t word = 0;
        for (int i = 0; i < 4; ++i)
            word = word << 8 | next();
        return word;
    }
    /// Mostly one of few, so that times and values meet; sometimes an odd one, sometimes any bits.
    double number()
    {
        using Limits = std::numeric_limits<double>;
        constexpr std::array odd{-0.0,   1e300,   Limits::max(),    -Limits::max(),      Limits::infinity(),
                                 1e-300, -1e300,  Limits::min(),    Limits::quiet_NaN(), -Limits::infinity(),
                                 1e9,    0.1 / 3, Limits::epsilon()};
        const unsigned choice = next();
        if (choice < 192)
            return choice % 64 / 4.0 - 8.0;
        if (choice < 240)
            return odd[choice % odd.size()];
        const std::uint64_t bits = std::uint64_t(word()) << 32 | word();
        double number = 0.0;
        std::memcpy(&number, &bits, sizeof(number));
        return number;
    }

private:
    unsigned next() { return isAtEnd() ? 0 : *data_++; }

    const std::uint8_t* data_;
    const std::uint8_t* end_;
};
