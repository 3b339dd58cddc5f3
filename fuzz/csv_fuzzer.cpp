// The CSV reader of the merge data source on any bytes: a table or error 4198, and every row
// as wide as the header.
#include <cstddef>
#include <cstdint>
#include <string>

#include "docx/data_source.h"
#include "runtime/error.h"

using namespace nvwm;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  try {
    docx::MergeData source = docx::MergeData::fromCsvText(
        std::string(reinterpret_cast<const char*>(data), size), "fuzz.csv");
    for (size_t r = 0; r < source.rowCount(); ++r) {
      if (source.row(r).size() != source.columns().size()) __builtin_trap();
    }
    for (const std::string& name : source.columns()) {
      if (!source.column(name)) __builtin_trap();
    }
  } catch (const RuntimeError&) {
  }
  return 0;
}
