// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <filesystem>

namespace curveeditor {

/// Where a curve file stands on disk. Paths are those of Qt's file dialogs, with "/".
class CurveFileStore
{
public:
    /// The path for a chosen name: the file name in lower case, with ".crv" appended unless the chosen name
    /// ends in just that (capitals don't count). The folder stays as it was chosen.
    static QString pathToSave(const QString& chosen);
    /// The chosen file if it exists, else the path that saving would have given it.
    static QString pathToLoad(const QString& chosen);
    /// True if saving under `chosen` would replace a file that the user has not confirmed, because the path
    /// is another one.
    static bool replacesAnotherFile(const QString& chosen);

    /// The same path as the standard library names it.
    static std::filesystem::path nativePath(const QString& path);
};

} // namespace curveeditor
