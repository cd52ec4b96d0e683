// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CustomEditLine.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/panel/ExpressionEditLine.h>
#include <curveeditor/panel/TcbCurveFrame.h>
#include <curveeditor/shell/CurveEditorDialogBase.h>
#include <curveeditor/shell/PanDialog.h>
#include <curveeditor/shell/PlainToolBar.h>
#include <curveeditor/shell/ScaleDialog.h>
#include <curveeditor/shell/ViewportSettings.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTranslator>

namespace {

QStringList itemsOf(const QComboBox& combo)
{
    QStringList items;
    for (int index = 0; index < combo.count(); ++index)
        items << combo.itemText(index);
    return items;
}

class Shouting : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* text, const char*, int) const override
    {
        return QString::fromUtf8(text).toUpper();
    }
};

// Runs the dialog, lets `act` work in it once it is open, and returns its result.
template <class Act> int run(QDialog& dialog, Act act)
{
    QTimer::singleShot(0, &dialog, act);
    return dialog.exec();
}

} // namespace

class tst_Dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void membersAreNamedAsTheirObjects();
    void combosListTheirEntriesInOrder();
    void fieldsNameThemselvesToTheUser();
    void keyboardReachesEveryFieldInTheOrderOfThePage();
    void returnPressesNoButton();
    void numbersAndLabelsAreNotCutOff_data();
    void numbersAndLabelsAreNotCutOff();
    void newLanguageKeepsTheChoices();
    void numberDialogsReturnWhatTheUserChose();
};

void tst_Dialogs::membersAreNamedAsTheirObjects()
{
    CurveEditorDialogBase dialog;
    QCOMPARE(dialog.objectName(), "CurveEditorDialogBase");
    QCOMPARE(CurveEditorDialogBase(nullptr, "other").objectName(), "other");
    QCOMPARE(dialog.windowTitle(), "Curve Editor");
    for (const char* name : {"splitter11",     "checkListsEditing",
                             "splitter10",     "functionView",
                             "tabWidget2",     "tab",
                             "frame11",        "prevNode",
                             "nextNode",       "node",
                             "posX",           "textLabel1",
                             "posY",           "textLabel2",
                             "line1",          "textLabel1_2",
                             "nodeFirst",      "textLabel1_2_2",
                             "nodeLast",       "frame10",
                             "easeFrom",       "textLabel1_2_3_2_2",
                             "easeTo",         "textLabel1_2_3_2",
                             "tcbPage",        "nodeTypeCombo",
                             "textTension",    "tension",
                             "textContinuity", "continuity",
                             "textBias",       "bias",
                             "ioPage",         "outgoing",
                             "incoming",       "textIncoming",
                             "tcbCurve",       "textOutcoming",
                             "tab_2",          "commandLine",
                             "deleteCurve",    "nodeTypeWidgetStack"})
        QVERIFY2(dialog.findChildren<QWidget*>(name).size() == 1, name);
    QCOMPARE(dialog.mainMenu->windowTitle(), "mainMenu");
    QCOMPARE(dialog.tabWidget2->currentWidget(), dialog.tab);
    QCOMPARE(dialog.tabWidget2->tabText(0), "Envelope");
    QCOMPARE(dialog.tabWidget2->tabText(1), "Expresion");
    QCOMPARE(dialog.nodeTypeWidgetStack->currentWidget(), dialog.tcbPage);
    QCOMPARE(dialog.nodeTypeWidgetStack->indexOf(dialog.ioPage), 1);
    dialog.nodeTypeWidgetStack->setCurrentIndex(1);
    dialog.show();
    QVERIFY(dialog.incoming->y() < dialog.outgoing->y());
    QVERIFY(dialog.easeTo->y() < dialog.easeFrom->y());
}

void tst_Dialogs::combosListTheirEntriesInOrder()
{
    CurveEditorDialogBase dialog;
    QCOMPARE(itemsOf(*dialog.nodeFirst), (QStringList{"Zero", "Constant"}));
    QCOMPARE(itemsOf(*dialog.nodeLast),
             (QStringList{"Zero", "Constant", "Loop", "Loop offset", "Follow Tangent"}));
    QCOMPARE(itemsOf(*dialog.nodeTypeCombo), (QStringList{"Tcb node", "Bezier node", "Linear node"}));
}

void tst_Dialogs::fieldsNameThemselvesToTheUser()
{
    CurveEditorDialogBase dialog;
    QSet<QString> names;
    const auto fields = dialog.findChildren<CustomEditLine*>();
    for (const CustomEditLine* field : fields) {
        QCOMPARE(field->toolTip(), "Current node");
        names << field->accessibleName();
    }
    names.remove(QString());
    QCOMPARE(names.size(), 10);
    QCOMPARE(dialog.prevNode->toolTip(), "Select previous node");
    QCOMPARE(dialog.commandLine->whatsThis(), "This's the expression parsed");
}

void tst_Dialogs::keyboardReachesEveryFieldInTheOrderOfThePage()
{
    CurveEditorDialogBase dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    for (const int stackPage : {0, 1}) {
        dialog.nodeTypeWidgetStack->setCurrentIndex(stackPage);
        QList<QWidget*> expected{dialog.node,     dialog.posX,          dialog.posY,   dialog.nodeFirst,
                                 dialog.nodeLast, dialog.nodeTypeCombo, dialog.easeTo, dialog.easeFrom};
        if (stackPage == 0)
            expected << dialog.tension << dialog.continuity << dialog.bias;
        else
            expected << dialog.incoming << dialog.outgoing;
        dialog.node->setFocus();
        for (QWidget* widget : expected) {
            QVERIFY2(widget->hasFocus(), qPrintable(widget->objectName()));
            QTest::keyClick(widget, Qt::Key_Tab);
        }
    }
}

void tst_Dialogs::returnPressesNoButton()
{
    CurveEditorDialogBase dialog;
    dialog.tabWidget2->setCurrentWidget(dialog.tab_2);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QSignalSpy pressed(dialog.deleteCurve, &QPushButton::pressed);
    QSignalSpy stepped(dialog.nextNode, &QPushButton::clicked);
    for (QWidget* line : {static_cast<QWidget*>(dialog.commandLine), static_cast<QWidget*>(dialog.posX)}) {
        line->setFocus();
        QTest::keyClick(line, Qt::Key_Return);
        QTest::keyClick(line, Qt::Key_Enter, Qt::KeypadModifier);
    }
    QCOMPARE(pressed.count() + stepped.count(), 0);
    QVERIFY(dialog.isVisible());
}

void tst_Dialogs::numbersAndLabelsAreNotCutOff_data()
{
    QTest::addColumn<int>("points");
    QTest::newRow("usual font") << 9;
    QTest::newRow("large font") << 16;
}

void tst_Dialogs::numbersAndLabelsAreNotCutOff()
{
    QFETCH(int, points);
    const QFont before = QApplication::font();
    QApplication::setFont(QFont("Arial", points));
    CurveEditorDialogBase dialog;
    ScaleDialog scale;
    ViewportSettings range;
    QApplication::setFont(before);
    dialog.resize(400, 300);
    for (QDialog* each : std::initializer_list<QDialog*>{&dialog, &scale, &range}) {
        each->show();
        QVERIFY(QTest::qWaitForWindowExposed(each));
        const auto lines = each->findChildren<QLineEdit*>();
        for (const QLineEdit* line : lines) {
            const int needed = line->fontMetrics().horizontalAdvance("-1234.567");
            QVERIFY2(line->width() > needed || !line->isVisible(), qPrintable(line->objectName()));
        }
        const auto labels = each->findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            const QSize needed = label->fontMetrics().size(Qt::TextSingleLine, label->text());
            QVERIFY2(label->size().expandedTo(needed) == label->size() || !label->isVisible(),
                     qPrintable(label->objectName()));
        }
    }
}

void tst_Dialogs::newLanguageKeepsTheChoices()
{
    CurveEditorDialogBase dialog;
    PanDialog pan;
    dialog.nodeLast->setCurrentIndex(3);
    QSignalSpy activated(dialog.nodeLast, &QComboBox::activated);
    Shouting translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(dialog.nodeLast->currentText(), "LOOP OFFSET");
    QCOMPARE(dialog.nodeLast->count(), 5);
    QCOMPARE(dialog.textBias->text(), "BIAS:");
    QCOMPARE(pan.windowTitle(), "PAN SELECTION");
    QCOMPARE(activated.count(), 0);
    QCoreApplication::removeTranslator(&translator);
}

void tst_Dialogs::numberDialogsReturnWhatTheUserChose()
{
    PanDialog pan;
    QCOMPARE(run(pan, [&] { QTest::mouseClick(pan.allDonePan, Qt::LeftButton); }), int(QDialog::Accepted));
    QCOMPARE(run(pan, [&] { QTest::mouseClick(pan.cancelPan, Qt::LeftButton); }), int(QDialog::Rejected));
    ScaleDialog scale;
    QCOMPARE(run(scale, [&] { QTest::mouseClick(scale.cancelScale, Qt::LeftButton); }),
             int(QDialog::Rejected));
    const int result = run(scale, [&] {
        QTest::keyClicks(scale.scaleX, "1.23456789");
        QTest::keyClick(scale.scaleX, Qt::Key_Return);
    });
    QCOMPARE(result, int(QDialog::Accepted));
    QCOMPARE(scale.scaleX->text(), "1.2345678");
    ViewportSettings range;
    QCOMPARE(run(range, [&] { QTest::mouseClick(range.allDone, Qt::LeftButton); }), int(QDialog::Accepted));
    QCOMPARE(run(range, [&] { QTest::mouseClick(range.cancel, Qt::LeftButton); }), int(QDialog::Rejected));
    for (const QDialog* dialog : std::initializer_list<QDialog*>{&pan, &scale, &range}) {
        QCOMPARE(dialog->minimumSize(), dialog->maximumSize());
        QVERIFY(dialog->isModal());
    }
}

QTEST_MAIN(tst_Dialogs)
#include "tst_Dialogs.moc"
