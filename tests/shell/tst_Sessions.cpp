// SPDX-License-Identifier: MIT
#include "Invariants.h"
#include "SessionState.h"

#include <curveeditor/shell/FitDialog.h>

namespace {

/// A step of a session, and the lines below it: what is otherwise behind it.
struct Step
{
    int line = 0;
    QString text;
    QStringList expected;
};

/// Plays the steps at a scene. What a step opens with a loop of its own gets the steps behind it.
class Player
{
public:
    Player() { begin(); }

    using Compare = std::function<bool(Step&, const QStringList&)>;
    void play(std::vector<Step>& steps, const Compare& compare)
    {
        const QPointer<QWidget> own = openWindow();
        const bool isInWindow = own;
        played_.append(own);
        const auto leave = qScopeGuard([this] { played_.removeLast(); });
        while (isGood_ && next_ < steps.size()) {
            const QString text = steps[next_++].text;
            QTimer opened;
            opened.callOnTimeout([&] {
                if (!openWindow() || played_.contains(openWindow()))
                    return;
                opened.stop();
                look(steps, compare);
                play(steps, compare);
                QWidget* const left = openWindow(); // by a step that failed, or by the last one
                if (left != own && left && left->isVisible())
                    left->close();
                opened.start(0); // what closes may open another one
            });
            opened.start(0);
            perform(text);
            QTest::qWait(0); // what it has posted may open one, too
            opened.stop();
            if (isInWindow && (!own || !own->isVisible()))
                return; // who opened it has more to do
            look(steps, compare);
        }
    }

private:
    /// With an editor that nobody has used.
    void begin()
    {
        if (scene_)
            end();
        last_ = SessionState(scene_.emplace(), isReading_);
        held_ = {};
        heard_.clear();
        hear();
    }
    /// The words behind the name of a step. Those that are missing are empty.
    struct Call
    {
        QString operator[](qsizetype word) const { return words.value(word); }
        double number(qsizetype word) const { return words.value(word).toDouble(); }

        Player& player;
        CurveEditor& editor;
        QStringList words;
        QString group = words.value(0).section(u'.', 0, -2); ///< where the first one is a name of a curve
        QString curve = words.value(0).section(u'.', -1);
    };
    using Deeds = std::map<QString, void (*)(Call)>;

    void look(std::vector<Step>& steps, const Compare& compare)
    {
        if (isGood_ && std::exchange(seen_, next_) != next_)
            isGood_ = compare(steps[next_ - 1], changes());
    }
    QStringList changes()
    {
        for (const auto* const dialog :
             scene_->editor.findChildren<FitDialog*>()) { // long work waits for a pause
            while (dialog->findChild<QTimer*>()->isActive())
                QTest::qWait(10);
        }
        QTest::qWait(0);
        if (!QApplication::activeWindow())
            scene_->owned->activateWindow(); // as a window manager does
        scene_->canvas.grab();               // a frame may have something to tell
        QTest::qWait(0);
        const QMap<QString, QString> now = SessionState(*scene_, isReading_);
        const QStringList all = SessionState::changes(last_, now) + std::exchange(heard_, {});
        last_ = now;
        return all + std::exchange(faults_, {});
    }
    /// What is not as it must be when a story ends.
    void end()
    {
        if (openWindow())
            qFatal("a window is open when its story ends, step %zu", next_);
        if (scene_->editor.isVisible() && !scene_->showsWhatIsDrawnFromScratch())
            faults_ += "fault: the canvas is not drawn anew";
        if (const QString fault = Invariants::fault(scene_->editor); !fault.isEmpty())
            faults_ += "fault: " + fault;
    }

    void perform(const QString& text)
    {
        QStringList words = QProcess::splitCommand(text);
        static const Deeds deeds = allDeeds();
        const auto deed = deeds.find(words.takeFirst());
        if (deed == deeds.end())
            qFatal("no such step: %s", qPrintable(text));
        deed->second({*this, scene_->editor, words});
    }

    /// A place of the plane, or of the canvas behind an @.
    QPoint place(const QString& text) const
    {
        const bool isPixel = text.startsWith(u'@');
        const double x = text.mid(isPixel).section(u',', 0, 0).toDouble(),
                     y = text.section(u',', 1).toDouble();
        return isPixel ? QPoint(int(x), int(y)) : scene_->pixel(x, y);
    }
    static Qt::MouseButton buttonIn(const QStringList& words)
    {
        return words.contains("right")    ? Qt::RightButton
               : words.contains("middle") ? Qt::MiddleButton
                                          : Qt::LeftButton;
    }
    static Qt::KeyboardModifiers keysIn(const QStringList& words)
    {
        Qt::KeyboardModifiers keys;
        keys.setFlag(shift, words.contains("shift"));
        keys.setFlag(ctrl, words.contains("ctrl"));
        keys.setFlag(alt, words.contains("alt"));
        return keys;
    }
    void mouse(QEvent::Type type, const QString& at, const QStringList& words)
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : buttonIn(words);
        held_ = type == QEvent::MouseButtonRelease ? held_ & ~Qt::MouseButtons(button) : held_ | button;
        QMouseEvent event(type, place(at), scene_->canvas.mapToGlobal(place(at)), button, held_,
                          keysIn(words));
        QApplication::sendEvent(&scene_->canvas, &event);
    }
    /// The places one after the other.
    void drag(const QStringList& words)
    {
        const QStringList places = words.filter(QStringLiteral(","));
        mouse(QEvent::MouseButtonPress, places.first(), words);
        for (const QString& next : places.mid(1))
            mouse(QEvent::MouseMove, next, words);
        mouse(QEvent::MouseButtonRelease, places.last(), words);
    }
    QWidget& target() const
    {
        QWidget* const window = openWindow() ? openWindow() : QApplication::activeWindow();
        if (auto* const list = window ? window->findChild<QAbstractItemView*>() : nullptr;
            list && window->inherits("QComboBoxPrivateContainer"))
            return *list;
        QWidget* const focus = window ? window->focusWidget() : QApplication::focusWidget();
        return focus ? *focus : window ? *window : scene_->canvas;
    }
    /// By its object name or its text, in the window in front first.
    QWidget& widget(const QString& name) const
    {
        for (const QWidget* const window :
             QWidgetList{openWindow(), QApplication::activeWindow(), scene_->owned}) {
            for (QWidget* const found : window ? window->findChildren<QWidget*>() : QList<QWidget*>()) {
                if (SessionState::nameOf(*found) == name && found->isVisible())
                    return *found;
            }
        }
        qFatal("no such widget in step %zu: %s", next_, qPrintable(name));
    }
    void key(const QString& keys, QTest::KeyAction action = QTest::Click)
    {
        const QKeyCombination one = QKeySequence(keys)[0];
        QTest::sendKeyEvent(action, &target(), one.key(), textOf(one), one.keyboardModifiers());
    }
    /// As a key that stays down does.
    void repeat(const QString& keys)
    {
        const QKeyCombination one = QKeySequence(keys)[0];
        for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress}) {
            QKeyEvent event(type, one.key(), one.keyboardModifiers(), textOf(one), true);
            QApplication::sendEvent(&target(), &event);
        }
    }
    static QString textOf(QKeyCombination key)
    {
        const bool isLetter = key.key() < 128 && !key.keyboardModifiers().testFlag(Qt::ControlModifier);
        const QString text = isLetter ? QString(QChar(key.key())) : QString();
        return key.keyboardModifiers().testFlag(Qt::ShiftModifier) ? text : text.toLower();
    }
    /// Even if the release of a button has gone to somebody else.
    void hover(const QStringList& words)
    {
        held_ = {};
        mouse(QEvent::MouseMove, words[0], words);
    }
    /// As a window manager does that makes it an icon.
    void hideByWindowManager() const
    {
        QHideEvent hiding;
        QSpontaneKeyEvent::setSpontaneous(&hiding);
        qApp->notify(scene_->owned, &hiding);
    }
    void leave()
    {
        QEvent leaving(QEvent::Leave);
        QApplication::sendEvent(&scene_->canvas, &leaving);
    }
    void doubleClick(const QStringList& words)
    {
        drag(words);
        mouse(QEvent::MouseButtonDblClick, words[0], words);
        mouse(QEvent::MouseButtonRelease, words[0], words);
    }
    void wheel(const QStringList& words)
    {
        turnWheel(scene_->canvas, place(words[0]), place(u'@' + words[1]), keysIn(words));
    }
    /// By two fingers on a touch pad.
    void scroll(const QStringList& words)
    {
        QWheelEvent event(place(words[0]), scene_->canvas.mapToGlobal(place(words[0])),
                          place(u'@' + words[1]), {0, 8}, {}, keysIn(words), Qt::ScrollUpdate, false);
        QApplication::sendEvent(&scene_->canvas, &event);
    }
    void pinch(const QStringList& words)
    {
        const QPoint at = place(words[0]);
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, at, at,
                                  scene_->canvas.mapToGlobal(at), words[1].toDouble(), {});
        QApplication::sendEvent(&scene_->canvas, &event);
    }
    static void choose(const QString& text)
    {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QAction* const entry = menu ? entryOf(*menu, text) : nullptr;
        if (!entry)
            qFatal("no such entry: %s", qPrintable(text));
        menu->setActiveAction(entry);
        QTest::keyClick(menu, Qt::Key_Return);
    }
    /// Drags upwards over a field.
    void pull(const QStringList& words) const
    {
        QWidget& field = widget(words[0]);
        const QPoint from = field.rect().center(), to = from - QPoint(0, words[1].toInt());
        Scene::sendMouse(field, QEvent::MouseButtonPress, from, buttonIn(words));
        Scene::sendMouse(field, QEvent::MouseMove, to, buttonIn(words));
        Scene::sendMouse(field, QEvent::MouseButtonRelease, to, buttonIn(words));
    }
    /// A picture in two colours, the right one of which may shine through, as a file.
    void paint(const QString& name, const QString& color) const
    {
        QImage picture(2, 2, color.isEmpty() ? QImage::Format_RGB32 : QImage::Format_ARGB32);
        picture.fill(QColor(200, 0, 0));
        for (const int place : {0, 1}) // the right half, or the lower one
            picture.setPixelColor(name == "rows.png" ? QPoint(place, 1) : QPoint(1, place),
                                  color.isEmpty() ? QColor(0, 0, 200) : QColor(color));
        picture.save(folder_.filePath(name));
    }
    static void pick(QComboBox& box, const QString& text)
    {
        if (box.findText(text) < 0)
            qFatal("no such choice: %s", qPrintable(text));
        box.setCurrentText(text);
        Q_EMIT box.activated(box.currentIndex());
    }
    /// On its name, or on a mark of it.
    void clickRow(const QStringList& words)
    {
        const QRect place =
            scene_->list.visualItemRect(scene_->list.findItems(words[0], Qt::MatchExactly).value(0));
        const auto mark = QStringList{"lock", "hide", "solo"}.indexOf(words.value(1));
        const int side = scene_->list.iconSize().height() + 4;
        const QPoint at(mark < 0 ? place.left() + 30 : place.right() - int(mark) * side - side / 2,
                        place.center().y());
        QHelpEvent help(QEvent::ToolTip, at, scene_->list.viewport()->mapToGlobal(at));
        if (words.contains("help"))
            return void(QApplication::sendEvent(scene_->list.viewport(), &help));
        QTest::mouseClick(scene_->list.viewport(), buttonIn(words), keysIn(words), at);
        if (words.contains("twice"))
            QTest::mouseDClick(scene_->list.viewport(), buttonIn(words), keysIn(words), at);
        if (words.contains("right"))
            openContextMenu(*scene_->list.viewport(), at);
    }
    void drop(const QString& name, const QString& text) const
    {
        auto* const area = qobject_cast<QAbstractScrollArea*>(&widget(name));
        dropOn(area ? *area->viewport() : widget(name), text);
    }
    void turnTo(const QString& page)
    {
        QTabWidget& pages = *scene_->editor.tabWidget2;
        while (pages.tabText(pages.currentIndex()) != page)
            pages.setCurrentIndex((pages.currentIndex() + 1) % pages.count());
    }
    void clickCell(const QStringList& words)
    {
        auto& table = *scene_->editor.findChild<QTableView*>("pointTable");
        const QModelIndex cell = table.model()->index(words[0].toInt(), words[1].toInt());
        table.scrollTo(cell);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, keysIn(words), table.visualRect(cell).center());
    }
    void type(const QString& text) const
    {
        for (const QChar letter : text)
            QTest::keyClick(&target(), letter.toLatin1()); // the first one may open a field
    }
    static QString unescaped(const QString& text)
    {
        return QString(text).replace("\\n", "\n").replace("\\t", "\t");
    }
    static void holdFirst(SplineBase& spline) { spline.setPos(spline.modify(0u), 0.0); }
    static void roundTimes(SplineBase& spline)
    {
        for (unsigned i = 0; i < spline.getControlPointsNumber(); ++i)
            spline.modify(i)->time = std::round(spline[i]->time);
    }
    /// Few values and types, whatever is edited.
    static void limit(const Call& c)
    {
        CurveOptions options;
        options.lowest = -3.1, options.highest = 3.1, options.step = 0.7;
        options.types = {SplineBase::Bezier, SplineBase::Linear};
        c.editor.setCurveOptions(c.group, c.curve, options);
    }
    void writeValue(const QString& name, unsigned index, double value)
    {
        scene_->curves[name].spline.modify(index)->pos = value;
        scene_->editor.updateCurves();
    }
    using LookPart = std::variant<QColor*, double*, int*, bool*, CurveEditorTheme::Shape*>;
    template <typename... Parts> static std::map<QString, LookPart> lookOf(const Parts&... parts)
    {
        return {parts...};
    }
    /// Gives parts of the look, each by its name, and hears what the editor makes of them; of all if none is given.
    void restyle(const Call& c)
    {
        CurveEditorTheme look = c.editor.theme();
#define PART(name) std::pair<QString, LookPart>(#name, &look.name)
        const auto parts =
            lookOf(PART(canvas), PART(selection), PART(mark), PART(hint), PART(gridLines), PART(gridWidth),
                   PART(fineGridLines), PART(zeroLines), PART(frameVLine), PART(frameHLine), PART(frameWidth),
                   PART(labels), PART(labelPoints), PART(labelStretch), PART(spacesLabels), PART(timeLine),
                   PART(timeLineWidth), PART(timeLineBlends), PART(timeLineGrip), PART(namesCurves),
                   PART(curveWidth), PART(otherCurveWidth), PART(dottedWidth), PART(otherCurveShare),
                   PART(smooth), PART(adaptsCurveColors), PART(controlPoint), PART(controlPointSelected),
                   PART(controlPointOutline), PART(guide), PART(pointShape), PART(selectedPointShape),
                   PART(pointSize), PART(selectedPointSize), PART(controller), PART(controllerSelected),
                   PART(handleWidth), PART(handleSize), PART(fixedHandleSize), PART(handleLength),
                   PART(grabDistance), PART(handleGrabDistance), PART(curveGrabDistance));
#undef PART
        for (int i = 0; i < c.words.size(); i += 2) {
            const auto set = [&]<typename Value>(Value* part) {
                if constexpr (std::is_same_v<Value, QColor>)
                    *part = QColor(c[i + 1]);
                else
                    *part = Value(c.number(i + 1));
            };
            std::visit(set, parts.at(c[i]));
        }
        c.editor.setTheme(look);
        look = c.editor.theme();
        for (const auto& [name, part] : parts) {
            const auto hear = [&, name = name]<typename Value>(const Value* given) {
                if constexpr (std::is_same_v<Value, QColor>)
                    heard_ += "theme " + name + u' ' + given->name(QColor::HexArgb);
                else
                    heard_ += "theme " + name + u' ' + textOf(double(*given));
            };
            if (c.words.isEmpty() || c.words.contains(name))
                std::visit(hear, part);
        }
    }
    static void select(const Call& c)
    {
        std::vector<int> points;
        for (const QString& point : c.words.mid(1))
            points.push_back(point.toInt());
        c.editor.selectPoints(c.group, c.curve, points);
    }
    static void edit(const Call& c)
    {
        const auto work = [&c](SplineBase& spline) {
            spline.addPoint(c.number(1), c.number(2));
        };
        c.editor.edit(c.group, c.curve, "Host's work", work);
    }
    static void setOption(const Call& c)
    {
        CurveOptions options = c.editor.curveOptions(c.group, c.curve);
        const std::map<QString, double*> numbers = {
            {"lowest", &options.lowest}, {"highest", &options.highest}, {"step", &options.step}};
        if (numbers.count(c[1]))
            *numbers.at(c[1]) = c.number(2);
        options.locked = c[1] == "locked" ? c[2] == "on" : options.locked;
        options.hidden = c[1] == "hidden" ? c[2] == "on" : options.hidden;
        options.toolTip = c[1] == "tip" ? c[2] : options.toolTip;
        if (c[1] == "types")
            options.types = {SplineBase::NodeType(c[2].toInt())};
        c.editor.setCurveOptions(c.group, c.curve, options);
    }

    template <typename... Arguments> void hear(const char* name, void (CurveEditor::*signal)(Arguments...))
    {
        QObject::connect(&scene_->editor, signal, [this, name](Arguments... arguments) {
            QStringList words{"signal", name};
            (words.append(textOf(arguments)), ...);
            const QString line = words.join(' ');
            if (heard_.isEmpty() || heard_.last() != line)
                heard_ += line;
            if (!meanwhile_.isEmpty() && meanwhile_.startsWith(name))
                perform(std::exchange(meanwhile_, QString()).section(u' ', 1));
        });
    }
    static QString textOf(const QString& text)
    {
        return text;
    }
    static QString textOf(const QColor& color)
    {
        return color.name();
    }
    static QString textOf(double number)
    {
        return SessionState::number(number);
    }
    static QString textOf(const CurveChange& change)
    {
        static const char* const causes[] = {"Edit", "Undo", "Redo", "Cancel", "Host"};
        return QString("%1 %2 %3 %4 to %5 %6")
            .arg(change.curve, change.phase == CurveChange::Phase::Commit ? "commit" : "preview",
                 causes[int(change.cause)], textOf(change.timeFirst), textOf(change.timeLast), change.text)
            .trimmed();
    }
    void hear()
    {
        hear("closed", &CurveEditor::closed);
        hear("curveHasChanged", &CurveEditor::curveHasChanged);
        hear("curveEdited", &CurveEditor::curveEdited);
        hear("undoRequested", &CurveEditor::undoRequested);
        hear("redoRequested", &CurveEditor::redoRequested);
        hear("curveOpened", &CurveEditor::curveOpened);
        hear("curveClosed", &CurveEditor::curveClosed);
        hear("currentCurveChanged", &CurveEditor::currentCurveChanged);
        hear("curveColorChanged", &CurveEditor::curveColorChanged);
        hear("viewChanged", &CurveEditor::viewChanged);
        hear("pointSelectionChanged", &CurveEditor::pointSelectionChanged);
        hear("timeLineDragged", &CurveEditor::timeLineDragged);
    }

    static Deeds allDeeds();

    struct Stage : Scene
    {
        Stage()
        {
            canvas.setFixedSize(440, 300); // 40 pixels a time unit, 50 a value unit
            editor.resize(1500, 900);
            editor.setCurveColor("a", "y", QColor(255, 128, 0));
            editor.setCurveColor("a", "z", QColor(128, 0, 255));
            QGuiApplication::clipboard()->clear();
            QTest::qWait(0);
            canvas.grab(); // gives the fields their sizes
        }
        void enterInto(QWidget& field, const QString& text)
        {
            auto& line = static_cast<QLineEdit&>(field);
            line.setFocus();
            line.selectAll();
            QTest::keyClicks(&line, text);
        }
    };
    std::optional<Stage> scene_;
    QTemporaryDir folder_;
    QMap<QString, QString> last_;
    QStringList heard_, faults_;
    QString meanwhile_; ///< the signal at which the host does something, and what
    Qt::MouseButtons held_;
    std::size_t next_ = 0, seen_ = 0;
    QList<QPointer<QWidget>> played_; ///< the windows whose loops run
    bool isGood_ = true, isReading_ = false;
};

Player::Deeds Player::allDeeds()
{
    Deeds deeds;
    const auto at = [&deeds](const char* word, void (*deed)(Call)) {
        deeds[word] = deed;
    };
    at("whole", [](Call c) { c.player.last_.clear(); });
    at("anew", [](Call c) { c.player.begin(); });
    at("key", [](Call c) { c.player.key(c[0]); });
    at("hold", [](Call c) { c.player.key(c[0], QTest::Press); });
    at("let", [](Call c) { c.player.key(c[0], QTest::Release); });
    at("repeat", [](Call c) { c.player.repeat(c[0]); });
    at("letters", [](Call c) { c.player.type(c[0]); });
    at("insert", [](Call c) { static_cast<QLineEdit&>(c.player.target()).insert(c[0]); });
    at("press", [](Call c) { c.player.mouse(QEvent::MouseButtonPress, c[0], c.words); });
    at("move", [](Call c) { c.player.mouse(QEvent::MouseMove, c[0], c.words); });
    at("release", [](Call c) { c.player.mouse(QEvent::MouseButtonRelease, c[0], c.words); });
    at("click", [](Call c) { c.player.drag(c.words); });
    at("drag", [](Call c) { c.player.drag(c.words); });
    at("double", [](Call c) { c.player.doubleClick(c.words); });
    at("again", [](Call c) { c.player.mouse(QEvent::MouseButtonDblClick, c[0], c.words); });
    at("hover", [](Call c) { c.player.hover(c.words); });
    at("leave", [](Call c) { c.player.leave(); });
    at("menuKey", [](Call c) { openContextMenu(c.player.target(), {}, QContextMenuEvent::Keyboard); });
    at("wheel", [](Call c) { c.player.wheel(c.words); });
    at("scroll", [](Call c) { c.player.scroll(c.words); });
    at("pinch", [](Call c) { c.player.pinch(c.words); });
    at("trigger", [](Call c) { c.editor.action(c[0])->trigger(); });
    at("choose", [](Call c) { choose(c[0]); });
    at("type", [](Call c) { c.player.scene_->enterInto(c.player.widget(c[0]), c[1]); });
    at("push", [](Call c) { QTest::mouseClick(&c.player.widget(c[0]), Qt::LeftButton); });
    at("focus", [](Call c) { c.player.widget(c[0]).setFocus(); });
    at("pull", [](Call c) { c.player.pull(c.words); });
    at("paints", [](Call c) { c.player.paint(c[0], c[1]); });
    at("pick", [](Call c) { pick(static_cast<QComboBox&>(c.player.widget(c[0])), c[1]); });
    at("page", [](Call c) { c.player.turnTo(c[0]); });
    at("row", [](Call c) { c.player.clickRow(c.words); });
    at("cell", [](Call c) { c.player.clickCell(c.words); });
    at("clipboard", [](Call c) { QGuiApplication::clipboard()->setText(unescaped(c[0])); });
    at("drop", [](Call c) { c.player.drop(c[0], c[1]); });
    at("path", [](Call c) { typePath(*openWindow(), c.player.folder_.filePath(c[0])); });
    at("meanwhile", [](Call c) { c.player.meanwhile_ = c.words.join(' ').trimmed(); });
    at("undo", [](Call c) { c.editor.undo(); });
    at("redo", [](Call c) { c.editor.redo(); });
    at("adds", [](Call c) { c.player.scene_->add(c[0]); });
    at("opens", [](Call c) { c.editor.setEditingNode(c[0]); });
    at("closesAll", [](Call c) { c.editor.cleanSelecteds(); });
    at("removes", [](Call c) { c.editor.removeCurve(c.group, c.curve); });
    at("renames", [](Call c) { c.editor.renameCurve(c.group, c.curve, c[1]); });
    at("removesGroup", [](Call c) { c.editor.removeNode(c[0]); });
    at("renamesGroup", [](Call c) { c.editor.renameNode(c[0], c[1]); });
    at("sets", [](Call c) { c.player.setOption(c); });
    at("colors", [](Call c) { c.editor.setCurveColor(c.group, c.curve, QColor(c[1])); });
    at("selects", [](Call c) { c.player.select(c); });
    at("resets", [](Call c) { c.player.scene_->curves[c[0]].spline.reset(); });
    at("writes", [](Call c) { c.player.writeValue(c[0], c[1].toUInt(), c.number(2)); });
    at("edits", [](Call c) { c.player.edit(c); });
    at("range", [](Call c) { c.editor.setTimeRange(c.number(0), c.number(1)); });
    at("values", [](Call c) { c.editor.setMinValue(c.number(0)), c.editor.setMaxValue(c.number(1)); });
    at("view", [](Call c) { c.editor.setView({c.number(0), c.number(1), c.number(2), c.number(3)}); });
    at("fps", [](Call c) { c.editor.setFps(c.number(0)); });
    at("timeLine", [](Call c) { c.editor.setTimeLine(c.number(0)); });
    at("timeLineMoves", [](Call c) { c.editor.setTimeLineDraggable(true); });
    at("offersHold", [](Call c) { c.editor.setHoldOffered(true); });
    at("keepsHistory", [](Call c) { c.editor.setKeepsHistory(false); });
    at("gestures", [](Call c) { c.editor.setViewGestures(c[0] == "on"); });
    at("part", [](Call c) { c.editor.setPartShown(EditorPart(c[0].toInt()), c[1] == "on"); });
    at("reads", [](Call c) { c.player.isReading_ = c[0] == "on"; });
    at("size", [](Call c) { c.player.scene_->canvas.setFixedSize(c[0].toInt(), c[1].toInt()); });
    at("theme", [](Call c) { c.player.restyle(c); });
    at("light", [](Call c) { c.editor.setTheme(CurveEditorTheme::light()); });
    at("dark", [](Call c) { c.editor.setTheme(CurveEditorTheme::dark()); });
    at("hides", [](Call c) { c.player.hideByWindowManager(); });
    at("holdsFirst", [](Call c) { c.editor.setConstraint(c.group, c.curve, &holdFirst); });
    at("rounds", [](Call c) { c.editor.setConstraint(c.group, c.curve, &roundTimes); });
    at("steps", [](Call c) { limit(c); });
    at("drops", [](Call c) { c.editor.deleteExpression(c.group, c.curve, nullptr); });
    at("forgets", [](Call c) { c.player.scene_->variables.remove(c[0].toStdString()); });
    at("shown", [](Call c) { c.editor.setVisible(c[0] == "on"); });
    return deeds;
}

const QRegularExpression stepLine("^> (.*)$");

} // namespace

/// Plays the files of tests/sessions. A line "> ..." is a step; the lines below it say what is otherwise behind it. With
/// CURVEEDITOR_RECORD_SESSIONS set the files are written anew, to be read by somebody who knows what is right.
class tst_Sessions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void nothingElseChanges_data()
    {
        const Rows<QString> row;
        const QDir folder(QFINDTESTDATA("../sessions"));
        for (const QString& file : folder.entryList({"*.txt"}))
            row(qPrintable(file.section(u'.', 0, 0)), folder.filePath(file));
        QVERIFY(!folder.isEmpty());
    }
    void nothingElseChanges()
    {
        const auto [path] = Rows<QString>::present();
        const bool isRecording = qEnvironmentVariableIsSet("CURVEEDITOR_RECORD_SESSIONS");
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QStringList story; // in front of the first step
        std::vector<Step> steps;
        const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
        for (int i = 0; const QString& line : lines) {
            ++i;
            if (const auto match = stepLine.match(line); match.hasMatch())
                steps.push_back({i, match.captured(1), {}});
            else
                (steps.empty() ? story : steps.back().expected) += line;
        }
        file.close();
        QStringList faults;
        Player().play(steps, [&, path = path](Step& step, const QStringList& changes) {
            if (isRecording)
                step.expected = changes;
            if (step.expected == changes)
                return true;
            faults += QString("%1:%2: > %3").arg(path).arg(step.line).arg(step.text);
            for (const QString& line : step.expected)
                faults += changes.contains(line) ? QStringList() : QStringList("- " + line);
            for (const QString& line : changes)
                faults += step.expected.contains(line) ? QStringList() : QStringList("+ " + line);
            return false;
        });
        if (isRecording && file.open(QIODevice::WriteOnly)) {
            for (const Step& step : steps)
                story += "> " + step.text, story += step.expected;
            file.write((story.join(u'\n') + u'\n').toUtf8());
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
};

QTEST_MAIN(tst_Sessions)
#include "tst_Sessions.moc"
