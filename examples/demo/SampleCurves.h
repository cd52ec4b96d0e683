// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class CurveStore;

/// Fills the store with the curves of a film scene and of a game character, in seconds, and with a group
/// "Observer": the CIE 1931 colour matching functions over the wavelength in nanometres. Every point type and
/// every behaviour is among them.
void addSampleCurves(CurveStore& store);

/// Full names of the sample curves with which the demo opens, the last one as the current curve.
QStringList curvesOpenAtStart();
