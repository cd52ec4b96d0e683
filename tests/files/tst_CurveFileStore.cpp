// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>

#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

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

    void pipeLinkAndFileForReadingStay()
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
        QFile target(folder.filePath("target"));
        QCOMPARE(target.size(), 3);
        QVERIFY(target.setPermissions(QFile::ReadOwner));
        QVERIFY(geteuid() == 0 || !CurveFileStore::replace(link, "x"));
        QVERIFY(QFile::link("endless", folder.filePath("endless")));
        QVERIFY(!CurveFileStore::replace(folder.filePath("endless"), "x"));
    }
};

QTEST_MAIN(tst_CurveFileStore)
#include "tst_CurveFileStore.moc"
