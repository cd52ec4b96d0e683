// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <QSaveFile>
#endif

#ifdef Q_OS_UNIX
// Unlike QSaveFile, which takes no notice of what syncing and closing say.
namespace {

constexpr int longestChainOfLinks = 40;

QString targetOf(const QString& path)
{
    QFileInfo file(path);
    for (int i = 0; i < longestChainOfLinks && file.isSymLink(); ++i)
        file.setFile(file.symLinkTarget());
    return file.filePath();
}

bool writeAll(int file, const std::string& content)
{
    std::size_t done = 0;
    while (done < content.size()) {
        const ssize_t count = ::write(file, content.data() + done, content.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        done += std::size_t(count);
    }
    return true;
}

bool writeNewFile(const char* path, mode_t mode, const std::string& content)
{
    const int file = ::open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (file < 0)
        return false;
    const bool isSynced = writeAll(file, content) && ::fsync(file) == 0;
    const bool isComplete = ::close(file) == 0 && isSynced;
    if (!isComplete)
        ::unlink(path);
    return isComplete;
}

bool syncFolder(const char* path)
{
    const int folder = ::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return errno == EACCES; // files can be made in it all the same
    // Some file systems don't sync folders.
    const bool isSynced = ::fsync(folder) == 0 || errno == EINVAL || errno == ENOTSUP;
    ::close(folder);
    return isSynced;
}

bool replaceFile(const QString& path, const std::string& content)
{
    const QString folder = QFileInfo(path).path();
    const QString random = QString::number(QRandomGenerator::system()->generate64(), 36);
    const QByteArray target = QFile::encodeName(path);
    const QByteArray fresh = QFile::encodeName(folder + QLatin1String("/.curve-") + random);
    struct stat old = {};
    const bool hasOld = ::stat(target.constData(), &old) == 0;
    const mode_t mode = hasOld ? old.st_mode & 0777 : 0666;
    if (!writeNewFile(fresh.constData(), mode, content))
        return false;
    if (hasOld)
        ::chmod(fresh.constData(), mode); // beyond what the mask for new files lets through
    if (std::rename(fresh.constData(), target.constData()) != 0) {
        ::unlink(fresh.constData());
        return false;
    }
    return syncFolder(QFile::encodeName(folder).constData());
}

} // namespace
#endif

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
    if (present.exists() && !(present.isFile() && present.isWritable()))
        return false;
#ifdef Q_OS_UNIX
    const QString target = targetOf(path);
    const bool isEndless = QFileInfo(target).isSymLink();
    return !isEndless && !target.contains(QChar(u'\0')) && replaceFile(target, content);
#else
    QSaveFile file(path);
    const qint64 size = qint64(content.size());
    return file.open(QIODevice::WriteOnly) && file.write(content.data(), size) == size && file.commit();
#endif
}
