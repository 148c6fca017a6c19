#include "convert/Convert.h"

#include <filesystem>
#include <iostream>

#include "Failures.h"
#include "convert/ConvertAll.h"
#include "text/Text.h"

namespace {

int ConvertOne(const Arguments& arguments, const Resolution& resolution, Existing existing) {
  std::string ending = std::filesystem::path(arguments.Output).extension().string();
  if (!ending.empty()) ending.erase(0, 1);
  const Format* format = FindFormat(ending);
  if (!format) {
    ReportProblem(arguments.Output, "no known format; the endings are " + FormatEndings());
    return StatusWrongArguments;
  }
  ConversionJob job = {arguments.Paths.front(), arguments.Output, "", 0};
  const std::string told = TryJob(job, *format, resolution, existing);
  if (job.Problem.empty()) {
    std::cout << Printable(job.File) << ": " << told << '\n';
    FlushOutput();
  } else {
    ReportProblem(job.Scene, job.Problem);
  }
  return job.Status;
}

}  // namespace

int Convert(const Arguments& arguments) {
  const Resolution resolution = {.Tolerance = arguments.Tolerance};
  const Existing existing = arguments.Force ? Existing::Replace : Existing::Keep;
  if (arguments.Format.empty()) return ConvertOne(arguments, resolution, existing);
  return ConvertAll(ListJobs(arguments.Paths, arguments.Folder, arguments.Format), *FindFormat(arguments.Format),
                    resolution, existing);
}
