// SPDX-License-Identifier: MIT
#include <curveeditor/model/HermiteFit.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <utility>

namespace curveeditor {

namespace {

/// So little counts how much the pieces bend, beside the samples: it decides only what these leave open.
constexpr double bendingWeight = 1e-9;
/// A knot that is taken out changes so many others to each side.
constexpr std::size_t neighbours = 3;
/// From then on all samples of a piece that is not good become knots.
constexpr int thoroughRound = 60;
constexpr int roundLimit = thoroughRound + 8;

/// Symmetric equations whose matrix is zero far from the diagonal.
class BandedEquations
{
public:
    static constexpr std::size_t width = 5;

    explicit BandedEquations(std::size_t count) : rows_(count), right_(count) {}

    /// Only entries on or below the diagonal count.
    void add(std::size_t row, std::size_t column, double number)
    {
        if (row >= column)
            rows_[column][row - column] += number;
    }
    void addRight(std::size_t row, double number) { right_[row] += number; }

    /// By Cholesky's factors. Not finite where the equations leave an unknown open.
    std::vector<double> solution() &&
    {
        for (std::size_t j = 0; j < rows_.size(); ++j)
            eliminate(j);
        for (std::size_t j = rows_.size(); j-- > 0;) {
            for (std::size_t i = 1; i < reachFrom(j); ++i)
                right_[j] -= rows_[j][i] * right_[j + i];
            right_[j] /= rows_[j][0];
        }
        return std::move(right_);
    }

private:
    std::size_t reachFrom(std::size_t row) const { return std::min(width, rows_.size() - row); }
    void eliminate(std::size_t j)
    {
        for (std::size_t i = 1; i < reachFrom(j); ++i) {
            const double factor = rows_[j][i] / rows_[j][0];
            for (std::size_t k = i; k < reachFrom(j); ++k)
                rows_[j + i][k - i] -= factor * rows_[j][k];
            right_[j + i] -= factor * right_[j];
        }
    }

    std::vector<std::array<double, width>> rows_;
    std::vector<double> right_;
};

/// Where the number of a knot stands among the unknowns, if it is one.
struct Unknowns
{
    std::optional<std::size_t> value, left, right;
};

double finiteOrZero(double number)
{
    return std::isfinite(number) ? number : 0.0;
}

/// The number nearest to `slope` that lies between 0.0 and three times the chord's slope.
double limited(double slope, double chord)
{
    return std::clamp(slope, std::min(0.0, 3.0 * chord), std::max(0.0, 3.0 * chord));
}

double chordOf(const FitSamples& samples, const FitKnot& from, const FitKnot& to)
{
    return (to.value - from.value) / (samples.times[to.sample] - samples.times[from.sample]);
}

/// The curve between two knots as `SplineBase` reckons it, bit for bit.
class Piece
{
public:
    Piece(const FitSamples& samples, const FitKnot& from, const FitKnot& to)
        : start_(samples.times[from.sample]), length_(samples.times[to.sample] - start_), a_(from.value)
    {
        const double rise = to.value - from.value;
        const double leaving = from.right * length_, arriving = to.left * length_;
        b_ = leaving;
        c_ = 3.0 * rise - 2.0 * leaving - arriving;
        d_ = leaving + arriving - 2.0 * rise;
    }
    double operator()(double time) const
    {
        const double u = (time - start_) / length_;
        return ((d_ * u + c_) * u + b_) * u + a_;
    }

private:
    double start_, length_, a_, b_ = 0.0, c_ = 0.0, d_ = 0.0;
};

} // namespace

HermiteFit::HermiteFit(const FitSamples& samples, double tolerance, bool isMonotone)
    : samples_(samples), tolerance_(tolerance), isMonotone_(isMonotone)
{
    if (samples.last() > 0)
        timeUnit_ = samples.times.back() - samples.times.front();
    findCorners();
    if (isMonotone)
        findRuns();
}

std::vector<FitKnot> HermiteFit::knots()
{
    std::vector<FitKnot> knots = enoughKnots();
    removeSpareKnots(knots);
    return knots;
}

// The slope changes at a corner much more than around it. Two samples share a corner that lies between them. The
// slope changes at a step too, but there and back.
void HermiteFit::findCorners()
{
    const auto& [times, values] = samples_;
    const std::size_t count = times.size();
    std::vector<double> changes(count, 0.0);
    for (std::size_t i = 1; i + 1 < count; ++i)
        changes[i] = (values[i + 1] - values[i]) / (times[i + 1] - times[i]) -
                     (values[i] - values[i - 1]) / (times[i] - times[i - 1]);
    isCorner_.assign(count, false);
    for (std::size_t i = 2; i + 3 < count; ++i) {
        const double kink = std::abs(changes[i] + changes[i + 1]);
        if (kink > 4.0 * (std::abs(changes[i - 1]) + std::abs(changes[i + 2])))
            isCorner_[std::abs(changes[i]) < std::abs(changes[i + 1]) ? i + 1 : i] = true;
    }
}

void HermiteFit::findRuns()
{
    rises_.assign(1, 0);
    falls_.assign(1, 0);
    for (std::size_t i = 1; i <= samples_.last(); ++i) {
        rises_.push_back(rises_.back() + std::size_t(samples_.values[i] > samples_.values[i - 1]));
        falls_.push_back(falls_.back() + std::size_t(samples_.values[i] < samples_.values[i - 1]));
    }
}

FitKnot HermiteFit::knotAt(std::size_t sample) const
{
    FitKnot knot;
    knot.sample = sample;
    knot.value = samples_.values[sample];
    knot.isCorner = isCorner_[sample];
    return knot;
}

std::vector<FitKnot> HermiteFit::firstKnots() const
{
    const auto& values = samples_.values;
    std::vector<FitKnot> knots;
    const auto keep = [&](std::size_t sample, bool isTurn) {
        if (!knots.empty() && knots.back().sample >= sample)
            return;
        knots.push_back(knotAt(sample));
        knots.back().isKept = knots.back().isPinned = true;
        knots.back().isTurn = isTurn;
    };
    keep(0, false);
    std::size_t greatest = 0, least = 0;
    int direction = 0;
    for (std::size_t i = 1; i <= samples_.last(); ++i) {
        if (values[i] > values[greatest])
            greatest = i;
        if (values[i] < values[least])
            least = i;
        if (direction >= 0 && values[i] < values[greatest] - 2.0 * tolerance_) {
            keep(greatest, true);
            direction = -1;
            least = i;
        } else if (direction <= 0 && values[i] > values[least] + 2.0 * tolerance_) {
            keep(least, true);
            direction = 1;
            greatest = i;
        }
    }
    keep(samples_.last(), false);
    return knots;
}

HermiteFit::Sums HermiteFit::sumsOver(std::size_t first, std::size_t last) const
{
    Sums sums;
    const double start = samples_.times[first];
    const double length = samples_.times[last] - start;
    const double origin = samples_.values.front();
    for (std::size_t i = first; i < last; ++i) {
        const double u = (samples_.times[i] - start) / length, v = 1.0 - u;
        const double value = samples_.values[i] - origin;
        const std::array<double, 4> basis = {v * v * (1.0 + 2.0 * u), u * v * v, u * u * (3.0 - 2.0 * u),
                                             -u * u * v};
        for (std::size_t row = 0; row < 4; ++row) {
            for (std::size_t column = 0; column <= row; ++column)
                sums.products[row][column] += basis[row] * basis[column];
            sums.right[row] += basis[row] * value;
        }
    }
    const double root = std::sqrt(3.0);
    for (const std::array<double, 4>& row :
         {std::array{0.0, -1.0, 0.0, 1.0}, std::array{2.0 * root, root, -2.0 * root, root}}) {
        for (std::size_t i = 0; i < 4; ++i) {
            for (std::size_t k = 0; k <= i; ++k)
                sums.products[i][k] += bendingWeight * row[i] * row[k];
        }
    }
    const double scale = length / timeUnit_;
    const std::array<double, 4> scales = {1.0, scale, 1.0, scale};
    for (std::size_t i = 0; i < 4; ++i) {
        sums.right[i] *= scales[i];
        for (std::size_t k = 0; k <= i; ++k)
            sums.products[k][i] = sums.products[i][k] *= scales[i] * scales[k];
    }
    return sums;
}

void HermiteFit::solve(std::vector<FitKnot>& knots, Edges edges) const
{
    std::vector<Unknowns> unknowns(knots.size());
    std::size_t count = 0;
    for (std::size_t i = 0; i < knots.size(); ++i) {
        const FitKnot& knot = knots[i];
        if (edges == Edges::Fixed && isInnerEdge(knots, i))
            continue;
        if (!knot.isPinned)
            unknowns[i].value = count++;
        if (!knot.isTurn || knot.isCorner) {
            unknowns[i].left = count++;
            unknowns[i].right = knot.isCorner ? count++ : *unknowns[i].left;
        }
    }
    BandedEquations equations(count);
    const double origin = samples_.values.front(), slopeUnit = 1.0 / timeUnit_;
    for (std::size_t i = 0; i + 1 < knots.size(); ++i) {
        const FitKnot &from = knots[i], &to = knots[i + 1];
        const Sums sums = sumsOver(from.sample, to.sample);
        const std::array places = {unknowns[i].value, unknowns[i].right, unknowns[i + 1].value,
                                   unknowns[i + 1].left};
        const std::array known = {(from.value - origin), from.right / slopeUnit, (to.value - origin),
                                  to.left / slopeUnit};
        for (std::size_t row = 0; row < 4; ++row) {
            if (!places[row])
                continue;
            equations.addRight(*places[row], sums.right[row]);
            for (std::size_t column = 0; column < 4; ++column) {
                if (places[column])
                    equations.add(*places[row], *places[column], sums.products[row][column]);
                else
                    equations.addRight(*places[row], -sums.products[row][column] * known[column]);
            }
        }
    }
    const std::vector<double> solution = std::move(equations).solution();
    for (std::size_t i = 0; i < knots.size(); ++i) {
        if (unknowns[i].value)
            knots[i].value = finiteOrZero(origin + solution[*unknowns[i].value]);
        if (unknowns[i].left) {
            knots[i].left = finiteOrZero(solution[*unknowns[i].left] * slopeUnit);
            knots[i].right = finiteOrZero(solution[*unknowns[i].right] * slopeUnit);
        }
    }
    const bool isFixed = edges == Edges::Fixed;
    const std::size_t first = std::size_t(isFixed && isInnerEdge(knots, 0));
    const std::size_t last = knots.size() - std::size_t(isFixed && isInnerEdge(knots, knots.size() - 1));
    if (isMonotone_)
        limitValues(knots, first, last);
    limitSlopes(knots, first, last);
}

/// Whether the curve goes on beyond the knot, although the knots end there.
bool HermiteFit::isInnerEdge(const std::vector<FitKnot>& knots, std::size_t index) const
{
    return (index == 0 && knots[index].sample > 0) ||
           (index + 1 == knots.size() && knots[index].sample < samples_.last());
}

// Values stay on their side of the middles between samples, and so in the order of these.
void HermiteFit::limitValues(std::vector<FitKnot>& knots, std::size_t first, std::size_t last) const
{
    const auto& values = samples_.values;
    for (std::size_t i = first; i < last; ++i) {
        FitKnot& knot = knots[i];
        if (knot.isPinned)
            continue;
        const double before = std::midpoint(values[knot.sample - 1], values[knot.sample]);
        const double behind = std::midpoint(values[knot.sample], values[knot.sample + 1]);
        knot.value = std::clamp(knot.value, std::min(before, behind), std::max(before, behind));
    }
}

// To where Fritsch and Carlson found the pieces monotone.
void HermiteFit::limitSlopes(std::vector<FitKnot>& knots, std::size_t first, std::size_t last) const
{
    for (std::size_t i = first; i < last; ++i) {
        FitKnot& knot = knots[i];
        const bool hasLeft = i > 0, hasRight = i + 1 < knots.size();
        if (hasLeft && (knot.isLimited || isRun(knots[i - 1], knot)))
            knot.left = limited(knot.left, chordOf(samples_, knots[i - 1], knot));
        if (hasRight && (knot.isLimited || isRun(knot, knots[i + 1])))
            knot.right = limited(knot.right, chordOf(samples_, knot, knots[i + 1]));
        if (!knot.isCorner && hasLeft && hasRight)
            knot.left = knot.right = std::abs(knot.left) < std::abs(knot.right) ? knot.left : knot.right;
    }
}

bool HermiteFit::isMonotone(const FitKnot& from, const FitKnot& to) const
{
    const double chord = chordOf(samples_, from, to);
    const double rise = samples_.values[to.sample] - samples_.values[from.sample];
    return !(rise > 0.0 && chord < 0.0) && !(rise < 0.0 && chord > 0.0) &&
           from.right == limited(from.right, chord) && to.left == limited(to.left, chord);
}

bool HermiteFit::isRun(const FitKnot& from, const FitKnot& to) const
{
    return isMonotone_ &&
           (rises_[from.sample] == rises_[to.sample] || falls_[from.sample] == falls_[to.sample]);
}

double HermiteFit::deviation(const FitKnot& from, const FitKnot& to) const
{
    const Piece piece(samples_, from, to);
    double greatest = std::abs(to.value - samples_.values[to.sample]);
    for (std::size_t i = from.sample; i < to.sample; ++i) {
        const double distance = std::abs(piece(samples_.times[i]) - samples_.values[i]);
        greatest = std::max(greatest, distance);
    }
    return greatest;
}

bool HermiteFit::holds(const FitKnot& from, const FitKnot& to) const
{
    return deviation(from, to) <= tolerance_ && (!isRun(from, to) || isMonotone(from, to)) &&
           staysNear(from, to);
}

// Few or uneven samples would let the curve swing out between them. It is a Bezier curve: it lies among its four
// control values.
bool HermiteFit::staysNear(const FitKnot& from, const FitKnot& to) const
{
    const std::size_t first = from.sample > 0 ? from.sample - 1 : 0;
    const std::size_t last = std::min(to.sample + 1, samples_.last());
    const auto begin = samples_.values.begin();
    const auto [least, greatest] =
        std::minmax_element(begin + std::ptrdiff_t(first), begin + std::ptrdiff_t(last) + 1);
    const double margin = 0.5 * (*greatest - *least) + tolerance_;
    const double third = (samples_.times[to.sample] - samples_.times[from.sample]) / 3.0;
    const double leaving = from.value + from.right * third, arriving = to.value - to.left * third;
    return std::max(leaving, arriving) <= *greatest + margin &&
           std::min(leaving, arriving) >= *least - margin;
}

// Where the curve is furthest from the samples, but never near the ends, so that the pieces shrink fast.
std::size_t HermiteFit::placeToSplit(const FitKnot& from, const FitKnot& to) const
{
    const Piece piece(samples_, from, to);
    const std::size_t margin = std::max<std::size_t>(1, (to.sample - from.sample) / 8);
    std::size_t furthest = from.sample + margin;
    double greatest = 0.0;
    for (std::size_t i = furthest; i + margin <= to.sample; ++i) {
        const double distance = std::abs(piece(samples_.times[i]) - samples_.values[i]);
        if (distance > greatest) {
            greatest = distance;
            furthest = i;
        }
    }
    return furthest;
}

void HermiteFit::pin(FitKnot& knot) const
{
    knot.value = samples_.values[knot.sample];
    knot.isPinned = true;
}

// Between samples that follow each other there is no place to split: there the curve goes through both, if need be
// without a bend too many.
bool HermiteFit::refine(std::vector<FitKnot>& knots, bool isThorough) const
{
    std::vector<FitKnot> refined;
    bool isRefined = false;
    for (std::size_t i = 0; i + 1 < knots.size(); ++i) {
        FitKnot &from = knots[i], &to = knots[i + 1];
        const bool isBad = !holds(from, to);
        isRefined = isRefined || isBad;
        if (isBad && to.sample == from.sample + 1 && from.isPinned && to.isPinned)
            from.isLimited = to.isLimited = true;
        if (isBad && (isThorough || to.sample == from.sample + 1)) {
            pin(from);
            pin(to);
        }
        refined.push_back(from);
        if (isBad && isThorough) {
            for (std::size_t sample = from.sample + 1; sample < to.sample; ++sample) {
                refined.push_back(knotAt(sample));
                pin(refined.back());
            }
        } else if (isBad && to.sample > from.sample + 1) {
            refined.push_back(knotAt(placeToSplit(from, to)));
        }
    }
    refined.push_back(knots.back());
    knots.swap(refined);
    return isRefined;
}

std::vector<FitKnot> HermiteFit::enoughKnots() const
{
    std::vector<FitKnot> knots = firstKnots();
    solve(knots, Edges::Free);
    for (int round = 0; round < roundLimit && refine(knots, round >= thoroughRound); ++round)
        solve(knots, Edges::Free);
    return knots;
}

/// The knots of a curve, of which some are taken out. What is near a knot can be tried without it.
class HermiteFit::Chain
{
public:
    Chain(const HermiteFit& fit, std::vector<FitKnot>& knots)
        : fit_(fit), knots_(knots), previous_(knots.size()), next_(knots.size()), isThere_(knots.size(), true)
    {
        for (std::size_t i = 0; i < knots.size(); ++i) {
            previous_[i] = i > 0 ? i - 1 : i;
            next_[i] = i + 1 < knots.size() ? i + 1 : i;
        }
    }

    bool isSpare(std::size_t index) const { return isThere_[index] && !knots_[index].isKept; }

    /// The greatest deviation near the knot if it were not there, none if that is too much.
    std::optional<double> deviationWithout(std::size_t index)
    {
        near_.clear();
        std::size_t first = index;
        for (std::size_t i = 0; i < neighbours; ++i)
            first = previous_[first];
        std::size_t behind = 0;
        for (std::size_t i = first; behind <= neighbours; i = next_[i]) {
            if (i != index)
                near_.push_back(i);
            if (i >= index)
                ++behind;
            if (next_[i] == i)
                break;
        }
        around_.clear();
        for (const std::size_t i : near_)
            around_.push_back(knots_[i]);
        fit_.solve(around_, Edges::Fixed);
        double greatest = 0.0;
        for (std::size_t i = 0; i + 1 < around_.size(); ++i) {
            if (!fit_.holds(around_[i], around_[i + 1]))
                return std::nullopt;
            greatest = std::max(greatest, fit_.deviation(around_[i], around_[i + 1]));
        }
        return greatest;
    }
    /// Takes out the knot that was tried last. Gives those that changed.
    const std::vector<std::size_t>& takeOut(std::size_t index)
    {
        for (std::size_t i = 0; i < near_.size(); ++i)
            knots_[near_[i]] = around_[i];
        next_[previous_[index]] = next_[index];
        previous_[next_[index]] = previous_[index];
        isThere_[index] = false;
        return near_;
    }

    void dropTakenOut()
    {
        std::size_t index = 0;
        std::erase_if(knots_, [&](const FitKnot&) { return !isThere_[index++]; });
    }

private:
    const HermiteFit& fit_;
    std::vector<FitKnot>& knots_;
    std::vector<std::size_t> previous_, next_;
    std::vector<bool> isThere_;
    std::vector<std::size_t> near_;
    std::vector<FitKnot> around_;
};

// Those that are missed least go first. Only where one went can another have become spare.
void HermiteFit::removeSpareKnots(std::vector<FitKnot>& knots) const
{
    Chain chain(*this, knots);
    std::vector<std::size_t> candidates(knots.size());
    std::iota(candidates.begin(), candidates.end(), std::size_t(0));
    while (!candidates.empty()) {
        std::vector<std::pair<double, std::size_t>> order;
        for (const std::size_t index : candidates) {
            const auto deviation = chain.isSpare(index) ? chain.deviationWithout(index) : std::nullopt;
            if (deviation)
                order.emplace_back(*deviation, index);
        }
        std::sort(order.begin(), order.end());
        candidates.clear();
        for (const auto& [expected, index] : order) {
            if (chain.deviationWithout(index)) {
                const auto& changed = chain.takeOut(index);
                candidates.insert(candidates.end(), changed.begin(), changed.end());
            }
        }
        std::sort(candidates.begin(), candidates.end());
        candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
    }
    chain.dropTakenOut();
}

} // namespace curveeditor
