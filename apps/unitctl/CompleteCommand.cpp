/// unitctl complete: the candidates for the word under the cursor. The shells call it (see completions/); it
/// is in no list of commands.
#include "apps/unitctl/Command.h"
#include "apps/unitctl/Completion.h"
#include "apps/unitctl/Texts.h"

#include <CLI/CLI.hpp>

#include <memory>

namespace unitlib::app {

void AddCompleteCommand(CLI::App& App, TContext& Context) {
  auto Words = std::make_shared<std::vector<std::string>>();
  CLI::App* Command = AddCommand(App, "complete", "", Say("help.complete"), "unitctl complete -- format Ar");
  AddTexts(*Command, "WORD", *Words, Say("option.complete.words"))->required();
  Command->callback([&Context, Words] {
    std::string Lines;
    for (const std::string& Candidate : Complete(*Words)) Lines += Candidate + "\n";
    Context.Print(Lines);
  });
}

} // namespace unitlib::app
