// SPDX-License-Identifier: MIT
#pragma once

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QPair>
#include <QPointF>
#include <QRectF>
#include <QString>

/// @{
/// Values of Qt as those of PyQt6, and texts as those of Python. Whatever makes a QColor, a QRectF or a QPointF of PyQt6
/// alone is taken for one.
namespace pybind11::detail {

template <> struct type_caster<QString>
{
    PYBIND11_TYPE_CASTER(QString, const_name("str"));

    bool load(handle source, bool)
    {
        if (!PyUnicode_Check(source.ptr()))
            return false;
        Py_ssize_t size = 0;
        const char* const utf8 = PyUnicode_AsUTF8AndSize(source.ptr(), &size);
        if (!utf8) {
            PyErr_Clear();
            return false;
        }
        value = QString::fromUtf8(utf8, size);
        return true;
    }
    static handle cast(const QString& text, return_value_policy, handle)
    {
        const QByteArray utf8 = text.toUtf8();
        return PyUnicode_DecodeUTF8(utf8.constData(), utf8.size(), "replace");
    }
};

template <> struct type_caster<QByteArray>
{
    PYBIND11_TYPE_CASTER(QByteArray, const_name("bytes"));

    bool load(handle source, bool)
    {
        if (!PyBytes_Check(source.ptr()))
            return false;
        value = QByteArray(PyBytes_AS_STRING(source.ptr()), PyBytes_GET_SIZE(source.ptr()));
        return true;
    }
    static handle cast(const QByteArray& content, return_value_policy, handle)
    {
        return bytes(content.constData(), std::size_t(content.size())).release();
    }
};

/// The object that the class of PyQt6 makes of `source`; null if it makes none.
inline object convertedBy(const char* module, const char* name, handle source)
{
    try {
        return module_::import(module).attr(name)(source);
    } catch (error_already_set& error) {
        if (!error.matches(PyExc_TypeError))
            throw;
        return {};
    }
}

template <> struct type_caster<QColor>
{
    PYBIND11_TYPE_CASTER(QColor, const_name("PyQt6.QtGui.QColor"));

    bool load(handle source, bool)
    {
        const object color = convertedBy("PyQt6.QtGui", "QColor", source);
        if (!color)
            return false;
        if (color.attr("isValid")().cast<bool>()) {
            const auto [red, green, blue, alpha] =
                color.attr("getRgb")().cast<std::tuple<int, int, int, int>>();
            value = QColor(red, green, blue, alpha);
        }
        return true;
    }
    static handle cast(const QColor& color, return_value_policy, handle)
    {
        const object type = module_::import("PyQt6.QtGui").attr("QColor");
        return (color.isValid() ? type(color.red(), color.green(), color.blue(), color.alpha()) : type())
            .release();
    }
};

template <> struct type_caster<QRectF>
{
    PYBIND11_TYPE_CASTER(QRectF, const_name("PyQt6.QtCore.QRectF"));

    bool load(handle source, bool)
    {
        const object rect = convertedBy("PyQt6.QtCore", "QRectF", source);
        if (!rect)
            return false;
        const auto [left, top, width, height] =
            rect.attr("getRect")().cast<std::tuple<double, double, double, double>>();
        value = QRectF(left, top, width, height);
        return true;
    }
    static handle cast(const QRectF& rect, return_value_policy, handle)
    {
        const object type = module_::import("PyQt6.QtCore").attr("QRectF");
        return type(rect.x(), rect.y(), rect.width(), rect.height()).release();
    }
};

template <> struct type_caster<QPointF>
{
    PYBIND11_TYPE_CASTER(QPointF, const_name("PyQt6.QtCore.QPointF"));

    bool load(handle source, bool)
    {
        const object point = convertedBy("PyQt6.QtCore", "QPointF", source);
        if (!point)
            return false;
        value = QPointF(point.attr("x")().cast<double>(), point.attr("y")().cast<double>());
        return true;
    }
    static handle cast(const QPointF& point, return_value_policy, handle)
    {
        return module_::import("PyQt6.QtCore").attr("QPointF")(point.x(), point.y()).release();
    }
};

template <typename Value> struct type_caster<QList<Value>> : list_caster<QList<Value>, Value>
{
};

} // namespace pybind11::detail
/// @}
