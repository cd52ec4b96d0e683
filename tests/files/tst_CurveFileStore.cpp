// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFileStore.h>

#include <QtTest>

#include <csignal>
#include <sys/resource.h>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// No file can grow beyond `bytes` while it lives, as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_;
};

} // namespace

class tst_CurveFileStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTheNameIsLowered_data()
    {
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("path");
        QTest::newRow("extension is added") << "/Home/Ann/curve"
                                            << "/Home/Ann/curve.crv";
        QTest::newRow("name in capitals") << "/Home/Ann/CURVE.crv"
                                          << "/Home/Ann/curve.crv";
        QTest::newRow("extension in capitals") << "Curve.CRV"
                                               << "curve.crv.crv";
        QTest::newRow("dots") << "/A.CRV/Cam.X"
                              << "/A.CRV/cam.x.crv";
        QTest::newRow("other letters") << QStringLiteral("Ärger.crv") << QStringLiteral("ärger.crv");
    }
    void onlyTheNameIsLowered()
    {
        QFETCH(const QString, chosen);
        QTEST(CurveFileStore::pathToSave(chosen), "path");
    }

    void loadsTheChosenFileIfThereIsOne()
    {
        const QTemporaryDir folder;
        const QString chosen = folder.filePath("Curve.crv");
        const QString lowered = folder.filePath("curve.crv");
        QVERIFY(!CurveFileStore::replacesAnotherFile(chosen));
        QVERIFY(CurveFileStore::replace(lowered, "a"));
        QCOMPARE(CurveFileStore::pathToLoad(chosen), lowered);
        QVERIFY(CurveFileStore::replacesAnotherFile(chosen));
        QVERIFY(!CurveFileStore::replacesAnotherFile(lowered));
        QVERIFY(CurveFileStore::replace(chosen, "b"));
        QCOMPARE(CurveFileStore::pathToLoad(chosen), chosen);
    }

    void failedWriteKeepsTheOldFile()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("curve.crv");
        QVERIFY(CurveFileStore::replace(path, "old"));
        {
            const FileSizeLimit limit(1000);
            for (const std::size_t size : {std::size_t(5000), std::size_t(100000)})
                QVERIFY(!CurveFileStore::replace(path, std::string(size, 'x')));
        }
        QCOMPARE(contentOf(path), "old");
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
        QVERIFY(CurveFileStore::replace(path, "new"));
        QCOMPARE(contentOf(path), "new");
    }

    void refusesAFolder()
    {
        const QTemporaryDir folder;
        QVERIFY(!CurveFileStore::replace(folder.path(), "x"));
        QVERIFY(!CurveFileStore::replace(folder.filePath("missing/curve.crv"), "x"));
    }
};

QTEST_MAIN(tst_CurveFileStore)
#include "tst_CurveFileStore.moc"
