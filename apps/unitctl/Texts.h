/// The texts of unitctl by key, each checked against the table when it is compiled.
#pragma once

#include "apps/unitctl/TextRows.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

namespace unitlib::app {

/// A key of the table whose text takes this many values. Another key, or a text with other places, does not
/// compile.
template <std::size_t Places> class TTextKey {
public:
  consteval TTextKey(const char* Key) : FRow(&RowOf(Key)) { // NOLINT(google-explicit-constructor)
    if (PlacesIn(FRow->English) != Places) throw "the text takes another number of values";
  }
  constexpr const TTextRow& Row() const { return *FRow; }

private:
  static consteval const TTextRow& RowOf(std::string_view Key) {
    for (const TTextRow& Row : TextRows)
      if (Row.Key == Key) return Row;
    throw "no text has this key";
  }
  /// One more than the highest number in braces.
  static consteval std::size_t PlacesIn(std::string_view Text) {
    std::size_t Result = 0;
    for (std::size_t I = 0; I + 2 < Text.size(); ++I)
      if (Text[I] == '{' && Text[I + 2] == '}' && Text[I + 1] >= '0' && Text[I + 1] <= '9') {
        const auto Place = static_cast<std::size_t>(Text[I + 1] - '0') + 1;
        if (Place > Result) Result = Place;
      }
    return Result;
  }

  const TTextRow* FRow;
};

/// A text with its values, UTF-8.
std::string FilledText(const TTextRow& Row, const std::string_view* Values, std::size_t Count);

/// The text for a key, in the language of the run, with the values in its places.
///   Say("names.unknown", What, Nearest)
template <class... A> std::string Say(std::type_identity_t<TTextKey<sizeof...(A)>> Key, const A&... Values) {
  const std::string_view All[] = {std::string_view(Values)..., {}};
  return FilledText(Key.Row(), All, sizeof...(A));
}

/// Takes the texts of this run from a file (UTF-8 path); empty: English.
/// errors      as LoadTextTable
void LoadTexts(std::string_view Path);

} // namespace unitlib::app
