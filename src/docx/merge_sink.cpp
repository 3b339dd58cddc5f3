#include "docx/merge_sink.h"

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

}  // namespace nvwm::docx
