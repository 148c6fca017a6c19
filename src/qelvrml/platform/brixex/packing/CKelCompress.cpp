#include "qelvrml/platform/brixex/packing/CKelCompress.h"

#include <zip.h>

#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>

#include "qelvrml/foundation/AsciiCase.h"

namespace {

struct ArchiveCloser {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct MemberCloser {
  void operator()(zip_file_t* member) const { zip_fclose(member); }
};
struct Freer {
  void operator()(char* bytes) const { std::free(bytes); }
};
using Archive = std::unique_ptr<zip_t, ArchiveCloser>;
using Member = std::unique_ptr<zip_file_t, MemberCloser>;
using Bytes = std::unique_ptr<char, Freer>;

Archive OpenArchive(void* data, int size) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(data, static_cast<zip_uint64_t>(size), 0, &error);
  Archive archive(source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr);
  if (source && !archive) zip_source_free(source);
  zip_error_fini(&error);
  return archive;
}

bool IsHidden(std::string_view name) {
  const std::string_view last = name.substr(name.rfind('/') + 1);
  return last.starts_with('.') || name.starts_with("__MACOSX/") || name.find("/__MACOSX/") != std::string_view::npos;
}

bool IsScene(std::string_view name) {
  constexpr std::string_view Extension = ".wrl";
  return name.size() >= Extension.size() &&
         qelvrml::LowerAscii(name.substr(name.size() - Extension.size())) == Extension;
}

std::optional<zip_uint64_t> ChooseMember(zip_t* archive) {
  std::optional<zip_uint64_t> other;
  const zip_int64_t count = zip_get_num_entries(archive, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    const auto index = static_cast<zip_uint64_t>(i);
    const char* name = zip_get_name(archive, index, ZIP_FL_ENC_RAW);
    if (!name || !*name || IsHidden(name) || std::string_view(name).ends_with('/')) continue;
    if (IsScene(name)) return index;
    if (!other) other = index;
  }
  return other;
}

// Reads a member to its end, whatever size the archive claims for it; the end is where its CRC is tested.
Bytes ReadMember(zip_file_t* member, std::size_t& size) {
  constexpr std::size_t FirstCapacity = 1U << 20U;
  constexpr auto LargestSize = static_cast<std::size_t>(std::numeric_limits<int>::max());
  std::size_t capacity = FirstCapacity;
  Bytes bytes(static_cast<char*>(std::malloc(capacity)));
  size = 0;
  while (bytes) {
    const zip_int64_t got = zip_fread(member, bytes.get() + size, capacity - size);
    if (got == 0) return bytes;
    if (got < 0) break;
    size += static_cast<std::size_t>(got);
    if (size > LargestSize) break;
    if (size < capacity) continue;
    capacity *= 2;
    char* grown = static_cast<char*>(std::realloc(bytes.get(), capacity));
    if (!grown) break;
    bytes.release();
    bytes.reset(grown);
  }
  return nullptr;
}

}  // namespace

bool CKelCompress::DecompressData(void* data, int size, void** result, int& resultSize) {
  if (!data || size <= 0 || !result) return false;
  const Archive archive = OpenArchive(data, size);
  const std::optional<zip_uint64_t> index = archive ? ChooseMember(archive.get()) : std::nullopt;
  if (!index) return false;
  const Member member(zip_fopen_index(archive.get(), *index, 0));
  if (!member) return false;
  std::size_t unpacked = 0;
  Bytes bytes = ReadMember(member.get(), unpacked);
  if (!bytes) return false;
  *result = bytes.release();
  resultSize = static_cast<int>(unpacked);
  return true;
}
