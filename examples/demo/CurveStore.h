// SPDX-License-Identifier: MIT
#pragma once

#include "PlaneRange.h"

#include <curveeditor/model/CurveVariables.h>
#include <curveeditor/model/SplineBase.h>

#include <QColor>
#include <QHash>
#include <QString>

#include <memory>
#include <string>
#include <vector>

class FunctionFloatBase;

/// One curve of the host. While `expression` is null the curve is its spline, else the expression.
struct Curve
{
    Curve(const QString& curveGroup, const QString& curveName) : group(curveGroup), name(curveName) {}
    Curve(const Curve&) = delete;
    Curve& operator=(const Curve&) = delete;
    /// Deletes what is left in `expression`.
    ~Curve();

    QString fullName() const { return group + u'.' + name; }

    QString group;
    QString name;
    QColor color = Qt::white;
    PlaneRange range; ///< what the host shows when the curve is opened
    float defaultValue = 0.0F;
    float minValue = -1e6F; ///< clamp of the value
    float maxValue = 1e6F;
    SplineBase spline;
    FunctionFloatBase* expression = nullptr; ///< the holder that an editor fills and empties
};

/// All curves of the host. It owns them, and offers each to the expressions of the others as a variable. An
/// editor must be gone, or have been told to remove a curve, before the curve goes.
class CurveStore
{
public:
    /// From now on the parser of the process knows the curves of this store.
    CurveStore();
    ~CurveStore();
    CurveStore(const CurveStore&) = delete;
    CurveStore& operator=(const CurveStore&) = delete;

    /// Adds a curve; null if its full name is taken.
    Curve* add(const QString& group, const QString& name);

    /// Makes the curve the formula that `text` holds. Returns false, and leaves the curve alone, if `text`
    /// has a fault.
    bool setExpression(Curve& curve, const std::string& text);

    /// Returns false, and changes nothing, if the new full name is taken or `newName` is empty.
    bool rename(Curve& curve, const QString& newName);

    /// Frees the curve.
    void remove(Curve& curve);

    const std::vector<std::unique_ptr<Curve>>& getCurves() const { return curves_; }

    /// The curve of that name, null if there is none.
    Curve* find(const QString& group, const QString& name) const;

    /// The curve that an editor reports by these names: the parts of its full name before the first and
    /// behind the last dot.
    Curve* findReported(const QString& group, const QString& name) const;

private:
    void forgetVariable(const std::string& variable);

    std::vector<std::unique_ptr<Curve>> curves_;
    QHash<QString, Curve*> byFullName_;
    CurveVariables variables_;
};

/// Gives the spline of a curve fewer points, none of its values further away than that share of their span. Returns
/// false, and changes nothing, if no fewer do; so it is for a formula.
bool simplify(Curve& curve, double percent);

/// The value of a curve at a time within its clamps; `fps` frames make a time unit.
double valueAt(const Curve& curve, double time, double fps);
