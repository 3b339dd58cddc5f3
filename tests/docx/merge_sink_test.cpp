// What a merge hands its sink: each copy once, whole, in order, and nothing it has to take back.
#include "docx/merge_sink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "docx/compile_template.h"
#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/render_merge.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

// Writes down every call, as a sink that streams would see them.
class RecordingSink : public docx::MergeSink {
 public:
  void append(const std::string& part, std::string_view xml) override {
    calls.push_back("append " + part + " " + std::to_string(xml.size()));
    parts[part] += xml;
  }
  void put(const std::string& part, std::string bytes, std::string_view contentType) override {
    calls.push_back("put " + part + (contentType.empty() ? "" : " typed"));
    parts[part] = std::move(bytes);
  }
  void relate(const docx::Relationship& relationship) override {
    calls.push_back("relate " + relationship.id + " " + relationship.target);
  }
  void endCopy() override { calls.push_back("end"); }

  std::vector<std::string> calls;
  std::map<std::string, std::string> parts;
};

class MergeSinkTest : public ::testing::Test {
 protected:
  docx::CompiledTemplate compile(const DocxParts& parts) {
    writeDocx(parts, dir_.file("main.docx"));
    main_ = docx::Package::load(dir_.file("main.docx"));
    return docx::compileTemplate(*main_, true);
  }
  TempDir dir_;
  std::unique_ptr<docx::Package> main_;
};

TEST_F(MergeSinkTest, EachCopyIsHandedOverOnceAndWhole) {
  DocxParts parts;
  parts.body = para(run("Dear ") + simpleField(" MERGEFIELD Name "));
  parts.headers["default"] = para(simpleField(" MERGEFIELD Name "));
  parts.footnotes =
      "<w:footnote w:id=\"1\">" + para(simpleField(" MERGEFIELD Name ")) + "</w:footnote>";
  docx::CompiledTemplate compiled = compile(parts);
  docx::MergeData data({"Name"}, {{Variant("Ann")}, {Variant("Bob")}, {Variant("Cy")}});
  RecordingSink sink;
  EXPECT_EQ(docx::renderMerge(compiled, data, sink), 3u);
  // Per copy: the break of the copy before (from the second on), the body, its header with
  // its relationship, its notes; then the end.
  std::vector<std::string> shape;
  for (const std::string& call : sink.calls) shape.push_back(call.substr(0, call.find(' ', 7)));
  std::vector<std::string> expected = {"append word/document.xml"};  // the prefix
  for (int copy = 1; copy <= 3; ++copy) {
    if (copy > 1) expected.push_back("append word/document.xml");  // the break
    expected.push_back("append word/document.xml");                // the body
    expected.push_back("put word/header" + std::to_string(copy));
    expected.push_back("relate rIdMerge" + std::to_string(copy) + "h1");
    if (copy == 1) expected.push_back("append word/footnotes11.xml");  // the head
    expected.push_back("append word/footnotes11.xml");
    expected.push_back("end");
  }
  expected.push_back("append word/document.xml");     // the last section properties
  expected.push_back("append word/document.xml");     // the suffix
  expected.push_back("append word/footnotes11.xml");  // the tail
  ASSERT_EQ(shape.size(), expected.size());
  for (size_t i = 0; i < shape.size(); ++i) {
    EXPECT_EQ(shape[i].substr(0, expected[i].size()), expected[i]) << i << ": " << sink.calls[i];
  }
  // What was handed over is a whole document.
  pugi::xml_document doc;
  const std::string& body = sink.parts["word/document.xml"];
  ASSERT_TRUE(doc.load_buffer(body.data(), body.size(), docx::kParseFlags));
  EXPECT_EQ(dumpBody(doc), "Dear Ann\n\n==section==\nDear Bob\n\n==section==\nDear Cy\n");
  pugi::xml_document notes;
  const std::string& notesXml = sink.parts["word/footnotes11.xml"];
  ASSERT_TRUE(notes.load_buffer(notesXml.data(), notesXml.size(), docx::kParseFlags));
  EXPECT_EQ(countXPath(notes, "//w:footnote"), 5u);  // two separators, three copies
}

TEST_F(MergeSinkTest, ADroppedCopyIsNeverHandedOver) {
  DocxParts parts;
  parts.body = para(fieldAround(instructionRun(" SKIPIF ") + mergeFieldOf("Name") +
                                instructionRun(" = \"Bob\" ")) +
                    mergeFieldOf("Name"));
  docx::CompiledTemplate compiled = compile(parts);
  docx::MergeData data({"Name"}, {{Variant("Ann")}, {Variant("Bob")}, {Variant("Cy")}});
  RecordingSink sink;
  EXPECT_EQ(docx::renderMerge(compiled, data, sink), 2u);
  EXPECT_EQ(std::count(sink.calls.begin(), sink.calls.end(), "end"), 2);
  EXPECT_EQ(sink.parts["word/document.xml"].find("Bob"), std::string::npos);
}

}  // namespace
}  // namespace nvwm::testing
