// SPDX-License-Identifier: MIT
#pragma once

#include "EditorFixture.h"

#include <curveeditor/files/NumberText.h>

/// What holds of a visible editor whenever no event is under way, as text for what does not; empty if all holds.
class Invariants
{
public:
    static QString fault(CurveEditor& editor)
    {
        const Invariants check(editor);
        for (const QString& found : {check.ofLists(), check.ofPage(), check.ofUnit(), check.ofPicture()}) {
            if (!found.isEmpty())
                return found;
        }
        editor.updateCurves(); // lets go of points that the host has taken away
        return check.ofCurves();
    }

private:
    explicit Invariants(CurveEditor& editor)
        : editor_(editor), canvas_(*editor.findChild<FunctionEditor*>(QStringLiteral("functionEdit")))
    {
    }

    QStringList namesInList() const
    {
        QStringList names;
        for (int row = 0; row < editor_.checkListsEditing->topLevelItemCount(); ++row)
            names.append(editor_.checkListsEditing->topLevelItem(row)->text(0));
        return names;
    }

    QString ofCurves() const
    {
        for (const QString& name : namesInList()) {
            const CurveNodeBase* const curve = canvas_.canvas.findCurve(name);
            if (!curve)
                return name + " is in the list and not on the canvas";
            const SplineBase& spline = *curve->getSpline();
            const auto& points = spline.getControlPoints();
            if (points.empty())
                return name + " has no point";
            const bool areFinite = std::all_of(points.begin(), points.end(), [](const auto* point) {
                return std::isfinite(point->time) && std::isfinite(point->pos);
            });
            const bool areOrdered =
                std::is_sorted(points.begin(), points.end(),
                               [](const auto* left, const auto* right) { return left->time < right->time; });
            if (!areFinite || !areOrdered)
                return name + " has points out of order, or numbers that are not finite";
            for (const std::int32_t index : indicesOf(curve->control().selection().edited(), spline)) {
                if (index < 0)
                    return name + " has a selected point that is gone";
            }
        }
        return {};
    }

    QString ofLists() const
    {
        QStringList inMenu;
        QString checked;
        for (const QAction* const action : editor_.findChild<QToolButton*>("Curves")->menu()->actions()) {
            inMenu.append(action->text());
            if (action->isChecked())
                checked = action->text();
        }
        QStringList names = namesInList();
        inMenu.sort(); // they stand in the order of adding
        names.sort();
        if (inMenu != names)
            return "menu " + inMenu.join(u',') + " and list " + names.join(u',');
        const QString current = canvas_.canvas.noCurrentCurve() ? QString() : checked;
        if (!canvas_.canvas.noCurrentCurve() && canvas_.canvas.getCurrentCurveName() != checked)
            return "current is " + canvas_.canvas.getCurrentCurveName() + ", checked " + checked;
        if (canvas_.canvas.noCurrentCurve() != names.isEmpty())
            return "no curve is current though there are some";
        return {};
    }

    QString ofPage() const
    {
        const ControlSplineNode* const control = canvas_.canvas.currentControl();
        if (!editor_.posY->isEnabled() || !control)
            return {};
        const SplineBase::PointInfo* const point = control->getCurrent();
        if (!point || !control->hasSingleSelection())
            return "the page is open without a selected point";
        const double time = canvas_.shownTime(point->time);
        const QString value = ofField(*editor_.posY, point->pos);
        return value.isEmpty() ? ofField(*editor_.posX, time) : value;
    }

    /// A number may stand as it was typed.
    static QString ofField(const CustomEditLine& field, double number)
    {
        const QString expected = field.textFor(number).left(field.maxLength());
        const bool isTypedInto =
            field.window()->focusWidget() == &field || (field.isModified() && !field.isNumber());
        if (isTypedInto || field.text() == expected || NumberText::read(field.text()) == number)
            return {};
        return field.accessibleName() + " shows " + field.text() + " for " + expected;
    }

    QString ofUnit() const
    {
        const QString unit = canvas_.writesFrames() ? "Frame" : "Time";
        const auto* const table = editor_.findChild<QTableView*>("pointTable")->model();
        const QString shown = editor_.textLabel1->text() + table->headerData(0, Qt::Horizontal).toString();
        return shown == unit + u':' + unit ? QString() : "shown are " + shown + " for " + unit;
    }

    QString ofPicture() const
    {
        if (!canvas_.isVisible() || canvas_.size().isEmpty())
            return {};
        QCoreApplication::processEvents();
        const QImage present = canvas_.grab().toImage();
        editor_.updateCurves();
        return present == canvas_.grab().toImage() ? QString() : QStringLiteral("the picture is out of date");
    }

    CurveEditor& editor_;
    FunctionEditor& canvas_;
};
