// SPDX-License-Identifier: MIT
#include <curveeditor/files/CurveFile.h>
#include <model/CommaLocale.h>

#include <QtTest>

#include <sstream>

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

} // namespace

class tst_CurveFile : public QObject
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
};

QTEST_MAIN(tst_CurveFile)
#include "tst_CurveFile.moc"
