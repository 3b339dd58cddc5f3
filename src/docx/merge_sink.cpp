#include "docx/merge_sink.h"

#include <cerrno>
#include <cstring>

#include "docx/xml_writer.h"
#include "runtime/error.h"

namespace nvwm::docx {
namespace {
constexpr size_t kBlockSize = 1 << 20;
}

PackageSink::PackageSink(Package& out) : out_(out) {}

void PackageSink::append(const std::string& part, std::string_view xml) {
  if (part != out_.mainPart()) {
    auto [it, added] = pieces_.try_emplace(part);
    if (added) piecesOrder_.push_back(part);
    it->second.append(xml);
    return;
  }
  mainWritten_ = true;
  if (mainBlocks_.empty() || mainBlocks_.back().size() >= kBlockSize) {
    mainBlocks_.emplace_back().reserve(kBlockSize + kBlockSize / 8);
  }
  mainBlocks_.back().append(xml);
}

void PackageSink::put(const std::string& part, std::string bytes, std::string_view contentType) {
  out_.setBytes(part, std::move(bytes));
  if (!contentType.empty()) out_.addContentTypeOverride(part, contentType);
}

void PackageSink::relate(const Relationship& relationship) {
  pugi::xml_node rels = out_.xml(Package::relsPartOf(out_.mainPart())).document_element();
  pugi::xml_node rel = rels.append_child("Relationship");
  rel.append_attribute("Id").set_value(relationship.id.c_str());
  rel.append_attribute("Type").set_value(relationship.type.c_str());
  rel.append_attribute("Target").set_value(relationship.target.c_str());
  if (relationship.external) rel.append_attribute("TargetMode").set_value("External");
}

void PackageSink::finish() {
  if (mainWritten_) out_.setFragments(out_.mainPart(), std::move(mainBlocks_));
  for (const std::string& part : piecesOrder_) out_.setBytes(part, std::move(pieces_[part]));
}

// An unnamed temporary file written front to back, then read back once.
class ZipSink::Spill {
 public:
  Spill() : file_(std::tmpfile()) {
    if (!file_) fail();
  }
  ~Spill() { std::fclose(file_); }
  Spill(const Spill&) = delete;
  Spill& operator=(const Spill&) = delete;

  void write(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) fail();
  }
  void writeSize(uint64_t size) { write(std::string_view(reinterpret_cast<char*>(&size), 8)); }
  void rewind() {
    if (std::fflush(file_) != 0 || std::fseek(file_, 0, SEEK_SET) != 0) fail();
  }
  // Reads up to size bytes into out (replacing it); false at the end.
  bool read(std::string& out, size_t size) {
    out.resize(size);
    size_t got = std::fread(out.data(), 1, size, file_);
    if (std::ferror(file_)) fail();
    out.resize(got);
    return got > 0;
  }
  // Reads exactly size bytes. REQUIRES: they were written.
  void readExactly(std::string& out, size_t size) {
    if (!read(out, size) || out.size() != size) {
      raise(ErrorNumber::kPermissionDenied, "a temporary file of the merge was cut short");
    }
  }
  // Hands the rest of the file to the zip's open entry.
  void copyTo(ZipWriter& zip) {
    std::string chunk;
    while (read(chunk, kBlockSize)) zip.write(chunk);
  }

 private:
  [[noreturn]] static void fail() {
    raise(ErrorNumber::kPermissionDenied,
          std::string("cannot write a temporary file of the merge: ") + std::strerror(errno));
  }
  std::FILE* file_;
};

ZipSink::ZipSink(Package& out, ZipWriter& zip) : out_(out), zip_(zip) {}
ZipSink::~ZipSink() = default;

ZipSink::Spill& ZipSink::spill(std::unique_ptr<Spill>& slot) {
  if (!slot) slot = std::make_unique<Spill>();
  return *slot;
}

void ZipSink::append(const std::string& part, std::string_view xml) {
  if (part == out_.mainPart()) {
    if (!mainOpen_) zip_.begin(part);
    mainOpen_ = true;
    zip_.write(xml);
    return;
  }
  for (auto& [name, file] : pieces_) {
    if (name == part) {
      file->write(xml);
      return;
    }
  }
  pieces_.emplace_back(part, std::make_unique<Spill>());
  pieces_.back().second->write(xml);
}

void ZipSink::put(const std::string& part, std::string bytes, std::string_view contentType) {
  // A part of the template (a header merged in place) replaces the template's own.
  if (out_.has(part)) {
    out_.setBytes(part, std::move(bytes));
    if (!contentType.empty()) out_.setContentTypeOverride(part, contentType);
    return;
  }
  Spill& whole = spill(wholeParts_);
  whole.writeSize(part.size());
  whole.write(part);
  whole.writeSize(bytes.size());
  whole.write(bytes);
  if (!contentType.empty()) {
    std::string o = "<Override PartName=\"";
    appendEscapedAttribute(o, "/" + part);
    o += "\" ContentType=\"";
    appendEscapedAttribute(o, contentType);
    o += "\"/>";
    spill(overrides_).write(o);
  }
}

void ZipSink::relate(const Relationship& relationship) {
  std::string r = "<Relationship Id=\"";
  appendEscapedAttribute(r, relationship.id);
  r += "\" Type=\"";
  appendEscapedAttribute(r, relationship.type);
  r += "\" Target=\"";
  appendEscapedAttribute(r, relationship.target);
  r += relationship.external ? "\" TargetMode=\"External\"/>" : "\"/>";
  spill(relations_).write(r);
}

void ZipSink::writeExtended(const std::string& part, Spill* children) {
  pugi::xml_document& doc = out_.xml(part);
  pugi::xml_node root = doc.document_element();
  zip_.begin(part);
  for (pugi::xml_node top : doc.children()) {
    if (top != root) {
      zip_.write(serialize(top));
      continue;
    }
    std::string head;
    appendOpening(head, root, false);
    for (pugi::xml_node child : root.children()) head += serialize(child);
    zip_.write(head);
    if (children) {
      children->rewind();
      children->copyTo(zip_);
    }
    std::string tail;
    appendClosing(tail, root, false);
    zip_.write(tail);
  }
  zip_.end();
}

void ZipSink::finish() {
  if (mainOpen_) zip_.end();
  mainOpen_ = false;
  if (wholeParts_) {
    wholeParts_->rewind();
    std::string sizeBytes, name, bytes;
    while (wholeParts_->read(sizeBytes, 8)) {
      uint64_t size = 0;
      if (sizeBytes.size() != 8)
        raise(ErrorNumber::kPermissionDenied, "a temporary file of the merge was cut short");
      std::memcpy(&size, sizeBytes.data(), 8);
      wholeParts_->readExactly(name, size);
      wholeParts_->readExactly(sizeBytes, 8);
      std::memcpy(&size, sizeBytes.data(), 8);
      wholeParts_->readExactly(bytes, size);
      zip_.add(name, bytes);
    }
  }
  for (auto& [name, file] : pieces_) {
    zip_.begin(name);
    file->rewind();
    file->copyTo(zip_);
    zip_.end();
  }
  const std::string types = "[Content_Types].xml";
  const std::string rels = Package::relsPartOf(out_.mainPart());
  if (out_.has(types)) writeExtended(types, overrides_.get());
  if (out_.has(rels)) writeExtended(rels, relations_.get());
  out_.writeParts(zip_, [&](const std::string& name) {
    if (name == out_.mainPart() || name == types || name == rels) return true;
    for (auto& piece : pieces_) {
      if (piece.first == name) return true;
    }
    return false;
  });
}

}  // namespace nvwm::docx
