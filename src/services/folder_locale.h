// Public: the default working-folder and locale services (host/folder_service.h).
#pragma once

#include <cstdint>
#include <string>

#include "host/folder_service.h"

namespace nvwm {

// The XDG data folder of the product, where everything it keeps on its own goes:
// $XDG_DATA_HOME/nvwordmerge6, or ~/.local/share/nvwordmerge6 when XDG_DATA_HOME is unset, empty
// or relative (as the XDG rules say). The home folder is $HOME, else the password database's.
// The environment is read at each call. The folder is not created here: users make the folders
// they need under it. Raises 76 when neither XDG_DATA_HOME nor a home folder can be found.
std::string productDataFolder();

// The working folder: the one set by setWorkingFolder, else productDataFolder(). Not
// thread-safe.
class XdgWorkingFolder : public WorkingFolderService {
 public:
  XdgWorkingFolder() = default;
  explicit XdgWorkingFolder(std::string folder) : folder_(std::move(folder)) {}

  std::string getWorkingFolder() override;
  // "" goes back to the XDG default.
  void setWorkingFolder(std::string folder) { folder_ = std::move(folder); }

 private:
  std::string folder_;
};

// The firm's location as the host sets it: Canada (1) and Ontario (3) until set. Any number is
// accepted and given back unchanged; callers decide what an unknown code means. Not
// thread-safe.
class HostLocale : public LocaleService {
 public:
  HostLocale() = default;
  HostLocale(int32_t countryCode, int32_t provinceCode)
      : country_(countryCode), province_(provinceCode) {}

  int32_t getCountryCode() override { return country_; }
  int32_t getProvinceCode() override { return province_; }
  void setCountryCode(int32_t code) { country_ = code; }
  void setProvinceCode(int32_t code) { province_ = code; }

 private:
  int32_t country_ = static_cast<int32_t>(CountryCode::kCanada);
  int32_t province_ = static_cast<int32_t>(ProvinceCode::kOntario);
};

}  // namespace nvwm
