// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>

#include <QFileInfo>
#include <QSaveFile>

QString CurveFileStore::pathToSave(const QString& chosen)
{
    const qsizetype nameStart = chosen.lastIndexOf(QLatin1Char('/')) + 1;
    const QString path = chosen.left(nameStart) + chosen.mid(nameStart).toLower();
    const QLatin1String extension(".crv");
    return chosen.endsWith(extension) ? path : path + extension;
}

QString CurveFileStore::pathToLoad(const QString& chosen)
{
    return QFileInfo::exists(chosen) ? chosen : pathToSave(chosen);
}

bool CurveFileStore::replacesAnotherFile(const QString& chosen)
{
    const QString path = pathToSave(chosen);
    return path != chosen && QFileInfo::exists(path);
}

bool CurveFileStore::replace(const QString& path, const std::string& content)
{
    const QFileInfo present(path);
    if (present.exists() && !present.isFile())
        return false;
    QSaveFile file(path);
    const qint64 size = qint64(content.size());
    // On a full disk a write may stop short without an error.
    return file.open(QIODevice::WriteOnly) && file.write(content.data(), size) == size && file.flush() &&
           file.commit();
}
