// SPDX-License-Identifier: MIT
#include "Require.h"

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/model/FunctionFloatBase.h>
#include <curveeditor/model/FunctionParserBase.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>

namespace {

std::string text(const CurveFile& file)
{
    std::ostringstream out;
    require(file.write(out));
    return out.str();
}

void use(CurveFile& file)
{
    if (file.kind == CurveFile::Spline) {
        double length = 0.0;
        for (const auto* point : file.spline.getControlPoints())
            file.spline(point->time + 0.25);
        file.spline.getTangentLeftAtNode(1, length);
        return;
    }
    ParseMessage message;
    const std::unique_ptr<FunctionFloatBase> expression(
        FunctionParserBase::instance()->parseString(file.expression, message));
    require((expression != nullptr) == message.errors.empty());
    if (expression)
        expression->evaluate();
}

} // namespace

/// Whatever the bytes are: a file that is refused changes nothing, and one that is read comes back the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CurveFile file;
    file.color = {1, 2, 3};
    file.expression = "before";
    const std::string before = text(file);
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    if (!file.read(in)) {
        require(text(file) == before && file.expression == "before");
        return 0;
    }
    CurveFile again;
    std::istringstream written(text(file));
    require(again.read(written) && text(again) == text(file));
    use(file);
    return 0;
}
