// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>

#include <QFileInfo>

namespace curveeditor {

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

std::filesystem::path CurveFileStore::nativePath(const QString& path)
{
    const QByteArray name = path.toUtf8(); // takes any text, which std::filesystem does not
    const auto* first = reinterpret_cast<const char8_t*>(name.constData());
    return {first, first + name.size()};
}

} // namespace curveeditor
