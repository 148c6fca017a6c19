#pragma once

#include <cstddef>
#include <cstdint>

/// What a file may make the library do. Beyond a limit the part of the file is left out in an orderly way.
namespace qelvrml {

/// ParseBlock calls inside one another: what fits on a stack of 1 MiB.
inline constexpr int MaximumNesting = 500;
/// Open separators: a replay recurses once for each.
inline constexpr int MaximumOpenSeparators = 500;
/// Prototypes expanded inside one another: endless expansion ends here, and no scene nests deeper.
inline constexpr int MaximumExpansions = 64;
/// Subfiles inside one another.
inline constexpr std::size_t MaximumSubfileNesting = 16;
/// Subfiles in a load: small files that include each other twice end here in seconds.
inline constexpr int MaximumSubfiles = 65'536;
/// Cost of all replays and expansions of one load; at this bound a load takes seconds, whatever the file multiplies.
inline constexpr std::uint64_t MaximumReplayCost = 268'435'456;
/// What a recorded entry costs at each replay, beside what it copies.
inline constexpr std::uint64_t EntryReplayCost = 64;

/// Points of an extrusion's mesh: 400 MB.
inline constexpr std::uint64_t MaximumMeshPoints = 33'554'432;
/// Points of an elevation grid that doesn't give all its heights.
inline constexpr std::int64_t MaximumPaddedHeights = 1'048'576;

}  // namespace qelvrml
