// "fill": fills a letter template from the practice database and prints it.
//
//   nvwordmerge fill [--db FILE] [--company ID] [--contact ID] [--task ID] [--appointment ID]
//                    [--docket ID] [--schedule ID] [--firm ID] [--list-type N] [--rtf]
//                    [--sample] [--contact-for-missing-company] [--country C --province P]
//                    TEMPLATE-FILE|-
//
// The template is a UTF-8 file ("-" reads standard input) holding placeholders such as
// "«Contact First Name»", "<<Company Name>>" or "«(Todays Date, mmmm d, yyyy)»"; the filled
// text goes to standard output as it is, and errors to standard error.
//
// The catalogue is built for the list type before the fill, so the first fill fills. IDs not
// given are worked out as a merge works them out: a task, appointment, time entry (docket) or
// schedule entry gives its company and contact, a company its default contact, and the firm is
// the practice's own. Without --list-type the list is that of the record given (5 appointment,
// 6 time entry, 8 task or schedule entry), else 1. Without --db the built-in sample practice is
// used (a made-up Ontario firm; see "sample-db"). The exit code is 0, 1 when the library
// reported an error while filling, 2 for bad input (no template, invalid UTF-8, no database).
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "cli/commands.h"
#include "cli/sample_practice_file.h"
#include "host/references.h"
#include "practice/lookups.h"
#include "runtime/error.h"
#include "runtime/utf8.h"
#include "services/folder_locale.h"
#include "services/logging_error_service.h"
#include "services/sqlite/sqlite_database.h"

namespace nvwm::cli {
namespace {

struct FillOptions {
  std::string db;
  int32_t company = -1;
  int32_t contact = -1;
  int32_t task = -1;
  int32_t appointment = -1;
  int32_t docket = -1;
  int32_t schedule = -1;
  int32_t firm = -1;
  int32_t listType = 0;  // 0: from the record given
  bool rtf = false;
  bool sample = false;
  bool contactForMissingCompany = false;
  int32_t country = 1;
  int32_t province = 3;
  std::string templatePath;
};

bool readTemplate(const std::string& path, std::string& text) {
  if (path == "-") {
    text.assign(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
    return true;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream content;
  content << in.rdbuf();
  text = content.str();
  return true;
}

// The IDs a merge would use for the records given, and the list type of the record.
void completeRecordIDs(FillOptions& o) {
  auto orKeep = [](int32_t given, int32_t found) { return given >= 0 ? given : found; };
  if (o.task >= 0) {
    o.company = orKeep(o.company, getCompanyIDFromTaskID(o.task));
    o.contact = orKeep(o.contact, getContactIDFromTaskID(o.task));
    if (o.schedule < 0) o.schedule = getScheduleIDFromTaskID(o.task);
  } else if (o.appointment >= 0) {
    o.company = orKeep(o.company, getCompanyIDFromAppointmentID(o.appointment));
    o.contact = orKeep(o.contact, getContactIDFromAppointmentID(o.appointment));
  } else if (o.docket >= 0) {
    o.company = orKeep(o.company, getCompanyIDFromDocketID(o.docket));
    o.contact = orKeep(o.contact, getContactIDFromDocketID(o.docket));
  } else if (o.schedule >= 0) {
    o.company = orKeep(o.company, getCompanyIDFromScheduleID(o.schedule));
  }
  if (o.company >= 0 && o.contact < 0) o.contact = getDefaultContactIDFromCompanyID(o.company);
  if (o.firm < 0) o.firm = getAccountantFirmID();
  if (o.listType == 0) {
    if (o.appointment >= 0) {
      o.listType = list_type::kAppointmentInfo;
    } else if (o.task >= 0 || o.schedule >= 0) {
      o.listType = list_type::kTaskInfo;
    } else if (o.docket >= 0) {
      o.listType = list_type::kDocketInfo;
    } else {
      o.listType = list_type::kCompanyInfo;
    }
  }
}

int32_t recordIDOfListType(const FillOptions& o) {
  switch (o.listType) {
    case list_type::kAppointmentInfo:
      return o.appointment;
    case list_type::kDocketInfo:
      return o.docket;
    case list_type::kTaskInfo:
      return o.task;
    default:
      return -1;
  }
}

int runFill(FillOptions o) {
  std::string text;
  if (!readTemplate(o.templatePath, text)) {
    std::cerr << "fill: cannot read the template \"" << o.templatePath << "\"\n";
    return 2;
  }
  if (!utf8::isValid(text)) {
    std::cerr << "fill: the template is not UTF-8 text\n";
    return 2;
  }

  LibraryReferences& refs = references();
  auto errors = useStderrErrorService("fill");
  refs.LocaleReference = std::make_shared<HostLocale>(o.country, o.province);
  refs.variantUtility = factories().createVariantUtility();
  refs.dateUtility = factories().createDateUtility();

  std::unique_ptr<SamplePracticeFile> sample;
  try {
    if (o.db.empty()) {
      sample = std::make_unique<SamplePracticeFile>("fill");
      o.db = sample->path();
    }
  } catch (const RuntimeError& e) {
    std::cerr << "fill: cannot write the sample practice: " << e.description() << "\n";
    return 2;
  }
  auto db = std::make_shared<SqliteDatabase>(o.db);
  if (!db->isConnected()) {
    std::cerr << "fill: cannot open the practice database \"" << o.db << "\"\n";
    return 2;
  }
  refs.DatabaseReference = db;

  completeRecordIDs(o);
  std::string filled;
  {
    clsInsertFieldsInRTB rtb;
    rtb.errorClassRTB(errors);
    rtb.initializeDataRecordsets(o.listType, false, recordIDOfListType(o), true, true, true, true,
                                 true, o.company, o.contact);
    filled = rtb.parseRTBComment(text, o.company, o.contact, o.schedule, o.firm, o.appointment,
                                 o.docket, o.task, o.sample, o.rtf, o.contactForMissingCompany);
  }
  refs.DatabaseReference.reset();
  std::cout << filled;
  std::cout.flush();
  return errors->lastError() ? 1 : 0;
}

}  // namespace

void registerFill(CLI::App& app) {
  auto o = std::make_shared<FillOptions>();
  auto* cmd = app.add_subcommand(
      "fill", "Fills a letter template (plain text or RTF) from the practice database");
  cmd->add_option("--db", o->db,
                  "Practice database file (SQLite); the sample practice if left out");
  cmd->add_option("--company", o->company, "Company ID");
  cmd->add_option("--contact", o->contact, "Contact ID (default: the company's default contact)");
  cmd->add_option("--task", o->task, "Task ID");
  cmd->add_option("--appointment", o->appointment, "Appointment ID");
  cmd->add_option("--docket", o->docket, "Time entry (docket) ID");
  cmd->add_option("--schedule", o->schedule, "Schedule entry ID");
  cmd->add_option("--firm", o->firm, "The firm's company ID (default: the practice's firm)");
  cmd->add_option("--list-type", o->listType,
                  "Kind of record (mergeInfo2) the catalogue is built for: 1 to 8")
      ->check(CLI::Range(1, 8));
  cmd->add_flag("--rtf", o->rtf, "The template is RTF: values get RTF line breaks");
  cmd->add_flag("--sample", o->sample, "Print each field's sample value instead of data");
  cmd->add_flag("--contact-for-missing-company", o->contactForMissingCompany,
                "Without a company, print the contact's name for «Company Name»");
  cmd->add_option("--country", o->country, "The firm's country code (1 Canada, 2 United States)");
  cmd->add_option("--province", o->province, "The firm's province code (3 Ontario)");
  cmd->add_option("template", o->templatePath, "The template file, or - for standard input")
      ->required();
  cmd->callback([o] { setExitCode(runFill(*o)); });
}

}  // namespace nvwm::cli
