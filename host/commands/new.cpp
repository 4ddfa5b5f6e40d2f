#include <cstdio>
#include <string>

#include "host/commands/commands.h"
#include "host/commands/usageerror.h"
#include "host/process/exitstatus.h"
#include "host/process/streams.h"
#include "host/project/choices.h"
#include "host/project/newproject.h"
#include "host/text/printable.h"

namespace brvhost {
namespace {

void Refuse(const std::string& value, const std::string& wrong) {
  if (!wrong.empty()) throw UsageError(Excerpt(value) + ": " + wrong);
}

ProjectChoices ChoicesOf(const Options& options) {
  Refuse(options.newName.empty() ? "NAME" : options.newName, WrongName(options.newName));
  ProjectChoices choices;
  choices.name = options.newName;
  choices.identifier = options.identifier.empty() ? DefaultIdentifier(choices.name) : options.identifier;
  Refuse(choices.identifier, WrongIdentifier(choices.identifier));
  choices.languages = LanguagesIn(options.languages);
  for (const std::string& language : choices.languages)
    Refuse(language.empty() ? "--languages" : "--languages " + language, WrongLanguage(language));
  return choices;
}

}  // namespace

int MakeExtension(const Options& options) {
  const ProjectChoices choices = ChoicesOf(options);
  MakeProject(choices);
  Print(stdout, "{0} is made. To build it and run its tests:\n\n    cd {0}\n    cmake -S . -B build\n", choices.name);
  Print(stdout, "    cmake --build build\n    ctest --test-dir build\n");
  return kDone;
}

}  // namespace brvhost
