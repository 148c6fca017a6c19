#include "Load.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "Progress.h"
#include "qelvrml/platform/brixex/textures/CKelTextureManager.h"

namespace {

namespace fs = std::filesystem;

// Why a file that can't be opened can't.
std::string WhyNotOpened(const std::string& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return "no such file";
  if (fs::is_directory(status)) return "is a folder";
  errno = 0;
  const std::ifstream stream(path);
  if (!stream && errno == EACCES) return "no permission to read it";
  if (status.type() != fs::file_type::regular && status.type() != fs::file_type::none) return "not a regular file";
  return errno != 0 ? std::strerror(errno) : "can't be read";
}

// Whether a file that nothing was loaded from is VRML, or packed, so that its content can't be told from here.
bool MayBeVrml(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  std::string start(16, '\0');
  stream.read(start.data(), static_cast<std::streamsize>(start.size()));
  for (char& c : start) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  const bool packed = start.starts_with("\x1F") || start.starts_with("PK\x03\x04");
  return packed || start.find("#VRML V1.0 ASCII") != std::string::npos ||
         start.find("#VRML V2.0 UTF8") != std::string::npos;
}

// Why nothing was loaded; empty for a load that succeeded.
std::string WhatWentWrong(VRMLLoadResultTypes result, const std::string& path) {
  switch (result) {
    case VRMLLoadOK:
    case VRMLLoadWarnings: return "";
    case VRMLLoadOpenFailed: return WhyNotOpened(path);
    case VRMLLoadDecompressFailed: return "can't be unpacked";
    case VRMLLoadFailed: break;
  }
  return MayBeVrml(path) ? "nothing in it could be loaded" : "not a VRML file";
}

LoadedFile LoadBy(CVRMLParser& parser, const std::string& path) {
  LoadedFile file;
  file.Path = path;
  file.World = std::make_unique<CKelWorld>();
  const std::string folder = std::filesystem::path(path).parent_path().string();
  file.World->GetTextureManager()->AddAlternatePath(CBasicString(folder.c_str()));
  const auto start = std::chrono::steady_clock::now();
  file.Result = parser.Parse(file.World.get(), CBasicString(path.c_str()));
  file.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  file.Problem = WhatWentWrong(file.Result, path);
  file.Units = parser.GetImageUnits();
  file.Warning = parser.GetLastWarning();
  file.Notes = parser.GetNotes();
  file.UnlistedNotes = parser.GetUnlistedNotes();
  return file;
}

}  // namespace

LoadedFile LoadFile(const std::string& path) {
  CVRMLParser parser;
  const ProgressBar bar(parser);
  return LoadBy(parser, path);
}

LoadedFile LoadFileSilently(const std::string& path) {
  CVRMLParser parser;
  return LoadBy(parser, path);
}

std::string ResultName(VRMLLoadResultTypes result) {
  switch (result) {
    case VRMLLoadOK: return "VRMLLoadOK";
    case VRMLLoadFailed: return "VRMLLoadFailed";
    case VRMLLoadOpenFailed: return "VRMLLoadOpenFailed";
    case VRMLLoadDecompressFailed: return "VRMLLoadDecompressFailed";
    case VRMLLoadWarnings: return "VRMLLoadWarnings";
  }
  return "";
}

int ExitStatus(VRMLLoadResultTypes result) { return result == VRMLLoadWarnings ? 0 : static_cast<int>(result); }
