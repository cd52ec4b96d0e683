// SPDX-License-Identifier: MIT
#include <curveeditor/panel/PointTableModel.h>

#include <curveeditor/canvas/ViewPort.h>
#include <curveeditor/edit/PointTypeTexts.h>
#include <curveeditor/files/NumberText.h>

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <array>
#include <cmath>

namespace curveeditor {

namespace {

using Field = SplineEdits::Field;

struct Numbers
{
    Field field;
    double bound; ///< 0.0 for none
};

/// What a column holds; that of the types has no number.
constexpr std::array<Numbers, PointTableModel::ColumnCount> numbers = {
    {{Field::Time, 0.0},
     {Field::Value, 0.0},
     {},
     {Field::TangentLeft, 0.0},
     {Field::TangentRight, 0.0},
     {Field::Tension, SplineEdits::parameterBound},
     {Field::Continuity, SplineEdits::parameterBound},
     {Field::Bias, SplineEdits::parameterBound},
     {Field::EaseTo, SplineEdits::easeBound},
     {Field::EaseFrom, SplineEdits::easeBound}}};

const std::vector<SplineBase::PointInfo*>& pointsOf(const ControlSplineNode* control)
{
    static const std::vector<SplineBase::PointInfo*> none;
    return control && control->getSpline() ? control->getSpline()->getControlPoints() : none;
}

} // namespace

PointTableModel::PointTableModel(const ViewPort& view, QObject* parent)
    : QAbstractTableModel(parent), view_(view)
{
}

bool PointTableModel::show(ControlSplineNode* control)
{
    const auto& points = pointsOf(control);
    const bool areSame = std::equal(points.begin(), points.end(), rows_.begin(), rows_.end(),
                                    [](const auto* point, PointSerial row) { return point->serial == row; });
    Q_EMIT headerDataChanged(Qt::Horizontal, Time, Time);
    if (control == control_ && areSame) {
        if (!rows_.empty())
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
        return false;
    }
    beginResetModel();
    control_ = control;
    rows_.resize(points.size());
    std::transform(points.begin(), points.end(), rows_.begin(),
                   [](const auto* point) { return point->serial; });
    endResetModel();
    return true;
}

int PointTableModel::rowOf(PointSerial point) const
{
    const auto found = std::find(rows_.begin(), rows_.end(), point);
    return found == rows_.end() ? -1 : int(found - rows_.begin());
}

PointSerial PointTableModel::pointIn(int row) const
{
    return row >= 0 && row < rowCount() ? rows_[std::size_t(row)] : 0;
}

void PointTableModel::translate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, Type), index(rowCount() - 1, Type));
}

void PointTableModel::setLocale(const QLocale& locale)
{
    locale_ = locale;
    if (!rows_.empty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

int PointTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int PointTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

const SplineBase::PointInfo* PointTableModel::pointOf(const QModelIndex& cell) const
{
    return control_ ? control_->pointAt(cell.row()) : nullptr;
}

Qt::Alignment PointTableModel::sideOf(int column)
{
    return column == Type ? Qt::AlignHCenter : Qt::AlignRight | Qt::AlignAbsolute;
}

QVariant PointTableModel::data(const QModelIndex& cell, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter | sideOf(cell.column()));
    if (role == Qt::ForegroundRole && control_ && control_->curve()->isLocked())
        return QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text);
    const SplineBase::PointInfo* const point = pointOf(cell);
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole;
    return point && isText ? textOf(*point, cell.column(), role) : QVariant();
}

QString PointTableModel::textOf(const SplineBase::PointInfo& point, int column, int role) const
{
    if (column == Type)
        return PointTypeTexts::shown(PointTypes::of(point.type).name);
    const double number = shownNumber(point, column);
    const AxisText& host = axisText(column);
    if (host && (role == Qt::DisplayRole || (role == Qt::EditRole && host.canRead())))
        return host.write(number);
    return role == Qt::DisplayRole ? NumberText::brief(number, locale_) : NumberText::full(number, locale_);
}

const AxisText& PointTableModel::axisText(int column) const
{
    static const AxisText plain;
    return column == Time ? view_.timeText : column == Value ? view_.valueText : plain;
}

double PointTableModel::shownNumber(const SplineBase::PointInfo& point, int column) const
{
    const double number = SplineEdits::read(point, numbers[std::size_t(column)].field);
    return column == Time ? view_.shownTime(number) : number;
}

QVariant PointTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter | (orientation == Qt::Vertical ? Qt::AlignRight : sideOf(section)));
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section;
    const QStringList titles = {view_.writesFrames() ? tr("Frame") : tr("Time"),
                                tr("Value"),
                                tr("Type"),
                                tr("Incoming"),
                                tr("Outgoing"),
                                tr("Tension"),
                                tr("Continuity"),
                                tr("Bias"),
                                tr("Ease To"),
                                tr("Ease From")};
    return titles.value(section);
}

Qt::ItemFlags PointTableModel::flags(const QModelIndex& cell) const
{
    if (!cell.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
    flags.setFlag(Qt::ItemIsEditable, control_ && !control_->curve()->isLocked());
    return flags;
}

bool PointTableModel::setData(const QModelIndex& cell, const QVariant& value, int role)
{
    return role == Qt::EditRole && setText(cell, value.toString(), {cell.row()});
}

bool PointTableModel::setText(const QModelIndex& cell, const QString& text, const std::vector<int>& rows)
{
    const SplineBase::PointInfo* const point = pointOf(cell);
    if (!point)
        return false;
    std::vector<PointSerial> points(rows.size());
    std::transform(rows.begin(), rows.end(), points.begin(), [this](int row) { return pointIn(row); });
    if (cell.column() == Type) {
        const qsizetype index = PointTypeTexts::names().indexOf(text);
        if (index < 0)
            return false;
        const std::int32_t type = PointTypes::all()[std::size_t(index)].number;
        return edit(tr("Change the type of a point of %1"), tr("Change the type of %1 points of %2"),
                    points.size(), [&](SplineBase& spline) { SplineEdits::setType(spline, points, type); });
    }
    double number = 0.0;
    const Field field = numbers[std::size_t(cell.column())].field;
    return readNumber(*point, cell.column(), text, number) &&
           edit(tr("Change a number of a point of %1"), tr("Change a number of %1 points of %2"),
                points.size(),
                [&](SplineBase& spline) { SplineEdits::write(spline, points, field, number); });
}

QString PointTableModel::faultOf(const QModelIndex& cell, const QString& text) const
{
    const SplineBase::PointInfo* const point = pointOf(cell);
    if (point && control_->curve()->isLocked())
        return tr("The curve is locked.");
    double number = 0.0;
    const bool canRead = !point || cell.column() == Type || readNumber(*point, cell.column(), text, number);
    return canRead ? QString() : tr("No finite number was typed. The old one stays.");
}

bool PointTableModel::readNumber(const SplineBase::PointInfo& point, int column, const QString& text,
                                 double& number) const
{
    const auto& [field, bound] = numbers[std::size_t(column)];
    number = SplineEdits::read(point, field);
    if (text == textOf(point, column, Qt::EditRole) ||
        NumberText::withPoint(text) == NumberText::full(shownNumber(point, column), QLocale::c()))
        return true;
    const std::optional<double> typed = axisText(column).read(text);
    number = typed.value_or(0.0);
    if (column == Time)
        number = view_.timeOfShown(number);
    if (bound != 0.0)
        number = std::clamp(number, -bound, bound);
    return typed && std::isfinite(number);
}

bool PointTableModel::edit(const QString& one, const QString& many, std::size_t count,
                           const std::function<void(SplineBase&)>& work)
{
    const QPointer<ControlSplineNode> control(control_);
    const QPointer<PointTableModel> guard(this);
    const bool hasChanged = control->edit(one, many, count, work);
    if (hasChanged && guard)
        Q_EMIT edited(control);
    return hasChanged;
}

} // namespace curveeditor

#include "moc_PointTableModel.cpp"
