// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <array>
#include <optional>

class QWidget;

namespace curveeditor {

/// The shape of the mouse over a canvas, which tells what a press would do. Of those who ask for one, the one whom the
/// press would reach first gets it.
class CanvasCursor
{
public:
    /// A later one goes first.
    enum class Asker { Curves, TimeLine, Box, View };

    /// The widget is another's; it may be null.
    explicit CanvasCursor(QWidget* widget) : widget_(widget) {}

    /// Without a shape the asker has no use for the mouse.
    void ask(Asker asker, std::optional<Qt::CursorShape> shape);
    /// A press would reach somebody else before.
    bool isTaken(Asker asker) const;

private:
    QWidget* widget_;
    std::array<std::optional<Qt::CursorShape>, 4> asked_;
};

} // namespace curveeditor
