/// A small JSON writer.
#pragma once

#include <string>
#include <string_view>

namespace unitlib::app {

/// Writes one JSON value, indented by two blanks. The caller opens and closes in the right order.
///   TJson Json; Json.Open('{'); Json.Key("name"); Json.Text("x"); Json.Close('}');
class TJson {
public:
  void Open(char Bracket);  // '{' or '['
  void Close(char Bracket); // '}' or ']'
  void Key(std::string_view Name);
  void Text(std::string_view Value);
  void Text(std::u16string_view Value);
  void Number(int Value);
  void Boolean(bool Value);
  void Null();

  /// The document with a line feed at its end.
  std::string Take();

private:
  void Start();
  void Indent();

  std::string FText;
  int FDepth = 0;
  bool FFirst = true;     // nothing stands in the open bracket yet
  bool FAfterKey = false; // a value belongs behind the key
};

} // namespace unitlib::app
