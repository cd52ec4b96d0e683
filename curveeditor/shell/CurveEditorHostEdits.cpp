// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CurveEditorPrivate.h>

#include <curveeditor/canvas/CurveNodeBase.h>
#include <curveeditor/shell/FunctionEditor.h>

using namespace curveeditor;

/// Null for a name that is not registered.
std::shared_ptr<EditedCurve> CurveEditor::Private::contentOf(const QString& name) const
{
    const NodeStruct* const record = nodeOfName.value(name);
    EditHistory& history = functionEdit->canvas.door().history();
    return record ? history.curve(record->name, record->spline, record->function) : nullptr;
}

/// Those of a new one for a name that is not registered.
CurveOptions CurveEditor::Private::optionsOf(const QString& name) const
{
    const NodeStruct* const record = nodeOfName.value(name);
    const EditHistory& history = functionEdit->canvas.door().history();
    const auto content = record ? history.find(record->name, record->spline, record->function) : nullptr;
    return content ? content->options : CurveOptions();
}

/// Ends what the user is at with the spline of that curve. Returns false where a host that hears of it has deleted the
/// editor.
bool CurveEditor::Private::endHandsAt(const QString& name)
{
    const std::shared_ptr<EditedCurve> content = contentOf(name);
    return !content || !functionEdit->canvas.door().isAtSplineOf(*content) || endHands();
}

/// The same, wherever the user is at work.
bool CurveEditor::Private::endHands()
{
    CanvasFunctionBase& canvas = functionEdit->canvas;
    const QPointer<CurveEditor> guard(&editor);
    const CurveEdit::Curves ended = canvas.settle();
    for (const auto& changed : ended) {
        if (CurveNodeBase* const told = guard ? canvas.findCurve(changed->name) : nullptr)
            told->emitCurveChanged();
    }
    return guard;
}

void CurveEditor::setConstraint(const QString& group, const QString& curve,
                                std::function<void(SplineBase&)> mend)
{
    const QString name = fullName(group, curve);
    if (!d_->endHandsAt(name))
        return;
    if (const std::shared_ptr<EditedCurve> content = d_->contentOf(name))
        content->constraint = std::move(mend);
}

bool CurveEditor::edit(const QString& group, const QString& curve, const QString& text,
                       const std::function<void(SplineBase&)>& work, int merge)
{
    const QString name = fullName(group, curve);
    if (!work || d_->functionEdit->canvas.door().history().isCommandAtWork() || !d_->endHandsAt(name))
        return false;
    const std::shared_ptr<EditedCurve> content = d_->contentOf(name);
    return content && d_->functionEdit->canvas.door().editForHost(content, text, work, merge);
}

bool CurveEditor::apply(const QString& group, const QString& curve, const CurveDiff& diff, bool forward)
{
    const QString name = fullName(group, curve);
    const CurveDiff kept = diff; // who hears of what ends may drop it
    if (!d_->endHandsAt(name))
        return false;
    CurveEdit& door = d_->functionEdit->canvas.door();
    const std::shared_ptr<EditedCurve> content = d_->contentOf(name);
    return content && !door.isShut() && door.history().apply(content, kept, forward);
}
