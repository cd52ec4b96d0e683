// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/CurveFileStore.h>
#include <curveeditor/files/FileReplacement.h>
#include <model/CommaLocale.h>
#include <support/Test.h>

#include <array>
#include <string_view>

#include <sys/stat.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/xattr.h>

using namespace curveeditor;
#endif

namespace {

std::string text(const CurveFile& file)
{
    std::ostringstream out;
    file.write(out);
    return out.str();
}

bool read(CurveFile& file, const std::string& content)
{
    std::istringstream in(content);
    return file.read(in);
}

bool replace(const QString& path, std::string_view content)
{
    return !FileReplacement::write(CurveFileStore::nativePath(path), content);
}

void make(const QString& path, int ageInHours = 0)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QDateTime time = QDateTime::currentDateTime().addSecs(-3600 * ageInHours);
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

} // namespace

class tst_CurveFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splineComesBackInEveryLocale()
    {
        const CommaLocale commas;
        CurveFile written, reread;
        written.color = {255, 128, 0};
        written.spline.addPoint(1234567.875, 0.1);
        reread.kind = CurveFile::Expression;
        const std::string content = text(written);
        QVERIFY(read(reread, content) && content.starts_with("255\n128\n0\n0\n"));
        QCOMPARE(text(reread), content);
        QCOMPARE(reread.spline(1234567.875), 0.1);
    }

    void readsWhatIsWhole()
    {
        const std::pair<const char*, const char*> cases[] = {
            {"1\r\n2\r\n3\r\n1\r\nt+1\r\n", "1\n2\n3\n"},
            {"-1 256 99999999999999999999 * t+1 *2", "0\n255\n255\n"},
            {"+1-2+255 1 t+1", "1\n0\n255\n"}};
        for (const auto& [content, color] : cases) {
            CurveFile file;
            QVERIFY2(read(file, content), content);
            QCOMPARE(text(file), color + std::string("1\nt+1\n"));
        }
    }

    void changesNothingForWhatIsNot()
    {
        CurveFile whole, file;
        whole.spline.addPoint(1234567.875, 0.1);
        const std::string spline = text(whole), before = text(file);
        const std::vector<std::string> contents = {"Dear reader",
                                                   std::string("\177ELF\0\1", 6),
                                                   "1\n2.5\n3\n1\nt\n",
                                                   "1\n2\n3\n1\n",
                                                   "1\n+-2\n3\n1\nt\n",
                                                   "1\n" + std::string(1000, '2') + "\n3\n1\nt\n",
                                                   "1\n2\n3\n1\n" + std::string((1u << 20) + 1, 't'),
                                                   "1\n2\n3\n0\n1000000000000 1 2 3\n",
                                                   spline.substr(0, spline.size() / 2)};
        for (const std::string& content : contents) {
            QVERIFY2(!read(file, content), content.substr(0, 100).c_str());
            QVERIFY(text(file) == before && file.expression.empty());
        }
    }

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

QTEST_MAIN(tst_CurveFiles)
#include "tst_CurveFiles.moc"
