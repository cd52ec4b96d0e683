// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/CurveFileStore.h>
#include <curveeditor/files/FileReplacement.h>
#include <support/Files.h>
#include <support/Test.h>

#include <cerrno>
#include <iostream>

#include <sys/stat.h>

namespace {

constexpr int longestSave = 60000; // milliseconds
const QString pointCount = "2000";

// What this program does as one of the savers that it starts.
int save(int points, const QString& path)
{
    CurveFile file;
    for (int i = 0; i < points; ++i)
        file.spline.addPoint(i, 1.0 / (i + 1));
    std::ostringstream content;
    file.write(content);
    const std::error_code fault = FileReplacement::write(CurveFileStore::nativePath(path), content.str());
    if (fault)
        std::cerr << fault.message() << '\n';
    return fault ? EXIT_FAILURE : EXIT_SUCCESS;
}

const QByteArray old(1000, 'o');

void addSavers()
{
    QTest::addColumn<QStringList>("saver");
    QTest::newRow("curve") << QStringList{QCoreApplication::applicationFilePath(), "--save", pointCount};
#ifdef DEMO
    QTest::newRow("demo") << QStringList{DEMO, "in.txt", "--export"};
    QTest::newRow("tool") << QStringList{CURVE_TOOL, "convert",         "--count", pointCount,
                                         "in.txt",   "--output-format", "table"};
#endif
}

} // namespace

class tst_SaveFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { addSavers(); }
    void initTestCase()
    {
        QVERIFY(outside_.isValid() && inside_.isValid() && QFile::link("out.txt", link()));
        umask(022);
    }

    void init()
    {
        QFETCH_GLOBAL(const QStringList, saver);
        saver_ = saver;
        written(outside("in.txt"), "t x\n0 0\n" + pointCount.toUtf8() + " 1\n");
        prepare();
        QVERIFY2(run(command(link())), errors_);
        new_ = contentOf(target());
        QVERIFY(new_.size() > old.size());
    }

    void failedCallLeavesOldOrNew()
    {
        const QByteArrayList writingCalls = {"open", "write", "fsync", "rename"};
        QByteArrayList calls;
        int lastSync = 0;
        for (const int error : {EIO, ENOSPC}) {
            for (int i = 1; runWith(QString::number(error), i); ++i) {
                calls.append(report_);
                lastSync = report_ == "fsync" ? i : lastSync;
                QVERIFY2(isOldOrNew() && litter() == 0, report_);
                QVERIFY2(!isDone_ || !writingCalls.contains(report_), report_);
            }
            QVERIFY(isDone_ && isOldOrNew());
        }
        for (const QByteArray& call : writingCalls)
            QVERIFY2(calls.contains(call), call);
        runWith(QString::number(EINVAL), lastSync);
        QVERIFY(isDone_ && isOldOrNew()); // the file system does not sync folders
        int i = 1;
        while (runWith("short", i++))
            QVERIFY(isDone_ && isOldOrNew() && litter() == 0);
        QVERIFY(i > 2);
    }

    void killOrLossOfPowerLeavesOldOrNew()
    {
        for (const char* how : {"kill", "drop", "undo"}) {
            for (int i = 1; runWith(how, i); ++i)
                QVERIFY2(isOldOrNew() && litter() <= 1, report_);
            QVERIFY(isDone_ && isOldOrNew() && litter() == 0);
        }
    }

    void fullDiskLeavesOld()
    {
        prepare();
        QVERIFY(!run(QStringList{"sh", "-c", "trap '' XFSZ; ulimit -f 16; exec \"$0\" \"$@\""} +
                     command(link())));
        QVERIFY(!errors_.isEmpty() && contentOf(target()) == old && litter() == 0);
        QVERIFY(!run(command("/dev/full")) && !errors_.isEmpty() && !QFileInfo("/dev/full").isFile());
    }

private:
    QString outside(const QString& name) const { return outside_.filePath(name); }
    QString link() const { return inside_.filePath("link.txt"); }
    QString target() const { return inside_.filePath("out.txt"); }
    QStringList command(const QString& path) const { return saver_ + QStringList{path}; }
    QStringList files() const { return QDir(inside_.path()).entryList(QDir::Files | QDir::Hidden); }
    int litter() const { return int(files().size()) - 2; }

    void prepare() const
    {
        for (const QString& name : files())
            QVERIFY(name == "link.txt" || QFile::remove(inside_.filePath(name)));
        written(target(), old);
        QVERIFY(chmod(QFile::encodeName(target()), 0664) == 0);
    }

    /// True if the program says that it is done.
    bool run(const QStringList& words)
    {
        QProcess process;
        process.setWorkingDirectory(outside_.path());
        process.start(words[0], words.mid(1));
        const bool isOver = process.waitForFinished(longestSave);
        errors_ = process.readAllStandardError();
        return isOver && process.exitStatus() == QProcess::NormalExit && process.exitCode() == EXIT_SUCCESS;
    }

    /// One save with a fault; false if no call was left to fail.
    bool runWith(const QString& how, int call)
    {
        prepare();
        written(outside("report"), "");
        const QStringList fault = {"FAULT_FOLDER=" + inside_.path(), "FAULT_REPORT=" + outside("report"),
                                   "FAULT_HOW=" + how, "FAULT_CALL=" + QString::number(call)};
        isDone_ =
            run(QStringList{"env"} + fault + QStringList{"LD_PRELOAD=" FAILING_FILES} + command(link()));
        report_ = contentOf(outside("report"));
        return report_ != "none";
    }

    /// Also that the link and the permissions are there, and that a save that is done is the new one.
    bool isOldOrNew() const
    {
        struct stat status = {};
        const QByteArray content = contentOf(target());
        return QFileInfo(link()).isSymLink() && (content == new_ || (content == old && !isDone_)) &&
               stat(QFile::encodeName(target()), &status) == 0 && (status.st_mode & 0777) == 0664;
    }

    QTemporaryDir inside_, outside_;
    QStringList saver_;
    QByteArray new_, errors_, report_;
    bool isDone_ = false;
};

int main(int argc, char* argv[])
{
    if (argc == 4 && std::string_view(argv[1]) == "--save")
        return save(std::atoi(argv[2]), QFile::decodeName(argv[3]));
    const QCoreApplication application(argc, argv);
    tst_SaveFaults test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_SaveFaults.moc"
