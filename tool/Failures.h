#pragma once

#include <string>

/// Says on standard error, in one line, what is wrong with a path.
void ReportProblem(const std::string& path, const std::string& problem);

/// Says on standard error that memory ran out, and gives the exit status for that.
int ReportOutOfMemory();

/// Ends the process when memory runs out while this object lives.
///
/// For blocks that hold JSON values: the end of one needs memory and can't raise an exception. No load may run in them,
/// for its temporary file would stay.
class EndWhenOutOfMemory {
public:
  EndWhenOutOfMemory();
  EndWhenOutOfMemory(const EndWhenOutOfMemory&) = delete;
  EndWhenOutOfMemory& operator=(const EndWhenOutOfMemory&) = delete;
  ~EndWhenOutOfMemory();
};

/// Brings standard output to its end; raises an exception if something couldn't be written.
void FlushOutput();
