#include "Failures.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <new>
#include <stdexcept>

#include "CommandLine.h"
#include "text/Terminal.h"
#include "text/Text.h"

void ReportProblem(const std::string& path, const std::string& problem) {
  std::cerr << "qelvrml: " << Printable(path) << ": " << Colours(STDERR_FILENO).Failure(problem) << '\n';
}

int ReportOutOfMemory() {
  std::fputs("qelvrml: out of memory\n", stderr);
  return StatusOutOfMemory;
}

EndWhenOutOfMemory::EndWhenOutOfMemory() {
  std::set_new_handler([] { std::_Exit(ReportOutOfMemory()); });
}

EndWhenOutOfMemory::~EndWhenOutOfMemory() { std::set_new_handler(nullptr); }

void FlushOutput() {
  if (!std::cout.flush()) throw std::runtime_error("can't write to standard output");
}
