// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>

#include <QtTest>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

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

    void failedWriteKeepsTheOldFile()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("curve.crv");
        QVERIFY(CurveFileStore::replace(path, "old"));
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit before;
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit tight{1000, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tight);
        const bool small = CurveFileStore::replace(path, std::string(5000, 'x'));
        const bool large = CurveFileStore::replace(path, std::string(100000, 'x'));
        setrlimit(RLIMIT_FSIZE, &before);
        QFile file(path);
        QVERIFY(!small && !large && file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("old"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    }
};

QTEST_MAIN(tst_CurveFileStore)
#include "tst_CurveFileStore.moc"
