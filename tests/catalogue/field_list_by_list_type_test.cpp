// The list types that give no client rows: only the firm's rows, whatever the number. (The rows
// of every list type are golden files, data/fields-*.tsv.)
#include <gtest/gtest.h>

#include "catalogue_test_support.h"

namespace nvwm::testing {
namespace {

TEST(FieldListByListTypeTest, ListTypesWithoutClientRowsHoldOnlyTheFirmRows) {
  for (int32_t listType : {4, 7, -1, 0, 9}) {
    SCOPED_TRACE(listType);
    CatalogueEnvironment env;
    auto catalogue = env.build(listType);
    EXPECT_EQ(displayNames(*catalogue->FieldListStructure()),
              goldenDisplayNames("fields-4-canada"));
  }
}

}  // namespace
}  // namespace nvwm::testing
