// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// Where a command reads and writes for a file named "-", and where it tells its user something.
struct Streams
{
    std::istream& in;
    std::ostream& out;
    std::ostream& messages;
    bool isTerminal = false; ///< `messages` is one, so that progress can be shown

    std::ostream* terminal() const { return isTerminal ? &messages : nullptr; }
};

/// The command line behind the program's name. Returns what the program exits with: 0 when all is done, 1 for a fault
/// of a file or its content, 2 for a command line that can't be understood.
int runCurveTool(const std::vector<std::string>& words, const Streams& streams);
