// Public: the Variant of the original runtime, the value that crosses every service interface.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "runtime/date.h"

namespace nvwm {

// VarType codes of the original runtime. DO NOT CHANGE THESE VALUES: they are part of the
// contract with hosts (VarType() results). Missing is an Error variant, as in the original.
enum class VarType : int {
  kEmpty = 0,
  kNull = 1,
  kInteger = 2,
  kLong = 3,
  kSingle = 4,
  kDouble = 5,
  kCurrency = 6,
  kDate = 7,
  kString = 8,
  kObject = 9,
  kError = 10,
  kBoolean = 11,
};

// Base of everything a Variant can hold as an object (a service, a document, a list...).
class Object {
 public:
  virtual ~Object() = default;
};

// Currency: a 64-bit count of ten-thousandths, as the original keeps money.
struct Currency {
  int64_t units = 0;
  double toDouble() const { return static_cast<double>(units) / 10000.0; }
  friend bool operator==(Currency, Currency) = default;
};

// A tagged value. Copying is cheap except for long strings; objects are shared.
// Conversions with the original's rules live in runtime/convert.h (CStr, CLng, CDate...).
class Variant {
 public:
  Variant() = default;  // Empty
  Variant(bool v) : value_(v) {}
  Variant(int16_t v) : value_(v) {}
  Variant(int32_t v) : value_(v) {}
  Variant(float v) : value_(v) {}
  Variant(double v) : value_(v) {}
  Variant(Currency v) : value_(v) {}
  Variant(Date v) : value_(v) {}
  Variant(std::string v) : value_(std::move(v)) {}
  Variant(std::string_view v) : value_(std::string(v)) {}
  Variant(const char* v) : value_(std::string(v)) {}
  Variant(std::shared_ptr<Object> v) : value_(std::move(v)) {}

  static Variant null() { return Variant(NullTag{}); }
  // The "missing" value of an optional argument that was left out.
  static Variant missing() { return Variant(MissingTag{}); }

  VarType type() const;
  bool isEmpty() const { return std::holds_alternative<std::monostate>(value_); }
  bool isNull() const { return std::holds_alternative<NullTag>(value_); }
  bool isMissing() const { return std::holds_alternative<MissingTag>(value_); }
  bool isString() const { return std::holds_alternative<std::string>(value_); }
  bool isBoolean() const { return std::holds_alternative<bool>(value_); }
  bool isDate() const { return std::holds_alternative<Date>(value_); }
  bool isObject() const { return std::holds_alternative<std::shared_ptr<Object>>(value_); }
  // Integer, Long, Single, Double or Currency (not Boolean, not Date).
  bool isNumber() const;

  // Exact-type access. REQUIRES: the variant holds that type (checked by assert).
  bool boolValue() const;
  int16_t integerValue() const;
  int32_t longValue() const;
  float singleValue() const;
  double doubleValue() const;
  Currency currencyValue() const;
  Date dateValue() const;
  const std::string& stringValue() const;
  const std::shared_ptr<Object>& objectValue() const;

  // The object cast to T, or nullptr when the variant holds no object or another kind.
  template <class T>
  std::shared_ptr<T> objectAs() const {
    if (!isObject()) return nullptr;
    return std::dynamic_pointer_cast<T>(objectValue());
  }

  // Same type and same value; Empty equals Empty, Null equals Null. Not the language's "=".
  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

 private:
  struct NullTag {
    friend bool operator==(NullTag, NullTag) { return true; }
  };
  struct MissingTag {
    friend bool operator==(MissingTag, MissingTag) { return true; }
  };
  explicit Variant(NullTag t) : value_(t) {}
  explicit Variant(MissingTag t) : value_(t) {}

  std::variant<std::monostate, NullTag, MissingTag, bool, int16_t, int32_t, float, double, Currency,
               Date, std::string, std::shared_ptr<Object>>
      value_;
};

// Text for logs and test output: "Empty", "Null", "Missing", or the type and value
// ("Long 3", "String \"a\""). Not a conversion.
std::string debugString(const Variant& v);

}  // namespace nvwm
