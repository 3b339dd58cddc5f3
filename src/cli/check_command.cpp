// "check": runs the template test pass on a template file, as a template author would before
// saving it.
//
//   nvwordmerge check [--rtf] [--skip-names] [--list-type N] TEMPLATE-FILE|-
//
// The template is read as it stands (UTF-8; "-" reads standard input). --rtf walks the escaped
// delimiters \'ab and \'bb of an RTF file instead of « and ». Field names are checked against
// the catalogue that a build for the list type (1 unless told) gives on the built-in sample
// practice; --skip-names checks only the shape of the placeholders and builds nothing.
//
// A fault prints the pass's message on standard output and exits 1; a template that passes
// prints nothing and exits 0. A fault the pass leaves to the error service (a date placeholder
// without a format) is logged on standard error, and exits 1 as well. 2: the template or the
// sample practice could not be read or made.
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "cli/commands.h"
#include "host/references.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "services/folder_locale.h"
#include "services/logging_error_service.h"
#include "services/message_services.h"
#include "services/sqlite/sample_practice.h"
#include "services/sqlite/sqlite_database.h"

namespace nvwm::cli {
namespace {

struct CheckOptions {
  std::string path;
  bool rtf = false;
  bool skipNames = false;
  int32_t listType = 1;
};

std::optional<std::string> readTemplate(const std::string& path) {
  if (path == "-") {
    return std::string(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) return std::nullopt;
  return text.str();
}

// A folder of its own under the system's temporary folder, removed with its files at the end.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "nvwordmerge-check-XXXXXX").string();
    if (mkdtemp(pattern.data()) != nullptr) path_ = pattern;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  // Empty when the folder couldn't be made.
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

int runCheck(const CheckOptions& o) {
  std::optional<std::string> text = readTemplate(o.path);
  if (!text) {
    std::cerr << "check: cannot read the template \"" << o.path << "\"\n";
    return 2;
  }
  if (!utf8::isValid(*text)) {
    std::cerr << "check: the template is not valid UTF-8; its other bytes are taken as they "
                 "stand, and a « or » written in another encoding is not seen\n";
  }

  LibraryReferences& refs = references();
  // Errors go to stderr: stdout holds the pass's messages alone.
  auto errors = useStderrErrorService("check");
  if (!refs.LocaleReference) refs.LocaleReference = std::make_shared<HostLocale>();

  ScratchFolder scratch;
  auto catalogue = std::make_unique<clsInsertFieldsInRTB>();
  catalogue->errorClassRTB(errors);
  catalogue->MsgboxClassRTB(std::make_shared<TerminalMessageService>(std::cout));
  if (!o.skipNames) {
    if (scratch.path().empty()) {
      std::cerr << "check: cannot make a temporary folder for the sample practice\n";
      return 2;
    }
    std::string db = (scratch.path() / "sample-practice.db").string();
    try {
      writeSamplePractice(db);
    } catch (const RuntimeError& e) {
      std::cerr << "check: cannot write the sample practice: " << e.description() << "\n";
      return 2;
    }
    refs.DatabaseReference = std::make_shared<SqliteDatabase>(db);
    catalogue->initializeDataRecordsets(o.listType, false, -1, true, true, true, true, true, -1,
                                        -1);
    if (errors->lastError()) {
      std::cerr << "check: the field catalogue could not be built\n";
      return 2;
    }
  }

  bool isRTF = o.rtf, showMessages = true, skipNames = o.skipNames;
  bool fault = catalogue->testRTBComment(*text, isRTF, showMessages, skipNames);
  // The data sets are closed before the database goes.
  catalogue.reset();
  refs.DatabaseReference.reset();
  return fault ? 1 : 0;
}

}  // namespace

void registerCheck(CLI::App& app) {
  auto options = std::make_shared<CheckOptions>();
  auto* cmd = app.add_subcommand(
      "check", "Tests a template and prints its first fault in the user's words (exit 1)");
  cmd->add_option("template", options->path, "The template file, or - for standard input")
      ->required();
  cmd->add_flag("--rtf", options->rtf, "The template is RTF: walk \\'ab and \\'bb");
  cmd->add_flag("--skip-names", options->skipNames,
                "Check only the shape of the placeholders, not their names");
  cmd->add_option("--list-type", options->listType,
                  "The catalogue the names are checked against (mergeInfo2, 1 to 8)")
      ->check(CLI::Range(1, 8));
  cmd->callback([options] { setExitCode(runCheck(*options)); });
}

}  // namespace nvwm::cli
