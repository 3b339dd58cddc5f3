// Public: the document engine that stands in for the word processor: the objects of
// host/word.h over .docx files, and the options a host or a test sets before creating it.
// host/word.h gives the contract of every member; what this engine adds to it:
//
//   - Documents are .docx files: Open and Add read a .docx (Add also a .dotx as its template),
//     SaveAs writes a .docx whatever the extension. A file that is no .docx raises 4198.
//   - Document.SaveAs without FileName, on a document that has never been saved, writes
//     "<name>.docx" in WordEngineOptions::outputFolder.
//   - Document.Close with SaveChanges -2 discards, as 0 does: there is no one to ask.
//   - Document.PrintOut saves a copy and runs WordEngineOptions::printCommand on it.
//   - MailMerge.OpenDataSource reads an SQLite or a CSV file (docx/data_source.h). Mail-merge
//     states 3, 4 and 5 never occur: the engine has no header sources.
//   - Application.Visible(True) hands the open documents to WordEngineOptions::presenter.
//   - Application.Version is WordEngineOptions::version, so that a test can try old versions.
//
// Threading: one application and its objects belong to one thread, like the library's
// references; nothing is locked. Ownership: the application owns its open documents; a
// document the host still holds stays usable after the application object is gone.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "docx/read_limits.h"
#include "host/word.h"

namespace nvwm::wordengine {

// What a presenter is given for each open document when the application becomes visible.
struct OpenDocumentInfo {
  std::string name;  // "Document1", "Letters1", or the file name
  std::string path;  // the file it was read from or saved to; empty when it has none yet
  std::shared_ptr<word::Document> document;
};

// Shows the open documents to the user. Called by Application.Visible(True).
using DocumentPresenter = std::function<void(const std::vector<OpenDocumentInfo>&)>;

struct WordEngineOptions {
  // Application.Version. The library refuses versions below 9.
  std::string version = "16.0";
  // When set, creating the application raises 429, as creating Word does where it is missing.
  bool failToStart = false;
  // Where the default presenter saves documents that have no file yet; empty means the
  // "Documents" folder in productDataFolder() (services/folder_locale.h).
  std::string outputFolder;
  // Empty: the default presenter (savingPresenter into outputFolder, reporting on stdout).
  DocumentPresenter presenter;
  // The program and leading arguments that print a file; the file's path is appended.
  // Empty: "lp" when it is on PATH, otherwise PrintOut raises 4198.
  std::vector<std::string> printCommand;
  // What a .docx may unpack to before Documents.Open or Add refuses it (4198).
  docx::ReadLimits readLimits;
};

// The options that the default factory uses on the calling thread.
WordEngineOptions& wordEngineOptions();

// Creates an application with the given options. Raises 429 when options.failToStart.
std::shared_ptr<word::Application> createWordApplication(const WordEngineOptions& options);
// The default ServiceFactories::createWordApplication: uses wordEngineOptions().
std::shared_ptr<word::Application> createDefaultWordApplication();

// The default presenter: saves each document without a file as "<folder>/<name>.docx" (a free
// name: " (2)" and so on when taken) and writes one line per document to report:
// "<name>: <path>".
DocumentPresenter savingPresenter(std::string folder, std::ostream& report);

// Merges a .docx main document with a data source into a new .docx file: the engine's own
// road, without the word-processor objects (used by the command line). dataSource: an SQLite
// or CSV file; table: the SQLite table ("" for CSV or a file with one table). Returns the
// number of records merged: 0 when SKIPIF dropped them all (the document written is empty). Raises
// as Open, OpenDataSource and SaveAs do, and 4198 for a data source without records; nothing is
// written on failure. An output that is the main document or the data source itself (the same
// file by any path: a link, "./", another spelling) is refused with 4198 before anything is read.
size_t mergeFiles(const std::string& templatePath, const std::string& dataSource,
                  const std::string& table, const std::string& outputPath,
                  const docx::ReadLimits& limits = {});

}  // namespace nvwm::wordengine
