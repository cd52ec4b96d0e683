// SPDX-License-Identifier: MIT
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/EditingList.h>

#include <QDialog>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

struct KeyCounter : QDialog
{
    int keys = 0;
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

class tst_EditingList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void deleteAsksForTheSelectedRowAndGoesNoFurther()
    {
        KeyCounter dialog;
        EditingList list(&dialog);
        for (const char* name : {"light.key", "camera.focus"})
            list.addRow(new QTreeWidgetItem({name}));
        connect(&list, &EditingList::supressFromEditing, &list, [](QTreeWidgetItem* item) { delete item; });
        QSignalSpy spy(&list, &EditingList::supressFromEditing);
        QTest::keyClick(&list, Qt::Key_Delete);
        QCOMPARE(spy.at(0).at(0).value<QTreeWidgetItem*>(), nullptr);
        dialog.show();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(list.viewport()->width() - 2, 5));
        QCOMPARE(list.selectedItem()->text(0), "camera.focus");
        QTest::keyClick(&list, Qt::Key_Delete);
        QCOMPARE(list.topLevelItemCount(), 1);
        QCOMPARE(dialog.keys, 0);
        QTest::keyClick(&list, Qt::Key_F5);
        QCOMPARE(dialog.keys, 1);
    }

    void droppedTextIsReportedUnlessItHoldsAQuestionMark()
    {
        EditingList list;
        QSignalSpy spy(&list, &EditingList::setNodeForEdit);
        const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
        for (const char* text : {"", "camera.?", "カメラ.focus pull"}) {
            QMimeData data;
            if (*text)
                data.setText(text);
            QDragEnterEvent enter(QPoint(5, 5), actions, &data, Qt::LeftButton, {});
            QApplication::sendEvent(list.viewport(), &enter);
            QDragMoveEvent move(QPoint(6, 6), actions, &data, Qt::LeftButton, {});
            QApplication::sendEvent(list.viewport(), &move);
            QCOMPARE(enter.isAccepted(), move.isAccepted());
            QDropEvent drop(QPointF(6, 6), actions, &data, Qt::LeftButton, {});
            drop.setDropAction(Qt::MoveAction);
            if (move.isAccepted())
                QApplication::sendEvent(list.viewport(), &drop);
            QCOMPARE(drop.dropAction(), move.isAccepted() ? Qt::CopyAction : Qt::MoveAction);
        }
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QString::fromUtf8("カメラ.focus pull"));
    }

    void menuReportsTheChoiceFirst()
    {
        ControlMenu2 menu;
        QStringList heard;
        connect(&menu, &ControlMenu2::setRemoveItem, this, [&] { heard << "remove"; });
        connect(&menu, &ControlMenu2::setColorChange, this, [&] { heard << "color"; });
        connect(&menu, &ControlMenu2::nodeChanged, this, [&] { heard << "changed"; });
        for (const QList<Qt::Key>& keys : {QList<Qt::Key>{Qt::Key_Down, Qt::Key_Escape},
                                           {Qt::Key_Down, Qt::Key_Return},
                                           {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}}) {
            QTimer::singleShot(0, &menu, [&] {
                for (const Qt::Key key : keys)
                    QTest::keyClick(&menu, key);
            });
            menu.showMenu(QPoint(10, 10), -1);
        }
        QCOMPARE(heard, (QStringList{"remove", "changed", "color", "changed"}));
    }
};

QTEST_MAIN(tst_EditingList)
#include "tst_EditingList.moc"
