// SPDX-License-Identifier: MIT
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/TextSpan.h>

#include <QMimeData>
#include <QTest>

static ParseMessage messageOf(const std::string& text, std::uint32_t offset, std::uint32_t length)
{
    ParseMessage message;
    message.text = text;
    message.errors = {{offset, length}, {0, 1}};
    return message;
}

class tst_ExpressionEditLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void spansOfBytesBecomeSpansOfCharacters()
    {
        for (const auto& [utf8, offset, length, start, characters] :
             {std::tuple{"é+öä*t", 3u, 4u, 2, 2},
              {"😀+x😀", 5u, 5u, 3, 3},
              {"a😀b", 1u, 1u, 1, 2}, // parts of a character
              {"a😀b", 2u, 3u, 1, 2},
              {"é1", 2u, ~0u, 1, 1},
              {"é", 7u, ~0u, 1, 0},
              {"\xFF\x80+x", 3u, 1u, 3, 1}}) {
            const TextSpan span = textSpan(utf8, offset, length);
            QCOMPARE(QPoint(span.start, span.length), QPoint(start, characters));
        }
    }

    void firstSpanIsSelectedInTheWarningColorUntilTheNextKey()
    {
        ExpressionEditLine line;
        const QPalette saved = line.palette();
        line.showMessage(messageOf("größe + fuß", 10, 4));
        QCOMPARE(line.selectedText(), QString::fromUtf8("fuß"));
        QCOMPARE(line.palette().color(QPalette::HighlightedText), QColor(255, 55, 33));
        QCOMPARE(line.palette().color(QPalette::Highlight), saved.color(QPalette::Base));
        QTest::keyClicks(&line, "t");
        QCOMPARE(line.text(), QString::fromUtf8("größe + t"));
        QCOMPARE(line.palette(), saved);
        QVERIFY(saved.color(QPalette::Text).lightness() - saved.color(QPalette::Base).lightness() > 128);
        line.showMessage(messageOf("1", 0, 1));
        line.showMessage(messageOf(std::string(20000, '1'), 17000, 5));
        QCOMPARE(line.text(), "1");
        QTest::mouseClick(&line, Qt::LeftButton);
        QCOMPARE(line.palette(), saved);
    }

    void dropInsertsAtTheCursorWithUnderscores()
    {
        ExpressionEditLine line;
        line.setText("1+2");
        line.setSelection(0, 2);
        QMimeData data;
        QDragEnterEvent refused(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&line, &refused);
        data.setText("Camera.focus pull");
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&line, &enter);
        QVERIFY(enter.isAccepted() && !refused.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&line, &drop);
        QCOMPARE(line.text(), "1+Camera.focus_pull2");
    }
};

QTEST_MAIN(tst_ExpressionEditLine)
#include "tst_ExpressionEditLine.moc"
