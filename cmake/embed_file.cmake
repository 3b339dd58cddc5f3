# Writes a C++ source that holds a file's bytes, so that the programs carry their data (the
# practice schema, the sample practice) and work from any folder.
# Usage: cmake -DINPUT=file -DOUTPUT=file.cpp -DFUNCTION=name -P embed_file.cmake
# Gives `std::string_view nvwm::<FUNCTION>()`.
file(READ "${INPUT}" hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "(0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,0x..,)"
       "\\1\n" bytes "${bytes}")
get_filename_component(name "${INPUT}" NAME)
file(WRITE "${OUTPUT}.tmp"
"// Generated from ${name} at build time; do not edit.
#include <string_view>

namespace nvwm {
namespace {
const unsigned char kBytes[] = {
${bytes}0x00};
}  // namespace

std::string_view ${FUNCTION}() {
  return std::string_view(reinterpret_cast<const char*>(kBytes), sizeof kBytes - 1);
}

}  // namespace nvwm
")
file(COPY_FILE "${OUTPUT}.tmp" "${OUTPUT}" ONLY_IF_DIFFERENT)
file(REMOVE "${OUTPUT}.tmp")
