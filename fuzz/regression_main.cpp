// The main of a fuzz target built without libFuzzer: runs the target once on each file named
// on the command line (a folder: on each file in it), as the fuzzer would. A crash or a
// sanitizer report ends the run; otherwise it prints how many inputs ran and exits 0.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

std::string readAll(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::filesystem::path> inputs;
  for (int i = 1; i < argc; ++i) {
    std::error_code ec;
    if (std::filesystem::is_directory(argv[i], ec)) {
      for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    } else if (std::filesystem::is_regular_file(argv[i], ec)) {
      inputs.push_back(argv[i]);
    } else {
      std::fprintf(stderr, "%s: no such input\n", argv[i]);
      return 2;
    }
  }
  for (const auto& path : inputs) {
    std::string bytes = readAll(path);
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
  }
  std::printf("ran %zu inputs\n", inputs.size());
  return 0;
}
