// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads a text table of UTF-8, as people, spreadsheets and measuring programs write it, row by row or at once. Needs
/// no Qt. Any bytes may be given; a table is whole or refused, with the line of the first fault.
///
/// **Lines.** Empty lines and those that begin with "#" are passed over, and so is the head of a sensor table, whose
/// numbers of rows and curves are compared with what is there. A first line whose first field neither is a number nor
/// begins like one names the columns. Every row has as many fields as the first line.
///
/// **Columns** stand apart by what stands in the first line: by tabs, else by semicolons, commas or white space; where
/// commas or semicolons stand before the tabs, these are padding. `TextFields::split` tells of quotation marks.
///
/// **Numbers** are written as in C, whatever the locale, or with a comma as the decimal sign: a table in which a comma
/// within a number can be nothing else has decimal commas, and no points. Where the point is the decimal sign, commas
/// may part groups of three digits, as in 1,234.5.
///
/// **Some tables can be read in two ways**, and are refused unless the decimal sign is given: those in which each
/// comma within a number could part thousands, as in 1,234; and those without a head in which every row has the
/// form 1,5, which is one number with a decimal comma or two whole ones.
class CURVEEDITOR_EXPORT TableReader
{
public:
    /// The decimal sign of the numbers; `FromText` leaves it to the table itself, see the class.
    enum class Decimal { FromText, Comma, Point };

    static constexpr std::size_t longestLine = std::size_t(16) << 20; ///< in bytes
    static constexpr std::size_t mostValues = 10'000'000;             ///< of `readAll`, the times aside

    /// Why a table was refused.
    struct Fault
    {
        /// What is wrong with it.
        enum class Kind {
            None,
            Ambiguous, ///< `field` can be read in two ways
            NoRows,
            NoValues,   ///< there is only one column
            FieldCount, ///< `count` fields instead of `expected`
            RowCount,   ///< `count` rows where the head of a sensor table announces `expected`
            CurveCount, ///< the same of curves
            Quotation,  ///< a quotation mark has no partner
            LongLine,
            NoNumber,  ///< `field` is none; it may be empty
            NotFinite, ///< `field` is infinite, not-a-number, or larger than a double can be
            TooManyValues
        };
        Kind kind = Kind::None;   ///< `None` as long as nothing was found
        std::size_t line = 0;     ///< from 1 on; the last one for what is about the whole table
        std::string field;        ///< as it stands in the table, for the kinds that name it
        std::size_t count = 0;    ///< what was found, for the kinds that name it
        std::size_t expected = 0; ///< what should have been found, for the same

        /// What is wrong, in English and without the line; empty if nothing is.
        CURVEEDITOR_EXPORT std::string message() const;
    };

    /// All rows, ascending in time, which is the first column. Rows of equal time keep their order.
    struct Table
    {
        std::vector<std::string> names;           ///< as `names()`
        std::vector<double> times;                ///< the first column
        std::vector<std::vector<double>> columns; ///< all others; each as long as the times
        std::vector<std::size_t> lines;           ///< where each row stands in the text
    };

    /// `text` outlives the reader. With a decimal sign every text can be read in one way only.
    explicit TableReader(std::string_view text, Decimal decimal = Decimal::FromText);
    TableReader(const TableReader&) = delete;
    TableReader& operator=(const TableReader&) = delete;
    ~TableReader();

    /// Goes to the next row, at first to the first one; false behind the last one, and from a fault on.
    bool next();
    /// The present row, as text.
    const std::vector<std::string>& fields() const;
    /// The number in the present row, which is finite; nothing, and a fault, if the field is none.
    std::optional<double> number(std::size_t column);
    /// Of the present row, from 1 on; before the first row that of the head.
    std::size_t line() const;
    /// How many bytes of the text were read.
    std::size_t place() const;

    /// True if the table names its columns.
    bool hasHead() const;
    /// A name for each column, "column2" for the second if the table has none for it. Empty for a table without rows.
    const std::vector<std::string>& names() const;

    /// All rows at once instead; nothing, and a fault, if one of them is faulty. `atRow` is called at each.
    std::optional<Table> readAll(const std::function<void()>& atRow = {});

    /// The first fault that was found; its kind is `None` as long as there is none.
    const Fault& fault() const;

private:
    class Private;
    std::unique_ptr<Private> d_;
};
