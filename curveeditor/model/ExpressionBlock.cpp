// SPDX-License-Identifier: MIT
#include <curveeditor/model/ExpressionArithmetic.h>
#include <curveeditor/model/ExpressionProgram.h>

#include <cmath>

#include <math.h> // j0 and j1 are in no other header

// Where compiler and C library can do it, loops become vector code for several generations of the processor,
// one of which is chosen at run time, and five functions are taken from the C library's vector functions,
// which lie up to 4 units in the last place off. Everything else is the same to the last bit, infinities and
// NaN included.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__GNUC__) && !defined(__clang__) &&                 \
    __GNUC__ >= 12 && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define CURVEEDITOR_VECTOR_LOOP _Pragma("omp simd")
#define CURVEEDITOR_FOR_EACH_PROCESSOR                                                                       \
    __attribute__((target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default")))
extern "C" { // where the C library declares them, or the attribute is lost
__attribute__((simd("notinbranch"))) double cos(double) noexcept;
__attribute__((simd("notinbranch"))) double sin(double) noexcept;
__attribute__((simd("notinbranch"))) double exp(double) noexcept;
__attribute__((simd("notinbranch"))) double log(double) noexcept;
__attribute__((simd("notinbranch"))) double pow(double, double) noexcept;
}
#else
#define CURVEEDITOR_VECTOR_LOOP
#define CURVEEDITOR_FOR_EACH_PROCESSOR
#endif

namespace curveeditor {

namespace {

using Code = ExpressionCode;

// `count` is a multiple of `blockStep`, which the compiler can't know: no loop has a remainder.
template <typename Function> inline void forEach(double* values, std::size_t count, Function function)
{
    const std::size_t end = count / blockStep * blockStep;
    CURVEEDITOR_VECTOR_LOOP
    for (std::size_t i = 0; i < end; ++i)
        values[i] = function(values[i]);
}

template <typename Function>
inline void forEachPair(double* left, const double* right, std::size_t count, Function function)
{
    const std::size_t end = count / blockStep * blockStep;
    CURVEEDITOR_VECTOR_LOOP
    for (std::size_t i = 0; i < end; ++i)
        left[i] = function(left[i], right[i]);
}

inline void choose(double* condition, const double* a, const double* b, std::size_t count)
{
    const std::size_t end = count / blockStep * blockStep;
    CURVEEDITOR_VECTOR_LOOP
    for (std::size_t i = 0; i < end; ++i)
        condition[i] = condition[i] != 0.0 ? a[i] : b[i];
}

} // namespace

CURVEEDITOR_FOR_EACH_PROCESSOR
double* applyToBlock(const ExpressionProgram::Instruction& instruction, double* top, std::size_t stride,
                     std::size_t count)
{
    double* const below = top - stride;
    const double c = instruction.constant;
    switch (instruction.code) {
    case Code::Negate:
        forEach(top, count, [](double x) { return -x; });
        return top;
    case Code::Cos:
        forEach(top, count, [](double x) { return std::cos(x); });
        return top;
    case Code::Sin:
        forEach(top, count, [](double x) { return std::sin(x); });
        return top;
    case Code::Tan:
        forEach(top, count, [](double x) { return std::tan(x); });
        return top;
    case Code::Exp:
        forEach(top, count, [](double x) { return std::exp(x); });
        return top;
    case Code::Log:
        forEach(top, count, [](double x) { return std::log(x); });
        return top;
    case Code::Log10:
        forEach(top, count, [](double x) { return std::log10(x); });
        return top;
    case Code::Round:
        forEach(top, count, [](double x) { return std::round(x); });
        return top;
    case Code::Absolute:
        forEach(top, count, [](double x) { return std::fabs(x); });
        return top;
    case Code::SquareRoot:
        forEach(top, count, [](double x) { return std::sqrt(x); });
        return top;
    case Code::ArcCos:
        forEach(top, count, [](double x) { return std::acos(x); });
        return top;
    case Code::ArcSin:
        forEach(top, count, [](double x) { return std::asin(x); });
        return top;
    case Code::ArcTan:
        forEach(top, count, [](double x) { return std::atan(x); });
        return top;
    case Code::CosH:
        forEach(top, count, [](double x) { return std::cosh(x); });
        return top;
    case Code::SinH:
        forEach(top, count, [](double x) { return std::sinh(x); });
        return top;
    case Code::TanH:
        forEach(top, count, [](double x) { return std::tanh(x); });
        return top;
    case Code::Ceil:
        forEach(top, count, [](double x) { return std::ceil(x); });
        return top;
    case Code::Floor:
        forEach(top, count, [](double x) { return std::floor(x); });
        return top;
    case Code::BesselJ0:
        forEach(top, count, [](double x) { return besselJ0(x); });
        return top;
    case Code::BesselJ1:
        forEach(top, count, [](double x) { return besselJ1(x); });
        return top;
    case Code::AddConstant:
        forEach(top, count, [=](double x) { return x + c; });
        return top;
    case Code::SubtractFromConstant:
        forEach(top, count, [=](double x) { return c - x; });
        return top;
    case Code::MultiplyConstant:
        forEach(top, count, [=](double x) { return x * c; });
        return top;
    case Code::DivideByConstant:
        forEach(top, count, [=](double x) { return x / c; });
        return top;
    case Code::DivideConstant:
        forEach(top, count, [=](double x) { return c / x; });
        return top;
    case Code::Square:
        forEach(top, count, [](double x) { return x * x; });
        return top;
    case Code::PowerByConstant:
        forEach(top, count, [=](double x) { return std::pow(x, c); });
        return top;
    case Code::PowerOfConstant:
        forEach(top, count, [=](double x) { return std::pow(c, x); });
        return top;
    case Code::GreaterThanConstant:
        forEach(top, count, [=](double x) { return x > c ? 1.0 : 0.0; });
        return top;
    case Code::LessThanConstant:
        forEach(top, count, [=](double x) { return x < c ? 1.0 : 0.0; });
        return top;
    case Code::Add:
        forEachPair(below, top, count, [](double x, double y) { return x + y; });
        return below;
    case Code::Subtract:
        forEachPair(below, top, count, [](double x, double y) { return x - y; });
        return below;
    case Code::Multiply:
        forEachPair(below, top, count, [](double x, double y) { return x * y; });
        return below;
    case Code::Divide:
        forEachPair(below, top, count, [](double x, double y) { return x / y; });
        return below;
    case Code::Power:
        forEachPair(below, top, count, [](double x, double y) { return std::pow(x, y); });
        return below;
    case Code::Greater:
        forEachPair(below, top, count, [](double x, double y) { return x > y ? 1.0 : 0.0; });
        return below;
    case Code::Less:
        forEachPair(below, top, count, [](double x, double y) { return x < y ? 1.0 : 0.0; });
        return below;
    case Code::GreaterOrEqual:
        forEachPair(below, top, count, [](double x, double y) { return x >= y ? 1.0 : 0.0; });
        return below;
    case Code::LessOrEqual:
        forEachPair(below, top, count, [](double x, double y) { return x <= y ? 1.0 : 0.0; });
        return below;
    case Code::Equal:
        forEachPair(below, top, count, [](double x, double y) { return x == y ? 1.0 : 0.0; });
        return below;
    case Code::NotEqual:
        forEachPair(below, top, count, [](double x, double y) { return x != y ? 1.0 : 0.0; });
        return below;
    case Code::Minimum:
        forEachPair(below, top, count, [](double x, double y) { return minimum(x, y); });
        return below;
    case Code::Maximum:
        forEachPair(below, top, count, [](double x, double y) { return maximum(x, y); });
        return below;
    case Code::Modulo:
        forEachPair(below, top, count, [](double x, double y) { return flooredModulo(x, y); });
        return below;
    case Code::Choose:
        choose(below - stride, below, top, count);
        return below - stride;
    default: // an operand, a jump, or several in one
        break;
    }
    return top;
}

} // namespace curveeditor
