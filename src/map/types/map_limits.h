#pragma once

#include <cstdint>
#include <string>

#include "map/types/file_form.h"

namespace quorvel {

/// Limits of a map and its files. Everything is checked against them before memory is taken or a file is
/// made, so a small hostile file cannot ask for much, and whatever is saved can be opened again.

/// Cells a side and in all: a hundred times what the wizard makes. Pixel sums stay below 2^31.
constexpr std::int64_t kMaxSideCells = 20'000'000;
constexpr std::int64_t kMaxCells = 100'000'000;

/// Bytes of a file, in and out. A binary file holds its offsets as signed 32-bit numbers and can address no
/// more.
constexpr std::uint64_t kMaxTextFileBytes = std::uint64_t{1} << 32;
constexpr std::uint64_t kMaxBinaryFileBytes = (std::uint64_t{1} << 31) - 1;

/// Bytes of one cell's values, and of all cells' values together. Classes that embed others grow
/// exponentially.
constexpr std::uint64_t kMaxCellBlockBytes = std::uint64_t{1} << 20;
constexpr std::uint64_t kMaxAllBlocksBytes = std::uint64_t{1} << 32;

/// Memory that the cells of a file may take: a base, and so many bytes an input byte.
constexpr std::uint64_t kLoadMemoryBaseBytes = 64'000'000;
constexpr std::uint64_t kTextLoadBytesAnInputByte = 64;
constexpr std::uint64_t kBinaryLoadBytesAnInputByte = 4;

/// Whether a map may have this size. If not, a line in the error text names the limit and the value.
bool CheckMapSize(std::int64_t width, std::int64_t height, std::string& errorText);

/// Whether a file of this form may have this many bytes. If not, a line says so.
bool CheckFileSize(FileForm form, std::uint64_t fileBytes, std::string& errorText);

/// Whether one cell's values may take this many bytes. If not, a line says so.
bool CheckCellBlock(std::uint64_t blockBytes, std::string& errorText);

/// Whether the values of so many cells may take `blockBytes` each. If not, a line says so.
bool CheckAllBlocks(std::uint64_t cells, std::uint64_t blockBytes, std::string& errorText);

/// Most cells whose values of `blockBytes` each may be held when a file of `fileBytes` is loaded.
std::uint64_t MaxLoadedCells(FileForm form, std::uint64_t blockBytes, std::uint64_t fileBytes);

/// Whether so many cells are within CheckAllBlocks and MaxLoadedCells. If not, a line says so.
bool CheckLoadedCells(FileForm form, std::uint64_t cells, std::uint64_t blockBytes, std::uint64_t fileBytes,
                      std::string& errorText);

}  // namespace quorvel
