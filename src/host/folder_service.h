// Public: the working-folder and locale services that a host hands the library.
#pragma once

#include <cstdint>
#include <string>

namespace nvwm {

// The folder in which the product keeps its working files (the merge databases go in its
// "Temp" folder). May raise RuntimeError.
class WorkingFolderService {
 public:
  virtual ~WorkingFolderService() = default;
  virtual std::string getWorkingFolder() = 0;
};

// Country codes of the locale service. DO NOT CHANGE THESE VALUES: hosts send them.
enum class CountryCode : int32_t { kCanada = 1, kUnitedStates = 2 };

// Province codes of the locale service. DO NOT CHANGE THESE VALUES: hosts send them.
enum class ProvinceCode : int32_t {
  kAlberta = 0,
  kBritishColumbia = 1,
  kManitoba = 2,
  kOntario = 3,
  kSaskatchewan = 4,
  kQuebec = 8,
  kNovaScotia = 9,
  kNewBrunswick = 10,
  kNewfoundland = 11,
  kPrinceEdwardIsland = 12,
};

// Where the firm itself stands. A caller that tests only for 1 treats any other country as the
// United States. May raise RuntimeError.
class LocaleService {
 public:
  virtual ~LocaleService() = default;
  virtual int32_t getCountryCode() = 0;
  virtual int32_t getProvinceCode() = 0;
};

}  // namespace nvwm
