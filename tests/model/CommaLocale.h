// SPDX-License-Identifier: MIT
#pragma once

#include <locale>
#include <string>

/// While this lives, the process writes numbers as in "1.2.3,5".
class CommaLocale
{
public:
    CommaLocale() : before_(std::locale::global(std::locale(std::locale::classic(), new Punctuation))) {}
    ~CommaLocale() { std::locale::global(before_); }

private:
    struct Punctuation : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\1"; }
    };

    const std::locale before_;
};
