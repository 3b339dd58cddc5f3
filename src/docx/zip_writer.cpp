// Layout of each entry: local header, name, a 20-byte extra field, deflated data.
// When the entry ends, the local header is patched in place with its CRC and sizes (the output
// is a regular file, so no data descriptor is needed). The 20 bytes hold the zip64 sizes when
// either size needs 64 bits, and otherwise an OPC growth-hint field (0xA220) that readers skip.
#include "docx/zip_writer.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "runtime/error.h"

namespace nvwm::docx {
namespace {

constexpr size_t kBufferSize = 1 << 20;
constexpr size_t kDeflateOut = 256 << 10;
constexpr int kLevel = 3;
constexpr uint32_t kMax32 = 0xFFFFFFFFu;
constexpr uint16_t kZip64Extra = 0x0001;
constexpr uint16_t kGrowthHintExtra = 0xA220;
constexpr uint16_t kUtf8Flag = 1 << 11;
// 1980-01-01 00:00: the merged document is the same bytes for the same input.
constexpr uint16_t kDosTime = 0;
constexpr uint16_t kDosDate = (0 << 9) | (1 << 5) | 1;

void put16(std::string& out, uint16_t v) {
  out += static_cast<char>(v & 0xFF);
  out += static_cast<char>(v >> 8);
}
void put32(std::string& out, uint32_t v) {
  for (int i = 0; i < 4; ++i) out += static_cast<char>((v >> (8 * i)) & 0xFF);
}
void put64(std::string& out, uint64_t v) {
  for (int i = 0; i < 8; ++i) out += static_cast<char>((v >> (8 * i)) & 0xFF);
}

// The local header of an entry: with its sizes when known, zeros when patched later.
std::string localHeader(std::string_view name, uint32_t crc, uint64_t packed, uint64_t raw) {
  bool zip64 = packed >= kMax32 || raw >= kMax32;
  std::string h;
  put32(h, 0x04034b50);
  put16(h, zip64 ? 45 : 20);
  put16(h, kUtf8Flag);
  put16(h, 8);  // deflate
  put16(h, kDosTime);
  put16(h, kDosDate);
  put32(h, crc);
  put32(h, zip64 ? kMax32 : static_cast<uint32_t>(packed));
  put32(h, zip64 ? kMax32 : static_cast<uint32_t>(raw));
  put16(h, static_cast<uint16_t>(name.size()));
  put16(h, 20);
  h += name;
  put16(h, zip64 ? kZip64Extra : kGrowthHintExtra);
  put16(h, 16);
  put64(h, zip64 ? raw : 0);
  put64(h, zip64 ? packed : 0);
  return h;
}

}  // namespace

ZipWriter::ZipWriter(int fd) : fd_(fd) {
  directory_ = std::tmpfile();
  if (!directory_) {
    raise(ErrorNumber::kPermissionDenied,
          std::string("cannot make a temporary file: ") + std::strerror(errno));
  }
  buffer_.reserve(kBufferSize);
  out_.resize(kDeflateOut);
}

ZipWriter::~ZipWriter() {
  if (open_) deflateEnd(&stream_);
  if (directory_) std::fclose(directory_);
}

void ZipWriter::fail(const std::string& why) {
  raise(ErrorNumber::kPermissionDenied, "cannot write the document: " + why);
}

void ZipWriter::emit(const void* data, size_t size) {
  buffer_.append(static_cast<const char*>(data), size);
  offset_ += size;
  if (buffer_.size() >= kBufferSize) flush();
}

void ZipWriter::flush() {
  const char* p = buffer_.data();
  size_t left = buffer_.size();
  while (left > 0) {
    ssize_t n = ::write(fd_, p, left);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) fail(std::strerror(errno));
    p += n;
    left -= static_cast<size_t>(n);
  }
  buffer_.clear();
}

void ZipWriter::add(std::string_view name, std::string_view bytes) {
  begin(name);
  write(bytes);
  end();
}

void ZipWriter::begin(std::string_view name) {
  if (name.size() > 0xFFFF) fail("a part name is too long");
  name_ = std::string(name);
  headerOffset_ = offset_;
  rawSize_ = packedSize_ = 0;
  crc_ = static_cast<uint32_t>(crc32(0, nullptr, 0));
  std::string header = localHeader(name_, 0, 0, 0);
  emit(header.data(), header.size());
  stream_ = z_stream{};
  if (deflateInit2(&stream_, kLevel, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK) {
    fail("zlib could not start");
  }
  open_ = true;
}

void ZipWriter::deflateSome(std::string_view bytes, int flushMode) {
  stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream_.avail_in = static_cast<uInt>(bytes.size());
  int rc = Z_OK;
  do {
    stream_.next_out = reinterpret_cast<Bytef*>(out_.data());
    stream_.avail_out = static_cast<uInt>(out_.size());
    rc = deflate(&stream_, flushMode);
    if (rc == Z_STREAM_ERROR) fail("zlib failed");
    size_t made = out_.size() - stream_.avail_out;
    packedSize_ += made;
    emit(out_.data(), made);
  } while (stream_.avail_out == 0 || (flushMode == Z_FINISH && rc != Z_STREAM_END));
}

void ZipWriter::write(std::string_view bytes) {
  // uInt is 32 bits: hand over huge pieces in slices.
  constexpr size_t kSlice = 1u << 30;
  while (!bytes.empty()) {
    std::string_view slice = bytes.substr(0, kSlice);
    crc_ = static_cast<uint32_t>(
        crc32_z(crc_, reinterpret_cast<const Bytef*>(slice.data()), slice.size()));
    rawSize_ += slice.size();
    deflateSome(slice, Z_NO_FLUSH);
    bytes.remove_prefix(slice.size());
  }
}

void ZipWriter::end() {
  deflateSome({}, Z_FINISH);
  deflateEnd(&stream_);
  open_ = false;
  // Patch the local header: in the buffer when it is still there, in the file otherwise.
  std::string header = localHeader(name_, crc_, packedSize_, rawSize_);
  uint64_t flushed = offset_ - buffer_.size();
  if (headerOffset_ >= flushed) {
    std::memcpy(buffer_.data() + (headerOffset_ - flushed), header.data(), header.size());
  } else {
    if (headerOffset_ + header.size() > flushed) flush();
    if (::pwrite(fd_, header.data(), header.size(), static_cast<off_t>(headerOffset_)) !=
        static_cast<ssize_t>(header.size())) {
      fail(std::strerror(errno));
    }
  }
  // Its central directory record.
  bool zip64 = packedSize_ >= kMax32 || rawSize_ >= kMax32 || headerOffset_ >= kMax32;
  std::string record;
  put32(record, 0x02014b50);
  put16(record, (3 << 8) | 45);  // made by: Unix, 4.5
  put16(record, zip64 ? 45 : 20);
  put16(record, kUtf8Flag);
  put16(record, 8);
  put16(record, kDosTime);
  put16(record, kDosDate);
  put32(record, crc_);
  put32(record, zip64 ? kMax32 : static_cast<uint32_t>(packedSize_));
  put32(record, zip64 ? kMax32 : static_cast<uint32_t>(rawSize_));
  put16(record, static_cast<uint16_t>(name_.size()));
  put16(record, zip64 ? 28 : 0);
  put16(record, 0);  // comment
  put16(record, 0);  // disk
  put16(record, 0);  // internal attributes
  put32(record, 0100644u << 16);
  put32(record, zip64 ? kMax32 : static_cast<uint32_t>(headerOffset_));
  record += name_;
  if (zip64) {
    put16(record, kZip64Extra);
    put16(record, 24);
    put64(record, rawSize_);
    put64(record, packedSize_);
    put64(record, headerOffset_);
  }
  if (std::fwrite(record.data(), 1, record.size(), directory_) != record.size()) {
    fail(std::strerror(errno));
  }
  ++entries_;
}

void ZipWriter::finish() {
  if (open_) end();
  uint64_t directoryOffset = offset_;
  if (std::fflush(directory_) != 0 || std::fseek(directory_, 0, SEEK_SET) != 0) {
    fail(std::strerror(errno));
  }
  std::string chunk(kDeflateOut, '\0');
  size_t n = 0;
  while ((n = std::fread(chunk.data(), 1, chunk.size(), directory_)) > 0) emit(chunk.data(), n);
  if (std::ferror(directory_)) fail(std::strerror(errno));
  uint64_t directorySize = offset_ - directoryOffset;
  std::string end;
  bool zip64 = entries_ >= 0xFFFF || directoryOffset >= kMax32 || directorySize >= kMax32;
  if (zip64) {
    uint64_t recordOffset = offset_;
    put32(end, 0x06064b50);
    put64(end, 44);
    put16(end, 45);
    put16(end, 45);
    put32(end, 0);
    put32(end, 0);
    put64(end, entries_);
    put64(end, entries_);
    put64(end, directorySize);
    put64(end, directoryOffset);
    put32(end, 0x07064b50);  // locator
    put32(end, 0);
    put64(end, recordOffset);
    put32(end, 1);
  }
  put32(end, 0x06054b50);
  put16(end, 0);
  put16(end, 0);
  put16(end, zip64 ? 0xFFFF : static_cast<uint16_t>(entries_));
  put16(end, zip64 ? 0xFFFF : static_cast<uint16_t>(entries_));
  put32(end, zip64 ? kMax32 : static_cast<uint32_t>(directorySize));
  put32(end, zip64 ? kMax32 : static_cast<uint32_t>(directoryOffset));
  put16(end, 0);
  emit(end.data(), end.size());
  flush();
}

}  // namespace nvwm::docx
