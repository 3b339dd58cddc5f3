// Format with any pattern and any value: a text or Overflow (6) / Type mismatch (13), never
// undefined behaviour.
#include <cstddef>
#include <cstdint>

#include "fuzz/inputs/fuzz_input.h"
#include "runtime/error.h"
#include "runtime/format.h"

using namespace nvwm;
using namespace nvwm::fuzzing;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (bytes.empty()) return 0;
  auto kind = static_cast<FormatKind>(static_cast<uint8_t>(bytes[0]) % 8);
  bytes.remove_prefix(1);
  Variant value;
  switch (kind) {
    case FormatKind::kDouble:
      value = take<double>(bytes);
      break;
    case FormatKind::kDate:
      value = Date(take<double>(bytes));
      break;
    case FormatKind::kString: {
      auto pieces = splitAtNul(bytes, 2);
      value = std::string(pieces[0]);
      bytes = pieces[1];
      break;
    }
    case FormatKind::kLong:
      value = take<int32_t>(bytes);
      break;
    case FormatKind::kBoolean:
      value = (take<uint8_t>(bytes) & 1) != 0;
      break;
    case FormatKind::kSingle:
      value = take<float>(bytes);
      break;
    case FormatKind::kCurrency:
      value = Currency{take<int64_t>(bytes)};
      break;
    case FormatKind::kNull:
      value = Variant::null();
      break;
  }
  try {
    (void)Format(value, bytes);
  } catch (const RuntimeError&) {
  }
  if (value.isDate()) {
    try {
      (void)formatDate(value.dateValue(), bytes);
    } catch (const RuntimeError&) {
    }
  }
  if (value.isNumber()) {
    try {
      (void)formatNumber(value.type() == VarType::kDouble ? value.doubleValue() : 0.0, bytes);
    } catch (const RuntimeError&) {
    }
  }
  return 0;
}
