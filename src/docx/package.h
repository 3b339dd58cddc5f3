// Internal: a .docx package held in memory: its parts by name, read from and written to a zip.
//
// A part is kept as the bytes that came from the zip until someone asks for its XML; from then
// on the parsed tree is the truth and is serialized again at save. Parts nobody touched are
// written back byte for byte, so unknown parts travel through untouched.
#pragma once

#include <functional>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "docx/read_limits.h"

struct zip;

namespace nvwm::docx {

class ZipWriter;

// Relationship types and content types the engine writes or looks for.
inline constexpr std::string_view kRelOfficeDocument =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument";
inline constexpr std::string_view kRelHeader =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/header";
inline constexpr std::string_view kRelFooter =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/footer";
inline constexpr std::string_view kRelFootnotes =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/footnotes";
inline constexpr std::string_view kRelEndnotes =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/endnotes";
inline constexpr std::string_view kRelComments =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/comments";
inline constexpr std::string_view kRelSettings =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/settings";
inline constexpr std::string_view kRelMailMergeSource =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/mailMergeSource";
inline constexpr std::string_view kRelRecipientData =
    "http://schemas.openxmlformats.org/officeDocument/2006/relationships/recipientData";
inline constexpr std::string_view kTypeDocumentMain =
    "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml";
inline constexpr std::string_view kTypeHeader =
    "application/vnd.openxmlformats-officedocument.wordprocessingml.header+xml";
inline constexpr std::string_view kTypeFooter =
    "application/vnd.openxmlformats-officedocument.wordprocessingml.footer+xml";
inline constexpr std::string_view kTypeSettings =
    "application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml";

// Parse and save flags of every part: whitespace-only text and the XML declaration are kept,
// output is byte-raw.
inline constexpr unsigned kParseFlags =
    pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_declaration;
inline constexpr unsigned kFormatFlags = pugi::format_raw;

// One relationship of a part's .rels.
struct Relationship {
  std::string id;
  std::string type;
  std::string target;
  bool external = false;
};

class Package {
 public:
  // Reads a .docx. Raises 53 for a missing file, 70 for a file another process has locked,
  // 4198 for a file that is not a zip, a damaged zip (a size or checksum that doesn't hold, an
  // inconsistent directory), a part over the limits, or a zip without a main document part.
  // Nothing is kept from a failed read.
  static std::unique_ptr<Package> load(const std::string& path, const ReadLimits& limits = {});
  // The same from the bytes of a .docx in memory; name stands for the file in messages.
  static std::unique_ptr<Package> loadBytes(std::string_view bytes, const std::string& name,
                                            const ReadLimits& limits = {});
  // A blank document: one empty paragraph, letter paper, styles and settings.
  static std::unique_ptr<Package> blank();

  // A deep copy (trees are serialized into the copy).
  std::unique_ptr<Package> clone() const;

  // Writes the package to path through a temporary file in the same folder and a rename, so a
  // failure leaves either the old file or none, never a half-written one. Raises 76 or 70.
  void save(const std::string& path);
  // Writes the parts, in order, to a zip being written, leaving out those skip names.
  void writeParts(ZipWriter& zip, const std::function<bool(const std::string&)>& skip) const;

  bool has(std::string_view name) const;
  // The part's bytes (serialized from its tree when it has one). Raises 4198 when absent.
  std::string bytes(std::string_view name) const;
  // The part's tree, parsed on first use. Handles into it go stale when the part is replaced
  // by setBytes or removed. Raises 4198 when absent or not well-formed XML.
  pugi::xml_document& xml(std::string_view name);
  // Adds or replaces a part (dropping any tree).
  void setBytes(std::string_view name, std::string bytes);
  // Same, with the bytes in pieces that are written one after the other: a merged body of
  // many megabytes is kept in blocks that the allocator can reuse, not in one buffer.
  void setFragments(std::string_view name, std::vector<std::string> fragments);
  void remove(std::string_view name);
  std::vector<std::string> partNames() const;

  // The name of the main document part ("word/document.xml" as a rule).
  const std::string& mainPart() const { return mainPart_; }

  // Relationships of a part (the package itself is ""). Targets are as written.
  std::vector<Relationship> relationships(std::string_view partName);
  // The part a relationship targets, resolved against the source part's folder.
  static std::string resolveTarget(std::string_view sourcePart, std::string_view target);
  static std::string relsPartOf(std::string_view partName);

  // [Content_Types].xml helpers.
  void setContentTypeOverride(std::string_view partName, std::string_view contentType);
  void removeContentTypeOverride(std::string_view partName);
  // Adds an override for a part known to have none (no search: for thousands of new parts).
  void addContentTypeOverride(std::string_view partName, std::string_view contentType);

 private:
  struct Part {
    std::string name;
    std::string bytes;
    std::vector<std::string> fragments;  // when not empty, the bytes are these, in order
    std::unique_ptr<pugi::xml_document> dom;
  };
  static std::string joined(const Part& part);
  // Reads every part of an open zip; label names the file in messages ("'letter.docx'").
  static std::unique_ptr<Package> readZip(zip* archive, const std::string& label,
                                          uint64_t packedSize, const ReadLimits& limits);
  // Parses the part's bytes into its tree unless it has one; "" or what is wrong with them.
  static std::string parse(Part& part);
  Part* find(std::string_view name);
  const Part* find(std::string_view name) const;
  void locateMainPart();

  std::vector<std::unique_ptr<Part>> parts_;
  std::unordered_map<std::string, Part*> byName_;
  std::string mainPart_;
};

// Serializes a node or a document with the package's flags.
std::string serialize(const pugi::xml_node& node);

}  // namespace nvwm::docx
