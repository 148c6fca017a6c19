#pragma once

#include <string>
#include <vector>

/// Tells what one file holds in full, or what several files and those in folders hold in short, for people or as JSON.
/// Gives the exit status.
int TellInfo(const std::vector<std::string>& paths, bool json);
