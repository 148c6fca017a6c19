#include "support/Tool.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "support/Model.h"

std::string ReadWholeFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path).rdbuf();
  return text.str();
}

ToolOutput RunShell(const std::string& command) {
  const TemporaryFolder folder;
  const std::string out = (folder.Path() / "out").string();
  const std::string error = (folder.Path() / "error").string();
  const int status = std::system(("(" + command + "\n) >" + out + " 2>" + error).c_str());
  return {WEXITSTATUS(status), ReadWholeFile(out), ReadWholeFile(error)};
}

ToolOutput RunTool(const std::string& arguments, const std::string& before) {
  return RunShell(before + QELVRML_TOOL_PATH + " " + arguments);
}
