// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/canvas/CanvasFunctionBase.h>
#include <curveeditor/shell/NumberLine.h>

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <optional>
#include <span>

class CurveNodeBase;
class QCheckBox;
class QFormLayout;
class QLabel;
class QPushButton;

namespace curveeditor {

/// Asks how points of a curve are to be made anew, and says below the fields what that gives, while they are typed in. OK is enabled as long as it can be done.
///
/// A child of the editor, which deletes it before its canvas goes. To be opened with `open`: no loop of its own
/// runs, so the host may do anything meanwhile. It is rejected when the editor is hidden or the curve leaves the
/// canvas, and deletes itself in the end.
class FitDialog : public QDialog
{
    Q_OBJECT

public:
    FitDialog(QWidget* editor, CanvasFunctionBase& canvas, CurveNodeBase* curve);

    void accept() override;
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

    struct Outcome
    {
        QString text;
        bool isPossible = false;
    };
    /// What the fields ask for now.
    virtual Outcome work() = 0;
    virtual void apply() = 0;
    /// Whether that work is to be done anew before it is applied.
    virtual bool isStale() const { return false; }
    virtual void takeBack() {}
    /// Sets the title and the texts of the fields.
    virtual void translate() = 0;

    CanvasFunctionBase& canvas() const { return canvas_; }
    /// The curve that was given; null if it is not on the canvas any more.
    CurveNodeBase* curve() const;

    /// A row of a label and a field; the name is that of the object.
    void addField(const char* name, QWidget* field);
    /// A row without a label.
    void addBox(const char* name, QCheckBox* box);
    NumberLine* addNumber(const char* name, double number);
    void setLabel(QWidget* field, const QString& text);
    /// To be called behind the last field: adds the rest, translates and does the work for the first time.
    void addOutcome();
    /// For changes of fields that are no lines.
    void fieldChanged();

    /// The curves of selected points that are not locked, or else the first one that is. There must be any.
    static CanvasCurves::Nodes editable(const CanvasFunctionBase& canvas);

    static QString toleranceHint();
    /// What the points of a fit are away at most, once they keep to the options of the curve.
    QString deviationText(double deviation, std::span<const SplineBase::PointInfo> points) const;
    /// A thousandth of that span as a number of few digits.
    static double usualTolerance(double lowest, double highest);

    /// Does the work for what the fields say now.
    void refresh();

private:
    void showTexts();

    CanvasFunctionBase& canvas_;
    QPointer<CurveNodeBase> curve_;
    QFormLayout* form_;
    QLabel* outcome_ = nullptr;
    QPushButton* ok_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QTimer* delay_; ///< until the work is done where it takes long
    qint64 workTime_ = 0;
};

} // namespace curveeditor
