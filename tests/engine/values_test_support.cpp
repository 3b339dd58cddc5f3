#include "engine/values_test_support.h"

#include <fstream>
#include <sstream>

#include "host/references.h"

namespace nvwm::testing {

RecordIDs idsFrom(const std::vector<std::string>& cells, size_t first) {
  auto id = [&](size_t i) { return static_cast<int32_t>(std::stol(cells.at(first + i))); };
  return {id(0), id(1), id(2), id(3), id(4), id(5), id(6)};
}

ValuesTest::ValuesTest() : db(std::make_shared<RecordingDatabase>(practice.service())) {
  std::ifstream in(std::string(NVWM_ENGINE_TEST_DATA) + "/values_practice.sql");
  std::stringstream sql;
  sql << in.rdbuf();
  EXPECT_FALSE(sql.str().empty()) << "values_practice.sql not found";
  addUntouchedLabels(practice);
  practice.exec(sql.str());
  references().DatabaseReference = db;
  references().variantUtility = factories().createVariantUtility();
  references().dateUtility = factories().createDateUtility();
}

std::unique_ptr<clsInsertFieldsInRTB> ValuesTest::openedCatalogue(int32_t listType) {
  auto rtb = env.makeCatalogue();
  rtb->initializeDataRecordsets(listType, false, -1, true, true, true, true, true, -1, -1);
  db->clear();
  return rtb;
}

std::unique_ptr<clsInsertFieldsInRTB> ValuesTest::closedCatalogue(int32_t listType) {
  auto rtb = env.build(listType);
  db->clear();
  return rtb;
}

std::string ValuesTest::field(clsInsertFieldsInRTB& rtb, std::string name, RecordIDs ids,
                              bool sample, bool rtf) {
  return rtb.getDataField(name, ids.companyID, ids.contactID, ids.scheduleID, ids.firmID,
                          ids.appointmentID, ids.docketID, ids.taskID, sample, rtf);
}

std::string ValuesTest::dateField(clsInsertFieldsInRTB& rtb, const std::string& name,
                                  const std::string& format, RecordIDs ids, bool sample, bool rtf) {
  return rtb.getDataDateField(name, format, ids.companyID, ids.contactID, ids.scheduleID,
                              ids.firmID, ids.appointmentID, ids.docketID, ids.taskID, sample, rtf);
}

std::vector<int32_t> ValuesTest::errorNumbers() const {
  std::vector<int32_t> numbers;
  for (const RuntimeError& e : env.refs.errors->errors) numbers.push_back(e.number());
  return numbers;
}

std::string ValuesTest::errorLog() const {
  std::string log;
  for (const RuntimeError& e : env.refs.errors->errors) {
    log += std::to_string(e.number()) + " " + e.description() + "\n";
  }
  return log;
}

}  // namespace nvwm::testing
