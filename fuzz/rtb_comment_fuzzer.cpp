// The template engine's two passes on any text: testRTBComment (the check) and parseRTBComment
// (the fill), against the catalogue of a client letter built on the sample practice. A fault
// goes to the error service, never out as a crash. Input: an options byte, then the template.
//   bit 0: isRTF   bit 1: skipFieldNameCheck   bit 2: useSampleData
//   bit 3: useContactForMissingCompany
#include <spdlog/sinks/null_sink.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "fuzz/inputs/fuzz_input.h"
#include "host/references.h"
#include "runtime/error.h"
#include "services/folder_locale.h"
#include "services/logging_error_service.h"
#include "services/message_services.h"
#include "services/sqlite/sample_practice.h"
#include "services/sqlite/sqlite_database.h"

using namespace nvwm;

namespace {

struct Engine {
  std::string folder;
  std::shared_ptr<RecordingMessageService> messages;
  std::unique_ptr<clsInsertFieldsInRTB> rtb;
};

// Made once per process: the sample practice in a folder of its own, removed at exit.
Engine& passes() {
  static Engine* e = [] {
    auto* made = new Engine;
    std::string pattern = (std::filesystem::temp_directory_path() / "nvwm-fuzz-XXXXXX").string();
    if (!mkdtemp(pattern.data())) __builtin_trap();
    made->folder = pattern;
    std::atexit([] {
      std::error_code ignored;
      std::filesystem::remove_all(passes().folder, ignored);
    });
    std::string db = made->folder + "/practice.db";
    writeSamplePractice(db);
    LibraryReferences& refs = references();
    auto errors = std::make_shared<LoggingErrorService>(
        std::make_shared<spdlog::logger>("fuzz", std::make_shared<spdlog::sinks::null_sink_mt>()));
    refs.errorClass = errors;
    refs.errorClassIsSet = true;
    refs.LocaleReference = std::make_shared<HostLocale>();
    refs.DatabaseReference = std::make_shared<SqliteDatabase>(db);
    made->messages = std::make_shared<RecordingMessageService>();
    made->rtb = std::make_unique<clsInsertFieldsInRTB>();
    made->rtb->errorClassRTB(errors);
    made->rtb->MsgboxClassRTB(made->messages);
    made->rtb->initializeDataRecordsets(1, false, -1, true, true, true, true, true, -1, -1);
    return made;
  }();
  return *e;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Engine& e = passes();
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  uint8_t options = fuzzing::take<uint8_t>(bytes);
  std::string text(bytes);
  bool isRTF = options & 1, show = true, skipNames = options & 2;
  bool sample = options & 4, contactForCompany = options & 8;
  int32_t company = 1, contact = 1, schedule = -1, firm = -1, appointment = -1, docket = -1,
          task = -1;
  try {
    e.rtb->testRTBComment(text, isRTF, show, skipNames);
    isRTF = options & 1;
    (void)e.rtb->parseRTBComment(text, company, contact, schedule, firm, appointment, docket, task,
                                 sample, isRTF, contactForCompany);
  } catch (const RuntimeError&) {
    // Routines of substance report to the error service; a raise that escapes is the caller's
    // to handle, which is no crash.
  }
  e.messages->clear();
  return 0;
}
