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

ToolOutput RunTool(const std::string& arguments, const std::string& before) {
  const TemporaryFolder folder;
  const std::string out = (folder.Path() / "out").string();
  const std::string error = (folder.Path() / "error").string();
  const std::string command = before + QELVRML_TOOL_PATH + " " + arguments + " >" + out + " 2>" + error;
  const int status = std::system(command.c_str());
  return {WEXITSTATUS(status), ReadWholeFile(out), ReadWholeFile(error)};
}
