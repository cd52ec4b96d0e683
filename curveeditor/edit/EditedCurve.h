// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/CurveOptions.h>
#include <curveeditor/edit/EditorSettings.h>
#include <curveeditor/model/CurveDiff.h>
#include <curveeditor/model/FunctionFloatBase.h>

#include <QString>

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace curveeditor {

/// One curve as hands edit it: the host's spline, the host's variable for an expression, and which of the two
/// shows. It outlives the curve's stay on the canvas, so that edits can be taken back later.
///
/// Spline and variable are the host's and must live until `letGo`. The object in the variable is replaced and
/// deleted here. Who writes does so between `CurveEdit::begin` and `commit`, and gets the spline from the door.
class EditedCurve
{
public:
    /// A filled variable makes it an expression curve. Both pointers may be null.
    EditedCurve(const QString& fullName, SplineBase* hostSpline, FunctionFloatBase** hostVariable,
                std::shared_ptr<const EditorSettings> settings);

    QString name;         ///< the full name: group, ".", curve
    CurveOptions options; ///< the host's; sound, see `PointLimits`
    /// The host's, see `CurveEdit::constrain`; null for none.
    std::function<void(SplineBase&)> constraint;
    CurveDiff constrained; ///< what that wrote last in the open edit

    bool isLockedByUser = false;

    /// No edit of it opens.
    bool isLocked() const { return options.locked || isLockedByUser; }
    /// Whether the user may give points that type.
    bool offers(std::int32_t type) const;

    /// To be read; `CurveEdit::spline` gives it to be written. Null if there is none.
    const SplineBase* spline() const { return spline_; }
    FunctionFloatBase** variable() const { return variable_; }
    /// What the variable holds; null if it is empty.
    FunctionFloatBase* expression() const { return variable_ ? *variable_ : nullptr; }
    /// What was entered for the expression, or what it gives as its text where the host has set it.
    std::string formula() const;
    CurveKind kind() const { return kind_; }
    CurveState state() const;
    /// The same into a state whose memory is used again.
    void copyTo(CurveState& state) const;
    /// Whether `state` is what the curve holds now, the kind aside.
    std::uint64_t fingerprint() const;

    /// See `SplineBase::mend`.
    void mend();
    void setKind(CurveKind kind) { kind_ = kind; }
    /// The spline shows; the expression stays behind it, or goes.
    void showSpline(bool dropsExpression);
    /// Puts `expression` into the variable; `text` is what it was parsed from. What the variable held is deleted or,
    /// if its text can't be parsed again or would read other variables then, retired: kept for a while, as it may have to
    /// come back.
    void setExpression(std::unique_ptr<FunctionFloatBase> expression, const std::string& text);
    /// What `work` finds out while the variable holds `expression`, which stays the caller's.
    bool tryOut(FunctionFloatBase& expression, const std::function<bool()>& work) const;
    /// Deletes what is retired, and gives the texts that can't come back any more.
    std::vector<std::string> forgetRetired();
    /// Back to a spline of one point at time 0.0, without an expression. The behaviours stay.
    void reset(double value);
    /// Takes the whole state. Returns false, and changes nothing, if its formula can't be had any more.
    bool restore(const CurveState& state);
    /// Whether kind and formula are those before `diff`, which `step` takes as they are.
    bool isAt(const CurveDiff& diff) const;
    /// Makes of the curve before `diff` the one behind it; without the spline if another curve that shares it has stepped
    /// already. Returns false, and changes nothing, if the formula can't be had any more or the spline is not the one
    /// before `diff`.
    bool step(const CurveDiff& diff, bool stepsSpline);

    /// Reads what `CurveFile` writes into the curve, whatever kind it was. Returns false, and leaves the curve as
    /// it was, if that is not a whole curve or a formula that can't be parsed.
    bool read(std::istream& in);

    /// The host takes the curve away: nothing here reaches spline and variable any more.
    void letGo();

private:
    friend class CurveEdit;

    bool restoreFormula(const std::string& text, CurveKind kind, const std::function<bool()>& restoreSpline);
    bool readSpline(std::istream& in);
    bool readExpression(std::istream& in);
    std::unique_ptr<FunctionFloatBase> expressionOf(const std::string& text);

    SplineBase* spline_;
    FunctionFloatBase** variable_;
    CurveKind kind_;
    std::shared_ptr<const EditorSettings> settings_;
    std::vector<std::pair<std::string, std::unique_ptr<FunctionFloatBase>>> retired_; ///< with their formulas
    std::string entered_;       ///< the text of the expression that was set last ...
    std::string enteredResult_; ///< ... and what that expression gives as its text
};

} // namespace curveeditor
