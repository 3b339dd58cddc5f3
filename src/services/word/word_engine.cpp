// The word-processor objects over the .docx engine.
//
// Model: an application holds its open documents in order and the active one. A document is
// a package (package.h), the file it came from or was saved to, and its mail-merge state: not
// a main document (0), a main document without a source (1), or with one (2). Header sources
// (3, 4) and data-source documents (5) are never produced: the engine has no OpenHeaderSource.
// The selection is the insertion point of the active document: the start of its first
// paragraph after Add or Open, moving past what is inserted.
//
// Arguments left out (Variant::missing) take Word's defaults; those that change nothing here
// (passwords, encodings, zoom...) are accepted and ignored.
#include "services/word/word_engine.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>

#include "docx/data_source.h"
#include "docx/field_code.h"
#include "docx/mail_merge.h"
#include "docx/package.h"
#include "docx/xml_writer.h"
#include "runtime/clock.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "services/folder_locale.h"

extern char** environ;

namespace nvwm::wordengine {
namespace {

namespace fs = std::filesystem;
using docx::appendRuns;
using docx::formatWordDate;
using docx::isMainDocument;
using docx::kParseFlags;
using docx::kTypeDocumentMain;
using docx::MergeData;
using docx::mergeDocument;
using docx::Package;
using docx::readMailMergeLink;
using docx::serialize;
using docx::writeMailMergeLink;

// Word's own error numbers for these cases.
constexpr int32_t kObjectDeleted = 5825;      // "Object has been deleted."
constexpr int32_t kNotMainDocument = 4605;    // "This method or property is not available..."
constexpr int32_t kServerUnavailable = 462;   // the application has quit
constexpr int32_t kCannotCreateObject = 429;  // "ActiveX component can't create object"

bool given(const Variant& v) { return !v.isMissing() && !v.isEmpty() && !v.isNull(); }

std::string textArgument(const Variant& v, const char* what) {
  if (!given(v)) raise(ErrorNumber::kInvalidProcedureCall, std::string(what) + " is required");
  return CStr(v);
}

std::optional<std::string> onPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  if (!path) return std::nullopt;
  std::string_view rest(path);
  while (!rest.empty()) {
    size_t colon = rest.find(':');
    std::string dir(rest.substr(0, colon));
    rest = colon == std::string_view::npos ? std::string_view() : rest.substr(colon + 1);
    if (dir.empty()) continue;
    fs::path candidate = fs::path(dir) / program;
    if (::access(candidate.c_str(), X_OK) == 0) return candidate.string();
  }
  return std::nullopt;
}

std::string defaultOutputFolder() { return (fs::path(productDataFolder()) / "Documents").string(); }

class EngineDocument;

// What the application and its child objects share.
struct ApplicationState {
  WordEngineOptions options;
  std::vector<std::shared_ptr<EngineDocument>> documents;
  std::weak_ptr<EngineDocument> active;
  int newDocumentCount = 0;
  int mergedDocumentCount = 0;
  bool quit = false;
  bool normalTemplateSaved = true;

  void checkRunning() const {
    if (quit)
      raiseWith(kServerUnavailable, "The word processor has quit; create a new application");
  }
  void add(const std::shared_ptr<EngineDocument>& doc) {
    documents.push_back(doc);
    active = doc;
  }
  void forget(const EngineDocument* doc);
};

class EngineDocument : public word::Document, public std::enable_shared_from_this<EngineDocument> {
 public:
  EngineDocument(std::shared_ptr<ApplicationState> app, std::unique_ptr<Package> package,
                 std::string name, std::string path)
      : app_(std::move(app)),
        package_(std::move(package)),
        name_(std::move(name)),
        path_(std::move(path)) {}

  std::shared_ptr<word::MailMerge> MailMerge() override;

  void Close(const Variant& SaveChanges, const Variant&, const Variant&) override {
    live();
    int32_t save = given(SaveChanges) ? CLng(SaveChanges) : 0;
    // -1 saves; 0 discards; -2 would ask the user, and there is no one to ask: discard.
    if (save == -1) {
      if (path_.empty()) {
        raise(ErrorNumber::kDocumentError,
              "\"" + name_ + "\" has never been saved; save it with SaveAs before closing");
      }
      package_->save(path_);
    }
    closed_ = true;
    package_.reset();
    if (auto app = app_) app->forget(this);
  }

  void Activate() override {
    live();
    if (auto app = app_) app->active = shared_from_this();
  }

  void PrintOut(const Variant&, const Variant&, const Variant&, const Variant&, const Variant&,
                const Variant&, const Variant&, const Variant& Copies, const Variant&,
                const Variant&, const Variant&, const Variant&, const Variant&, const Variant&,
                const Variant&, const Variant&, const Variant&, const Variant&) override {
    live();
    auto app = app_;
    std::vector<std::string> command = app ? app->options.printCommand : std::vector<std::string>{};
    if (command.empty()) {
      auto lp = onPath("lp");
      if (!lp) {
        raise(ErrorNumber::kDocumentError,
              "no print command: install CUPS (lp) or configure the engine's print command");
      }
      command = {*lp};
      if (given(Copies) && CLng(Copies) > 1) {
        command.push_back("-n");
        command.push_back(std::to_string(CLng(Copies)));
      }
    }
    fs::path temp = fs::temp_directory_path() / ("nvwm-print-" + std::to_string(::getpid()) + "-" +
                                                 std::to_string(++printCount_) + ".docx");
    package_->save(temp.string());
    command.push_back(temp.string());
    std::vector<char*> argv;
    for (auto& a : command) argv.push_back(a.data());
    argv.push_back(nullptr);
    pid_t pid = 0;
    int rc = ::posix_spawnp(&pid, argv[0], nullptr, nullptr, argv.data(), environ);
    int status = 0;
    if (rc == 0) ::waitpid(pid, &status, 0);
    std::error_code ec;
    fs::remove(temp, ec);
    if (rc != 0) {
      raise(ErrorNumber::kDocumentError, "the print command '" + command[0] + "' can't be run");
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
      raise(ErrorNumber::kDocumentError,
            "the print command '" + command[0] + "' failed (exit status " +
                std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + ")");
    }
  }

  void SaveAs(const Variant& FileName, const Variant&, const Variant&, const Variant&,
              const Variant&, const Variant&, const Variant&, const Variant&, const Variant&,
              const Variant&, const Variant&, const Variant&, const Variant&, const Variant&,
              const Variant&, const Variant&) override {
    live();
    std::string target;
    if (given(FileName)) {
      target = CStr(FileName);
    } else if (!path_.empty()) {
      target = path_;
    } else {
      auto app = app_;
      std::string folder = app && !app->options.outputFolder.empty() ? app->options.outputFolder
                                                                     : defaultOutputFolder();
      target = (fs::path(folder) / (name_ + ".docx")).string();
    }
    package_->save(target);
    path_ = target;
    name_ = fs::path(target).filename().string();
  }

  // The mail-merge side, used by EngineMailMerge.
  int32_t mergeState() {
    live();
    if (data_) return static_cast<int32_t>(word::MailMergeState::kMainAndDataSource);
    if (isMainDocument(*package_))
      return static_cast<int32_t>(word::MailMergeState::kMainDocumentOnly);
    return static_cast<int32_t>(word::MailMergeState::kNormalDocument);
  }

  void attachDataSource(const std::string& name, const std::string& connection,
                        const std::string& statement) {
    live();
    MergeData data = MergeData::load(name, connection, statement);
    std::error_code ec;
    fs::path absolute = fs::absolute(name, ec);
    writeMailMergeLink(*package_, {absolute.string(), data.table()});
    data_ = std::move(data);
  }

  void executeMerge() {
    live();
    if (!data_) {
      raiseWith(kNotMainDocument,
                "This method or property is not available because the document is not a mail "
                "merge main document with a data source");
    }
    auto app = app_;
    if (!app) raiseWith(kServerUnavailable, "The word processor has quit");
    std::unique_ptr<Package> merged = mergeDocument(*package_, *data_);
    auto doc = std::make_shared<EngineDocument>(
        app_, std::move(merged), "Letters" + std::to_string(++app->mergedDocumentCount), "");
    app->add(doc);
  }

  void insertAtSelection(const std::string& text, const std::optional<std::string>& fieldCode) {
    live();
    pugi::xml_document& doc = package_->xml(package_->mainPart());
    pugi::xml_node body = doc.document_element().child("w:body");
    if (!body) raise(ErrorNumber::kDocumentError, "the document has no body");
    if (!cursorParagraph_) {
      cursorParagraph_ =
          body.find_node([](pugi::xml_node n) { return std::string_view(n.name()) == "w:p"; });
      if (!cursorParagraph_) cursorParagraph_ = body.prepend_child("w:p");
    }
    // The inserted text takes the formatting of the text it is put before.
    pugi::xml_node next = cursorRun_ ? cursorRun_.next_sibling() : cursorParagraph_.first_child();
    while (next && std::string_view(next.name()) == "w:pPr") next = next.next_sibling();
    std::string rPr;
    if (next && std::string_view(next.name()) == "w:r" && next.child("w:rPr")) {
      rPr = serialize(next.child("w:rPr"));
    }
    std::string xml;
    if (fieldCode) {
      xml = "<w:fldSimple w:instr=\"";
      for (char c : *fieldCode)
        xml += c == '"'   ? std::string("&quot;")
               : c == '&' ? std::string("&amp;")
                          : std::string(1, c);
      xml += "\">";
      appendRuns(xml, rPr, text, false);
      xml += "</w:fldSimple>";
    } else {
      appendRuns(xml, rPr, text, false);
    }
    pugi::xml_document fragment;
    std::string wrapped =
        "<x xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">" + xml +
        "</x>";
    fragment.load_buffer(wrapped.data(), wrapped.size(), kParseFlags);
    pugi::xml_node inserted = fragment.document_element().first_child();
    pugi::xml_node at;
    if (cursorRun_) {
      at = cursorParagraph_.insert_copy_after(inserted, cursorRun_);
    } else if (pugi::xml_node pPr = cursorParagraph_.child("w:pPr")) {
      at = cursorParagraph_.insert_copy_after(inserted, pPr);
    } else {
      at = cursorParagraph_.prepend_copy(inserted);
    }
    cursorRun_ = at;
  }

  const std::string& name() const { return name_; }
  const std::string& path() const { return path_; }
  bool closed() const { return closed_; }
  Package& package() {
    live();
    return *package_;
  }

  // Reattaches the data source a saved main document names, as Word does on opening it.
  void reattachSavedSource() {
    auto link = readMailMergeLink(*package_);
    if (!link) return;
    try {
      data_ = MergeData::load(link->sourcePath, link->table.empty() ? "" : "TABLE " + link->table);
    } catch (const RuntimeError&) {
      // The source has gone: the document stays a main document without one (state 1).
    }
  }

 private:
  void live() const {
    if (closed_) {
      raiseWith(kObjectDeleted,
                "Object has been deleted: the document \"" + name_ + "\" is closed");
    }
    if (auto app = app_) app->checkRunning();
  }

  // Shared, as a reference to Word keeps Word alive; the application breaks the cycle through
  // its document list when it ends.
  std::shared_ptr<ApplicationState> app_;
  std::unique_ptr<Package> package_;
  std::string name_;
  std::string path_;
  bool closed_ = false;
  std::optional<MergeData> data_;
  // The insertion point: after cursorRun_ in cursorParagraph_ (at the start when null). Handles
  // into the main part's tree, which is never replaced while the document is open.
  pugi::xml_node cursorParagraph_;
  pugi::xml_node cursorRun_;
  int printCount_ = 0;
};

void ApplicationState::forget(const EngineDocument* doc) {
  std::erase_if(documents, [&](const auto& d) { return d.get() == doc; });
  auto current = active.lock();
  if (!current || current.get() == doc) {
    active = documents.empty() ? std::weak_ptr<EngineDocument>() : documents.back();
  }
}

class EngineMailMerge : public word::MailMerge {
 public:
  explicit EngineMailMerge(std::shared_ptr<EngineDocument> doc) : doc_(std::move(doc)) {}

  int32_t State() override { return doc_->mergeState(); }

  void Execute(const Variant&) override { doc_->executeMerge(); }

  void OpenDataSource(const Variant& Name, const Variant&, const Variant&, const Variant&,
                      const Variant&, const Variant&, const Variant&, const Variant&,
                      const Variant&, const Variant&, const Variant&, const Variant& Connection,
                      const Variant& SQLStatement, const Variant& SQLStatement1, const Variant&,
                      const Variant&) override {
    std::string name = textArgument(Name, "OpenDataSource: Name");
    std::string connection = given(Connection) ? CStr(Connection) : "";
    std::string statement = (given(SQLStatement) ? CStr(SQLStatement) : "") +
                            (given(SQLStatement1) ? CStr(SQLStatement1) : "");
    doc_->attachDataSource(name, connection, statement);
  }

 private:
  std::shared_ptr<EngineDocument> doc_;
};

std::shared_ptr<word::MailMerge> EngineDocument::MailMerge() {
  live();
  return std::make_shared<EngineMailMerge>(shared_from_this());
}

class EngineDocuments : public word::Documents {
 public:
  explicit EngineDocuments(std::shared_ptr<ApplicationState> app) : app_(std::move(app)) {}

  std::shared_ptr<word::Document> Add(const Variant& Template, const Variant&, const Variant&,
                                      const Variant&) override {
    app_->checkRunning();
    std::unique_ptr<Package> package = Package::blank();
    if (given(Template)) {
      // A new document from a template (.dotx or .docx) is a document, not a template.
      package = Package::load(CStr(Template), app_->options.readLimits);
      package->setContentTypeOverride(package->mainPart(), kTypeDocumentMain);
    }
    auto doc = std::make_shared<EngineDocument>(
        app_, std::move(package), "Document" + std::to_string(++app_->newDocumentCount), "");
    app_->add(doc);
    return doc;
  }

  std::shared_ptr<word::Document> Open(const Variant& FileName, const Variant&, const Variant&,
                                       const Variant&, const Variant&, const Variant&,
                                       const Variant&, const Variant&, const Variant&,
                                       const Variant&, const Variant&, const Variant&,
                                       const Variant&, const Variant&, const Variant&) override {
    app_->checkRunning();
    std::string path = textArgument(FileName, "Open: FileName");
    std::error_code ec;
    for (const auto& d : app_->documents) {
      if (!d->path().empty() && fs::equivalent(d->path(), path, ec)) {
        app_->active = d;
        return d;
      }
    }
    auto doc = std::make_shared<EngineDocument>(app_, Package::load(path, app_->options.readLimits),
                                                fs::path(path).filename().string(), path);
    doc->reattachSavedSource();
    app_->add(doc);
    return doc;
  }

 private:
  std::shared_ptr<ApplicationState> app_;
};

class EngineSelection : public word::Selection {
 public:
  explicit EngineSelection(std::shared_ptr<ApplicationState> app) : app_(std::move(app)) {}

  void InsertDateTime(const Variant& DateTimeFormat, const Variant& InsertAsField, const Variant&,
                      const Variant&, const Variant&) override {
    app_->checkRunning();
    auto doc = app_->active.lock();
    if (!doc) raiseWith(4248, "This command is not available because no document is open");
    std::string picture = given(DateTimeFormat) ? CStr(DateTimeFormat) : "M/d/yyyy";
    bool asField = given(InsertAsField) && CBool(InsertAsField);
    std::string text = formatWordDate(Now(), picture);
    std::optional<std::string> code;
    if (asField) code = " DATE \\@ \"" + picture + "\" ";
    doc->insertAtSelection(text, code);
  }

 private:
  std::shared_ptr<ApplicationState> app_;
};

class EngineTemplate : public word::Template {
 public:
  explicit EngineTemplate(std::shared_ptr<ApplicationState> app) : app_(std::move(app)) {}
  // The engine keeps no normal template on disk; the flag only records the host's wish.
  void Saved(bool value) override { app_->normalTemplateSaved = value; }

 private:
  std::shared_ptr<ApplicationState> app_;
};

class EngineApplication : public word::Application {
 public:
  explicit EngineApplication(const WordEngineOptions& options)
      : state_(std::make_shared<ApplicationState>()) {
    state_->options = options;
  }
  ~EngineApplication() override {
    // Documents share the state: dropping the list breaks the cycle. Documents the host still
    // holds stay usable.
    state_->documents.clear();
  }

  std::shared_ptr<word::Documents> Documents() override {
    state_->checkRunning();
    return std::make_shared<EngineDocuments>(state_);
  }
  std::shared_ptr<word::Selection> Selection() override {
    state_->checkRunning();
    return std::make_shared<EngineSelection>(state_);
  }
  std::shared_ptr<word::Template> NormalTemplate() override {
    state_->checkRunning();
    return std::make_shared<EngineTemplate>(state_);
  }
  void Visible(bool value) override {
    state_->checkRunning();
    if (!value) return;
    std::vector<OpenDocumentInfo> open;
    for (const auto& d : state_->documents) open.push_back({d->name(), d->path(), d});
    if (state_->options.presenter) {
      state_->options.presenter(open);
    } else {
      std::string folder = state_->options.outputFolder.empty() ? defaultOutputFolder()
                                                                : state_->options.outputFolder;
      savingPresenter(folder, std::cout)(open);
    }
  }
  std::string Version() override {
    state_->checkRunning();
    return state_->options.version;
  }
  void Quit(const Variant& SaveChanges, const Variant&, const Variant&) override {
    state_->checkRunning();
    int32_t save = given(SaveChanges) ? CLng(SaveChanges) : 0;
    auto documents = state_->documents;
    for (const auto& d : documents) {
      word::Document& doc = *d;
      doc.Close(Variant(int32_t{save == -1 && !d->path().empty() ? -1 : 0}));
    }
    state_->quit = true;
  }

 private:
  std::shared_ptr<ApplicationState> state_;
};

}  // namespace

WordEngineOptions& wordEngineOptions() {
  thread_local WordEngineOptions options;
  return options;
}

std::shared_ptr<word::Application> createWordApplication(const WordEngineOptions& options) {
  if (options.failToStart) {
    raiseWith(kCannotCreateObject,
              "ActiveX component can't create object: the word processor "
              "could not be started");
  }
  return std::make_shared<EngineApplication>(options);
}

std::shared_ptr<word::Application> createDefaultWordApplication() {
  return createWordApplication(wordEngineOptions());
}

DocumentPresenter savingPresenter(std::string folder, std::ostream& report) {
  return [folder = std::move(folder), &report](const std::vector<OpenDocumentInfo>& documents) {
    for (const auto& info : documents) {
      std::string path = info.path;
      if (path.empty()) {
        std::error_code ec;
        fs::create_directories(folder, ec);
        fs::path candidate = fs::path(folder) / (info.name + ".docx");
        for (int n = 2; fs::exists(candidate, ec); ++n) {
          candidate = fs::path(folder) / (info.name + " (" + std::to_string(n) + ").docx");
        }
        path = candidate.string();
        info.document->SaveAs(Variant(path));
      }
      report << info.name << ": " << path << "\n";
    }
  };
}

namespace {

// Refuses an output file that is one of the inputs: the merge would replace it.
void requireOtherFile(const std::string& output, const std::string& input, const char* role) {
  std::error_code ec;
  if (fs::equivalent(output, input, ec)) {
    raise(ErrorNumber::kDocumentError, "'" + output + "' is the " + role +
                                           " itself: the merge would replace it; write the "
                                           "merged document to another file");
  }
}

}  // namespace

size_t mergeFiles(const std::string& templatePath, const std::string& dataSource,
                  const std::string& table, const std::string& outputPath,
                  const docx::ReadLimits& limits) {
  requireOtherFile(outputPath, templatePath, "main document");
  requireOtherFile(outputPath, dataSource, "data source");
  std::unique_ptr<Package> main = Package::load(templatePath, limits);
  MergeData data = MergeData::load(dataSource, table.empty() ? "" : "TABLE " + table);
  // A merge of nothing would write an empty document that looks like a success.
  if (data.rowCount() == 0) {
    raise(ErrorNumber::kDocumentError,
          "the data source " + dataSource + " has a header and no records: nothing to merge");
  }
  size_t copies = docx::mergeDocumentToFile(*main, data, outputPath);
  return copies == 0 ? 0 : data.rowCount();
}

}  // namespace nvwm::wordengine
