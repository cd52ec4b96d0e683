// SPDX-License-Identifier: MIT
#pragma once

#include "EditorScene.h"

#include <curveeditor/model/PointTypes.h>
#include <curveeditor/panel/CurveRowDelegate.h>

/// Keeps the texts that are drawn on it: each with its colour, that of its outline, and in which field it is.
class TextPaper : public QImage, private QPaintEngine
{
public:
    TextPaper() : QImage(1, 1, Format_RGB32), QPaintEngine(AllFeatures) {}
    QPaintEngine* paintEngine() const override { return const_cast<TextPaper*>(this); }
    QString found() const
    {
        QStringList found;
        for (const auto& [text, colors, at, place] : texts_) // fonts differ by a few pixels
            found += QString("%1 %2@%3,%4").arg(text, colors).arg(place.x() / 40).arg(place.y() / 50);
        return found.join("; ");
    }

private:
    struct Text
    {
        QString text, colors;
        QPointF at;
        QPoint place;
    };
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    Type type() const override { return User; }
    void drawTextItem(const QPointF& at, const QTextItem& item) override
    {
        const QPointF middle = at + QPointF(item.width(), item.descent() - item.ascent()) / 2.0;
        const QString color = painter()->pen().color().name().mid(1);
        for (Text& known : texts_) {
            if (known.text == item.text() && QLineF(known.at, at).length() < 3.0) {
                known.colors = color + u'/' + known.colors.section(u'/', -1);
                known.at = at;
                known.place = middle.toPoint() + QPoint(15, 25);
                return;
            }
        }
        texts_.push_back({item.text(), color, at, at.toPoint() + QPoint(15, 25)});
    }

    std::vector<Text> texts_;
};

/// What a user, a host and assistive tools know of an editor, as texts by names. None depends on fonts or a screen.
class SessionState : public QMap<QString, QString>
{
public:
    explicit SessionState(Scene& s, bool hasTexts = false) : s_(s)
    {
        for (const auto& [name, curve] : s.curves)
            addCurve(name, curve);
        addCanvas(hasTexts);
        addRows();
        addTable();
        for (const QAction* const action : s.editor.findChildren<QAction*>())
            addAction(*action);
        for (const QWidget* const widget : s.editor.findChildren<QWidget*>()) {
            if (widget->window() == &s.editor)
                addWidget(*widget);
        }
        QWidgetList windows = QApplication::topLevelWidgets();
        std::sort(windows.begin(), windows.end(), [](const QWidget* one, const QWidget* other) {
            return std::pair(one->windowTitle(), QString(one->metaObject()->className())) <
                   std::pair(other->windowTitle(), QString(other->metaObject()->className()));
        });
        for (const QWidget* const window : windows)
            addWindow(*window);
        add("title", s.editor.windowTitle());
        add("focus", QApplication::focusWidget() ? nameOf(*QApplication::focusWidget()) : QString());
        add("shown tip", QToolTip::isVisible() ? QToolTip::text() : QString());
        add("clipboard", QGuiApplication::clipboard()->text());
        const QUndoStack& stack = *s.editor.undoStack();
        add("undo", QString("%1 of %2, %3").arg(stack.index()).arg(stack.count()).arg(stack.undoText()));
    }

    /// A line for each difference; one for all actions or fields that are alike then.
    static QStringList changes(const QMap& from, const QMap& to)
    {
        QMap<QString, QString> told; // by kind and value
        QStringList lines;
        for (auto entry = to.begin(); entry != to.end(); ++entry) {
            const QString kind = entry.key().section(u' ', 0, 0), text = entry.value(),
                          before = from.value(entry.key());
            if (before == text && from.contains(entry.key()))
                continue;
            const bool sameText =
                textIn(before) == textIn(text) && kind == "action" && from.contains(entry.key());
            if (kind != "action" && kind != "field")
                lines += entry.key() + ": " + text;
            else
                told[kind + u'\n' + (sameText ? text.mid(textIn(text).size()) : text)] +=
                    entry.key().mid(kind.size());
        }
        for (auto group = told.begin(); group != told.end(); ++group)
            lines += group.key().section(u'\n', 0, 0) + group.value() + ": " + group.key().section(u'\n', 1);
        for (const QString& key : from.keys()) {
            if (!to.contains(key))
                lines += key + " is gone";
        }
        for (QString& line : lines)
            line = line.trimmed();
        lines.sort();
        return lines;
    }

    static QString nameOf(const QWidget& widget)
    {
        if (!widget.objectName().isEmpty())
            return widget.objectName();
        const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
        return button ? QString(button->text()).remove(u'&') : QString(widget.metaObject()->className());
    }
    static QString number(double value)
    {
        return QString::number(std::abs(value) < 1e-12 ? 0.0 : value, 'g', 6); // what rounding leaves
    }

private:
    void add(const QString& name, const QString& text) { insert(name, QString(text).replace(u'\n', " / ")); }

    static QString textIn(const QString& value) { return value.left(value.indexOf(" [")); }
    /// The words for what is so.
    static QString words(std::initializer_list<std::pair<bool, const char*>> all)
    {
        QString text;
        for (const auto& [isSo, word] : all)
            text += isSo ? QString(" [%1]").arg(word) : QString();
        return text;
    }

    void addCurve(const QString& name, const HostCurve& curve)
    {
        const auto group = name.section(u'.', 0, -2), own = name.section(u'.', -1);
        add("curve " + name,
            QString("%1 to %2%3")
                .arg(curve.spline.firstType)
                .arg(curve.spline.lastType)
                .arg(curve.expression ? ", " + QString::fromStdString(curve.expression->getString())
                                      : QString()));
        const std::vector<int> selected = s_.editor.selectedPoints(group, own);
        for (int i = 0; const SplineBase::PointInfo* const point : curve.spline.getControlPoints()) {
            QString text =
                number(point->time) + u' ' + number(point->pos) + u' ' + PointTypes::of(point->type).word;
            const std::pair<const char*, double> others[] = {
                {"in", point->tanLeft},       {"out", point->tanRight}, {"tension", point->tension},
                {"cont", point->continuity},  {"bias", point->bias},    {"slowTo", point->easeTo},
                {"slowFrom", point->easeFrom}};
            for (const auto& [word, value] : others)
                text += value != 0.0 ? QString(" %1 %2").arg(word, number(value)) : QString();
            const bool isSelected = std::find(selected.begin(), selected.end(), i) != selected.end();
            add(QString("curve %1 %2").arg(name).arg(i++, 2, 10, QChar('0')),
                text + words({{isSelected, "selected"}}));
        }
    }

    void addCanvas(bool hasTexts)
    {
        FunctionEditor& canvas = s_.canvas;
        const QRectF view = s_.editor.view();
        add("canvas view", number(view.left()) + " to " + number(view.right()) + ", " + number(view.top()) +
                               " to " + number(view.bottom()));
        add("canvas cursor", QVariant::fromValue(canvas.cursor().shape()).toString());
        QAccessibleInterface* const all = QAccessible::queryAccessibleInterface(&canvas);
        add("canvas said", all->text(QAccessible::Name) + "; " + all->text(QAccessible::Description));
        QAccessibleInterface* const point = all->focusChild();
        add("canvas point said",
            point ? point->text(QAccessible::Name) + "; " + point->text(QAccessible::Description)
                  : QString());
        QStringList open;
        for (const CurveName& curve : s_.editor.openCurves())
            open += curve.first + u'.' + curve.second;
        add("canvas curves", open.join(' ') + ", current " + s_.current());
        if (hasTexts) // which cover pixels, and with each font others
            return addTexts();
        const QImage picture = canvas.isVisible() ? s_.shown() : canvas.grab().toImage();
        const int rows = canvas.canvas.hint().isEmpty() ? 245 : 0; // of no text
        for (const int x : {110, 230, 350})                        // where no number of the grid stands
            add(QString("canvas column %1").arg(x), runs(picture, {x, 25}, {0, 1}, rows));
        add("canvas row 40", runs(picture, {60, 40}, {1, 0}, 370));
        std::map<QRgb, int> counts; // of what is no text
        for (int y = 25; y < 270; ++y) {
            const QRgb* const line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
            for (int x = 60, start = x; x < 370; start = x) {
                while (x < 370 && line[x] == line[start])
                    ++x;
                counts[line[start]] += x - start;
            }
        }
        QStringList colors;
        for (const auto& [color, count] : counts)
            colors += QColor(color).name().mid(1) + u' ' + QString::number(count);
        add("canvas colours", colors.size() < 30 ? colors.join(", ") : "many");
    }

    /// What is written on the canvas, if its lines are not smooth, and at the grid.
    void addTexts()
    {
        TextPaper front, numbers;
        s_.canvas.render(&front);
        add("canvas texts", front.found());
        QPainter painter(&numbers);
        s_.canvas.canvas.grid().draw(&painter, s_.editor.theme());
        add("canvas numbers", numbers.found());
    }

    /// The colours on the way but the grid's, each with the first and the last of its pixels.
    QString runs(const QImage& picture, QPoint at, const QPoint& step, int count) const
    {
        const CurveEditorTheme theme = s_.editor.theme();
        const QColor ground[] = {theme.canvas, theme.gridLines, theme.fineGridLines, theme.zeroLines};
        QStringList found;
        QColor last;
        int lastPlace = 0;
        for (int i = 0; i < count; ++i, at += step) {
            const QColor color = picture.pixelColor(at);
            if (std::find(std::begin(ground), std::end(ground), color) != std::end(ground))
                continue;
            const int place = step.x() ? at.x() : at.y();
            if (color == last && place - lastPlace <= 2) // or it is a line of the grid between
                found.last() = found.last().section(u'-', 0, 0) + u'-' + QString::number(place);
            else
                found += color.name().mid(1) + u'@' + QString::number(place);
            last = color;
            lastPlace = place;
        }
        return found.join(' ');
    }

    void addRows()
    {
        struct Open : CurveRowDelegate
        {
            using CurveRowDelegate::initStyleOption;
        };
        for (int i = 0; i < s_.list.topLevelItemCount(); ++i) {
            QTreeWidgetItem* const row = s_.list.topLevelItem(i);
            const QModelIndex index = s_.list.model()->index(i, 0);
            QStyleOptionViewItem look;
            look.initFrom(&s_.list);
            look.widget = &s_.list;
            look.rect = s_.list.visualItemRect(row);
            look.decorationSize = s_.list.iconSize();
            auto* const delegate = qobject_cast<CurveRowDelegate*>(s_.list.itemDelegate());
            (delegate->*(&Open::initStyleOption))(&look, index);
            const QImage square = look.icon.pixmap(look.decorationSize).toImage();
            add(QString("row %1").arg(i),
                row->text(0) + u' ' + square.pixelColor(2, square.height() - 3).name() + ' ' +
                    look.palette.color(QPalette::Text).name() + u' ' +
                    row->data(0, Qt::AccessibleTextRole).toString() + u' ' + row->toolTip(0) +
                    words({{look.font.italic(), "slanted"},
                           {row->isSelected(), "selected"},
                           {row->isHidden(), "filtered out"},
                           {index.data(CurveRowDelegate::formulaRole).toBool(), "formula"}}));
        }
    }

    void addTable()
    {
        const auto* const table = s_.editor.findChild<QTableView*>("pointTable");
        const QAbstractItemModel& model = *table->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < model.columnCount(); ++column) {
                const QModelIndex cell = model.index(row, column);
                cells +=
                    cell.data().toString() + words({{!cell.flags().testFlag(Qt::ItemIsEditable), "fixed"}});
            }
            const bool isSelected = table->selectionModel()->isRowSelected(row, QModelIndex());
            add(QString("table %1").arg(row, 2, 10, QChar('0')),
                cells.join(", ") + words({{isSelected, "selected"}}));
        }
        add("table cell", QString::number(table->currentIndex().row()) + ", " +
                              QString::number(table->currentIndex().column()));
    }

    void addAction(const QAction& action)
    {
        const QString name = action.objectName();
        if (name.isEmpty() || name.startsWith("qt_") || name.startsWith("easeIn") ||
            name.startsWith("easeOut")) // as easeCssAction
            return;
        const QString brief = name.endsWith("Action") ? name.chopped(6) : name;
        add("action " + brief, action.text() + words({{!action.isEnabled(), "off"},
                                                      {action.isChecked(), "on"},
                                                      {!action.isVisible(), "hidden"}}));
        const QString tip = action.text().startsWith(action.toolTip()) ? QString() : action.toolTip();
        const QString keys =
            QKeySequence::listToString(action.shortcuts()) + action.statusTip() + action.whatsThis() + tip;
        if (!keys.isEmpty())
            add("keys " + brief, keys);
    }

    /// A control of the editor itself, with what rarely changes in lines of its own.
    void addWidget(const QWidget& widget)
    {
        const QString name = widget.objectName(), text = textOf(widget);
        if (name.isEmpty() || isQts(widget) || qobject_cast<QAbstractItemView*>(widget.parent()))
            return;
        if (!text.isNull())
            add("field " + name, text);
        const QString tip = widget.toolTip() + widget.whatsThis(), called = widget.accessibleName();
        if (!tip.isEmpty() || !called.isEmpty())
            add("tip " + name, called.isEmpty() ? tip : tip + " (" + called + ')');
        if (const auto* const number = qobject_cast<const CustomEditLine*>(&widget))
            add("bounds " + name, SessionState::number(number->clampToBounds(-1e12)) + " to " +
                                      SessionState::number(number->clampToBounds(1e12)));
        const auto* const box = qobject_cast<const QComboBox*>(&widget);
        QStringList entries;
        for (int i = 0; i < (box ? box->count() : 0); ++i)
            entries +=
                box->itemText(i) + words({{static_cast<QListView*>(box->view())->isRowHidden(i), "hidden"}});
        if (box)
            add("entries " + name, entries.join(", "));
    }

    /// What a control shows; null for what is none.
    static QString textOf(const QWidget& widget)
    {
        QString text;
        if (const auto* const field = qobject_cast<const QLineEdit*>(&widget)) {
            const QPalette colors = field->palette();
            text = field->text();
            if (field->hasSelectedText())
                text += " (" + field->selectedText() + u' ' + colors.color(QPalette::Highlight).name() + u')';
            text += " [" + colors.color(QPalette::Base).name() + ']' +
                    words({{field->font().italic(), "slanted"}});
        } else if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) {
            text = box->currentText();
        } else if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
            text = button->text().remove(u'&') + words({{button->isChecked(), "on"}});
        } else if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
            text = label->text();
        } else if (const auto* const pages = qobject_cast<const QTabWidget*>(&widget)) {
            text = pages->tabText(pages->currentIndex());
        } else {
            return {};
        }
        return text + words({{!widget.isVisible(), "hidden"}, {!widget.isEnabled(), "off"}});
    }

    void addWindow(const QWidget& window)
    {
        if (&window == &s_.editor || !window.isVisible())
            return;
        QStringList parts;
        if (const auto* const menu = qobject_cast<const QMenu*>(&window)) {
            for (const QAction* const entry : menu->actions())
                parts +=
                    entry->isSeparator()
                        ? "-"
                        : entry->text() + words({{!entry->isEnabled(), "off"}, {entry->isChecked(), "on"}});
            return add("open menu", parts.join(", "));
        }
        if (const auto* const names = window.findChild<QListView*>();
            window.windowType() == Qt::Popup && names) {
            for (int row = 0; row < names->model()->rowCount(); ++row) {
                const QModelIndex name = names->model()->index(row, 0);
                parts += name.data().toString() + words({{names->isRowHidden(row), "hidden"},
                                                         {names->selectionModel()->isSelected(name), "on"}});
            }
            return add("open names", parts.join(", "));
        }
        const auto* const box = qobject_cast<const QMessageBox*>(&window);
        const bool isOurs =
            !qobject_cast<const QFileDialog*>(&window) && !qobject_cast<const QColorDialog*>(&window);
        if (box)
            parts += QString(box->text())
                         .remove(QDir::tempPath() + "/tst_Sessions")
                         .remove(QRegularExpression("-\\w{6}/")) +
                     u' ' + box->informativeText();
        for (const QWidget* const widget : isOurs ? window.findChildren<QWidget*>() : QWidgetList()) {
            const bool isButton = qobject_cast<const QDialogButtonBox*>(widget->parent());
            if (widget->isVisible() && (!isQts(*widget) || isButton) && !textOf(*widget).isEmpty())
                parts += QString(widget->objectName() + u' ' + textOf(*widget) + u' ' + widget->toolTip())
                             .trimmed();
        }
        const QString name = "open " + window.windowTitle();
        if (qobject_cast<const QDialog*>(&window)) // of one title there may be two
            add(name, value(name) + QString(contains(name) ? "+ " : "") + parts.join("; "));
    }

    Scene& s_;
};
