// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The lines of a text of UTF-8, one after the other. A line ends in a line feed, with or without a carriage
/// return before it. A byte order mark is passed over.
class TextLines
{
public:
    static constexpr std::size_t longestLine = std::size_t(16) << 20;

    /// `text` outlives this.
    explicit TextLines(std::string_view text);

    /// Goes to the next line; false behind the last one. Throws a `TextFault` for a line that is too long, or
    /// that holds a carriage return.
    bool next();

    /// The present line without the white space around it.
    std::string_view line() const { return line_; }
    /// The bytes of the text behind the present line.
    std::size_t getRest() const { return rest_.size(); }

    /// The semicolon, else the comma, that stands in the line outside quotation marks; else a blank.
    char separator() const;
    /// True if a tab stands in the line outside quotation marks.
    bool hasTab() const { return holds('\t'); }

    /// Fills `fields` with the fields of the line. A blank as separator stands for a run of white space, a tab
    /// for a run of tabs; one separator may end the line. A field may begin with text between quotation marks,
    /// in which two of these are one. One without a partner throws a `TextFault`.
    void split(char separator, std::vector<std::string>& fields) const;

    /// The finite number that a field of this line is; throws a `TextFault` if it is none.
    double toNumber(std::string_view field) const;

    /// Throws a `TextFault` at the present line.
    [[noreturn]] void fail(const std::string& reason) const;

private:
    bool holds(char c) const;

    std::string_view rest_;
    std::string_view line_;
    std::size_t number_ = 0;
};
