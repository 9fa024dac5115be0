import unitlib
from unitlib import Code

unitlib.generate_default("units.xml")  # the factory settings, once
unitlib.load_report("units.xml")
unitlib.use_config("US Imperial System")
print(unitlib.format_value(Code.LENGTH, 1689.1))  # 5' 6 1/2"
print(unitlib.parse_value(Code.LENGTH, "5'6 1/2\""), "mm")  # 1689.1 mm
print(unitlib.format_values(Code.AREA, [92903.04, 1e9]))  # ['1.000', '10,763.910']
