# SPDX-License-Identifier: MIT
"""Recipe for Conan 2, of the checkout that it lies in: conan create packaging/conan"""
import os

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class CurveEditorRecipe(ConanFile):
    name = "curveeditor"
    version = "0.2.0"
    description = "Curve editor for Qt applications"
    license = "MIT"
    package_type = "library"
    settings = "os", "compiler", "build_type", "arch"
    options = {"shared": [True, False], "fPIC": [True, False], "gui": [True, False]}
    default_options = {"shared": False, "fPIC": True, "gui": True, "qt/*:widgets": True}
    implements = ["auto_shared_fpic"]
    generators = "CMakeDeps"

    def export_sources(self):
        root = os.path.join(self.recipe_folder, "..", "..")
        for pattern in ["CMakeLists.txt", "LICENSE", "cmake/*", "curveeditor/*", "docs/Doxyfile.in"]:
            copy(self, pattern, src=root, dst=self.export_sources_folder)

    def requirements(self):
        if self.options.gui:
            self.requires("qt/[>=6.2 <7]", transitive_headers=True, transitive_libs=True)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["CURVEEDITOR_BUILD_GUI"] = bool(self.options.gui)
        toolchain.cache_variables["CURVEEDITOR_BUILD_TESTS"] = False
        toolchain.cache_variables["CURVEEDITOR_BUILD_EXAMPLES"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "LICENSE", src=self.source_folder, dst=os.path.join(self.package_folder, "licenses"))

    def package_info(self):
        self.cpp_info.set_property("cmake_file_name", "CurveEditor")
        model = self.cpp_info.components["model"]
        model.libs = ["CurveEditorModel"]
        model.set_property("cmake_target_name", "CurveEditor::Model")
        model.set_property("pkg_config_name", "CurveEditorModel")
        if self.options.gui:
            editor = self.cpp_info.components["editor"]
            editor.libs = ["CurveEditor"]
            editor.requires = ["model", "qt::qtWidgets"]
            editor.set_property("cmake_target_name", "CurveEditor::CurveEditor")
            editor.set_property("pkg_config_name", "CurveEditor")
