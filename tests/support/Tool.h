#pragma once

#include <string>

/// What a run of a command has left.
struct ToolOutput {
  int Status;
  std::string Out;
  std::string Error;
};

/// Runs commands by a shell.
ToolOutput RunShell(const std::string& command);
/// Runs the qelvrml command by a shell, behind what is to stand `before` it.
ToolOutput RunTool(const std::string& arguments, const std::string& before = "");
/// The bytes of a file.
std::string ReadWholeFile(const std::string& path);
