// SPDX-License-Identifier: MIT
#pragma once

#include <QBoxLayout>
#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>
#include <QWidget>

class QComboBox;

namespace curveeditor {

/// A new object of `Kind`, child of `parent`, with that object name.
template <class Kind, class Parent> Kind* named(const char* name, Parent* parent)
{
    auto* object = new Kind(parent);
    object->setObjectName(QLatin1String(name));
    return object;
}

/// The layout of the widget `owner`, with the margin and spacing of this library's dialogs.
template <class Layout> Layout* outerLayout(const char* name, QWidget* owner)
{
    constexpr int margin = 11;
    constexpr int spacing = 6;
    auto* layout = named<Layout>(name, owner);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(spacing);
    return layout;
}

/// A layout without a margin, at the end of `outer`.
template <class Layout> Layout* innerLayout(const char* name, QBoxLayout* outer)
{
    auto* layout = new Layout;
    layout->setObjectName(QLatin1String(name));
    layout->setSpacing(outer->spacing());
    outer->addLayout(layout);
    return layout;
}

/// The property of a dialog whose value is the `EditorPart` that it goes with.
inline constexpr const char* partOfDialog = "editorPart";

/// Gives a widget the font family of the dialogs; size and style stay those of its parent.
void setDialogFamily(QWidget* widget);

/// Gives a box the width that its present items take; else it keeps that of its first ones.
void fitToItems(QComboBox* box);

/// Asks for a colour. An invalid one if the user gives none, or if `parent` was deleted meanwhile.
QColor askForColor(const QColor& initial, QWidget* parent);

/// Sets one colour of a widget, the same in all of its states.
void setPaletteColor(QWidget* widget, QPalette::ColorRole role, const QColor& color);

} // namespace curveeditor
