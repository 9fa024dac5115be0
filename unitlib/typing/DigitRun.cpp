#include "unitlib/typing/DigitRun.h"

#include "unitlib/rtl/Text.h"

#include <algorithm>

namespace unitlib::typing {
namespace {

using TView = std::u16string_view;

std::size_t CountOf(TView Text, char16_t C) {
  return static_cast<std::size_t>(std::count(Text.begin(), Text.end(), C));
}

std::u16string Without(TView Text, char16_t C) {
  std::u16string Result(Text);
  std::erase(Result, C);
  return Result;
}

/// True when Mark parts the digits into a first group of 1 to First and others of Size; a number does not
/// start with 0.
bool IsGrouped(TView Whole, char16_t Mark, std::size_t Size) {
  const std::size_t First = Whole.find(Mark);
  if (First == 0 || First > Size || Whole.front() == u'0') return false;
  for (TView Rest = Whole.substr(First); !Rest.empty(); Rest.remove_prefix(Size + 1))
    if (Rest.front() != Mark || Rest.size() < Size + 1 || CountOf(Rest.substr(1, Size), Mark) != 0)
      return false;
  return true;
}

/// 12,34,567: groups of two before the last one of three.
bool IsLakhGrouped(TView Whole) {
  const std::size_t Last = Whole.rfind(u',');
  if (Last == TView::npos || Whole.size() - Last != 4 || CountOf(Whole, u',') < 2) return false;
  return IsGrouped(Whole.substr(0, Last), u',', 2);
}

bool IsGrouping(TView Whole, char16_t Mark) {
  return IsGrouped(Whole, Mark, 3) || (Mark == u',' && (IsGrouped(Whole, Mark, 4) || IsLakhGrouped(Whole)));
}

TDigitRun Number(std::u16string Text, bool Grouped = false, bool DecimalComma = false) {
  if (!Text.empty() && Text.front() == u'.') Text.insert(0, 1, u'0');
  if (!Text.empty() && Text.back() == u'.') Text.pop_back();
  TDigitRun Run;
  Run.Text = std::move(Text);
  Run.Grouped = Grouped;
  Run.DecimalComma = DecimalComma;
  return Run;
}

TDigitRun Refused(std::u16string_view Reason, std::vector<std::u16string> Readings, bool Ambiguous = false) {
  TDigitRun Run;
  Run.Reason = Reason;
  Run.Ambiguous = Ambiguous;
  Run.Readings = std::move(Readings);
  return Run;
}

std::u16string CommaAsPoint(TView Run) {
  std::u16string Text(Run);
  std::replace(Text.begin(), Text.end(), u',', u'.');
  return Number(Text).Text;
}

/// One comma, no point, and a comma may be the decimal mark.
TDigitRun OneComma(TView Run) {
  if (IsGrouping(Run, u','))
    return Refused(u"the comma may separate thousands or be the decimal mark",
                   {Without(Run, u','), CommaAsPoint(Run) + u"0"}, true);
  return Number(CommaAsPoint(Run), false, true);
}

TDigitRun WithCommas(TView Run, bool DecimalComma, bool GroupsOfFour) {
  const std::size_t Point = Run.find(u'.'), Commas = CountOf(Run, u',');
  const TView Whole = Run.substr(0, Point);
  if (CountOf(Run, u'.') <= 1 && CountOf(Whole, u',') == Commas && IsGrouping(Whole, u',')) {
    const bool Alone = Commas == 1 && Point == TView::npos; // 1,234: the comma may be the decimal mark
    if (!(Alone && (DecimalComma || (!GroupsOfFour && !IsGrouped(Whole, u',', 3)))))
      return Number(Without(Run, u','), true);
  }
  if (DecimalComma && Commas == 1) {
    if (Point == TView::npos) return OneComma(Run);
    const std::size_t Comma = Run.find(u',');
    if (CountOf(Run.substr(Comma), u'.') == 0 && IsGrouped(Run.substr(0, Comma), u'.', 3))
      return Number(CommaAsPoint(Without(Run, u'.')), true, true);
  }
  if (Commas == 1 && Point == TView::npos)
    return Refused(u"a comma separates thousands; the decimal mark is a point",
                   {CommaAsPoint(Run), Number(Without(Run, u',')).Text}, true);
  return Refused(u"the commas separate no groups of three digits", {});
}

} // namespace

TDigitRun ReadDigitRun(TView Run, bool DecimalComma, bool GroupsOfFour) {
  if (Run.find(u',') != TView::npos) return WithCommas(Run, DecimalComma, GroupsOfFour);
  const std::size_t Points = CountOf(Run, u'.');
  if (Points <= 1) return Number(std::u16string(Run));
  if (DecimalComma && IsGrouped(Run, u'.', 3)) return Number(Without(Run, u'.'), true);
  return Refused(u"a number has one decimal point", {});
}

} // namespace unitlib::typing
