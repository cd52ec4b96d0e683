// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QObject>
#include <QString>

#include <cstdint>
#include <iosfwd>
#include <memory>

class CanvasExpression;
class CanvasFunctionBase;
class CanvasSpline;
class FunctionFloatBase;
class FunctionParserBase;
class ParseMessage;
class QAction;
class QPainter;
class QWidget;
class SplineBase;
class ViewPort;

/// One curve on the canvas: a named function of time that is either a spline or an expression. It joins the
/// host's spline and the host's expression holder to the pictures of both kinds, to an entry of the "Curves"
/// menu and to a clamp range.
///
/// The canvas owns it. Spline and holder are the host's and outlive it, so a curve that leaves the canvas and
/// comes back keeps its content. The object in the holder is replaced and deleted here. Both pictures exist
/// whatever the kind is. Times are in time units, values in value units.
///
/// `curveHasChanged` may run a host's slot that takes this very curve off the canvas: whoever causes it must
/// not touch the curve afterwards without a guard (`QPointer`).
class CurveNodeBase : public QObject
{
    Q_OBJECT

public:
    /// Adds an entry of the curve's name to `menu`, in an exclusive group that belongs to that menu, and
    /// makes the curve the current one of `canvas`. A filled holder makes it an expression curve. `menu` may
    /// be null; `canvas`, `menu`, `spline` and `expression` are not owned.
    CurveNodeBase(CanvasFunctionBase* canvas, QWidget* menu, const QString& name, const QColor& color,
                  float defaultValue, SplineBase* spline, FunctionFloatBase** expression, float minValue,
                  float maxValue);
    ~CurveNodeBase() override;

    bool changed = false; ///< The picture is out of date; set by every edit, cleared by `draw`.

    /// The full name: group, ".", curve.
    QString getName() const { return name; }
    void setName(const QString& newName);

    /// 0 for a spline, else an expression.
    int getKind() const { return kind; }
    SplineBase* getSpline() const { return spline; }
    /// What the holder holds; null if it is empty.
    FunctionFloatBase* getExpression() const;
    CanvasSpline* getCanvasSpline() const { return canvasSpline.get(); }
    CanvasExpression* getCanvasExpression() const { return canvasExpression.get(); }

    /// Checks the curve's entry in the menu; the exclusive group unchecks the others.
    void toggleAction();

    /// The colour of the curve; when it is not current it is drawn in the mean of both colours.
    void setColor(const QColor& color, const QColor& background);
    QColor getColor() const;

    /// The value that is not clamped. An expression reads the variables `t` and `f`, which the caller has
    /// set; `time` plays no part then. An empty holder gives 0.0.
    double getValue(const double& time) const;
    /// The value within the clamp range, of an expression with `t` and `f` set for `time` and given back. An
    /// empty holder gives 0.0. The lower bound is tested first; not-a-number stays what it is.
    double getClampedValue(const double& time) const;

    /// Rebuilds the picture if the curve is changed or the view dirty, and paints it. An expression is
    /// sampled at 5000 times across the view; where it has no finite value the line has a gap.
    void draw(ViewPort* viewport, QPainter* painter);

    /// The curve shows its spline. With `deleteExpression` the expression is deleted and the holder empty.
    void setSplineMode(const bool& deleteExpression);
    /// The curve shows its expression, and nothing while the holder is empty.
    void setExpressionMode();

    /// Takes over `newExpression` (null is allowed) in place of the one in the holder, and asks the editor
    /// whether the curve now depends on itself. If it does, the user is told, and `message` gets code
    /// `CyclicDependency` and a span for each place where its text names the curve that closes the cycle. The
    /// expression stays in the holder all the same. Runs a message box, during which the curve may go.
    void assignExpression(FunctionFloatBase* newExpression, ParseMessage& message);

    /// Back to a spline of one point at the default value; the expression is deleted. Reports the change.
    void resetCurve();

    /// Emits `curveHasChanged` with the first and the last part of the name, which dots divide; a name
    /// without a dot gives itself twice.
    void emitCurveChanged();

    /// Reads the kind and the body of a curve file into this curve, whatever kind it was. Returns false, and
    /// leaves the curve as it was, if that is not a whole curve or an expression that can't be parsed. No
    /// dependency check is run. The selection does not outlive it.
    bool read(std::istream& in, FunctionParserBase* parser);
    /// Writes the kind and the body. Returns false if the stream failed, or, with nothing written, if there
    /// is no expression to be written.
    bool write(std::ostream& out) const;

public Q_SLOTS:
    /// Makes this curve the current one of its canvas.
    void setThisNode();
    /// Offers this curve to the canvas for a new point at the mark; only the current curve gets one.
    void createNodeAtCursor();

Q_SIGNALS:
    /// The user has changed the curve.
    void curveHasChanged(QString& nodeName, QString& curveName);

private:
    void connectMenu();
    void setExpression(std::unique_ptr<FunctionFloatBase> newExpression);
    bool readSpline(std::istream& in);
    bool readExpression(std::istream& in, FunctionParserBase* parser);
    void sampleExpression(const ViewPort& viewport);
    double clamped(double value) const;
    double framesPerTimeUnit() const;

    CanvasFunctionBase* canvas;
    std::unique_ptr<QAction> action;
    QString name;
    std::int32_t kind = 0;
    SplineBase* spline;
    FunctionFloatBase** expression;
    std::unique_ptr<CanvasSpline> canvasSpline;
    std::unique_ptr<CanvasExpression> canvasExpression;
    float defaultValue;
    float minValue;
    float maxValue;
};
