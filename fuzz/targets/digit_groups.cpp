/// Input: a letter for the class, then the text.
#include "fuzz/Check.h"
#include "fuzz/Targets.h"
#include "fuzz/slow/DigitGroups.h"
#include "unitlib/convert/ZELUnitDigitGroupParserRegister.h"

#include <algorithm>

namespace unitlib::fuzz {
namespace {

struct TClass {
  std::u16string_view Name;
  int Size;
};
constexpr TClass Classes[] = {{u"TDigitGroup3CommaParser", 3}, {u"TDigitGroup4CommaParser", 4},
                              {u"tdigitgroup3commaPARSER", 3}, {u"tDigitGroup4CommaParser", 4},
                              {u"TDigitGroupParser", 0},       {u"", 0},
                              {u"TDigitGroup3CommaParser ", 0}};

} // namespace

void RunDigitGroups(TInput& Input) {
  const TClass& Class = Classes[Input.Below(std::size(Classes))];
  const std::u16string Text = Input.RestText();
  const auto Parser = GetDigitGroupParser(Class.Name, Text);
  Require(Parser != nullptr, "a digit group parser", Class.Name);
  const std::u16string Grouped = Parser->ToStr();
  RequireSame("digit groups", Text, Grouped, slow::GroupDigits(Text, Class.Size));
  // The commas aside nothing is added, nothing lost.
  std::u16string Bare = Grouped, Given = Text;
  std::erase(Bare, u',');
  std::erase(Given, u',');
  RequireSame("the text without commas", Text, Bare, Given);
}

} // namespace unitlib::fuzz
