// SPDX-License-Identifier: MIT
#pragma once

#include <pybind11/pybind11.h>

#include <memory>

namespace curveeditor::python {

/// For objects that functions of the module get as shared pointers: None is none, which raises TypeError.
template <typename T> class NeverNull : public pybind11::detail::copyable_holder_caster<T, std::shared_ptr<T>>
{
public:
    bool load(pybind11::handle source, bool convert)
    {
        using Caster = pybind11::detail::copyable_holder_caster<T, std::shared_ptr<T>>;
        return !source.is_none() && Caster::load(source, convert);
    }
};

/// The function of a class for a method or a property: as such it would take None for an object.
template <typename Result, typename Class> auto method(Result (Class::*function)() const)
{
    return [function](const Class& self) -> Result {
        return (self.*function)();
    };
}

} // namespace curveeditor::python
