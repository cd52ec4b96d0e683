// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QString>

/// What an edit did to a curve, as `CurveEditor::curveEdited` tells it. A value.
struct CurveChange
{
    /// Whether more is to follow.
    enum class Phase {
        Preview, ///< a step of an edit that goes on: of a drag, or of typing in a field
        Commit   ///< the edit is done, or a step of the undo stack is
    };
    /// Where the change comes from.
    enum class Cause {
        Edit,  ///< the user edited the curve
        Undo,  ///< the undo stack took an edit back ...
        Redo,  ///< ... or did it again
        Cancel ///< the user took back what was previewed
    };

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
};

Q_DECLARE_METATYPE(CurveChange)
