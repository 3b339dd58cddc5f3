#include "runtime/variant.h"

#include <cassert>

#include "runtime/convert.h"

namespace nvwm {

VarType Variant::type() const {
  // clang-format off
  switch (value_.index()) {
    case 0: return VarType::kEmpty;
    case 1: return VarType::kNull;
    case 2: return VarType::kError;
    case 3: return VarType::kBoolean;
    case 4: return VarType::kInteger;
    case 5: return VarType::kLong;
    case 6: return VarType::kSingle;
    case 7: return VarType::kDouble;
    case 8: return VarType::kCurrency;
    case 9: return VarType::kDate;
    case 10: return VarType::kString;
    default: return VarType::kObject;
  }
  // clang-format on
}

bool Variant::isNumber() const {
  // clang-format off
  switch (type()) {
    case VarType::kInteger:
    case VarType::kLong:
    case VarType::kSingle:
    case VarType::kDouble:
    case VarType::kCurrency: return true;
    default: return false;
  }
  // clang-format on
}

bool Variant::boolValue() const {
  assert(isBoolean());
  return std::get<bool>(value_);
}
int16_t Variant::integerValue() const {
  assert(type() == VarType::kInteger);
  return std::get<int16_t>(value_);
}
int32_t Variant::longValue() const {
  assert(type() == VarType::kLong);
  return std::get<int32_t>(value_);
}
float Variant::singleValue() const {
  assert(type() == VarType::kSingle);
  return std::get<float>(value_);
}
double Variant::doubleValue() const {
  assert(type() == VarType::kDouble);
  return std::get<double>(value_);
}
Currency Variant::currencyValue() const {
  assert(type() == VarType::kCurrency);
  return std::get<Currency>(value_);
}
Date Variant::dateValue() const {
  assert(isDate());
  return std::get<Date>(value_);
}
const std::string& Variant::stringValue() const {
  assert(isString());
  return std::get<std::string>(value_);
}
const std::shared_ptr<Object>& Variant::objectValue() const {
  assert(isObject());
  return std::get<std::shared_ptr<Object>>(value_);
}

std::string debugString(const Variant& v) {
  // clang-format off
  switch (v.type()) {
    case VarType::kEmpty: return "Empty";
    case VarType::kNull: return "Null";
    case VarType::kError: return "Missing";
    case VarType::kObject: return v.objectValue() ? "Object" : "Nothing";
    case VarType::kString: return "String \"" + v.stringValue() + "\"";
    case VarType::kBoolean: return std::string("Boolean ") + (v.boolValue() ? "True" : "False");
    case VarType::kInteger: return "Integer " + CStr(v);
    case VarType::kLong: return "Long " + CStr(v);
    case VarType::kSingle: return "Single " + CStr(v);
    case VarType::kDouble: return "Double " + CStr(v);
    case VarType::kCurrency: return "Currency " + CStr(v);
    case VarType::kDate: return "Date " + CStr(v);
  }
  // clang-format on
  return "?";
}

}  // namespace nvwm
