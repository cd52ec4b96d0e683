// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/panel/EditingListPanel.h>
#include <curveeditor/shell/FitDialog.h>
#include <curveeditor/shell/PlainToolBar.h>

using enum EditorPart;

namespace {

const QList<EditorPart> areas{MenuBar, ToolBar, List, Pages, EnvelopePage, ExpressionPage, PointsPage};
const QList<EditorPart> subjects{Files, Formulas, Pictures, Fitting};

/// The names of all that assistive technology finds in sight.
void hear(QAccessibleInterface* one, QStringList& names)
{
    if (!one || one->state().invisible)
        return;
    if (const QString name = one->text(QAccessible::Name); !name.isEmpty()) // scroll bars come and go
        names += name;
    for (int i = 0; i < one->childCount(); ++i)
        hear(one->child(i), names);
}

QStringList heard(QWidget& widget)
{
    QStringList names;
    hear(QAccessible::queryAccessibleInterface(&widget), names);
    return names;
}

void show(Scene& s, const QList<EditorPart>& parts, bool on)
{
    for (const EditorPart part : parts)
        s.editor.setPartShown(part, on);
    QCoreApplication::processEvents();
}

} // namespace

class tst_EditorParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void partIsGoneAndComesBack_data()
    {
        const Rows<EditorPart, QStringList, QStringList> row; // what is heard of it, its keys that are gone
        row("menus", MenuBar, {"File", "Curves", "Options", "Edit"}, {});
        row("tools", ToolBar, {"Fit View", "Scale selection", "Pan selection"}, {});
        row("list", List, {"Curves on the canvas", "Open curves", "a.x"}, {});
        row("pages", Pages, {"Pages", "Envelope", "Points", "Node index"}, {});
        row("envelope", EnvelopePage, {"Envelope", "Node index"}, {});
        row("expression", ExpressionPage, {"Expresion"}, {});
        row("points", PointsPage, {"Points"}, {});
        row("formulas", Formulas, {"Expresion"}, {});
        row("files", Files, {}, {"Ctrl+S", "Ctrl+L"});
        row("pictures", Pictures, {}, {"Alt+I"});
        row("fitting", Fitting, {}, {"Shift+S", "Shift+B"});
    }

    void partIsGoneAndComesBack()
    {
        const auto [part, names, keys] = Rows<EditorPart, QStringList, QStringList>::present();
        Scene s;
        const QStringList before = heard(s.editor);
        const auto takes = [&](const QString& key) {
            const QKeyCombination pressed = QKeySequence(key)[0];
            return s.takes(s.canvas, pressed.key(), pressed.keyboardModifiers());
        };
        for (const bool on : {false, false, true, true}) {
            show(s, {part}, on);
            QEvent change(QEvent::LanguageChange);
            QApplication::sendEvent(&s.editor, &change);
            s.editor.setTheme(CurveEditorTheme::light());
            s.editor.setFont(QFont("Arial Narrow", 9));
            s.turnTo("a.z").turnTo("a.x").page(0);
            const QStringList now = heard(s.editor);
            QCOMPARE(s.editor.isPartShown(part), on);
            if (on)
                QCOMPARE(now, before);
            QVERIFY(names.isEmpty() || on == (now == before));
            for (const QString& name : names)
                QVERIFY2(now.contains(name) == on, qPrintable(name));
            for (const QString key : {"Ctrl+S", "Ctrl+L", "Alt+I", "Alt+C", "Shift+S", "Shift+B", "Ctrl+A"})
                QVERIFY2(takes(key) == (on || !keys.contains(key)), qPrintable(key));
            QCOMPARE(takes("Ins"), part == List && !on);
        }
    }

    void partsGoInAnyOrderAndBeforeTheDialogShows()
    {
        std::mt19937 random(7);
        QList<EditorPart> parts = areas + subjects;
        CurveEditor editor;
        for (int step = 0; step < 200; ++step) {
            const EditorPart part = parts[qsizetype(random() % std::size_t(parts.size()))];
            editor.setPartShown(part, random() % 2);
            if (step == 20)
                editor.show();
            const auto shows = [&](EditorPart one, QWidget* page) {
                return editor.isPartShown(one) == (editor.tabWidget2->indexOf(page) >= 0);
            };
            QVERIFY(shows(EnvelopePage, editor.tab));
            const bool hasFormulas = editor.isPartShown(ExpressionPage) && editor.isPartShown(Formulas);
            QCOMPARE(editor.tabWidget2->indexOf(editor.tab_2) >= 0, hasFormulas);
            QCOMPARE(editor.tabWidget2->isHidden(),
                     !editor.isPartShown(Pages) || editor.tabWidget2->count() == 0);
            QCOMPARE(editor.mainMenu->isHidden(),
                     !editor.isPartShown(MenuBar) && !editor.isPartShown(ToolBar));
        }
        for (const EditorPart part : parts)
            editor.setPartShown(part, true);
        QStringList tabs;
        for (int page = 0; page < editor.tabWidget2->count(); ++page)
            tabs += editor.tabWidget2->tabText(page);
        QCOMPARE(tabs, QStringList({"Envelope", "Expresion", "Points"}));
        editor.setPartShown(EditorPart(99), false);
        QVERIFY(editor.isPartShown(EditorPart(99)));
    }

    void whatIsUnderWayInAPartEnds()
    {
        Scene s;
        s.clickPoint().type(s.editor.posY, "2").editor.setPartShown(EnvelopePage, false);
        QVERIFY(s.canvas.hasFocus() && s.x[1]->pos == 2.0 && s.entries() == 1);
        s.editor.setPartShown(EnvelopePage, true);
        s.page(0).sendMouse(*s.editor.posY, QEvent::MouseButtonPress, {});
        s.editor.posY->setFocus();
        s.sendMouse(*s.editor.posY, QEvent::MouseMove, {0, -90});
        s.editor.setPartShown(Pages, false);
        const double dragged = s.x[1]->pos;
        s.sendMouse(*s.editor.posY, QEvent::MouseMove, {0, -300});
        QVERIFY(dragged != 2.0 && s.x[1]->pos == dragged && s.entries() == 2);

        s.key(Qt::Key_S, shift);
        QVERIFY(s.editor.findChild<FitDialog*>()->isVisible());
        s.editor.setPartShown(Fitting, false);
        QVERIFY(!s.editor.findChild<FitDialog*>()->isVisible());
        s.trigger("simplifyAction");
        QTRY_VERIFY(!s.editor.findChild<FitDialog*>());
        for (const EditorPart part : {Files, Pictures}) {
            whenOpen<QFileDialog>([&](QFileDialog&) { s.editor.setPartShown(part, false); });
            part == Files ? s.editor.loadFile() : s.editor.loadImage();
        }
        QTest::keyClick(&s.list, Qt::Key_Insert);
        auto& field = *s.editor.findChild<QFrame*>("curveChooser");
        QVERIFY(field.isVisible());
        s.editor.setPartShown(List, false);
        QVERIFY(!field.isVisible());
        s.trigger("openCurvesAction"); // over the canvas
        QVERIFY(field.isVisible() && field.geometry().contains(s.canvas.mapToGlobal(QPoint(9, 9))));
    }

    void leastSizes_data()
    {
        const Rows<QList<EditorPart>, QSize> row; // what is hidden
        row("all", {}, {640, 480});
        row("no pages", {Pages}, {400, 200});
        row("no page", {EnvelopePage, PointsPage, Formulas}, {400, 200});
        row("canvas alone", {Pages, List, MenuBar, ToolBar}, {200, 120});
    }

    void leastSizes()
    {
        const auto [hidden, size] = Rows<QList<EditorPart>, QSize>::present();
        const auto fit = [hidden = hidden, size = size](CurveEditor& editor) {
            for (const EditorPart part : hidden)
                editor.setPartShown(part, false);
            editor.resize(size);
            editor.show();
            QCoreApplication::processEvents();
            QCOMPARE(editor.size(), size);
            QCOMPARE(editor.minimumSizeHint(), size);
            auto* const more = editor.findChild<QToolButton*>("moreButton");
            Q_EMIT more->menu()->aboutToShow();
            std::vector<bool> inMenu, hiddenButtons; // whether they are on
            for (const QAction* const entry : more->menu()->actions())
                inMenu.push_back(entry->isEnabled());
            for (const QToolButton* const button : more->parent()->findChildren<QToolButton*>()) {
                if (button != more && button->isHidden())
                    hiddenButtons.push_back(button->isEnabled());
            }
            QCOMPARE(inMenu, hiddenButtons);
            QVERIFY(!static_cast<QWidget*>(more->parent())->isVisible() ||
                    more->isVisible() == !hiddenButtons.empty());
            for (QToolButton* const button : editor.mainMenu->findChildren<QToolButton*>()) {
                const bool isWhole =
                    button->width() >= button->sizeHint().boundedTo(button->maximumSize()).width();
                QVERIFY2(!button->isVisible() || isWhole, qPrintable(button->text()));
            }
        };
        CurveEditor fresh;
        fit(fresh);
        fresh.close();
        Scene s;
        fit(s.editor);
        if (!s.editor.tab->isVisible())
            return;
        s.x.modify(1u)->type = SplineBase::Tcb;
        s.clickPoint();
        for (QWidget* const field : std::initializer_list<QWidget*>{s.editor.bias, s.editor.node}) {
            field->setFocus();
            const QPoint middle = field->mapTo(s.editor.tab, field->rect().center());
            QVERIFY(s.editor.tab->rect().contains(middle));
            QVERIFY(field->width() >= field->minimumSizeHint().width());
        }
    }

    void sizeAtTheStartHasRoomForAll()
    {
        for (const bool isLarge : {false, true}) {
            CurveEditor editor;
            if (isLarge)
                editor.setFont(QFont(editor.font().family(), 16));
            QCOMPARE(editor.size(), QSize(400, 300));
            editor.show();
            QCoreApplication::processEvents();
            QVERIFY(editor.functionView->width() >= 550 && editor.functionView->height() >= 300);
            for (int page = 0; page < 2; ++page) {
                editor.tabWidget2->setCurrentIndex(page);
                const auto& area = *static_cast<QScrollArea*>(editor.tabWidget2->currentWidget());
                QVERIFY(!area.horizontalScrollBar()->isVisible() && !area.verticalScrollBar()->isVisible());
            }
        }
    }
};

QTEST_MAIN(tst_EditorParts)
#include "tst_EditorParts.moc"
