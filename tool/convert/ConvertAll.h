#pragma once

#include <vector>

#include "Output.h"
#include "convert/Formats.h"
#include "convert/Jobs.h"
#include "scene/Resolution.h"

/// Writes scenes, as many at a time as there are processors, with a progress bar if standard error is a terminal.
/// Tells on standard error what went wrong, on standard output how many were written; gives the exit status of the
/// first one that wasn't.
int ConvertAll(std::vector<ConversionJob> jobs, const Format& format, const Resolution& resolution, Existing existing);

/// Tries a job, and leaves in it what went wrong. Gives what was written, for people.
std::string TryJob(ConversionJob& job, const Format& format, const Resolution& resolution, Existing existing);
