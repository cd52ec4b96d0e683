// SPDX-License-Identifier: MIT
#include "Bindings.h"
#include "Errors.h"
#include "Formula.h"
#include "Spline.h"

#include <curveeditor/files/CurveFile.h>
#include <curveeditor/files/FileReplacement.h>
#include <curveeditor/files/SensorTable.h>
#include <curveeditor/files/TableReader.h>

#include <pybind11/numpy.h>
#include <pybind11/stl.h>
#include <pybind11/stl/filesystem.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <tuple>

namespace py = pybind11;
using namespace py::literals;

namespace curveeditor::python {

namespace {

using Color = std::tuple<int, int, int>;

/// A curve file as Python sees it: the spline, or the text of the formula.
struct CurveDocument
{
    std::variant<SplinePointer, std::string> content;
    Color color;
};

using Content = std::variant<SplinePointer, FormulaPointer, std::string>;

std::string formulaText(const Content& content)
{
    if (const auto* formula = std::get_if<FormulaPointer>(&content))
        return (*formula)->text();
    std::string text = std::get<std::string>(content);
    const auto isBlank = [](char c) {
        return std::isspace(static_cast<unsigned char>(c)) || c == '\0';
    };
    if (text.empty() || text.size() > FunctionParserBase::maximumLength ||
        std::any_of(text.begin(), text.end(), isBlank))
        raise(PyExc_ValueError, "the text of a formula in a file is one word; make a Formula of it");
    return text;
}

CurveDocument documentOf(const Content& content, const Color& color)
{
    for (const int component : {std::get<0>(color), std::get<1>(color), std::get<2>(color)}) {
        if (component < 0 || component > 255)
            raise(PyExc_ValueError, "red, green and blue are numbers from 0 to 255");
    }
    if (const auto* spline = std::get_if<SplinePointer>(&content))
        return {*spline, color};
    return {formulaText(content), color};
}

std::string documentText(const CurveDocument& document)
{
    CurveFile file;
    std::tie(file.color.red, file.color.green, file.color.blue) = document.color;
    if (const auto* spline = std::get_if<SplinePointer>(&document.content)) {
        file.spline.assign((*spline)->read().state());
    } else {
        file.kind = CurveFile::Expression;
        file.expression = std::get<std::string>(document.content);
    }
    std::ostringstream out;
    file.write(out);
    return out.str();
}

CurveDocument readDocument(const std::string& text)
{
    std::istringstream in(text);
    CurveFile file;
    if (!file.read(in))
        raise(PyExc_ValueError, "this is no curve file");
    const Color color{file.color.red, file.color.green, file.color.blue};
    if (file.kind == CurveFile::Expression)
        return {file.expression, color};
    return {std::make_shared<Spline>(file.spline.state()), color};
}

CurveDocument readFile(const py::object& path)
{
    const py::object file = py::module_::import("io").attr("open")(path, "rb");
    const auto content = file.attr("read")().cast<std::string>();
    file.attr("close")();
    return readDocument(content);
}

void replaceFile(const std::filesystem::path& path, const std::string& content)
{
    const auto write = [&] {
        const py::gil_scoped_release unlocked;
        return FileReplacement::write(path, content);
    };
    const std::error_code outcome = write();
    if (!outcome)
        return;
    const bool isSystem =
        outcome.category() == std::generic_category() || outcome.category() == std::system_category();
    const py::object type = py::reinterpret_borrow<py::object>(PyExc_OSError);
    const py::object error =
        isSystem ? type(outcome.value(), outcome.message(), path) : type(outcome.message());
    PyErr_SetObject(py::type::handle_of(error).ptr(), error.ptr());
    throw py::error_already_set();
}

TableReader::Decimal decimalOf(const std::optional<std::string>& sign)
{
    if (!sign)
        return TableReader::Decimal::FromText;
    if (*sign != "," && *sign != ".")
        raise(PyExc_ValueError, "the decimal sign is \",\" or \".\"");
    return *sign == "," ? TableReader::Decimal::Comma : TableReader::Decimal::Point;
}

TableReader::Table readTable(const std::string& text, const std::optional<std::string>& decimal)
{
    TableReader reader(text, decimalOf(decimal));
    std::optional<TableReader::Table> table = reader.readAll();
    if (!table)
        raise(PyExc_ValueError,
              "line " + std::to_string(reader.fault().line) + ": " + reader.fault().message());
    return std::move(*table);
}

void bindCurveFile(py::module_& module)
{
    py::class_<CurveDocument>(
        module, "CurveFile",
        "A curve as a curve file holds it: a spline, or the text of a formula, and a colour.")
        .def(py::init(&documentOf), "curve"_a, "color"_a = Color(255, 255, 255),
             "Of a spline, a formula or its text. The colour is red, green and blue from 0 to 255.")
        .def_property_readonly(
            "spline",
            [](const CurveDocument& self) -> SplinePointer {
                const auto* spline = std::get_if<SplinePointer>(&self.content);
                return spline ? *spline : nullptr;
            },
            "None in the file of a formula.")
        .def_property_readonly(
            "formula",
            [](const CurveDocument& self) {
                const auto* text = std::get_if<std::string>(&self.content);
                return text ? std::optional(*text) : std::nullopt;
            },
            "The text of the formula, which is not parsed; None in the file of a spline.")
        .def_readonly("color", &CurveDocument::color, "Red, green and blue.")
        .def("to_text", &documentText, "The content of the file.")
        .def_static("from_text", &readDocument, "text"_a,
                    "Reads such a content; raises ValueError where it is none.")
        .def(
            "write",
            [](const CurveDocument& self, const std::filesystem::path& path) {
                replaceFile(path, documentText(self));
            },
            "path"_a, "Writes the file as `replace_file` does.")
        .def_static("read", &readFile, "path"_a,
                    "Reads a file; raises OSError, or ValueError where it is no curve file.")
        .def(py::pickle([](const CurveDocument& self) { return py::make_tuple(self.content, self.color); },
                        [](const py::tuple& state) {
                            return documentOf(state[0].cast<Content>(), state[1].cast<Color>());
                        }));
}

void bindTables(py::module_& module)
{
    using Table = TableReader::Table;
    const auto toArray = [](const std::vector<double>& numbers) {
        return py::array_t<double>(py::ssize_t(numbers.size()), numbers.data());
    };
    py::class_<Table>(module, "Table", "The rows of a text table, ascending in time.")
        .def_readonly("names", &Table::names, "One for each column, that of the time first.")
        .def_property_readonly(
            "times", [toArray](const Table& self) { return toArray(self.times); }, "The first column.")
        .def_property_readonly(
            "columns",
            [toArray](const Table& self) {
                py::list columns;
                for (const std::vector<double>& column : self.columns)
                    columns.append(toArray(column));
                return columns;
            },
            "All other columns.")
        .def_readonly("lines", &Table::lines, "Where each row stands in the text.");
    module.def("read_table", &readTable, "text"_a, py::kw_only(), "decimal"_a = py::none(),
               "Reads a text table: columns apart by tabs, semicolons, commas or blanks, times first, with a "
               "head or "
               "without. Where the comma can be read in two ways, `decimal` says which sign is meant.");
    module.def("sensor_table_head", &SensorTable::head, "curves"_a, "rows"_a, "The head of a sensor table.");
    module.def("sensor_table_row", &SensorTable::row, "time"_a, "values"_a, "A row of a sensor table.");
}

} // namespace

void bindFiles(py::module_& module)
{
    bindCurveFile(module);
    bindTables(module);
    module.def(
        "replace_file", &replaceFile, "path"_a, "content"_a,
        "Makes `content` the content of the file: whatever happens, it is the old one or the new one, whole. "
        "Raises OSError.");
}

} // namespace curveeditor::python
