#include "engine/engine_test_support.h"

#include <cstdio>
#include <fstream>
#include <sstream>

#include "catalogue/field_record.h"
#include "host/references.h"

namespace nvwm::testing {

std::vector<TableRow> readTable(const std::string& name, size_t columns) {
  std::vector<TableRow> rows;
  std::string path = std::string(NVWM_ENGINE_TEST_DATA) + "/" + name;
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    ADD_FAILURE() << "cannot read " << path;
    return rows;
  }
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (line.empty() || line[0] == '#') continue;
    TableRow row{number, {}};
    std::stringstream cells(line);
    for (std::string cell; std::getline(cells, cell, '\t');) row.cells.push_back(cell);
    // getline drops an empty last cell.
    if (line.back() == '\t') row.cells.emplace_back();
    if (row.cells.size() != columns) {
      ADD_FAILURE() << path << ":" << number << " has " << row.cells.size() << " cells, not "
                    << columns;
      continue;
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

Date isoDate(const std::string& text) {
  int y = 0, m = 0, d = 0;
  EXPECT_EQ(std::sscanf(text.c_str(), "%d-%d-%d", &y, &m, &d), 3) << text;
  return Date::fromYmd(y, m, d);
}

EngineTest::EngineTest() : rtb(env.build(list_type::kTaskInfo)) {}

std::vector<int32_t> EngineTest::errorNumbers() const {
  std::vector<int32_t> numbers;
  for (const RuntimeError& e : env.refs.errors->errors) numbers.push_back(e.number());
  return numbers;
}

PracticeCatalogue::PracticeCatalogue(CatalogueEnvironment& env, int32_t listType) {
  addUntouchedLabels(practice);
  practice.exec("UPDATE CustomFields SET RemittanceLabel1 = 'Form', TaskCustomName1 = 'Step:';");
  references().DatabaseReference = practice.service();
  rtb = env.makeCatalogue();
  rtb->initializeDataRecordsets(listType, false, -1, true, true, true, true, true, -1, -1);
}

}  // namespace nvwm::testing
