// getValidFieldName: a catalogue title as a column name of the merge table, unique in the run.
#include "host/references.h"
#include "host/routine.h"
#include "merge/cls_word_merge.h"
#include "merge/object_reference.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace nvwm {

std::string clsWordMerge::getValidFieldName(const std::string& originFieldStr,
                                            const std::string& fieldType) {
  std::string result;
  // The tag is that of useIDListValues, as the product has it.
  Routine r("TallowbrookPad.exe-clsWordmerge-useIDListValues");
  auto list = [&]() -> nvwm::IDList& { return merge::required(fieldNameList_, "fieldNameList"); };
  std::string candidate;
  auto addCandidate = [&](int32_t key) {
    list().addRow(key, {Variant(candidate), Variant(fieldType), Variant(originFieldStr)});
  };
  r.step([&] {
    candidate = merge::required(references().variantUtility, "variantUtility")
                    .cleanFieldName(originFieldStr);
  });
  r.step([&] {
    if (list().isEmpty()) {
      addCandidate(0);
      return;
    }
    if (list().findRow(1, Variant(candidate)) < 0) {
      addCandidate(list().getRowCount());
      return;
    }
    int32_t i = 1;
    candidate += " " + std::to_string(i);
    while (list().findRow(1, Variant(candidate)) >= 0) {
      // The first pass puts the same number back (i is still 1), so "X 1" is tried twice.
      // From i = 11 three characters are cut; at 101 that leaves a blank of the old number
      // behind ("X  101"). The product's branches for 100 and 1000 stand behind the one for
      // 10 and are never reached.
      const int32_t cut = i <= 10 ? 2 : 3;
      candidate = Left(candidate, Len(candidate) - cut) + " " + std::to_string(i);
      ++i;
    }
    addCandidate(list().getRowCount());
  });
  r.step([&] { result = candidate; });
  return result;
}

}  // namespace nvwm
