// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>
#include <curveeditor/files/FileReplacement.h>

#include <QtTest>

#include <array>
#include <string_view>

#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace {

bool replace(const QString& path, std::string_view content)
{
    return !FileReplacement::write(CurveFileStore::nativePath(path), content);
}

void make(const QString& path, int ageInHours = 0)
{
    QVERIFY(QFile(path).open(QIODevice::WriteOnly));
    const timeval time = {std::time(nullptr) - ageInHours * 3600L, 0};
    const std::array<timeval, 2> times = {time, time};
    QCOMPARE(utimes(QFile::encodeName(path), times.data()), 0);
}

} // namespace

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
        QVERIFY(replace(lowered, "a"));
        QCOMPARE(CurveFileStore::pathToLoad(chosen), lowered);
        QVERIFY(CurveFileStore::replacesAnotherFile(chosen) && !CurveFileStore::replacesAnotherFile(lowered));
        QVERIFY(replace(chosen, "b"));
        QCOMPARE(CurveFileStore::pathToLoad(chosen), chosen);
        QVERIFY(!replace(folder.path(), "x"));
    }

    void pipeLinkAndFileForReadingStay()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath("pipe"), link = folder.filePath("link");
        mkfifo(pipe.toLocal8Bit(), 0600);
        QVERIFY(!replace(pipe, "x"));
        QVERIFY(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
        QFile::link(folder.filePath("target"), link);
        for (const char* content : {"made", "old"})
            QVERIFY(replace(link, content));
        QVERIFY(QFileInfo(link).isSymLink());
        QFile target(folder.filePath("target"));
        QCOMPARE(target.size(), 3);
        QVERIFY(target.setPermissions(QFile::ReadOwner));
        QVERIFY(geteuid() == 0 || !replace(link, "x"));
        QVERIFY(QFile::link("endless", folder.filePath("endless")));
        QVERIFY(!replace(folder.filePath("endless"), "x"));
    }

    void ownerGroupModeAndAttributesStay()
    {
        const QTemporaryDir folder;
        const QByteArray path = QFile::encodeName(folder.filePath("shared"));
        make(path);
        const bool isRoot = geteuid() == 0;
        QVERIFY(!isRoot || chown(path, 1234, 5678) == 0);
        QCOMPARE(chmod(path, 0667), 0);
#ifdef __linux__
        const bool hasAttributes = setxattr(path, "user.from", "a", 1, 0) == 0 && //
                                   setxattr(path, "user.tags", "b c", 3, 0) == 0;
        QVERIFY(replace(path, "new"));
        std::array<char, 9> value = {};
        QVERIFY(!hasAttributes || getxattr(path, "user.tags", value.data(), value.size()) == 3);
        QCOMPARE(value.data(), hasAttributes ? "b c" : "");
#endif
        QVERIFY(replace(path, "newer"));
        struct stat status = {};
        QCOMPARE(stat(path, &status), 0);
        QVERIFY(!isRoot || (status.st_uid == 1234 && status.st_gid == 5678));
        QCOMPARE(status.st_mode & 0777, 0667U);
        const mode_t mask = umask(0027);
        QVERIFY(replace(folder.filePath("fresh"), "x"));
        umask(mask);
        QCOMPARE(stat(QFile::encodeName(folder.filePath("fresh")), &status), 0);
        QCOMPARE(status.st_mode & 0777, 0640U);
    }

    void leftoversOfKilledSavesGo()
    {
        const QTemporaryDir folder;
        const QStringList kept = {".curve-1-2x", ".curve-1",   ".curve--2",
                                  "curve-1-2",   ".curve-4-5", ".curve-7-8"};
        for (const QString& name : kept)
            make(folder.filePath(name), name == ".curve-4-5" ? 23 : 99);
        make(folder.filePath(".curve-12-3456"), 25);
        QVERIFY(QDir(folder.path()).mkdir(".curve-6-6") &&
                QFile::link("none", folder.filePath(".curve-9-9")));
        const bool isRoot = geteuid() == 0;
        QVERIFY(!isRoot || chown(QFile::encodeName(folder.filePath(".curve-7-8")), 1234, 5678) == 0);
        QVERIFY(replace(folder.filePath("a.crv"), "x"));
        const auto isThere = [&folder](const QString& name) {
            return QFileInfo::exists(folder.filePath(name));
        };
        for (const QString& name : kept)
            QCOMPARE(isThere(name), isRoot || name != ".curve-7-8");
        QVERIFY(!isThere(".curve-12-3456") && isThere(".curve-6-6"));
        QVERIFY(QFileInfo(folder.filePath(".curve-9-9")).isSymLink());
    }
};

QTEST_MAIN(tst_CurveFileStore)
#include "tst_CurveFileStore.moc"
