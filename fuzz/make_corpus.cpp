// Writes the inputs the project makes for its fuzz targets into a folder, one subfolder per
// target:
//   make_corpus seeds DIR        the seed corpus (scripts/fuzz.sh writes it before fuzzing)
//   make_corpus regressions DIR  the bad inputs of fuzz/regressions, as they are committed
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "fuzz/inputs/sample_inputs.h"

using namespace nvwm::fuzzing;

namespace {

struct TargetInputs {
  const char* target;
  std::vector<NamedInput> (*seeds)();
  std::vector<NamedInput> (*bad)();
};

const TargetInputs kTargets[] = {
    {"docx_merge", docxMergeSeeds, docxMergeBadInputs},
    {"csv", csvSeeds, csvBadInputs},
    {"ado_filter", adoFilterSeeds, adoFilterBadInputs},
    {"jet_sql", jetSqlSeeds, jetSqlBadInputs},
    {"format", formatSeeds, formatBadInputs},
    {"text", textSeeds, textBadInputs},
    {"rtb_comment", rtbCommentSeeds, rtbCommentBadInputs},
};

}  // namespace

int main(int argc, char** argv) {
  std::string what = argc == 3 ? argv[1] : "";
  if (what != "seeds" && what != "regressions") {
    std::fprintf(stderr, "usage: %s seeds|regressions DIR\n", argv[0]);
    return 2;
  }
  namespace fs = std::filesystem;
  for (const TargetInputs& t : kTargets) {
    fs::path folder = fs::path(argv[2]) / t.target;
    fs::create_directories(folder);
    for (const NamedInput& input : (what == "seeds" ? t.seeds : t.bad)()) {
      std::ofstream out(folder / input.name, std::ios::binary | std::ios::trunc);
      out.write(input.bytes.data(), static_cast<std::streamsize>(input.bytes.size()));
      if (!out) {
        std::fprintf(stderr, "cannot write %s\n", (folder / input.name).c_str());
        return 1;
      }
    }
  }
  return 0;
}
