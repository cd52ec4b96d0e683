// SPDX-License-Identifier: MIT
#pragma once

/// The part of the plane that an editor is limited to: times in time units, values in value units.
struct PlaneRange
{
    double timeMin = 0.0;
    double timeMax = 1.0;
    double valueMin = 0.0;
    double valueMax = 1.0;

    friend bool operator==(const PlaneRange&, const PlaneRange&) = default;
};
