// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class CurveNodeBase;
class ViewPort;
struct CurveEditorTheme;

namespace curveeditor {

/// Makes the lines of curves that are shown as expressions. They are sampled together, block by block of times:
/// where expressions read each other each is evaluated twice for all of them, once to be read and once to be
/// drawn, however many read it. Only for those that lie on a circle, or lead to one, that does not hold.
///
/// An expression is sampled at 5000 times across the view. Where all of them, with those that they read, have more
/// than 16384 nodes, each one that by itself reads more than these is sampled at fewer times, but at 64 at least, so
/// that the work has a bound. Where an expression has no finite value its line has a gap.
namespace ExpressionSampler {

/// The curves have expressions. Each gets its line for the view.
void sample(const std::vector<CurveNodeBase*>& curves, const ViewPort& viewport,
            const CurveEditorTheme& theme);

} // namespace ExpressionSampler

} // namespace curveeditor
