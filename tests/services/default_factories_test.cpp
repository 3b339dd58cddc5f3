#include <gtest/gtest.h>

#include "host/references.h"
#include "services/file_utility.h"
#include "services/folder_locale.h"
#include "services/id_list.h"
#include "services/terminal_progress_dialog.h"
#include "services/text_controls.h"

namespace nvwm {
namespace {

template <class Expected, class Factory>
void expectMakes(const Factory& factory) {
  ASSERT_TRUE(factory) << "no default factory";
  auto made = factory();
  ASSERT_NE(made, nullptr);
  EXPECT_NE(dynamic_cast<Expected*>(made.get()), nullptr);
  EXPECT_NE(factory(), made) << "each call makes a new object";
}

TEST(DefaultFactoriesTest, MakeTheStandIns) {
  ServiceFactories f = makeDefaultServiceFactories();
  expectMakes<IndexedIDList>(f.createIDList);
  expectMakes<PosixFileUtility>(f.createFileUtility);
  expectMakes<XdgWorkingFolder>(f.createWorkingFolder);
  expectMakes<TerminalProgressDialog>(f.createProgressDialog);
  expectMakes<TextRTBTextInserter>(f.createRTBTextInserter);
  ASSERT_TRUE(f.createVariantUtility && f.createDateUtility);
  EXPECT_TRUE(f.createVariantUtility()->isNullValue(Variant::null()));
  EXPECT_EQ(f.createDateUtility()->minutesToDurationText(90), "1 hr 30 min");
}

}  // namespace
}  // namespace nvwm
