// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

/// What ends a command: a file that can't be used, or its content. The text is for a person to read.
class Fault : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A fault in a text, at a line from 1 on.
class TextFault : public Fault
{
public:
    TextFault(std::size_t line, const std::string& reason) : Fault(reason), line_(line) {}

    std::size_t getLine() const { return line_; }

private:
    std::size_t line_;
};

/// A command line that can't be understood.
class UsageFault : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
