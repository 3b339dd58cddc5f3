// Internal: the form-letter merge of a main document with a data source, and the link of a
// main document to its data source as settings.xml keeps it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "docx/data_source.h"
#include "docx/package.h"

namespace nvwm::docx {

// The data source a main document names in its settings (w:mailMerge).
struct MailMergeLink {
  std::string sourcePath;  // absolute path of the SQLite or CSV file
  std::string table;       // SQLite table ("" for CSV)
};

// The settings part of the main document ("" when it has none).
std::string settingsPart(Package& package);
// The link the main document's settings hold, if any. Whether the document is a main
// document at all (w:mailMerge present) is mainDocument().
std::optional<MailMergeLink> readMailMergeLink(Package& package);
bool isMainDocument(Package& package);
// Makes the document a form-letters main document linked to the source (w:mailMerge with
// the data source relationship), keeping the other w:mailMerge settings it already had.
void writeMailMergeLink(Package& package, const MailMergeLink& link);
// Removes w:mailMerge, the data-source and recipient-data relationships and the
// recipient-data parts: the document becomes a plain one.
void removeMailMergeLink(Package& package);
// False when the settings ask to keep lines whose merge fields are all empty.
bool suppressesBlankLines(Package& package);

// The merged document: one copy of the main document's body per record (NEXT and NEXTIF put
// more records into one copy, SKIPIF drops a record), each ending in a next-page section break
// that copies the main document's last section properties and restarts page numbering;
// headers and footers with merge fields are copied and filled per copy (new parts and
// relationships); footnotes, endnotes and comments are copied per copy. MERGEFIELD, IF,
// MERGEREC, MERGESEQ, REF to a SET or ASK name and FILLIN become plain text; SET, ASK, NEXT,
// NEXTIF and SKIPIF leave nothing; other fields stay fields. The result has no mail-merge settings.
// The main package is not changed. Raises 4198 when the main document part can't be read. copies,
// when given, is set to the number of copies made: 0 when SKIPIF dropped every record (the body is
// then one empty paragraph).
std::unique_ptr<Package> mergeDocument(Package& main, const MergeData& data,
                                       size_t* copies = nullptr);
// The same merged document, written to path as it is made (see ZipSink) through a temporary
// file and a rename. Returns the number of copies. Raises as mergeDocument does, and 76 or 70
// as Package::save does.
size_t mergeDocumentToFile(Package& main, const MergeData& data, const std::string& path);

}  // namespace nvwm::docx
