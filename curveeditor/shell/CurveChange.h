// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/edit/EditPhase.h>

#include <curveeditor/model/CurveDiff.h>

#include <QMetaType>
#include <QString>

#include <memory>

/// What an edit did to a curve, as `CurveEditor::curveEdited` tells it. A value.
struct CurveChange
{
    using Phase = EditPhase;
    using Cause = EditCause;

    QString group; ///< as the host gave it to `addCurve`, or with the last rename
    QString curve; ///< the same

    /// @{
    /// The times, in time units, at which the value of the curve may have changed; an end may be infinite. Where
    /// `timeFirst` is greater than `timeLast` no value has changed.
    double timeFirst = 0.0;
    double timeLast = 0.0;
    /// @}

    Phase phase = Phase::Commit; ///< write an undo entry of your own on `Commit` only
    Cause cause = Cause::Edit;   ///< `Cancel` leaves the curve as it was before the previews
    /// What leads from the curve as it was at the `Commit` before to what it is now, also where an edit was taken back;
    /// without content at `Cancel`, and null at `Preview`. To be kept, and given to `CurveEditor::apply`.
    std::shared_ptr<const CurveDiff> diff = nullptr;

    QString
        text; ///< what was done, as a name for a step of it, at `Commit` with `Edit` or `Host`; else empty
    int merge =
        0; ///< with `Host`, what `CurveEditor::edit` got: those of one number, not 0, in a row are one step
};

Q_DECLARE_METATYPE(CurveChange)
