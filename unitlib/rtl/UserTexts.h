/// The texts that a user reads, and the hook through which a host puts its own language in their place.
/// Texts are named by keys such as "dialog.cancel". What a settings file stores and compares (descriptions of
/// unit systems, measures, units, roundings and symbols) is no such text and stays as it is; so do the
/// messages of errors, which are for a host's log and carry what they are about as data (see Errors.h).
#pragma once

#include "unitlib/rtl/MethodPtr.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace unitlib {

/// The host's text for a key; English is the text that stands there without it. Empty: it stays English.
using TTextSource = TMethodPtr<std::u16string(std::u16string_view Key, std::u16string_view English)>;

/// Sets the host's source (empty: English) and returns the one set before. Texts are asked for when they are
/// shown, on the thread that shows them; a dialog that is open keeps what it has. A source may raise errors.
TTextSource SetTextSource(TTextSource Source) noexcept;

/// The text for a key: the source's, or else the English one.
/// errors      those of the source
std::u16string UserText(std::u16string_view Key, std::u16string_view English);

/// Texts by key, read from UTF-8 (a mark at its start is passed over). One text a line:
///   # a comment
///   dialog.cancel = Abbrechen
/// Blanks around key and text do not count. In a text \n is a line break, \t a tab, \s a blank (for the ends
/// of a text), \\ a backslash; {0}, {1} ... stand for what the program puts in.
class TTextTable {
public:
  struct TEntry {
    std::u16string Key;
    std::u16string Text;
    int Line = 0; // counted from 1
  };

  TTextTable() = default;
  /// errors      EFileError the file cannot be read; EConvertError a line is no entry, a text is empty, a key
  ///             occurs twice, an escape is unknown, not UTF-8; the message begins with "Path:Line: "
  static TTextTable FromFile(std::u16string_view Path);
  static TTextTable FromMemory(std::string_view Content, std::u16string_view Path = {});

  /// In the order of the keys.
  std::span<const TEntry> Entries() const noexcept { return FEntries; }
  /// The text for a key; null when the table has none.
  const std::u16string* Find(std::u16string_view Key) const noexcept;
  /// Adds or replaces a text; an empty one removes the key.
  void Set(std::u16string_view Key, std::u16string_view Text);

private:
  std::vector<TEntry> FEntries;
};

/// Takes the texts from a file from now on, in place of a source set before; what the file does not have
/// stays English. An empty path: all English again. After an error nothing has changed.
/// errors      as TTextTable::FromFile
void LoadTextTable(std::u16string_view Path);

/// Replaces one text from now on (empty: English again), on top of LoadTextTable and in place of a source set
/// before.
void SetUserText(std::u16string_view Key, std::u16string_view Text);

/// A text with its escapes, as a table's line has it.
std::u16string EscapedText(std::u16string_view Text);

/// Text with {0}, {1} ... replaced by the values; a number without a value stays.
std::u16string FillText(std::u16string_view Text, std::span<const std::u16string> Values);

} // namespace unitlib
