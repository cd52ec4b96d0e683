// SPDX-License-Identifier: MIT
#include <curveeditor/model/EvaluationTime.h>
#include <curveeditor/model/FunctionFloatBinary.h>
#include <curveeditor/model/FunctionFloatConstant.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/ParserVarMapper.h>

#include <QTest>

#include <algorithm>
#include <bit>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <limits>
#include <locale>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <math.h> // j0 and j1 are in no other header

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Key = FunctionParserBase::keyStruct;

struct Parsed
{
    std::unique_ptr<FunctionFloatBase> tree;
    ParseMessage message;
};

Parsed parse(const std::string& text)
{
    Parsed parsed;
    parsed.tree.reset(FunctionParserBase::instance()->parseString(text, parsed.message));
    return parsed;
}

double valueAt(FunctionFloatBase& expression, double time, double framesPerTimeUnit = 25.0)
{
    EvaluationTime now;
    now.set(time, framesPerTimeUnit);
    return expression.evaluate();
}

double valueAt(const std::string& text, double time)
{
    const Parsed parsed = parse(text);
    return parsed.tree ? valueAt(*parsed.tree, time) : notANumber;
}

bool isSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

// Distance in units of the last place.
double distance(double a, double b)
{
    if (isSame(a, b) || a == b)
        return 0.0;
    const double size = std::max(std::fabs(a), std::numeric_limits<double>::min());
    return std::fabs(a - b) / (std::nextafter(size, infinity) - size);
}

// `text` without one pair of parentheses, for each pair that is not a function's.
std::vector<std::string> withoutOneGroup(const std::string& text)
{
    std::vector<std::string> results;
    std::vector<std::size_t> opened;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '(')
            opened.push_back(i);
        if (text[i] != ')')
            continue;
        const std::size_t open = opened.back();
        opened.pop_back();
        if (open > 0 && std::isalpha(text[open - 1]))
            continue;
        std::string shorter = text;
        shorter.erase(i, 1).erase(open, 1);
        results.push_back(shorter);
    }
    return results;
}

class TestMapper : public ParserVarMapper
{
public:
    explicit TestMapper(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            add(name, 1.0 + double(values_.size()));
        FunctionParserBase::instance()->setVarMapper(this);
    }

    void add(const std::string& name, double value, std::int32_t type = 3)
    {
        addName(name);
        values_[getStoredName(name)] = {value, type};
    }
    void remove(const std::string& name) { removeName(name); }

    double getValue(const std::string& name) const override { return values_.at(name).first; }
    std::int32_t getType(const std::string& name) const override { return values_.at(name).second; }

private:
    std::map<std::string, std::pair<double, std::int32_t>> values_;
};

struct CommaPunctuation : std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

class RandomText
{
public:
    explicit RandomText(unsigned seed) : random_(seed) {}

    std::string expression(int depth)
    {
        static const std::vector<std::string> leaves{"t", "f", "2", ".5", "1e-3", "7.25"};
        static const std::vector<std::string> operators{"+", "-", "*", "/", "^", ">", "<", " "};
        switch (depth > 0 ? pick(6) : 0) {
        case 0:
            return leaves[pick(leaves.size())];
        case 1:
            return "-" + expression(depth - 1);
        case 2:
            return "atan(" + expression(depth - 1) + ")";
        case 3:
            return "if(" + expression(depth - 1) + "," + expression(depth - 1) + "," + expression(depth - 1) +
                   ")";
        default: {
            const std::string& infix = operators[pick(operators.size())];
            return operand(depth) + infix +
                   (infix == " " ? "(" + expression(depth - 1) + ")" : operand(depth));
        }
        }
    }

private:
    std::size_t pick(std::size_t count) { return std::size_t(random_()) % count; }
    std::string operand(int depth)
    {
        return pick(2) ? expression(depth - 1) : "(" + expression(depth - 1) + ")";
    }

    std::mt19937 random_;
};

} // namespace

class tst_FunctionParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodTextHasValue_data();
    void goodTextHasValue();
    void badTextHasSpan_data();
    void badTextHasSpan();
    void getStringIsShortAndReadsBack_data();
    void getStringIsShortAndReadsBack();
    void randomTextReadsBack();
    void knownNamesAreRead_data();
    void knownNamesAreRead();
    void nameThatWouldHideOthersIsGuarded();
    void nodeAnswersForItsKindOnly_data();
    void nodeAnswersForItsKindOnly();
    void keyConvertsToItsType();
    void keysAreFoundByName();
    void allVarsAreListedOnce();
    void variablesMayGoWhileTheyAreRead();
    void blockEqualsOneByOne_data();
    void blockEqualsOneByOne();
    void blockKeepsTimeAndFrame();
    void hostsOwnExpressionIsEvaluatedInBlocks();
    void sizeIsNoDanger_data();
    void sizeIsNoDanger();
    void tooLongTextIsAnError();
    void localeDoesNotMatter();
};

void tst_FunctionParser::goodTextHasValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    const auto row = [](const char* text, double expected) {
        QTest::newRow(text) << QString(text) << expected;
    };

    // At t = 2 and f = 50.
    row("520", 520.0);
    row("5.2", 5.2);
    row(".5", 0.5);
    row("5.", 5.0);
    row("1e-3", 1e-3);
    row("2E+3", 2000.0);
    row("t", 2.0);
    row(" F ", 50.0);
    row("-2^2", -4.0);
    row("(-2)^2", 4.0);
    row("2^3^2", 512.0);
    row("2^-1", 0.5);
    row("2^-1^2", 0.5);
    row("2^-t*8", 2.0);
    row("--t", 2.0);
    row("+-+t", -2.0);
    row("2*-t", -4.0);
    row("t-5-1", -4.0);
    row("100/5/t", 10.0);
    row("1+t*3>6+0", 1.0);
    row("3>2>1", 0.0);
    row("1/4 cos(0)", 0.25);
    row("1/2t", 1.0);
    row("2t^3", 16.0);
    row("-t f", -100.0);
    row("2exp(0)", 2.0);
    row("2e3t", 4000.0);
    row("3(t+1)(t-1)", 9.0);
    row("t(3)", 6.0);
    row("if(t>1, f, 7)", 50.0);
    row("if ( 0 , f , 7 )", 7.0);
    row("if(0/0,1,2)", 1.0);
    row("(0/0>1)+(0/0<1)", 0.0);
    row("\t1 +\n1\r", 2.0);
    row("log(t)", std::log(2.0));
    row("l10(1000)", 3.0);
    row("rnd(2.5)-rnd(-2.5)", 6.0);
    row("abs(-t)+sqrt(t+2)", 4.0);
    row("ceil(1.1)+floor(-1.1)", 0.0);
    row("cos(t)+sin(t)+tan(t)", std::cos(2.0) + std::sin(2.0) + std::tan(2.0));
    row("acos(.3)+asin(.4)+atan(t)", std::acos(0.3) + std::asin(0.4) + std::atan(2.0));
    row("cosh(t)+sinh(t)+tanh(t)", std::cosh(2.0) + std::sinh(2.0) + std::tanh(2.0));
    row("j0(t)+j1(-t)", ::j0(2.0) + ::j1(-2.0));
    row("1/0", infinity);
    row("-1/0", -infinity);
    row("log(-1)", notANumber);
    row("0^0", 1.0);
    row("1-t", -1.0);
    row("1/t", 0.5);
    row("3^t", 9.0);
    row("1>t", 0.0);
    row("1<t", 1.0);
    row("t<1", 0.0);
    row("1/14 cos(t)+3*exp(-(t-5)^2/20)", 1.0 / 14.0 * std::cos(2.0) + 3.0 * std::exp(-9.0 / 20.0));
}

void tst_FunctionParser::goodTextHasValue()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    const Parsed parsed = parse(text.toStdString());
    QVERIFY(parsed.tree);
    QVERIFY(parsed.message.errors.empty());
    QVERIFY(distance(valueAt(*parsed.tree, 2.0), expected) <= 1.0);
    QCOMPARE(QString::fromStdString(parsed.message.text), text.replace('F', 'f'));
}

void tst_FunctionParser::badTextHasSpan_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("count");
    const auto row = [](const char* text, int code, int offset, int length, int count = 1) {
        QTest::newRow(*text ? text : "(nothing)") << QString(text) << code << offset << length << count;
    };

    row("X", 1, 0, 1);
    row(" if( X, t, X) ", 1, 5, 1, 2);
    row("t+wave.Left_1*2", 1, 2, 11);
    row("t+gr\xc3\xbc\xc3\x9f.x", 1, 2, 8);
    row("cos", 1, 0, 3);
    row("Cos(t)", 1, 0, 3);
    row("wave(t)", 1, 0, 4);
    row("2e", 1, 1, 1);
    row("tt", 1, 0, 2);
    row("X+2 3", 1, 0, 1);
    row("(t", 3, 0, 1);
    row("cos (t", 3, 4, 1);
    row("((t)*(", 3, 0, 1, 2);
    row("t)", 3, 1, 1);
    row(")", 3, 0, 1);
    row("t+)", 3, 2, 1);
    row("", 4, 0, 0);
    row("  ", 4, 0, 0);
    row("t+", 4, 1, 1);
    row("2*-", 4, 2, 1);
    row("*t", 4, 0, 1);
    row("t+*2", 4, 2, 1);
    row("2 345", 4, 2, 3);
    row("1.2.3", 4, 3, 2);
    row("(t)2", 4, 3, 1);
    row("()", 4, 1, 1);
    row("(t+)", 4, 3, 1);
    row("cos()", 4, 4, 1);
    row("cos(t,2)", 4, 5, 1);
    row("if(t,1)", 4, 6, 1);
    row("if(t,1,2,3)", 4, 8, 1);
    row("if(t,,2)", 4, 5, 1);
    row("(t,2)", 4, 2, 1);
    row("t,2", 4, 1, 1);
    row("t$2", 4, 1, 1);
    row("[t]", 4, 0, 1);
    row("1e400", 4, 0, 5);
    row("1e-400", 4, 0, 6);
}

void tst_FunctionParser::badTextHasSpan()
{
    QFETCH(QString, text);
    const Parsed parsed = parse(text.toStdString());
    QVERIFY(!parsed.tree);
    QTEST(parsed.message.code, "code");
    QTEST(int(parsed.message.errors.size()), "count");
    QTEST(int(parsed.message.errors.front().first), "offset");
    QTEST(int(parsed.message.errors.front().second), "length");
    QCOMPARE(QString::fromStdString(parsed.message.text), text);
}

void tst_FunctionParser::getStringIsShortAndReadsBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* text, const char* expected) {
        QTest::newRow(text) << QString(text) << QString(expected);
    };

    row(" T ", "t");
    row("((5.0))", "5.0");
    row("1/14 cos( t )", "1/14*cos(t)");
    row("(t-(f-2))-(3*4)", "t-(f-2)-3*4");
    row("t+(f+2)", "t+(f+2)");
    row("t*(f/2)", "t*(f/2)");
    row("(t^f)^2^3", "(t^f)^2^3");
    row("(-t)^2", "(-t)^2");
    row("-(t^2)", "-t^2");
    row("-(t*2)", "-(t*2)");
    row("(-t)*2", "-t*2");
    row("2^(-t)", "2^-t");
    row("t-(-(-f))", "t---f");
    row("(t>1)>f", "t>1>f");
    row("t>(1>f)", "t>(1>f)");
    row("if((t), (f+1), X0)", "");
    row("if((t), (f+1), +2)", "if(t,f+1,2)");
    row("5.t", "5.*t");
}

void tst_FunctionParser::getStringIsShortAndReadsBack()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    const Parsed parsed = parse(text.toStdString());
    QCOMPARE(!parsed.tree, expected.isEmpty());
    if (!parsed.tree)
        return;
    QCOMPARE(QString::fromStdString(parsed.tree->getString()), expected);
    QVERIFY(isSame(valueAt(expected.toStdString(), 3.0), valueAt(*parsed.tree, 3.0)));
}

void tst_FunctionParser::randomTextReadsBack()
{
    RandomText random(20240607);
    for (int i = 0; i < 1000; ++i) {
        const std::string text = random.expression(5);
        const Parsed first = parse(text);
        QVERIFY2(first.tree, text.c_str());
        const std::string written = first.tree->getString();
        const Parsed second = parse(written);
        QVERIFY2(second.tree && second.tree->getString() == written, text.c_str());
        for (const double time : {-1.5, 0.0, 0.7, infinity, notANumber})
            QVERIFY2(isSame(valueAt(*first.tree, time), valueAt(*second.tree, time)), text.c_str());
        for (const std::string& shorter : withoutOneGroup(written))
            QVERIFY2(!parse(shorter).tree || parse(shorter).tree->getString() != written, written.c_str());
    }
}

void tst_FunctionParser::knownNamesAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    const auto row = [](const char* text, double expected) {
        QTest::newRow(text) << QString(text) << expected;
    };

    row("Cam-1.X_(LEFT)+t", 1.0 + 3.0);
    row("cam-1.x_(lef)", notANumber);
    row("CAM - 1", 2.0 - 1.0);
    row("cam-1.x", 3.0);
    row("cam-1.xy", notANumber);
    row("cam-1", 2.0 - 1.0);
    row("camera", notANumber);
    row("2cam cam(2)", 16.0);
    row("5.2", 5.2);
    row("520.x", 5.0);
    row("cos(0)", 1.0);
    row("cos", 6.0);
    row("2e", 14.0);
    row("2exp(0)", 2.0);
    row("gr\xc3\xbc\xc3\x9f.x", 8.0);
    row("T", 3.0);
    row("#1.x#1.x", 100.0);
}

void tst_FunctionParser::knownNamesAreRead()
{
    QFETCH(QString, text);
    const TestMapper mapper({"cam-1.x (left)", "Cam", "cam-1.x", "5.2", "520.x", "cos", "e",
                             "gr\xc3\xbc\xc3\x9f.x", "t", "#1.x"});
    const Parsed parsed = parse(text.toStdString());
    QFETCH(double, expected);
    QVERIFY(isSame(parsed.tree ? valueAt(*parsed.tree, 3.0) : notANumber, expected));
    QCOMPARE(QString::fromStdString(parsed.message.text), parsed.tree ? text.toLower() : text);
    QCOMPARE(parsed.message.code, parsed.tree ? 0 : int(ParseMessage::UnknownVariable));
}

void tst_FunctionParser::nameThatWouldHideOthersIsGuarded()
{
    const TestMapper mapper({"g.a", "g.a-2", "2*g.a", "cos(t)-2", "-g.a"});
    const std::vector<std::pair<std::string, std::string>> cases{
        {"g.a - 2", "(g.a)-2"}, {"g.a-2", "g.a-2"},          {"g.a - 3", "g.a-3"},
        {"2 * g.a", "(2)*g.a"}, {"cos (t)-2", "cos((t))-2"}, {"-g.a", "-g.a"}};
    for (const auto& [text, written] : cases) {
        const Parsed parsed = parse(text);
        QCOMPARE(parsed.tree->getString(), written);
        QVERIFY(isSame(valueAt(written, 1.0), valueAt(*parsed.tree, 1.0)));
    }
    QCOMPARE(valueAt("-g.a", 1.0), -1.0);
}

void tst_FunctionParser::nodeAnswersForItsKindOnly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("kind");
    QTest::newRow("unary") << "-t" << 0;
    QTest::newRow("binary") << "2t" << 1;
    QTest::newRow("ternary") << "if(1,2,3)" << 2;
    QTest::newRow("constant") << "520" << 3;
    QTest::newRow("bool") << "a.bool" << 4;
    QTest::newRow("double") << "t" << 5;
    QTest::newRow("float") << "a.float" << 6;
    QTest::newRow("int") << "a.int" << 7;
}

void tst_FunctionParser::nodeAnswersForItsKindOnly()
{
    TestMapper mapper({});
    mapper.add("a.bool", 0.5, 0);
    mapper.add("a.int", -1.5, 1);
    mapper.add("a.float", 0.1, 2);
    QFETCH(QString, text);
    const Parsed parsed = parse(text.toStdString());
    const FunctionFloatBase& node = *parsed.tree;
    const std::vector<bool> tests{node.isUnary(),         node.isBinary(),       node.isTernary(),
                                  node.isConstant(),      node.isVariableBool(), node.isVariableDouble(),
                                  node.isVariableFloat(), node.isVariableInt()};
    const std::vector<const void*> views{node.getUnaryRef(),         node.getBinaryRef(),
                                         node.getTernaryRef(),       node.getConstantRef(),
                                         node.getVariableBoolRef(),  node.getVariableDoubleRef(),
                                         node.getVariableFloatRef(), node.getVariableIntRef()};
    QFETCH(int, kind);
    for (int i = 0; i < 8; ++i) {
        QCOMPARE(bool(tests[std::size_t(i)]), i == kind);
        QCOMPARE(views[std::size_t(i)] != nullptr, i == kind);
    }
    const std::map<int, double> values{{4, 1.0}, {6, double(0.1f)}, {7, -1.0}};
    if (values.count(kind))
        QCOMPARE(parsed.tree->evaluate(), values.at(kind));
}

void tst_FunctionParser::keyConvertsToItsType()
{
    struct Case
    {
        std::int32_t type;
        double set;
        double got;
    };
    for (const Case& c :
         {Case{3, -1.5, -1.5}, Case{2, 0.1, double(0.1f)}, Case{2, 1e300, infinity}, Case{1, -1.5, -1.0},
          Case{1, 1e300, 2147483647.0}, Case{1, -infinity, -2147483648.0}, Case{1, notANumber, 0.0},
          Case{0, 0.5, 1.0}, Case{0, -0.0, 0.0}, Case{0, notANumber, 1.0}, Case{4, 7.0, 0.0},
          Case{-1, 7.0, 0.0}}) {
        double storage = 0.0;
        Key key{"name", c.type, &storage};
        key.setValue(c.set);
        QCOMPARE(key.getValue(), c.got);
        key.value = nullptr;
        key.setValue(c.set);
        QCOMPARE(key.getValue(), 0.0);
    }
    bool flag = true;
    Key{"flag", 0, &flag}.setValue(0.0);
    QCOMPARE(flag, false);
    double untouched = 7.0;
    Key{"other", 4, &untouched}.setValue(1.0);
    QCOMPARE(untouched, 7.0);
}

void tst_FunctionParser::keysAreFoundByName()
{
    FunctionParserBase* const parser = FunctionParserBase::instance();
    QCOMPARE(parser, FunctionParserBase::instance());
    QVERIFY(parser->getKey("t") && parser->getKey("f") && parser->getKey("t") != parser->getKey("f"));
    QCOMPARE(parser->getKey("a.x"), nullptr);
    {
        TestMapper mapper({"a.x"});
        Key* const key = parser->getKey("A.x");
        QVERIFY(key);
        QCOMPARE(key->name, std::string("a.x"));
        QCOMPARE(key->getValue(), 1.0);
        mapper.add("a.x", 9.0);
        QCOMPARE(parser->getKey("a.x"), key);
        QCOMPARE(key->getValue(), 9.0);
    }
    QCOMPARE(parser->getVarMapper(), nullptr);
    QCOMPARE(parser->getKey("a.x"), nullptr);
}

void tst_FunctionParser::allVarsAreListedOnce()
{
    const TestMapper mapper({"b.y", "a.x"});
    const Parsed parsed = parse("B.y*if(f>1,a.x,t)+b.y-t");
    std::vector<std::string> names;
    for (const Key* key : FunctionParserBase::instance()->getAllVars(parsed.tree.get()))
        names.push_back(key->name);
    QCOMPARE(names, (std::vector<std::string>{"b.y", "f", "a.x", "t"}));
    QVERIFY(FunctionParserBase::instance()->getAllVars(nullptr).empty());
    QVERIFY(FunctionParserBase::instance()->getAllVars(parse("1+2").tree.get()).empty());
}

void tst_FunctionParser::variablesMayGoWhileTheyAreRead()
{
    auto mapper = std::make_unique<TestMapper>(std::vector<std::string>{"a.x", "b.y"});
    const Parsed sum = parse("10a.x+b.y");
    const Parsed alone = parse("a.x");
    QCOMPARE(sum.tree->evaluate(), 12.0);
    mapper->remove("a.x");
    QCOMPARE(sum.tree->evaluate(), 2.0);
    QCOMPARE(alone.tree->evaluate(), 0.0);
    QVERIFY(!parse("a.x").tree);
    {
        const TestMapper other({"b.y", "a.x"});
        QCOMPARE(sum.tree->evaluate(), 21.0);
        mapper.reset();
        QCOMPARE(sum.tree->evaluate(), 21.0);
    }
    QCOMPARE(sum.tree->evaluate(), 0.0);
    QCOMPARE(sum.tree->getString(), std::string("10*a.x+b.y"));
}

void tst_FunctionParser::blockEqualsOneByOne_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("allowedDistance");
    for (const char* text : {"t",
                             "f",
                             "7",
                             "1/3",
                             "t*2-f/3",
                             "1-t",
                             "2/t",
                             "2/-t",
                             "-t/3",
                             "-t*3",
                             "t-f*t/f+t",
                             "t>3",
                             "3>t",
                             "f<t",
                             "t>f",
                             "if(t>1,t,-t)",
                             "if(t/t,1,2)",
                             "rnd(t)",
                             "ceil(t/3)",
                             "floor(t)",
                             "sqrt(t)",
                             "abs(t)",
                             "t^2",
                             "tan(t)+l10(t)",
                             "acos(t)+asin(t)+atan(t)",
                             "cosh(t)+sinh(t)+tanh(t)",
                             "j0(t)-j1(f)",
                             "a.x*t",
                             "a.int+t"})
        QTest::newRow(text) << QString(text) << 0.0;
    // The one-by-one value lies within one unit of the true one, the block's within four.
    for (const char* text :
         {"cos(t)", "sin(f)", "exp(t)", "exp(-t)", "log(t)", "t^3", "2^t", "t^f", "t^-0.5", "t^0"})
        QTest::newRow(text) << QString(text) << 5.0;
}

void tst_FunctionParser::blockEqualsOneByOne()
{
    TestMapper mapper({"a.x"});
    mapper.add("a.int", 2.5, 1);
    std::vector<double> times{0.0,    -0.0,   0.5,      -0.5,      2.5,        -2.5,  0.49999999999999994,
                              1e-310, 708.0,  710.0,    -745.0,    1e16,       -1e16, 4503599627370497.0,
                              1e300,  -1e300, infinity, -infinity, notANumber, 1e-300};
    for (int i = 0; i < 500; ++i)
        times.push_back(double(i) * 0.37 - 50.0);
    QFETCH(QString, text);
    QFETCH(double, allowedDistance);
    const Parsed parsed = parse(text.toStdString());
    for (const std::size_t count : {std::size_t(0), std::size_t(1), std::size_t(257), times.size()}) {
        std::vector<double> values(count + 1, 12345.0);
        parsed.tree->evaluateBlock(times.data(), 24.0, values.data(), count);
        for (std::size_t i = 0; i < count; ++i) {
            const double single = valueAt(*parsed.tree, times[i], 24.0);
            QVERIFY2(
                isSame(values[i], single) || distance(values[i], single) <= allowedDistance,
                qPrintable(
                    QString("%1: %2 %3").arg(times[i]).arg(values[i], 0, 'g', 17).arg(single, 0, 'g', 17)));
            double alone = times[i];
            parsed.tree->evaluateBlock(&alone, 24.0, &alone, 1);
            QVERIFY(isSame(values[i], alone));
        }
        QCOMPARE(values[count], 12345.0);
    }
}

void tst_FunctionParser::blockKeepsTimeAndFrame()
{
    Key& t = *FunctionParserBase::instance()->getKey("t");
    Key& f = *FunctionParserBase::instance()->getKey("f");
    t.setValue(3.0);
    f.setValue(4.0);
    const double times[]{0.1, 2.0};
    double values[2];
    parse("t+f").tree->evaluateBlock(times, 10.0, values, 2);
    QCOMPARE(values[1], 22.0);
    QCOMPARE(t.getValue(), 3.0);
    QCOMPARE(f.getValue(), 4.0);

    // A host may let the variables be its own, of any type.
    const Key parsersOwn = t;
    float hostsTime = 7.0f;
    t.type = 2;
    t.value = &hostsTime;
    const Parsed parsed = parse("t*1");
    parsed.tree->evaluateBlock(times, 10.0, values, 2);
    QCOMPARE(values[0], double(0.1f));
    QCOMPARE(hostsTime, 7.0f);
    QCOMPARE(parsed.tree->evaluate(), 7.0);
    t = parsersOwn;
}

void tst_FunctionParser::hostsOwnExpressionIsEvaluatedInBlocks()
{
    struct Twice : FunctionFloatBase
    {
        Twice() { text = "twice"; }
        double evaluate() override { return 2.0 * FunctionParserBase::instance()->getKey("t")->getValue(); }
    };
    Twice twice;
    double values[]{1.5, 4.0};
    twice.evaluateBlock(values, 25.0, values, 2);
    QCOMPARE(values[0], 3.0);
    QCOMPARE(values[1], 8.0);
    QCOMPARE(twice.getString(), std::string("twice"));
    QVERIFY(!twice.isUnary() && !twice.getBinaryRef());
    QVERIFY(FunctionParserBase::instance()->getAllVars(&twice).empty());
}

void tst_FunctionParser::sizeIsNoDanger_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("middle");
    QTest::addColumn<QString>("end");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("code");
    QTest::addColumn<double>("expected");
    const auto row = [](const char* start, const char* middle, const char* end, int count, int code,
                        double expected) {
        QTest::addRow("%d of %s", count, start) << start << middle << end << count << code << expected;
    };

    // At t = 1.
    constexpr int line = 16384;
    row("(", "", "", line, 3, notANumber);
    row(")", "", "", line, 3, notANumber);
    row("-", "", "", line, 4, notANumber);
    row("a^", "", "", line / 2, 1, notANumber);
    row("9", "", "", line, 4, notANumber);
    row("0", "", "", line, 0, 0.0);
    row(" ", "", "", line, 4, notANumber);
    row("cos", "", "", line / 3, 1, notANumber);
    row("cos(", "", "", line / 4, 3, notANumber);
    row("\xff", "", "", line, 1, notANumber);
    row("(", "t", ")", 30000, 0, 1.0);
    row("-", "t", "", 30000, 0, 1.0);
    row("t^", "t", "", 30000, 0, 1.0);
    row("t+", "t", "", 100000, 0, 100001.0);
    row("t-(", "t", ")", 30000, 0, 1.0);
    row("abs(", "t", ")", 30000, 0, 1.0);
    row("if(t,", "t", ",2)", 30000, 0, 1.0);
    row("t ", "t", "", 20000, 0, 1.0);
}

void tst_FunctionParser::sizeIsNoDanger()
{
    QFETCH(QString, start);
    QFETCH(QString, middle);
    QFETCH(QString, end);
    QFETCH(int, count);
    QFETCH(int, code);
    QFETCH(double, expected);
    const Parsed parsed = parse((start.repeated(count) + middle + end.repeated(count)).toStdString());
    QCOMPARE(parsed.message.code, code);
    QCOMPARE(!parsed.tree, code != 0);
    if (!parsed.tree)
        return;
    QCOMPARE(valueAt(*parsed.tree, 1.0), expected);
    double value = 1.0;
    parsed.tree->evaluateBlock(&value, 25.0, &value, 1);
    QCOMPARE(value, expected);
    QCOMPARE(valueAt(parsed.tree->getString(), 1.0), expected);
    QVERIFY(FunctionParserBase::instance()->getAllVars(parsed.tree.get()).size() <= 1);
}

void tst_FunctionParser::tooLongTextIsAnError()
{
    const std::string longest(FunctionParserBase::maximumLength - 1, ' ');
    QVERIFY(parse(longest + "t").tree);
    const Parsed parsed = parse(longest + "t+2");
    QVERIFY(!parsed.tree);
    QCOMPARE(parsed.message.code, int(ParseMessage::OtherError));
    QCOMPARE(parsed.message.errors.front(), std::pair(std::uint32_t(longest.size() + 1), std::uint32_t(2)));
}

void tst_FunctionParser::localeDoesNotMatter()
{
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    const Parsed parsed = parse("1234.5+1e-3+.25");
    const bool isRead = parsed.tree && parsed.tree->evaluate() == 1234.5 + 1e-3 + 0.25;
    const std::string written = parsed.tree ? parsed.tree->getString() : std::string();
    const Parsed wrong = parse("1,5");
    std::locale::global(before);
    QVERIFY(isRead);
    QCOMPARE(written, std::string("1234.5+1e-3+.25"));
    QVERIFY(!wrong.tree);
}

QTEST_APPLESS_MAIN(tst_FunctionParser)
#include "tst_FunctionParser.moc"
