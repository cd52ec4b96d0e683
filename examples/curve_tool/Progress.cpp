// SPDX-License-Identifier: MIT
#include "Progress.h"

using namespace std::chrono_literals;

Progress::Progress(std::ostream* terminal, std::string what)
    : terminal_(terminal), what_(std::move(what)), next_(std::chrono::steady_clock::now() + 500ms)
{
}

Progress::~Progress()
{
    if (isShown_)
        *terminal_ << "\r\x1B[K" << std::flush;
}

void Progress::at(std::size_t done, std::size_t total)
{
    if (!terminal_ || std::chrono::steady_clock::now() < next_)
        return;
    const double share = total > 0 ? double(done) / double(total) : 1.0;
    *terminal_ << '\r' << what_ << ": " << int(100.0 * share) << " %\x1B[K" << std::flush;
    isShown_ = true;
    next_ = std::chrono::steady_clock::now() + 200ms;
}
