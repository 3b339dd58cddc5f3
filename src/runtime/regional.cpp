#include "runtime/regional.h"

namespace nvwm {
namespace {

thread_local std::shared_ptr<const RegionalSettings> tSettings;

}  // namespace

const RegionalSettings& regionalSettings() {
  static const RegionalSettings kEnUs;
  return tSettings ? *tSettings : kEnUs;
}

void setRegionalSettings(std::shared_ptr<const RegionalSettings> settings) {
  tSettings = std::move(settings);
}

}  // namespace nvwm
