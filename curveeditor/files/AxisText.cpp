// SPDX-License-Identifier: MIT
#include <curveeditor/files/AxisText.h>

#include <curveeditor/files/NumberText.h>

#include <cmath>
#include <utility>

namespace curveeditor {

namespace {

/// Nothing if it throws.
template <typename Function, typename Argument>
auto called(const Function& function, const Argument& argument) -> std::optional<decltype(function(argument))>
{
    try {
        return function(argument);
    } catch (...) {
        return std::nullopt;
    }
}

} // namespace

AxisText::AxisText(Writer write, Reader read)
{
    if (write)
        functions_ = std::make_shared<const Functions>(Functions{std::move(write), std::move(read)});
}

QString AxisText::write(double number) const
{
    const auto functions = functions_;
    const std::optional<QString> text = called(functions->write, number);
    return text ? *text : NumberText::full(number, QLocale::c());
}

std::optional<double> AxisText::read(const QString& text) const
{
    const auto functions = functions_;
    if (functions && functions->read) {
        const std::optional<double> number = called(functions->read, text).value_or(std::nullopt);
        if (number && !std::isnan(*number))
            return number;
    }
    return NumberText::read(text);
}

} // namespace curveeditor
