#include "cli/HelpLayout.h"

#include <memory>
#include <string>
#include <vector>

#include "cli/HelpTexts.h"
#include "platform/Program.h"

namespace quillon::cli {
namespace {

/// The parser's layout. Its left column is padded by bytes, so it holds only ASCII; the explanations are in the right
/// one.
class HelpLayout final : public CLI::Formatter {
 public:
  HelpLayout() {
    label("Usage", Localized(texts::kUsage));
    label("Positionals", Localized(texts::kPositionals));
  }

  std::string make_description(const CLI::App* app) const override { return app->get_description() + "\n"; }

  // One heading is enough, also when a command has the inherited help option besides its own options.
  std::string make_group(std::string group, bool isPositional, std::vector<const CLI::Option*> options) const override {
    return Formatter::make_group(isPositional ? group : Localized(texts::kOptions), isPositional, options);
  }

  std::string make_option_opts(const CLI::Option* option) const override {
    if (option->get_type_size() == 0) return "";
    const bool several = option->get_expected_max() >= CLI::detail::expected_max_vector_size;
    return " " + option->get_type_name() + (several ? " ..." : "");
  }

  std::string make_option_desc(const CLI::Option* option) const override {
    return option->get_description() + (option->get_required() ? Localized(texts::kRequired) : "");
  }
};

const char* KindOf(const CLI::Error& error) {
  switch (static_cast<CLI::ExitCodes>(error.get_exit_code())) {
    case CLI::ExitCodes::RequiredError:
    case CLI::ExitCodes::RequiresError: return texts::kTooFewArguments;
    case CLI::ExitCodes::ExtrasError: return texts::kUnknownArgument;
    case CLI::ExitCodes::ExcludesError: return texts::kNotTogether;
    case CLI::ExitCodes::ArgumentMismatch: return texts::kWrongNumberOfValues;
    case CLI::ExitCodes::ValidationError:
    case CLI::ExitCodes::ConversionError: return texts::kWrongValue;
    default: return texts::kOtherMistake;
  }
}

std::string Complaint(const CLI::Error& error) {
  const std::string what = error.what();
  return UserReadsJapanese() ? std::string(KindOf(error)) + " (" + what + ")" : what;
}

}  // namespace

void LocalizeHelp(CLI::App& app) {
  app.formatter(std::make_shared<HelpLayout>());
  app.failure_message(
      [](const CLI::App*, const CLI::Error& error) { return Complaint(error) + "\n" + Localized(texts::kSeeHelp); });
  app.group(Localized(texts::kCommands));
  app.set_help_flag("-h,--help", Localized(texts::kHelp));
}

}  // namespace quillon::cli
