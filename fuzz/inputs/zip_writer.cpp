// The layout written (APPNOTE.TXT 4.3): for each entry a local file header and its data, then
// a central directory header per entry, then the end of central directory record. No data
// descriptors, no encryption, no archive comment.
#include "fuzz/inputs/zip_writer.h"

#include <zip.h>

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace nvwm::fuzzing {
namespace {

void put16(std::string& out, uint16_t v) {
  out += static_cast<char>(v & 0xff);
  out += static_cast<char>(v >> 8);
}
void put32(std::string& out, uint32_t v) {
  put16(out, static_cast<uint16_t>(v & 0xffff));
  put16(out, static_cast<uint16_t>(v >> 16));
}
void put64(std::string& out, uint64_t v) {
  put32(out, static_cast<uint32_t>(v & 0xffffffff));
  put32(out, static_cast<uint32_t>(v >> 32));
}

uint32_t readLe32(std::string_view s, size_t at) {
  uint32_t v = 0;
  for (int k = 3; k >= 0; --k) v = (v << 8) | static_cast<unsigned char>(s.at(at + k));
  return v;
}
uint16_t readLe16(std::string_view s, size_t at) {
  return static_cast<uint16_t>(static_cast<unsigned char>(s.at(at)) |
                               (static_cast<unsigned char>(s.at(at + 1)) << 8));
}

struct SourceFree {
  void operator()(zip_source_t* s) const { zip_source_free(s); }
};

[[noreturn]] void libzipFailed(const char* what) {
  throw std::runtime_error(std::string("libzip: ") + what);
}

}  // namespace

uint32_t crc32(std::string_view data) {
  static const std::array<uint32_t, 256> table = [] {
    std::array<uint32_t, 256> t{};
    for (uint32_t i = 0; i < 256; ++i) {
      uint32_t c = i;
      for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[i] = c;
    }
    return t;
  }();
  uint32_t c = 0xffffffffu;
  for (unsigned char b : data) c = table[(c ^ b) & 0xff] ^ (c >> 8);
  return c ^ 0xffffffffu;
}

std::string deflateRaw(std::string_view data) {
  // Let libzip write a one-entry zip into memory, then take the entry's packed bytes out.
  zip_error_t error;
  zip_error_init(&error);
  std::unique_ptr<zip_source_t, SourceFree> buffer(zip_source_buffer_create(nullptr, 0, 0, &error));
  if (!buffer) libzipFailed("no buffer");
  zip_source_keep(buffer.get());
  zip_t* archive = zip_open_from_source(buffer.get(), ZIP_TRUNCATE, &error);
  if (!archive) libzipFailed("cannot open the buffer");
  zip_source_t* entry = zip_source_buffer(archive, data.data(), data.size(), 0);
  if (!entry || zip_file_add(archive, "x", entry, 0) < 0 ||
      zip_set_file_compression(archive, 0, ZIP_CM_DEFLATE, 9) < 0 || zip_close(archive) < 0)
    libzipFailed("cannot pack");
  zip_error_fini(&error);

  zip_stat_t st;
  if (zip_source_stat(buffer.get(), &st) < 0 || zip_source_open(buffer.get()) < 0)
    libzipFailed("cannot read the buffer back");
  std::string zip(static_cast<size_t>(st.size), '\0');
  zip_int64_t got = zip_source_read(buffer.get(), zip.data(), zip.size());
  zip_source_close(buffer.get());
  if (got != static_cast<zip_int64_t>(zip.size())) libzipFailed("short read");
  // Local header: the packed size at 18, name and extra lengths at 26 and 28.
  uint32_t packed = readLe32(zip, 18);
  size_t start = 30 + readLe16(zip, 26) + readLe16(zip, 28);
  if (packed == 0xffffffffu) libzipFailed("zip64 output");
  return zip.substr(start, packed);
}

std::string writeZip(const std::vector<ZipEntry>& entries) {
  std::string out, directory;
  for (const ZipEntry& e : entries) {
    std::string packed = e.deflate ? deflateRaw(e.data) : e.data;
    uint64_t size = e.claimedSize.value_or(e.data.size());
    uint32_t crc = crc32(e.data) ^ (e.badCrc ? 0x5a5a5a5au : 0);
    bool big = e.zip64 || e.zip64FieldMissing;
    std::string extra;
    if (e.zip64 && !e.zip64FieldMissing) {
      put16(extra, 0x0001);
      put16(extra, 16);
      put64(extra, size);
      put64(extra, packed.size());
    }
    uint32_t size32 = big ? 0xffffffffu : static_cast<uint32_t>(size);
    uint32_t packed32 = big ? 0xffffffffu : static_cast<uint32_t>(packed.size());
    uint16_t method = e.deflate ? 8 : 0;
    uint16_t version = big ? 45 : 20;
    uint32_t offset = static_cast<uint32_t>(out.size());

    put32(out, 0x04034b50);
    put16(out, version);
    put16(out, 0x0800);  // names in UTF-8
    put16(out, method);
    put32(out, 0);  // time and date
    put32(out, crc);
    put32(out, packed32);
    put32(out, size32);
    put16(out, static_cast<uint16_t>(e.name.size()));
    put16(out, static_cast<uint16_t>(extra.size()));
    out += e.name;
    out += extra;
    out += packed;

    put32(directory, 0x02014b50);
    put16(directory, version);  // made by
    put16(directory, version);  // needed
    put16(directory, 0x0800);
    put16(directory, method);
    put32(directory, 0);
    put32(directory, crc);
    put32(directory, packed32);
    put32(directory, size32);
    put16(directory, static_cast<uint16_t>(e.name.size()));
    put16(directory, static_cast<uint16_t>(extra.size()));
    put16(directory, 0);  // comment
    put16(directory, 0);  // disk
    put16(directory, 0);  // internal attributes
    put32(directory, 0);  // external attributes
    put32(directory, offset);
    directory += e.name;
    directory += extra;
  }
  uint32_t directoryOffset = static_cast<uint32_t>(out.size());
  out += directory;
  put32(out, 0x06054b50);
  put16(out, 0);
  put16(out, 0);
  put16(out, static_cast<uint16_t>(entries.size()));
  put16(out, static_cast<uint16_t>(entries.size()));
  put32(out, static_cast<uint32_t>(directory.size()));
  put32(out, directoryOffset);
  put16(out, 0);
  return out;
}

}  // namespace nvwm::fuzzing
