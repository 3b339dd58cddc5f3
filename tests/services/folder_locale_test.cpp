#include "services/folder_locale.h"

#include <gtest/gtest.h>

#include "support/scoped_env.h"

namespace nvwm {
namespace {

using testing::ScopedEnv;

TEST(WorkingFolderTest, DefaultIsTheXdgDataFolder) {
  const struct {
    const char* xdgDataHome;  // nullptr: unset
    const char* home;
    const char* expected;
  } cases[] = {
      {"/data/xdg", "/home/ann", "/data/xdg/nvwordmerge6"},
      {"/data/xdg/", "/home/ann", "/data/xdg/nvwordmerge6"},
      {nullptr, "/home/ann", "/home/ann/.local/share/nvwordmerge6"},
      {"", "/home/ann/", "/home/ann/.local/share/nvwordmerge6"},
      {"relative/xdg", "/home/ann", "/home/ann/.local/share/nvwordmerge6"},  // ignored
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.xdgDataHome ? c.xdgDataHome : "(unset)");
    ScopedEnv xdg("XDG_DATA_HOME", c.xdgDataHome);
    ScopedEnv home("HOME", c.home);
    XdgWorkingFolder folder;
    EXPECT_EQ(folder.getWorkingFolder(), c.expected);
  }
}

TEST(WorkingFolderTest, ASetFolderWinsUntilCleared) {
  ScopedEnv xdg("XDG_DATA_HOME", "/data/xdg");
  XdgWorkingFolder folder("/srv/firm");
  EXPECT_EQ(folder.getWorkingFolder(), "/srv/firm");
  folder.setWorkingFolder("/srv/other");
  EXPECT_EQ(folder.getWorkingFolder(), "/srv/other");
  folder.setWorkingFolder("");
  EXPECT_EQ(folder.getWorkingFolder(), "/data/xdg/nvwordmerge6");
}

TEST(LocaleTest, CanadaAndOntarioUntilTheHostSetsOthers) {
  HostLocale locale;
  EXPECT_EQ(locale.getCountryCode(), 1);
  EXPECT_EQ(locale.getProvinceCode(), 3);
  locale.setCountryCode(2);
  locale.setProvinceCode(7);  // a code with no province of its own is kept as given
  EXPECT_EQ(locale.getCountryCode(), 2);
  EXPECT_EQ(locale.getProvinceCode(), 7);
  HostLocale quebec(1, 8);
  EXPECT_EQ(quebec.getProvinceCode(), 8);
}

}  // namespace
}  // namespace nvwm
