/// The cells of a take-off without any window: what a value or an elevation cell shows, offers for editing
/// and accepts.
#pragma once

#include "apps/takeoff/Item.h"

#include <string>
#include <string_view>

namespace unitlib::takeoff {

/// A value cell of one measure, under the settings that are current at each call.
///   TValueField(0).Read(u"3'6\"+2*1'") == 1676.4      TValueField(0).Display(1676.4) == u"5' 6\""
class TValueField {
public:
  explicit TValueField(int Measure) noexcept : FMeasure(Measure) {}

  /// The value as the schedule shows it, with its unit. What cannot be shown is said in brackets instead.
  std::u16string Display(double Value) const;
  /// True when Display shows the value.
  bool CanDisplay(double Value) const;

  /// The text an item was typed as, with the unit it was typed in when that is another one now.
  static std::u16string TypedText(const TItem& Item);

  /// The text that editing starts with: the typed one as long as it still means this value (it may have been
  /// typed in other units), else the value as exactly as the unit writes it.
  std::u16string EditText(const TItem& Item) const;

  /// The stored value of a typed text, read as an expression (see unitlib/typing). A text that can be read in
  /// two ways is refused: no wrong number is worth the saved key stroke.
  /// errors      ERefused, with the reason for the user and what to type instead
  double Read(std::u16string_view Text) const;

  /// How a text would be read, or why not, to tell while it is typed; empty for an empty text.
  std::u16string Hint(std::u16string_view Text) const;

private:
  int FMeasure;
};

/// An elevation cell: a length, or a name with an offset ("L1+5'"), or nothing.
class TElevationField {
public:
  TElevationField() = delete;

  static std::u16string Display(std::u16string_view Stored);
  static std::u16string EditText(std::u16string_view Stored);
  /// Unit of the lengths for a heading: u" [m]"; empty for feet and inches, which carry their marks.
  static std::u16string UnitSuffix();
  /// The stored form of a typed text: lengths in metres.
  /// errors      ERefused
  static std::u16string Read(std::u16string_view Text);
  static std::u16string Hint(std::u16string_view Text);
};

} // namespace unitlib::takeoff
