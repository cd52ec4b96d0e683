// SPDX-License-Identifier: MIT
#include <curveeditor/shell/CanvasAccessible.h>

#include <curveeditor/edit/PointTypeTexts.h>
#include <curveeditor/edit/SplineEdits.h>
#include <curveeditor/shell/FunctionEditor.h>

#include <QAccessibleActionInterface>
#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace curveeditor {

namespace {

class PointAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
    Q_DECLARE_TR_FUNCTIONS(PointAccessible)

public:
    PointAccessible(FunctionEditor* canvas, PointSerial serial) : canvas_(canvas), serial_(serial) {}

    PointSerial serial() const { return serial_; }

    bool isValid() const override { return index() >= 0; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(canvas_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {selectName(), deleteName()}; }
    QString localizedActionName(const QString& name) const override { return tr(name.toUtf8().constData()); }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }
    void doAction(const QString& name) override;

private:
    static QString selectName() { return QStringLiteral(QT_TR_NOOP("Select")); }
    static QString deleteName() { return QStringLiteral(QT_TR_NOOP("Delete")); }
    int index() const;
    const SplineBase::PointInfo* point() const;
    QString valueText(const SplineBase::PointInfo& point) const;

    QPointer<FunctionEditor> canvas_;
    PointSerial serial_;
};

int PointAccessible::index() const
{
    const ControlSplineNode* const control = canvas_ ? canvas_->canvas.currentSplineControl() : nullptr;
    return control ? indicesOf({serial_}, *control->getSpline()).front() : -1;
}

const SplineBase::PointInfo* PointAccessible::point() const
{
    const int present = index();
    return present < 0 ? nullptr : canvas_->canvas.currentSplineControl()->pointAt(present);
}

QString PointAccessible::text(QAccessible::Text kind) const
{
    const SplineBase::PointInfo* const present = point();
    if (!present)
        return {};
    if (kind == QAccessible::Value)
        return valueText(*present);
    if (kind == QAccessible::Description)
        return PointTypeTexts::shown(PointTypes::of(present->type).point);
    if (kind != QAccessible::Name)
        return {};
    const double time = canvas_->shownTime(present->time);
    const QString name = canvas_->writesFrames() ? tr("Point %1 of %2, frame %3, value %4")
                                                 : tr("Point %1 of %2, time %3, value %4");
    return name.arg(index() + 1)
        .arg(canvas_->canvas.currentSplineControl()->pointCount())
        .arg(canvas_->timeText ? canvas_->timeText.write(time) : QString::number(time), valueText(*present));
}

QString PointAccessible::valueText(const SplineBase::PointInfo& point) const
{
    return canvas_->valueText ? canvas_->valueText.write(point.pos) : QString::number(point.pos);
}

QRect PointAccessible::rect() const
{
    const SplineBase::PointInfo* const present = point();
    if (!present)
        return {};
    QRect marker(0, 0, 9, 9);
    marker.moveCenter({canvas_->timeToPixel(present->time), canvas_->valueToPixel(present->pos)});
    return marker.translated(canvas_->mapToGlobal(QPoint()));
}

QAccessible::State PointAccessible::state() const
{
    QAccessible::State state;
    const SplineBase::PointInfo* const present = point();
    state.invalid = !present;
    if (!present)
        return state;
    const ControlSplineNode& control = *canvas_->canvas.currentSplineControl();
    state.selectable = state.multiSelectable = state.focusable = true;
    state.selected = control.isSelected(present);
    state.focused = canvas_->hasFocus() && control.hasSingleSelection() && state.selected;
    state.offscreen = !canvas_->rect().contains(canvas_->mapFromGlobal(rect().center()));
    return state;
}

void PointAccessible::doAction(const QString& name)
{
    const QPointer<FunctionEditor> canvas(canvas_);
    if (!point())
        return;
    canvas->canvas.settle();
    if (!canvas || !point())
        return;
    canvas->canvas.currentSplineControl()->selectOnly(point());
    if (name == deleteName())
        canvas->canvas.editSelection(tr("Delete a point of %1"), tr("Delete %1 points of %2"),
                                     &SplineEdits::removePoints);
    if (!canvas)
        return;
    canvas->showSelection(true);
    canvas->canvas.paint();
}

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    auto* const canvas =
        className == QLatin1String("FunctionEditor") ? qobject_cast<FunctionEditor*>(object) : nullptr;
    return canvas ? new CanvasAccessible(canvas) : nullptr;
}

} // namespace

CanvasAccessible::CanvasAccessible(FunctionEditor* canvas)
    : QAccessibleWidget(canvas, QAccessible::Canvas), canvas_(canvas)
{
}

CanvasAccessible::~CanvasAccessible()
{
    for (const auto& [point, id] : points_)
        QAccessible::deleteAccessibleInterface(id);
}

void CanvasAccessible::install()
{
    QAccessible::installFactory(&makeInterface);
}

int CanvasAccessible::childCount() const
{
    const ControlSplineNode* const control = canvas_->canvas.currentSplineControl();
    return control ? control->pointCount() : 0;
}

QAccessibleInterface* CanvasAccessible::child(int index) const
{
    ControlSplineNode* const control = canvas_->canvas.currentSplineControl();
    if (!control || !control->pointAt(index))
        return nullptr;
    if (control->pointAt(index)->serial == 0) // as a host has written it
        control->dropLostPoints();
    return childOf(control->pointAt(index)->serial);
}

QAccessibleInterface* CanvasAccessible::childOf(PointSerial point) const
{
    const auto known = points_.find(point);
    if (known != points_.end())
        return QAccessible::accessibleInterface(known->second);
    forgetLostPoints();
    auto* const made = new PointAccessible(canvas_, point);
    points_.emplace(point, QAccessible::registerAccessibleInterface(made));
    return made;
}

/// Now and then, so that it costs little.
void CanvasAccessible::forgetLostPoints() const
{
    constexpr std::size_t few = 64;
    if (points_.size() < few + 2 * std::size_t(childCount()))
        return;
    for (auto entry = points_.begin(); entry != points_.end();) {
        const QAccessibleInterface* const point = QAccessible::accessibleInterface(entry->second);
        const bool isLost = !point || !point->isValid();
        if (isLost)
            QAccessible::deleteAccessibleInterface(entry->second);
        entry = isLost ? points_.erase(entry) : std::next(entry);
    }
}

int CanvasAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* const point = dynamic_cast<const PointAccessible*>(child);
    const ControlSplineNode* const control = canvas_->canvas.currentSplineControl();
    return point && control ? indicesOf({point->serial()}, *control->getSpline()).front() : -1;
}

QAccessibleInterface* CanvasAccessible::childAt(int x, int y) const
{
    if (!canvas_->canvas.currentSplineControl())
        return nullptr;
    const QPoint pixel = canvas_->mapFromGlobal(QPoint(x, y));
    canvas_->canvas.updateCurves();
    const CanvasSpline::Hit hit = canvas_->canvas.currentSpline()->hitTest(pixel, {});
    return hit.point != 0 ? childOf(hit.point) : nullptr;
}

QAccessibleInterface* CanvasAccessible::focusChild() const
{
    const ControlSplineNode* const control = canvas_->canvas.currentSplineControl();
    const SplineBase::PointInfo* const point =
        control && canvas_->hasFocus() ? control->getCurrent() : nullptr;
    return point ? childOf(point->serial) : nullptr;
}

QString CanvasAccessible::text(QAccessible::Text kind) const
{
    const CanvasFunctionBase& curves = canvas_->canvas;
    if (kind == QAccessible::Name)
        return curves.noCurrentCurve() ? tr("Canvas without a curve")
                                       : tr("Canvas, curve %1").arg(curves.getCurrentCurveName());
    if (kind != QAccessible::Description)
        return QAccessibleWidget::text(kind);
    QStringList texts{contents(), curves.toldText(), curves.hint()};
    texts.removeAll(QString());
    return texts.join(QLatin1Char(' '));
}

QString CanvasAccessible::contents() const
{
    const CanvasFunctionBase& curves = canvas_->canvas;
    if (curves.noCurrentCurve())
        return QAccessibleWidget::text(QAccessible::Description);
    if (const ControlSplineNode* const control = canvas_->canvas.currentSplineControl()) {
        const auto selected = indicesOf(control->selection().edited(), *control->getSpline());
        const auto lost = std::count(selected.begin(), selected.end(), -1); // while a dialog shows others
        return tr("%1 points, %2 selected").arg(control->pointCount()).arg(qsizetype(selected.size()) - lost);
    }
    return tr("Formula %1").arg(curves.getCurrentExpressionText());
}

CanvasAnnouncer::CanvasAnnouncer(FunctionEditor* canvas) : QObject(canvas), canvas_(canvas)
{
    connect(canvas, &FunctionEditor::selectionShown, this, &CanvasAnnouncer::announce);
    connect(&canvas->canvas, &CanvasFunctionBase::told, this, &CanvasAnnouncer::announce);
    connect(&canvas->canvas.door().history(), &EditHistory::reported, this, [this](const EditReport& report) {
        if (report.phase == EditReport::Phase::Commit)
            announce();
    });
}

void CanvasAnnouncer::announce()
{
    QAccessibleInterface* const all = QAccessible::queryAccessibleInterface(canvas_);
    if (canvas_->gesture.isAtPoints() || !all)
        return;
    const ControlSplineNode* const control = canvas_->canvas.currentSplineControl();
    const SplineBase::PointInfo* const point = control ? control->getCurrent() : nullptr;
    const PointSerial serial = point && control->hasSingleSelection() ? point->serial : 0;
    QAccessibleInterface* const one = serial != 0 ? all->child(control->currentIndex()) : nullptr;
    const QString place = one ? one->text(QAccessible::Name) : QString();
    const QString canvas = all->text(QAccessible::Name) + all->text(QAccessible::Description);
    if (std::exchange(toldCanvas_, canvas) != canvas) {
        send(QAccessible::NameChanged, all);
        send(QAccessible::DescriptionChanged, all);
    }
    const bool isAnother = std::exchange(toldPoint_, serial) != serial;
    const bool hasMoved = std::exchange(toldPlace_, place) != place;
    if (!one)
        return;
    if (isAnother)
        send(QAccessible::Selection, one);
    if (isAnother && canvas_->hasFocus())
        send(QAccessible::Focus, one);
    if (hasMoved && !isAnother)
        send(QAccessible::NameChanged, one);
}

void CanvasAnnouncer::send(QAccessible::Event kind, QAccessibleInterface* about)
{
    QAccessibleEvent event(about, kind);
    QAccessible::updateAccessibility(&event);
    Q_EMIT announced(kind, about->text(QAccessible::Name));
}

} // namespace curveeditor

#include "moc_CanvasAccessible.cpp"
