// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/shell/BakeDialog.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/ScaleDialog.h>
#include <curveeditor/shell/SimplifyDialog.h>
#include <curveeditor/shell/Translations.h>
#include <curveeditor/shell/ViewportSettings.h>

#include <set>

using namespace curveeditor;

namespace {

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

} // namespace

class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newLanguageReachesAllThatIsOnTheScreen()
    {
        Scene s;
        s.drag(5.0, 1.0, 6.0, 1.0); // an entry to be undone, a selected point and read-outs
        s.choose(0);                // makes the menu over points
        s.editor.tabWidget2->setCurrentIndex(2);
        s.editor.nodeLast->setCurrentIndex(3);
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

QTEST_MAIN(tst_Translations)
#include "tst_Translations.moc"
