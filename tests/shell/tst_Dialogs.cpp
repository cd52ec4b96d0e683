// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/TitleWidth.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/PlainToolBar.h>
#include <curveeditor/shell/ScaleDialog.h>
#include <curveeditor/shell/Translations.h>
#include <curveeditor/shell/ViewportSettings.h>

using namespace curveeditor;

class tst_Dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyControlHasANameAndReturnPressesNone()
    {
        CurveEditor editor;
        const QList<QWidget*> widgets = editor.findChildren<QWidget*>();
        for (QWidget* const widget : widgets) {
            const bool isControl = qobject_cast<QAbstractButton*>(widget) ||
                                   qobject_cast<QLineEdit*>(widget) || qobject_cast<QComboBox*>(widget);
            if (isQts(*widget) || (!isControl && !(widget->focusPolicy() & Qt::TabFocus)))
                continue;
            const QByteArray place =
                widget->metaObject()->className() + (" " + widget->objectName()).toUtf8();
            const QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(widget);
            QVERIFY2(face && !face->text(QAccessible::Name).isEmpty(), place);
            QVERIFY2(!isControl || !widget->toolTip().isEmpty(), place);
            const auto* const button = qobject_cast<QPushButton*>(widget);
            QVERIFY2(!button || (!button->autoDefault() && !button->isDefault()), place);
        }
    }

    void disabledFieldsDifferAndReadOutsCanBeRead()
    {
        CurveEditor editor;
        editor.setTheme(CurveEditorTheme::dark());
        QPalette colors(QColor(44, 48, 54), QColor(34, 38, 44));
        colors.setColor(QPalette::Base, editor.theme().field);
        colors.setColor(QPalette::Disabled, QPalette::Text, QColor(70, 76, 84));
        editor.setPalette(colors);
        const QPalette field = editor.posX->palette();
        QVERIFY(field.color(QPalette::Disabled, QPalette::Base) !=
                field.color(QPalette::Active, QPalette::Base));
        const QPalette readOut = editor.findChild<CustomEditLine*>("funcTimeEdit")->palette();
        QVERIFY(contrastOf(readOut.color(QPalette::Disabled, QPalette::Text),
                           readOut.color(QPalette::Disabled, QPalette::Base)) >= 4.5);
    }

    void fontOfTheHostStaysWhateverTheTheme()
    {
        CurveEditor editor;
        editor.setFont(QFont("Arial"));
        editor.setTheme(CurveEditorTheme::light());
        editor.setTheme(CurveEditorTheme::described());
        const auto* const filter = editor.findChild<QLineEdit*>("filterLine");
        for (const QWidget* const part :
             std::initializer_list<const QWidget*>{editor.mainMenu, filter, editor.posX, editor.textBias})
            QCOMPARE(part->font().family(), "Arial");
    }

    void textsAreNotCutOffInAnyFont_data()
    {
        QTest::addColumn<QString>("language");
        for (const char* const language : {"en", "de", "es", "fr", "ja"})
            QTest::newRow(language) << language;
    }
    void textsAreNotCutOffInAnyFont()
    {
        QFETCH(const QString, language);
        installCurveEditorTranslation(QLocale(language));
        const QFont usual = QApplication::font();
        PanDialog pan;
        ScaleDialog scale;
        ViewportSettings range;
        for (const int points : {8, 9, 12, 24}) {
            QApplication::setFont(QFont("Arial", points));
            CurveEditor dialog;
            QCOMPARE(dialog.tabWidget2->font().family(), "Arial Narrow");
            dialog.setTheme(CurveEditorTheme::light());
            for (QDialog* each : std::initializer_list<QDialog*>{&dialog, &pan, &scale, &range}) {
                each->show();
                QVERIFY(QTest::qWaitForWindowExposed(each));
                QFont title = QApplication::font();
                title.setBold(true);
                QVERIFY(each->width() > QFontMetrics(title).horizontalAdvance(each->windowTitle()));
                const bool isSmall = each != &dialog;
                const QList<QWidget*> widgets = each->findChildren<QWidget*>();
                for (const QWidget* widget : widgets) {
                    const bool isLine = qobject_cast<const QLineEdit*>(widget);
                    const bool isButton = qobject_cast<const QAbstractButton*>(widget);
                    if (!widget->isVisible() || !(isLine || isButton || qobject_cast<const QLabel*>(widget)))
                        continue;
                    if (!isSmall)
                        QCOMPARE(widget->font(), QApplication::font());
                    const QRect around = widget->parentWidget()->rect();
                    QVERIFY(around.contains(widget->geometry().marginsRemoved({0, 1, 0, 1})));
                    const QString text = isLine && isSmall ? QStringLiteral("+8888e+88")
                                         : isLine          ? QStringLiteral("-1234.567")
                                                           : widget->property("text").toString();
                    const QSize edges = isLine && isSmall ? QSize(6, 2) : QSize(0, 0);
                    const QSize needed = widget->fontMetrics().size(Qt::TextSingleLine, text) + edges;
                    QVERIFY2(widget->size().expandedTo(needed) == widget->size(),
                             qPrintable(widget->objectName()));
                }
            }
            dialog.tabWidget2->setCurrentIndex(1);
            QTest::qWait(50); // the page is laid out step by step
            QVERIFY(!dialog.expressionTool->findChild<QToolButton*>("qt_toolbar_ext_button")->isVisible());
            QCOMPARE(scale.scaleX->x(), scale.scaleY->x());
            QCOMPARE(range.minX->x(), range.maxY->x());
        }
        QApplication::setFont(usual);
        installCurveEditorTranslation(QLocale("en"));
    }

    void disabledFieldsLookDisabled()
    {
        CurveEditorDialogBase dialog;
        const QColor usual = QApplication::palette().color(QPalette::Disabled, QPalette::Base);
        for (CustomEditLine* const field : {dialog.node, dialog.posX, dialog.easeTo, dialog.incoming}) {
            for (const bool isEnabled : {true, false}) {
                field->setEnabled(isEnabled);
                const QColor shown = field->grab().toImage().pixelColor(8, 8);
                QCOMPARE(shown, isEnabled ? QColor(128, 128, 128) : usual);
            }
        }
    }

    void warningIsAsWideAsItsTitleAndShowsMarkupAsText()
    {
        showWarning(nullptr, QStringLiteral("Cyclical dependency"), QStringLiteral("<b>"));
        const QPointer<QMessageBox> box(qobject_cast<QMessageBox*>(QApplication::activeModalWidget()));
        QVERIFY(box && box->textFormat() == Qt::PlainText && box->width() >= titleWidth(*box));
        QCOMPARE(closeBox(), "<b>");
        QTRY_VERIFY(!box);
    }

    void splittersShareTheRoom()
    {
        CurveEditorDialogBase dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const int listWidth = dialog.splitter11->sizes()[0];
        const int pageHeight = dialog.splitter10->sizes()[1];
        dialog.resize(1600, 1200);
        QCOMPARE(dialog.splitter11->sizes()[0], listWidth);
        QCOMPARE(dialog.splitter10->sizes()[1], pageHeight);
        for (const int width : {500, 150, 0}) {
            dialog.splitter11->setSizes({width, 1600});
            QCOMPARE(dialog.splitter11->sizes()[0] < 160, width < 160);
            QVERIFY(dialog.splitter11->sizes()[0] >= 150);
            QCOMPARE(dialog.checkListsEditing->width(), dialog.splitter11->sizes()[0]);
        }
    }
};

QTEST_MAIN(tst_Dialogs)
#include "tst_Dialogs.moc"
