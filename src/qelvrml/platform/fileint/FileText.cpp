#include "qelvrml/platform/fileint/FileText.h"

#include <cstring>

#include "qelvrml/platform/system/HugePages.h"

namespace qelvrml {

FileText::FileText(std::size_t size) : Bytes(new char[size + Padding]) {
  PreferHugePages(Bytes.get(), size + Padding);
  Truncate(size);
}

FileText::FileText(std::string_view text) : FileText(text.size()) {
  if (!text.empty()) std::memcpy(Bytes.get(), text.data(), text.size());
}

void FileText::Truncate(std::size_t size) {
  Size = size;
  std::memset(Bytes.get() + size, 0, Padding);
}

}  // namespace qelvrml
