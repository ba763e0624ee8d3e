#pragma once

#include "base/text_encoding.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// What the public descriptions of the BGL format leave open, or what only one of them says. Each choice
/// stands here once, with its reason, so that it can be changed in one place when real files show otherwise.
namespace quillset::compiler::format {

/// How many bisections of the world make a cell of placements. Seen in files of the later compilers; that
/// FS2004's own uses the same is likely but not shown. A cell number carries its level, so readers cope.
inline constexpr int placementCellLevel = 11;
/// Level of the cells in the file header, by which the simulator finds the file. Seen in later files.
inline constexpr int headerCellLevel = 9;
/// Room for cells in the file header. When a file covers more, all of them go one level up until they fit:
/// the real rule is not known; this one always ends and always covers every placement.
inline constexpr std::size_t headerCellCount = 8;
/// Cell of a file that holds models only: the whole world. Seen in library files.
inline constexpr std::uint32_t wholeWorldCell = 2;

/// Second number of the file header, the same in files of both simulators.
inline constexpr std::uint32_t secondMagic = 0x08051803;

/// Order of the placements inside one cell. The later compiler sorts with its run-time library's unstable
/// quicksort, whose order `crt_sort.h` repeats. What FS2004's compiler did with many placements is not
/// known and the order has no meaning to the simulator, so that target keeps the order of the document.
inline constexpr bool fs2004KeepsDocumentOrder = true;

/// Added before millimetres are cut to whole ones. Cutting (not rounding) agrees with values that look like
/// converted feet in published files (2301 ft stored as 701.344 m); the slack keeps a text with three
/// decimals at its own millimetre where the binary product falls short (1.001 m is 1001, not 1000).
inline constexpr double millimetreSlack = 1e-6;

/// Angles go to the nearest 1/65536 turn. Whether the original cut instead is not known (every published
/// value is an exact multiple); rounding halves the error and gives a decompiled angle its own step back.
inline constexpr double angleRounding = 0.5;

/// Longitude 180 is stored as -180 (the same meridian) and latitude -90 as the southernmost row, since the
/// sums would leave the range of the grid by one.
inline constexpr std::uint32_t longitudeSteps = 0x30000000;
inline constexpr std::uint32_t latitudeSteps = 0x20000000;

/// Threshold of a placement that names none: shown at every setting. The schema has no default, and 0 is
/// what a cleared record holds.
inline constexpr std::uint16_t defaultImageComplexity = 0;

/// Ends the drawing part of a generic building ("return"); its length word does not count it. Two of
/// three descriptions have it, the third is silent.
inline constexpr std::uint16_t buildingEnd = 0x0022;
/// Several building elements in one GenericBuilding become several records at the same place: only records
/// with one building are described.
inline constexpr std::size_t buildingsPerRecord = 1;

/// A building's sides. One description stores them as a byte with `smoothing` in the next, two others as a
/// word that smoothing does not touch: below 256 with the upper byte 0 both agree. A polygon needs 3.
inline constexpr std::uint32_t fewestSides = 3;
inline constexpr std::uint32_t mostSides = 255;

/// A building's sizes and texture numbers are words; beyond 65535 is an error, and fractions, which the
/// schema allows for four of the sizes, go to the nearest whole number with a warning.
inline constexpr std::uint32_t largestWord = 0xFFFF;

/// Models are not looked into for FS2004: a file that is no model, or one of the later simulator, is copied
/// with a warning. Two models of one GUID are an error, since the simulator could show only one of them.
inline constexpr std::string_view laterModelForm = "MDLX";

/// Bytes of an effect's name and of its parameters, without the closing 0: the schema says 80 characters, but
/// the name's field is 80 bytes and must keep its 0.
inline constexpr std::size_t effectTextBytes = 79;
inline constexpr std::size_t effectNameField = 80;
/// The simulator reads its other texts in the code page of western Windows.
inline constexpr TextEncoding effectEncoding = TextEncoding::windows1252;

// Not numbers, and decided where they apply: a relative model path begins at the document's folder (the
// editor writes full paths, and runs the compiler in that folder), and a document without placements and
// models gives a file without sections, so that what was removed is gone from the simulator too.

} // namespace quillset::compiler::format
