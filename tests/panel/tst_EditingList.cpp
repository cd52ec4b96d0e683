// SPDX-License-Identifier: MIT
#include <curveeditor/panel/ControlMenu2.h>
#include <curveeditor/panel/EditingList.h>

#include <QDialog>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

class KeyCounter : public QDialog
{
public:
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

// Enters, moves and, if the list lets the drag in, drops on it.
bool dropOn(EditingList& list, const QMimeData& data)
{
    QWidget* target = list.viewport();
    QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    QDragMoveEvent move(QPoint(6, 6), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &move);
    if (!enter.isAccepted() || !move.isAccepted())
        return false;
    QDropEvent drop(QPointF(6, 6), Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

} // namespace

class tst_EditingList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsAreSortedAndOneIsSelected();
    void deleteAsksForTheSelectedRowAndGoesNoFurther();
    void droppedTextIsReported_data();
    void droppedTextIsReported();
    void menuReportsTheChoiceFirst_data();
    void menuReportsTheChoiceFirst();
};

void tst_EditingList::rowsAreSortedAndOneIsSelected()
{
    EditingList list;
    for (const char* name : {"light.key", "camera.focus", "camera.iris"})
        new QTreeWidgetItem(&list, QStringList(name));
    QCOMPARE(list.topLevelItem(0)->text(0), "camera.focus");
    QCOMPARE(list.topLevelItem(2)->text(0), "light.key");
    QVERIFY(!list.selectedItem());
    list.show();
    for (const int row : {0, 1})
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ShiftModifier,
                          list.visualItemRect(list.topLevelItem(row)).center());
    QCOMPARE(list.selectedItems().size(), 1);
    QCOMPARE(list.selectedItem(), list.topLevelItem(1));
}

void tst_EditingList::deleteAsksForTheSelectedRowAndGoesNoFurther()
{
    KeyCounter dialog;
    EditingList list(&dialog);
    auto* row = new QTreeWidgetItem(&list, QStringList("camera.focus"));
    connect(&list, &EditingList::supressFromEditing, &list, [](QTreeWidgetItem* item) { delete item; });
    QSignalSpy spy(&list, &EditingList::supressFromEditing);
    list.setCurrentItem(row);
    QTest::keyClick(&list, Qt::Key_Delete);
    QCOMPARE(spy.at(0).at(0).value<QTreeWidgetItem*>(), row);
    QCOMPARE(list.topLevelItemCount(), 0);
    QTest::keyClick(&list, Qt::Key_Delete);
    QCOMPARE(spy.at(1).at(0).value<QTreeWidgetItem*>(), nullptr);
    QCOMPARE(dialog.keys, 0);
    QTest::keyClick(&list, Qt::Key_F5);
    QCOMPARE(dialog.keys, 1);
    QCOMPARE(spy.count(), 2);
}

void tst_EditingList::droppedTextIsReported_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("taken");
    QTest::newRow("name of a curve") << "camera.focus pull" << true;
    QTest::newRow("beyond Latin") << QString::fromUtf8("カメラ.焦点") << true;
    QTest::newRow("question mark") << "camera.?" << false;
    QTest::newRow("no text") << QString() << false;
}

void tst_EditingList::droppedTextIsReported()
{
    QFETCH(QString, text);
    QFETCH(bool, taken);
    EditingList list;
    QSignalSpy spy(&list, &EditingList::setNodeForEdit);
    QMimeData data;
    if (text.isNull())
        data.setData("image/png", "...");
    else
        data.setText(text);
    QCOMPARE(dropOn(list, data), taken);
    QCOMPARE(spy.count(), taken ? 1 : 0);
    if (taken)
        QCOMPARE(spy.at(0).at(0).toString(), text);
}

void tst_EditingList::menuReportsTheChoiceFirst_data()
{
    QTest::addColumn<int>("downs");
    QTest::addColumn<int>("key");
    QTest::addColumn<QStringList>("signals");
    QTest::newRow("remove") << 1 << int(Qt::Key_Return) << QStringList{"remove", "changed"};
    QTest::newRow("color") << 2 << int(Qt::Key_Return) << QStringList{"color", "changed"};
    QTest::newRow("no choice") << 1 << int(Qt::Key_Escape) << QStringList{};
}

void tst_EditingList::menuReportsTheChoiceFirst()
{
    QFETCH(int, downs);
    QFETCH(int, key);
    ControlMenu2 menu;
    QStringList heard;
    connect(&menu, &ControlMenu2::setRemoveItem, this, [&] { heard << "remove"; });
    connect(&menu, &ControlMenu2::setColorChange, this, [&] { heard << "color"; });
    connect(&menu, &ControlMenu2::nodeChanged, this, [&] { heard << "changed"; });
    QTimer::singleShot(0, &menu, [&] {
        for (int i = 0; i < downs; ++i)
            QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, static_cast<Qt::Key>(key));
    });
    menu.showMenu(QPoint(10, 10), -1);
    QTEST(heard, "signals");
}

QTEST_MAIN(tst_EditingList)
#include "tst_EditingList.moc"
