// The zip writer's output read back by libzip: parts whole and in pieces, empty parts, and
// more entries than the plain zip end record can count.
#include "docx/zip_writer.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>

#include "docx/package.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

void writeZip(const std::string& path, const std::function<void(docx::ZipWriter&)>& body) {
  int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
  ASSERT_GE(fd, 0);
  {
    docx::ZipWriter zip(fd);
    body(zip);
    zip.finish();
  }
  ::close(fd);
}

const std::string kTypes =
    "<?xml version=\"1.0\"?><Types "
    "xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\"/>";
const std::string kMain = "<w:document xmlns:w=\"w\"><w:body/></w:document>";

TEST(ZipWriterTest, PartsWholeInPiecesAndEmptyReadBack) {
  TempDir dir;
  std::string big;
  for (int i = 0; big.size() < (3u << 20); ++i)
    big += "<w:p>" + std::to_string(i * 7919) + "</w:p>";
  writeZip(dir.file("a.docx"), [&](docx::ZipWriter& zip) {
    zip.add("[Content_Types].xml", kTypes);
    zip.begin("word/document.xml");
    zip.write(kMain.substr(0, 10));
    zip.write(kMain.substr(10));
    zip.end();
    zip.begin("word/big.xml");
    for (size_t at = 0; at < big.size(); at += 100000) zip.write(big.substr(at, 100000));
    zip.end();
    zip.add("word/empty.xml", "");
    zip.add("word/Société é.xml", "x");
  });
  auto package = docx::Package::load(dir.file("a.docx"));
  EXPECT_EQ(package->bytes("word/document.xml"), kMain);
  EXPECT_EQ(package->bytes("word/big.xml"), big);
  EXPECT_EQ(package->bytes("word/empty.xml"), "");
  EXPECT_EQ(package->bytes("word/Société é.xml"), "x");
}

TEST(ZipWriterTest, MoreThan65535EntriesAreAllThere) {
  TempDir dir;
  constexpr int kEntries = 70000;
  writeZip(dir.file("many.docx"), [&](docx::ZipWriter& zip) {
    zip.add("[Content_Types].xml", kTypes);
    zip.add("word/document.xml", kMain);
    for (int i = 0; i < kEntries; ++i) zip.add("p/" + std::to_string(i), std::to_string(i));
  });
  auto package = docx::Package::load(dir.file("many.docx"));
  EXPECT_EQ(package->partNames().size(), kEntries + 2u);
  EXPECT_EQ(package->bytes("p/69999"), "69999");
}

}  // namespace
}  // namespace nvwm::testing
