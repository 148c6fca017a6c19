// Shows a bar while a scene loads, and gives the load up on Ctrl-C or after a number of seconds: an exception that the
// progress callback throws leaves Parse, and the world holds what was read until then. Both are noticed at the next
// percent of the file.

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string>

#include "qelvrml/parser/CVRMLParser.h"
#include "qelvrml/platform/brixex/CKelWorld.h"

namespace {

using Clock = std::chrono::steady_clock;

// The callback is a plain function, so what it needs to know is global.
volatile std::sig_atomic_t interrupted = 0;
Clock::time_point deadline = Clock::time_point::max();

struct GivenUp {
  const char* Why;
};

void Interrupt(int /*signal*/) { interrupted = 1; }

// Called from inside the load, on its thread, once for each percent at most.
void ShowProgress(int percentage) {
  if (isatty(STDERR_FILENO) != 0) {
    std::string bar(50, '.');
    const auto done = static_cast<std::size_t>(percentage / 2);
    bar.replace(0, done, done, '#');
    std::cerr << "\r[" << bar << "] " << percentage << " %" << std::flush;
  }
  if (interrupted != 0) throw GivenUp{"interrupted"};
  if (Clock::now() >= deadline) throw GivenUp{"out of time"};
}

int CountObjects(const brixBaseGroup& group) {
  int count = group.GetNumObjects();
  for (int i = 0; i < group.GetNumGroups(); ++i) count += CountObjects(*group.GetGroupAt(i));
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 3) {
    std::cerr << "usage: progress FILE [SECONDS]\n";
    return 64;
  }
  if (argc == 3) {
    deadline = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                  std::chrono::duration<double>(std::strtod(argv[2], nullptr)));
  }
  std::signal(SIGINT, Interrupt);

  CKelWorld world;
  CVRMLParser parser;
  parser.SetLoaderPtr(ShowProgress);
  VRMLLoadResultTypes result = VRMLLoadFailed;
  std::string ending;
  try {
    result = parser.Parse(&world, argv[1]);
    ending = "loaded";
  } catch (const GivenUp& given) {
    // The parser is good for the next load. Numbers of the world are still those of the file, in metres.
    ending = std::string("given up, ") + given.Why;
  }
  if (isatty(STDERR_FILENO) != 0) std::cerr << '\n';
  std::cout << ending << ": " << CountObjects(world) << " objects\n";
  return ending == "loaded" ? static_cast<int>(result) : 1;
}
