// SPDX-License-Identifier: MIT
#include "EditorScene.h"

namespace {

/// The names that the guide gives, and the texts beside them.
std::map<QString, QString> documentedActions()
{
    QFile guide(QFINDTESTDATA("../../docs/guide/actions.md"));
    std::map<QString, QString> texts;
    if (!guide.open(QIODevice::ReadOnly))
        return texts;
    for (const QString& line : QString::fromUtf8(guide.readAll()).split('\n')) {
        static const QRegularExpression row("^\\| `(\\w+)` \\| ([^|]*) \\|");
        if (const auto match = row.match(line); match.hasMatch())
            texts[match.captured(1)] = match.captured(2);
    }
    return texts;
}

void collect(const QMenu& menu, std::map<QString, QString>& texts)
{
    for (const QAction* const entry : menu.actions()) {
        if (!entry->isSeparator())
            texts[entry->objectName()] = entry->text();
        if (entry->menu())
            collect(*entry->menu(), texts);
    }
}

} // namespace

class tst_HostActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void guideNamesAllActions()
    {
        Scene s;
        std::map<QString, QString> shown;
        for (const QString button : {"File", "Options", "Edit"})
            collect(*s.menu(button), shown);
        collect(*ControlSplineNode::menu(), shown);
        whenOpen<ControlMenu2>([&](QMenu& menu) {
            collect(menu, shown);
            menu.close();
        });
        openContextMenu(*s.list.viewport(), s.list.visualItemRect(s.list.selectedItem()).center());
        QVERIFY(shown.size() > 60);
        QCOMPARE(documentedActions(), shown);
        for (const auto& [name, text] : shown)
            QCOMPARE(s.editor.action(name)->text(), text);
        for (const QString name : {"", "cut", "cutaction", "a.x"})
            QVERIFY(!s.editor.action(name));
    }

    void actionsWorkWhereverTheHostShowsThem()
    {
        Scene other, s;
        QAction& copy = *s.editor.action("copyAction");
        QVERIFY(!copy.isEnabled() && !s.editor.action("timeLineLaterAction")->isEnabled());
        s.clickPoint().editor.setTimeLineDraggable(true);
        QVERIFY(copy.isEnabled() && s.editor.action("timeLineLaterAction")->isEnabled());
        copy.trigger();
        s.trigger("pasteInPlaceAction");
        QCOMPARE(s.x.getControlPointsNumber(), 4U);
        s.trigger("deleteKeyAction").trigger("createKeyAction");
        QCOMPARE(s.x.getControlPointsNumber(), 4U);
        QCOMPARE(other.x.getControlPointsNumber(), 3U); // it was not pressed last
        s.trigger("removeFromEditingAction");
        QVERIFY(!s.canvas.canvas.findCurve("a.x") && s.current() != "a.x");

        QAction& save = *s.editor.action("saveCurve");
        save.setShortcut(Qt::Key_F9);
        QEvent change(QEvent::LanguageChange);
        QApplication::sendEvent(&s.editor, &change);
        QVERIFY(s.takes(s.canvas, Qt::Key_F9) && !s.takes(s.canvas, Qt::Key_S, ctrl));
        save.setVisible(false);
        QVERIFY(!s.takes(s.canvas, Qt::Key_F9));
    }

    void hostsOwnActionsStandInMenusAndHaveKeys()
    {
        Scene other, s;
        QWidget host;
        QString done;
        const auto make = [&](const QString& text, const QKeySequence& key) {
            auto* const action = new QAction(text, &host);
            action->setData(int(ControlMenu::DeleteKey)); // the id of an entry of ours
            action->setShortcut(key);
            QObject::connect(action, &QAction::triggered, &host, [&done, text] { done += text; });
            return action;
        };
        const QPointer<QAction> point = make("p", Qt::Key_N), edit = make("e", Qt::CTRL | Qt::Key_G),
                                list = make("l", Qt::Key_F5), copy = make("c", Qt::CTRL | Qt::Key_C);
        for (const QPointer<QAction>& ours : {point, edit, list})
            ours->setObjectName("removeFromEditingAction"); // the name of one of the editor's
        for (int again = 0; again < 2; ++again) {
            s.editor.addPointAction(point), s.editor.addPointAction(nullptr);
            s.editor.addEditAction(edit), s.editor.addEditAction(copy), s.editor.addEditAction(nullptr);
            s.editor.addListAction(list), s.editor.addListAction(nullptr);
        }
        QCOMPARE(s.editor.action("removeFromEditingAction")->text(), "Remove from editing list");
        QEvent change(QEvent::LanguageChange);
        for (QObject* const one : std::initializer_list<QObject*>{ControlSplineNode::menu(), s.menu("Edit")})
            QApplication::sendEvent(one, &change);
        s.clickPoint();
        const auto pointMenu = [&](Scene& scene, int expected) {
            whenOpen<ControlMenu>([&](ControlMenu& menu) {
                QCOMPARE(scene.texts(&menu).count("p"), expected);
                menu.setActiveAction(expected == 0 ? nullptr : menu.actions().constLast());
                QTest::keyClick(&menu, expected == 0 ? Qt::Key_Escape : Qt::Key_Return);
            });
            scene.press(5.0, 1.0, {}, Qt::RightButton);
        };
        pointMenu(s, 1);
        QVERIFY(done == "p" && s.x.getControlPointsNumber() == 3 && s.entries() == 0);
        pointMenu(other, 0);
        QCOMPARE(s.texts(s.menu("Edit")).count("e"), 1);
        QCOMPARE(s.texts(s.menu("Edit")).mid(s.menu("Edit")->actions().size() - 3),
                 QStringList({"", "e", "c"}));
        whenOpen<ControlMenu2>([&](ControlMenu2& menu) {
            QCOMPARE(s.texts(&menu).count("l"), 1);
            menu.setActiveAction(menu.actions().constLast());
            QTest::keyClick(&menu, Qt::Key_Return);
        });
        openContextMenu(*s.list.viewport(), s.list.visualItemRect(s.list.selectedItem()).center());
        QVERIFY(done == "pl" && s.canvas.canvas.findCurve("a.x"));

        s.editor.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.editor));
        done.clear();
        const auto keys = [&](QWidget& focus) {
            focus.setFocus();
            QTest::keyClick(&focus, Qt::Key_N);
            QTest::keyClick(&focus, Qt::Key_G, ctrl);
            QTest::keyClick(&focus, Qt::Key_F5);
            QTest::keyClick(&focus, Qt::Key_C, ctrl); // ours goes first
            return std::exchange(done, QString());
        };
        QCOMPARE(keys(s.canvas), "pel");
        QCOMPARE(keys(s.list), "pel");
        QCOMPARE(keys(*s.editor.commandLine), "el"); // there N is typed
        QVERIFY(s.editor.commandLine->text().contains('n'));
        QCOMPARE(keys(*s.editor.nodeFirst), "elc"); // it has no use for that
        delete edit;
        delete point;
        QVERIFY(keys(s.canvas) == "l" && !s.texts(s.menu("Edit")).contains("e"));
        pointMenu(s, 0);
    }
};

QTEST_MAIN(tst_HostActions)
#include "tst_HostActions.moc"
