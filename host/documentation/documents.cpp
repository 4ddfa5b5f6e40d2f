#include "host/documentation/documents.h"

#include "host/documentation/completions.h"
#include "host/documentation/manualpage.h"

namespace brvhost {
namespace {

std::string PagePath(const std::string& name) { return "man/man1/" + name + ".1"; }

}  // namespace

std::vector<Document> DocumentsOf(const CLI::App& app, const std::string& date) {
  std::vector<Document> documents = {{"bash-completion/completions/brvhost", BashCompletion(app)},
                                     {"zsh/site-functions/_brvhost", ZshCompletion(app)},
                                     {PagePath(app.get_name()), ProgramPage(app, date)}};
  for (const CommandText& command : DescribeCommands(app)) {
    documents.push_back({PagePath(PageName(app, command)), CommandPage(app, command, date)});
  }
  return documents;
}

}  // namespace brvhost
