// SPDX-License-Identifier: MIT
#include "EditorScene.h"

#include <curveeditor/shell/CanvasAccessible.h>

using namespace curveeditor;

/// What a person hears who does not see the canvas.
class tst_Accessible : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
        QVERIFY(!second->state().selected && !canvas->focusChild());
        const QPoint middle = second->rect().center();
        QCOMPARE(s.canvas.mapFromGlobal(middle), s.pixel(5.0, 1.0));
        QCOMPARE(canvas->childAt(middle.x(), middle.y()), second);

        QVERIFY(second->childCount() == 0 && !second->child(0) && second->indexOfChild(canvas) == -1);
        QVERIFY(!second->childAt(middle.x(), middle.y()) && second->window() == canvas->window());
        QCOMPARE(second->role(), QAccessible::ListItem);
        QCOMPARE(second->text(QAccessible::Value), "1");
        s.editor.setShowTime();
        QCOMPARE(second->text(QAccessible::Name), "Point 2 of 3, time 5, value 1");

        const QStringList actions = second->actionInterface()->actionNames();
        QCOMPARE(second->actionInterface()->localizedActionName(actions[0]), "Select");
        second->actionInterface()->doAction(actions[0]);
        QVERIFY(second->state().selected && canvas->focusChild() == second);
        QVERIFY(s.editor.posY->isEnabled());
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
        s.canvas.canvas.setCurrentCurve("a.z");
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
        s.key(Qt::Key_Right);
        s.key(Qt::Key_Right);
        QCOMPARE(told, (QStringList{selected + first, focused + first, selected + second + "1",
                                    focused + second + "1"}));
        s.key(Qt::Key_Tab); // opens the page
        s.type(s.editor.posY, "3");
        s.canvas.setFocus();
        s.key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(told.mid(4), (QStringList{moved + second + "3", moved + second + "1"}));
        s.drag(5.0, 1.0, 6.0, 1.0);
        QCOMPARE(told.size(), 7); // a drag is told when it is done
    }
};

QTEST_MAIN(tst_Accessible)
#include "tst_Accessible.moc"
