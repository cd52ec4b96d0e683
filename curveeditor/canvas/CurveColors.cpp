// SPDX-License-Identifier: MIT
#include <curveeditor/canvas/CurveColors.h>

#include <curveeditor/canvas/ColorContrast.h>
#include <curveeditor/canvas/CurveEditorTheme.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace curveeditor {

namespace {

constexpr int keptApart = 23;
constexpr double farApart = 0.08;
constexpr double apart = 0.05;
constexpr double weightOfHue = 8.0;
constexpr double weightOfChroma = 4.0; // of what is lost of it: a grey has no hue that could be wrong
constexpr int stepOfCandidates = 15;

/// How much another colour is drawn than was asked for.
double changeOf(const Oklab& from, const Oklab& to)
{
    const double lostChroma = std::max(0.0, from.chroma() - to.chroma());
    return std::pow(distance(from, to), 2) + weightOfHue * std::pow(hueDistance(from, to), 2) +
           weightOfChroma * std::pow(lostChroma, 2);
}

bool standsOut(const QColor& color, const std::vector<QColor>& backgrounds)
{
    return std::all_of(backgrounds.begin(), backgrounds.end(), [&](const QColor& background) {
        return contrastOf(color, background) >= contrastOfParts;
    });
}

} // namespace

CurveColors::CurveColors(const CurveEditorTheme& theme)
{
    setTheme(theme);
}

void CurveColors::setTheme(const CurveEditorTheme& theme)
{
    adapts_ = theme.adaptsCurveColors;
    backgrounds_ = {theme.canvas, theme.selection};
    candidates_.clear();
    if (!adapts_)
        return;
    for (int red = 0; red < 256; red += stepOfCandidates)
        for (int green = 0; green < 256; green += stepOfCandidates)
            for (int blue = 0; blue < 256; blue += stepOfCandidates)
                if (const QColor color(red, green, blue); standsOut(color, backgrounds_))
                    candidates_.push_back({color, Oklab::of(color)});
    for (auto which = assigned_.begin(); which != assigned_.end(); ++which)
        assign(which);
}

void CurveColors::add(const QColor& color)
{
    const auto known = ofColor_.constFind(color.rgb());
    if (known != ofColor_.constEnd()) {
        ++(*known)->curves;
        return;
    }
    assigned_.push_back({{color, Oklab::of(color)}, {}, 1});
    const auto which = std::prev(assigned_.end());
    ofColor_.insert(color.rgb(), which);
    if (adapts_)
        assign(which);
}

void CurveColors::remove(const QColor& color)
{
    const auto known = ofColor_.constFind(color.rgb());
    if (known == ofColor_.constEnd() || --(*known)->curves > 0)
        return;
    assigned_.erase(*known);
    ofColor_.erase(known);
}

QColor CurveColors::lineOf(const QColor& color) const
{
    if (!adapts_)
        return color;
    const auto known = ofColor_.constFind(color.rgb());
    return known == ofColor_.constEnd() ? contrastingColor(color, backgrounds_, contrastOfParts)
                                        : (*known)->drawn.color;
}

/// The nearest colour that is far enough from those before it, else the one that comes closest to that.
void CurveColors::assign(InOrder::iterator which) const
{
    struct Neighbour
    {
        Oklab place;
        double least;
    };
    std::vector<Neighbour> neighbours;
    const Oklab& wanted = which->host.place;
    for (auto before = which; before != assigned_.begin() && neighbours.size() < keptApart;) {
        --before;
        const bool isFar = distance(before->host.place, wanted) >= farApart;
        neighbours.push_back({before->drawn.place, isFar ? farApart : apart});
    }
    const auto room = [&](const Oklab& place) {
        double least = std::numeric_limits<double>::max();
        for (const Neighbour& neighbour : neighbours)
            least = std::min(least, distance(neighbour.place, place) / neighbour.least);
        return least;
    };
    const QColor nearest = contrastingColor(which->host.color, backgrounds_, contrastOfParts);
    which->drawn = {nearest, Oklab::of(nearest)};
    double mostRoom = room(which->drawn.place);
    if (mostRoom >= 1.0)
        return;
    double leastChange = std::numeric_limits<double>::max();
    for (const Line& candidate : candidates_) {
        const double change = changeOf(wanted, candidate.place);
        if (mostRoom >= 1.0 && change >= leastChange)
            continue;
        const double own = std::min(1.0, room(candidate.place));
        if (own > mostRoom || (own >= 1.0 && change < leastChange)) {
            mostRoom = own;
            leastChange = change;
            which->drawn = candidate;
        }
    }
}

} // namespace curveeditor
