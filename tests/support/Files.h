// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore>

/// Makes a file, and returns its path.
inline QString written(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("no room for test files");
    return path;
}

/// What is in the file, or "none" if it can't be read.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}
