// Public: the document engine that stands in for the word processor: the objects of
// host/word.h over .docx files, and the options a host or a test sets before creating it.
//
// Threading: one application and its objects belong to one thread, like the library's
// references; nothing is locked. Ownership: the application owns its open documents; the
// objects it hands out are shared_ptr at the host-service boundary and stay valid (a closed
// document raises 5825 on any call).
//
// The members, as this engine gives them (errors are RuntimeError with Word's numbers):
//   Documents.Add        a blank document "DocumentN", or a new one from Template (a .docx or
//                        .dotx path); it becomes active, the selection at its start.
//   Documents.Open       reads a .docx (53 missing, 70 locked by another process, 4198 not a
//                        .docx); a file already open gives that document. A saved main document
//                        gets its data source back (state 2), or state 1 if the source is gone.
//   Document.SaveAs      writes a .docx whatever the extension, atomically (76 no such folder,
//                        70 not writable); without FileName: its own file, or the output folder.
//   Document.Close       SaveChanges -1 saves to its file; 0, -2 and missing discard (there is
//                        no one to ask). Afterwards every member raises 5825.
//   Document.PrintOut    saves a copy and runs the print command on it (4198 when none).
//   MailMerge.OpenDataSource  Name: SQLite or CSV file; Connection "TABLE name"; SQLStatement
//                        runs instead when given. 53 / 4198 with the cause; nothing changes then.
//   MailMerge.State      0 plain, 1 main document without source, 2 with source.
//   MailMerge.Execute    4605 without a source; else the merged document "LettersN", active.
//   Selection.InsertDateTime  today's date and time (runtime/clock.h) in a Word date picture
//                        (default "M/d/yyyy") as text, or as a DATE field with InsertAsField.
//                        4248 without a document.
//   Application.Visible  True hands the open documents to the presenter.
//   Application.Quit     closes every document (SaveChanges -1 saves those with a file); then
//                        every member raises 462.
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
  // Where the default presenter saves documents that have no file yet; empty means
  // $XDG_DATA_HOME/nvwordmerge/Documents (~/.local/share/... without XDG_DATA_HOME).
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
