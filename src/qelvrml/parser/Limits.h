#pragma once

#include <cstddef>
#include <cstdint>

/// What a file may make the library do. Beyond a limit the part of the file is left out in an orderly way.
namespace qelvrml {

/// ParseBlock calls inside one another: what fits on a stack of 1 MiB.
inline constexpr int MaximumNesting = 500;
/// Separators that a load has open: a replay recurses once for each.
inline constexpr int MaximumOpenSeparators = 500;
/// Prototypes expanded inside one another: endless expansion ends here, and no scene nests deeper.
inline constexpr int MaximumExpansions = 64;
/// Subfiles inside one another.
inline constexpr std::size_t MaximumSubfileNesting = 16;
/// Subfiles and images that a load asks for, together; an image counts once for each of its names. Small files that
/// include each other twice end here in seconds.
inline constexpr int MaximumFilesAskedFor = 65'536;
/// Characters of the name of a file: what a system can open, and what leads nowhere isn't kept.
inline constexpr int MaximumNameLength = 4'096;
/// Characters of all missing files that a load notes: more than a host would show.
inline constexpr std::size_t MaximumMissingCharacters = 4'194'304;
/// Text that a load passes over by parsing before it uses what it remembers of earlier passes: DEF'ed nodes inside one
/// another would cost two to the power of their depth.
inline constexpr std::uint64_t PassedOverAnew = 16ULL << 20U;

// What a load may make, in bytes and in steps of about a nanosecond: no file that gives its own numbers comes near it,
// and a small file can't multiply itself into more than a machine has, or into more than about a second.
inline constexpr std::uint64_t BytesMadeOfAnyFile = 1ULL << 30U;
inline constexpr std::uint64_t BytesMadeOfAByte = 256;  ///< beside these, for each byte of the files read
inline constexpr std::uint64_t StepsOfAnyFile = 1'200'000'000;
inline constexpr std::uint64_t StepsOfAByte = 500;  ///< beside these, for each byte of the files read
// What things cost: about what they take in memory, or for want of any a share of it.
inline constexpr std::uint64_t BytesOfAnObject = 512;
inline constexpr std::uint64_t BytesOfAPoint = 12;
inline constexpr std::uint64_t BytesOfAnIndex = 4;
inline constexpr std::uint64_t BytesOfAPixel = 4;
inline constexpr std::uint64_t BytesOfAReplay = 64;
inline constexpr std::uint64_t BytesOfAnExpandedByte = 8;
// The time that they take, with the placing, the scaling and the end of an object.
inline constexpr std::uint64_t StepsOfAnObject = 1'000;
inline constexpr std::uint64_t StepsOfASolid = 3'000;  ///< beside those of an object: its box and its corners
inline constexpr std::uint64_t PassedOverShare = 4;    ///< of these two in text that is passed over: a quarter
inline constexpr std::uint64_t StepsOfAPoint = 60;
inline constexpr std::uint64_t StepsOfASweptPoint = 60;  ///< beside those of a point: of an extrusion, or a strip
inline constexpr std::uint64_t StepsOfACapCorner = 3'000;
inline constexpr std::uint64_t StepsOfAnIndex = 20;
inline constexpr std::uint64_t StepsOfAReplay = 250;
inline constexpr std::uint64_t StepsOfAnExpandedByte = 35;
inline constexpr std::uint64_t StepsOfACapturedByte = 100;     ///< of an instance, or of the body of a prototype
inline constexpr std::uint64_t StepsOfAStatement = 1'000;      ///< of an instance, or of a file that is read again
inline constexpr std::uint64_t StepsOfAnotherReading = 4'000;  ///< of a statement behind a node that ran on
inline constexpr std::uint64_t StepsOfAMergedField = 300;
inline constexpr std::uint64_t StepsOfASubfile = 20'000;   ///< or of an image that is looked for
inline constexpr std::uint64_t StepsOfADecodedPixel = 10;  ///< times the cost of a pixel of its kind of file

/// Points of an extrusion's mesh: 400 MB.
inline constexpr std::uint64_t MaximumMeshPoints = 33'554'432;
/// Points of an elevation grid that doesn't give all its heights.
inline constexpr std::int64_t MaximumPaddedHeights = 1'048'576;
/// Pairs that are sorted by steps that take time to the square of their number.
inline constexpr int MaximumPairsSortedBySteps = 4'096;

}  // namespace qelvrml
