#include <sstream>

#include "CommandLine.h"
#include "Pages.h"

namespace {

// A text as man(7) takes it: no character of it is a command.
std::string Roff(const std::string& text) {
  std::string result;
  for (const char c : text) {
    const bool startsLine = result.empty() || result.back() == '\n';
    if (startsLine && (c == '.' || c == '\'')) result += "\\&";
    if (c == '\\') {
      result += "\\e";
    } else if (c == '-') {
      result += "\\-";
    } else {
      result += c;
    }
  }
  return result;
}

std::string Bold(const std::string& text) { return "\\fB" + Roff(text) + "\\fR"; }
std::string Italic(const std::string& text) { return "\\fI" + Roff(text) + "\\fR"; }

std::string Paragraphs(std::string text) {
  text = Roff(text);
  for (std::size_t at = text.find("\n\n"); at != std::string::npos; at = text.find("\n\n", at)) {
    text.replace(at, 2, "\n.PP\n");
  }
  return ".PP\n" + text + "\n";
}

std::string Item(const std::string& word, const std::string& meaning) {
  return ".TP\n" + word + "\n" + Roff(meaning) + "\n";
}

template <class Table>
std::string Items(const Table& table) {
  std::string text;
  for (const auto& [word, meaning] : table) {
    std::string sentence = std::string(meaning) + ".";
    if (sentence[0] >= 'a' && sentence[0] <= 'z') sentence[0] = static_cast<char>(sentence[0] - 'a' + 'A');
    text += Item(Bold(word), sentence);
  }
  return text;
}

std::string OptionItem(const CLI::Option& option) {
  std::string names;
  for (const std::string& name : Names(option)) names += (names.empty() ? "" : ", ") + Bold(name);
  if (HasValue(option)) names += " " + Italic(option.get_type_name());
  return Item(names, option.get_description() + ".");
}

std::string Usage(const CLI::App& command) {
  std::string usage = Bold("qelvrml " + command.get_name());
  for (const CLI::Option* option : Options(command)) {
    if (option != command.get_help_ptr()) usage += " [" + Bold(Synopsis(*option)) + "]";
  }
  for (const CLI::Option* place : Places(command)) {
    usage += " " + Italic(place->get_name()) + (IsRepeated(*place) ? "..." : "");
  }
  return usage;
}

std::string CommandText(const CLI::App& command) {
  std::string text = ".SS " + Usage(command) + "\n" + Roff(command.get_description()) + ".\n";
  text += Paragraphs(command.get_footer());
  for (const CLI::Option* place : Places(command)) {
    text += Item(Italic(place->get_name()), place->get_description() + ".");
  }
  for (const CLI::Option* option : Options(command)) text += OptionItem(*option);
  return text;
}

}  // namespace

std::string ManPage(const CLI::App& app) {
  std::ostringstream page;
  page << R"(.TH QELVRML 1 "" ")" << Roff(app.version()) << R"(" "User Commands")"
       << "\n.SH NAME\nqelvrml \\- show, measure and convert VRML scenes\n.SH SYNOPSIS\n";
  for (const CLI::App* command : Commands(app)) page << Usage(*command) << "\n.br\n";
  for (const CLI::Option* option : Options(app)) {
    page << Bold("qelvrml") << " " << Bold(Names(*option).back()) << "\n.br\n";
  }
  page << ".SH DESCRIPTION\n" << Roff(app.get_description()) << "\n" << Roff(Description) << "\n.SH COMMANDS\n";
  for (const CLI::App* command : Commands(app)) page << CommandText(*command);
  page << ".SH OPTIONS\n";
  for (const CLI::Option* option : Options(app)) page << OptionItem(*option);
  page << ".SH EXIT STATUS\nThat of the first file that something went wrong with:\n" << Items(ExitStatuses);
  page << ".SH ENVIRONMENT\n" << Items(Variables) << ".SH EXAMPLES\n" << Items(Examples);
  page << ".SH SEE ALSO\n.BR gzip (1),\n.BR unzip (1)\n";
  return page.str();
}
