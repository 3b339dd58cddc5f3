#include "services/text_controls.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/test_support.h"

namespace nvwm {
namespace {

Variant call(LateBoundObject& o, std::string_view member, std::vector<Variant> args = {}) {
  return o.invoke(member, args);
}

void setItemData(LateBoundObject& o, int32_t index, int32_t value) {
  const Variant indices[] = {Variant(index)};
  o.put("ItemData", indices, Variant(value));
}

// Fills the list as a catalogue build does: a header, then field rows with their keys.
TEST(TextListBoxTest, FillsAsACatalogueBuildDoes) {
  TextListBox list;
  call(list, "Clear");
  EXPECT_EQ(call(list, "NewIndex"), Variant(int32_t{-1}));
  call(list, "AddItem", {Variant("[Company Address Info]")});
  setItemData(list, call(list, "NewIndex").longValue(), -1);
  call(list, "AddItem", {Variant("Company Name")});
  setItemData(list, call(list, "NewIndex").longValue(), 1);
  call(list, "additem", {Variant("Société")});  // member names ignore case
  setItemData(list, call(list, "NEWINDEX").longValue(), 2);
  call(list, "Refresh");
  EXPECT_EQ(list.text(), "-1\t[Company Address Info]\n1\tCompany Name\n2\tSociété\n");
  EXPECT_EQ(call(list, "ListCount"), Variant(int32_t{3}));
  EXPECT_EQ(call(list, "ItemData", {Variant(int16_t{1})}), Variant(int32_t{1}));
  EXPECT_EQ(call(list, "List", {Variant(int32_t{2})}), Variant("Société"));
  EXPECT_EQ(list.refreshCount(), 1);
}

TEST(TextListBoxTest, AddItemAtAnIndexInsertsThere) {
  TextListBox list;
  call(list, "AddItem", {Variant("b")});
  call(list, "AddItem", {Variant("a"), Variant(int32_t{0})});
  EXPECT_EQ(call(list, "NewIndex"), Variant(int32_t{0}));
  call(list, "AddItem", {Variant("c"), Variant::missing()});
  EXPECT_EQ(call(list, "NewIndex"), Variant(int32_t{2}));
  EXPECT_EQ(list.text(), "0\ta\n0\tb\n0\tc\n");
  EXPECT_RUNTIME_ERROR(call(list, "AddItem", {Variant("x"), Variant(int32_t{4})}), 5);
  call(list, "Clear");
  EXPECT_EQ(call(list, "ListCount"), Variant(int32_t{0}));
  EXPECT_EQ(call(list, "NewIndex"), Variant(int32_t{-1}));
}

TEST(TextListBoxTest, BadMembersIndicesAndArguments) {
  TextListBox list;
  call(list, "AddItem", {Variant("only")});
  const Variant zero[] = {Variant(int32_t{0})};
  const Variant one[] = {Variant(int32_t{1})};
  const struct {
    std::function<void()> statement;
    int32_t error;
  } cases[] = {
      {[&] { call(list, "Sorted"); }, 438},
      {[&] { list.put("NewIndex", {}, Variant(int32_t{0})); }, 438},  // read only
      {[&] { call(list, "ItemData", {Variant(int32_t{1})}); }, 381},
      {[&] { call(list, "ItemData", {Variant(int32_t{-1})}); }, 381},
      {[&] { list.put("ItemData", one, Variant(int32_t{5})); }, 381},
      {[&] { call(list, "ItemData"); }, 450},
      {[&] { call(list, "AddItem"); }, 450},
      {[&] { call(list, "Clear", {Variant(int32_t{1})}); }, 450},
      {[&] { call(list, "ItemData", {Variant("zero")}); }, 13},
      {[&] { list.put("ItemData", zero, Variant::null()); }, 94},
  };
  int row = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(row++);
    EXPECT_RUNTIME_ERROR(c.statement(), c.error);
  }
  EXPECT_EQ(list.text(), "0\tonly\n");
}

TEST(TextRichTextBoxTest, SelStartCountsCharactersAndStaysInTheText) {
  TextRichTextBox box("«é»🦆");
  EXPECT_EQ(call(box, "selstart"), Variant(int32_t{0}));
  const struct {
    Variant put;
    int32_t read;
  } cases[] = {
      {Variant(int32_t{2}), 2},
      {Variant(int32_t{4}), 4},   // the end: four characters
      {Variant(int32_t{99}), 4},  // past the end goes to the end
      {Variant("3"), 3},          // converted as the runtime does
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.put));
    box.put("SelStart", {}, c.put);
    EXPECT_EQ(call(box, "SelStart"), Variant(c.read));
  }
  EXPECT_RUNTIME_ERROR(box.put("SelStart", {}, Variant(int32_t{-1})), 380);
  EXPECT_RUNTIME_ERROR(call(box, "SelLength"), 438);
  box.put("Text", {}, Variant("new"));
  EXPECT_EQ(call(box, "TEXT"), Variant("new"));
  EXPECT_EQ(box.selStart(), 0);
}

TEST(RTBTextInserterTest, InsertsAtACharacterPositionAndMovesTheCaret) {
  const struct {
    const char* before;
    int32_t position;
    const char* after;
    int32_t caret;
  } cases[] = {
      {"Dear ,", 5, "Dear «Client ID»,", 16},
      {"", 0, "«Client ID»", 11},
      {"abc", 0, "«Client ID»abc", 11},
      {"é🦆x", 2, "é🦆«Client ID»x", 13},  // counts characters, not bytes
      {"abc", 99, "abc«Client ID»", 14},           // past the end appends
      {"abc", -3, "«Client ID»abc", 11},           // before the start inserts at 0
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.before) + " @ " + std::to_string(c.position));
    TextRichTextBox box(c.before);
    TextRTBTextInserter inserter;
    inserter.insertTextAt(box, "«Client ID»", c.position);
    EXPECT_EQ(box.text(), c.after);
    EXPECT_EQ(box.selStart(), c.caret);
  }
}

}  // namespace
}  // namespace nvwm
