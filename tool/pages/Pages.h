#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

// What users read and use beside the command itself, made from the table of its options.

/// The page of section 1 of the manual, in the language of man(7).
std::string ManPage(const CLI::App& app);
/// A script for each of these shells that completes sub-commands, options and names of files.
std::string BashCompletion(const CLI::App& app);
std::string ZshCompletion(const CLI::App& app);

/// The sub-commands.
std::vector<const CLI::App*> Commands(const CLI::App& app);
/// The options that have a name, or the arguments that have a place.
std::vector<const CLI::Option*> Options(const CLI::App& app);
std::vector<const CLI::Option*> Places(const CLI::App& app);
/// The names of an option with their dashes, short ones first.
std::vector<std::string> Names(const CLI::Option& option);
/// The last of these names, with what stands for the option's value: "--size WxH".
std::string Synopsis(const CLI::Option& option);
/// The words that a value of the option can be, separated by blanks; empty for anything.
std::string ValueWords(const CLI::Option& option);
/// Whether the option is followed by a value.
inline bool HasValue(const CLI::Option& option) { return option.get_expected_max() > 0; }
/// Whether an argument may be given more than once.
inline bool IsRepeated(const CLI::Option& option) { return option.get_expected_max() > 1; }
