// Zip files written byte by byte, so that the tests and the fuzz corpus can hold zips whose
// headers lie: sizes that the data can't hold, zip64 fields that are missing, bad checksums.
// Only the packing itself is left to libzip (deflateRaw).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace nvwm::fuzzing {

struct ZipEntry {
  ZipEntry(std::string name, std::string data, bool deflate = true)
      : name(std::move(name)), data(std::move(data)), deflate(deflate) {}

  std::string name;
  std::string data;     // the part's bytes, unpacked
  bool deflate = true;  // packed with deflate, or stored as it is
  // The unpacked size the headers give (local header and directory alike); data.size() when
  // not set.
  std::optional<uint64_t> claimedSize;
  bool zip64 = false;              // sizes in a zip64 extra field, 0xFFFFFFFF in the headers
  bool zip64FieldMissing = false;  // 0xFFFFFFFF in the headers and no zip64 field at all
  bool badCrc = false;             // a checksum that doesn't match the data
};

// A whole zip file: local headers and data, the central directory, its end record.
std::string writeZip(const std::vector<ZipEntry>& entries);

// The raw deflate stream of data (no zip or zlib header), packed by libzip at level 9.
std::string deflateRaw(std::string_view data);

// The zip checksum (CRC-32, polynomial 0xEDB88320).
uint32_t crc32(std::string_view data);

}  // namespace nvwm::fuzzing
