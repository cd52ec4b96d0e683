// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CanvasCursor.h>

#include <QWidget>

#include <algorithm>
#include <cstddef>

namespace curveeditor {

void CanvasCursor::ask(Asker asker, std::optional<Qt::CursorShape> shape)
{
    std::optional<Qt::CursorShape>& asked = asked_[std::size_t(asker)];
    if (!widget_ || asked == shape)
        return;
    asked = shape;
    const auto first =
        std::find_if(asked_.rbegin(), asked_.rend(), [](const auto& one) { return one.has_value(); });
    if (first == asked_.rend())
        widget_->unsetCursor();
    else
        widget_->setCursor(**first);
}

bool CanvasCursor::isTaken(Asker asker) const
{
    return std::any_of(asked_.begin() + std::ptrdiff_t(asker) + 1, asked_.end(),
                       [](const auto& one) { return one.has_value(); });
}

} // namespace curveeditor
