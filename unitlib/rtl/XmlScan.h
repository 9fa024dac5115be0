/// What is looked at in a document before the XML parser sees it, so that it needs little memory for any
/// file.
#pragma once

#include <cstddef>
#include <string>

namespace unitlib {

/// What is wrong with a document, and where.
struct TXmlScan {
  enum TResult {
    Fine,
    Unfinished,  // it ends in the middle of a tag or comment, or before every element was closed
    BadCharacter // a reference to a character that XML cannot carry
  };
  TResult Result = Fine;
  std::size_t Offset = 0; // of what was not finished, of the reference
};

/// Goes once over Source, UTF-8 without NUL, and overwrites the text between tags, which settings files have
/// no use for, by blanks (line ends stay). Blanks are no nodes to the parser, and neither are the elements of
/// a file that leaves them open. What remains takes at least four bytes of the file for one node.
TXmlScan BlankTextBetweenTags(std::string& Source) noexcept;

} // namespace unitlib
