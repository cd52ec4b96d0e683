// SPDX-License-Identifier: MIT
#include <curveeditor/model/CurveVariables.h>

#include <curveeditor/model/BlockReading.h>
#include <curveeditor/model/CurveSnapshot.h>
#include <curveeditor/model/FunctionFloatOperation.h>
#include <curveeditor/model/FunctionParserBase.h>
#include <curveeditor/model/SplineBase.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

using namespace curveeditor;

namespace {

bool isSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

struct Curve
{
    const SplineBase* spline = nullptr;
    FunctionFloatBase** expression = nullptr;
    bool evaluating = false;

    // The last value, and when it was read.
    double value = 0.0;
    std::uint64_t reading = 0;
    double time = 0.0;
    double frame = 0.0;

    // The values of the last block, and when they were read.
    std::vector<double> values;
    std::uint64_t blockReading = 0;

    std::weak_ptr<const CurveSnapshot> splineSnapshot; ///< the last one
};

/// The times of a reading in blocks.
struct Block
{
    const double* times = nullptr;
    double framesPerTimeUnit = 0.0;
    std::size_t count = 0;

    /// True if these times are some of its own: not only equal, but in the same place.
    bool holds(const double* some, double framesPerTime, std::size_t someCount) const
    {
        const std::less_equal<const double*> isUpTo;
        return isUpTo(times, some) && isUpTo(some + someCount, times + count) &&
               isSame(framesPerTime, framesPerTimeUnit);
    }
};

bool isRunning(const Curve& curve)
{
    if (!curve.expression || !*curve.expression)
        return false;
    const FunctionFloatOperation* const operation = FunctionFloatOperation::of(**curve.expression);
    return operation && operation->isRunning();
}

} // namespace

struct CurveVariables::Private
{
    bool isKnownNow(const Curve& curve) const;
    void read(Curve& curve);

    Curve* find(const ParserVarMapper& names, const std::string& name);
    std::size_t beginBlock(const double* times, double framesPerTimeUnit, std::size_t count);
    void readBlock(Curve* curve, const double* times, double* values, std::size_t count);
    void evaluateBlock(Curve& curve);

    // A reading begins with a curve that no other curve reads, or goes on where a `BlockReading` says so and no
    // curve was found to depend on itself. It has a block if it is one of blocks.
    std::map<std::string, Curve, std::less<>> curves;
    Block block;
    std::uint64_t reading = 0;
    std::uint64_t blockReading = 0; ///< number of the `BlockReading` that the reading belongs to, 0 for none
    bool wasCut = false; ///< a curve gave 0.0 in this reading because of those that were reading it
    int depth = 0;
    FunctionParserBase::keyStruct* time = FunctionParserBase::instance()->getKey("t");
    FunctionParserBase::keyStruct* frame = FunctionParserBase::instance()->getKey("f");
};

CurveVariables::CurveVariables() : d_(std::make_unique<Private>()) {}

CurveVariables::~CurveVariables() = default;

bool CurveVariables::add(const std::string& name, const SplineBase* spline, FunctionFloatBase** expression)
{
    Curve curve;
    curve.spline = spline;
    curve.expression = expression;
    if (name.empty() || !d_->curves.try_emplace(getStoredName(name), curve).second)
        return false;
    addName(name);
    return true;
}

void CurveVariables::remove(const std::string& name)
{
    d_->curves.erase(getStoredName(name));
    removeName(name);
}

bool CurveVariables::rename(const std::string& oldName, const std::string& newName)
{
    const auto place = d_->curves.find(getStoredName(oldName));
    if (place == d_->curves.end())
        return false;
    if (place->first == getStoredName(newName))
        return true;
    if (!add(newName, place->second.spline, place->second.expression))
        return false;
    remove(oldName);
    return true;
}

double CurveVariables::getValue(const std::string& name) const
{
    Curve* const curve = d_->find(*this, name);
    if (!curve)
        return 0.0;
    if (d_->depth == 0)
        ++d_->reading;
    const bool canRead = !curve->evaluating;
    if (canRead && !d_->isKnownNow(*curve) && d_->depth < maximumDepth && !isRunning(*curve))
        d_->read(*curve);
    if (canRead && d_->isKnownNow(*curve))
        return curve->value;
    d_->wasCut = true;
    return 0.0;
}

void CurveVariables::getValues(const std::string& name, const double* times, double framesPerTimeUnit,
                               double* values, std::size_t count) const
{
    const bool isBlockKnown = d_->depth == 0 || d_->block.holds(times, framesPerTimeUnit, count);
    if (!isBlockKnown || !d_->time->holdsDouble() || !d_->frame->holdsDouble()) {
        ParserVarMapper::getValues(name, times, framesPerTimeUnit, values, count);
        return;
    }
    if (d_->depth > 0) {
        d_->readBlock(d_->find(*this, name), times, values, count);
        return;
    }
    for (std::size_t done = 0; done < count;) {
        const std::size_t length = d_->beginBlock(times + done, framesPerTimeUnit, count - done);
        d_->readBlock(d_->find(*this, name), times + done, values + done, length);
        done += length;
    }
    d_->block = Block();
}

const FunctionFloatBase* CurveVariables::getExpression(const std::string& name) const
{
    const Curve* const curve = d_->find(*this, name);
    return curve && curve->expression ? *curve->expression : nullptr;
}

bool CurveVariables::holds(const std::string& name) const
{
    return d_->find(*this, name);
}

/// Null where there is no spline.
std::shared_ptr<const CurveSnapshot> CurveVariables::splineSnapshot(const std::string& name) const
{
    Curve* const curve = d_->find(*this, name);
    if (!curve || !curve->spline)
        return nullptr;
    std::shared_ptr<const CurveSnapshot> snapshot =
        CurveSnapshot::of(*curve->spline, curve->splineSnapshot.lock());
    curve->splineSnapshot = snapshot;
    return snapshot;
}

Curve* CurveVariables::Private::find(const ParserVarMapper& names, const std::string& name)
{
    auto place = curves.find(name);
    if (place == curves.end() && names.hasName(name))
        place = curves.find(getStoredName(name));
    return place == curves.end() ? nullptr : &place->second;
}

/// Returns how many of the times lie in the block.
std::size_t CurveVariables::Private::beginBlock(const double* times, double framesPerTimeUnit,
                                                std::size_t count)
{
    const BlockReading* const shared = BlockReading::present();
    std::uint64_t number = 0;
    if (shared)
        block = {shared->times(), shared->framesPerTimeUnit(), shared->count()};
    if (shared && block.holds(times, framesPerTimeUnit, count)) {
        number = shared->number();
    } else {
        count = std::min(count, BlockReading::longest);
        block = {times, framesPerTimeUnit, count};
    }
    if (number == 0 || number != blockReading || wasCut)
        ++reading;
    blockReading = number;
    wasCut = false;
    return count;
}

void CurveVariables::Private::readBlock(Curve* curve, const double* times, double* values, std::size_t count)
{
    const bool canRead = curve && !curve->evaluating;
    if (canRead && curve->blockReading != reading && depth < maximumDepth && !isRunning(*curve))
        evaluateBlock(*curve);
    if (canRead && curve->blockReading == reading) {
        std::copy_n(curve->values.begin() + (times - block.times), count, values);
    } else {
        wasCut = wasCut || curve;
        std::fill_n(values, count, 0.0);
    }
}

// At all times of the block, whichever of them are asked for first: then each curve is evaluated once.
void CurveVariables::Private::evaluateBlock(Curve& curve)
{
    curve.values.assign(block.count, 0.0);
    ++depth;
    curve.evaluating = true;
    if (curve.expression && *curve.expression) {
        (*curve.expression)
            ->evaluateBlock(block.times, block.framesPerTimeUnit, curve.values.data(), block.count);
    } else if (curve.spline) {
        curve.spline->evaluate(block.times, curve.values.data(), block.count);
    }
    curve.evaluating = false;
    --depth;
    curve.blockReading = reading;
}

bool CurveVariables::Private::isKnownNow(const Curve& curve) const
{
    return curve.reading == reading && isSame(curve.time, time->getValue()) &&
           isSame(curve.frame, frame->getValue());
}

void CurveVariables::Private::read(Curve& curve)
{
    const double now = time->getValue();
    ++depth;
    curve.evaluating = true;
    if (curve.expression && *curve.expression) {
        curve.value = (*curve.expression)->evaluate();
    } else {
        curve.value = curve.spline ? (*curve.spline)(now) : 0.0;
    }
    curve.evaluating = false;
    --depth;
    curve.reading = reading;
    curve.time = now;
    curve.frame = frame->getValue();
}
