#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <istream>
#include <ostream>

#include "base/platform.h"
#include "cli/commands.h"
#include "cli/messages.h"
#include "cli/terminal_user.h"
#include "database/program_settings.h"

namespace tarvex::cli {
namespace {

// The options that stand before the command.
struct GlobalOptions {
  bool json = false;
  std::string answer = "ask";
  std::vector<std::string> replies;
  std::string user;
  std::string settings_file;
};

void AddGlobalOptions(CLI::App& app, GlobalOptions& options) {
  app.add_flag("--json", options.json, "Give one JSON document instead of text");
  app.add_option("--answer", options.answer, "The button pressed in every box")
      ->check(CLI::IsMember({"yes", "no", "cancel", "ask"}))
      ->option_text("yes|no|cancel|ask");
  app.add_option("--reply", options.replies, "The text for the next input box; may be repeated")
      ->allow_extra_args(false)
      ->option_text("TEXT");
  app.add_option("--user", options.user, "Who runs the command")->option_text("NAME");
  app.add_option("--settings", options.settings_file, "The program's settings file, instead of its defaults")
      ->option_text("FILE");
}

AnswerPolicy PolicyOf(const GlobalOptions& options) {
  AnswerPolicy policy;
  if (options.answer == "yes") policy.answer = Answer::Yes;
  if (options.answer == "no") policy.answer = Answer::No;
  if (options.answer == "cancel") policy.answer = Answer::Cancel;
  policy.replies.assign(options.replies.begin(), options.replies.end());
  policy.is_person_there = platform::InputIsTerminal() && platform::ErrorIsTerminal();
  return policy;
}

}  // namespace

int RunCommandLine(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                   std::ostream& err) {
  GlobalOptions options;
  Command chosen;
  CLI::App app("Runs athletics meets from the command line.", "tarvexctl");
  app.require_subcommand(1);
  app.fallthrough();
  AddGlobalOptions(app, options);
  AddFileCommands(app, chosen);
  AddSetupCommands(app, chosen);
  AddSeedingCommands(app, chosen);
  AddResultCommands(app, chosen);
  AddScoringCommands(app, chosen);
  try {
    // The parser takes its arguments from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    const bool is_help = app.exit(error, out, err) == 0;
    return is_help ? kDone : kWrongUsage;
  }
  TerminalUser user(PolicyOf(options), platform::ErrorIsTerminal(), in, err);
  database::Session session;
  session.user = options.user;
  session.now = platform::NowAsDays();
  if (!options.settings_file.empty()) {
    const auto text = ReadFile(options.settings_file);
    if (!text.ok()) {
      user.Tell(InputUnreadable(text.status().detail));
      return kWrongUsage;
    }
    session.program = database::ParseProgramSettings(*text);
  }
  Context context(options.json, std::move(session), user, out);
  return chosen(context);
}

}  // namespace tarvex::cli
