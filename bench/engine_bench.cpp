// The template engine on the sample practice: a fill of an RTF letter against the full
// catalogue of list type 1, its template test, and fills with more placeholders and a larger
// catalogue, to show that a fill costs per placeholder present, not per catalogue row.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "catalogue/cls_insert_fields_in_rtb.h"
#include "catalogue/field_record.h"
#include "host/references.h"
#include "runtime/convert.h"
#include "services/folder_locale.h"
#include "services/sqlite/sample_practice.h"
#include "services/sqlite/sqlite_database.h"

namespace {

using nvwm::clsInsertFieldsInRTB;

class SilentErrorService : public nvwm::ErrorService {
 public:
  bool errorsAreSuppressed() override { return false; }
  int32_t getErrorAction() override { return 2; }
  void setError(const nvwm::RuntimeError&) override { ++errors; }
  void showError() override {}
  void exitProc() override {}
  void enterProc(const std::string&) override {}
  int errors = 0;
};

const std::string& samplePractice() {
  static const std::string path = [] {
    auto file = std::filesystem::temp_directory_path() /
                ("nvwm-engine-bench-" + std::to_string(std::random_device{}()) + ".db");
    nvwm::writeSamplePractice(file.string());
    return file.string();
  }();
  return path;
}

std::shared_ptr<SilentErrorService> installReferences() {
  auto errors = std::make_shared<SilentErrorService>();
  nvwm::LibraryReferences& refs = nvwm::references();
  refs.errorClass = errors;
  refs.errorClassIsSet = true;
  refs.LocaleReference = std::make_shared<nvwm::HostLocale>(1, 3);
  refs.variantUtility = nvwm::factories().createVariantUtility();
  refs.dateUtility = nvwm::factories().createDateUtility();
  refs.DatabaseReference = std::make_shared<nvwm::SqliteDatabase>(samplePractice());
  return errors;
}

// Company 2 of the sample practice, its default contact 101, the firm 1.
struct Fill {
  int32_t company = 2, contact = 101, schedule = -1, firm = 1, appointment = -1, docket = -1,
          task = -1;
  bool sample = false, rtf = true, swap = false;
  std::string run(clsInsertFieldsInRTB& rtb, const std::string& text) {
    return rtb.parseRTBComment(text, company, contact, schedule, firm, appointment, docket, task,
                               sample, rtf, swap);
  }
};

std::unique_ptr<clsInsertFieldsInRTB> catalogue(int32_t listType,
                                                const std::shared_ptr<SilentErrorService>& e) {
  auto rtb = std::make_unique<clsInsertFieldsInRTB>();
  rtb->errorClassRTB(e);
  rtb->initializeDataRecordsets(listType, false, -1, true, true, true, true, true, 2, 101);
  return rtb;
}

// The twenty placeholders of a client letter.
const std::vector<std::string> kLetterFields = {
    "Contact Display Name",
    "Contact Name Prefix",
    "Contact First Name",
    "Contact Last Name",
    "Contact Job Title",
    "Company Name",
    "Address",
    "City",
    "Abbreviated Province",
    "Postal Code",
    "(Todays Date, mmmm d, yyyy)",
    "(Year End Date, mmmm d, yyyy)",
    "Business Number",
    "HST Number",
    "Software Name",
    "Your Company Name",
    "Your Address",
    "Your City",
    "Your Office Number",
    "Contact & Spouse Name",
};

std::string escaped(const std::string& name) { return "\\'ab" + name + "\\'bb"; }

// An RTF letter of about 2 KB: a header, then paragraphs of prose with the placeholders spread
// over them.
std::string rtfLetter(const std::vector<std::string>& fields) {
  std::string text =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman Times New Roman;}{\\f1\\fswiss "
      "Arial;}}\r\n{\\colortbl ;\\red0\\green0\\blue0;}\r\n\\viewkind4\\uc1\\pard\\f0\\fs24 ";
  const std::string prose =
      "We are writing to confirm the arrangements for the coming year and to remind you of the "
      "documents we need before we can begin. ";
  for (size_t i = 0; i < fields.size(); ++i) {
    text += (i % 2 == 0 ? prose.substr(0, 40) : std::string("Regarding ")) + escaped(fields[i]) +
            (i % 4 == 3 ? "\\par\r\n" : " ");
  }
  while (text.size() < 2000) text += prose + "\\par\r\n";
  return text + "}\r\n";
}

// n placeholders, taken in turn from the catalogue's text rows (date rows in their long form).
std::vector<std::string> catalogueFields(clsInsertFieldsInRTB& rtb, size_t n) {
  std::vector<std::string> names;
  nvwm::IDList& list = *rtb.FieldListStructure();
  for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) {
    std::string name = nvwm::CStr(list.getColumn(2));
    if (nvwm::CStr(list.getColumn(4)) == nvwm::kFieldTypeDate) {
      name = "(" + name + ", mmmm d yyyy)";
    }
    names.push_back(name);
  }
  std::vector<std::string> fields;
  for (size_t i = 0; i < n; ++i) fields.push_back(names[i % names.size()]);
  return fields;
}

void BM_FillLetter20(benchmark::State& state) {
  auto errors = installReferences();
  auto rtb = catalogue(1, errors);
  const std::string letter = rtfLetter(kLetterFields);
  Fill fill;
  std::string out = fill.run(*rtb, letter);  // warms the data sets
  for (auto _ : state) benchmark::DoNotOptimize(out = fill.run(*rtb, letter));
  state.counters["bytes"] = static_cast<double>(letter.size());
  state.counters["rows"] = rtb->FieldListStructure()->getRowCount();
  state.counters["errors"] = errors->errors;
  if (out.find("\\'ab") != std::string::npos) state.SkipWithError("a placeholder was left");
}
BENCHMARK(BM_FillLetter20)->Unit(benchmark::kMicrosecond);

void BM_TestLetter20(benchmark::State& state) {
  auto errors = installReferences();
  auto rtb = catalogue(1, errors);
  const std::string letter = rtfLetter(kLetterFields);
  bool isRTF = true, showMessages = false, skipNameCheck = false;
  bool fault = true;
  for (auto _ : state) {
    benchmark::DoNotOptimize(fault =
                                 rtb->testRTBComment(letter, isRTF, showMessages, skipNameCheck));
  }
  if (fault) state.SkipWithError("the letter has a fault");
}
BENCHMARK(BM_TestLetter20)->Unit(benchmark::kMicrosecond);

// The same 2 KB letter with 0, 20 and 200 placeholders, against the catalogues of list type 1
// (company letters) and 6 (time entries, more rows).
void BM_FillPlaceholders(benchmark::State& state) {
  auto errors = installReferences();
  auto rtb = catalogue(static_cast<int32_t>(state.range(1)), errors);
  const std::string letter = rtfLetter(catalogueFields(*rtb, static_cast<size_t>(state.range(0))));
  Fill fill;
  fill.docket = 1;
  std::string out = fill.run(*rtb, letter);
  for (auto _ : state) benchmark::DoNotOptimize(out = fill.run(*rtb, letter));
  state.counters["rows"] = rtb->FieldListStructure()->getRowCount();
  state.counters["bytes"] = static_cast<double>(letter.size());
}
BENCHMARK(BM_FillPlaceholders)
    ->ArgsProduct({{0, 20, 200}, {1, 6}})
    ->ArgNames({"placeholders", "list"})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
BENCHMARK_MAIN();
