// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/CurveFileStore.h>
#include <curveeditor/files/FileReplacement.h>
#include <curveeditor/files/NumberText.h>
#include <curveeditor/files/SensorTable.h>
#include <curveeditor/files/TableReader.h>
#include <curveeditor/files/TextFields.h>
#include <model/CommaLocale.h>
#include <support/Formulas.h>
#include <support/Test.h>

#include <array>
#include <string_view>

#include <sys/stat.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/xattr.h>
#endif

using Decimal = TableReader::Decimal;

// The table as "s a b: 0 1 2; 1 3 4", or why it is refused as "line: reason".
QString readFrom(const QByteArray& text, Decimal decimal = Decimal::FromText)
{
    TableReader reader({text.constData(), std::size_t(text.size())}, decimal);
    const auto table = reader.readAll();
    if (!table)
        return QStringLiteral("%1: %2").arg(reader.fault().line).arg(reader.fault().message().c_str());
    QString shown;
    for (const std::string& name : table->names)
        shown += (shown.isEmpty() ? "" : "|") + QString::fromStdString(name);
    for (std::size_t row = 0; row < table->times.size(); ++row) {
        shown += (row == 0 ? ": " : "; ") + QString::number(table->times[row]);
        for (const std::vector<double>& column : table->columns)
            shown += ' ' + QString::number(column[row]);
    }
    return shown;
}

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

class tst_TableReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatPeopleWriteOrTellsLineAndReason_data()
    {
        const Rows<QByteArray, QString> row;
        const auto table = [&row](const char* name, const QByteArray& text, const char* rows) {
            row(name, text, "column1|column2: " + QString(rows));
        };
        table("blanks", "0 1.5\n 1   -2e3 \n", "0 1.5; 1 -2000");
        table("tabs and CRLF", "0\t1\r\n1\t+2\r\n", "0 1; 1 2");
        table("carriage returns alone", "0 0\r1 1\r", "0 0; 1 1");
        table("comments and empty lines", "# a\n\n0 1\n  # b\n1 2", "0 1; 1 2");
        table("times in any order", "2 20\n0 0\n1 10\n", "0 0; 1 10; 2 20");
        QString equal = "0 0";
        QByteArray rows = "1 0\n";
        for (int i = 1; i < 40; ++i) { // short lists are sorted otherwise
            rows += "1 " + QByteArray::number(i) + '\n';
            equal += QStringLiteral("; 1 %1").arg(i - 1);
        }
        table("equal times stay in order", rows + "0 0\n", qPrintable(equal + "; 1 39"));
        table("byte order mark", "\xEF\xBB\xBF-1,2.0\n", "-1 2");
        table("extremes", "1e300 -1e-300\n1e-999 0\n", "0 0; 1e+300 -1e-300");
        row("sensor rows", "520,\t0.25,\t1,\t\n521,\t0.5,\t2,\t",
            "column1|column2|column3: 520 0.25 1; 521 0.5 2");
        row("sensor table",
            "# a\n\nversion\t 1.0\ntype\t cye64\nnum_curves\t 1\nnum_lambdas\t 1\n\n5,\t2,\t\n",
            "column1|column2: 5 2");
        row("names", "time Camera.pan zoom\n0 1 2\n", "time|Camera.pan|zoom: 0 1 2");
        row("numbers as names", "nm,1,2.5\n0,1,2\n", "nm|1|2.5: 0 1 2");
        row("blanks in names, commas", ", key light ,Übergang\n0,1,2", "column1|key light|Übergang: 0 1 2");
        row("blanks in names, tabs", "t\tkey light, m\t\tb\t\n0\t1\t2\t\n", "t|key light, m|b: 0 1 2");
        row("no name, tabs", "\tb\n0\t1\n", "column1|b: 0 1");
        row("quotes", "\"t\" ,\"a,; \"\"b\"\" c\" , d\n0, \"1\",2", "t|a,; \"b\" c|d: 0 1 2");

        row("quotes at the end of a name", "\"*\",\"a \"\"\"\n0,1\n", "*|a \": 0 1");
        table("too small", "1e-400 1E-400\n", "0 0");
        table("decimal commas, semicolons", "1,5;0,25\n0;2\n", "0 2; 1.5 0.25");
        table("decimal commas, padded", "1,5;\t0,25;\n0;\t2;\n", "0 2; 1.5 0.25");
        table("decimal commas, tabs", "0,5\t1,500\n", "0.5 1.5");
        table("decimal commas, blanks", "0,5 1,5\n", "0.5 1.5");
        table("decimal commas, quoted", "\"0,5\",\"1,5\"\n", "0.5 1.5");
        table("nothing but a decimal comma", "0\t1,234\n0\t0,125\n", "0 1.234; 0 0.125");
        table("thousands and a point", "0\t+1,234\n1\t-123,456.0\n", "0 1234; 1 -123456");
        table("four digits behind it", "0\t1,2345\n", "0 1.2345");
        table("several groups", "0\t1,234,567\n", "0 1.23457e+06");
        row("head before pairs", "a,b\n1,5\n2,5\n", "a|b: 1 5; 2 5");
        table("blank before pairs", "1, 5\n2,5\n", "1 5; 2 5");
        table("points in pairs", "1,5\n2,5.5\n", "1 5; 2 5.5");
        table("signs in pairs", "1,5\n2,-5\n", "1 5; 2 -5");
        row("three columns", "1,234,567\n", "column1|column2|column3: 1 234 567");

        const char* const ways = "%1: '%2' can be read in two ways: the comma may be the decimal sign or not";
        const auto ambiguous = [&](const char* name, const QByteArray& text, int line, const char* field) {
            row(name, text, QString(ways).arg(line).arg(field));
        };
        ambiguous("thousands or not", "x\ty\n0\t1\n1\t1,234\n", 3, "1,234");
        ambiguous("thousands or not, quoted", "\"1,234\",\"5,678\"\n", 1, "1,234");
        ambiguous("thousands or not, blanks", "1,234 5,678\n", 1, "1,234");
        ambiguous("a column or two", "\n1,5\n2,5\n", 2, "1,5");

        row("empty file", "", "1: the table has no rows");
        row("names alone", "# x\nt a\n\n", "3: the table has no rows");
        row("time alone", "1\n2\n", "1: there is no column beside the time");
        row("short row", "0 1 2\n\n1 2\n", "3: the row has 2 columns instead of 3");
        row("long row", "t a\n1 2 3\n", "2: the row has 3 columns instead of 2");
        row("empty field", "0,1,2\n1,,3\n", "2: a number is missing");
        row("text", "0 1\n1 2x\n", "2: '2x' is no number");
        row("hexadecimal", "0x10 0\n", "1: '0x10' is no number");
        row("two signs", "0 +-1\n", "1: '+-1' is no number");
        row("two decimal signs", "0\t1.000,5\n", "1: '1.000,5' is no number");
        row("point among commas", "0\t1,5\n1.5\t0", "2: '1.5' is no number");
        row("wrong groups", "0\t1,234.5\n1\t1,23", "2: '1,23' is no number");
        row("not a number", "0 nan\n", "1: 'nan' is no finite number");
        row("infinite time", "inf 1\n", "1: 'inf' is no finite number");
        row("too large", "0 1e999\n", "1: '1e999' is no finite number");
        row("open quotation", "t,\"a\n0,1\n", "1: a quotation mark has no partner");
        row("lost row", "num_lambdas 2\n0 1\n", "2: the head announces 2 rows, but there are 1");
        row("lost curve", "num_curves 2\n0 1\n", "2: the head announces 2 curves, but there are 1");
        row("part of a row", "num_lambdas 1.5\n0 1\n", "1: '1.5' is no number");
        row("no count", "num_curves nan\n0 1\n", "1: 'nan' is no number");
        row("binary", QByteArray("\x89PNG \0\x01\n", 8), "1: the table has no rows");
        row("no row announced", "num_lambdas 0\n0 1\n", "2: the head announces 0 rows, but there are 1");
        table("four digits before a comma", "0\t1234,567\n", "0 1234.57");
        table("zero before a comma", "0\t0,125\n", "0 0.125");
        row("short group", "0\t12,345,67\n", "1: '12,345,67' is no number");
        row("other signs before tabs", "1,\t2;\t3\n", "1: '1,' is no number");
        row("endless line", QByteArray(20 << 20, '7'), "1: the line is longer than 16 MiB");
    }

    void readsWhatPeopleWriteOrTellsLineAndReason()
    {
        const auto [text, result] = Rows<QByteArray, QString>::present();
        QCOMPARE(readFrom(text), result);
    }

    void decimalSignThatIsGivenHolds()
    {
        const QString head = "column1|column2: ";
        const std::tuple<const char*, QString, QString> cases[] = {
            {"0\t1,234", head + "0 1.234", head + "0 1234"},
            {"1,5\n2,5", "1: there is no column beside the time", head + "1 5; 2 5"},
            {"1,234 5,678", head + "1.234 5.678", head + "1234 5678"},
            {"0 1.5", "1: '1.5' is no number", head + "0 1.5"},
            {"0\t1,5", head + "0 1.5", "1: '1,5' is no number"}};
        for (const auto& [text, withComma, withPoint] : cases) {
            QCOMPARE(readFrom(text, Decimal::Comma), withComma);
            QCOMPARE(readFrom(text, Decimal::Point), withPoint);
        }
    }

    void readerTellsWhereItIs()
    {
        TableReader reader("\na b\n\n0 1.5\n2 3 ");
        QVERIFY(reader.hasHead() && reader.next() && reader.line() == 4 && reader.place() == 12);
        QVERIFY(reader.fields() == (std::vector<std::string>{"0", "1.5"}) && reader.number(1) == 1.5);
        QVERIFY(reader.next() && reader.place() == 16 && !reader.next() && !reader.next());
        QVERIFY(reader.line() == 5 && reader.fault().message().empty());
        const TableReader::Fault fault{TableReader::Fault::Kind::TooManyValues, 1, {}, 7, 0};
        QCOMPARE(fault.message(), std::string("the table has more than 7 values"));
        QVERIFY(SensorTable::row(-5, {-std::numeric_limits<double>::max()}).starts_with("-5,\t-17976931"));
    }

    void whatIsShownIsWholeCharactersWithoutControl()
    {
        using namespace TextFields;
        const std::string ends =
            " ~\xC2\xA0\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
        QCOMPARE(printable(ends), ends); // of the ranges of characters
        QCOMPARE(printable("\x1Fz\xC2\x9Fz\xE0\x9F\xBFz\xF0\x8F\xBF\xBFz\xED\xBF\xBF", '_'),
                 std::string("_z_z_z_z_"));
        QCOMPARE(shortened("aü", 3), std::string_view("aü"));
        QCOMPARE(inQuotes(std::string(40, 'x')), '\'' + std::string(40, 'x') + '\'');
        QCOMPARE(printable("a\x1B\x7Fü\u20AC\xC2\x9B"
                           "b\xFF\xE2\x82"),
                 std::string("a??ü€?b??"));
        QCOMPARE(printable("\xE0\x82\x9Bz\xED\xA0\x80", '_'), std::string("_z_"));
        QCOMPARE(printable("\xF5z\xE2(\xA1z\xEE\x80\x80z\xF4\x90\x80\x80", '_'),
                 std::string("_z_(_z\xEE\x80\x80z_"));
        QCOMPARE(shortened("aü€", 5), std::string_view("aü"));
        QCOMPARE(inQuotes(std::string(39, 'x') + "ü"), '\'' + std::string(39, 'x') + "...'");
    }

    void typedTextIsWhatTheParserMakesOfItWithoutCurves()
    {
        SplineBase spline;
        ReadCurves curves;
        for (const char* const name : {"pan", "pi", "1,5", "e"})
            curves.add(name, &spline, nullptr);
        const std::pair<double, QStringList> cases[] = {
            {1.5, {"1.5", "1,5", "1\u066B5"}},
            {-0.5, {" -,5 "}},
            {3.0, {"1+2"}},
            {std::acos(0.0), {"pi/2"}},
            {1.0, {"min(1,2)"}},
            {3.5, {"1,5+max(1,2)"}},
            {1000.0, {"1e3"}},
            {infinity, {"1/0"}},
            {-infinity, {"-1/0"}},
            {notANumber,
             {"2,5)", "(1,5)", "1,234,567", "0/0", "1e400", "1 2", "--", "", "nan", "inf", "t", "0*f", "pan",
              "0x10"}}};
        for (const auto& [number, texts] : cases) {
            for (const QString& text : texts) {
                const std::optional<double> read = NumberText::read(text);
                QVERIFY2(std::isnan(number) ? !read : read == number, qPrintable(text));
                QCOMPARE(NumberText::readFinite(text).has_value(), std::isfinite(number));
            }
        }
        QCOMPARE(NumberText::read("min(1,2)+,5"), std::optional(1.5));
        QCOMPARE(NumberText::read(QString("1+").repeated(10'000) + '1'), std::optional(10'001.0));
        QVERIFY(!NumberText::read(QString("(").repeated(10'000)));
        QCOMPARE(FunctionParserBase::instance()->getVarMapper(), &curves);
    }

    void textHasTheSignOfItsLocaleAndNoGroups()
    {
        const QLocale german(QLocale::German);
        QCOMPARE(NumberText::brief(1234.5678, german), "1234,57");
        QCOMPARE(NumberText::full(1.0 / 3.0, german), "0,3333333333333333");
        QCOMPARE(NumberText::full(12345678.25, QLocale(QLocale::English)), "12345678.25");
        for (const auto& [number, text] : {std::pair(1e-5, "0.00001"),
                                           {9e-6, "9e-06"},
                                           {-1e15, "-1e+15"},
                                           {-9e14, "-900000000000000"},
                                           {0.0, "0"}})
            QCOMPARE(NumberText::full(number, QLocale::c()), text);
        QCOMPARE(NumberText::full(-1.5e300, QLocale("ar_EG")), "-1\u066B5e+300");
        QCOMPARE(NumberText::withPoint("-1\u066B5"), "-1.5");
    }

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

    void readsWhatIsWholeAndChangesNothingForWhatIsNot()
    {
        for (const auto& [content, color] : {std::pair("1\r\n2\r\n3\r\n1\r\nt+1\r\n", "1\n2\n3\n"),
                                             {"-1 256 99999999999999999999 * t+1 *2", "0\n255\n255\n"},
                                             {"+1-2+255 1 t+1", "1\n0\n255\n"}}) {
            CurveFile file;
            QVERIFY2(read(file, content), content);
            QCOMPARE(text(file), color + std::string("1\nt+1\n"));
        }
        CurveFile longest;
        QVERIFY(read(longest, std::string(32, '2') + " 254 0 2 " + std::string(1u << 20, 't')));
        QVERIFY(longest.kind == CurveFile::Expression && text(longest).starts_with("255\n254\n0\n1\ntt"));
        CurveFile whole, file;
        whole.spline.addPoint(1234567.875, 0.1);
        const std::string spline = text(whole), before = text(file);
        const std::vector<std::string> contents = {"Dear reader",
                                                   std::string("\177ELF\0\1", 6),
                                                   "1\n2.5\n3\n1\nt\n",
                                                   "1\n2\n3\n1\n",
                                                   "1\n+-2\n3\n1\nt\n",
                                                   "1\n" + std::string(33, '2') + "\n3\n1\nt\n",
                                                   "1\n2\n3\n",
                                                   "1\n2\n3\n1\n" + std::string((1u << 20) + 1, 't'),
                                                   "1\n2\n3\n0\n1000000000000 1 2 3\n",
                                                   spline.substr(0, spline.size() / 2)};
        for (const std::string& content : contents) {
            QVERIFY2(!read(file, content), content.substr(0, 100).c_str());
            QVERIFY(text(file) == before && file.expression.empty());
        }
    }

    void onlyTheNameIsLoweredIfTheChosenFileIsNotThere()
    {
        QCOMPARE(CurveFileStore::pathToSave("/Home/Ann/Curve"), "/Home/Ann/curve.crv");
        QCOMPARE(CurveFileStore::pathToSave("/A.CRV/CURVE.crv"), "/A.CRV/curve.crv");
        QCOMPARE(CurveFileStore::pathToSave("Curve.CRV"), "curve.crv.crv");
        const QTemporaryDir folder;
        const QString chosen = folder.filePath("Curve.crv"), lowered = folder.filePath("curve.crv");
        QVERIFY(!CurveFileStore::replacesAnotherFile(chosen) && replace(lowered, "a"));
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
        QVERIFY(!replace(pipe, "x") && QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
        QFile::link(folder.filePath("target"), link);
        for (const char* content : {"made", "old"})
            QVERIFY(replace(link, content));
        QVERIFY(QFileInfo(link).isSymLink());
        QFile target(folder.filePath("target"));
        QCOMPARE(target.size(), 3);
        QVERIFY(target.setPermissions(QFile::ReadOwner) && (geteuid() == 0 || !replace(link, "x")));
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
        const QStringList kept = {".curve-1-2x", ".curve-1",  ".curve-1-",  ".curve-1x2",
                                  ".curve--2",   "curve-1-2", ".curve-4-5", ".curve-7-8"};
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

QTEST_MAIN(tst_TableReader)
#include "tst_TableReader.moc"
