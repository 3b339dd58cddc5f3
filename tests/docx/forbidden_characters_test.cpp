// A template whose XML holds a character XML 1.0 forbids is refused, naming the part: written
// out again it would spoil every copy.
#include <gtest/gtest.h>

#include "docx/data_source.h"
#include "docx/docx_test_support.h"
#include "docx/mail_merge.h"
#include "docx/xml_characters.h"
#include "runtime/error.h"
#include "support/temp_dir.h"

namespace nvwm::testing {
namespace {

TEST(ForbiddenCharacterTest, FindsRawCharactersAndReferencesToThem) {
  const struct {
    std::string xml;
    std::optional<char32_t> found;
    size_t offset;
  } cases[] = {
      {"<w:t>plain\ttab\r\nlines</w:t>", std::nullopt, 0},
      {"<w:t>bell\x07</w:t>", 0x07, 9},
      {std::string("<w:t>nul\0</w:t>", 14), 0x00, 8},
      {"<w:t>&#1;</w:t>", 0x01, 5},
      {"<w:t>&#x1F;</w:t>", 0x1F, 5},
      {"<w:t>&#xFFFE;</w:t>", 0xFFFE, 5},
      {"<w:t>&#xD800;</w:t>", 0xD800, 5},
      {"<w:t>&#99999999999;</w:t>", 0x110000, 5},
      {"<w:t>\xEF\xBF\xBF</w:t>", 0xFFFF, 5},
      {"<w:t>&#9;&#10;&#xD;&#x20;&#xFFFD;&amp;&#;&#x;</w:t>", std::nullopt, 0},
      {"<w:t>\xEF\xBF\xBD \xF0\x9F\xA6\x86</w:t>", std::nullopt, 0},  // U+FFFD and an emoji
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.xml);
    auto bad = docx::findForbiddenCharacter(c.xml);
    ASSERT_EQ(bad.has_value(), c.found.has_value());
    if (!bad) continue;
    EXPECT_EQ(bad->codePoint, *c.found);
    EXPECT_EQ(bad->offset, c.offset);
  }
}

TEST(ForbiddenCharacterTest, AMergeRefusesTheTemplateNamingThePart) {
  TempDir dir;
  docx::MergeData data({"Name"}, {{Variant("Ann")}});
  const struct {
    const char* where;
    DocxParts parts;
    const char* says;
  } cases[] = {
      {"body",
       {.body = para(run("Dear\x0B")) + para(simpleField(" MERGEFIELD Name "))},
       "part word/document.xml holds U+000B at byte"},
      {"body reference",
       {.body = para(run("Dear &#x1;") + simpleField(" MERGEFIELD Name "))},
       "part word/document.xml holds U+0001"},
      {"header",
       {.body = para(simpleField(" MERGEFIELD Name ")),
        .headers = {{"default", para(run("Ref\x02"))}}},
       "part word/header"},
      {"footnote",
       {.body = para(simpleField(" MERGEFIELD Name ")),
        .footnotes = "<w:footnote w:id=\"1\">" + para(run("note\x1B")) + "</w:footnote>"},
       "part word/footnotes"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.where);
    std::string path = dir.file("main.docx");
    writeDocx(c.parts, path);
    auto main = docx::Package::load(path);
    try {
      docx::mergeDocument(*main, data);
      ADD_FAILURE() << "merged";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), 4198);
      EXPECT_NE(e.description().find(c.says), std::string::npos) << e.description();
      EXPECT_NE(e.description().find("a character XML 1.0 forbids"), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace nvwm::testing
