#pragma once

#include <string>

/** The text packed as one gzip member, for tests and benchmarks. */
std::string Gzip(const std::string& text);
