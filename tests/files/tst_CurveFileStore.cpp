// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>

#include <QtTest>

#include <algorithm>
#include <cerrno>
#include <string_view>

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A call of that name fails, after as many that pass.
struct
{
    std::string_view call;
    int passes = 0;
    int error = 0;
} fault;

template <typename Result, typename... Arguments>
Result callUnlessFaulty(Result (*)(Arguments...), const char* name, Arguments... arguments)
{
    if (fault.call == name && fault.passes-- == 0) {
        errno = fault.error;
        return -1;
    }
    return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, name))(arguments...);
}

} // namespace

// These stand before those of the C library.
extern "C" {
int fsync(int file)
{
    return callUnlessFaulty(fsync, "fsync", file);
}

int close(int file)
{
    return callUnlessFaulty(close, "close", file);
}

int rename(const char* from, const char* to) noexcept
{
    return callUnlessFaulty<int, const char*, const char*>(rename, "rename", from, to);
}

ssize_t write(int file, const void* bytes, size_t size)
{
    const bool isShort = !fault.call.empty() && size > 1;
    return callUnlessFaulty(write, "write", file, bytes, isShort ? size / 2 : size);
}
}

class tst_CurveFileStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTheNameIsLowered()
    {
        const std::pair<QString, QString> cases[] = {{"/Home/Ann/Curve", "/Home/Ann/curve.crv"},
                                                     {"/A.CRV/CURVE.crv", "/A.CRV/curve.crv"},
                                                     {"Curve.CRV", "curve.crv.crv"}};
        for (const auto& [chosen, path] : cases)
            QCOMPARE(CurveFileStore::pathToSave(chosen), path);
    }

    void loadsTheChosenFileIfThereIsOne()
    {
        const QTemporaryDir folder;
        const QString chosen = folder.filePath("Curve.crv"), lowered = folder.filePath("curve.crv");
        QVERIFY(!CurveFileStore::replacesAnotherFile(chosen));
        QVERIFY(CurveFileStore::replace(lowered, "a"));
        QCOMPARE(CurveFileStore::pathToLoad(chosen), lowered);
        QVERIFY(CurveFileStore::replacesAnotherFile(chosen) && !CurveFileStore::replacesAnotherFile(lowered));
        QVERIFY(CurveFileStore::replace(chosen, "b"));
        QCOMPARE(CurveFileStore::pathToLoad(chosen), chosen);
        QVERIFY(!CurveFileStore::replace(folder.path(), "x"));
    }

    void pipeAndLinkStay()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath("pipe"), link = folder.filePath("link");
        mkfifo(pipe.toLocal8Bit(), 0600);
        QVERIFY(!CurveFileStore::replace(pipe, "x"));
        QVERIFY(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
        QFile::link(folder.filePath("target"), link);
        for (const char* content : {"made", "old"})
            QVERIFY(CurveFileStore::replace(link, content));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(QFile(folder.filePath("target")).size(), 3);
    }

    void failedCallIsReported()
    {
        const std::pair<decltype(fault), const char*> cases[] = {
            {{"write", 0, ENOSPC}, "old"}, {{"write", 2, EIO}, "old"},  {{"fsync", 0, EIO}, "old"},
            {{"close", 0, EIO}, "old"},    {{"rename", 0, EIO}, "old"}, {{"fsync", 1, EIO}, "newer"}};
        const QTemporaryDir folder;
        const QString path = folder.filePath("curve.crv");
        for (const auto& [failing, content] : cases) {
            QVERIFY(CurveFileStore::replace(path, "old"));
            QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::WriteGroup));
            const QFile::Permissions permissions = QFile::permissions(path);
            fault = failing;
            const bool isReplaced = CurveFileStore::replace(path, "newer");
            fault = {};
            QFile file(path);
            QVERIFY2(!isReplaced && file.open(QIODevice::ReadOnly), failing.call.data());
            QCOMPARE(file.readAll(), QByteArray(content));
            QCOMPARE(file.permissions(), permissions);
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
        }
        fault = {"fsync", 1, EINVAL};
        const bool isReplaced = CurveFileStore::replace(path, "newest");
        fault = {};
        QVERIFY(isReplaced && QFile::setPermissions(path, QFile::ReadOwner));
        QVERIFY(geteuid() == 0 || !CurveFileStore::replace(path, "x"));
    }
};

QTEST_MAIN(tst_CurveFileStore)
#include "tst_CurveFileStore.moc"
