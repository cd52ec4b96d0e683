// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/DecimalQuestion.h>
#include <curveeditor/canvas/TitleWidth.h>
#include <curveeditor/canvas/WarningBox.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/shell/BakeDialog.h>
#include <curveeditor/shell/CanvasAccessible.h>
#include <curveeditor/shell/PlainToolBar.h>
#include <curveeditor/shell/SimplifyDialog.h>
#include <curveeditor/shell/Translations.h>

/// Turns every text of the library into "«text»" and notes what it was asked for. Keys stay keys.
class Marker : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        const bool isOurs = *context != 'Q' && qstrcmp(context, "CurveNodeBase") != 0;
        if (isOurs)
            asked.insert({context, text});
        const bool isKey = qstrncmp(text, "Ctrl+", 5) == 0 || qstrncmp(text, "Alt+", 4) == 0;
        return isOurs && !isKey ? u'«' + QString::fromUtf8(text) + u'»' : QString();
    }
    mutable std::set<std::pair<QByteArray, QByteArray>> asked;
};

QStringList textsOf(const QAbstractItemModel& model)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column) {
        texts.append(model.headerData(column, Qt::Horizontal).toString());
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row, column).data().toString());
    }
    return texts;
}

/// All that a widget shows, its menus, and what assistive tools tell of it.
QStringList textsOf(QWidget& widget)
{
    QStringList texts{widget.toolTip(), widget.whatsThis(), widget.accessibleName(),
                      widget.isWindow() ? widget.windowTitle() : QString()};
    if (widget.objectName() != "commandLine")
        texts << widget.property("text").toString() << widget.property("placeholderText").toString();
    if (const auto* const tabs = qobject_cast<QTabBar*>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts.append(tabs->tabText(tab));
    }
    if (const auto* const combo = qobject_cast<QComboBox*>(&widget))
        texts += textsOf(*combo->model());
    if (const auto* const table = qobject_cast<QTableView*>(&widget))
        texts += textsOf(*table->model());
    if (qobject_cast<FunctionEditor*>(&widget)) {
        QAccessibleInterface* const canvas = QAccessible::queryAccessibleInterface(&widget);
        for (QAccessibleInterface* const part : {canvas, canvas->child(0)}) {
            if (part)
                texts << part->text(QAccessible::Name) << part->text(QAccessible::Description);
        }
    }
    for (const QAction* const action : widget.actions())
        texts << action->text() << action->whatsThis();
    return texts;
}

/// The texts of all windows and menus that hold words, but for names of curves and functions.
QStringList shownTexts()
{
    static const QRegularExpression word("\\p{L}{2}");
    QCoreApplication::processEvents();
    QStringList texts;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        texts += textsOf(*window);
        for (QWidget* const widget : window->findChildren<QWidget*>())
            texts += isQts(*widget) ? QStringList() : textsOf(*widget);
    }
    for (const QString name : {"cos", "sin", "tan", "exp", "log", "rnd", "abs", "sqrt", "acos", "asin",
                               "atan", "cosh", "sinh", "tanh", "ceil", "floor", "if"})
        texts.removeAll(name);
    return texts.filter(word);
}

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

    void fontOfTheHostStaysDisabledFieldsDifferAndReadOutsCanBeRead()
    {
        CurveEditor editor;
        editor.setFont(QFont("Arial"));
        editor.setTheme(CurveEditorTheme::described());
        editor.setTheme(CurveEditorTheme::dark());
        const auto* const filter = editor.findChild<QLineEdit*>("filterLine");
        for (const QWidget* const part :
             std::initializer_list<const QWidget*>{editor.mainMenu, filter, editor.posX, editor.textBias})
            QCOMPARE(part->font().family(), "Arial");
        QPalette colors(QColor(44, 48, 54), QColor(34, 38, 44));
        colors.setColor(QPalette::Base, editor.theme().field);
        colors.setColor(QPalette::Disabled, QPalette::Text, QColor(70, 76, 84));
        editor.setPalette(colors);
        const QPalette field = editor.posX->palette();
        QVERIFY(field.color(QPalette::Disabled, QPalette::Base) !=
                field.color(QPalette::Active, QPalette::Base));
        for (const char* const readOut : {"funcTimeEdit", "posX", "posY"}) {
            const QPalette shown = editor.findChild<CustomEditLine*>(readOut)->palette();
            QVERIFY(contrastOf(shown.color(QPalette::Disabled, QPalette::Text),
                               shown.color(QPalette::Disabled, QPalette::Base)) >= 4.5);
        }
    }

    void textsAreNotCutOffInAnyFont_data()
    {
        const Rows<QString> row;
        for (const char* const language : {"en", "de", "es", "fr", "ja"})
            row(language, language);
    }
    void textsAreNotCutOffInAnyFont()
    {
        const auto [language] = Rows<QString>::present();
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
            const auto middle = [&dialog](const QWidget* part) {
                return part->mapTo(&dialog, part->rect().center()).y();
            };
            for (const QWidgetList& row :
                 {QWidgetList{dialog.node, dialog.prevNode, dialog.textLabel1_2, dialog.nodeTypeCombo,
                              dialog.textTension, dialog.tension},
                  {dialog.posX, dialog.textLabel1, dialog.nodeFirst, dialog.easeTo, dialog.continuity},
                  {dialog.posY, dialog.textLabel1_2_2, dialog.easeFrom, dialog.textBias, dialog.bias}}) {
                for (const QWidget* const part : row)
                    QVERIFY(std::abs(middle(part) - middle(row.front())) <= 1);
            }
            QCOMPARE(dialog.node->x(), dialog.posX->x());
            const int preview = dialog.tcbCurve->width();
            dialog.resize(dialog.size() + QSize(300, 0));
            QTRY_COMPARE(dialog.tcbCurve->width(), preview + 300);
            dialog.tabWidget2->setCurrentIndex(1);
            QTest::qWait(50); // the page is laid out step by step
            QVERIFY(!dialog.expressionTool->findChild<QToolButton*>("qt_toolbar_ext_button")->isVisible());
            QCOMPARE(dialog.commandLine->y() - dialog.expressionTool->geometry().bottom(), 7);
            QCOMPARE(dialog.commandLine->x(), dialog.expressionTool->findChild<QToolButton*>()->x() + 11);
            dialog.resize(points * 71, 480); // narrower than the tool bar
            QTRY_COMPARE(dialog.deleteCurve->geometry().right() + 12, dialog.tab_2->width());
            QCOMPARE(scale.scaleX->x(), scale.scaleY->x());
            QCOMPARE(range.minX->x(), range.maxY->x());
        }
        QApplication::setFont(usual);
        installCurveEditorTranslation(QLocale("en"));
    }

    void stepButtonsPointWhereTheyGo()
    {
        CurveEditor editor;
        editor.show();
        const QImage shown = editor.prevNode->grab().toImage();
        for (const Qt::LayoutDirection direction : {Qt::RightToLeft, Qt::LeftToRight}) {
            QApplication::setLayoutDirection(direction);
            QTRY_COMPARE(editor.node->x() < editor.prevNode->x(), editor.isRightToLeft());
            QVERIFY(editor.prevNode->x() < editor.nextNode->x());
            QCOMPARE(editor.prevNode->grab().toImage(), shown);
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

    void questionShowsNumbersAsTheyAreTyped()
    {
        const QLocale usual;
        QLocale::setDefault(QLocale(QLocale::German));
        for (const auto& [behind, end] : {std::pair("", " 1234"), {"\t5\t6", " 6"}, {"\t5\t6\t7", " ..."}}) {
            QString asked; // shows four columns
            whenOpen<QMessageBox>([&asked](QMessageBox& box) { asked = box.text(), box.reject(); });
            QVERIFY(!askForDecimal(nullptr, "Paste points", std::string("9\t1,234") + behind));
            QVERIFY2(asked.contains(" 1,234") && asked.contains(" 1234") && asked.endsWith(end),
                     qPrintable(asked));
        }
        QLocale::setDefault(usual);
    }

    void emptyPartsSayWhatToDo()
    {
        Scene s;
        s.editor.setTheme(CurveEditorTheme::light());
        const auto isBlank = [](QWidget* part) {
            const QImage picture = part->grab(part->rect().adjusted(2, 2, -2, -2)).toImage();
            QImage plain = picture;
            plain.fill(picture.pixelColor(0, 0));
            return picture == plain;
        };
        QWidget* const list = s.editor.checkListsEditing->viewport();
        s.editor.resize(1700, 900);
        QVERIFY(QTest::qWaitFor([&] { return s.editor.tcbCurve->width() > 300; }));
        const QImage unselected = s.editor.tcbCurve->grab().toImage();
        const QImage shown = s.clickPoint().editor.tcbCurve->grab().toImage();
        s.type(s.editor.posY, "2");
        QVERIFY(shown != unselected && s.editor.tcbCurve->grab().toImage() == shown);
        s.type(s.editor.incoming, "3");
        QVERIFY(s.editor.tcbCurve->grab().toImage() != shown);
        QVERIFY(s.page(1).editor.commandLine->text().isEmpty() && !isBlank(s.editor.commandLine));
        s.page(0).editor.cleanSelecteds();
        QVERIFY(!isBlank(list));
        const QImage empty = s.editor.tcbCurve->grab().toImage();
        QVERIFY(!isBlank(s.editor.tcbCurve) && empty != shown && empty != unselected);
        s.editor.tcbCurve->resize(50, 50);
        QVERIFY(isBlank(s.editor.tcbCurve));
        QVERIFY(!isBlank(s.page(2).editor.findChild<QTableView*>()->viewport()));
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
        dialog.resize(640, 480);
        QTRY_VERIFY(dialog.frame10->y() > dialog.frame11->geometry().bottom()); // no room side by side
        dialog.resize(1600, 1200);
        QTRY_COMPARE(dialog.frame10->y(), dialog.frame11->y());
        QVERIFY(!static_cast<QScrollArea*>(dialog.tab)->verticalScrollBar()->isVisible());
        for (const int width : {500, 150, 0}) {
            dialog.splitter11->setSizes({width, 1600});
            QCOMPARE(dialog.splitter11->sizes()[0] < 160, width < 160);
            QVERIFY(dialog.splitter11->sizes()[0] >= 150);
            QCOMPARE(dialog.checkListsEditing->width(), dialog.splitter11->sizes()[0]);
        }
    }

    void pointsAreChildrenOfTheCanvas()
    {
        Scene s;
        s.x.modify(1)->serial = 0;
        QAccessibleInterface* const canvas = QAccessible::queryAccessibleInterface(&s.canvas);
        QCOMPARE(canvas->childCount(), 3);
        QCOMPARE(canvas->text(QAccessible::Name), "Canvas, curve a.x");
        QAccessibleInterface* const second = canvas->child(1);
        QCOMPARE(second->text(QAccessible::Name), "Point 2 of 3, frame 50, value 1");
        QCOMPARE(second->text(QAccessible::Description), "Bezier point");
        QCOMPARE(canvas->indexOfChild(second), 1);
        QCOMPARE(second->parent(), canvas);
        QVERIFY(!second->state().selected && !second->state().offscreen && !canvas->focusChild());
        s.canvas.zoomView(-40, 30); // and no frame since
        const QPoint middle = second->rect().center();
        QCOMPARE(s.canvas.mapFromGlobal(middle), s.pixel(5.0, 1.0));
        QCOMPARE(canvas->childAt(middle.x(), middle.y()), second);

        QVERIFY(second->childCount() == 0 && !second->child(0) && second->indexOfChild(canvas) == -1);
        QVERIFY(!second->childAt(middle.x(), middle.y()) && second->window() == canvas->window());
        QCOMPARE(second->role(), QAccessible::ListItem);
        QCOMPARE(second->text(QAccessible::Value), "1");
        s.editor.setShowTime();
        QCOMPARE(second->text(QAccessible::Name), "Point 2 of 3, time 5, value 1");
        s.editor.setView({6.0, -1.0, 3.0, 2.0});
        QVERIFY(second->state().offscreen);

        const QStringList actions = second->actionInterface()->actionNames();
        QCOMPARE(second->actionInterface()->localizedActionName(actions[0]), "Select");
        second->actionInterface()->doAction(actions[0]);
        QVERIFY(second->state().selected && canvas->focusChild() == second && s.editor.posY->isEnabled());
        QCOMPARE(canvas->text(QAccessible::Description), "3 points, 1 selected");
        second->actionInterface()->doAction(actions[1]);
        QCOMPARE(s.changes, QStringList{"a/x"});
        QCOMPARE(s.entries(), 1);
        QVERIFY(canvas->childCount() == 2 && !second->isValid() && second->rect().isEmpty());
        second->actionInterface()->doAction(actions[1]);
        QCOMPARE(canvas->childCount(), 2);
        QCOMPARE(canvas->indexOfChild(second), -1);
        const QAccessible::Id lost = QAccessible::uniqueId(second);
        for (int i = 0; i < 100; ++i) { // points that come and go leave nothing behind
            s.x.addPoint(20.0, 0.0);
            QVERIFY(canvas->child(2));
            s.x.remove(s.x[2]);
        }
        QVERIFY(!QAccessible::accessibleInterface(lost));
        s.turnTo("a.z");
        QVERIFY(canvas->childCount() == 0 && !canvas->child(0));
    }

    void pointCanBeFoundAndMovedByKeysAlone()
    {
        Scene s;
        QStringList told;
        connect(s.canvas.findChild<CanvasAnnouncer*>(), &CanvasAnnouncer::announced,
                [&told](QAccessible::Event kind, const QString& name) {
                    if (name.startsWith("Point"))
                        told.append(QString::number(kind, 16) + u' ' + name);
                });
        const QString selected = QString::number(QAccessible::Selection, 16) + u' ';
        const QString focused = QString::number(QAccessible::Focus, 16) + u' ';
        const QString moved = QString::number(QAccessible::NameChanged, 16) + u' ';
        const QString first = "Point 1 of 3, frame 0, value 0";
        const QString second = "Point 2 of 3, frame 50, value ";
        s.key(Qt::Key_Right).key(Qt::Key_Right);
        QCOMPARE(told, (QStringList{selected + first, focused + first, selected + second + "1",
                                    focused + second + "1"}));
        s.key(Qt::Key_Tab); // opens the page
        s.type(s.editor.posY, "3").focusCanvas().key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(told.mid(4), (QStringList{moved + second + "3", moved + second + "1"}));
        s.drag(5.0, 1.0, 6.0, 1.0);
        QCOMPARE(told.size(), 7); // a drag is told when it is done
    }

    void newLanguageReachesAllThatIsOnTheScreen()
    {
        Scene s;
        s.drag(5.0, 1.0, 6.0, 1.0); // an entry to be undone, a selected point and read-outs
        s.choose(0);                // makes the menu over points
        s.page(2).editor.nodeLast->setCurrentIndex(3);
        auto* const table = s.editor.findChild<QTableView*>("pointTable");
        table->edit(table->model()->index(1, 2)); // a list of types
        CurveEditor empty;
        empty.setTheme(CurveEditorTheme::light());
        empty.show();
        (new SimplifyDialog(&s.editor, s.canvas.canvas))->open();
        (new BakeDialog(&s.editor, s.canvas.canvas))->open();
        PanDialog pan;
        ScaleDialog scale;
        ViewportSettings range;
        const QStringList english = shownTexts();
        QVERIFY(english.contains("Undo Move a point of a.x") && english.contains("Loop offset"));

        Marker marker;
        QCoreApplication::installTranslator(&marker);
        const QStringList marked = shownTexts();
        QCOMPARE(marked.size(), english.size());
        for (const QString& text : marked)
            QVERIFY2(text.contains(u'«'), qPrintable(text));
        QVERIFY(marked.contains("«Undo Move a point of a.x»") && marked.contains("«Create key»"));
        QCOMPARE(s.editor.nodeLast->currentText(), "«Loop offset»");

        QCoreApplication::removeTranslator(&marker);
        QCOMPARE(shownTexts(), english);
        if (!installCurveEditorTranslation(QLocale("de")))
            QSKIP("built without translations");
        for (const QString language : {"de", "es", "fr", "ja"}) {
            QTranslator translator;
            QVERIFY(translator.load(":/curveeditor/curveeditor_" + language));
            for (const auto& [context, text] : marker.asked)
                QVERIFY2(!translator.translate(context, text).isNull(), context + ": " + text);
        }
        installCurveEditorTranslation(QLocale("en"));
    }

    void oneCallChoosesTheLanguage()
    {
        CurveEditor editor;
        editor.show();
        if (!installCurveEditorTranslation(QLocale("de_AT")))
            QSKIP("built without translations");
        const auto title = [&editor] {
            QCoreApplication::processEvents();
            return editor.windowTitle();
        };
        QCOMPARE(title(), "Kurveneditor");
        const QComboBox& types = *editor.nodeTypeCombo;
        const int needed = types.fontMetrics().horizontalAdvance(types.itemText(1));
        QTRY_VERIFY(types.width() > needed + 20); // an arrow stands beside it
        QVERIFY(installCurveEditorTranslation(QLocale("es")));
        QCOMPARE(title(), "Editor de curvas");
        QVERIFY(installCurveEditorTranslation(QLocale("en_GB")));
        QCOMPARE(title(), "Curve Editor");
        QVERIFY(installCurveEditorTranslation(QLocale("ja")) && title() != "Curve Editor");
        QVERIFY(!installCurveEditorTranslation(QLocale("fi")) &&
                !installCurveEditorTranslation(QLocale::c()));
        QCOMPARE(title(), "Curve Editor");
    }
};

QTEST_MAIN(tst_Dialogs)
#include "tst_Dialogs.moc"
