#include "services/id_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_support.h"

namespace nvwm {
namespace {

// Adds a catalogue-like row: key, DatabaseField, DisplayName, Category.
void addField(IDList& list, int32_t key, const std::string& field, const std::string& display,
              const std::string& category) {
  list.addRow(key, {Variant(field), Variant(display), Variant(category)});
}

// "key:display" for every row, walked from the first.
std::vector<std::string> dump(IDList& list) {
  std::vector<std::string> out;
  for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) {
    out.push_back(std::to_string(list.currentKey()) + ":" + list.getColumn(2).stringValue());
  }
  return out;
}

// A first build (client rows, then firm rows) followed by a second build on the same list that
// counts its keys from 1 again and adds only the firm rows, as the merge does.
void buildTwice(IDList& list) {
  list.initialize();
  addField(list, 1, "CompanyName", "Company Name", "ClientInfo");
  addField(list, 2, "ClientID", "Client ID", "ContactInfo");
  addField(list, 3, "FirmName", "Firm Name", "FirmInfo");
  list.initialize();
  addField(list, 1, "FirmName", "Firm Name", "FirmInfo");
}

TEST(IDListTest, ClientRowsOfAFirstBuildSurviveASecondBuild) {
  IndexedIDList list;
  buildTwice(list);
  EXPECT_EQ(dump(list), (std::vector<std::string>{"1:Company Name", "2:Client ID", "3:Firm Name",
                                                  "1:Firm Name"}));
  EXPECT_EQ(list.getRowCount(), 4);
}

TEST(IDListTest, OldKeysPointAtRowsOfTheNewTableAfterARebuild) {
  IndexedIDList list;
  buildTwice(list);
  // Key 1 was "Company Name" in the first build; the list entry that kept it now reaches the
  // second build's row 1.
  ASSERT_TRUE(list.moveToKey(1));
  EXPECT_EQ(list.getColumn(2), Variant("Firm Name"));
  // Keys the new build didn't reach still lead to the old rows.
  ASSERT_TRUE(list.moveToKey(2));
  EXPECT_EQ(list.getColumn(2), Variant("Client ID"));
}

TEST(IDListTest, FindRowTakesTheFirstMatchAndMakesThatRowCurrent) {
  IndexedIDList list;
  buildTwice(list);
  // "Company Name" has key 1, which moveToKey would resolve to the new firm row: the columns
  // read after findRow must still be those of the row found.
  EXPECT_EQ(list.findRow(2, Variant("company name")), 1);
  EXPECT_EQ(list.getColumn(1), Variant("CompanyName"));
  // The first build's firm row comes first.
  EXPECT_EQ(list.findRow(2, Variant("Firm Name")), 3);
  EXPECT_EQ(list.currentKey(), 3);
}

TEST(IDListTest, FindRowNotFoundLeavesTheCurrentRow) {
  IndexedIDList list;
  buildTwice(list);
  ASSERT_TRUE(list.moveToKey(2));
  EXPECT_LT(list.findRow(2, Variant("No Such Field")), 0);
  EXPECT_EQ(list.currentKey(), 2);
  EXPECT_EQ(list.getColumn(2), Variant("Client ID"));
}

TEST(IDListTest, FindRowComparesLikeTheRuntime) {
  IndexedIDList list;
  list.initialize();
  list.addRow(10, {Variant("SOCIÉTÉ Générale")});
  list.addRow(11, {Variant(int32_t{12})});
  list.addRow(12, {Variant("012")});
  list.addRow(13, {Variant(Date::fromYmd(2026, 11, 23))});
  list.addRow(14, {Variant(true)});
  list.addRow(15, {Variant("")});
  list.addRow(16, {Variant::null()});
  list.addRow(17, {Variant("«Company Name»")});
  list.addRow(18, {Variant(2.5)});
  const struct {
    Variant value;
    int32_t key;
  } cases[] = {
      {Variant("société générale"), 10},  // Unicode case folding
      {Variant("Société Générale"), 10},
      {Variant("société"), -1},    // whole value, not a part
      {Variant(int16_t{12}), 11},  // Integer finds Long
      {Variant(12.0), 11},
      {Variant("12"), 11},         // a text that reads as 12 finds the number
      {Variant(int32_t{12}), 11},  // the number cell comes before "012"
      {Variant("012"), 11},        // reads as 12, and the number comes first
      {Variant(Date::fromYmd(2026, 11, 23)), 13},
      {Variant(int32_t{-1}), 14},  // True is -1
      {Variant(""), 15},
      {Variant(), 15},        // Empty finds ""
      {Variant::null(), -1},  // Null equals nothing, not even a Null cell
      {Variant::missing(), -1},
      {Variant("«COMPANY NAME»"), 17},
      {Variant(2.5f), 18},
      {Variant("2.5"), 18},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(debugString(c.value));
    EXPECT_EQ(list.findRow(1, c.value), c.key);
  }
  // Two texts are compared as texts, never as the numbers they read as.
  IndexedIDList texts;
  texts.addRow(1, {Variant("012")});
  EXPECT_EQ(texts.findRow(1, Variant("12")), -1);
  EXPECT_EQ(texts.findRow(1, Variant(int32_t{12})), 1);
}

TEST(IDListTest, FindRowSeesRowsAddedAfterItsFirstSearch) {
  IndexedIDList list;
  list.initialize();
  list.addRow(1, {Variant("a")});
  EXPECT_EQ(list.findRow(1, Variant("B")), -1);  // builds the column's index
  list.addRow(2, {Variant("b")});
  list.addRow(3, {Variant("B")});
  EXPECT_EQ(list.findRow(1, Variant("B")), 2);
}

TEST(IDListTest, MissingColumnsReadAsMissing) {
  IndexedIDList list;
  list.initialize();
  list.addRow(7, {Variant("one"), Variant::missing(), Variant("three")});
  list.moveFirst();
  EXPECT_TRUE(list.getColumn(2).isMissing());
  EXPECT_TRUE(list.getColumn(24).isMissing());
  IDList::Row values = list.getRowValues();
  ASSERT_EQ(values.size(), 24u);
  EXPECT_EQ(values[0], Variant("one"));
  EXPECT_EQ(values[2], Variant("three"));
  EXPECT_TRUE(values[23].isMissing());
  EXPECT_EQ(list.findRow(2, Variant::missing()), -1);
}

TEST(IDListTest, CursorWalksInOrderOfAdding) {
  IndexedIDList list;
  list.initialize();
  EXPECT_TRUE(list.isEmpty());
  EXPECT_TRUE(list.isAtEnd());
  list.moveFirst();
  EXPECT_TRUE(list.isAtEnd());
  list.addRow(5, {Variant("x")});
  list.addRow(-1, {Variant("y")});
  EXPECT_FALSE(list.isEmpty());
  EXPECT_TRUE(list.isAtEnd());  // adding doesn't move the cursor
  list.moveFirst();
  EXPECT_EQ(list.currentKey(), 5);
  list.moveNext();
  EXPECT_EQ(list.currentKey(), -1);
  list.moveNext();
  EXPECT_TRUE(list.isAtEnd());
  list.moveNext();  // past the end stays at the end
  EXPECT_TRUE(list.isAtEnd());
  EXPECT_FALSE(list.moveToKey(6));
  EXPECT_TRUE(list.isAtEnd());
  list.initialize();
  EXPECT_TRUE(list.isAtEnd());
  EXPECT_EQ(list.getRowCount(), 2);
}

TEST(IDListTest, BadColumnsAndNoCurrentRowRaise) {
  IndexedIDList list;
  list.initialize();
  list.addRow(1, {Variant("x")});
  EXPECT_RUNTIME_ERROR(list.getColumn(1), 91);
  EXPECT_RUNTIME_ERROR(list.getRowValues(), 91);
  EXPECT_RUNTIME_ERROR(list.currentKey(), 91);
  list.moveFirst();
  for (int16_t column : {int16_t{0}, int16_t{25}, int16_t{-1}}) {
    SCOPED_TRACE(column);
    EXPECT_RUNTIME_ERROR(list.getColumn(column), 9);
    EXPECT_RUNTIME_ERROR(list.findRow(column, Variant("x")), 9);
  }
  EXPECT_RUNTIME_ERROR(list.addRow(2, IDList::Row(25, Variant("x"))), 9);
  EXPECT_EQ(list.getRowCount(), 1);
}

TEST(IDListTest, CopyListReplacesTheDestination) {
  IndexedIDList source, destination;
  source.initialize();
  source.addRow(3, {Variant("c")});
  source.addRow(1, {Variant("a"), Variant(int32_t{9})});
  source.moveFirst();
  source.moveNext();
  destination.initialize();
  destination.addRow(99, {Variant("old")});

  destination.copyList(source, destination, true);
  EXPECT_EQ(destination.getRowCount(), 2);
  EXPECT_EQ(destination.currentKey(), 3);  // the copy starts on its first row
  EXPECT_FALSE(destination.moveToKey(99));
  ASSERT_TRUE(destination.moveToKey(1));
  EXPECT_EQ(destination.getColumn(2), Variant(int32_t{9}));
  EXPECT_EQ(destination.findRow(1, Variant("C")), 3);

  // The copy is independent of the source.
  source.addRow(4, {Variant("d")});
  EXPECT_EQ(destination.getRowCount(), 2);
  EXPECT_EQ(source.currentKey(), 1);  // the source's cursor is untouched

  destination.copyList(destination, destination, true);  // onto itself: unchanged
  EXPECT_EQ(destination.getRowCount(), 2);
}

// A destination of another implementation can't be filled: the interface can't empty it.
class ForeignList : public IDList {
 public:
  int32_t getRowCount() override { return 0; }
  bool moveToKey(int32_t) override { return false; }
  int32_t findRow(int16_t, const Variant&) override { return -1; }
  void addRow(int32_t, const Row&) override {}
  void initialize() override {}
  Variant getColumn(int16_t) override { return {}; }
  Row getRowValues() override { return {}; }
  void moveFirst() override {}
  void moveNext() override {}
  bool isAtEnd() override { return true; }
  bool isEmpty() override { return true; }
  int32_t currentKey() override { return 0; }
  void copyList(IDList&, IDList&, bool) override {}
};

TEST(IDListTest, CopyListFromAnyListButOnlyIntoThisLibrarysList) {
  IndexedIDList list;
  ForeignList foreign;
  EXPECT_RUNTIME_ERROR(list.copyList(list, foreign, true), 13);
  list.initialize();
  list.addRow(1, {Variant("x")});
  list.copyList(foreign, list, true);  // an empty foreign source empties the destination
  EXPECT_TRUE(list.isEmpty());
}

}  // namespace
}  // namespace nvwm
