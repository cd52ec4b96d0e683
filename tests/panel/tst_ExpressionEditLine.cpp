// SPDX-License-Identifier: MIT
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/TextSpan.h>

#include <QMimeData>
#include <QTest>

namespace {

ParseMessage messageOf(const std::string& text, std::uint32_t offset, std::uint32_t length)
{
    ParseMessage message;
    message.text = text;
    message.code = ParseMessage::UnknownVariable;
    message.errors.emplace_back(offset, length);
    return message;
}

QColor colorOf(const QWidget& widget, QPalette::ColorRole role)
{
    return widget.palette().color(role);
}

} // namespace

class tst_ExpressionEditLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spansOfBytesBecomeSpansOfCharacters_data();
    void spansOfBytesBecomeSpansOfCharacters();
    void goodMessageShowsItsText();
    void firstSpanIsSelectedInTheWarningColor();
    void keyOrButtonRestoresTheColors_data();
    void keyOrButtonRestoresTheColors();
    void dropInsertsAtTheCursorWithUnderscores();
    void textEndsAtTheMaximumLength();
};

void tst_ExpressionEditLine::spansOfBytesBecomeSpansOfCharacters_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<uint>("offset");
    QTest::addColumn<uint>("length");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("characters");
    QTest::newRow("plain") << QByteArray("1+foo") << 2u << 3u << 2 << 3;
    QTest::newRow("two bytes each") << QByteArray("é+öä*t") << 3u << 4u << 2 << 2;
    QTest::newRow("beyond 16 bits") << QByteArray("😀+x😀") << 5u << 5u << 3 << 3;
    QTest::newRow("part of a character") << QByteArray("a😀b") << 2u << 1u << 1 << 2;
    QTest::newRow("end of the text") << QByteArray("1+") << 2u << 0u << 2 << 0;
    QTest::newRow("behind the end") << QByteArray("é") << 7u << ~0u << 1 << 0;
    QTest::newRow("length beyond the end") << QByteArray("é1") << 2u << ~0u << 1 << 1;
    QTest::newRow("no UTF-8") << QByteArray("\xFF\x80+x") << 3u << 1u << 3 << 1;
}

void tst_ExpressionEditLine::spansOfBytesBecomeSpansOfCharacters()
{
    QFETCH(QByteArray, utf8);
    QFETCH(uint, offset);
    QFETCH(uint, length);
    const TextSpan span = textSpan(utf8.toStdString(), offset, length);
    QTEST(span.start, "start");
    QTEST(span.length, "characters");
}

void tst_ExpressionEditLine::goodMessageShowsItsText()
{
    ExpressionEditLine line;
    ParseMessage message;
    message.text = "größe+t";
    const QPalette before = line.palette();
    line.showMessage(message);
    QCOMPARE(line.text(), QString::fromUtf8("größe+t"));
    QVERIFY(!line.hasSelectedText());
    QCOMPARE(line.palette(), before);
}

void tst_ExpressionEditLine::firstSpanIsSelectedInTheWarningColor()
{
    ExpressionEditLine line;
    ParseMessage message = messageOf("größe + fuß", 10, 4);
    message.errors.emplace_back(0, 7);
    line.showMessage(message);
    QCOMPARE(line.selectedText(), QString::fromUtf8("fuß"));
    QCOMPARE(colorOf(line, QPalette::HighlightedText), QColor(255, 55, 33));
    QCOMPARE(colorOf(line, QPalette::Highlight), colorOf(line, QPalette::Base));
    QTest::keyClicks(&line, "t");
    QCOMPARE(line.text(), QString::fromUtf8("größe + t"));
}

void tst_ExpressionEditLine::keyOrButtonRestoresTheColors_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("key") << true;
    QTest::newRow("mouse") << false;
}

void tst_ExpressionEditLine::keyOrButtonRestoresTheColors()
{
    QFETCH(bool, byKey);
    ExpressionEditLine line;
    const QPalette saved = line.palette();
    QPalette own = saved;
    own.setColor(QPalette::Text, Qt::yellow);
    line.setPalette(own);
    line.showMessage(messageOf("1+foo", 2, 3));
    if (byKey)
        QTest::keyClick(&line, Qt::Key_Shift);
    else
        QTest::mousePress(&line, Qt::LeftButton);
    QCOMPARE(colorOf(line, QPalette::HighlightedText), saved.color(QPalette::HighlightedText));
    QCOMPARE(colorOf(line, QPalette::Highlight), saved.color(QPalette::Highlight));
    QCOMPARE(colorOf(line, QPalette::Text), saved.color(QPalette::Text));
    const int contrast =
        colorOf(line, QPalette::Text).lightness() - colorOf(line, QPalette::Base).lightness();
    QVERIFY2(qAbs(contrast) > 128, "text and base of the line are too much alike");
    QTest::mouseRelease(&line, Qt::LeftButton);
}

void tst_ExpressionEditLine::dropInsertsAtTheCursorWithUnderscores()
{
    QWidget window;
    QLineEdit focused(&window);
    ExpressionEditLine line(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    focused.setFocus();
    line.setText("1+2");
    line.setSelection(0, 2);
    QMimeData data;
    data.setText("Camera.focus pull");
    QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(&line, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&line, &drop);
    QCOMPARE(line.text(), "1+Camera.focus_pull2");
    QVERIFY(line.hasFocus());

    QMimeData image;
    image.setData("image/png", "...");
    QDragEnterEvent refused(QPoint(5, 5), Qt::CopyAction, &image, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&line, &refused);
    QVERIFY(!refused.isAccepted());
}

void tst_ExpressionEditLine::textEndsAtTheMaximumLength()
{
    ExpressionEditLine line;
    line.showMessage(messageOf(std::string(20000, '1'), 17000, 5));
    QCOMPARE(line.text().size(), 16384);
    QVERIFY(!line.hasSelectedText());
    line.setText("ab");
    line.setCursorPosition(1);
    line.insertUnderscore();
    QCOMPARE(line.text(), "a_b");
}

QTEST_MAIN(tst_ExpressionEditLine)
#include "tst_ExpressionEditLine.moc"
