#include "practice/lookup_shape.h"

#include "host/references.h"
#include "runtime/error.h"

namespace nvwm::practice {

DatabaseService& database() {
  return requireReference(references().DatabaseReference, "DatabaseReference");
}

VariantUtility& variantUtility() {
  return requireReference(references().variantUtility, "variantUtility");
}

namespace {

std::string logTag(std::string_view module, std::string_view routineName) {
  std::string tag;
  tag.reserve(kProgramTag.size() + module.size() + routineName.size() + 2);
  tag.append(kProgramTag).append("-").append(module).append("-").append(routineName);
  return tag;
}

}  // namespace

LookupRoutine::LookupRoutine(std::string_view module, std::string_view routineName)
    : routine_(logTag(module, routineName)) {}

LookupRoutine::LookupRoutine(std::string_view module, std::string_view routineName,
                             Routine::ExtraHandlerSteps extra)
    : routine_(logTag(module, routineName), std::move(extra)) {}

bool LookupRoutine::connected() {
  bool connected = false;
  step([&] { connected = database().isConnected(); });
  return connected && running();
}

Handle LookupRoutine::open(const std::string& sql, int32_t lockType) {
  Handle h = kNoHandle;
  step([&] { h = database().openRecordset(sql, kCursorKeyset, lockType, true, "", true); });
  return h;
}

bool LookupRoutine::hasRows(Handle h) {
  bool rows = false;
  step([&] { rows = database().hasRecords(h); });
  return rows && running();
}

bool LookupRoutine::atEnd(Handle h) {
  bool end = true;
  step([&] { end = database().isEOF(h); });
  return end || !running();
}

bool LookupRoutine::moveNext(Handle h) {
  bool moved = false;
  step([&] {
    database().moveNext(h);
    moved = true;
  });
  return moved && running();
}

void LookupRoutine::close(Handle h) {
  step([&] { database().closeRecordset(h); });
}

}  // namespace nvwm::practice
