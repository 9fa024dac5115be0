#!/usr/bin/env python3
"""Compares a factory-default settings file with the second writing-down of its content.

  check_default_file.py UnitConfig.xml
"""

import sys
import xml.etree.ElementTree as tree

import defaults


def found_elements(element, depth=0):
    yield depth, element.tag, list(element.attrib.items())
    for child in element:
        yield from found_elements(child, depth + 1)


def main():
    found = list(found_elements(tree.parse(sys.argv[1]).getroot()))
    wanted = [(depth, name, list(attributes.items())) for depth, name, attributes in defaults.elements()]
    wrong = [(a, b) for a, b in zip(found, wanted) if a != b]
    for a, b in wrong[:20]:
        print(f"found  {a}\nwanted {b}")
    if len(found) != len(wanted):
        print(f"found {len(found)} elements, wanted {len(wanted)}")
        return 1
    print(f"{len(found)} elements compared, {len(wrong)} differ")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
