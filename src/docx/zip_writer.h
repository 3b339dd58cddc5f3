// Internal: writes a zip file front to back, deflating each entry as its bytes come, so that
// an entry of any size costs a fixed amount of memory. Entries are raw deflate (zlib level 3,
// see bench/README.md); zip64 records are written where a size, an offset or the number of
// entries needs them. The central directory is kept in an unnamed temporary file until the end.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace nvwm::docx {

class ZipWriter {
 public:
  // Writes to fd, a regular file open for writing, from its start. REQUIRES: fd outlives the
  // writer. Raises 70 when the temporary file for the central directory can't be made.
  explicit ZipWriter(int fd);
  ~ZipWriter();
  ZipWriter(const ZipWriter&) = delete;
  ZipWriter& operator=(const ZipWriter&) = delete;

  // An entry written whole.
  void add(std::string_view name, std::string_view bytes);
  // An entry written in pieces: begin, any number of write, end. One at a time.
  void begin(std::string_view name);
  void write(std::string_view bytes);
  void end();
  // Writes the central directory and flushes. Raises 70 on a write error (a full disk).
  void finish();

 private:
  void deflateSome(std::string_view bytes, int flush);
  void emit(const void* data, size_t size);
  void flush();
  void fail(const std::string& why);

  int fd_;
  std::FILE* directory_ = nullptr;  // central directory records, in order
  uint64_t entries_ = 0;
  uint64_t offset_ = 0;  // bytes of the zip written so far (buffer included)
  std::string buffer_;
  // The open entry.
  bool open_ = false;
  std::string name_;
  uint64_t headerOffset_ = 0;
  uint64_t rawSize_ = 0;
  uint64_t packedSize_ = 0;
  uint32_t crc_ = 0;
  z_stream stream_{};
  std::string out_;  // deflate output buffer
};

}  // namespace nvwm::docx
