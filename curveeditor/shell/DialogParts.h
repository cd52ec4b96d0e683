// SPDX-License-Identifier: MIT
#pragma once

#include <QBoxLayout>
#include <QFont>
#include <QPalette>
#include <QSize>
#include <QString>
#include <QWidget>

class QDialog;
class QLabel;
class QLineEdit;
class QPushButton;

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

/// Gives a widget the font family of the dialogs; size and style stay those of its parent.
void setDialogFamily(QWidget* widget);

/// Sets one colour of a widget, the same in all of its states.
void setPaletteColor(QWidget* widget, QPalette::ColorRole role, const QColor& color);

/// @name For the small dialogs that ask for numbers
/// Their sizes are meant for a font of usual height, and grow in proportion with a larger one.
/// @{

/// A label of `width` x 20 pixels.
QLabel* numberLabel(const char* name, QDialog* parent, int width);

/// A line of 60 x 20 pixels for a number of 9 characters, named to assistive tools by `label`.
QLineEdit* numberLine(const char* name, QDialog* parent, QLabel* label);

/// A row of two widgets at the end of `outer`.
QHBoxLayout* widgetRow(const char* name, QVBoxLayout* outer, QWidget* left, QWidget* right);

/// Takes the dialog the freedom to be resized.
void fixSize(QDialog* dialog, const QSize& size);
/// @}
