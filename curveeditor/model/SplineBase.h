// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <type_traits>
#include <vector>

struct SplineState;

namespace curveeditor {
struct PlacedPoint;
class SplineSnapshot;
} // namespace curveeditor

/// A scalar function of time that a user shapes by control points.
///
/// The points are ordered by time. The `type` of a point governs the segment that ends at it, so the type of
/// the first point governs nothing. `firstType` and `lastType` say how the curve goes on outside its points.
///
/// With p and q the points of a segment, h its length in time and u in 0 ... 1 the place in it, the value is
/// - `Linear`: p + (q - p) w(u).
/// - `Hold`: p, until the time of q, where the curve jumps.
/// - `Bezier`: H(u), the cubic Hermite polynomial from p to q whose end slopes are p.`tanRight` and
///   q.`tanLeft`, both times h. Ease does not act here: the handles are the whole truth.
/// - `Tcb`: H(w(u)), whose end slopes follow from tension, continuity and bias, both times h. The slope at a
///   point is the sum of its chords to both neighbours, each times its weight (see `getFactorL0`), over half
///   the time between these neighbours. Where one is missing, the point itself stands for it.
///
/// The ease w is the cubic Hermite polynomial from 0 to 1 whose end slopes are 1 - p.`easeFrom` and
/// 1 - q.`easeTo`. It is monotone for ease in -1 ... 1.
///
/// Source of the slopes: Kochanek and Bartels, "Interpolating Splines with Local Tension, Continuity, and
/// Bias Control" (1984), extended to points at uneven times.
///
/// A spline is never empty. It owns its points: their addresses stay valid until `remove`, `reset`, `load`,
/// `assign` or the destructor frees them. It can't be copied. The const operations keep no hidden state, so several
/// threads may call them at once while nobody edits.
///
/// Times are in time units, values in value units, slopes in value units per time unit.
class CURVEEDITOR_EXPORT SplineBase
{
public:
    /// What a segment looks like; see the class.
    enum NodeType : std::int32_t { Linear = 0, Bezier = 1, Tcb = 2, Hold = 3 };

    /// The curve outside its points. Before the first point only `Zero` and `Constant` have a meaning.
    enum Behaviour : std::int32_t {
        Zero = 0,         ///< 0.0
        Constant = 1,     ///< the value of the nearest point
        Loop = 2,         ///< the span of the points over and over
        LoopOffset = 3,   ///< the same, each round raised by last value - first value
        FollowTangent = 4 ///< a straight line with the slope that arrives at the last point
    };

    /// One control point. Every field but `time` may be written directly, through `modify`: nothing is
    /// derived from them before the curve is evaluated. `time` orders the points and changes by `setTime`
    /// only.
    struct PointInfo
    {
        double time = 0.0;       ///< finite
        double pos = 0.0;        ///< value of the curve at `time`, finite
        double tanLeft = 0.0;    ///< slope with which a `Bezier` segment arrives
        double tanRight = 0.0;   ///< slope with which a `Bezier` segment leaves
        double tension = 0.0;    ///< T, of use in -10 ... 10
        double continuity = 0.0; ///< C, of use in -10 ... 10
        double bias = 0.0;       ///< B, of use in -10 ... 10
        double easeTo = 0.0;     ///< slows the arrival down, -1 ... 1
        double easeFrom = 0.0;   ///< slows the departure down, -1 ... 1
        std::int32_t type = Tcb; ///< a `NodeType`; any other number acts as `Linear`
        /// Who the point is: given by the spline when the point is made, kept for as long as the point lives, in
        /// its saved states too, and never given to two points of one spline. Two splines have the same ones only
        /// after a state of one was assigned to the other, or when all numbers have been given. 0 is no point. To be
        /// read only.
        std::uint32_t serial = 0;
    };

    /// @name Construction
    /// @{

    /// Holds one point at time 0.0 and value 0.0.
    SplineBase();
    /// Frees the points.
    ~SplineBase();
    SplineBase(const SplineBase&) = delete;
    SplineBase& operator=(const SplineBase&) = delete;
    /// @}

    /// @name Evaluation
    /// Where points share a time, the last of them gives the value at that time. Behaviours that need a span
    /// hold the last value where there is none. A time that is not a number counts as before the first point.
    /// Between points of finite values the curve is finite: what would overflow stops at the greatest number.
    /// @{

    /// The value at `time`, which may be any number.
    double operator()(const double& time) const;

    /// The values at `count` times, bit for bit those of `operator()`. Fast where the times rise; any order
    /// is right. `values` may be the same array as `times`, but must not overlap it otherwise.
    void evaluate(const double* times, double* values, std::size_t count) const;

    /// The slope of the curve at `time`, toward later times: where it bends or jumps, that of what follows. 0.0 where the
    /// curve is constant, and at a time that is not finite; no further from 0.0 than the greatest number.
    double slope(double time) const;
    /// @}

    /// @name Access to the points
    /// An index that is out of range, or a point that this spline does not hold, gives null.
    /// @{

    /// 1 or more.
    unsigned getControlPointsNumber() const { return static_cast<unsigned>(points_.size()); }
    /// In the order of time.
    const PointInfo* operator[](const unsigned& index) const
    {
        return index < points_.size() ? points_[index] : nullptr;
    }
    /// The point with which the curve begins; never null.
    const PointInfo* getFirst() const { return points_.front(); }
    /// The point with which the curve ends; never null.
    const PointInfo* getLast() const { return points_.back(); }
    /// For writing into fields other than `time`; the spline keeps the point.
    PointInfo* modify(const unsigned& index) { return index < points_.size() ? points_[index] : nullptr; }
    /// Any other integer type. Without this one, `modify(0)` could as well mean the null point.
    template <typename Integer, std::enable_if_t<std::is_integral_v<Integer>, bool> = true>
    PointInfo* modify(const Integer& index)
    {
        if constexpr (std::is_signed_v<Integer>) {
            if (index < 0)
                return nullptr;
        }
        return std::uintmax_t(index) < points_.size() ? points_[std::size_t(index)] : nullptr;
    }
    /// The same point for writing. Looks for its address.
    PointInfo* modify(const PointInfo* point) { return modify(findIndex(point)); }
    /// All points in the order of time. The reference holds as long as the spline, its content until the next edit.
    const std::vector<PointInfo*>& getControlPoints() const { return points_; }

    /// The index of `point`, -1 if this spline does not hold it. Compares addresses only, so `point` may be a
    /// point that is freed already.
    std::int32_t findIndex(const PointInfo* point) const;

    /// The place of `point` in `getControlPoints`, the end if this spline does not hold it. Compares
    /// addresses only.
    std::vector<PointInfo*>::const_iterator find(const PointInfo* point) const;

    /// The index of the point with that serial, -1 if this spline does not hold it. Where the point stands at
    /// the time `near`, as it does when that is the time it was seen at last, this takes a binary search;
    /// elsewhere all points are looked at.
    std::int32_t findIndex(std::uint32_t serial, double near) const;

    /// @{
    /// The first point later than `time`, null if there is none.
    const PointInfo* getNext(const double& time) const;
    PointInfo* getNext(const double& time);
    /// @}

    /// @{
    /// The last point earlier than `time`, null if there is none.
    const PointInfo* getPrev(const double& time) const;
    PointInfo* getPrev(const double& time);
    /// @}
    /// @}

    /// @name Editing
    /// A number that is not finite and a null point change nothing. Nor does a point of another spline, but
    /// `setPos`, `setTanLeft` and `setTanRight` do not ask whose the point is. Where a `time` was written directly,
    /// the operations work on the order as it was, until `mend`.
    ///
    /// `addPoint`, `remove` and `setTime` move 16 bytes in memory for each point that changes its index, which is
    /// up to some 20 microseconds for 100,000 points; `addPoint` and `setTime` find the place by a search by time.
    /// So many points that go one by one take time in the square of their number: 80,000 of them half a second from
    /// the front by `remove`, and a second to the end by `setTime`. `assign` of a changed `state` is linear.
    /// @{

    /// Inserts a point, behind those at the same time. Its type is that of the segment into which it falls,
    /// outside the points that of the nearest segment, `Tcb` where there is none. In a `Bezier` segment both
    /// tangents become the slope that the curve has there; all else is 0.0.
    void addPoint(const double& time, const double& value);

    /// Takes the point out and frees it, unless it is the only one. Looks for its address from both ends, so
    /// `point` may be freed already.
    void remove(const PointInfo* point);

    /// Frees all points and leaves one at time 0.0 and value 0.0. Behaviours and default value stay.
    void reset();

    /// Moves the point in time. Where it passes others it takes its new place in the order, behind points at
    /// the same time; the others keep their order. `point` must be null or a living point. Among points at one
    /// time, and where its `time` was written directly, it is looked for by its address.
    void setTime(PointInfo* point, const double& time);

    /// Puts right what was written past these operations, through `modify`: points whose `time` was written take
    /// their place in the order, one that got a time that is not finite gets its old one back, a value that is
    /// not finite becomes 0.0, and one whose `serial` was overwritten, as by assigning a whole point, becomes a
    /// new point if the serial is 0 or that of an earlier point. Linear where there is nothing to do.
    void mend();

    /// Writes `pos`.
    void setPos(PointInfo* point, const double& value);
    /// Writes the slope with which a `Bezier` segment arrives; the other one stays.
    void setTanLeft(PointInfo* point, const double& value);
    /// Writes the slope with which a `Bezier` segment leaves; the other one stays.
    void setTanRight(PointInfo* point, const double& value);
    /// @}

    /// @name State
    /// The whole content as a value; see `SplineState`.
    /// @{

    /// A copy, in linear time.
    SplineState state() const;
    /// The same into a state whose memory is used again.
    void copyTo(SplineState& state) const;

    /// Makes `state` the content. A point whose serial is there before and after keeps its address; the others
    /// are made, with the serial of the state or, where that is 0 or an earlier point's, a new one, or freed. A
    /// point whose serial is 0 and that equals in all else the one that has its index now is that one.
    /// Takes linear time. A state without points, whose times descend, or with a time or value that is not
    /// finite changes nothing and gives false.
    bool assign(const SplineState& state);
    /// @}

    /// @name Tangents as shown
    /// What the curve really does at one end of the segment that ends at point `index`: the stored slope for
    /// `Bezier`, the computed slope times 1 - ease for `Tcb` and `Linear`, 0.0 for `Hold`. `length` becomes 0.667 (1 - ease),
    /// a measure of how far the ease lets the tangent reach. No segment ends at index 0, nor at or behind the
    /// number of points: the slope is 0.0 and `length` 0.667 then.
    /// @{

    /// The slope with which the segment arrives at point `index`; the ease is that point's `easeTo`.
    double getTangentLeftAtNode(const unsigned& index, double& length) const;

    /// The slope with which the segment leaves point `index` - 1; the ease is that point's `easeFrom`.
    double getTangentRightAtNode(const unsigned& index, double& length) const;
    /// @}

    /// @name Default value
    /// A number that the spline keeps for its host; it has no influence on the curve.
    /// @{

    /// 0.0 in a new spline.
    double getDefaultValue() const { return defaultValue; }
    /// Takes any number; one that is not finite is written to a file that `load` refuses.
    void setDefaultValue(double value) { defaultValue = value; }
    /// @}

    /// @name Text form
    /// Whatever the locales, numbers are written in the shortest form that reads back to the same bits.
    /// @{

    /// Writes all points, the behaviours and the default value at the stream's position.
    static void save(const SplineBase& spline, std::ostream& out);

    /// Reads what `save` wrote, white space in front of it skipped. Replaces the whole content of `spline`
    /// or, where the text is not a whole spline, changes nothing and sets the stream's fail bit. A whole spline
    /// holds finite numbers, and types and behaviours that exist.
    static void load(SplineBase* spline, std::istream& in);
    /// @}

    std::int32_t firstType = Constant; ///< a `Behaviour`; any number but `Zero` acts as `Constant`
    std::int32_t lastType = Constant;  ///< a `Behaviour`; any unknown number acts as `Constant`

protected:
    /// @{
    /// The weights of the chords at a point, from its tension, continuity and bias. The L pair gives the
    /// slope that leaves the point and the R pair the one that arrives there; 0 belongs to the chord from the
    /// previous point, 1 to the chord to the next.
    double getFactorL0(const PointInfo* point) const
    {
        return factor(point->tension, point->continuity, point->bias);
    }
    double getFactorL1(const PointInfo* point) const
    {
        return factor(point->tension, -point->continuity, -point->bias);
    }
    double getFactorR0(const PointInfo* point) const
    {
        return factor(point->tension, -point->continuity, point->bias);
    }
    double getFactorR1(const PointInfo* point) const
    {
        return factor(point->tension, point->continuity, -point->bias);
    }
    /// @}

    double defaultValue = 0.0;                              ///< see `getDefaultValue`
    const std::vector<PointInfo*>& controlPoints = points_; ///< ascending in time, owned, never empty

private:
    friend class CurveDiff;
    friend class curveeditor::SplineSnapshot;

    struct Private;
    template <bool isWide> class Segment;

    SplineBase(std::vector<PointInfo*> points, std::vector<double> times, std::int32_t first,
               std::int32_t last);

    static double factor(double tension, double continuity, double bias)
    {
        return ((1.0 - tension) * 0.5) * (1.0 + continuity) * (1.0 + bias);
    }
    bool endsSegment(std::size_t index) const { return index > 0 && index < points_.size(); }
    std::size_t indexOf(const PointInfo* point) const;
    double wideValue(const double& time) const;
    double slopeInside(std::size_t endIndex, double time, bool withEase) const;
    double slopeOutside(double time) const;
    double valueOutside(double time) const;
    void evaluateBatch(const double* times, const std::size_t* places, double* values) const;
    void evaluateBlock(const double* times, double* values, std::size_t count) const;
    void insertNew(std::size_t index, PointInfo point);
    std::uint32_t newSerial();
    std::vector<std::uint32_t> serialsIn(const SplineState& state) const;
    bool replace(const std::vector<curveeditor::PlacedPoint>& removed,
                 const std::vector<curveeditor::PlacedPoint>& inserted);
    void renewCopiedSerials();
    void clear();
    bool readText(std::istream& in);

    // What evaluation reads stands here, all else behind the pointer.
    std::vector<PointInfo*> points_;
    std::vector<double> times_; ///< the time of each point once more, side by side for the search
    std::unique_ptr<Private> d_;
};
