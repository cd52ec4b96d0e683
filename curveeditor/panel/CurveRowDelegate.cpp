// SPDX-License-Identifier: MIT
#include <curveeditor/panel/CurveRowDelegate.h>

#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/ShortenedName.h>

#include <QPainter>
#include <QPainterPath>
#include <QStyle>

namespace curveeditor {

namespace {

constexpr QColor outline(128, 128, 128); // so that a curve in the colour of the list has its square too
constexpr int gap = 3;                   // beside a mark
constexpr double paleness = 0.45;        // of marks that are off
constexpr double shareOfUnseen = 0.6;    // of the colour of texts, in names of locked and hidden curves

void drawPadlock(QPainter& painter, const QRectF& place, const QColor& color, const QColor& edge)
{
    const double unit = place.height() / 8.0;
    painter.setPen(QPen(color, unit));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(place.adjusted(2.0 * unit, unit, -2.0 * unit, -unit), 2.0 * unit, 2.0 * unit);
    painter.setPen(edge);
    painter.setBrush(color);
    painter.drawRect(place.adjusted(unit, 4.0 * unit, -unit, -unit));
}

/// Crossed out if the curve is hidden.
void drawEye(QPainter& painter, const QRectF& place, const QColor& color, bool isHidden)
{
    const double unit = place.height() / 8.0;
    const QPointF left(place.left(), place.center().y()), right(place.right(), place.center().y());
    QPainterPath eye(left);
    eye.quadTo(QPointF(place.center().x(), place.top() - unit), right);
    eye.quadTo(QPointF(place.center().x(), place.bottom() + unit), left);
    painter.setPen(QPen(color, unit));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(eye);
    painter.setBrush(color);
    painter.drawEllipse(place.center(), unit, unit);
    if (isHidden)
        painter.drawLine(place.bottomLeft(), place.topRight());
}

/// Filled if the curve is seen alone.
void drawRing(QPainter& painter, const QRectF& place, const QColor& color, bool isSolo)
{
    const double unit = place.height() / 8.0;
    painter.setPen(QPen(color, unit));
    painter.setBrush(isSolo ? QBrush(color) : QBrush());
    painter.drawEllipse(place.adjusted(unit, unit, -unit, -unit));
}

void drawMark(QPainter& painter, CurveMark mark, const QRectF& place, const QColor& color, bool isOn)
{
    QColor shown = color;
    if (!isOn)
        shown.setAlphaF(float(paleness));
    if (mark == CurveMark::Lock)
        drawPadlock(painter, place, shown, shown);
    else if (mark == CurveMark::Hide)
        drawEye(painter, place, shown, isOn);
    else
        drawRing(painter, place, shown, isOn);
}

/// Empty where the row is too short for it.
QRect placeOf(CurveMark mark, const QRect& row, int side)
{
    constexpr int count = int(std::size(allCurveMarks));
    const int width = side + 2 * gap;
    if (row.width() < 2 * CurveRowDelegate::widthOfMarks(side))
        return {};
    return {row.right() + 1 - (count - int(mark)) * width, row.top(), width, row.height()};
}

bool shows(const QStyleOptionViewItem& option, const QModelIndex& row, CurveMark mark)
{
    const bool isUnderMouse = option.state.testFlag(QStyle::State_MouseOver);
    return isUnderMouse || CurveRowDelegate::stateOf(row.data(CurveRowDelegate::roleOf(mark))).isOn;
}

/// For a formula: in what stands out of the square.
void drawLetter(QPainter& painter, const QRect& square, const QColor& color)
{
    QFont font(QStringLiteral("Serif"));
    font.setItalic(true);
    font.setBold(true);
    font.setPixelSize(square.height());
    painter.setFont(font);
    const bool isDark = contrastOf(color, Qt::white) > contrastOf(color, Qt::black);
    painter.setPen(isDark ? Qt::white : Qt::black);
    painter.drawText(square, int(Qt::AlignCenter) | int(Qt::TextDontClip), QStringLiteral("f"));
}

QPixmap squareOf(const QColor& color, const QColor& ring, bool isLocked, bool isFormula, const QSize& size,
                 qreal ratio)
{
    QPixmap square(size * ratio);
    square.fill(isLocked ? QColor(Qt::transparent) : ring);
    const int edge = qMax(1, qRound(ratio));
    QPainter painter(&square);
    painter.setRenderHint(QPainter::Antialiasing, isLocked);
    if (isLocked)
        drawPadlock(painter, QRectF(square.rect()), color, ring);
    else
        painter.fillRect(square.rect().adjusted(edge, edge, -edge, -edge), color);
    if (isFormula && !isLocked)
        drawLetter(painter, square.rect(), color);
    painter.end();
    square.setDevicePixelRatio(ratio);
    return square;
}

/// In the room that the row has, and so that the name does not run into the marks.
void shortenName(QStyleOptionViewItem& option, const QModelIndex& row)
{
    if (option.rect.isEmpty())
        return;
    const QRect text =
        option.widget->style()->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
    const int margin =
        option.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &option, option.widget) + 1;
    int width = text.width() - 2 * margin;
    for (const CurveMark mark : allCurveMarks) {
        const QRect place = placeOf(mark, option.rect, option.decorationSize.height());
        if (!place.isEmpty() && shows(option, row, mark))
            width = qMin(width, place.left() - text.left() - 2 * margin);
    }
    option.text = shortenedName(option.fontMetrics, option.text, width);
}

} // namespace

std::optional<CurveMark> CurveRowDelegate::markAt(const QPoint& place, const QRect& row, int side)
{
    for (const CurveMark mark : allCurveMarks) {
        if (placeOf(mark, row, side).contains(place))
            return mark;
    }
    return std::nullopt;
}

int CurveRowDelegate::widthOfMarks(int side)
{
    return int(std::size(allCurveMarks)) * (side + 2 * gap);
}

void CurveRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& row) const
{
    QStyledItemDelegate::initStyleOption(option, row);
    const auto color = row.data(Qt::DecorationRole).value<QColor>();
    if (!color.isValid() || !option->widget)
        return;
    const bool isLocked = stateOf(row.data(roleOf(CurveMark::Lock))).isOn;
    option->font.setItalic(isLocked);
    if (isLocked || row.data(unseenRole).toBool())
        option->palette.setColor(QPalette::Text,
                                 mixedColor(option->palette.color(QPalette::Text),
                                            option->palette.color(QPalette::Base), shareOfUnseen));
    const auto square = [&](const QColor& ring) {
        return squareOf(color, ring, isLocked, row.data(formulaRole).toBool(), option->decorationSize,
                        option->widget->devicePixelRatioF());
    };
    option->icon = QIcon(square(outline));
    option->icon.addPixmap(square(option->palette.color(QPalette::HighlightedText)), QIcon::Selected);
    shortenName(*option, row);
}

/// Of the whole name.
QSize CurveRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& row) const
{
    QStyleOptionViewItem whole = option;
    whole.rect = QRect();
    return QStyledItemDelegate::sizeHint(whole, row);
}

void CurveRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& row) const
{
    QStyledItemDelegate::paint(painter, option, row);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QColor color = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const int side = option.decorationSize.height();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    for (const CurveMark mark : allCurveMarks) {
        const QRect place = placeOf(mark, option.rect, side);
        if (place.isEmpty() || !shows(option, row, mark))
            continue;
        QRectF square(0.0, 0.0, side, side);
        square.moveCenter(QRectF(place).center());
        drawMark(*painter, mark, square.adjusted(1.0, 1.0, -1.0, -1.0), color,
                 stateOf(row.data(roleOf(mark))).isOn);
    }
    painter->restore();
}

} // namespace curveeditor

#include "moc_CurveRowDelegate.cpp"
