// A .docx from any bytes, merged with a fixed source of two records: a merged package or a
// RuntimeError (4198 for a bad or oversized document), never a crash, a hang or a claim of
// memory the bytes can't back. Limits are smaller than the default so that the fuzzer stays in
// its memory budget; their checks are the same.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "docx/data_source.h"
#include "docx/mail_merge.h"
#include "docx/package.h"
#include "runtime/error.h"

using namespace nvwm;
using namespace nvwm::docx;

namespace {

MergeData twoRecords() {
  return MergeData(
      {"Name", "Amount", "When", "Member", "Note", "Empty"},
      {
          {Variant("Société «Générale» & Fils"), Variant(1234.5), Variant(Date(46349.75)),
           Variant(true), Variant("line one\nline\ttwo"), Variant::null()},
          {Variant(""), Variant(-0.005), Variant(Date(0.5)), Variant(false),
           Variant("<w:t>not xml</w:t> ]]> &amp;"), Variant("")},
      });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const MergeData source = twoRecords();
  ReadLimits limits;
  limits.maxPartSize = 8 << 20;
  try {
    std::unique_ptr<Package> main = Package::loadBytes(
        std::string_view(reinterpret_cast<const char*>(data), size), "fuzz.docx", limits);
    std::unique_ptr<Package> merged = mergeDocument(*main, source);
    for (const std::string& name : merged->partNames()) (void)merged->bytes(name);
  } catch (const RuntimeError&) {
  }
  return 0;
}
