#include "apps/takeoff/SampleHouse.h"

#include <string_view>

namespace unitlib::takeoff {
namespace {

struct TRow {
  std::u16string_view Name;
  int Measure;  // 0 length, 7 length as a result, 3 elevation, 1 area, 2 volume, 6 mass, 4 density, 5 volume
                // per length
  double Value; // mm, mm2, mm3, kg, kg/m3, m3/m
  std::u16string_view Elevation;
};

// Made up for this program; examples/data/README.md says how the values come about.
constexpr TRow Rows[] = {
    {u"Strip footing, centre line", 7, 35040, u"L1-0.75"},
    {u"Strip footing, concrete per metre (500 x 300)", 5, 0.15, u""},
    {u"Strip footing, concrete", 2, 5256000000, u""},
    {u"Strip footing, 4 bars of 12 mm", 6, 124.46208, u""},
    {u"Concrete, density", 4, 2400, u""},
    {u"Ground slab, thickness", 0, 150, u"L1-0.15"},
    {u"Ground slab, area between the walls", 1, 71590400, u"L1"},
    {u"Ground slab, concrete", 2, 10738560000, u""},
    {u"Walls, height", 0, 2600, u"L1"},
    {u"Walls, thickness", 0, 240, u""},
    {u"Walls, outer faces", 1, 93600000, u"L1"},
    {u"Walls, openings", 1, -11876350, u""},
    {u"Walls, masonry", 2, 19014636000, u""},
    {u"Walls, masonry, mass", 6, 30423.4176, u""},
    {u"Ring beam, concrete", 2, 2102400000, u"L1+2.6"},
    {u"Front door, width", 0, 1010, u"L1"},
    {u"Front door, height", 0, 2135, u"L1"},
    {u"Window sill", 3, 900, u"L1+0.9"},
    {u"Ridge", 3, 5650.83, u"L1+5.65083"},
    {u"Rafter, 80 x 200", 0, 5493.49, u"L1+2.85"},
    {u"Rafters, 30 pieces", 7, 164804.7, u""},
    {u"Roof, both faces", 1, 118659384, u""},
    {u"Roof, timber of the rafters", 2, 2636875200, u""},
    {u"Roof, tiles, mass", 6, 5339.67228, u""},
};

} // namespace

std::vector<TItem> SampleHouse() {
  std::vector<TItem> Items;
  for (const TRow& Row : Rows) {
    TItem Item;
    Item.Name = Row.Name;
    Item.Measure = Row.Measure;
    Item.Value = Row.Value;
    Item.Elevation = Row.Elevation;
    Items.push_back(Item);
  }
  return Items;
}

} // namespace unitlib::takeoff
