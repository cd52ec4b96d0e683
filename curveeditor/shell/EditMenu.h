// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/PointCommands.h>

#include <QKeySequence>
#include <QObject>
#include <QPoint>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

class FunctionEditor;
class QAction;
class QKeyEvent;
class QMenu;

namespace curveeditor {

/// Fills the menu "Edit" with all commands on points and on the view, each with its key, to which `EditorKeys` listens.
/// Entries are enabled as the situation allows.
///
/// A child of the menu, whose parent is that of the dialogs. It sees where the mouse is on the canvas.
class EditMenu : public QObject
{
    Q_OBJECT

public:
    EditMenu(QMenu* menu, FunctionEditor& canvas);

    bool event(QEvent* event) override;
    bool eventFilter(QObject* canvas, QEvent* event) override;
    /// The entry of that key, if it can be used now, else null.
    QAction* entryOf(const QKeyEvent& event);
    /// Tells on the canvas why the entry of that key, if there is one, can't be used now. Returns false if it does not.
    bool explain(const QKeyEvent& event);

private:
    /// When an entry can be used, and what its key tells else; null for nothing.
    struct Condition
    {
        std::function<bool()> isMet;
        const char* refusal = nullptr; ///< not translated
    };
    using Entry = std::pair<QAction*, Condition>;
    using IsOn = std::function<bool()>;
    /// Texts are the untranslated ones.
    void add(const char* name, const char* text, const QString& key, const Condition& isPossible,
             const std::function<void()>& work);
    static Condition always();
    Condition whenSelected() const;
    Condition whenInserting() const;
    const Entry* find(const QKeyEvent& event) const;
    QMenu* addMenu(const char* name, const char* text);
    void addToggle(const char* name, const char* text, const QString& key, const IsOn& isOn,
                   const std::function<void(bool)>& work);
    void addClipboard();
    void addSelection();
    void addMarks();
    void addSnapping();
    void addShaping();
    void addEases();
    void popUp(QMenu* menu);
    void askForCss();
    void insertUnderMouse();
    void addFits();
    template <typename Dialog> void open(const Condition& isPossible);
    void addMoves();
    void addTransforms();
    void addView();
    void translate();
    void updateEntries();
    void updateToggles();
    void followCanvas();

    FunctionEditor& canvas_;
    PointCommands points_;
    Ease::CssNumbers css_ = {0.25, 0.1, 0.25, 1.0}; ///< that were entered last
    std::optional<QPoint> mouse_;                   ///< its last place on the canvas
    QMenu* const menu_;
    QMenu* target_;                                       ///< what `add` adds to
    std::vector<std::pair<QAction*, const char*>> texts_; ///< and the untranslated text
    std::vector<Entry> entries_;
    std::vector<std::pair<QAction*, IsOn>> toggles_; ///< and whether they are on
    std::vector<QAction*> pastes_;                   ///< which take what the clipboard holds
};

} // namespace curveeditor
