// SPDX-License-Identifier: MIT
#include "CurveTool.h"
#include "TextNumber.h"
#include <support/Files.h>
#include <support/Test.h>

#include <iterator>

const QByteArray spline = "1\n2\n3\n0\nspline 0 3 0.5\n0 1 0 0 0 0 0 0 0 0\n4 3 0 0 0 0 0 0 0 0\nend\n";
const QByteArray formula = "1\n2\n3\n1\nlog(t)+0*f\n";
const QByteArray table = "s,key light,b\n0,1,5\n2,3,7\n";
const QByteArray spectra = "CGATS.17\nBEGIN_DATA_FORMAT\nSAMPLE_ID SAMPLE_NAME SPECTRAL_NM_380 nm390\n"
                           "END_DATA_FORMAT\nNUMBER_OF_SETS 2\nBEGIN_DATA\n1 \"dark skin\" 0.5 1\n"
                           "2 \"../x\" 2 3\nEND_DATA\n";
const QByteArray lamp =
    "SPECT\nSPECTRAL_BANDS \"3\"\nSPECTRAL_START_NM \"380.0\"\nSPECTRAL_END_NM \"385.0\"\n"
    "SPECTRAL_NORM \"100.0\"\nBEGIN_DATA_FORMAT\nSPEC_380 SPEC_383 SPEC_385\n"
    "END_DATA_FORMAT\nBEGIN_DATA\n1 2 3\nEND_DATA\n";
const QByteArray sensor = "# KVTR Corvane Sensor Sensibility Data File\n"
                          "# file exported with Curve Editor v0.1\n\nversion \t\t 1.0\ntype \t\t\t cye64\n"
                          "num_curves \t\t 1\nnum_lambdas \t 3\n\n"
                          "0,\t1.000000,\t\n1,\t2.000000,\t\n2,\t3.000000,\t\n";

const QByteArray keys =
    "{\"format\":\"curve-keys\",\"version\":1,\"color\":[1,2,3],\"before\":\"zero\","
    "\"after\":\"loop-offset\",\"default\":0.5,\"keys\":[\n"
    "{\"time\":0.0,\"value\":1.0,\"shape\":\"linear\",\"in\":{\"slope\":0.0},\"out\":{\"slope\":0.0}},\n"
    "{\"time\":4.0,\"value\":3.0,\"shape\":\"linear\",\"in\":{\"slope\":0.0},\"out\":{\"slope\":0.0}}]}\n";

/// Keys as a person types them.
QByteArray keysOf(const char* list)
{
    return QByteArray("{\"format\": \"curve-keys\", \"version\": 1,\n \"keys\": [") + list + "]}";
}

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
        const QByteArray head = "file: standard input\nformat: ";
        row("info, spline", spline, "info -",
            head + "curve file\nkind: spline\ncolour: 1 2 3\npoints: 2\ntime: 0 to 4\nvalues: 1 to 3\n"
                   "before: Zero\nafter: Loop offset\ndefault value: 0.5\n");
        row("info, formula", "1\n2\n3\n1\na.b*t+c\n", "info -",
            head + "curve file\nkind: formula\ncolour: 1 2 3\nformula: a.b*t+c\nreads: a.b t c\n");
        row("info, control characters",
            "t;\xC2\x9B"
            "b\xFF\n0;1\n",
            "info -", head + "table\ncurves: 1\nsamples: 1 in each\ntime: 0 to 0\ncurve 1: '?b?' 1 to 1\n");
        row("info, spectra", lamp, "info -",
            head + "spectra\nnorm: 100\ncurves: 1\nsamples: 3 in each\ntime: 380 to 385\n"
                   "curve 1: '1' 1 to 3\n");
        row("sample by count", spline, "sample - --from -1 --to 4 --count 3", "-1\t0\n1.5\t1.75\n4\t3\n");
        row("sample by step", spline, "sample - --step=1.5", "0\t1\n1.5\t1.75\n3\t2.5\n");
        row("exact end", spline, "sample - --to 0.3 --step 0.1", "0\t1\n0.1\t1.05\n0.2\t1.1\n0.3\t1.15\n");
        row("sample a gap", formula, "sample - --from -1 --to 1 --step 1", "-1\tnan\n0\t-inf\n1\t0\n");
        row("frames", "0 0 0\n1\nf", "sample - --format crv --from 2 --to 2 --fps 24", "2\t48\n");
        row("formula of another system", altered(formula, "\n", "\r\n"), "sample - --from 1 --to 1",
            "1\t0\n");
        row("sample a table", table, "sample - --curve b", "0\t5\n2\t7\n");
        row("sample between rows", table, "sample - --curve 2 --from 1 --to 1", "1\t6\n");
        row("blanks in names", "t\tkey light\tb\n0\t1\t2\n", "convert - - --output-format table",
            "t\t\"key light\"\tb\n0\t1\t2\n");
        row("comma", "0;1,234\n", "sample - --decimal comma", "0\t1.234\n");
        row("point", "0;1,234\n", "sample - --decimal=point", "0\t1234\n");
        row("exact wavelengths", lamp, "sample -", "380\t1\n382.5\t2\n385\t3\n");
        row("curve to table", spline, "convert - - --step 2", "time\t\"standard input\"\n0\t1\n2\t2\n4\t3\n");
        row("gaps are left out", formula, "convert - - --from 0 --to 1 --count 2",
            "time\t\"standard input\"\n1\t0\n");
        row("table to curve", table, "convert - - --curve b",
            "255\n255\n255\n0\nspline 1 1 0\n0 5 0 0 0 0 0 0 0 0\n2 7 0 0 0 0 0 0 0 0\nend\n");
        row("part of a curve", spline, "convert - - --output-format crv --from 4",
            "1\n2\n3\n0\nspline 1 1 0\n4 3 0 0 0 0 0 0 0 0\nend\n");
        const QByteArray jump = "1\n2\n3\n0\nspline 1 1 0\n0 1 0 0 0 0 0 0 0 0\n1.5 1 0 0 0 0 0 0 0 0\n"
                                "1.5 3 0 0 0 0 0 0 0 0\n2 3 0 0 0 0 0 0 0 0\nend\n";
        row("a jump between samples", jump, "convert - - --output-format crv --step 2", jump);
        row("a jump at a sample", jump, "convert - - --output-format crv --step 0.5 --from 1.5",
            altered(jump, "0 1 0 0 0 0 0 0 0 0\n1.5 1", "1.5 1"));
        row("marks in names", "t \"a\"\"b\"\n0 1\n", "convert - - --output-format table",
            "t\t\"a\"\"b\"\n0\t1\n");
        row("curve stays", spline, "convert - - --output-format crv", spline);
        row("spectra with remarks", altered(spectra, "BEGIN_DATA\n", "\n#\nBEGIN_DATA\n"),
            "sample - --curve 2", "380\t2\n390\t3\n");
        row("to sensor table", "t a\n-0.5 0.5\n2.9 3.9\n", "convert - - --output-format sensor", sensor);
        row("a gap in a sensor table", formula, "convert - - --output-format sensor --from 0 --to 2 --fps 1",
            altered(altered(altered(sensor, "1.000000", "-inf"), "2.000000", "0.000000"), "3.000000",
                    "0.693147"));
        row("sensor table", sensor, "convert - - --output-format table", "time\tcolumn2\n0\t1\n1\t2\n2\t3\n");
        row("spectra to table", spectra, "convert - - --output-format table",
            "nm\t\"dark skin\"\t\"../x\"\n380\t0.5\t2\n390\t1\t3\n");
        row("simplify a table", "0 5\n1 5\n2 5\n", "simplify - -o - --tolerance 0",
            "255\n255\n255\n0\nspline 1 1 0\n0 5 0 0 0 0 0 0 0 1\n2 5 0 0 0 0 0 0 0 1\nend\n");
        row("keys to curve", keys, "convert - -o - --output-format crv", spline);
        row("curve to keys", spline, "convert - - --output-format json", keys);
        row("formula of keys", R"({"formula": "t*f", "version": 1, "format": "curve-keys"})",
            "sample - --from 2 --to 2", "2\t40\n");
        row("formula to keys", formula, "convert - - --output-format json",
            "{\"format\":\"curve-keys\",\"version\":1,\"color\":[1,2,3],\"formula\":\"log(t)+0*f\"}\n");
        row("keys to table", keysOf(R"({"time": 0, "value": 1, "shape": "hold"}, {"time": 1, "value": 2})"),
            "convert - - --output-format table --step 0.5", "time\t\"standard input\"\n0\t1\n0.5\t1\n1\t2\n");
        row("handles of keys",
            keysOf(
                R"({"time": 0, "value": 1, "out": {"slope": 2}}, {"time": 3, "value": 5, "in": {"slope": -1}})"),
            "convert - - --output-format crv",
            "255\n255\n255\n0\nspline 1 1 0\n0 1 0 2 0 0 0 0 0 1\n3 5 -1 0 0 0 0 0 0 1\nend\n");
        row("ease of keys",
            keysOf(R"({"time": 0, "value": 0, "ease": [0.42, 0, 0.58, 1]}, {"time": 1, "value": 1})"),
            "convert - - --output-format crv --tolerance 5 --percent",
            "255\n255\n255\n0\nspline 1 1 0\n0 0 0 0 0 0 0 0 0 1\n1 1 0 0 0 0 0 0 0 1\nend\n");
        row("version", "", "--version", "curve-tool " CURVE_TOOL_VERSION "\n");
        row("info, behaviours", altered(spline, "0 3 0.5", "1 4 -2"), "info -",
            head + "curve file\nkind: spline\ncolour: 1 2 3\npoints: 2\ntime: 0 to 4\nvalues: 1 to 3\n"
                   "before: Constant\nafter: Follow Tangent\ndefault value: -2\n");
        row("info, constant formula", "1\n2\n3\n1\n7\n", "info -",
            head + "curve file\nkind: formula\ncolour: 1 2 3\nformula: 7\nreads: nothing\n");
        row("info, one curve", table, "info - --curve b",
            head + "table\ncurves: 1\nsamples: 2 in each\ntime: 0 to 2\ncurve 1: 'b' 5 to 7\n");
        row("curve in one line", altered(spline, "\n", " ").prepend("\xEF\xBB\xBF"), "sample - --step 4",
            "0\t1\n4\t3\n");
        row("one sample", spline, "sample - --count 1", "0\t1\n");
        row("one time", spline, "sample - --from 4", "4\t3\n");
        row("name before number", "t 2 1\n0 5 6\n", "sample - --curve 2", "0\t5\n");
        row("a jump at the end", jump, "convert - - --output-format crv --step 1.5 --to 1.5",
            altered(jump, "2 3 0 0 0 0 0 0 0 0\n"));
        row("last whole number", "0 0 0\n1\n1\n",
            "convert - - --format crv --output-format sensor --from 2147483647 --to 2147483647",
            altered(sensor.left(sensor.indexOf("0,\t1")), " 3\n", " 1\n") + "2147483647,\t1.000000,\t\n");
        row("bounds of keys",
            R"({"format": "curve-keys", "version": 1, "color": [0, 255, 7], "before": "constant",
                "after": "follow-tangent", "keys": [{"time": 0, "value": 1, "out": {"slope": 1, "reach": 0}},
                {"time": 3, "value": 1, "shape": "bezier", "in": {"slope": 1, "reach": 1}}]})",
            "sample - --from -1 --to 4 --count 2", "-1\t1\n4\t2\n");
        row("simplify stays", spline, "simplify - -o - --tolerance 0", spline);
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
        row("text", "# x\n0 1\n1 abc\n", "standard input:3: 'abc' is no number\n");
        row("nothing", "", ":1: the table has no rows");
        row("no text", {"0 1\n\0 2", 7}, ":2: there is a NUL byte");
        row("decimal comma or not", "t;v\n0;1,234\n",
            ":2: '1,234' can be read in two ways: the comma may be the decimal sign or not; say --decimal "
            "comma");
        row("bad sign", "0 1\n", "--decimal: 'dot' is neither comma nor point", "info - --decimal dot", 2);
        row("value too many", "0 1\n", "--monotone takes no value", "simplify - --monotone=no", 2);
        row("times repeat", "0 1\n2 0\n0 1\n", ":3: time 0 is there twice");
        row("truncated spectra", altered(spectra, "END_DATA\n"), ":8: the file ends before END_DATA");
        row("lost row", altered(spectra, "2 \"../x\" 2 3\n"), ":8: NUMBER_OF_SETS is 2, but there are 1");
        row("bad band", altered(lamp, "SPEC_383", "SPEC_384"), "the field 'SPEC_384' should be at 382.5 nm");
        row("no band", altered(altered(lamp, "SPEC_383"), " 2"), "SPECTRAL_BANDS is 3");
        row("wavelengths descend", altered(spectra, "nm390", "nm370"), ":6: wavelength 370 comes after 380");
        row("no format", altered(spectra, "BEGIN_DATA_FORMAT", "X"), ":6: the data comes before its format");
        row("no bands", altered(spectra, "SPECTRAL_NM_380 nm390", "a b"), "there are no spectra");
        row("format alone", spectra.left(spectra.indexOf("BEGIN_DATA\n")), "ends before BEGIN_DATA");
        row("second table", spectra + spectra, "this is a second table of spectra");
        row("no rows", altered(spectra.left(spectra.indexOf("1 \"dark")), "SETS 2", "SETS 0") + "END_DATA\n",
            "the table has no rows");
        row("field missing", altered(spectra, "0.5 1\n", "0.5\n"), ":7: the row has 3 fields instead of 4");
        row("value is text", altered(spectra, "0.5", "x"), ":7: 'x' is no number");
        row("value is endless", altered(spectra, "0.5", "inf"), ":7: 'inf' is no finite number");
        row("mark", altered(spectra, "dark skin\"", "dark"), ":7: a quotation mark has no partner");
        row("two counts", altered(spectra, "SETS 2", "SETS 2 2"), ":5: NUMBER_OF_SETS takes one number");
        row("no colour", "1\n2\nx\n0\n", ":3: the colour is not three whole numbers");
        row("no kind", "1\n2\n3\n", "or the kind of the curve is missing");
        row("no formula", "1\n2\n3\n1\n", "the formula is missing or too long");
        row("many curves", "t" + QByteArray(" a").repeated(22) + "\n0" + QByteArray(" 1").repeated(22),
            "  20  'a'\n  and 2 more\n", "convert - - --output-format crv");
        row("nothing but gaps", "1\n2\n3\n1\n0/0\n", "no value at any of these times",
            "convert - - --from 0 --to 1 --count 2");
        row("operands alone", "", "--x: No such file", "info -- --x");
        row("truncated curve", altered(spline, "end\n"), "standard input:8: the file ends too early");
        row("comma in a curve", altered(spline, "0.5", "0,5"), ":5: the spline has a wrong");
        row("which curve", table,
            "there are 2 curves; choose by --curve NAME_OR_NUMBER:\n  1  'key light'\n  2  'b'\n",
            "convert - - --output-format crv");
        row("no such curve", table, "there is no curve '3'", "sample - --curve 3");
        row("curve twice", "t a a\n0 1 2\n", "several curves are named 'a'", "sample - --curve a");
        row("foreign variable", "0\n0\n0\n1\na.b+t\n", "the formula reads 'a.b', which is not known here",
            "sample - --from 0 --to 1");
        row("parenthesis", "0\n0\n0\n1\n(t\n", ":5: a parenthesis of the formula has no partner");
        row("formula has no points", formula, "a formula has no points", "simplify - -o - --tolerance 1");
        row("directory", "", "/: is a directory\n", "info /");
        row("missing file", "", "/none/a.crv: No such file or directory\n", "info /none/a.crv");
        row("formula without ends", formula, "give --from and --to", "sample -", 2);
        row("tiny step", spline, "more than 10000000 samples", "sample - --step 1e-300", 2);
        row("lost step", spline, "too close", "sample - --from 1e9 --to 1000000000.0000001 --count 9", 2);
        row("long sensor table", spline, "at most 1000000", "convert - - --output-format sensor --to 1e9", 2);
        row("end before begin", spline, "before they begin", "sample - --from 5", 2);
        row("onto a device", spline, "/dev/full: No space", "convert - /dev/full --output-format crv");
        row("onto a directory", spline, "/: is a directory", "convert - / --output-format crv");
        row("into nowhere", spline, "/none/a.crv: No such file", "convert - /none/a.crv");
        row("into no directory", table, "/dev/null: ", "convert - --all /dev/null");
        for (const auto& [reason, command] :
             {std::pair("the file is missing", "info"),
              {"none of crv, table, sensor, cgats, sp and json", "info - --format x"},
              {"--count takes a whole number", "sample - --count 2.5"},
              {"--step and --count exclude", "sample - --step 1 --count 2"},
              {"'x' is none of crv, table, sensor and json", "convert - - --output-format x"},
              {"for whole numbers of 32 bits", "convert - - --output-format sensor --from 3e9 --to 3e9"},
              {"no whole number among", "convert - - --output-format sensor --from 0.1 --to 0.9"},
              {"--step and --count can't change it", "convert - - --output-format sensor --step 2"},
              {"--all is for tables", "convert - --all /none"},
              {"--all writes curve files and keys only", "convert - --all /none --output-format table"},
              {"give either -o OUT or --all", "convert - - --all /none"},
              {"--all and --curve exclude", "convert - --all /none --curve 1"},
              {"give either -o OUT or --all", "convert -"},
              {"there is no option '-x'", "info - -x"},
              {"--step has to be above 0", "sample - --step 0"},
              {"--fps has to be above 0", "sample - --fps -1"},
              {"more than 10000000 samples", "sample - --count 10000001"},
              {"for whole numbers of 32 bits",
               "convert - - --output-format sensor --from -2147483648 --to 0"},
              {"at most 1000000", "convert - - --output-format sensor --to 1000000"},
              {"-o is missing", "simplify - --tolerance 1"},
              {"--tolerance is missing", "simplify - -o -"},
              {"--tolerance has to be 0 or more", "simplify - -o - --tolerance -1"},
              {"--tolerance is for curve files", "convert - - --output-format table --tolerance 1"},
              {"--tolerance fits samples", "convert - - --output-format crv --tolerance 1"},
              {"--tolerance: 'x' is no number", "convert - - --tolerance x"}})
            row(command, spline, reason, command, 2);
        for (const auto& [reason, list] :
             {std::pair(":3: keys[0].time is there twice", "{\"time\": 1,\n\"time\": 2}"),
              {":2: keys[1] is earlier than the key before it",
               R"({"time": 1, "value": 0}, {"time": 0, "value": 0})"},
              {":2: keys[0] has no time or no value", R"({"time": 1})"},
              {":2: keys[0].in.reach is not within 0 and 1", R"({"in": {"reach": 1.5}})"},
              {":3: keys[0].value can't be a text", "{\"value\":\n\"1\"}"},
              {":2: keys[0].in.reach is not within 0 and 1", R"({"in": {"reach": -0.5}})"},
              {":2: keys[0].ease[0] is not within 0 and 1", R"({"ease": [-0.5, 5, 2, 1]})"},
              {":2: keys[0].value can't be null", R"({"value": null})"},
              {":2: keys[0].value can't be true or false", R"({"value": true})"},
              {":2: keys[0].value can't be an array", R"({"value": [[[[[[)"},
              {":2: keys[0].time can't be an object", R"({"time": {"time": {)"},
              {":2: keys can't be an array", "[] 1"},
              {":2: number overflow parsing '1e999'", R"({"time": 1e999})"},
              {":2: column 20: syntax error while parsing value - invalid literal", R"({"time": NaN})"},
              {":2: column 13: syntax error while parsing object key - invalid string: ill-formed UTF-8",
               "{\"\xFF\"}"},
              {":2: keys[0].shape can't be 'round'", R"({"shape": "round"})"},
              {":2: keys[0].tim is not known", R"({"tim": 1})"},
              {":2: keys[0].ease[2] is not within 0 and 1", R"({"ease": [0, 5, 2, 1]})"},
              {":2: keys[0].ease[4] is one number too many", R"({"ease": [0, 0, 0, 0, 0]})"},
              {":2: keys[0].ease[2] ends an ease that is not of four", R"({"ease": [0, 0, 0]})"},
              {"keys[0] has an ease and another", R"({"time": 0, "value": 0, "ease": [0,0,0,0], "out": {}})"},
              {"[1] has a handle", R"({"time":0,"value":0,"ease":[0,0,1,1]},{"time":1,"value":0,"in":{}})"},
              {"ends with an ease that leads nowhere", R"({"time": 0, "value": 0, "ease": [0, 0, 0, 0]})"},
              {":2: keys can't be a number", "1"},
              {"has no keys", ""}})
            row(reason, keysOf(list), reason);
        row("no keys and no formula", R"({"format": "curve-keys", "version": 1})",
            "needs either keys or a formula");
        row("no format", "{}", "has no format or no version");
        row("other format", R"({"format": "x"})", "format is not 'curve-keys'");
        row("other version", R"({"version": 2})", "version is not 1");
        row("bad colour", R"({"color": [1, 256]})", "color[1] is no whole number within 0 and 255");
        row("short colour", R"({"color": [1]})", "ends a colour that is not of three");
        row("long colour", R"({"color": [1, 2, 3, 4]})", "color[3] is one number too many");
        row("no behaviour", R"({"before": "loop"})", "before can't be 'loop'");
        row("formula with blanks", R"({"formula": "1 2"})", "formula is empty, too long, or has blanks");
        row("cut keys", keys.chopped(20), ":3: column 64: syntax error while parsing object key");
        row("behind keys", keys + "x", ":4: column 1: syntax error");
        row("two signs in a formula", "1\n2\n3\n1\n1+*2\n", ":5: the formula can't be read at '*'",
            "sample - --from 0 --to 1");
        row("gaps are told", formula, "1 of 2 times have no value and are left out\n",
            "convert - - --from 0 --to 1 --count 2", 0);
        row("simplified", "0 5\n1 5\n2 5\n", "3 points become 2, at most 0 away\n",
            "simplify - -o - --tolerance 0", 0);
        row("fields", altered(spectra, "BEGIN_DATA_FORMAT", "NUMBER_OF_FIELDS 5\nBEGIN_DATA_FORMAT"),
            ":5: NUMBER_OF_FIELDS is 5, but there are 4");
        row("no command", "", "a command is missing", "", 2);
        row("unknown option", "", "there is no option '--bogus'", "info --bogus -", 2);
        row("option twice", "", "--curve is there twice", "info - --curve 1 --curve 2", 2);
        row("no value", "", "--from takes a value", "sample - --from", 2);
        row("bad value", spline, "--from: 'x' is no number", "sample - --from x", 2);
        row("operands", "", "'b' is one operand too many", "info a b", 2);
        row("spectra can't be written", spline, "not written", "convert - a.sp", 2);
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

    void everyCommandHasHelp()
    {
        for (const char* command : {"info", "sample", "simplify", "convert"}) {
            QCOMPARE(run("", QString(command) + " --help"), 0);
            QVERIFY(output_.startsWith(QByteArray("usage: curve-tool ") + command));
            QCOMPARE(run("", "--help"), 0);
            QVERIFY(output_.contains(QByteArray("\n  ") + command + ' '));
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
        std::istringstream line(toText(command));
        std::ostringstream out, messages;
        const std::vector<std::string> words(std::istream_iterator<std::string>(line), {});
        const int code = runCurveTool(words, {in, out, messages});
        output_ = out.str().c_str();
        errors_ = messages.str().c_str();
        return code;
    }

    int runProgram(const QByteArray& input, const QString& command)
    {
        QProcess process;
        process.start(program[0], program.mid(1) + command.split(' ', Qt::SkipEmptyParts));
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
