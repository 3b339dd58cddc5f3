// Reading a .docx whose zip lies or unpacks without bound: each case refused with its cause,
// from a file and from memory alike, before the claimed memory is ever taken. The zips are
// written by hand (fuzz/inputs/zip_writer.h) so that their headers can lie.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "docx/package.h"
#include "docx_test_support.h"
#include "fuzz/inputs/sample_inputs.h"
#include "fuzz/inputs/zip_writer.h"
#include "support/runtime_assertions.h"
#include "support/temp_dir.h"

namespace nvwm {
namespace {

using docx::Package;
using docx::ReadLimits;
using fuzzing::ZipEntry;

std::vector<ZipEntry> minimalDocx() {
  return {
      {"[Content_Types].xml",
       R"(<?xml version="1.0"?><Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
       R"(<Default Extension="xml" ContentType="application/xml"/></Types>)"},
      {"word/document.xml",
       R"(<?xml version="1.0"?><w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main">)"
       R"(<w:body><w:p><w:r><w:t>Dear client,</w:t></w:r></w:p></w:body></w:document>)"},
  };
}

// The main part changed by `lie`, or more parts added by `more`.
std::string zipWith(const std::function<void(ZipEntry&)>& lie,
                    const std::vector<ZipEntry>& more = {}) {
  std::vector<ZipEntry> entries = minimalDocx();
  if (lie) lie(entries[1]);
  entries.insert(entries.end(), more.begin(), more.end());
  return fuzzing::writeZip(entries);
}

std::string describeFailure(const std::function<void()>& read) {
  try {
    read();
  } catch (const RuntimeError& e) {
    return std::to_string(e.number()) + " " + e.description();
  }
  return "read";
}

struct Case {
  const char* what;
  std::string bytes;
  ReadLimits limits;
  std::string expected;  // "read", or the error number and a piece of its description
};

std::vector<Case> cases() {
  ReadLimits oneMb;
  oneMb.maxPartSize = 1 << 20;
  ReadLimits lowFloor;
  lowFloor.ratioFloor = 64 << 10;
  std::vector<ZipEntry> manySmallBombs;
  for (int i = 0; i < 40; ++i)
    manySmallBombs.push_back({"word/media/z" + std::to_string(i), std::string(60 << 10, '\0')});
  std::string variedText;
  for (int i = 0; variedText.size() < (3 << 20); ++i)
    variedText += "<w:p><w:r><w:t>Client " + std::to_string(i * 7919) + "</w:t></w:r></w:p>";

  return {
      {"an honest zip", zipWith(nullptr), {}, "read"},
      {"a 3 MB part of ordinary text",
       zipWith(nullptr, {{"word/media/text.xml", variedText}}),
       {},
       "read"},
      // This was 2 GB allocated and zero-filled before a byte was read.
      {"a 1 KB zip that claims 2 GB",
       zipWith([](ZipEntry& e) { e.claimedSize = 0x7fffffffu; }),
       {},
       "4198 Command failed: 'doc.docx' is damaged: part word/document.xml claims 2147483647 "
       "bytes (2047 MB) from "},
      // This said "No such file": libzip's word for a zip64 size that isn't there.
      {"sizes of 0xFFFFFFFF with no zip64 field",
       zipWith([](ZipEntry& e) { e.zip64FieldMissing = true; }),
       {},
       "4198 Command failed: 'doc.docx' is damaged: its zip directory is inconsistent"},
      {"a zip64 size of 1 TB",
       zipWith([](ZipEntry& e) {
         e.zip64 = true;
         e.claimedSize = uint64_t{1} << 40;
       }),
       {},
       "4198 Command failed: 'doc.docx' is damaged: part word/document.xml claims "
       "1099511627776 bytes"},
      {"a zip64 size of 2^64 - 1",
       zipWith([](ZipEntry& e) {
         e.zip64 = true;
         e.claimedSize = ~uint64_t{0};
       }),
       {},
       "4198 Command failed: 'doc.docx' is damaged: part word/document.xml claims "
       "18446744073709551615 bytes"},
      {"a zip64 size smaller than the data",
       zipWith([](ZipEntry& e) {
         e.zip64 = true;
         e.claimedSize = 10;
       }),
       {},
       "4198 Command failed: 'doc.docx' is damaged: part word/document.xml unpacks to 179 "
       "bytes, not the 10 bytes its zip directory gives"},
      {"a stored part claiming more than it holds",
       zipWith([](ZipEntry& e) {
         e.deflate = false;
         e.claimedSize = 5000;
       }),
       {},
       "4198 Command failed: 'doc.docx' is damaged: part word/document.xml claims 5000 bytes "
       "from 179 bytes packed"},
      {"a bad checksum",
       zipWith([](ZipEntry& e) { e.badCrc = true; }),
       {},
       "4198 Command failed: 'doc.docx' is damaged: part word/document.xml can't be unpacked "
       "(CRC error)"},
      {"a part over a limit of 1 MB",
       zipWith(nullptr, {{"word/media/big.bin", std::string(2 << 20, 'x')}}), oneMb,
       "4198 Command failed: 'doc.docx' is refused: part word/media/big.bin is 2097152 bytes "
       "(2 MB) unpacked, over the limit of 1048576 bytes (1 MB)"},
      {"a zip bomb: 4 MB of zeros in 4 KB",
       zipWith(nullptr, {{"word/media/zeros.bin", std::string(4 << 20, '\0')}}),
       {},
       "4198 Command failed: 'doc.docx' is refused: part word/media/zeros.bin unpacks to more "
       "than 200 times its packed size"},
      {"many small bombs, each under the floor", zipWith(nullptr, manySmallBombs), lowFloor,
       "4198 Command failed: 'doc.docx' is refused: its parts unpack to more than 200 times the "
       "size of the file"},
      {"half a zip", zipWith(nullptr).substr(0, 200), {}, "4198 Command failed: 'doc.docx' is "},
      {"no zip at all",
       "Dear client,",
       {},
       "4198 Command failed: 'doc.docx' is not a .docx document (Not a zip archive)"},
  };
}

TEST(PackageLimitsTest, LyingAndUnboundedZipsAreRefusedWithTheirCause) {
  testing::TempDir dir;
  std::string path = dir.file("doc.docx");
  for (const Case& c : cases()) {
    SCOPED_TRACE(c.what);
    testing::writeFile(path, c.bytes);
    std::string fromFile = describeFailure([&] { Package::load(path, c.limits); });
    std::string fromBytes =
        describeFailure([&] { Package::loadBytes(c.bytes, "doc.docx", c.limits); });
    // The file and the bytes give one answer (the file's label is its path).
    std::string sameLabel = fromFile;
    for (size_t at; (at = sameLabel.find(path)) != std::string::npos;)
      sameLabel.replace(at, path.size(), "doc.docx");
    EXPECT_EQ(sameLabel, fromBytes);
    if (std::string(c.expected) == "read") {
      EXPECT_EQ(fromBytes, "read");
    } else {
      EXPECT_EQ(fromBytes.substr(0, c.expected.size()), c.expected) << fromBytes;
    }
    EXPECT_EQ(fromBytes.find("No such file"), std::string::npos) << fromBytes;
  }
}

TEST(PackageLimitsTest, AnHonestPackageReadsTheSameFromBytesAndFromAFile) {
  testing::TempDir dir;
  std::string bytes = fuzzing::docxWithBody("<w:p><w:r><w:t>Hello</w:t></w:r></w:p>");
  testing::writeFile(dir.file("a.docx"), bytes);
  auto fromFile = Package::load(dir.file("a.docx"));
  auto fromBytes = Package::loadBytes(bytes, "a.docx");
  EXPECT_EQ(fromFile->partNames(), fromBytes->partNames());
  EXPECT_EQ(fromFile->bytes("word/document.xml"), fromBytes->bytes("word/document.xml"));
}

}  // namespace
}  // namespace nvwm
