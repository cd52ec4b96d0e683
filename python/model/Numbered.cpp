// SPDX-License-Identifier: MIT
#include "Numbered.h"

#include <curveeditor/model/SplineBase.h>

namespace py = pybind11;

namespace curveeditor::python {

namespace {

py::object memberOf(const char* enumeration, std::int32_t number)
{
    return py::module_::import("curveeditor._model").attr(enumeration)(number);
}

} // namespace

py::object toPointType(std::int32_t number)
{
    return memberOf("PointType",
                    number >= SplineBase::Linear && number <= SplineBase::Hold ? number : SplineBase::Linear);
}

py::object toBehaviour(std::int32_t number)
{
    return memberOf("Behaviour", number >= SplineBase::Zero && number <= SplineBase::FollowTangent
                                     ? number
                                     : SplineBase::Constant);
}

std::int32_t checkedPointType(std::int32_t number)
{
    return memberOf("PointType", number).cast<std::int32_t>();
}

std::int32_t checkedBehaviour(std::int32_t number)
{
    return memberOf("Behaviour", number).cast<std::int32_t>();
}

} // namespace curveeditor::python
