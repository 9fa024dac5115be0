"""packaging_check.py ROOT: the files for other package managers, whose tools are not at hand here, are well-formed and name
what exists: options, targets, libraries, folders, dependencies."""

import ast
import json
import pathlib
import re
import sys

root = pathlib.Path(sys.argv[1])
problems = []


def read(name: str) -> str:
    return (root / name).read_text(encoding="utf-8")


def require(condition: object, problem: str) -> None:
    if not condition:
        problems.append(problem)


cmake = "\n".join(read(name) for name in ("CMakeLists.txt", "unitlib/CMakeLists.txt", "unitlib/ui/CMakeLists.txt",
                                          "unitlib/capi/CMakeLists.txt", "cmake/UnitlibInstall.cmake"))


def check_options(name: str, text: str) -> None:
    for option in set(re.findall(r"\bUNITLIB_\w+", text)):
        require(re.search(rf"\b(option|cmake_dependent_option)\({option}\b", cmake), f"{name}: there is no option {option}")


def check_conan() -> None:
    name = "packaging/conan/conanfile.py"
    text = read(name)
    tree = ast.parse(text, name)
    compile(tree, name, "exec")
    recipe = next(node for node in tree.body if isinstance(node, ast.ClassDef))
    methods = {node.name for node in recipe.body if isinstance(node, ast.FunctionDef)}
    for method in ("set_version", "export_sources", "requirements", "generate", "build", "package", "package_info"):
        require(method in methods, f"{name}: no {method}")
    for target in re.findall(r'"unitlib::(\w+)"', text):
        require(f"unitlib::{target} ALIAS" in cmake, f"{name}: there is no target unitlib::{target}")
    for pattern in re.findall(r'"((?:cmake|unitlib|python)/[\w./*]+|CMakeLists\.txt|LICENSE)"', text):
        require(list(root.glob(pattern)), f"{name}: {pattern} names nothing")
    check_options(name, text)


def check_vcpkg() -> None:
    folder = "packaging/vcpkg/ports/unitlib/"
    port = json.loads(read(folder + "vcpkg.json"))
    require(re.fullmatch(r"[a-z0-9]+(-[a-z0-9]+)*", port["name"]), "vcpkg.json: the name is not allowed")
    require(re.fullmatch(r"\d+\.\d+\.\d+", port["version"]), "vcpkg.json: the version is not semantic")
    allowed = {"$schema", "name", "version", "description", "homepage", "license", "supports", "dependencies", "features"}
    require(set(port) <= allowed, f"vcpkg.json: unknown fields {set(port) - allowed}")
    for feature in port["features"].values():
        require(set(feature) <= {"description", "dependencies"}, "vcpkg.json: unknown field of a feature")
    for dependency in port["dependencies"] + [d for f in port["features"].values() for d in f["dependencies"]]:
        require(isinstance(dependency, str) or set(dependency) <= {"name", "host", "version>=", "features"},
                f"vcpkg.json: {dependency}")
    text = read(folder + "portfile.cmake")
    require(text.count("(") == text.count(")"), "portfile.cmake: brackets do not match")
    require("vcpkg_install_copyright" in text and "vcpkg_cmake_install()" in text, "portfile.cmake: a step is missing")
    check_options("portfile.cmake", text)


check_conan()
check_vcpkg()
for problem in problems:
    print(problem)
sys.exit(bool(problems))
