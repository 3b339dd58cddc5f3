// The inputs the project makes for its fuzz targets and tests: seeds that reach deep into each
// target, and the bad inputs that once crashed, hung or misled (each named after its fault).
// Everything is generated here; no file of another project is copied.
#pragma once

#include <string>
#include <vector>

namespace nvwm::fuzzing {

struct NamedInput {
  std::string name;  // a file name: what the input holds or the fault it shows
  std::string bytes;
};

// A .docx holding the given children of w:body (and optional extra parts), parts deflated.
std::string docxWithBody(const std::string& body);

// Per fuzz target: seeds, and the bad inputs kept as regressions.
std::vector<NamedInput> docxMergeSeeds();
std::vector<NamedInput> docxMergeBadInputs();
std::vector<NamedInput> csvSeeds();
std::vector<NamedInput> csvBadInputs();
std::vector<NamedInput> adoFilterSeeds();
std::vector<NamedInput> adoFilterBadInputs();
std::vector<NamedInput> jetSqlSeeds();
std::vector<NamedInput> jetSqlBadInputs();
std::vector<NamedInput> formatSeeds();
std::vector<NamedInput> formatBadInputs();
std::vector<NamedInput> textSeeds();
std::vector<NamedInput> textBadInputs();
// The template engine's passes: an options byte (rtb_comment_fuzzer.cpp), then the template.
std::vector<NamedInput> rtbCommentSeeds();
std::vector<NamedInput> rtbCommentBadInputs();

}  // namespace nvwm::fuzzing
