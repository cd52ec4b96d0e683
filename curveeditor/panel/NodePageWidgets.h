// SPDX-License-Identifier: MIT
#pragma once

class CustomEditLine;
class QComboBox;
class QPushButton;
class QStackedWidget;
class TcbCurveFrame;

/// The widgets of the node page, none of them owned, none of them null.
struct NodePageWidgets
{
    QPushButton* prevNode = nullptr;               ///< steps to the point before
    QPushButton* nextNode = nullptr;               ///< steps to the point behind
    CustomEditLine* node = nullptr;                ///< index of the point, the first is 0
    CustomEditLine* posX = nullptr;                ///< time, or frame number in frames mode
    CustomEditLine* posY = nullptr;                ///< value
    CustomEditLine* tension = nullptr;             ///< -10 ... 10
    CustomEditLine* continuity = nullptr;          ///< -10 ... 10
    CustomEditLine* bias = nullptr;                ///< -10 ... 10
    CustomEditLine* incoming = nullptr;            ///< slope, values per time unit
    CustomEditLine* outgoing = nullptr;            ///< slope, values per time unit
    CustomEditLine* easeFrom = nullptr;            ///< slows the departure down, -1 ... 1
    CustomEditLine* easeTo = nullptr;              ///< slows the arrival down, -1 ... 1
    QComboBox* nodeTypeCombo = nullptr;            ///< the types of points
    QStackedWidget* nodeTypeWidgetStack = nullptr; ///< page 0 Tcb parameters, page 1 tangents
    TcbCurveFrame* tcbCurve = nullptr;             ///< picture of what tension, continuity, bias and ease do
};
