// SPDX-License-Identifier: MIT
#pragma once

#include <pybind11/pybind11.h>

#include <memory>
#include <utility>

namespace curveeditor::python {

/// A function of Python's for the editor to keep and to call, which happens without the interpreter's lock.
class PythonCall
{
public:
    explicit PythonCall(pybind11::object function)
        : function_(new pybind11::object(std::move(function)), [](pybind11::object* kept) {
              if (!Py_IsInitialized())
                  return; // what is kept to the end of the process went with it
              const pybind11::gil_scoped_acquire locked;
              delete kept;
          })
    {
    }

    /// Calls it with what `arguments` gives, which is called with the lock, and gives what it returns to `use`. What
    /// it raises goes to the hook for exceptions that nobody can catch; then the result is false.
    template <typename Arguments, typename Use>
    bool operator()(const Arguments& arguments, const Use& use) const
    {
        if (!Py_IsInitialized())
            return false;
        const pybind11::gil_scoped_acquire locked;
        const Running running;
        try {
            use((*function_)(*arguments()));
            return true;
        } catch (pybind11::error_already_set& error) {
            error.discard_as_unraisable("a function that the curve editor called");
        } catch (const pybind11::cast_error&) {
            PyErr_SetString(PyExc_TypeError,
                            "a function that the curve editor called returned something else");
            pybind11::error_already_set().discard_as_unraisable("a function that the curve editor called");
        }
        return false;
    }
    template <typename Arguments> bool operator()(const Arguments& arguments) const
    {
        return (*this)(arguments, [](const pybind11::object&) {});
    }

    /// Counts while a function of Python's runs in a call of the editor, on its one thread.
    class Running
    {
    public:
        Running() { ++depth_; }
        ~Running() { --depth_; }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

        static bool isAny() { return depth_ > 0; }

    private:
        inline static int depth_ = 0;
    };

private:
    std::shared_ptr<pybind11::object> function_;
};

} // namespace curveeditor::python
