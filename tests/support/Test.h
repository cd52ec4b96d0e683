// SPDX-License-Identifier: MIT
#pragma once

// What every test includes. The compiler reads it once.
#include <QtTest>
#ifdef QT_WIDGETS_LIB
#include <QtWidgets>
#endif

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace curveeditor {
}
using namespace curveeditor; // what hosts do not see

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// Qt may be built with another standard library than a test, so that no `std::string` goes between them.
inline std::string toText(const QByteArray& text)
{
    return {text.constData(), std::size_t(text.size())};
}
inline std::string toText(const QString& text)
{
    return toText(text.toUtf8());
}

/// The rows of a data-driven test. Its data function makes one of these and gives it each row, by a name and its
/// columns; the test gets the columns of the row that is its own from `present`.
template <typename... Columns> struct Rows
{
    using Row = std::tuple<Columns...>;

    Rows() { QTest::addColumn<Row>("row"); }
    void operator()(const char* name, const Columns&... columns) const
    {
        QTest::newRow(name) << Row(columns...);
    }
    static Row present()
    {
        QFETCH(const Row, row);
        return row;
    }
};
