// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/ExpressionProgram.h>

#include <array>
#include <cstddef>

namespace curveeditor {

/// Lets `last` do what `next` does as well, with the same roundings. Returns false, and changes nothing, if no
/// instruction does both.
bool fuse(ExpressionProgram::Instruction& last, const ExpressionProgram::Instruction& next);

/// What a fused code does, in order; any other code does itself. All parts share the constant and the key of the
/// instruction.
struct ExpressionParts
{
    std::array<ExpressionCode, 3> codes{};
    std::size_t count = 0;

    const ExpressionCode* begin() const { return codes.data(); }
    const ExpressionCode* end() const { return codes.data() + count; }
};
const ExpressionParts& partsOf(ExpressionCode code);

} // namespace curveeditor
