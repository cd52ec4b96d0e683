// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace curveeditor {

/// How the numbers of an axis are written and read, where the host does that: timecode, bars and beats, or a unit. Times
/// are in time units. Copies share the functions, so one may go while a function of it runs.
class AxisText
{
public:
    using Writer = std::function<QString(double)>;
    using Reader = std::function<std::optional<double>(const QString&)>;

    /// Nobody's: numbers are plain.
    AxisText() = default;
    /// The same without `write`.
    AxisText(Writer write, Reader read);

    /// Whether the host writes.
    explicit operator bool() const { return functions_ != nullptr; }
    /// Whether what the host writes can be read back. Only for a host that writes.
    bool canRead() const { return bool(functions_->read); }

    /// Where the host's function throws, the shortest plain text. Only for a host that writes.
    QString write(double number) const;
    /// What the host reads, else the text as a plain number, see `NumberText`. What the host's function throws, and
    /// not-a-number, count as not read.
    std::optional<double> read(const QString& text) const;

private:
    struct Functions
    {
        Writer write;
        Reader read;
    };

    std::shared_ptr<const Functions> functions_;
};

} // namespace curveeditor
