// SPDX-License-Identifier: MIT
#include "CurveTool.h"
#include "TextNumber.h"
#include <support/Files.h>
#include <support/Test.h>
#include <support/Transcript.h>

const QByteArray spline = "1\n2\n3\n0\nspline 0 3 0.5\n0 1 0 0 0 0 0 0 0 0\n4 3 0 0 0 0 0 0 0 0\nend\n";
const QByteArray formula = "1\n2\n3\n1\nlog(t)+0*f\n";
const QByteArray table = "s,key light,b\n0,1,5\n2,3,7\n";
const QByteArray spectra = "CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID SAMPLE_NAME SPECTRAL_NM_380 nm390\n"
                           "END_DATA_FORMAT\nNUMBER_OF_SETS 2\nBEGIN_DATA\n1 \"dark skin\" 0.5 1\n"
                           "2 \"../x\" 2 3\nEND_DATA\n";
const QByteArray keys =
    "{\"format\":\"curve-keys\",\"version\":1,\"color\":[1,2,3],\"before\":\"zero\","
    "\"after\":\"loop-offset\",\"default\":0.5,\"keys\":[\n"
    "{\"time\":0.0,\"value\":1.0,\"shape\":\"linear\",\"in\":{\"slope\":0.0},\"out\":{\"slope\":0.0}},\n"
    "{\"time\":4.0,\"value\":3.0,\"shape\":\"linear\",\"in\":{\"slope\":0.0},\"out\":{\"slope\":0.0}}]}\n";

QByteArray altered(QByteArray text, const char* part, const char* replacement = "")
{
    return text.replace(part, replacement);
}

/// Runs commands on what stands on standard input.
class tst_CurveTool : public QObject
{
    Q_OBJECT

    using Writes = Rows<QByteArray, QString, QByteArray>; // input, command and output

private Q_SLOTS:
    void writes_data()
    {
        const Writes row;
        row("info, control characters",
            "t;\xC2\x9B"
            "b\xFF\n0;1\n",
            "info -",
            "file: standard input\nformat: table\ncurves: 1\nsamples: 1 in each\ntime: 0 to 0\ncurve 1: "
            "'?b?' 1 to 1\n");
        row("formula of another system", altered(formula, "\n", "\r\n"), "sample - --from 1 --to 1",
            "1\t0\n");
        row("version", "", "--version", "curve-tool " CURVE_TOOL_VERSION "\n");
        row("curve in one line", altered(spline, "\n", " ").prepend("\xEF\xBB\xBF"), "sample - --step 4",
            "0\t1\n4\t3\n");
    }

    void writes()
    {
        const auto [input, command, output] = Writes::present();
        QVERIFY2(run(input, command) == 0, errors_.constData());
        QCOMPARE(output_, output);
    }

    void refuses_data()
    {
        const Rows<QByteArray, QString, int, QByteArray> rows;
        const auto row = [&rows](const char* name, const QByteArray& input, const char* reason,
                                 const char* command = "info -", int code = 1) {
            rows(name, input, command, code, reason);
        };
        row("nothing", "", ":1: the table has no rows");
        row("no text", {"0 1\n\0 2", 7}, ":2: there is a NUL byte");
        row("truncated spectra", altered(spectra, "END_DATA\n"), ":8: the file ends before END_DATA");
        row("format alone", spectra.left(spectra.indexOf("BEGIN_DATA\n")), "ends before BEGIN_DATA");
        row("operands alone", "", "--x: No such file", "info -- --x");
        row("truncated curve", altered(spline, "end\n"), "standard input:8: the file ends too early");
        row("directory", "", "/: is a directory\n", "info /");
        row("missing file", "", "/nowhere/a.crv: No such file or directory\n", "info /nowhere/a.crv");
        row("onto a device", spline, "/dev/full: No space", "convert - /dev/full --output-format crv");
        row("onto a directory", spline, "/: is a directory", "convert - / --output-format crv");
        row("into nowhere", spline, "/nowhere/a.crv: No such file", "convert - /nowhere/a.crv");
        row("into no directory", table, "/dev/null: ", "convert - --all /dev/null");
        row("ill-formed", "{\"format\": \"curve-keys\",\n\"\xFF\"}",
            ":2: column 2: syntax error while parsing object key - invalid string: ill-formed UTF-8");
        row("cut keys", keys.chopped(20), ":3: column 64: syntax error while parsing object key");
    }

    void refuses()
    {
        const auto [input, command, code, reason] = Rows<QByteArray, QString, int, QByteArray>::present();
        if (!program.isEmpty() &&
            QRegularExpression("^(onto a device|into nowhere)$").match(QTest::currentDataTag()).hasMatch())
            QSKIP("the other system says it in words of its own");
        QCOMPARE(run(input, command), code);
        QVERIFY2(errors_.contains(reason), errors_.constData());
    }

    void nothingElseIsWritten()
    {
        Transcript::play(QFINDTESTDATA("curve_tool.txt"), path(""),
                         [this](const QByteArray& input, const QString& command) {
                             const int code = run(input, command);
                             return Transcript::Outcome{code, output_, errors_};
                         });
    }

    void eachCurveGetsAFile()
    {
        QCOMPARE(run(altered(spectra, "../x", "Dark/Skin"), "convert - --all " + path("new")), 0);
        QCOMPARE(names("new"), (QStringList{"Dark_Skin.crv", "dark skin.crv"}));
        QCOMPARE(run("t .a .A x\n0 1 2 3\n", "convert - --all " + path("dots")), 0);
        QCOMPARE(names("dots"), (QStringList{"_.A-2.crv", "_.a.crv", "x.crv"}));
        QCOMPARE(run("t;" + QByteArray(99, 'x') + "ü;\xC2\x9B/ä\n0;1;2\n", "convert - --all " + path("odd")),
                 0);
        QCOMPARE(names("odd"), (QStringList{"__ä.crv", QString(99, 'x') + ".crv"}));
        QCOMPARE(run("t a a a-2\n0 1 2 3\n", "convert - --all " + path("alike")), 0);
        QCOMPARE(names("alike").size(), 3);
        QVERIFY2(run("", "sample " + path("dots/_.A-2.crv")) == 0, errors_);
        QCOMPARE(output_, QByteArray("0\t2\n"));
    }

    void endingTellsTheFormat()
    {
        const QByteArray rows = "time,a\n0,1\n4,3\n";
        for (const char* const name : {"a.csv", "b.CSV", "a.txt", "a.tsv"}) {
            QCOMPARE(run(rows, QString("convert - ") + path(name)), 0);
            QCOMPARE(contentOf(path(name)), name[2] == 't' ? altered(rows, ",", "\t") : rows);
        }
        QVERIFY(run(spline, "convert - " + path("a.json")) == 0 && contentOf(path("a.json")) == keys);
        QCOMPARE(run(rows, "convert - --output-format json --all " + path("keys")), 0);
        QCOMPARE(names("keys"), QStringList("a.json"));
        QCOMPARE(run(spline, "sample -"), 0);
        QVERIFY(output_.startsWith("0\t1\n0.04\t1.02\n") && output_.count('\n') == 101);
    }

    void outputThatFailsEndsWithOne()
    {
        std::istringstream in;
        std::ostringstream out, messages;
        out.setstate(std::ios::badbit);
        QCOMPARE(runCurveTool({"--version"}, {in, out, messages}), 1);
        QCOMPARE(messages.str(), std::string("standard output: could not be written\n"));
    }

    void fileIsReplacedAsAWholeOrNotAtAll()
    {
        if (!program.isEmpty())
            QSKIP("links and permissions are those of this system");
        QCOMPARE(run(spline, "convert - " + path("target.crv")), 0);
        QVERIFY(QFile::setPermissions(path("target.crv"), QFile::ReadOwner | QFile::WriteOwner));
        QVERIFY(QFile::link("target.crv", path("link.crv")));
        QCOMPARE(run(table, "convert - " + path("link.crv --curve 7")), 1);
        QCOMPARE(run("", "convert " + path("link.crv ") + path("link.crv --step 2")), 0);
        QVERIFY(QFileInfo(path("link.crv")).isSymLink());
        QCOMPARE(QFile::permissions(path("target.crv")) & (QFile::ReadGroup | QFile::ReadOther),
                 QFile::Permissions());
        QCOMPARE(run("", "sample " + path("target.crv --count 3")), 0);
        QCOMPARE(output_, QByteArray("0\t1\n2\t2\n4\t3\n"));
        QVERIFY(QDir(folder_.path()).entryList({"*.new*"}).isEmpty());
    }

    void simplifyTellsWhatItDid()
    {
        QByteArray samples;
        for (int i = 0; i <= 400; ++i)
            samples += QByteArray::number(i) + ' ' + QByteArray::number(std::sin(i / 60.0), 'g', 12) + '\n';
        QCOMPARE(run("t a\n0 1000\n1 1001\n2 1000\n", "simplify - -o - --tolerance 10 --percent"), 0);
        QVERIFY(errors_.startsWith("3 points stay"));
        QCOMPARE(run(samples, "simplify - -o - --tolerance 0.1 --percent"), 0);
        const QRegularExpression report("^401 points become (\\d+), at most (\\S+) away\n$");
        const QRegularExpressionMatch match = report.match(errors_);
        QVERIFY2(match.hasMatch(), errors_.constData());
        QVERIFY(match.captured(1).toInt() < 20 && match.captured(2).toDouble() <= 0.002);
        QCOMPARE(output_.count('\n'), 6 + match.captured(1).toInt());
        QVERIFY(toShortLimit(0.00121) == "0.0013" && toShortLimit(0.012) == "0.012"); // never too little
        for (const auto& [option, lines] : {std::pair("", 9), {" --monotone", 10}}) {
            QCOMPARE(run("0 0\n1 0\n2 8\n3 8\n",
                         QString("convert - - --output-format crv --tolerance 0.5") + option),
                     0);
            QCOMPARE(output_.count('\n'), lines);
        }
    }

private:
    QString path(const QString& name) const { return folder_.filePath(name); }

    QStringList names(const QString& folder) const
    {
        return QDir(path(folder)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    int run(const QByteArray& input, const QString& command)
    {
        if (!program.isEmpty())
            return runProgram(input, command);
        std::istringstream in(toText(input));
        std::ostringstream out, messages;
        std::vector<std::string> words;
        for (const QString& word : QProcess::splitCommand(command))
            words.push_back(toText(word));
        const int code = runCurveTool(words, {in, out, messages});
        output_ = out.str().c_str();
        errors_ = messages.str().c_str();
        return code;
    }

    int runProgram(const QByteArray& input, const QString& command)
    {
        QProcess process;
        process.start(program[0], program.mid(1) + QProcess::splitCommand(command));
        process.write(input);
        process.closeWriteChannel();
        const bool isOver = process.waitForFinished();
        output_ = process.readAllStandardOutput();
        errors_ = process.readAllStandardError();
        return isOver && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    /// Of another system, apart by "|": the commands are run by it instead of here.
    const QStringList program = qEnvironmentVariable("CURVE_TOOL").split('|', Qt::SkipEmptyParts);
    QTemporaryDir folder_;
    QByteArray output_;
    QByteArray errors_;
};

QTEST_GUILESS_MAIN(tst_CurveTool)
#include "tst_CurveTool.moc"
