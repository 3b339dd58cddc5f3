// Public: the word-processor objects the library drives (Application, Documents, Document,
// MailMerge, Template, Selection), with the members and argument counts of Word 2000 and later.
// An optional argument left out travels as Variant::missing() and takes the default.
// Every member may raise RuntimeError.
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
  virtual void Saved(bool value) = 0;
};

class Selection : public Object {
 public:
  virtual void InsertDateTime(const Variant& DateTimeFormat = kMissing,
                              const Variant& InsertAsField = kMissing,
                              const Variant& InsertAsFullWidth = kMissing,
                              const Variant& DateLanguage = kMissing,
                              const Variant& CalendarType = kMissing) = 0;
};

class MailMerge : public Object {
 public:
  virtual int32_t State() = 0;
  virtual void Execute(const Variant& Pause = kMissing) = 0;
  virtual void OpenDataSource(const Variant& Name, const Variant& Format = kMissing,
                              const Variant& ConfirmConversions = kMissing,
                              const Variant& ReadOnly = kMissing,
                              const Variant& LinkToSource = kMissing,
                              const Variant& AddToRecentFiles = kMissing,
                              const Variant& PasswordDocument = kMissing,
                              const Variant& PasswordTemplate = kMissing,
                              const Variant& Revert = kMissing,
                              const Variant& WritePasswordDocument = kMissing,
                              const Variant& WritePasswordTemplate = kMissing,
                              const Variant& Connection = kMissing,
                              const Variant& SQLStatement = kMissing,
                              const Variant& SQLStatement1 = kMissing,
                              const Variant& OpenExclusive = kMissing,
                              const Variant& SubType = kMissing) = 0;
};

class Document : public Object {
 public:
  virtual std::shared_ptr<word::MailMerge> MailMerge() = 0;
  virtual void Close(const Variant& SaveChanges = kMissing, const Variant& OriginalFormat = kMissing,
                     const Variant& RouteDocument = kMissing) = 0;
  virtual void Activate() = 0;
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
  virtual void SaveAs(const Variant& FileName = kMissing, const Variant& FileFormat = kMissing,
                      const Variant& LockComments = kMissing, const Variant& Password = kMissing,
                      const Variant& AddToRecentFiles = kMissing,
                      const Variant& WritePassword = kMissing,
                      const Variant& ReadOnlyRecommended = kMissing,
                      const Variant& EmbedTrueTypeFonts = kMissing,
                      const Variant& SaveNativePictureFormat = kMissing,
                      const Variant& SaveFormsData = kMissing,
                      const Variant& SaveAsAOCELetter = kMissing, const Variant& Encoding = kMissing,
                      const Variant& InsertLineBreaks = kMissing,
                      const Variant& AllowSubstitutions = kMissing,
                      const Variant& LineEnding = kMissing,
                      const Variant& AddBiDiMarks = kMissing) = 0;
};

class Documents : public Object {
 public:
  virtual std::shared_ptr<Document> Add(const Variant& Template = kMissing,
                                        const Variant& NewTemplate = kMissing,
                                        const Variant& DocumentType = kMissing,
                                        const Variant& Visible = kMissing) = 0;
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
  virtual std::shared_ptr<word::Documents> Documents() = 0;
  virtual std::shared_ptr<word::Selection> Selection() = 0;
  virtual std::shared_ptr<Template> NormalTemplate() = 0;
  virtual void Visible(bool value) = 0;
  virtual std::string Version() = 0;
  virtual void Quit(const Variant& SaveChanges = kMissing, const Variant& OriginalFormat = kMissing,
                    const Variant& RouteDocument = kMissing) = 0;
};

}  // namespace nvwm::word
