// Public: the word-processor objects the library drives (Application, Documents, Document,
// MailMerge, Template, Selection), with the members and argument counts of Word 2000 and later.
//
// The contract, as the library relies on it:
//   - An optional argument left out travels as Variant::missing() and takes Word's default;
//     arguments that change nothing for the library (passwords, encodings, zoom...) may be
//     ignored.
//   - Failures raise RuntimeError with Word's own numbers: 53 no such file, 70 a file that can't
//     be written or is locked, 76 no such folder, 4198 a command that failed (the description
//     names the cause), and those given at each member. Unless its member says otherwise, a
//     call that raises changes nothing.
//   - Every object of a document raises 5825 once the document is closed; every object of an
//     application raises 462 once the application has quit.
//   - Objects are handed out as shared_ptr; they stay valid as objects (see the two rules above)
//     as long as they are held. One application and its objects belong to one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "runtime/variant.h"

namespace nvwm::word {

inline const Variant kMissing = Variant::missing();

// MailMerge.State values. DO NOT CHANGE THESE VALUES: Word's own.
enum class MailMergeState : int32_t {
  kNormalDocument = 0,
  kMainDocumentOnly = 1,
  kMainAndDataSource = 2,
  kMainAndHeader = 3,
  kMainAndSourceAndHeader = 4,
  kDataSource = 5,
};

class Template : public Object {
 public:
  // Marks the template as saved (True), so that quitting does not offer to save it.
  virtual void Saved(bool value) = 0;
};

class Selection : public Object {
 public:
  // Inserts the current date and time (runtime/clock.h) at the insertion point of the active
  // document and moves the insertion point past it. DateTimeFormat: a Word date picture
  // ("M/d/yyyy" when missing). InsertAsField True inserts a DATE field showing the same text,
  // otherwise plain text. Raises 4248 when no document is open.
  virtual void InsertDateTime(const Variant& DateTimeFormat = kMissing,
                              const Variant& InsertAsField = kMissing,
                              const Variant& InsertAsFullWidth = kMissing,
                              const Variant& DateLanguage = kMissing,
                              const Variant& CalendarType = kMissing) = 0;
};

class MailMerge : public Object {
 public:
  // The document's place in a mail merge (MailMergeState): a plain document, a main document
  // without a data source, or one with its data source attached.
  virtual int32_t State() = 0;
  // Merges the main document with every record of its data source into a new document, one
  // copy of the main document per record, which becomes the active document. The main
  // document is left as it was. Raises 4605 when the document has no data source.
  virtual void Execute(const Variant& Pause = kMissing) = 0;
  // Attaches a data source to the document, which becomes a main document with a data source.
  // Name: the data source file. Connection: "TABLE name" names its table. SQLStatement, with
  // SQLStatement1 appended, is run instead when given. Raises 5 without Name, 53 when the file
  // is missing and 4198 (naming the cause) when it can't be read; the document is unchanged
  // then.
  virtual void OpenDataSource(
      const Variant& Name, const Variant& Format = kMissing,
      const Variant& ConfirmConversions = kMissing, const Variant& ReadOnly = kMissing,
      const Variant& LinkToSource = kMissing, const Variant& AddToRecentFiles = kMissing,
      const Variant& PasswordDocument = kMissing, const Variant& PasswordTemplate = kMissing,
      const Variant& Revert = kMissing, const Variant& WritePasswordDocument = kMissing,
      const Variant& WritePasswordTemplate = kMissing, const Variant& Connection = kMissing,
      const Variant& SQLStatement = kMissing, const Variant& SQLStatement1 = kMissing,
      const Variant& OpenExclusive = kMissing, const Variant& SubType = kMissing) = 0;
};

class Document : public Object {
 public:
  // The document's mail-merge side.
  virtual std::shared_ptr<word::MailMerge> MailMerge() = 0;
  // Closes the document. SaveChanges -1 saves it to its file first (4198 when it has none);
  // 0 and missing discard the changes. Afterwards every member raises 5825; when it was the
  // active document, another open one becomes active.
  virtual void Close(const Variant& SaveChanges = kMissing,
                     const Variant& OriginalFormat = kMissing,
                     const Variant& RouteDocument = kMissing) = 0;
  // Makes this the active document, the one the selection acts on.
  virtual void Activate() = 0;
  // Prints the document (Copies copies). Raises 4198 when it can't be printed.
  virtual void PrintOut(const Variant& Background = kMissing, const Variant& Append = kMissing,
                        const Variant& Range = kMissing, const Variant& OutputFileName = kMissing,
                        const Variant& From = kMissing, const Variant& To = kMissing,
                        const Variant& Item = kMissing, const Variant& Copies = kMissing,
                        const Variant& Pages = kMissing, const Variant& PageType = kMissing,
                        const Variant& PrintToFile = kMissing, const Variant& Collate = kMissing,
                        const Variant& ActivePrinterMacGX = kMissing,
                        const Variant& ManualDuplexPrint = kMissing,
                        const Variant& PrintZoomColumn = kMissing,
                        const Variant& PrintZoomRow = kMissing,
                        const Variant& PrintZoomPaperWidth = kMissing,
                        const Variant& PrintZoomPaperHeight = kMissing) = 0;
  // Saves the document as FileName, which becomes its file and name; without FileName, to its
  // own file. The file is replaced whole or not at all. Raises 76 when the folder does not
  // exist and 70 when the file can't be written.
  virtual void SaveAs(
      const Variant& FileName = kMissing, const Variant& FileFormat = kMissing,
      const Variant& LockComments = kMissing, const Variant& Password = kMissing,
      const Variant& AddToRecentFiles = kMissing, const Variant& WritePassword = kMissing,
      const Variant& ReadOnlyRecommended = kMissing, const Variant& EmbedTrueTypeFonts = kMissing,
      const Variant& SaveNativePictureFormat = kMissing, const Variant& SaveFormsData = kMissing,
      const Variant& SaveAsAOCELetter = kMissing, const Variant& Encoding = kMissing,
      const Variant& InsertLineBreaks = kMissing, const Variant& AllowSubstitutions = kMissing,
      const Variant& LineEnding = kMissing, const Variant& AddBiDiMarks = kMissing) = 0;
};

class Documents : public Object {
 public:
  // Creates a document, "DocumentN", and makes it the active one with the insertion point at
  // its start. Template: the file to start from; missing gives a blank document. Raises as
  // Open does for the template.
  virtual std::shared_ptr<Document> Add(const Variant& Template = kMissing,
                                        const Variant& NewTemplate = kMissing,
                                        const Variant& DocumentType = kMissing,
                                        const Variant& Visible = kMissing) = 0;
  // Opens a document file and makes it the active one; a file already open gives that
  // document. A saved main document comes back with its data source attached, or without one
  // (state 1) when the source has gone. Raises 53 when the file is missing, 70 when another
  // process has it locked, 4198 when it is no document.
  virtual std::shared_ptr<Document> Open(
      const Variant& FileName, const Variant& ConfirmConversions = kMissing,
      const Variant& ReadOnly = kMissing, const Variant& AddToRecentFiles = kMissing,
      const Variant& PasswordDocument = kMissing, const Variant& PasswordTemplate = kMissing,
      const Variant& Revert = kMissing, const Variant& WritePasswordDocument = kMissing,
      const Variant& WritePasswordTemplate = kMissing, const Variant& Format = kMissing,
      const Variant& Encoding = kMissing, const Variant& Visible = kMissing,
      const Variant& OpenAndRepair = kMissing, const Variant& DocumentDirection = kMissing,
      const Variant& NoEncodingDialog = kMissing) = 0;
};

class Application : public Object {
 public:
  // The open documents.
  virtual std::shared_ptr<word::Documents> Documents() = 0;
  // The insertion point of the active document.
  virtual std::shared_ptr<word::Selection> Selection() = 0;
  // The template every new document is based on.
  virtual std::shared_ptr<Template> NormalTemplate() = 0;
  // True shows the application and its open documents to the user; False does nothing more
  // than keep them hidden.
  virtual void Visible(bool value) = 0;
  // The version as "major.minor" ("9.0" is Word 2000); the library refuses majors below 9.
  virtual std::string Version() = 0;
  // Closes every document (SaveChanges -1 saves those that have a file; 0 and missing discard)
  // and ends the application: afterwards every member raises 462. A document that can't be
  // saved raises and ends the quitting there: the documents closed before it stay closed.
  virtual void Quit(const Variant& SaveChanges = kMissing, const Variant& OriginalFormat = kMissing,
                    const Variant& RouteDocument = kMissing) = 0;
};

}  // namespace nvwm::word
