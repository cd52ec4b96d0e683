// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string>

/// Where a curve file stands on disk, and how it gets there. Paths are those of Qt's file dialogs, with "/".
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

    /// Makes `content` the content of the file. It is written beside the file and takes its place when it is
    /// complete and on the disk: on any fault until then the file stays as it was and the result is false. It
    /// is false too if the folder's new entry did not reach the disk; the file may be the old one again after
    /// a crash of the machine, but is always one of the two. Of a symbolic link the file that it points to is
    /// replaced, or made. A folder, a pipe, a device or a file that may not be written is refused.
    static bool replace(const QString& path, const std::string& content);
};
