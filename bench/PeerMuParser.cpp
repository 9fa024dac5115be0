/// muParser: arithmetic.
#include "bench/Inputs.h"
#include "bench/Row.h"

#if UNITLIB_BENCH_MUPARSER
#include <muParser.h>
#endif

namespace unitlib::bench {

#if UNITLIB_BENCH_MUPARSER
void AddMuParserRows() {
  static const std::vector<std::string> Texts = Narrow(Inputs().PlainExpressions);
  AddRow("Parse, merge, value, \"(1+2)*3-4/5*(6-7)\"", "muParser", Texts, {}, [](const std::string& Text) {
    static mu::Parser Parser;
    Parser.SetExpr(Text);
    return Parser.Eval();
  });
}
#else
void AddMuParserRows() {}
#endif

} // namespace unitlib::bench
