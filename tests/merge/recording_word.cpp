#include "recording_word.h"

#include <filesystem>

#include "runtime/convert.h"

namespace nvwm::testing {
namespace {

using Log = std::shared_ptr<WordCallLog>;

std::string shown(const Variant& v) {
  if (v.isString()) {
    const std::string& s = v.stringValue();
    return s.find('/') != std::string::npos ? std::filesystem::path(s).filename().string() : s;
  }
  return CStr(v);
}

// "Name=value" pieces of the arguments that were given.
std::string given(std::initializer_list<std::pair<const char*, const Variant*>> args) {
  std::string text;
  for (const auto& [name, value] : args) {
    if (value->isMissing()) continue;
    if (!text.empty()) text += ", ";
    if (name[0] != '\0') text += std::string(name) + "=";
    text += shown(*value);
  }
  return "(" + text + ")";
}

class RecordingMailMerge : public word::MailMerge {
 public:
  RecordingMailMerge(std::shared_ptr<word::MailMerge> inner, Log log)
      : inner_(std::move(inner)), log_(std::move(log)) {}
  int32_t State() override {
    log_->calls.push_back("MailMerge.State");
    return inner_->State();
  }
  void Execute(const Variant& Pause) override {
    log_->calls.push_back("MailMerge.Execute");
    inner_->Execute(Pause);
  }
  void OpenDataSource(const Variant& Name, const Variant& Format, const Variant& Confirm,
                      const Variant& ReadOnly, const Variant& Link, const Variant& Recent,
                      const Variant& PwDoc, const Variant& PwTpl, const Variant& Revert,
                      const Variant& WPwDoc, const Variant& WPwTpl, const Variant& Connection,
                      const Variant& Sql, const Variant& Sql1, const Variant& Exclusive,
                      const Variant& SubType) override {
    log_->calls.push_back("MailMerge.OpenDataSource" + given({{"Name", &Name},
                                                              {"Format", &Format},
                                                              {"ConfirmConversions", &Confirm},
                                                              {"ReadOnly", &ReadOnly},
                                                              {"LinkToSource", &Link},
                                                              {"AddToRecentFiles", &Recent},
                                                              {"PasswordDocument", &PwDoc},
                                                              {"PasswordTemplate", &PwTpl},
                                                              {"Revert", &Revert},
                                                              {"WritePasswordDocument", &WPwDoc},
                                                              {"WritePasswordTemplate", &WPwTpl},
                                                              {"Connection", &Connection},
                                                              {"SQLStatement", &Sql},
                                                              {"SQLStatement1", &Sql1},
                                                              {"OpenExclusive", &Exclusive},
                                                              {"SubType", &SubType}}));
    inner_->OpenDataSource(Name, Format, Confirm, ReadOnly, Link, Recent, PwDoc, PwTpl, Revert,
                           WPwDoc, WPwTpl, Connection, Sql, Sql1, Exclusive, SubType);
  }

 private:
  std::shared_ptr<word::MailMerge> inner_;
  Log log_;
};

class RecordingDocument : public word::Document {
 public:
  RecordingDocument(std::shared_ptr<word::Document> inner, Log log)
      : inner_(std::move(inner)), log_(std::move(log)) {}
  std::shared_ptr<word::MailMerge> MailMerge() override {
    return std::make_shared<RecordingMailMerge>(inner_->MailMerge(), log_);
  }
  void Close(const Variant& SaveChanges, const Variant& OriginalFormat,
             const Variant& RouteDocument) override {
    log_->calls.push_back("Document.Close" +
                          given({{"", &SaveChanges}, {"", &OriginalFormat}, {"", &RouteDocument}}));
    inner_->Close(SaveChanges, OriginalFormat, RouteDocument);
  }
  void Activate() override {
    log_->calls.push_back("Document.Activate");
    inner_->Activate();
  }
  void PrintOut(const Variant& a, const Variant& b, const Variant& c, const Variant& d,
                const Variant& e, const Variant& f, const Variant& g, const Variant& h,
                const Variant& i, const Variant& j, const Variant& k, const Variant& l,
                const Variant& m, const Variant& n, const Variant& o, const Variant& p,
                const Variant& q, const Variant& r) override {
    log_->calls.push_back("Document.PrintOut");
    inner_->PrintOut(a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, r);
  }
  void SaveAs(const Variant& FileName, const Variant& b, const Variant& c, const Variant& d,
              const Variant& e, const Variant& f, const Variant& g, const Variant& h,
              const Variant& i, const Variant& j, const Variant& k, const Variant& l,
              const Variant& m, const Variant& n, const Variant& o, const Variant& p) override {
    log_->calls.push_back("Document.SaveAs" + given({{"", &FileName}}));
    inner_->SaveAs(FileName, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p);
  }

 private:
  std::shared_ptr<word::Document> inner_;
  Log log_;
};

class RecordingDocuments : public word::Documents {
 public:
  RecordingDocuments(std::shared_ptr<word::Documents> inner, Log log)
      : inner_(std::move(inner)), log_(std::move(log)) {}
  std::shared_ptr<word::Document> Add(const Variant& a, const Variant& b, const Variant& c,
                                      const Variant& d) override {
    log_->calls.push_back("Documents.Add");
    return std::make_shared<RecordingDocument>(inner_->Add(a, b, c, d), log_);
  }
  std::shared_ptr<word::Document> Open(const Variant& FileName, const Variant& b, const Variant& c,
                                       const Variant& d, const Variant& e, const Variant& f,
                                       const Variant& g, const Variant& h, const Variant& i,
                                       const Variant& j, const Variant& k, const Variant& l,
                                       const Variant& m, const Variant& n,
                                       const Variant& o) override {
    log_->calls.push_back("Documents.Open" + given({{"", &FileName}}));
    return std::make_shared<RecordingDocument>(
        inner_->Open(FileName, b, c, d, e, f, g, h, i, j, k, l, m, n, o), log_);
  }

 private:
  std::shared_ptr<word::Documents> inner_;
  Log log_;
};

class RecordingSelection : public word::Selection {
 public:
  RecordingSelection(std::shared_ptr<word::Selection> inner, Log log)
      : inner_(std::move(inner)), log_(std::move(log)) {}
  void InsertDateTime(const Variant& format, const Variant& asField, const Variant& c,
                      const Variant& d, const Variant& e) override {
    log_->calls.push_back("Selection.InsertDateTime" + given({{"", &format}, {"", &asField}}));
    inner_->InsertDateTime(format, asField, c, d, e);
  }

 private:
  std::shared_ptr<word::Selection> inner_;
  Log log_;
};

class RecordingTemplate : public word::Template {
 public:
  RecordingTemplate(std::shared_ptr<word::Template> inner, Log log)
      : inner_(std::move(inner)), log_(std::move(log)) {}
  void Saved(bool value) override {
    log_->calls.push_back(std::string("NormalTemplate.Saved(") + (value ? "True" : "False") + ")");
    inner_->Saved(value);
  }

 private:
  std::shared_ptr<word::Template> inner_;
  Log log_;
};

class RecordingApplication : public word::Application {
 public:
  RecordingApplication(std::shared_ptr<word::Application> inner, Log log)
      : inner_(std::move(inner)), log_(std::move(log)) {}
  std::shared_ptr<word::Documents> Documents() override {
    return std::make_shared<RecordingDocuments>(inner_->Documents(), log_);
  }
  std::shared_ptr<word::Selection> Selection() override {
    log_->calls.push_back("Application.Selection");
    return std::make_shared<RecordingSelection>(inner_->Selection(), log_);
  }
  std::shared_ptr<word::Template> NormalTemplate() override {
    return std::make_shared<RecordingTemplate>(inner_->NormalTemplate(), log_);
  }
  void Visible(bool value) override {
    log_->calls.push_back(std::string("Application.Visible(") + (value ? "True" : "False") + ")");
    inner_->Visible(value);
  }
  std::string Version() override {
    log_->calls.push_back("Application.Version");
    return inner_->Version();
  }
  void Quit(const Variant& a, const Variant& b, const Variant& c) override {
    log_->calls.push_back("Application.Quit");
    inner_->Quit(a, b, c);
  }

 private:
  std::shared_ptr<word::Application> inner_;
  Log log_;
};

}  // namespace

int WordCallLog::count(const std::string& prefix) const {
  int n = 0;
  for (const std::string& call : calls) n += call.rfind(prefix, 0) == 0;
  return n;
}

std::shared_ptr<word::Application> recordingWord(std::shared_ptr<word::Application> inner,
                                                 std::shared_ptr<WordCallLog> log) {
  return std::make_shared<RecordingApplication>(std::move(inner), std::move(log));
}

}  // namespace nvwm::testing
