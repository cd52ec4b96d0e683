// SPDX-License-Identifier: MIT
#include "CurveList.h"
#include "CurveStore.h"
#include "DemoWindow.h"
#include "SampleCurves.h"
#include "Transport.h"

#include <curveeditor/canvas/Oklab.h>
#include <curveeditor/panel/EditingList.h>
#include <curveeditor/shell/CurveEditor.h>
#include <curveeditor/shell/FunctionEditor.h>
#include <support/Test.h>
#include <support/Transcript.h>

constexpr double fps = 24.0;

QTreeWidgetItem* rowOf(CurveList* list, const QString& fullName)
{
    for (QTreeWidgetItem* item :
         list->findItems(fullName.section(u'.', 1), Qt::MatchExactly | Qt::MatchRecursive)) {
        if (CurveList::nameOf(item).group == fullName.section(u'.', 0, 0))
            return item;
    }
    return nullptr;
}

class tst_DemoWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        window_.reset();
        store_ = std::make_unique<CurveStore>();
        addSampleCurves(*store_);
        window_ = std::make_unique<DemoWindow>(*store_);
        window_->showBoth();
        list_ = window_->findChild<CurveList*>();
        canvas_ = window_->getHost().getEditor().findChild<FunctionEditor*>();
    }

    void expressionsFollowTheCurvesThatTheyRead()
    {
        Curve* fill = store_->find("Light", "fill intensity");
        Curve* key = store_->find("Light", "key intensity");
        const double before = valueAt(*fill, 5.0, fps);
        for (SplineBase::PointInfo* point : key->spline.getControlPoints())
            point->pos += 1.0;
        QVERIFY(std::abs(valueAt(*fill, 5.0, fps) - before - 0.4) < 1e-9);

        QVERIFY(!window_->getHost().rename(*key, "flicker") && window_->getHost().rename(*key, "Sun Light"));
        QVERIFY(store_->setExpression(*fill, "2 light.sun_light"));
        QCOMPARE(valueAt(*fill, 5.0, fps), 2.0 * key->spline(5.0));
        Curve* twin = store_->find("Light", "flicker"); // is read by the same name then
        QVERIFY(window_->getHost().rename(*twin, "SUN light"));
        window_->getHost().remove(*key);
        QCOMPARE(valueAt(*fill, 5.0, fps), 2.0 * valueAt(*twin, 5.0, fps));
        window_->getHost().remove(*twin);
        QCOMPARE(valueAt(*fill, 5.0, fps), 0.0);
        for (const auto& [text, bound] : {std::pair("1e9", fill->maxValue), {"-1e9", fill->minValue}}) {
            QVERIFY(store_->setExpression(*fill, text));
            QCOMPARE(valueAt(*fill, 5.0, fps), double(bound));
        }
    }

    void squaresAreAsTheirLinesAndCanBeToldApart()
    {
        CurveEditor& editor = window_->getHost().getEditor();
        QList<QColor> hosts, squares;
        for (const auto& curve : store_->getCurves()) {
            window_->getHost().open(*curve);
            const QTreeWidgetItem* const row = editor.checkListsEditing->currentItem();
            hosts << curve->color;
            squares << row->data(0, Qt::DecorationRole).value<QColor>();
            if (curve->expression || curve->group == "Specimens")
                continue; // a blur, or no line
            editor.findChild<QAction*>("setCompleteAction")->trigger();
            const QImage picture = canvas_->grab().toImage().convertToFormat(QImage::Format_RGB32);
            const auto* const pixels = reinterpret_cast<const QRgb*>(picture.constBits());
            const auto* const end = pixels + picture.width() * picture.height();
            QVERIFY2(std::find(pixels, end, squares.back().rgb()) != end, qPrintable(curve->name));
        }
        editor.setTheme(CurveEditorTheme::described());
        QCOMPARE(editor.checkListsEditing->currentItem()->data(0, Qt::DecorationRole),
                 QVariant(hosts.back()));
        for (qsizetype i = 0; i < std::min<qsizetype>(24, hosts.size()); ++i) {
            for (qsizetype j = 0; j < i; ++j) {
                const double apart = distance(Oklab::of(hosts[i]), Oklab::of(hosts[j]));
                QVERIFY(distance(Oklab::of(squares[i]), Oklab::of(squares[j])) >= std::min(apart, 0.05));
            }
        }
    }

    void doubleClickOpensWhereTheCurveIs()
    {
        QTreeWidgetItem* row = rowOf(list_, "Observer.y");
        list_->scrollToItem(row);
        const QPoint place = list_->visualItemRect(row).center();
        QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, place);
        Curve* curve = store_->find("Observer", "y");
        QVERIFY(window_->getHost().isOpen(*curve));
        const auto& [timeMin, timeMax, valueMin, valueMax] = curve->range;
        QCOMPARE(QList({canvas_->timeMin, canvas_->timeMax, canvas_->valueMin, canvas_->valueMax}),
                 QList({timeMin, timeMax, valueMin, valueMax}));
        QCOMPARE(window_->findChild<Transport*>()->getTime(), 380.0);
    }

    void editsAreLoggedWithTheValueAtThePresentTime()
    {
        window_->findChild<Transport*>()->setRange(0.0, 10.0);
        window_->findChild<Transport*>()->setTime(6.0);
        Curve* pan = store_->find("Camera", "pan");
        window_->getHost().open(*pan);
        const auto place = [this](double time, double value) {
            return QPoint(canvas_->timeToPixel(time), canvas_->valueToPixel(value));
        };
        QTest::mousePress(canvas_, Qt::LeftButton, {}, place(6.0, pan->spline(6.0)));
        QTest::mouseMove(canvas_, place(6.0, 3.0));
        QTest::mouseRelease(canvas_, Qt::LeftButton, {}, place(6.0, 3.0));
        const QString text = window_->findChild<QPlainTextEdit*>()->toPlainText();
        QVERIFY2(text.startsWith("Camera.pan = ") && text.endsWith(" at 6"), qPrintable(text));
        QCOMPARE(text.section(u' ', 2, 2).toDouble(), QString::number(pan->spline(6.0), 'g', 6).toDouble());
        QVERIFY(std::abs(pan->spline(6.0) - 3.0) < 0.5);
    }

    void playingMovesTheTimeRoundAndRound()
    {
        auto* transport = window_->findChild<Transport*>();
        transport->setRange(0.0, 1.0);
        transport->setTime(0.999);
        QSignalSpy spy(transport, &Transport::timeChanged);
        transport->setPlaying(true);
        QTRY_VERIFY(spy.size() >= 3);
        transport->setPlaying(false);
        QVERIFY(transport->getTime() < 0.9);
        transport->setTime(0.1);
        QTest::qWait(200); // a pause, which is none of the time that it plays
        QElapsedTimer played;
        played.start();
        transport->findChild<QToolButton*>()->click();
        QTRY_VERIFY(transport->getTime() > 0.1);
        QVERIFY(transport->getTime() < 0.102 + double(played.elapsed()) / 10000.0);
        transport->findChild<QToolButton*>()->click();
        const double paused = transport->getTime();
        QTest::qWait(50);
        QVERIFY(transport->getTime() == paused && !transport->findChild<QToolButton*>()->isChecked());
    }

    void clockIsOneInAllThatShowsIt()
    {
        auto* const transport = window_->findChild<Transport*>();
        auto* const slider = transport->findChild<QSlider*>();
        auto* const field = transport->findChild<QDoubleSpinBox*>();
        QSignalSpy told(transport, &Transport::timeChanged);
        transport->setRange(100.0, 300.0);
        QVERIFY(field->value() == 100.0 && slider->value() == 0 && field->decimals() == 1);
        slider->setValue(250);
        QVERIFY(transport->getTime() == 150.0 && field->value() == 150.0);
        field->setValue(250.0);
        QVERIFY(transport->getTime() == 250.0 && slider->value() == 750);
        field->stepUp();
        Q_EMIT window_->getHost().getEditor().timeLineDragged(400.0);
        QVERIFY(transport->getTime() == 300.0 && field->value() == 300.0 && slider->value() == 1000);
        transport->setTime(300.0);
        transport->setRange(0.0, 0.001); // begins anew, as a time behind it has no place
        QVERIFY(transport->getTime() == 0.0 && field->decimals() == 6 && slider->value() == 0);
        QStringList times;
        for (const QVariantList& time : std::as_const(told))
            times += time[0].toString();
        QCOMPARE(times.join(' '), "100 150 250 252 300 0");
    }

    void samplesAreWhatTheyWere()
    {
        Transcript::play(QFINDTESTDATA("samples.txt"), "@", [this](const QByteArray&, const QString& group) {
            Transcript::Outcome told;
            for (const auto& c : store_->getCurves()) {
                const PlaneRange& r = c->range;
                if (c->group == group)
                    told.output += QString("%1 %2 %3 %4 %5, %6 %7 %8 %9\n")
                                       .arg(c->name, c->color.name())
                                       .arg(c->defaultValue)
                                       .arg(c->minValue)
                                       .arg(c->maxValue)
                                       .arg(r.timeMin)
                                       .arg(r.timeMax)
                                       .arg(r.valueMin)
                                       .arg(r.valueMax)
                                       .toUtf8();
            }
            return told;
        });
    }

    void renameByTheMenuReachesTheEditor()
    {
        list_->setCurrentItem(rowOf(list_, "Camera.pan"));
        window_->getHost().open(*store_->find("Camera", "pan"));
        choose("Rename", [](QInputDialog& dialog) { dialog.setTextValue("Schwenk ä.1"); });
        QVERIFY(store_->find("Camera", "Schwenk ä.1") && rowOf(list_, "Camera.Schwenk ä.1"));
        QVERIFY(window_->getHost().isOpen(*store_->find("Camera", "Schwenk ä.1")));
        QVERIFY(!store_->find("Camera", "pan"));
        QCOMPARE(store_->findReported("Camera", "1"), store_->find("Camera", "Schwenk ä.1"));
        QVERIFY(!store_->findReported("Camera", "2") && !store_->findReported("Light", "1"));
        for (const char* const name : {"", "Schwenk ä.1"})
            choose("Rename", [name](QInputDialog& dialog) { dialog.setTextValue(name); });
        QString told;
        QTimer closing;
        connect(&closing, &QTimer::timeout, this, [&told] {
            if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                told = box->text(), box->accept();
        });
        closing.start(10);
        choose("Rename", [](QInputDialog& dialog) { dialog.setTextValue("zoom"); });
        QVERIFY(told.contains("\"zoom\"") && rowOf(list_, "Camera.Schwenk ä.1"));
    }

    void listIsFilteredAndOpensAndRemoves()
    {
        const auto isHidden = [this](const QString& name) {
            QTreeWidgetItem* const row = rowOf(list_, name);
            return QPoint(row->isHidden(), row->parent()->isHidden());
        };
        for (const QString part : {"a.PAN", ""}) {
            list_->setFilter(part);
            QCOMPARE(isHidden("Camera.pan"), QPoint(0, 0));
            QCOMPARE(isHidden("Camera.zoom"), QPoint(!part.isEmpty(), 0));
            QCOMPARE(isHidden("Light.flicker"), QPoint(!part.isEmpty(), !part.isEmpty()));
        }
        for (const QString name : {"pan", "zoom", "pan"}) {
            window_->getHost().open(*store_->find("Camera", name));
            QCOMPARE(window_->getHost().getEditor().currentCurve(), CurveName("Camera", name));
        }
        list_->setCurrentItem(rowOf(list_, "Camera.pan"));
        for (QAction* const action : list_->actions())
            action->text() == "Re&move" ? action->trigger() : void();
        QVERIFY(!store_->find("Camera", "pan") && !rowOf(list_, "Camera.pan") && rowOf(list_, "Camera.zoom"));
    }

    void simplifyByTheMenuReachesTheEditor()
    {
        Curve* key = store_->find("Light", "key intensity");
        Curve* fill = store_->find("Light", "fill intensity"); // a formula, its spline rests
        for (int i = 0; i <= 100; ++i) {
            key->spline.addPoint(0.1 * i, std::sin(0.1 * i));
            fill->spline.addPoint(0.1 * i, 0.0);
        }
        window_->getHost().open(*key);
        list_->setCurrentItem(rowOf(list_, "Light.key intensity")->parent());
        choose("Simplify", [](QInputDialog& dialog) { dialog.setDoubleValue(10.0); });
        QVERIFY(key->spline.getControlPointsNumber() < 30 && fill->spline.getControlPointsNumber() > 100);
        const QImage shown = canvas_->grab().toImage();
        window_->getHost().getEditor().updateCurves();
        QVERIFY(canvas_->grab().toImage() == shown);
    }

private:
    /// Chooses that entry of the menu of the list, and accepts its dialog as `fill` leaves it.
    template <typename Fill> void choose(const QString& entry, Fill fill)
    {
        QTimer::singleShot(0, qApp, [fill] {
            auto& dialog = dynamic_cast<QInputDialog&>(*QApplication::activeModalWidget());
            fill(dialog);
            dialog.accept();
        });
        for (QAction* action : list_->actions()) {
            if (action->text().contains(entry))
                action->trigger();
        }
    }

    std::unique_ptr<CurveStore> store_;
    std::unique_ptr<DemoWindow> window_;
    CurveList* list_ = nullptr;
    FunctionEditor* canvas_ = nullptr;
};

QTEST_MAIN(tst_DemoWindow)
#include "tst_DemoWindow.moc"
