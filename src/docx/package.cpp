// A .docx package in memory.
//
// Malformed input, as the reader treats it:
//   - A file that is missing, locked for writing by another process (an fcntl write lock or a
//     flock exclusive lock), not a zip, or a zip without a main document part is refused with
//     a RuntimeError; nothing of it is kept.
//   - A zip is damaged when libzip finds its directory inconsistent (a zip64 size that isn't
//     there, entries past the end), when a part does not unpack (bad data, a checksum that
//     fails), or when a part unpacks to another size than the directory gives: all three are
//     refused as damaged, never as a missing file.
//   - No size in the zip is believed before it is checked (docx/read_limits.h): a part is
//     read as a stream, and the claimed size only bounds what is reserved. A claim that the
//     packed bytes can't hold is damage; a part or package over the limits is refused.
//   - Parts are kept as bytes and parsed only when the engine needs their XML; a part that is
//     not well-formed XML is refused when it is needed (error 4198 naming the part and pugixml's
//     reason), and written back untouched when it is not.
//   - Unknown parts, unknown elements and unknown attributes are carried through untouched;
//     whitespace-only text is kept exactly (parse_ws_pcdata, format_raw).
//   - Invalid UTF-8 inside a part is not repaired: pugixml passes the bytes through, and the
//     engine copies them as they came. Text the engine itself inserts (merge values, dates) is
//     checked where it enters (see data_source.cpp).
#include "docx/package.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <zip.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "docx/output_file.h"
#include "docx/zip_writer.h"
#include "runtime/error.h"

namespace nvwm::docx {
namespace {

namespace fs = std::filesystem;

// Raises 70 when another process holds a write lock (fcntl) or an exclusive lock (flock) on
// the file, as Word refuses a document that someone else has open for editing.
void checkNotLocked(const std::string& path) {
  int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    raise(ErrorNumber::kPermissionDenied, "cannot read '" + path + "': " + std::strerror(errno));
  }
  struct flock probe {};
  probe.l_type = F_RDLCK;
  probe.l_whence = SEEK_SET;
  bool locked = ::fcntl(fd, F_GETLK, &probe) == 0 && probe.l_type != F_UNLCK;
  if (!locked && ::flock(fd, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK) locked = true;
  ::close(fd);  // also drops our shared flock
  if (locked) {
    raise(ErrorNumber::kPermissionDenied,
          "'" + path + "' is locked by another process; close it there and try again");
  }
}

std::string zipErrorText(int code) {
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  std::string text = zip_error_strerror(&error);
  zip_error_fini(&error);
  return text;
}

struct ZipCloser {
  void operator()(zip_t* z) const { zip_discard(z); }
};
struct ZipFileCloser {
  void operator()(zip_file_t* f) const { zip_fclose(f); }
};

[[noreturn]] void damaged(const std::string& label, const std::string& why) {
  raise(ErrorNumber::kDocumentError, label + " is damaged: " + why);
}

[[noreturn]] void overLimit(const std::string& label, const std::string& why) {
  raise(ErrorNumber::kDocumentError, label + " is refused: " + why);
}

// zip_open's failure: not a zip at all, unreadable, or a zip whose directory doesn't hold
// together (libzip says "No such file" when a zip64 size it was promised is missing).
// startsLikeZip: the bytes begin with a zip's first local header, so a missing directory
// means a zip cut short.
[[noreturn]] void refuseArchive(const std::string& label, int code, bool startsLikeZip) {
  switch (code) {
    case ZIP_ER_NOZIP:
      if (startsLikeZip) damaged(label, "its zip directory is missing (is the file cut short?)");
      raise(ErrorNumber::kDocumentError,
            label + " is not a .docx document (" + zipErrorText(code) + ")");
    case ZIP_ER_OPEN:
    case ZIP_ER_READ:
    case ZIP_ER_SEEK:
      raise(ErrorNumber::kPermissionDenied,
            "cannot read " + label + " (" + zipErrorText(code) + ")");
    case ZIP_ER_MEMORY:
      raise(ErrorNumber::kOutOfMemory, "no memory to read " + label);
    case ZIP_ER_NOENT:
    case ZIP_ER_INCONS:
      damaged(label, "its zip directory is inconsistent");
    default:
      damaged(label, "its zip directory can't be read (" + zipErrorText(code) + ")");
  }
}

bool startsLikeZip(std::string_view bytes) { return bytes.substr(0, 4) == "PK\x03\x04"; }

std::string bytesText(uint64_t n) {
  std::string text = std::to_string(n) + " bytes";
  if (n >= (uint64_t{1} << 20)) text += " (" + std::to_string(n >> 20) + " MB)";
  return text;
}

// a * b, or the largest value when that doesn't fit: sizes in a zip may be anything.
uint64_t timesOrMax(uint64_t a, uint64_t b) {
  return b != 0 && a > UINT64_MAX / b ? UINT64_MAX : a * b;
}

// The most deflate can unpack from n packed bytes: each 258-byte match costs at least two
// bits, about 1,032 to 1; the slack covers headers and a last block.
uint64_t deflateCeiling(uint64_t packed) { return timesOrMax(packed, 1032) + 1024; }

// Reads parts one after the other, as streams, under the limits; counts what the whole
// package has unpacked.
class PartReader {
 public:
  PartReader(const std::string& label, uint64_t packedSize, const ReadLimits& limits)
      : label_(label), packedSize_(packedSize), limits_(limits) {}

  std::string read(zip_t* zip, zip_int64_t index, const zip_stat_t& st) {
    const std::string name = st.name;
    uint64_t claimed = (st.valid & ZIP_STAT_SIZE) ? st.size : 0;
    uint64_t packed = (st.valid & ZIP_STAT_COMP_SIZE) ? st.comp_size : 0;
    checkClaim(name, claimed, packed, (st.valid & ZIP_STAT_COMP_METHOD) ? st.comp_method : -1);

    std::unique_ptr<zip_file_t, ZipFileCloser> file(zip_fopen_index(zip, index, 0));
    if (!file) {
      raise(ErrorNumber::kDocumentError,
            label_ + ": cannot read part " + name + " (" + zip_strerror(zip) + ")");
    }
    std::string data;
    // The claim is checked, but only what arrives is kept: reserve no more than the packed
    // bytes could give at the allowed ratio.
    data.reserve(static_cast<size_t>(std::min<uint64_t>(
        {claimed, limits_.maxPartSize,
         timesOrMax(packed, limits_.maxCompressionRatio) + limits_.ratioFloor})));
    char chunk[64 * 1024];
    for (;;) {
      zip_int64_t got = zip_fread(file.get(), chunk, sizeof chunk);
      if (got < 0) {
        damaged(label_,
                "part " + name + " can't be unpacked (" + zip_file_strerror(file.get()) + ")");
      }
      if (got == 0) break;
      data.append(chunk, static_cast<size_t>(got));
      total_ += static_cast<uint64_t>(got);
      checkGrowth(name, data.size(), packed);
    }
    if (data.size() != claimed) {
      damaged(label_, "part " + name + " unpacks to " + bytesText(data.size()) + ", not the " +
                          bytesText(claimed) + " its zip directory gives");
    }
    return data;
  }

 private:
  void checkClaim(const std::string& name, uint64_t claimed, uint64_t packed, int method) {
    if ((method == ZIP_CM_STORE && claimed != packed) ||
        (method == ZIP_CM_DEFLATE && claimed > deflateCeiling(packed))) {
      damaged(label_, "part " + name + " claims " + bytesText(claimed) + " from " +
                          bytesText(packed) + " packed, which its packing can't give");
    }
    if (claimed > limits_.maxPartSize) {
      overLimit(label_, "part " + name + " is " + bytesText(claimed) +
                            " unpacked, over the limit of " + bytesText(limits_.maxPartSize));
    }
  }
  void checkGrowth(const std::string& name, uint64_t size, uint64_t packed) {
    if (size > limits_.maxPartSize) {
      overLimit(label_, "part " + name + " unpacks to more than the limit of " +
                            bytesText(limits_.maxPartSize));
    }
    uint64_t ratio = limits_.maxCompressionRatio;
    if (size >= limits_.ratioFloor && size > timesOrMax(std::max<uint64_t>(packed, 1), ratio)) {
      overLimit(label_, "part " + name + " unpacks to more than " + std::to_string(ratio) +
                            " times its packed size");
    }
    if (total_ > limits_.ratioFloor &&
        total_ > timesOrMax(std::max<uint64_t>(packedSize_, 1), ratio)) {
      overLimit(label_, "its parts unpack to more than " + std::to_string(ratio) +
                            " times the size of the file");
    }
  }

  const std::string& label_;
  uint64_t packedSize_;
  const ReadLimits& limits_;
  uint64_t total_ = 0;
};

constexpr std::string_view kBlankContentTypes =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">)"
    R"(<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>)"
    R"(<Default Extension="xml" ContentType="application/xml"/>)"
    R"(<Override PartName="/word/document.xml" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/>)"
    R"(<Override PartName="/word/styles.xml" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.styles+xml"/>)"
    R"(<Override PartName="/word/settings.xml" ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml"/>)"
    R"(</Types>)";

constexpr std::string_view kBlankRootRels =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="word/document.xml"/>)"
    R"(</Relationships>)";

constexpr std::string_view kBlankDocumentRels =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">)"
    R"(<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" Target="styles.xml"/>)"
    R"(<Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/settings" Target="settings.xml"/>)"
    R"(</Relationships>)";

constexpr std::string_view kBlankDocument =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main" )"
    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)"
    R"(<w:body><w:p/><w:sectPr><w:pgSz w:w="12240" w:h="15840"/>)"
    R"(<w:pgMar w:top="1440" w:right="1440" w:bottom="1440" w:left="1440" w:header="708" w:footer="708" w:gutter="0"/>)"
    R"(<w:cols w:space="708"/></w:sectPr></w:body></w:document>)";

constexpr std::string_view kBlankStyles =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<w:styles xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main">)"
    R"(<w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:ascii="Calibri" w:hAnsi="Calibri" w:eastAsia="Calibri" w:cs="Times New Roman"/>)"
    R"(<w:sz w:val="22"/><w:szCs w:val="22"/><w:lang w:val="en-US"/></w:rPr></w:rPrDefault>)"
    R"(<w:pPrDefault><w:pPr><w:spacing w:after="160" w:line="259" w:lineRule="auto"/></w:pPr></w:pPrDefault></w:docDefaults>)"
    R"(<w:style w:type="paragraph" w:default="1" w:styleId="Normal"><w:name w:val="Normal"/><w:qFormat/></w:style>)"
    R"(</w:styles>)";

constexpr std::string_view kBlankSettings =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>)"
    "\n"
    R"(<w:settings xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main" )"
    R"(xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships">)"
    R"(<w:defaultTabStop w:val="720"/><w:characterSpacingControl w:val="doNotCompress"/>)"
    R"(<w:compat><w:compatSetting w:name="compatibilityMode" w:uri="http://schemas.microsoft.com/office/word" w:val="15"/></w:compat>)"
    R"(</w:settings>)";

}  // namespace

std::string serialize(const pugi::xml_node& node) {
  std::ostringstream out;
  node.print(out, "", kFormatFlags, pugi::encoding_utf8);
  return std::move(out).str();
}

std::unique_ptr<Package> Package::load(const std::string& path, const ReadLimits& limits) {
  std::error_code ec;
  if (!fs::exists(path, ec)) raise(ErrorNumber::kFileNotFound, "'" + path + "' does not exist");
  if (fs::is_directory(path, ec)) {
    raise(ErrorNumber::kDocumentError, "'" + path + "' is a folder, not a document");
  }
  checkNotLocked(path);
  uint64_t packedSize = fs::file_size(path, ec);
  if (ec) raise(ErrorNumber::kPermissionDenied, "cannot read '" + path + "': " + ec.message());

  int code = 0;
  std::unique_ptr<zip_t, ZipCloser> zip(zip_open(path.c_str(), ZIP_RDONLY, &code));
  if (!zip) {
    char head[4] = {};
    std::ifstream(path, std::ios::binary).read(head, sizeof head);
    refuseArchive("'" + path + "'", code, startsLikeZip(std::string_view(head, sizeof head)));
  }
  return readZip(zip.get(), "'" + path + "'", packedSize, limits);
}

std::unique_ptr<Package> Package::loadBytes(std::string_view bytes, const std::string& name,
                                            const ReadLimits& limits) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  if (!source) {
    zip_error_fini(&error);
    raise(ErrorNumber::kOutOfMemory, "no memory to read '" + name + "'");
  }
  std::unique_ptr<zip_t, ZipCloser> zip(zip_open_from_source(source, ZIP_RDONLY, &error));
  int code = zip_error_code_zip(&error);
  zip_error_fini(&error);
  if (!zip) {
    zip_source_free(source);
    refuseArchive("'" + name + "'", code, startsLikeZip(bytes));
  }
  return readZip(zip.get(), "'" + name + "'", bytes.size(), limits);
}

std::unique_ptr<Package> Package::readZip(zip_t* zip, const std::string& label, uint64_t packedSize,
                                          const ReadLimits& limits) {
  auto package = std::unique_ptr<Package>(new Package());
  PartReader reader(label, packedSize, limits);
  zip_int64_t count = zip_get_num_entries(zip, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    zip_stat_t st;
    if (zip_stat_index(zip, i, 0, &st) != 0)
      damaged(label, "an entry of its zip directory can't be read");
    std::string name = st.name ? st.name : "";
    if (name.empty() || name.back() == '/') continue;
    package->setBytes(name, reader.read(zip, i, st));
  }
  if (!package->has("[Content_Types].xml")) {
    raise(ErrorNumber::kDocumentError,
          label + " is a zip file but not a .docx document (no [Content_Types].xml)");
  }
  package->locateMainPart();
  if (!package->has(package->mainPart_)) {
    raise(ErrorNumber::kDocumentError,
          label + " is a zip file but not a .docx document (no " + package->mainPart_ + ")");
  }
  // Refuse a main part that is not XML now rather than at the first edit.
  if (std::string why = package->parse(*package->find(package->mainPart_)); !why.empty())
    damaged(label, why);
  return package;
}

std::unique_ptr<Package> Package::blank() {
  auto package = std::unique_ptr<Package>(new Package());
  package->setBytes("[Content_Types].xml", std::string(kBlankContentTypes));
  package->setBytes("_rels/.rels", std::string(kBlankRootRels));
  package->setBytes("word/document.xml", std::string(kBlankDocument));
  package->setBytes("word/_rels/document.xml.rels", std::string(kBlankDocumentRels));
  package->setBytes("word/styles.xml", std::string(kBlankStyles));
  package->setBytes("word/settings.xml", std::string(kBlankSettings));
  package->mainPart_ = "word/document.xml";
  return package;
}

std::unique_ptr<Package> Package::clone() const {
  auto copy = std::unique_ptr<Package>(new Package());
  for (const auto& part : parts_) {
    if (!part->fragments.empty()) {
      copy->setFragments(part->name, part->fragments);
    } else {
      copy->setBytes(part->name, part->dom ? serialize(*part->dom) : part->bytes);
    }
  }
  copy->mainPart_ = mainPart_;
  return copy;
}

void Package::locateMainPart() {
  mainPart_ = "word/document.xml";
  if (!has("_rels/.rels")) return;
  for (const auto& rel : relationships("")) {
    if (rel.type == kRelOfficeDocument && !rel.external) {
      mainPart_ = resolveTarget("", rel.target);
      return;
    }
  }
}

void Package::save(const std::string& path) {
  OutputFile file(path);
  ZipWriter zip(file.fd());
  writeParts(zip, {});
  zip.finish();
  file.commit();
}

void Package::writeParts(ZipWriter& zip,
                         const std::function<bool(const std::string&)>& skip) const {
  for (const auto& part : parts_) {
    if (skip && skip(part->name)) continue;
    if (part->dom) {
      zip.add(part->name, serialize(*part->dom));
    } else if (!part->fragments.empty()) {
      zip.begin(part->name);
      for (const auto& f : part->fragments) zip.write(f);
      zip.end();
    } else {
      zip.add(part->name, part->bytes);
    }
  }
}

Package::Part* Package::find(std::string_view name) {
  auto it = byName_.find(std::string(name));
  return it == byName_.end() ? nullptr : it->second;
}

const Package::Part* Package::find(std::string_view name) const {
  auto it = byName_.find(std::string(name));
  return it == byName_.end() ? nullptr : it->second;
}

bool Package::has(std::string_view name) const { return find(name) != nullptr; }

std::string Package::bytes(std::string_view name) const {
  const Part* part = find(name);
  if (!part) raise(ErrorNumber::kDocumentError, "the document has no part " + std::string(name));
  return part->dom ? serialize(*part->dom) : joined(*part);
}

std::string Package::joined(const Part& part) {
  if (part.fragments.empty()) return part.bytes;
  size_t size = 0;
  for (const auto& f : part.fragments) size += f.size();
  std::string all;
  all.reserve(size);
  for (const auto& f : part.fragments) all += f;
  return all;
}

pugi::xml_document& Package::xml(std::string_view name) {
  Part* part = find(name);
  if (!part) raise(ErrorNumber::kDocumentError, "the document has no part " + std::string(name));
  if (std::string why = parse(*part); !why.empty()) raise(ErrorNumber::kDocumentError, why);
  return *part->dom;
}

std::string Package::parse(Part& part) {
  if (part.dom) return {};
  if (!part.fragments.empty()) {
    part.bytes = joined(part);
    part.fragments.clear();
  }
  auto dom = std::make_unique<pugi::xml_document>();
  pugi::xml_parse_result result =
      dom->load_buffer(part.bytes.data(), part.bytes.size(), kParseFlags, pugi::encoding_utf8);
  if (!result) {
    return "part " + part.name + " is not well-formed XML (" + result.description() +
           " at offset " + std::to_string(result.offset) + ")";
  }
  part.dom = std::move(dom);
  std::string().swap(part.bytes);
  return {};
}

void Package::setBytes(std::string_view name, std::string bytes) {
  Part* part = find(name);
  if (!part) {
    parts_.push_back(std::make_unique<Part>());
    part = parts_.back().get();
    part->name = std::string(name);
    byName_[part->name] = part;
  }
  part->bytes = std::move(bytes);
  part->fragments.clear();
  part->dom.reset();
}

void Package::setFragments(std::string_view name, std::vector<std::string> fragments) {
  setBytes(name, std::string());
  find(name)->fragments = std::move(fragments);
}

void Package::remove(std::string_view name) {
  Part* part = find(name);
  if (!part) return;
  byName_.erase(part->name);
  parts_.erase(
      std::find_if(parts_.begin(), parts_.end(), [&](const auto& p) { return p.get() == part; }));
}

std::vector<std::string> Package::partNames() const {
  std::vector<std::string> names;
  for (const auto& p : parts_) names.push_back(p->name);
  return names;
}

std::string Package::relsPartOf(std::string_view partName) {
  if (partName.empty()) return "_rels/.rels";
  size_t slash = partName.rfind('/');
  std::string folder =
      slash == std::string_view::npos ? "" : std::string(partName.substr(0, slash + 1));
  std::string file(slash == std::string_view::npos ? partName : partName.substr(slash + 1));
  return folder + "_rels/" + file + ".rels";
}

std::string Package::resolveTarget(std::string_view sourcePart, std::string_view target) {
  std::string path;
  if (!target.empty() && target.front() == '/') {
    path = std::string(target.substr(1));
  } else {
    size_t slash = sourcePart.rfind('/');
    path = (slash == std::string_view::npos ? std::string()
                                            : std::string(sourcePart.substr(0, slash + 1))) +
           std::string(target);
  }
  // Fold "a/../" and "./" segments.
  std::vector<std::string> segments;
  std::string segment;
  std::istringstream in(path);
  while (std::getline(in, segment, '/')) {
    if (segment == "..") {
      if (!segments.empty()) segments.pop_back();
    } else if (!segment.empty() && segment != ".") {
      segments.push_back(segment);
    }
  }
  std::string out;
  for (const auto& s : segments) out += (out.empty() ? "" : "/") + s;
  return out;
}

std::vector<Relationship> Package::relationships(std::string_view partName) {
  std::vector<Relationship> rels;
  std::string relsName = relsPartOf(partName);
  if (!has(relsName)) return rels;
  for (pugi::xml_node rel : xml(relsName).document_element().children("Relationship")) {
    rels.push_back({rel.attribute("Id").value(), rel.attribute("Type").value(),
                    rel.attribute("Target").value(),
                    std::string_view(rel.attribute("TargetMode").value()) == "External"});
  }
  return rels;
}

void Package::setContentTypeOverride(std::string_view partName, std::string_view contentType) {
  pugi::xml_node types = xml("[Content_Types].xml").document_element();
  std::string partPath = "/" + std::string(partName);
  for (pugi::xml_node o : types.children("Override")) {
    if (partPath == o.attribute("PartName").value()) {
      o.attribute("ContentType").set_value(std::string(contentType).c_str());
      return;
    }
  }
  pugi::xml_node o = types.append_child("Override");
  o.append_attribute("PartName").set_value(partPath.c_str());
  o.append_attribute("ContentType").set_value(std::string(contentType).c_str());
}

void Package::addContentTypeOverride(std::string_view partName, std::string_view contentType) {
  pugi::xml_node o = xml("[Content_Types].xml").document_element().append_child("Override");
  o.append_attribute("PartName").set_value(("/" + std::string(partName)).c_str());
  o.append_attribute("ContentType").set_value(std::string(contentType).c_str());
}

void Package::removeContentTypeOverride(std::string_view partName) {
  pugi::xml_node types = xml("[Content_Types].xml").document_element();
  std::string partPath = "/" + std::string(partName);
  for (pugi::xml_node o : types.children("Override")) {
    if (partPath == o.attribute("PartName").value()) {
      types.remove_child(o);
      return;
    }
  }
}

}  // namespace nvwm::docx
