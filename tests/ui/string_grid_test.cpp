/// The grid with more rows than fit: every row can be reached by each means.
#include "tests/ui/UiFixture.h"

#include <wx/button.h>
#include <wx/uiaction.h>

namespace unitlib {
namespace {

using namespace test;

class StringGrid : public ::testing::Test {
protected:
  static constexpr int Rows = 40;
  StringGrid()
      : Frame(new wxFrame(nullptr, wxID_ANY, "Grid", wxPoint(100, 100), wxSize(400, 300))),
        Grid(*new TStringGrid(Frame, "sgGridUnit", [](const auto& Body) { Body(); })) {
    Grid.SetCounts(2, Rows + 1);
    Grid.SetRowHeight(34);
    Grid.SetColWidths({200, 180});
    for (int Row = 1; Row <= Rows; ++Row) {
      Grid.SetCell(0, Row, wxString::Format("Row %d", Row));
      auto* const Button = new wxButton(Grid.Cells(), wxID_ANY, wxString::Format("%d", Row));
      Button->SetName(wxString::Format("b%d", Row));
      Grid.SetControl(Row, Button);
    }
    Frame->Show();
    Settle(80);
  }
  ~StringGrid() override {
    delete Frame;
    Settle(10);
  }
  wxButton& Button(int Row) { return Find<wxButton>(Grid, wxString::Format("b%d", Row)); }
  bool Shown(int Row) {
    const wxRect Cells(Grid.Cells()->GetClientSize());
    return Cells.Contains(Button(Row).GetRect());
  }
  wxPoint HeaderArrow(bool Up) {
    const int Height = Grid.RowHeight();
    return Grid.ClientToScreen(wxPoint(Grid.GetClientSize().x - (Up ? 3 : 1) * Height / 2, Height / 2));
  }
  static void ClickAt(wxPoint Point) {
    wxUIActionSimulator Simulator;
    Simulator.MouseMove(Point);
    Settle();
    Simulator.MouseClick();
    Settle();
  }

  wxFrame* Frame;
  TStringGrid& Grid;
};

TEST_F(StringGrid, ControlsLieOverTheirCells) {
  for (const int Row : {1, 2, 40}) EXPECT_EQ(Button(Row).GetRect(), Grid.CellRect(1, Row)) << Row;
  EXPECT_EQ(Grid.CellRect(0, 0), wxRect(0, 0, 200, 34));
  EXPECT_EQ(Grid.CellRect(1, 3), wxRect(200, 68, 180, 34));
  EXPECT_TRUE(Shown(1));
  EXPECT_FALSE(Shown(40));
}

TEST_F(StringGrid, CellsOutsideAreEmpty) {
  EXPECT_EQ(Grid.Cell(0, 3), "Row 3");
  for (const auto& [Col, Row] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, Rows + 1}})
    EXPECT_EQ(Grid.Cell(Col, Row), "");
}

TEST_F(StringGrid, FocusBringsARowIntoView) {
  FocusOn(Button(40));
  EXPECT_TRUE(Shown(40));
  EXPECT_FALSE(Shown(1));
  FocusOn(Button(1));
  EXPECT_TRUE(Shown(1));
}

TEST_F(StringGrid, KeysReachEveryRow) {
  FocusOn(Button(1));
  for (int Row = 2; Row <= Rows; ++Row) {
    PressKey(WXK_DOWN);
    ASSERT_EQ(FocusName(), wxString::Format("b%d", Row).utf8_string());
    ASSERT_TRUE(Shown(Row)) << Row;
  }
  PressKey(WXK_HOME);
  EXPECT_EQ(FocusName(), "b1");
  PressKey(WXK_PAGEDOWN);
  EXPECT_NE(FocusName(), "b1");
  PressKey(WXK_END);
  EXPECT_EQ(FocusName(), "b40");
}

TEST_F(StringGrid, WheelScrolls) {
  for (wxWindow* const Over : {static_cast<wxWindow*>(Grid.Cells()), static_cast<wxWindow*>(&Button(1))}) {
    wxMouseEvent Wheel(wxEVT_MOUSEWHEEL);
    Wheel.SetEventObject(Over);
    Wheel.m_wheelDelta = 120;
    Wheel.m_wheelRotation = -120 * 100;
    Over->ProcessWindowEvent(Wheel);
    EXPECT_TRUE(Shown(40));
    Wheel.m_wheelRotation = 120 * 100;
    Over->ProcessWindowEvent(Wheel);
    EXPECT_TRUE(Shown(1));
  }
}

TEST_F(StringGrid, HeaderArrowsScrollByPages) {
  for (int I = 0; I < 10; ++I) ClickAt(HeaderArrow(false));
  EXPECT_TRUE(Shown(40));
  for (int I = 0; I < 10; ++I) ClickAt(HeaderArrow(true));
  EXPECT_TRUE(Shown(1));
}

TEST_F(StringGrid, ClickOnATextFocusesItsRow) {
  const wxRect Row2 = Grid.CellRect(0, 2);
  ClickAt(Grid.Cells()->ClientToScreen(Row2.GetPosition() + wxPoint(20, 10)));
  EXPECT_EQ(FocusName(), "b2");
}

TEST_F(StringGrid, EmptyGridStandsEveryEvent) {
  Grid.SetCounts(2, 0);
  EXPECT_EQ(Grid.RowCount(), 0);
  Grid.ShowRow(7);
  ClickAt(Grid.Cells()->ClientToScreen(wxPoint(20, 10)));
  ClickAt(HeaderArrow(false));
  EXPECT_EQ(Grid.Cell(0, 0), "");
}

} // namespace
} // namespace unitlib
