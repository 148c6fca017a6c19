#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>

namespace qelvrml {

/// Finds paths without regard to the case of ASCII letters; other characters, and the bytes of UTF-8, have to agree.
///
/// A folder is read once in the life of the object, whatever the paths that lead to it.
class FolderIndex {
public:
  /// Components of a path that is looked up: more than any folder's depth in use.
  static constexpr int MostComponents = 256;
  /// Entries that are remembered, of all folders together: about 150 MB.
  static constexpr std::size_t MostEntries = 1'048'576;

  explicit FolderIndex(std::size_t mostEntries = MostEntries) : EntriesLeft(mostEntries) {}

  /// `path` with each component that doesn't exist replaced by the one of its folder that differs from it only in
  /// case. Empty when there is none or more than one, for a path of too many components, and where it leads through a
  /// folder that no longer fits into this index.
  std::string Find(const std::string& path);

private:
  /// Entries by their names in lower case; a name is empty if more than one has it.
  using Listing = std::unordered_map<std::string, std::string>;

  const Listing& ListingOf(int folder);
  void Read(int folder, Listing& listing);

  std::map<std::pair<std::uint64_t, std::uint64_t>, Listing> Listings;  ///< by device and number of the folder
  std::size_t EntriesLeft;
};

}  // namespace qelvrml
