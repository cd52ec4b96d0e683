// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>

/// Tells on a terminal how far work that takes longer than half a second has got, in a line that it wipes at the
/// end.
class Progress
{
public:
    /// Tells nothing.
    Progress() = default;
    /// `terminal`, null for none, outlives this.
    Progress(std::ostream* terminal, std::string what);
    ~Progress();

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void at(std::size_t done, std::size_t total);

private:
    std::ostream* terminal_ = nullptr;
    std::string what_;
    std::chrono::steady_clock::time_point next_;
    bool isShown_ = false;
};
