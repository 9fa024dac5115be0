"""Conan 2 recipe, exported together with the sources: conan create packaging/conan --build=missing"""

import os
import re

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load

required_conan_version = ">=2.0"


class UnitlibRecipe(ConanFile):
    name = "unitlib"
    description = "Project units for construction, CAD and BIM programs"
    license = "MIT"
    topics = ("units", "construction", "imperial", "settings")
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "dialogs": [True, False]}
    default_options = {"shared": False, "dialogs": False}

    @property
    def _project(self):
        return os.path.join(self.recipe_folder, os.pardir, os.pardir)

    def set_version(self):
        text = load(self, os.path.join(self._project, "CMakeLists.txt"))
        self.version = re.search(r"project\(unitlib VERSION ([\d.]+)", text)[1]

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "unitlib/*", "python/unitlib/*.py", "python/unitlib/py.typed"):
            copy(self, pattern, self._project, self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def requirements(self):
        self.requires("pugixml/[>=1.12 <2]")
        self.requires("pcre2/[>=10.40 <11]")
        self.requires("boost/[>=1.74 <2]", headers=True, libs=False, visible=False)
        if self.options.dialogs:
            self.requires("wxwidgets/[>=3.2 <3.3]", transitive_headers=True)

    def build_requirements(self):
        self.tool_requires("cmake/[>=3.22]")
        self.tool_requires("pkgconf/[>=1.8]")

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["UNITLIB_BUILD_UI"] = bool(self.options.dialogs)
        toolchain.cache_variables["UNITLIB_BUILD_APPS"] = False
        toolchain.cache_variables["UNITLIB_BUILD_TESTS"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        CMake(self).install()

    def package_info(self):
        core = self.cpp_info.components["core"]
        core.set_property("cmake_target_name", "unitlib::core")
        core.set_property("pkg_config_name", "unitlib-core")
        core.libs = ["unitlib"]
        core.requires = ["pugixml::pugixml", "pcre2::pcre2-8"]
        capi = self.cpp_info.components["capi"]
        capi.set_property("cmake_target_name", "unitlib::capi")
        capi.set_property("pkg_config_name", "unitlib-capi")
        capi.libs = ["unitlib" if self.settings.os == "Windows" else "unitlib_c"]
        if self.options.dialogs:
            dialogs = self.cpp_info.components["ui"]
            dialogs.set_property("cmake_target_name", "unitlib::ui")
            dialogs.set_property("pkg_config_name", "unitlib-ui")
            dialogs.libs = ["unitlib_ui"]
            dialogs.requires = ["core", "wxwidgets::wxwidgets"]
