// SPDX-License-Identifier: MIT
#include <curveeditor/shell/EditMenu.h>

#include <curveeditor/shell/EaseDialog.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QMenu>

namespace curveeditor {

void EditMenu::addEases()
{
    using Shape = Ease::Shape;
    using Side = Ease::Side;
    const struct
    {
        const char* name;
        const char* text;
        Shape shape;
        Side side;
    } eases[] = {
        {"easeInSineAction", QT_TR_NOOP("Sine in"), Shape::Sine, Side::In},
        {"easeOutSineAction", QT_TR_NOOP("Sine out"), Shape::Sine, Side::Out},
        {"easeInOutSineAction", QT_TR_NOOP("Sine in and out"), Shape::Sine, Side::InOut},
        {"easeInQuadraticAction", QT_TR_NOOP("Quadratic in"), Shape::Quadratic, Side::In},
        {"easeOutQuadraticAction", QT_TR_NOOP("Quadratic out"), Shape::Quadratic, Side::Out},
        {"easeInOutQuadraticAction", QT_TR_NOOP("Quadratic in and out"), Shape::Quadratic, Side::InOut},
        {"easeInCubicAction", QT_TR_NOOP("Cubic in"), Shape::Cubic, Side::In},
        {"easeOutCubicAction", QT_TR_NOOP("Cubic out"), Shape::Cubic, Side::Out},
        {"easeInOutCubicAction", QT_TR_NOOP("Cubic in and out"), Shape::Cubic, Side::InOut},
        {"easeInExponentialAction", QT_TR_NOOP("Exponential in"), Shape::Exponential, Side::In},
        {"easeOutExponentialAction", QT_TR_NOOP("Exponential out"), Shape::Exponential, Side::Out},
        {"easeInOutExponentialAction", QT_TR_NOOP("Exponential in and out"), Shape::Exponential, Side::InOut},
        {"easeInBackAction", QT_TR_NOOP("Back in"), Shape::Back, Side::In},
        {"easeOutBackAction", QT_TR_NOOP("Back out"), Shape::Back, Side::Out},
        {"easeInOutBackAction", QT_TR_NOOP("Back in and out"), Shape::Back, Side::InOut}};
    const Condition canEdit = whenSelected();
    target_ = addMenu("easeMenuAction", QT_TR_NOOP("Ease"));
    QAction* const opening = target_->menuAction();
    opening->setShortcut(Qt::CTRL | Qt::Key_E);
    opening->setShortcutContext(Qt::WidgetShortcut);
    entries_.emplace_back(opening, always());
    connect(opening, &QAction::triggered, this, [this, menu = target_] { popUp(menu); });
    add("easeSmoothstepAction", QT_TR_NOOP("Smoothstep"), QStringLiteral("E"), canEdit,
        [this] { points_.ease(Ease::smoothstep()); });
    for (const auto& ease : eases) {
        add(ease.name, ease.text, {}, canEdit,
            [this, ease] { points_.ease(Ease::of(ease.shape, ease.side)); });
    }
    add("easeCssAction", QT_TR_NOOP("CSS…"), QStringLiteral("Shift+E"), canEdit, [this] { askForCss(); });
    target_ = menu_;
}

/// At the mouse, to be gone through by the arrow keys.
void EditMenu::popUp(QMenu* menu)
{
    followCanvas();
    menu->popup(canvas_.mapToGlobal(mouse_.value_or(canvas_.rect().center())));
    menu->setActiveAction(menu->actions().first());
}

void EditMenu::askForCss()
{
    canvas_.setFocus(); // where it is when the dialog closes
    canvas_.canvas.settle();
    if (!points_.canEdit())
        return;
    auto* const dialog = new EaseDialog(menu_->parentWidget(), canvas_.canvas, css_);
    connect(dialog, &EaseDialog::chosen, this, [this](const Ease::CssNumbers& numbers) {
        css_ = numbers;
        points_.ease(Ease::css(numbers));
    });
    dialog->open();
}

} // namespace curveeditor
