// Internal: where a merge writes the merged document. The merge hands over each record's copy
// once it is complete and never asks for anything it handed over before, so a sink may keep
// the document in memory (PackageSink) or pass it on as it comes.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "docx/package.h"
#include "docx/zip_writer.h"

namespace nvwm::docx {

class MergeSink {
 public:
  virtual ~MergeSink() = default;
  // Appends to a part that is written in pieces, from its first byte to its last: the main
  // document part, and the notes parts. Pieces of one part come in order; pieces of different
  // parts interleave.
  virtual void append(const std::string& part, std::string_view xml) = 0;
  // Writes a part whole (a copy's own header or footer, or its relationships), in place of
  // one of the same name. contentType: the override to add for a new part; empty when the
  // part takes its extension's default or has its override already.
  virtual void put(const std::string& part, std::string bytes, std::string_view contentType) = 0;
  // Adds a relationship from the main document part.
  virtual void relate(const Relationship& relationship) = 0;
  // A record's copy is complete: all it wrote has been handed over.
  virtual void endCopy() {}
};

// Keeps the merged document in a package (the main package's clone): the main document part
// in blocks of about a megabyte, which the allocator can reuse instead of mapping fresh memory
// for one growing buffer, and the other parts written in pieces whole.
class PackageSink : public MergeSink {
 public:
  // REQUIRES: out outlives the sink.
  explicit PackageSink(Package& out);

  void append(const std::string& part, std::string_view xml) override;
  void put(const std::string& part, std::string bytes, std::string_view contentType) override;
  void relate(const Relationship& relationship) override;

  // Gives the parts written in pieces to the package. REQUIRES: called once, at the end.
  void finish();

 private:
  Package& out_;
  std::vector<std::string> mainBlocks_;
  std::unordered_map<std::string, std::string> pieces_;  // other parts written in pieces
  std::vector<std::string> piecesOrder_;
  bool mainWritten_ = false;
};

// Writes the merged document to a zip as it comes: the main document part is deflated into the
// zip piece by piece; what can only be written after it (each copy's header and footer parts,
// the notes parts, the relationships and content types the copies add) waits in unnamed
// temporary files, not in memory. The memory a merge takes does not grow with its records.
class ZipSink : public MergeSink {
 public:
  // out: the main package's clone, whose other parts are written at finish. REQUIRES: out and
  // zip outlive the sink.
  ZipSink(Package& out, ZipWriter& zip);
  ~ZipSink() override;

  void append(const std::string& part, std::string_view xml) override;
  void put(const std::string& part, std::string bytes, std::string_view contentType) override;
  void relate(const Relationship& relationship) override;

  // Ends the main document part and writes everything else: the parts put, the parts written
  // in pieces, then the package's own parts as they are now (with the relationships and
  // content types added). REQUIRES: called once, at the end, before zip.finish().
  void finish();

 private:
  class Spill;
  Spill& spill(std::unique_ptr<Spill>& slot);
  // Writes a package XML part with the spilled children appended to its root.
  void writeExtended(const std::string& part, Spill* children);

  Package& out_;
  ZipWriter& zip_;
  bool mainOpen_ = false;
  std::unique_ptr<Spill> wholeParts_;  // put parts: name, size, bytes
  std::unique_ptr<Spill> overrides_;   // <Override/> elements
  std::unique_ptr<Spill> relations_;   // <Relationship/> elements
  std::vector<std::pair<std::string, std::unique_ptr<Spill>>> pieces_;  // other parts in pieces
};

}  // namespace nvwm::docx
