// SPDX-License-Identifier: MIT
#include "Numbered.h"

#include <curveeditor/model/SplineBase.h>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

py::object memberOf(const char* enumeration, std::int32_t number)
{
    return py::module_::import("curveeditor._model").attr(enumeration)(number);
}

} // namespace

py::object enumeration(const char* name, const char* text, const std::vector<const char*>& members)
{
    py::list words;
    for (std::size_t i = 0; i < members.size(); ++i)
        words.append(py::make_tuple(members[i], i));
    py::object type = py::module_::import("enum").attr("IntEnum")(name, words, "module"_a = "curveeditor");
    type.attr("__doc__") = text;
    return type;
}

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
