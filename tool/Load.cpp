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

}  // namespace

LoadedFile LoadFile(const std::string& path) {
  LoadedFile file;
  file.Path = path;
  file.World = std::make_unique<CKelWorld>();
  const std::string folder = std::filesystem::path(path).parent_path().string();
  file.World->GetTextureManager()->AddAlternatePath(CBasicString(folder.c_str()));
  CVRMLParser parser;
  const ProgressBar bar(parser);
  const auto start = std::chrono::steady_clock::now();
  file.Result = parser.Parse(file.World.get(), CBasicString(path.c_str()));
  file.Seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  file.Units = parser.GetImageUnits();
  file.Warning = parser.GetLastWarning();
  for (const CBasicString& name : parser.GetMissingFiles()) file.MissingFiles.push_back(ToUtf8(name.GetWideText()));
  return file;
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

std::string UnitsName(VRMLImageUnitsTypes units) {
  switch (units) {
    case VRMLUnitsMicrons: return "microns";
    case VRMLUnitsMillimeters: return "millimeters";
    case VRMLUnitsCentimeters: return "centimeters";
    case VRMLUnitsMeters: return "meters";
  }
  return "";
}

std::string WhatWentWrong(const LoadedFile& file) {
  switch (file.Result) {
    case VRMLLoadOK:
    case VRMLLoadWarnings: return "";
    case VRMLLoadOpenFailed: return WhyNotOpened(file.Path);
    case VRMLLoadDecompressFailed: return "is compressed and can't be unpacked";
    case VRMLLoadFailed: break;
  }
  return MayBeVrml(file.Path) ? "nothing in it could be loaded" : "not a VRML file";
}

int ExitStatus(VRMLLoadResultTypes result) { return result == VRMLLoadWarnings ? 0 : static_cast<int>(result); }

std::string ToUtf8(const char16_t* text) {
  CBasicString string(text);
  for (int i = 0; i < string.GetLength(); ++i) {
    constexpr char16_t Replacement = 0xFFFD;
    const char16_t unit = string.GetAt(i);
    const bool high = unit >= 0xD800 && unit < 0xDC00;
    const char16_t next = string.GetAt(i + 1);
    if (high && next >= 0xDC00 && next < 0xE000) {
      ++i;
    } else if (unit >= 0xD800 && unit < 0xE000) {
      string.SetAt(i, Replacement);
    }
  }
  return string.GetNarrowText();
}
